// CWnd's part in frames: the frame above a window, descendants by id, show
// states and placements, and the menu bar.
#include <afxwin.h>

CFrameWnd* CWnd::GetParentFrame() const {
    for (CWnd* parent = GetParent(); parent; parent = parent->GetParent())
        if (parent->IsKindOf(RUNTIME_CLASS(CFrameWnd)))
            return static_cast<CFrameWnd*>(parent);
    return nullptr;
}

CWnd* CWnd::GetDescendantWindow(int id, BOOL onlyPermanent) const {
    // The children first: a pane is usually a direct child.
    for (HWND child = ::GetWindow(m_hWnd, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
        if (::GetDlgCtrlID(child) == id) {
            CWnd* wnd = onlyPermanent ? CWnd::FromHandlePermanent(child) : CWnd::FromHandle(child);
            if (wnd)
                return wnd;
        }
    for (HWND child = ::GetWindow(m_hWnd, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
        if (CWnd* found = CWnd::FromHandle(child)->GetDescendantWindow(id, onlyPermanent))
            return found;
    return nullptr;
}

BOOL CWnd::IsIconic() const {
    return ::IsIconic(m_hWnd);
}

BOOL CWnd::IsZoomed() const {
    return ::IsZoomed(m_hWnd);
}

BOOL CWnd::GetWindowPlacement(WINDOWPLACEMENT* placement) const {
    return ::GetWindowPlacement(m_hWnd, placement);
}

BOOL CWnd::SetWindowPlacement(const WINDOWPLACEMENT* placement) {
    return ::SetWindowPlacement(m_hWnd, placement);
}

CMenu* CWnd::GetMenu() const {
    return CMenu::FromHandle(::GetMenu(m_hWnd));
}

BOOL CWnd::SetMenu(CMenu* menu) {
    return ::SetMenu(m_hWnd, menu ? menu->m_hMenu : nullptr);
}

void CWnd::DrawMenuBar() {
    ::DrawMenuBar(m_hWnd);
}
