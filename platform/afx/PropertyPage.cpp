// CPropertyPage: a dialog the property sheet creates as its child. The
// sheet's notifications (PSN_*) arrive through WM_NOTIFY and go to the
// page's virtual handlers; their answers steer the sheet.
#include <afxwin.h>
#include <platform/ResourceChain.h>

#include <algorithm>

namespace platform::afx {
CWnd* HookWindowCreate(CWnd* wnd);
INT_PTR FrameworkDialogProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
} // namespace platform::afx

namespace {

// The sheet calls this as it creates the page's window: the window is the
// page object's from its first message on.
UINT PageCallback(HWND, UINT message, PROPSHEETPAGEW* psp) {
    if (message != PSPCB_CREATE)
        return 0;
    auto* page = reinterpret_cast<CPropertyPage*>(psp->lParam);
    if (!page || page->m_hWnd)
        return FALSE;
    platform::afx::HookWindowCreate(page);
    return TRUE;
}

} // namespace

IMPLEMENT_DYNAMIC(CPropertyPage, CDialog)

CPropertyPage::CPropertyPage() {
    m_psp.dwSize = sizeof(PROPSHEETPAGE);
}

CPropertyPage::CPropertyPage(UINT templateId, UINT captionId, DWORD size) {
    m_psp.dwSize = std::min<DWORD>(size, sizeof(PROPSHEETPAGE));
    Construct(templateId, captionId);
}

CPropertyPage::CPropertyPage(LPCTSTR templateName, UINT captionId, DWORD size) {
    m_psp.dwSize = std::min<DWORD>(size, sizeof(PROPSHEETPAGE));
    Construct(templateName, captionId);
}

void CPropertyPage::Construct(UINT templateId, UINT captionId) {
    Construct(MAKEINTRESOURCE(templateId), captionId);
    m_nIDHelp = templateId;
}

void CPropertyPage::Construct(LPCTSTR templateName, UINT captionId) {
    m_lpszTemplateName = templateName;
    m_psp.dwFlags = PSP_USECALLBACK;
    m_psp.hInstance = AfxGetResourceHandle();
    m_psp.pszTemplate = templateName;
    m_psp.pfnDlgProc = platform::afx::FrameworkDialogProc;
    m_psp.lParam = reinterpret_cast<LPARAM>(this);
    m_psp.pfnCallback = PageCallback;
    if (captionId && m_strCaption.LoadString(captionId)) {
        m_psp.pszTitle = m_strCaption;
        m_psp.dwFlags |= PSP_USETITLE;
    }
    m_bFirstSetActive = TRUE;
}

BOOL CPropertyPage::PreparePage() {
    m_bFirstSetActive = TRUE;
    if (m_psp.dwFlags & PSP_USETITLE)
        m_psp.pszTitle = m_strCaption;
    if (m_lpDialogTemplate) {
        m_psp.dwFlags |= PSP_DLGINDIRECT;
        m_psp.pResource = m_lpDialogTemplate;
        return TRUE;
    }
    if (m_psp.dwFlags & PSP_DLGINDIRECT)
        return m_psp.pResource != nullptr;
    // The template is looked up through the module chain, as a dialog's is,
    // and handed to the sheet in memory.
    platform::FoundResource<platform::DialogTemplate> found =
        m_lpszTemplateName
            ? platform::FindDialogTemplate(platform::MakeResourceName(m_lpszTemplateName))
            : platform::FoundResource<platform::DialogTemplate>{};
    if (!found)
        return FALSE;
    m_psp.dwFlags |= PSP_DLGINDIRECT;
    m_psp.pResource = found.resource;
    m_psp.hInstance = found.module;
    return TRUE;
}

CPropertySheet* CPropertyPage::GetParentSheet() {
    return dynamic_cast<CPropertySheet*>(CWnd::FromHandlePermanent(::GetParent(m_hWnd)));
}

LRESULT CPropertyPage::MapWizardResult(LRESULT toPage) {
    if (toPage == 0 || toPage == -1)
        return toPage;
    CPropertySheet* sheet = GetParentSheet();
    if (!sheet)
        return toPage;
    for (int i = 0; CPropertyPage* page = sheet->GetPage(i); ++i)
        if (reinterpret_cast<LRESULT>(page->m_lpszTemplateName) == toPage)
            return (page->m_psp.dwFlags & PSP_DLGINDIRECT)
                       ? reinterpret_cast<LRESULT>(page->m_psp.pResource)
                       : reinterpret_cast<LRESULT>(page->m_psp.pszTemplate);
    return toPage;
}

BOOL CPropertyPage::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    // The page's own message map comes first.
    if (CDialog::OnNotify(wParam, lParam, result))
        return TRUE;
    auto* header = reinterpret_cast<NMHDR*>(lParam);
    if (header->hwndFrom != m_hWnd && header->hwndFrom != ::GetParent(m_hWnd))
        return FALSE;
    switch (header->code) {
    case PSN_SETACTIVE:
        *result = OnSetActive() ? 0 : -1;
        break;
    case PSN_KILLACTIVE:
        *result = OnKillActive() ? FALSE : TRUE;
        break;
    case PSN_APPLY:
        *result = OnApply() ? PSNRET_NOERROR : PSNRET_INVALID_NOCHANGEPAGE;
        break;
    case PSN_RESET:
        OnReset();
        break;
    case PSN_QUERYCANCEL:
        *result = OnQueryCancel() ? FALSE : TRUE;
        break;
    case PSN_WIZNEXT:
        *result = MapWizardResult(OnWizardNext());
        break;
    case PSN_WIZBACK:
        *result = MapWizardResult(OnWizardBack());
        break;
    case PSN_WIZFINISH:
        *result = OnWizardFinish() ? FALSE : TRUE;
        break;
    default:
        return FALSE;
    }
    return TRUE;
}

BOOL CPropertyPage::OnSetActive() {
    if (m_bFirstSetActive)
        m_bFirstSetActive = FALSE;
    else
        UpdateData(FALSE);
    return TRUE;
}

BOOL CPropertyPage::OnKillActive() {
    return UpdateData(TRUE);
}

BOOL CPropertyPage::OnApply() {
    OnOK();
    return TRUE;
}

void CPropertyPage::OnReset() {
    OnCancel();
}

void CPropertyPage::OnOK() {}

void CPropertyPage::OnCancel() {}

BOOL CPropertyPage::OnQueryCancel() {
    return TRUE;
}

LRESULT CPropertyPage::OnWizardBack() {
    return 0;
}

LRESULT CPropertyPage::OnWizardNext() {
    return 0;
}

BOOL CPropertyPage::OnWizardFinish() {
    return TRUE;
}

void CPropertyPage::SetModified(BOOL changed) {
    HWND sheet = ::GetParent(m_hWnd);
    if (sheet)
        ::SendMessage(sheet, changed ? PSM_CHANGED : PSM_UNCHANGED,
                      reinterpret_cast<WPARAM>(m_hWnd), 0);
}

void CPropertyPage::CancelToClose() {
    HWND sheet = ::GetParent(m_hWnd);
    if (sheet)
        ::SendMessage(sheet, PSM_CANCELTOCLOSE, 0, 0);
}

BOOL CPropertyPage::PreTranslateMessage(MSG*) {
    // The sheet runs the keyboard interface of all its pages.
    return FALSE;
}
