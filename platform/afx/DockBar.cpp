// CDockBar: the bars docked along one edge of a frame, in rows, or the one
// bar of a floating frame.
#include "DockBar.h"

#include <algorithm>

namespace {

constexpr const WCHAR* kDockBarClass = u"AfxDockBar";

LPCTSTR DockBarClass() {
    WNDCLASS wc{};
    if (!::GetClassInfo(nullptr, kDockBarClass, &wc)) {
        wc.lpfnWndProc = ::DefWindowProc;
        wc.hbrBackground = ::GetSysColorBrush(COLOR_BTNFACE);
        wc.lpszClassName = kDockBarClass;
        ::RegisterClass(&wc);
    }
    return kDockBarClass;
}

// The bar's size in the orientation it lies in.
CSize Wanted(CControlBar* bar, BOOL horz) {
    return bar->CalcFixedLayout(FALSE, horz);
}

} // namespace

IMPLEMENT_DYNAMIC(CDockBar, CControlBar)

BEGIN_MESSAGE_MAP(CDockBar, CControlBar)
END_MESSAGE_MAP()

CDockBar::CDockBar(BOOL floating) : m_bFloating(floating) {}

CDockBar::~CDockBar() {
    // Bars still held are no longer docked anywhere.
    for (auto& row : m_rows)
        for (CControlBar* bar : row)
            bar->m_pDockBar = nullptr;
}

BOOL CDockBar::Create(CWnd* parent, DWORD style, UINT id) {
    return CreateBar(DockBarClass(), nullptr, style | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, parent,
                     id);
}

BOOL CDockBar::IsHorizontal() const {
    const DWORD align = m_bFloating ? m_dwFloatStyle : m_dwStyle;
    return (align & CBRS_ORIENT_HORZ) != 0 || !(align & CBRS_ORIENT_VERT);
}

bool CDockBar::HasBars() const {
    return !m_rows.empty();
}

CControlBar* CDockBar::FirstBar() const {
    return m_rows.empty() || m_rows.front().empty() ? nullptr : m_rows.front().front();
}

int CDockBar::GetDockedVisibleCount() const {
    int count = 0;
    for (const auto& row : m_rows)
        for (CControlBar* bar : row)
            count += bar->IsVisible() ? 1 : 0;
    return count;
}

void CDockBar::DockControlBar(CControlBar* bar, LPCRECT rect) {
    if (!bar || bar == this || !bar->m_hWnd || !m_hWnd)
        return;
    if (bar->m_pDockBar)
        bar->m_pDockBar->RemoveControlBar(bar);
    const BOOL horz = IsHorizontal();
    // The row that rect points at, and the place in it, in this bar's
    // client coordinates; the rows are measured as they are laid out.
    std::size_t row = m_rows.size();
    std::size_t place = 0;
    if (rect && !m_bFloating) {
        CPoint point(rect->left, rect->top);
        ScreenToClient(&point);
        const int across = horz ? point.y : point.x;
        const int along = horz ? point.x : point.y;
        int start = 0;
        for (std::size_t r = 0; r < m_rows.size(); ++r) {
            int thickness = 0;
            for (CControlBar* other : m_rows[r])
                if (other->IsVisible()) {
                    const CSize size = Wanted(other, horz);
                    thickness = std::max(thickness, static_cast<int>(horz ? size.cy : size.cx));
                }
            if (across >= start && across < start + thickness) {
                row = r;
                break;
            }
            start += thickness;
        }
        if (row < m_rows.size()) {
            auto& bars = m_rows[row];
            place = bars.size();
            for (std::size_t i = 0; i < bars.size(); ++i) {
                CRect where;
                bars[i]->GetWindowRect(&where);
                ScreenToClient(&where);
                // A bar starting where the point is goes after it.
                if (along <= (horz ? where.left : where.top)) {
                    place = i;
                    break;
                }
            }
        }
    }
    if (row == m_rows.size())
        m_rows.emplace_back();
    auto& bars = m_rows[row];
    bars.insert(bars.begin() + static_cast<std::ptrdiff_t>(std::min(place, bars.size())), bar);
    bar->m_pDockBar = this;
    // The bar takes the edge it now lies along, or marks itself floating.
    const DWORD align = m_bFloating ? m_dwFloatStyle : (m_dwStyle & CBRS_ALIGN_ANY);
    ::SetParent(bar->m_hWnd, m_hWnd);
    LayOutBars();
    bar->SetBarStyle((bar->m_dwStyle & ~static_cast<DWORD>(CBRS_ALIGN_ANY | CBRS_FLOATING)) |
                     (align & CBRS_ALIGN_ANY) | (m_bFloating ? CBRS_FLOATING : 0));
}

