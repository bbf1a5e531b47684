// Line and character insertion and deletion, and erasure.
#include "ScreenBuffer.h"

#include <algorithm>

void ScreenBuffer::InsertLine(int n) {
    Unselect();
    int row = m_cursor.m_row;
    int count = m_bottomMargin - row + 1;
    if (count > 0 && row >= 0) {
        int k = std::clamp(n, 0, count);
        ShiftRowsDown(row, m_bottomMargin, k);
        for (int i = 0; i < k; ++i)
            BlankVisibleRow(row + i);
    }
    m_cursor.m_col = 0;
    if (m_pDC)
        Refresh(m_pDC);
}

void ScreenBuffer::DeleteLine(int n) {
    Unselect();
    int row = m_cursor.m_row;
    int count = m_bottomMargin - row + 1;
    if (count > 0 && row >= 0) {
        int k = std::clamp(n, 0, count);
        ShiftRowsUp(row, m_bottomMargin, k);
        for (int i = 0; i < k; ++i)
            BlankVisibleRow(m_bottomMargin - k + 1 + i);
    }
    m_cursor.m_col = 0;
    if (m_pDC)
        Refresh(m_pDC);
}

void ScreenBuffer::DeleteCharacter(int n) {
    Unselect();
    ShiftCellsLeft(m_cursor.m_row, m_cursor.m_col, n);
}

void ScreenBuffer::EraseChars(CursorPos from, CursorPos to) {
    if (from.m_row > to.m_row)
        return;
    int visRows = VisRows();
    int visColumns = VisColumns();
    auto firstColumn = [&](int row) { return row == from.m_row ? from.m_col : 0; };
    auto lastColumn = [&](int row) { return row == to.m_row ? to.m_col : visColumns - 1; };

    // Rows outside the visible screen hold nothing to erase.
    int firstRow = std::max(from.m_row, 0);
    int lastRow = std::min(to.m_row, visRows - 1);
    for (int row = firstRow; row <= lastRow; ++row)
        EraseSpan(row, firstColumn(row), lastColumn(row));

    // The cursor ends on the last row walked, at that row's first column.
    m_cursor.m_row = std::clamp(to.m_row, 0, visRows - 1);
    m_cursor.m_col = std::clamp(firstColumn(to.m_row), 0, visColumns - 1);
}

void ScreenBuffer::EraseCharacter(int n) {
    long long last = static_cast<long long>(m_cursor.m_col) + n - 1;
    int lastColumn =
        last < VisColumns() ? static_cast<int>(std::max<long long>(last, -1)) : VisColumns() - 1;
    EraseChars(m_cursor, CursorPos(m_cursor.m_row, lastColumn));
}

void ScreenBuffer::EraseInLine(int mode) {
    SaveCursor();
    ResetVideo();
    int row = m_cursor.m_row;
    if (mode == 1)
        EraseChars(CursorPos(row, 0), m_cursor);
    else if (mode == 2)
        EraseChars(CursorPos(row, 0), CursorPos(row, VisColumns() - 1));
    else
        EraseChars(m_cursor, CursorPos(row, VisColumns() - 1));
    RestoreCursor();
}

void ScreenBuffer::EraseInDisplay(int mode, bool withinRegion) {
    SaveCursor();
    ResetVideo();
    int first = 0;
    int last = VisRows() - 1;
    if (withinRegion) {
        if (m_cursor.m_row < m_topMargin) {
            first = 0;
            last = m_topMargin;
        } else if (m_cursor.m_row > m_bottomMargin) {
            first = m_bottomMargin;
            last = VisRows() - 1;
        } else {
            first = m_topMargin;
            last = m_bottomMargin;
        }
    }
    if (mode == 1)
        EraseChars(CursorPos(first, 0), m_cursor);
    else if (mode == 2)
        EraseChars(CursorPos(first, 0), CursorPos(last, VisColumns() - 1));
    else
        EraseChars(m_cursor, CursorPos(last, VisColumns() - 1));
    RestoreCursor();
}

void ScreenBuffer::EraseInField(int) {}

void ScreenBuffer::EraseInArea(int) {}
