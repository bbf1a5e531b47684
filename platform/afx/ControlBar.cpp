// CControlBar: a bar that its frame lays out along one of its edges, and
// that may dock in a dock bar or float.
#include "DockBar.h"

#include <afxext.h>

#include <algorithm>

IMPLEMENT_DYNAMIC(CControlBar, CWnd)

BEGIN_MESSAGE_MAP(CControlBar, CWnd)
ON_MESSAGE(WM_SIZEPARENT, OnSizeParent)
END_MESSAGE_MAP()

CControlBar::CControlBar() = default;

CControlBar::~CControlBar() {
    if (m_hWnd)
        DestroyWindow();
    delete m_pDockContext;
}

BOOL CControlBar::CreateBar(LPCTSTR className, LPCTSTR title, DWORD style, CWnd* parent, UINT id,
                            DWORD controlStyle) {
    m_dwStyle = style & CBRS_ALL;
    // The CBRS_ bits share their places with the window's own style bits.
    const DWORD windowStyle = (style & ~static_cast<DWORD>(CBRS_ALL)) | controlStyle;
    return CreateEx(0, className, title, windowStyle, CRect(0, 0, 0, 0), parent, id);
}

int CControlBar::OnCreate(LPCREATESTRUCT cs) {
    if (CWnd::OnCreate(cs) == -1)
        return -1;
    CWnd* parent = CWnd::FromHandlePermanent(::GetParent(m_hWnd));
    if (parent && parent->IsKindOf(RUNTIME_CLASS(CFrameWnd))) {
        m_pDockSite = static_cast<CFrameWnd*>(parent);
        m_pDockSite->AddControlBar(this);
    }
    return 0;
}

void CControlBar::OnDestroy() {
    if (m_pDockBar)
        m_pDockBar->RemoveControlBar(this);
    if (m_pDockSite)
        m_pDockSite->RemoveControlBar(this);
    CWnd::OnDestroy();
}

void CControlBar::PostNcDestroy() {
    if (m_bAutoDelete)
        delete this;
}

CSize CControlBar::CalcFixedLayout(BOOL stretch, BOOL horz) {
    CRect rect;
    if (m_hWnd)
        GetWindowRect(&rect);
    // A bar stretched along its edge takes the edge's whole length.
    constexpr int kWhole = 32767;
    if (stretch)
        return horz ? CSize(kWhole, rect.Height()) : CSize(rect.Width(), kWhole);
    return CSize(rect.Width(), rect.Height());
}

void CControlBar::SetBarStyle(DWORD style) {
    const DWORD old = m_dwStyle;
    m_dwStyle = style & CBRS_ALL;
    if (old != m_dwStyle)
        OnBarStyleChange(old, m_dwStyle);
}

void CControlBar::OnBarStyleChange(DWORD, DWORD) {}

void CControlBar::EnableDocking(DWORD dockStyle) {
    m_dwDockStyle = dockStyle & CBRS_ALIGN_ANY;
    if (m_dwDockStyle && !m_pDockContext)
        m_pDockContext = new CDockContext(this);
    if (m_pDockContext)
        m_pDockContext->m_pDockSite = m_pDockSite;
}

BOOL CControlBar::IsFloating() const {
    return m_pDockBar && m_pDockBar->m_bFloating;
}

BOOL CControlBar::IsVisible() const {
    return m_hWnd && (GetStyle() & WS_VISIBLE) ? TRUE : FALSE;
}

LRESULT CControlBar::OnSizeParent(WPARAM, LPARAM lParam) {
    auto* layout = reinterpret_cast<AFX_SIZEPARENTPARAMS*>(lParam);
    const DWORD align = m_dwStyle & CBRS_ALIGN_ANY;
    if (!layout || !align || !(GetStyle() & WS_VISIBLE))
        return 0;
    RECT& room = layout->rect;
    const BOOL horz = (align & CBRS_ORIENT_HORZ) != 0;
    const CSize wanted = CalcFixedLayout(layout->bStretch, horz);
    // A bar never takes more than is left.
    const int across = horz ? std::clamp(static_cast<int>(wanted.cy), 0,
                                         std::max(0, static_cast<int>(room.bottom - room.top)))
                            : std::clamp(static_cast<int>(wanted.cx), 0,
                                         std::max(0, static_cast<int>(room.right - room.left)));
    CRect bar(room);
    if (align & CBRS_ALIGN_TOP) {
        bar.bottom = bar.top + across;
        room.top += across;
    } else if (align & CBRS_ALIGN_BOTTOM) {
        bar.top = bar.bottom - across;
        room.bottom -= across;
    } else if (align & CBRS_ALIGN_LEFT) {
        bar.right = bar.left + across;
        room.left += across;
    } else {
        bar.left = bar.right - across;
        room.right -= across;
    }
    if (horz)
        layout->sizeTotal.cy += across;
    else
        layout->sizeTotal.cx += across;
    MoveWindow(&bar);
    return 0;
}