bool CDockBar::RemoveControlBar(CControlBar* bar) {
    for (auto row = m_rows.begin(); row != m_rows.end(); ++row) {
        auto it = std::find(row->begin(), row->end(), bar);
        if (it == row->end())
            continue;
        row->erase(it);
        if (row->empty())
            m_rows.erase(row);
        bar->m_pDockBar = nullptr;
        return true;
    }
    return false;
}

CSize CDockBar::CalcFixedLayout(BOOL stretch, BOOL) {
    const BOOL horz = IsHorizontal();
    if (m_bFloating) {
        CControlBar* bar = FirstBar();
        return bar ? Wanted(bar, horz) : CSize(0, 0);
    }
    int thickness = 0;
    for (const auto& row : m_rows) {
        int rowThickness = 0;
        for (CControlBar* bar : row)
            if (bar->IsVisible()) {
                const CSize size = Wanted(bar, horz);
                rowThickness = std::max(rowThickness, static_cast<int>(horz ? size.cy : size.cx));
            }
        thickness += rowThickness;
    }
    CRect rect;
    GetWindowRect(&rect);
    constexpr int kWhole = 32767;
    if (horz)
        return CSize(stretch ? kWhole : rect.Width(), thickness);
    return CSize(thickness, stretch ? kWhole : rect.Height());
}

void CDockBar::LayOutBars() {
    if (!m_hWnd)
        return;
    CRect client;
    GetClientRect(&client);
    if (m_bFloating) {
        if (CControlBar* bar = FirstBar())
            bar->MoveWindow(&client);
        return;
    }
    const BOOL horz = IsHorizontal();
    const int length = horz ? client.Width() : client.Height();
    int across = 0;
    for (const auto& row : m_rows) {
        std::vector<CControlBar*> shown;
        int thickness = 0;
        for (CControlBar* bar : row)
            if (bar->IsVisible()) {
                shown.push_back(bar);
                const CSize size = Wanted(bar, horz);
                thickness = std::max(thickness, static_cast<int>(horz ? size.cy : size.cx));
            }
        // Each bar keeps the length it asks for; the last one of the row
        // reaches to the row's end.
        int along = 0;
        for (std::size_t i = 0; i < shown.size(); ++i) {
            const CSize size = Wanted(shown[i], horz);
            int extent = std::clamp(static_cast<int>(horz ? size.cx : size.cy), 0,
                                    std::max(0, length - along));
            if (i + 1 == shown.size())
                extent = std::max(0, length - along);
            const CRect where = horz ? CRect(along, across, along + extent, across + thickness)
                                     : CRect(across, along, across + thickness, along + extent);
            shown[i]->MoveWindow(&where);
            along += extent;
        }
        across += thickness;
    }
}

LRESULT CDockBar::OnSizeParent(WPARAM wParam, LPARAM lParam) {
    CControlBar::OnSizeParent(wParam, lParam);
    LayOutBars();
    return 0;
}

void CDockBar::OnSize(UINT type, int cx, int cy) {
    CControlBar::OnSize(type, cx, cy);
    LayOutBars();
}
