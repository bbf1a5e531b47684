// CMiniDockFrameWnd: the small captioned frame a floating bar lies in.
#include "DockBar.h"

#include "toolkit/BarDrag.h"

IMPLEMENT_DYNAMIC(CMiniDockFrameWnd, CFrameWnd)

BEGIN_MESSAGE_MAP(CMiniDockFrameWnd, CFrameWnd)
ON_WM_CLOSE()
ON_MESSAGE(WM_NCACTIVATE, OnNcActivate)
ON_MESSAGE(WM_NCLBUTTONDOWN, OnNcLButtonDown)
END_MESSAGE_MAP()

CMiniDockFrameWnd::CMiniDockFrameWnd() = default;

CMiniDockFrameWnd::~CMiniDockFrameWnd() = default;

BOOL CMiniDockFrameWnd::Create(CFrameWnd* dockSite, DWORD floatStyle) {
    if (!dockSite || !dockSite->m_hWnd) {
        PostNcDestroy();
        return FALSE;
    }
    m_pDockSite = dockSite;
    // Owned by the frame: it stays above it and goes with it.
    if (!CFrameWnd::Create(nullptr, u"", kMiniFrameStyle, CRect(0, 0, 0, 0), dockSite, nullptr,
                           kMiniFrameExStyle))
        return FALSE;
    auto* dockBar = new CDockBar(TRUE);
    dockBar->m_bAutoDelete = TRUE;
    dockBar->m_dwFloatStyle =
        floatStyle & CBRS_ALIGN_ANY ? floatStyle & CBRS_ALIGN_ANY : CBRS_ALIGN_TOP;
    if (!dockBar->Create(this, WS_CHILD | WS_VISIBLE | CBRS_ALIGN_TOP, AFX_IDW_DOCKBAR_FLOAT)) {
        DestroyWindow();
        return FALSE;
    }
    // The dock bar belongs to the frame the bar docks at, not to this one,
    // so that the frame finds it again.
    RemoveControlBar(dockBar);
    dockBar->m_pDockSite = dockSite;
    dockSite->AddControlBar(dockBar);
    m_pDockBar = dockBar;
    return TRUE;
}

void CMiniDockFrameWnd::FitToBar() {
    CControlBar* bar = m_pDockBar ? m_pDockBar->FirstBar() : nullptr;
    if (!bar)
        return;
    CString title;
    bar->GetWindowText(title);
    SetWindowText(title);
    const CSize size = bar->CalcFixedLayout(FALSE, m_pDockBar->IsHorizontal());
    CRect rect(0, 0, size.cx, size.cy);
    ::AdjustWindowRectEx(&rect, GetStyle(), FALSE, GetExStyle());
    SetWindowPos(nullptr, 0, 0, rect.Width(), rect.Height(),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    RecalcLayout();
}

void CMiniDockFrameWnd::RecalcLayout(BOOL) {
    if (!m_hWnd || !m_pDockBar || !m_pDockBar->m_hWnd)
        return;
    CRect client;
    GetClientRect(&client);
    m_pDockBar->MoveWindow(&client);
    m_pDockBar->LayOutBars();
}

void CMiniDockFrameWnd::OnClose() {
    // The close box hides the bar, which can be shown again; the frame
    // stays for it.
    CControlBar* bar = m_pDockBar ? m_pDockBar->FirstBar() : nullptr;
    if (bar && m_pDockSite)
        m_pDockSite->ShowControlBar(bar, FALSE, FALSE);
    else
        ShowWindow(SW_HIDE);
}

LRESULT CMiniDockFrameWnd::OnNcActivate(WPARAM, LPARAM lParam) {
    const HWND active = ::GetActiveWindow();
    const BOOL shown = active == m_hWnd || (m_pDockSite && active == m_pDockSite->m_hWnd);
    return DefWindowProc(WM_NCACTIVATE, shown, lParam);
}

LRESULT CMiniDockFrameWnd::OnNcLButtonDown(WPARAM hit, LPARAM lParam) {
    CControlBar* bar = m_pDockBar ? m_pDockBar->FirstBar() : nullptr;
    if (hit != HTCAPTION || !bar || !bar->m_pDockContext || !bar->m_dwDockStyle)
        return Default();
    platform::toolkit::DragBar(
        bar, CPoint(static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))));
    return 0;
}

void CMiniDockFrameWnd::PostNcDestroy() {
    delete this;
}
