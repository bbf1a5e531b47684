// CPrintDialog: the framework's face of the platform's print dialog, and the
// print job information that holds one.
#include <afxwin.h>

namespace {

// One of the names in a DEVNAMES block; empty when there is none.
CString DevName(HGLOBAL block, WORD DEVNAMES::*offset) {
    auto* names = static_cast<const DEVNAMES*>(GlobalLock(block));
    if (!names)
        return CString();
    const SIZE_T units = GlobalSize(block) / sizeof(WCHAR);
    CString name;
    const WORD at = names->*offset;
    if (at >= sizeof(DEVNAMES) / sizeof(WCHAR) && at < units) {
        const auto* text = reinterpret_cast<const WCHAR*>(names) + at;
        SIZE_T length = 0;
        while (at + length < units && text[length])
            ++length;
        name = CString(text, static_cast<int>(length));
    }
    GlobalUnlock(block);
    return name;
}

} // namespace

CPrintDialog::CPrintDialog(BOOL bPrintSetupOnly, DWORD dwFlags, CWnd* pParentWnd)
    : CDialog(static_cast<UINT>(0), pParentWnd) {
    m_pd.lStructSize = sizeof(m_pd);
    m_pd.Flags = dwFlags;
    if (bPrintSetupOnly)
        m_pd.Flags |= PD_PRINTSETUP;
    else
        m_pd.Flags |= PD_RETURNDC;
    m_pd.nMinPage = 1;
    m_pd.nMaxPage = 0xFFFF;
    m_pd.nFromPage = 1;
    m_pd.nToPage = 0xFFFF;
    m_pd.nCopies = 1;
}

CPrintDialog::~CPrintDialog() {
    GlobalFree(m_pd.hDevNames);
    GlobalFree(m_pd.hDevMode);
}

INT_PTR CPrintDialog::DoModal() {
    m_pd.hwndOwner = PreModal();
    return ::PrintDlg(&m_pd) ? IDOK : IDCANCEL;
}

BOOL CPrintDialog::GetDefaults() {
    // The default printer replaces whatever was chosen before.
    m_pd.hDevNames = GlobalFree(m_pd.hDevNames);
    m_pd.hDevMode = GlobalFree(m_pd.hDevMode);
    m_pd.Flags |= PD_RETURNDEFAULT;
    BOOL found = ::PrintDlg(&m_pd);
    m_pd.Flags &= ~static_cast<DWORD>(PD_RETURNDEFAULT);
    return found;
}

CString CPrintDialog::GetDeviceName() const {
    return DevName(m_pd.hDevNames, &DEVNAMES::wDeviceOffset);
}

CString CPrintDialog::GetDriverName() const {
    return DevName(m_pd.hDevNames, &DEVNAMES::wDriverOffset);
}

CString CPrintDialog::GetPortName() const {
    return DevName(m_pd.hDevNames, &DEVNAMES::wOutputOffset);
}

LPDEVMODE CPrintDialog::GetDevMode() const {
    return m_pd.hDevMode ? static_cast<LPDEVMODE>(GlobalLock(m_pd.hDevMode)) : nullptr;
}

int CPrintDialog::GetCopies() const {
    if (m_pd.Flags & PD_USEDEVMODECOPIES) {
        if (const auto* mode = static_cast<const DEVMODE*>(GlobalLock(m_pd.hDevMode))) {
            int copies = (mode->dmFields & DM_COPIES) ? mode->dmCopies : 1;
            GlobalUnlock(m_pd.hDevMode);
            return copies;
        }
    }
    return m_pd.nCopies;
}

HDC CPrintDialog::CreatePrinterDC() {
    if (!m_pd.hDevNames)
        return nullptr;
    if (m_pd.hDC)
        ::DeleteDC(m_pd.hDC);
    const void* mode = m_pd.hDevMode ? GlobalLock(m_pd.hDevMode) : nullptr;
    m_pd.hDC = ::CreateDC(GetDriverName(), GetDeviceName(), GetPortName(), mode);
    if (mode)
        GlobalUnlock(m_pd.hDevMode);
    return m_pd.hDC;
}

CPrintInfo::CPrintInfo()
    : m_pPD(new CPrintDialog(FALSE, PD_ALLPAGES | PD_USEDEVMODECOPIES | PD_NOSELECTION)) {
    m_strPageDesc = u"Page %u\nPages %u-%u\n";
}

CPrintInfo::~CPrintInfo() {
    if (m_pPD->m_pd.hDC)
        ::DeleteDC(m_pPD->m_pd.hDC);
    delete m_pPD;
}
