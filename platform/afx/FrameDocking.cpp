// A frame's control bars: the list of them, dock bars along its edges,
// docking, floating, showing and hiding bars.
#include "DockBar.h"

#include <algorithm>

namespace {

CDockBar* AsDockBar(CControlBar* bar) {
    return bar && bar->IsDockBar() ? static_cast<CDockBar*>(bar) : nullptr;
}

// The small frame of a floating bar.
CMiniDockFrameWnd* FloatingFrameOf(CControlBar* bar) {
    if (!bar->IsFloating())
        return nullptr;
    CWnd* parent = CWnd::FromHandlePermanent(::GetParent(bar->m_pDockBar->m_hWnd));
    return DYNAMIC_DOWNCAST(CMiniDockFrameWnd, parent);
}

} // namespace

LRESULT CFrameWnd::OnNcActivate(WPARAM, LPARAM) {
    const LRESULT result = Default();
    for (CControlBar* bar : m_listControlBars) {
        CDockBar* dock = AsDockBar(bar);
        if (dock && dock->m_bFloating && dock->m_hWnd)
            ::SendMessage(::GetParent(dock->m_hWnd), WM_NCACTIVATE, 0, 0);
    }
    return result;
}

void CFrameWnd::AddControlBar(CControlBar* bar) {
    if (bar && std::find(m_listControlBars.begin(), m_listControlBars.end(), bar) ==
                   m_listControlBars.end())
        m_listControlBars.push_back(bar);
}

void CFrameWnd::RemoveControlBar(CControlBar* bar) {
    m_listControlBars.erase(std::remove(m_listControlBars.begin(), m_listControlBars.end(), bar),
                            m_listControlBars.end());
}

CControlBar* CFrameWnd::GetControlBar(UINT id) {
    for (CControlBar* bar : m_listControlBars)
        if (bar->m_hWnd && static_cast<UINT>(bar->GetDlgCtrlID()) == id)
            return bar;
    return nullptr;
}

void CFrameWnd::EnableDocking(DWORD dockStyle) {
    if (!m_hWnd)
        return;
    for (const DockEdge& edge : kDockEdges) {
        if (!(dockStyle & edge.align) || GetControlBar(edge.id))
            continue;
        // The dock bar deletes itself with its window, or when it cannot
        // be made.
        auto* dock = new CDockBar(FALSE);
        dock->m_bAutoDelete = TRUE;
        dock->Create(this, WS_CHILD | WS_VISIBLE | edge.align, edge.id);
    }
    RecalcLayout();
}

void CFrameWnd::DockControlBar(CControlBar* bar, UINT dockBarId, LPCRECT rect) {
    if (!bar || !bar->m_hWnd || !m_hWnd || bar->IsDockBar() || !bar->m_dwDockStyle)
        return;
    CDockBar* dock = nullptr;
    for (const DockEdge& edge : kDockEdges) {
        if ((dockBarId && edge.id != dockBarId) || !(bar->m_dwDockStyle & edge.align))
            continue;
        if ((dock = AsDockBar(GetControlBar(edge.id))) != nullptr)
            break;
    }
    if (!dock)
        return;
    CMiniDockFrameWnd* floating = FloatingFrameOf(bar);
    if (floating && bar->m_pDockContext) {
        CRect where;
        floating->GetWindowRect(&where);
        bar->m_pDockContext->m_ptMRUFloatPos = where.TopLeft();
        bar->m_pDockContext->m_dwMRUFloatStyle = floating->m_pDockBar->m_dwFloatStyle;
    }
    dock->DockControlBar(bar, rect);
    if (bar->m_pDockContext)
        bar->m_pDockContext->m_uMRUDockID = static_cast<UINT>(dock->GetDlgCtrlID());
    // The small frame stays, hidden and empty, for the next bar that floats.
    if (floating)
        floating->ShowWindow(SW_HIDE);
    RecalcLayout();
}

void CFrameWnd::FloatControlBar(CControlBar* bar, CPoint point, DWORD style) {
    if (!bar || !bar->m_hWnd || !m_hWnd || bar->IsDockBar() || !bar->m_pDockContext)
        return;
    const DWORD shape = style & CBRS_ALIGN_ANY ? style & CBRS_ALIGN_ANY : CBRS_ALIGN_TOP;
    CMiniDockFrameWnd* frame = FloatingFrameOf(bar);
    if (!frame) {
        // Where the bar lies now is where it docks again.
        if (bar->m_pDockBar) {
            bar->m_pDockContext->m_uMRUDockID = static_cast<UINT>(bar->m_pDockBar->GetDlgCtrlID());
            bar->GetWindowRect(&bar->m_pDockContext->m_rectMRUDockPos);
        }
        for (CControlBar* other : m_listControlBars) {
            CDockBar* dock = AsDockBar(other);
            if (dock && dock->m_bFloating && !dock->HasBars()) {
                frame = DYNAMIC_DOWNCAST(CMiniDockFrameWnd,
                                         CWnd::FromHandlePermanent(::GetParent(dock->m_hWnd)));
                if (frame)
                    break;
            }
        }
        if (!frame) {
            frame = new CMiniDockFrameWnd;
            if (!frame->Create(this, shape))
                return;
        }
        frame->m_pDockBar->m_dwFloatStyle = shape;
        frame->m_pDockBar->DockControlBar(bar);
    } else {
        frame->m_pDockBar->m_dwFloatStyle = shape;
        frame->m_pDockBar->DockControlBar(bar);
    }
    frame->FitToBar();
    frame->SetWindowPos(nullptr, point.x, point.y, 0, 0,
                        SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    if (bar->IsVisible()) {
        frame->ShowWindow(SW_SHOWNA);
        frame->SendMessage(WM_NCACTIVATE, TRUE);
    }
    bar->m_pDockContext->m_ptMRUFloatPos = point;
    bar->m_pDockContext->m_dwMRUFloatStyle = shape;
    RecalcLayout();
}

void CFrameWnd::ShowControlBar(CControlBar* bar, BOOL show, BOOL) {
    if (!bar || !bar->m_hWnd)
        return;
    bar->ShowWindow(show ? SW_SHOWNA : SW_HIDE);
    if (CMiniDockFrameWnd* frame = FloatingFrameOf(bar)) {
        frame->RecalcLayout();
        frame->ShowWindow(show ? SW_SHOWNA : SW_HIDE);
        if (show)
            frame->SendMessage(WM_NCACTIVATE, TRUE);
    }
    RecalcLayout();
}
