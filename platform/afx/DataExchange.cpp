// Dialog data exchange: moving values between a dialog's controls and its
// members.
#include <afxwin.h>

CDataExchange::CDataExchange(CWnd* dialog, BOOL saveAndValidate)
    : m_bSaveAndValidate(saveAndValidate), m_pDlgWnd(dialog) {}

HWND CDataExchange::PrepareCtrl(int id) {
    HWND control = ::GetDlgItem(m_pDlgWnd->m_hWnd, id);
    if (!control)
        AfxThrowNotSupportedException();
    m_idLastControl = id;
    m_bEditLastControl = FALSE;
    return control;
}

HWND CDataExchange::PrepareEditCtrl(int id) {
    HWND control = PrepareCtrl(id);
    m_bEditLastControl = TRUE;
    return control;
}

void CDataExchange::Fail() {
    if (m_bSaveAndValidate && m_idLastControl) {
        HWND control = ::GetDlgItem(m_pDlgWnd->m_hWnd, m_idLastControl);
        if (control) {
            ::SetFocus(control);
            if (m_bEditLastControl)
                ::SendMessage(control, EM_SETSEL, 0, -1);
        }
    }
    AfxThrowUserException();
}

void DDX_Control(CDataExchange* dx, int id, CWnd& control) {
    if (control.m_hWnd)
        return;
    HWND handle = dx->PrepareCtrl(id);
    if (!control.SubclassWindow(handle))
        AfxThrowNotSupportedException();
}

void DDX_Text(CDataExchange* dx, int id, CString& value) {
    HWND control = dx->PrepareEditCtrl(id);
    if (dx->m_bSaveAndValidate)
        CWnd::FromHandle(control)->GetWindowText(value);
    else
        ::SetWindowText(control, value.GetString());
}

void DDX_Text(CDataExchange* dx, int id, int& value) {
    HWND control = dx->PrepareEditCtrl(id);
    if (!dx->m_bSaveAndValidate) {
        CString text;
        text.Format(u"%d", value);
        ::SetWindowText(control, text.GetString());
        return;
    }
    CString text;
    CWnd::FromHandle(control)->GetWindowText(text);
    // Blanks, an optional sign and digits, then blanks and nothing else.
    auto blank = [](WCHAR ch) { return ch == u' ' || ch == u'\t'; };
    const WCHAR* p = text.GetString();
    while (blank(*p))
        ++p;
    bool negative = *p == u'-';
    if (*p == u'-' || *p == u'+')
        ++p;
    long long number = 0;
    bool digits = false;
    for (; *p >= u'0' && *p <= u'9'; ++p) {
        digits = true;
        number = number * 10 + (*p - u'0');
        if (number > 2147483648LL)
            break;
    }
    if (negative)
        number = -number;
    while (blank(*p))
        ++p;
    if (!digits || *p || number > 2147483647LL || number < -2147483648LL) {
        AfxMessageBox(u"Please enter an integer.", MB_ICONEXCLAMATION);
        dx->Fail();
    }
    value = static_cast<int>(number);
}

void DDX_CBString(CDataExchange* dx, int id, CString& value) {
    HWND control = dx->PrepareCtrl(id);
    if (dx->m_bSaveAndValidate) {
        CWnd::FromHandle(control)->GetWindowText(value);
        return;
    }
    if (::SendMessage(control, CB_SELECTSTRING, static_cast<WPARAM>(-1),
                      reinterpret_cast<LPARAM>(value.GetString())) == CB_ERR)
        ::SetWindowText(control, value.GetString());
}

void DDX_Check(CDataExchange* dx, int id, int& value) {
    HWND control = dx->PrepareCtrl(id);
    if (dx->m_bSaveAndValidate) {
        value = static_cast<int>(::SendMessage(control, BM_GETCHECK, 0, 0));
        return;
    }
    if (value < 0 || value > 2)
        value = 0;
    ::SendMessage(control, BM_SETCHECK, static_cast<WPARAM>(value), 0);
}

void DDV_MaxChars(CDataExchange* dx, const CString& value, int maxChars) {
    if (dx->m_bSaveAndValidate && value.GetLength() > maxChars) {
        CString prompt;
        prompt.Format(u"Enter no more than %d characters.", maxChars);
        AfxMessageBox(prompt, MB_ICONEXCLAMATION);
        dx->Fail();
    } else if (!dx->m_bSaveAndValidate && dx->m_idLastControl && dx->m_bEditLastControl) {
        ::SendMessage(::GetDlgItem(dx->m_pDlgWnd->m_hWnd, dx->m_idLastControl), EM_LIMITTEXT,
                      static_cast<WPARAM>(maxChars), 0);
    }
}
