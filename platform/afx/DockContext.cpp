// CDockContext: where a bar docked and floated last, and the switch between
// the two.
#include "DockBar.h"

CDockContext::CDockContext(CControlBar* bar)
    : m_pBar(bar), m_pDockSite(bar ? bar->m_pDockSite : nullptr) {}

void CDockContext::ToggleDocking() {
    if (!m_pBar || !m_pBar->m_hWnd)
        return;
    // A bar given docking before its window was made learns its frame now.
    CFrameWnd* site = m_pDockSite ? m_pDockSite : m_pBar->m_pDockSite;
    if (!site || !site->m_hWnd)
        return;
    if (m_pBar->IsFloating() || !m_pBar->m_pDockBar) {
        const CRect* place =
            m_uMRUDockID && !m_rectMRUDockPos.IsRectEmpty() ? &m_rectMRUDockPos : nullptr;
        site->DockControlBar(m_pBar, m_uMRUDockID, place);
        // The edge it docked at last may be gone: any edge it may dock at.
        if (m_pBar->IsFloating() || !m_pBar->m_pDockBar)
            site->DockControlBar(m_pBar, 0, nullptr);
        return;
    }
    CPoint at = m_ptMRUFloatPos;
    if (at.x < 0 || at.y < 0) {
        CRect where;
        m_pBar->GetWindowRect(&where);
        at = where.TopLeft();
    }
    site->FloatControlBar(m_pBar, at, m_dwMRUFloatStyle);
}
