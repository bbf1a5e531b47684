// CPropertySheet: the framework's side of the system's property sheet. The
// sheet is created modeless and subclassed by the object; DoModal then runs
// the framework's modal loop until the sheet has no current page (it was
// closed by OK, Cancel or Finish), and returns the id of the button that
// closed it.
#include <afxcmn.h>
#include <afxwin.h>

namespace platform::afx {
CWnd* HookWindowCreate(CWnd* wnd);
void UnhookWindowCreate(CWnd* previous);
} // namespace platform::afx

IMPLEMENT_DYNAMIC(CPropertySheet, CWnd)

BEGIN_MESSAGE_MAP(CPropertySheet, CWnd)
ON_MESSAGE(WM_INITDIALOG, HandleInitDialog)
END_MESSAGE_MAP()

CPropertySheet::CPropertySheet() {
    CommonConstruct(nullptr, 0);
}

CPropertySheet::CPropertySheet(UINT captionId, CWnd* parent, UINT selectPage) {
    Construct(captionId, parent, selectPage);
}

CPropertySheet::CPropertySheet(LPCTSTR caption, CWnd* parent, UINT selectPage) {
    Construct(caption, parent, selectPage);
}

CPropertySheet::~CPropertySheet() {
    for (HPROPSHEETPAGE handle : m_pageHandles)
        DestroyPropertySheetPage(handle);
    if (m_tabControl) {
        // The wrapper never owned the control.
        m_tabControl->m_hWnd = nullptr;
        delete m_tabControl;
    }
}

void CPropertySheet::Construct(UINT captionId, CWnd* parent, UINT selectPage) {
    m_strCaption.LoadString(captionId);
    CommonConstruct(parent, selectPage);
}

void CPropertySheet::Construct(LPCTSTR caption, CWnd* parent, UINT selectPage) {
    m_strCaption = caption;
    CommonConstruct(parent, selectPage);
}

void CPropertySheet::CommonConstruct(CWnd* parent, UINT selectPage) {
    m_psh.dwSize = sizeof(m_psh);
    m_psh.hInstance = AfxGetResourceHandle();
    m_psh.nStartPage = selectPage;
    m_pParentWnd = parent;
}

BOOL CPropertySheet::BuildPropPageArray() {
    for (HPROPSHEETPAGE handle : m_pageHandles)
        DestroyPropertySheetPage(handle);
    m_pageHandles.clear();
    for (CPropertyPage* page : m_pages) {
        HPROPSHEETPAGE handle =
            page && page->PreparePage() ? CreatePropertySheetPage(&page->m_psp) : nullptr;
        if (!handle) {
            for (HPROPSHEETPAGE made : m_pageHandles)
                DestroyPropertySheetPage(made);
            m_pageHandles.clear();
            return FALSE;
        }
        m_pageHandles.push_back(handle);
    }
    m_psh.dwFlags &= ~static_cast<DWORD>(PSH_PROPSHEETPAGE | PSH_USEPSTARTPAGE);
    m_psh.pszCaption = m_strCaption;
    m_psh.nPages = static_cast<UINT>(m_pageHandles.size());
    m_psh.phpage = m_pageHandles.data();
    return TRUE;
}

INT_PTR CPropertySheet::DoModal() {
    if (m_hWnd || m_pages.empty() || !BuildPropPageArray())
        return -1;
    HWND owner = nullptr;
    if (m_pParentWnd && m_pParentWnd->m_hWnd)
        owner = m_pParentWnd->GetTopLevelParent()->m_hWnd;
    else if (CWnd* main = AfxGetMainWnd())
        owner = main->m_hWnd;
    bool enableOwner = false;
    if (owner && ::IsWindowEnabled(owner)) {
        ::EnableWindow(owner, FALSE);
        enableOwner = true;
    }
    m_psh.dwFlags |= PSH_MODELESS;
    m_psh.hwndParent = owner;
    m_bModeless = FALSE;
    m_nModalResult = -1;
    m_nFlags |= WF_CONTINUEMODAL;
    CWnd* previous = platform::afx::HookWindowCreate(this);
    auto hwnd = reinterpret_cast<HWND>(PropertySheet(&m_psh));
    platform::afx::UnhookWindowCreate(previous);
    // The sheet owns the page handles from here on.
    m_pageHandles.clear();
    m_psh.phpage = nullptr;
    m_psh.dwFlags &= ~static_cast<DWORD>(PSH_MODELESS);
    INT_PTR result = -1;
    if (hwnd && m_hWnd == hwnd && (m_nFlags & WF_CONTINUEMODAL))
        result = RunModalLoop(ModalLoopFlags());
    EndModalWindow(owner, enableOwner);
    m_nFlags &= ~static_cast<UINT>(WF_CONTINUEMODAL);
    return result;
}

BOOL CPropertySheet::Create(CWnd* parent, DWORD style, DWORD exStyle) {
    (void)style;
    (void)exStyle;
    if (m_hWnd || m_pages.empty() || !BuildPropPageArray())
        return FALSE;
    m_pParentWnd = parent;
    m_bModeless = TRUE;
    m_psh.dwFlags |= PSH_MODELESS;
    m_psh.hwndParent = parent ? parent->m_hWnd : nullptr;
    CWnd* previous = platform::afx::HookWindowCreate(this);
    auto hwnd = reinterpret_cast<HWND>(PropertySheet(&m_psh));
    platform::afx::UnhookWindowCreate(previous);
    m_pageHandles.clear();
    m_psh.phpage = nullptr;
    m_psh.dwFlags &= ~static_cast<DWORD>(PSH_MODELESS);
    return hwnd && m_hWnd == hwnd;
}

