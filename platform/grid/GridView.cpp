// The grid view: its window, repainting after changes, and scrolling.
#include "GridView.h"

#include "GridPages.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CGXView, CView)

CGXView::CGXView() = default;
CGXView::~CGXView() = default;

IMPLEMENT_DYNCREATE(CGXGridView, CGXView)

BEGIN_MESSAGE_MAP(CGXGridView, CGXView)
ON_WM_KEYDOWN()
END_MESSAGE_MAP()

CGXGridView::CGXGridView() = default;
CGXGridView::~CGXGridView() = default;

void CGXGridView::OnInitialUpdate() {
    m_nTopRow = 1;
    m_nLeftCol = 1;
    CGXView::OnInitialUpdate();
}

void CGXGridView::OnGridChanged(UINT flags) {
    if (!m_hWnd)
        return;
    // Rows or columns may have gone: keep the scroll position within reach.
    m_nTopRow = std::clamp(m_nTopRow, 1, MaxTopRow());
    m_nLeftCol = std::clamp(m_nLeftCol, 1, MaxLeftCol());
    if (flags & (GRID_UPDATE_INVALIDATE | GRID_UPDATE_NOW))
        Invalidate(FALSE);
    if (flags & GRID_UPDATE_NOW)
        UpdateWindow();
}

void CGXGridView::OnSize(UINT type, int cx, int cy) {
    CGXView::OnSize(type, cx, cy);
    m_nTopRow = std::clamp(m_nTopRow, 1, MaxTopRow());
    m_nLeftCol = std::clamp(m_nLeftCol, 1, MaxLeftCol());
}

int CGXGridView::HeaderColWidth() const {
    return IsColHidden(0) ? 0 : GetColWidth(0);
}

int CGXGridView::MaxTopRow() const {
    CRect client;
    if (m_hWnd)
        GetClientRect(&client);
    const int rowHeight = std::max(1, GetRowHeight(0));
    const int fits = std::max(1, (client.Height() - rowHeight) / rowHeight);
    return std::max(1, GetRowCount() - fits + 1);
}

int CGXGridView::MaxLeftCol() const {
    CRect client;
    if (m_hWnd)
        GetClientRect(&client);
    const int room = client.Width() - HeaderColWidth();
    // The leftmost column from which the last ones fit; the last visible
    // column when even it alone does not fit.
    int left = std::max(1, GetColCount());
    int used = 0;
    for (int col = GetColCount(); col >= 1; --col) {
        int width = GetColWidth(col);
        if (width == 0)
            continue;
        if (used + width > room && used > 0)
            break;
        used += width;
        left = col;
    }
    return left;
}

BOOL CGXGridView::SetTopRow(int row) {
    int top = std::clamp(row, 1, MaxTopRow());
    if (top == m_nTopRow)
        return FALSE;
    m_nTopRow = top;
    if (m_hWnd)
        Invalidate(FALSE);
    return TRUE;
}

BOOL CGXGridView::SetLeftCol(int col) {
    int left = std::clamp(col, 1, MaxLeftCol());
    if (left == m_nLeftCol)
        return FALSE;
    m_nLeftCol = left;
    if (m_hWnd)
        Invalidate(FALSE);
    return TRUE;
}

int CGXGridView::GetLastVisibleRow() const {
    if (GetRowCount() == 0 || !m_hWnd)
        return 0;
    CRect client;
    GetClientRect(&client);
    const int rowHeight = std::max(1, GetRowHeight(0));
    // Rows showing at least in part below the header row.
    const int shown = (client.Height() - rowHeight + rowHeight - 1) / rowHeight;
    if (shown <= 0)
        return 0;
    return std::min(GetRowCount(), m_nTopRow + shown - 1);
}

int CGXGridView::GetLastVisibleCol() const {
    if (!m_hWnd)
        return 0;
    CRect client;
    GetClientRect(&client);
    int x = HeaderColWidth();
    int last = 0;
    for (int col = m_nLeftCol; col <= GetColCount() && x < client.right; ++col) {
        int width = GetColWidth(col);
        if (width == 0)
            continue;
        last = col;
        x += width;
    }
    return last;
}

void CGXGridView::OnKeyDown(UINT ch, UINT, UINT) {
    const int page = std::max(1, GetLastVisibleRow() - m_nTopRow);
    switch (ch) {
    case VK_DOWN:
        SetTopRow(m_nTopRow + 1);
        break;
    case VK_UP:
        SetTopRow(m_nTopRow - 1);
        break;
    case VK_NEXT:
        SetTopRow(m_nTopRow + page);
        break;
    case VK_PRIOR:
        SetTopRow(m_nTopRow - page);
        break;
    case VK_HOME:
        SetTopRow(1);
        SetLeftCol(1);
        break;
    case VK_END:
        SetTopRow(GetRowCount());
        break;
    case VK_RIGHT:
    case VK_LEFT: {
        // One shown column further, passing over hidden ones.
        const int step = ch == VK_RIGHT ? 1 : -1;
        int col = m_nLeftCol + step;
        while (col >= 1 && col <= GetColCount() && GetColWidth(col) == 0)
            col += step;
        SetLeftCol(col);
        break;
    }
    default:
        break;
    }
}
