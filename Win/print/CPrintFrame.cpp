#include "CPrintFrame.h"

namespace {

// WS_CHILD | WS_VISIBLE | WS_MAXIMIZE | WS_OVERLAPPEDWINDOW.
constexpr DWORD kPrintFrameStyle = 0x51CF0000;

// The MDI child that child points to, when it is still one of the MDI
// client's windows; a frame recorded earlier may have closed since.
CMDIChildWnd* LiveChild(CMDIChildWnd* child) {
    CWnd* main = AfxGetMainWnd();
    auto* frame = dynamic_cast<CMDIFrameWnd*>(main);
    if (!child || !frame || !frame->m_hWndMDIClient)
        return nullptr;
    for (HWND hwnd = ::GetWindow(frame->m_hWndMDIClient, GW_CHILD); hwnd;
         hwnd = ::GetWindow(hwnd, GW_HWNDNEXT))
        if (CWnd::FromHandlePermanent(hwnd) == child)
            return child;
    return nullptr;
}

} // namespace

IMPLEMENT_DYNCREATE(CPrintFrame, CMDIChildWnd)

BEGIN_MESSAGE_MAP(CPrintFrame, CMDIChildWnd)
ON_WM_CREATE()
ON_WM_CLOSE()
END_MESSAGE_MAP()

CPrintFrame::CPrintFrame() = default;

CPrintFrame::~CPrintFrame() = default;

BOOL CPrintFrame::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT&,
                         CMDIFrameWnd* pParentWnd, CCreateContext* pContext) {
    CRect client;
    CWinApp* app = AfxGetApp();
    if (CWnd* main = app ? app->GetMainWnd() : nullptr; main && main->m_hWnd)
        main->GetClientRect(&client);
    dwStyle |= kPrintFrameStyle;
    m_bPrinting = false;
    m_bCreated = true;
    const CRect corner(client.right, client.bottom, client.right, client.bottom);
    return CMDIChildWnd::Create(lpszClassName, lpszWindowName, dwStyle, corner, pParentWnd,
                                pContext);
}

int CPrintFrame::OnCreate(LPCREATESTRUCT lpcs) {
    m_hFocusWnd = ::GetFocus();
    if (CMDIChildWnd::OnCreate(lpcs) == -1)
        return -1;
    return 0;
}

void CPrintFrame::ActivateFrame(int) {
    auto* frame = dynamic_cast<CMDIFrameWnd*>(AfxGetMainWnd());
    m_pActiveChild = frame ? frame->MDIGetActive() : nullptr;
}

void CPrintFrame::SetPrintStart() {
    m_bPrinting = true;
    if (CMDIChildWnd* child = LiveChild(m_pActiveChild))
        ::SendMessage(::GetParent(child->m_hWnd), WM_MDIACTIVATE,
                      reinterpret_cast<WPARAM>(child->m_hWnd), 0);
}

void CPrintFrame::SetPrintEnd() {
    m_bPrinting = false;
    PostMessage(WM_CLOSE, 0, 0);
    if (CView* view = GetActiveView())
        view->ShowWindow(SW_HIDE);
    ::SendMessage(::GetParent(m_hWnd), WM_MDIACTIVATE, reinterpret_cast<WPARAM>(m_hWnd), 0);
}

void CPrintFrame::OnClose() {
    if (m_bPrinting && !m_bCreated)
        return;
    // The frame object is gone once the base class has closed it.
    HWND focus = m_hFocusWnd;
    CFrameWnd::OnClose();
    ::SetFocus(focus);
}