BOOL CPropertySheet::ContinueModal() {
    if (!CWnd::ContinueModal())
        return FALSE;
    // A sheet without a current page was closed.
    return SendMessage(PSM_GETCURRENTPAGEHWND) != 0;
}

BOOL CPropertySheet::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (CWnd::OnCommand(wParam, lParam))
        return TRUE;
    // The push button pressed last is the result of DoModal.
    auto control = reinterpret_cast<HWND>(lParam);
    if (control && HIWORD(wParam) == BN_CLICKED &&
        (::SendMessage(control, WM_GETDLGCODE, 0, 0) & (DLGC_BUTTON | DLGC_DEFPUSHBUTTON))) {
        DWORD type = static_cast<DWORD>(::GetWindowLongPtr(control, GWL_STYLE)) & BS_TYPEMASK;
        if (type == BS_PUSHBUTTON || type == BS_DEFPUSHBUTTON || type == BS_OWNERDRAW)
            m_nModalResult = LOWORD(wParam);
    }
    return FALSE;
}

LRESULT CPropertySheet::HandleInitDialog(WPARAM, LPARAM) {
    return OnInitDialog();
}

BOOL CPropertySheet::OnInitDialog() {
    return static_cast<BOOL>(Default());
}

BOOL CPropertySheet::PreTranslateMessage(MSG* msg) {
    bool input = (msg->message >= WM_KEYDOWN && msg->message <= 0x0109) ||
                 (msg->message >= WM_MOUSEMOVE && msg->message <= 0x020E);
    if (!input || !m_hWnd)
        return FALSE;
    return SendMessage(PSM_ISDIALOGMESSAGE, 0, reinterpret_cast<LPARAM>(msg)) != 0;
}

void CPropertySheet::AddPage(CPropertyPage* page) {
    if (!page)
        return;
    m_pages.push_back(page);
    if (m_hWnd && page->PreparePage())
        if (HPROPSHEETPAGE handle = CreatePropertySheetPage(&page->m_psp))
            SendMessage(PSM_ADDPAGE, 0, reinterpret_cast<LPARAM>(handle));
}

void CPropertySheet::RemovePage(CPropertyPage* page) {
    RemovePage(GetPageIndex(page));
}

void CPropertySheet::RemovePage(int index) {
    if (index < 0 || index >= static_cast<int>(m_pages.size()))
        return;
    if (m_hWnd)
        SendMessage(PSM_REMOVEPAGE, static_cast<WPARAM>(index), 0);
    m_pages.erase(m_pages.begin() + index);
}

int CPropertySheet::GetPageCount() const {
    if (!m_hWnd)
        return static_cast<int>(m_pages.size());
    return GetTabControl()->GetItemCount();
}

CPropertyPage* CPropertySheet::GetPage(int index) const {
    if (index < 0 || index >= static_cast<int>(m_pages.size()))
        return nullptr;
    return m_pages[static_cast<std::size_t>(index)];
}

int CPropertySheet::GetPageIndex(CPropertyPage* page) {
    for (std::size_t i = 0; i < m_pages.size(); ++i)
        if (m_pages[i] == page)
            return static_cast<int>(i);
    return -1;
}

int CPropertySheet::GetActiveIndex() const {
    if (!m_hWnd)
        return static_cast<int>(m_psh.nStartPage);
    return GetTabControl()->GetCurSel();
}

CPropertyPage* CPropertySheet::GetActivePage() const {
    return GetPage(GetActiveIndex());
}

BOOL CPropertySheet::SetActivePage(int index) {
    if (!m_hWnd) {
        m_psh.nStartPage = static_cast<UINT>(index);
        return TRUE;
    }
    return SendMessage(PSM_SETCURSEL, static_cast<WPARAM>(index), 0) != 0;
}

BOOL CPropertySheet::SetActivePage(CPropertyPage* page) {
    int index = GetPageIndex(page);
    return index >= 0 && SetActivePage(index);
}

CTabCtrl* CPropertySheet::GetTabControl() const {
    if (!m_tabControl)
        m_tabControl = new CTabCtrl;
    m_tabControl->m_hWnd = reinterpret_cast<HWND>(::SendMessage(m_hWnd, PSM_GETTABCONTROL, 0, 0));
    return m_tabControl;
}

void CPropertySheet::SetTitle(LPCTSTR text, UINT style) {
    m_strCaption = text;
    if (m_hWnd)
        SendMessage(PSM_SETTITLE, style, reinterpret_cast<LPARAM>(m_strCaption.GetString()));
}

void CPropertySheet::SetWizardMode() {
    m_psh.dwFlags |= PSH_WIZARD;
}

BOOL CPropertySheet::IsWizard() const {
    return (m_psh.dwFlags & (PSH_WIZARD | PSH_WIZARD97)) != 0;
}

void CPropertySheet::SetWizardButtons(DWORD flags) {
    ::PostMessage(m_hWnd, PSM_SETWIZBUTTONS, 0, static_cast<LPARAM>(flags));
}

void CPropertySheet::SetFinishText(LPCTSTR text) {
    SendMessage(PSM_SETFINISHTEXT, 0, reinterpret_cast<LPARAM>(text));
}

BOOL CPropertySheet::PressButton(int button) {
    return SendMessage(PSM_PRESSBUTTON, static_cast<WPARAM>(button), 0) != 0;
}

void CPropertySheet::EndDialog(int result) {
    EndModalLoop(result);
    if (m_bModeless)
        DestroyWindow();
    else
        PostMessage(PSM_PRESSBUTTON, PSBTN_CANCEL);
}
