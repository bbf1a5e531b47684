// CMDIFrameWnd: the frame around the MDI client, routing commands and keys to
// the active document frame first.
#include <afxwin.h>

IMPLEMENT_DYNCREATE(CMDIFrameWnd, CFrameWnd)

CMDIFrameWnd::CMDIFrameWnd() = default;

BOOL CMDIFrameWnd::LoadFrame(UINT idResource, DWORD style, CWnd* parent, CCreateContext* context) {
    if (!CFrameWnd::LoadFrame(idResource, style, parent, context))
        return FALSE;
    // Shown while no document is active.
    m_hMenuDefault = ::GetMenu(m_hWnd);
    return TRUE;
}

BOOL CMDIFrameWnd::OnCreateClient(LPCREATESTRUCT cs, CCreateContext*) {
    HMENU bar = m_hMenuDefault ? m_hMenuDefault : ::GetMenu(m_hWnd);
    return CreateClient(cs, CMenu::FromHandle(GetWindowMenuPopup(bar)));
}

BOOL CMDIFrameWnd::CreateClient(LPCREATESTRUCT, CMenu* windowMenu) {
    CLIENTCREATESTRUCT ccs{windowMenu ? windowMenu->m_hMenu : nullptr, AFX_IDM_FIRST_MDICHILD};
    // Every style a document frame asks for is kept.
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | MDIS_ALLCHILDSTYLES;
    m_hWndMDIClient = ::CreateWindowEx(
        WS_EX_CLIENTEDGE, u"MDICLIENT", nullptr, style, 0, 0, 0, 0, m_hWnd,
        reinterpret_cast<HMENU>(static_cast<UINT_PTR>(AFX_IDW_PANE_FIRST)), nullptr, &ccs);
    return m_hWndMDIClient != nullptr;
}

HMENU CMDIFrameWnd::GetWindowMenuPopup(HMENU menuBar) {
    const int count = ::GetMenuItemCount(menuBar);
    for (int i = 0; i < count; ++i) {
        HMENU popup = ::GetSubMenu(menuBar, i);
        const int items = ::GetMenuItemCount(popup);
        for (int j = 0; j < items; ++j) {
            const UINT id = ::GetMenuItemID(popup, j);
            if ((id >= ID_WINDOW_NEW && id <= ID_WINDOW_SPLIT) || id >= AFX_IDM_FIRST_MDICHILD)
                return popup;
        }
    }
    return nullptr;
}

CMDIChildWnd* CMDIFrameWnd::MDIGetActive(BOOL* maximized) const {
    BOOL zoomed = FALSE;
    auto active = reinterpret_cast<HWND>(
        ::SendMessage(m_hWndMDIClient, WM_MDIGETACTIVE, 0, reinterpret_cast<LPARAM>(&zoomed)));
    if (maximized)
        *maximized = zoomed;
    return dynamic_cast<CMDIChildWnd*>(CWnd::FromHandlePermanent(active));
}

void CMDIFrameWnd::MDIActivate(CWnd* wnd) {
    ::SendMessage(m_hWndMDIClient, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(wnd->GetSafeHwnd()), 0);
}

void CMDIFrameWnd::MDIMaximize(CWnd* wnd) {
    ::SendMessage(m_hWndMDIClient, WM_MDIMAXIMIZE, reinterpret_cast<WPARAM>(wnd->GetSafeHwnd()), 0);
}

void CMDIFrameWnd::MDIRestore(CWnd* wnd) {
    ::SendMessage(m_hWndMDIClient, WM_MDIRESTORE, reinterpret_cast<WPARAM>(wnd->GetSafeHwnd()), 0);
}

void CMDIFrameWnd::MDINext() {
    ::SendMessage(m_hWndMDIClient, WM_MDINEXT, 0, 0);
}

CMenu* CMDIFrameWnd::MDISetMenu(CMenu* frameMenu, CMenu* windowMenu) {
    auto old = reinterpret_cast<HMENU>(
        ::SendMessage(m_hWndMDIClient, WM_MDISETMENU,
                      reinterpret_cast<WPARAM>(frameMenu ? frameMenu->m_hMenu : nullptr),
                      reinterpret_cast<LPARAM>(windowMenu ? windowMenu->m_hMenu : nullptr)));
    return CMenu::FromHandle(old);
}

CFrameWnd* CMDIFrameWnd::GetActiveFrame() {
    CMDIChildWnd* child = MDIGetActive();
    return child ? static_cast<CFrameWnd*>(child) : this;
}

BOOL CMDIFrameWnd::OnCmdMsg(UINT id, int code, void* extra, void* handlerInfo) {
    CMDIChildWnd* child = MDIGetActive();
    if (child && child->OnCmdMsg(id, code, extra, handlerInfo))
        return TRUE;
    return CFrameWnd::OnCmdMsg(id, code, extra, handlerInfo);
}

BOOL CMDIFrameWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
    // The active document frame sees the command first, with its own update
    // handlers; what nobody there takes comes back here.
    CMDIChildWnd* child = MDIGetActive();
    if (child && AfxCallWndProc(child, child->m_hWnd, WM_COMMAND, wParam, lParam) != 0)
        return TRUE;
    return CFrameWnd::OnCommand(wParam, lParam);
}

BOOL CMDIFrameWnd::PreTranslateMessage(MSG* msg) {
    CMDIChildWnd* child = MDIGetActive();
    if (child && child->PreTranslateMessage(msg))
        return TRUE;
    if (msg->message < WM_KEYFIRST || msg->message > WM_KEYLAST)
        return FALSE;
    return m_hAccelTable && ::TranslateAccelerator(m_hWnd, m_hAccelTable, msg);
}

void CMDIFrameWnd::OnUpdateFrameTitle(BOOL addToTitle) {
    if (!(GetStyle() & FWS_ADDTOTITLE))
        return;
    // A maximised document shows in the caption through the MDI client.
    CMDIChildWnd* child = MDIGetActive();
    CDocument* document = GetActiveDocument();
    if (addToTitle && child && !(child->GetStyle() & WS_MAXIMIZE) &&
        (document || (document = child->GetActiveDocument()) != nullptr))
        UpdateFrameTitleForDocument(document->GetTitle());
    else
        UpdateFrameTitleForDocument(nullptr);
}

LRESULT CMDIFrameWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    return ::DefFrameProc(m_hWnd, m_hWndMDIClient, message, wParam, lParam);
}

void CMDIFrameWnd::OnDestroy() {
    CFrameWnd::OnDestroy();
}
