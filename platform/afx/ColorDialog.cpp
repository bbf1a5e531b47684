// CColorDialog: the framework's face of the platform's colour dialog.
#include <afxwin.h>

CColorDialog::CColorDialog(COLORREF clrInit, DWORD dwFlags, CWnd* pParentWnd)
    : CDialog(static_cast<UINT>(0), pParentWnd) {
    m_cc.lStructSize = sizeof(m_cc);
    m_cc.lpCustColors = GetSavedCustomColors();
    m_cc.Flags = dwFlags;
    if ((m_cc.rgbResult = clrInit) != 0)
        m_cc.Flags |= CC_RGBINIT;
}

INT_PTR CColorDialog::DoModal() {
    m_cc.hwndOwner = PreModal();
    BOOL chosen = ::ChooseColor(&m_cc);
    return chosen ? IDOK : IDCANCEL;
}

COLORREF* CColorDialog::GetSavedCustomColors() {
    static COLORREF colours[16] = {0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF,
                                   0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF,
                                   0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF};
    return colours;
}
