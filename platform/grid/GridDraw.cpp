// Drawing the grid: header row, header column, cell texts clipped to their
// cells, and grid lines. The same drawing serves the window and the page.
#include "GridView.h"

#include <algorithm>

namespace {

const COLORREF kGridLine = RGB(192, 192, 192);

// What a header cell shows when no value was set: the column's or row's
// number.
CString HeaderText(const CGXGridCore& grid, int row, int col) {
    CGXStyle style;
    if (grid.GetStyleRowCol(row, col, style) && style.GetIncludeValue())
        return style.GetValue();
    if (row == 0 && col == 0)
        return CString();
    CString number;
    number.Format(u"%d", row == 0 ? col : row);
    return number;
}

} // namespace

void CGXGridView::DrawCells(CDC* dc, const CRect& bounds, int firstRow, int lastRow,
                            const std::vector<int>& cols) {
    CFont font;
    if (!dc || !font.CreateFontIndirect(&GetGridFont()))
        return;
    CFont* oldFont = dc->SelectObject(&font);
    const int oldMode = dc->SetBkMode(TRANSPARENT);
    const COLORREF oldColor = dc->SetTextColor(GetSysColor(COLOR_WINDOWTEXT));
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    const COLORREF shadow = GetSysColor(COLOR_BTNSHADOW);
    const int rowHeight = GetRowHeight(0);

    // The columns' left edges, the header column first (column 0).
    struct Column {
        int col;
        int left;
        int right;
    };
    std::vector<Column> columns;
    int x = bounds.left;
    if (const int headerWidth = IsColHidden(0) ? 0 : GetColWidth(0); headerWidth > 0) {
        columns.push_back({0, x, std::min<int>(x + headerWidth, bounds.right)});
        x += headerWidth;
    }
    for (int col : cols) {
        if (x >= bounds.right)
            break;
        int width = GetColWidth(col);
        if (width <= 0)
            continue;
        columns.push_back({col, x, std::min<int>(x + width, bounds.right)});
        x += width;
    }
    const int right = std::min<int>(x, bounds.right);

    // One row: its cells' texts, each clipped to the cell less its grid line.
    auto drawRow = [&](int row, int top) {
        const int bottom = std::min<int>(top + rowHeight, bounds.bottom);
        for (const Column& c : columns) {
            const bool header = row == 0 || c.col == 0;
            CRect cell(c.left, top, c.right, bottom);
            CRect inside(c.left, top, std::max(c.left, c.right - 1), std::max(top, bottom - 1));
            const CString headerText = header ? HeaderText(*this, row, c.col) : CString();
            const CString& text = header ? headerText : ValueRef(row, c.col);
            if (header)
                dc->FillSolidRect(&inside, face);
            if (text.IsEmpty())
                continue;
            int textX = cell.left + kTextMarginX;
            if (header)
                textX = cell.left +
                        std::max(kTextMarginX, (cell.Width() - dc->GetTextExtent(text).cx) / 2);
            dc->ExtTextOut(textX, top + kTextMarginY, ETO_CLIPPED, &inside, text.GetString(),
                           static_cast<UINT>(text.GetLength()), nullptr);
        }
    };

    int y = bounds.top;
    std::vector<int> lines; // bottom edges of the rows drawn
    drawRow(0, y);
    y += rowHeight;
    lines.push_back(y);
    for (int row = firstRow; row <= lastRow && y < bounds.bottom; ++row) {
        drawRow(row, y);
        y += rowHeight;
        lines.push_back(y);
    }
    const int bottom = std::min<int>(y, bounds.bottom);

    // Grid lines on the right and bottom edge of every cell, the header
    // row's and column's in the darker shadow colour, and a line along the
    // top and the left of the whole.
    dc->FillSolidRect(bounds.left, bounds.top, right - bounds.left, 1, kGridLine);
    dc->FillSolidRect(bounds.left, bounds.top, 1, bottom - bounds.top, kGridLine);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i] > bounds.bottom)
            break;
        dc->FillSolidRect(bounds.left, lines[i] - 1, right - bounds.left, 1,
                          i == 0 ? shadow : kGridLine);
    }
    for (const Column& c : columns) {
        if (c.right < c.left + 1 || c.left + GetColWidth(c.col) > bounds.right)
            continue; // cut off by the edge: no line of its own
        dc->FillSolidRect(c.right - 1, bounds.top, 1, bottom - bounds.top,
                          c.col == 0 ? shadow : kGridLine);
    }

    dc->SetTextColor(oldColor);
    dc->SetBkMode(oldMode);
    dc->SelectObject(oldFont);
}

void CGXGridView::OnDraw(CDC* dc) {
    if (!dc)
        return;
    CRect client;
    GetClientRect(&client);
    dc->FillSolidRect(&client, GetSysColor(COLOR_WINDOW));
    std::vector<int> cols;
    int x = HeaderColWidth();
    for (int col = m_nLeftCol; col <= GetColCount() && x < client.right; ++col) {
        int width = GetColWidth(col);
        if (width == 0)
            continue;
        cols.push_back(col);
        x += width;
    }
    DrawCells(dc, client, m_nTopRow, GetRowCount(), cols);
}
