// Row and cell movement: the row table that scrolling and line insertion rotate,
// blank templates, and the shifting of cells within a row.
#include "ScreenBuffer.h"

#include <algorithm>

void ScreenBuffer::ShiftRowsDown(int top, int bottom, int k) {
    int count = bottom - top + 1;
    if (k <= 0 || k > count || top < 0 || bottom >= m_maxRows)
        return;
    int kept = count - k;
    auto first = m_rows.begin() + top;
    std::rotate(first, first + kept, m_rows.begin() + bottom + 1);

    // A block move of whole rows leaves the k vacated rows holding their own cells.
    // Their visible columns are blanked by the caller; the hidden columns beyond
    // VisColumns() must come back as they were, from wherever the rotation put
    // those rows. Descending order reads every source before it is overwritten.
    int visColumns = VisColumns();
    if (visColumns >= kMaxColumns)
        return;
    for (int i = k - 1; i >= 0; --i) {
        int source = i >= kept ? top + i - kept : top + i + k;
        if (source != top + i)
            std::copy(Row(source) + visColumns, Row(source) + kMaxColumns,
                      Row(top + i) + visColumns);
    }
}

void ScreenBuffer::ShiftRowsUp(int top, int bottom, int k) {
    int count = bottom - top + 1;
    if (k <= 0 || k > count || top < 0 || bottom >= m_maxRows)
        return;
    int kept = count - k;
    auto first = m_rows.begin() + top;
    std::rotate(first, first + k, m_rows.begin() + bottom + 1);

    // As above, for the k rows vacated at the bottom; ascending order here.
    int visColumns = VisColumns();
    if (visColumns >= kMaxColumns)
        return;
    for (int i = 0; i < k; ++i) {
        int target = bottom - k + 1 + i;
        int source = target - k >= top ? target - k : target + kept;
        if (source != target)
            std::copy(Row(source) + visColumns, Row(source) + kMaxColumns,
                      Row(target) + visColumns);
    }
}

const ScreenChar* ScreenBuffer::BlankTemplate(int charSet, FontStyle* style, FontStyle* selStyle) {
    if (charSet != m_blankCharSet || style != m_blankStyle || selStyle != m_blankSelStyle) {
        ScreenChar blank;
        blank.Set(u' ', charSet, style, selStyle);
        std::fill_n(m_blank, kMaxColumns, blank);
        m_blankCharSet = charSet;
        m_blankStyle = style;
        m_blankSelStyle = selStyle;
    }
    return m_blank;
}

void ScreenBuffer::BlankVisibleRow(int row) {
    if (row < 0 || row >= VisRows())
        return;
    int visColumns = VisColumns();
    if (m_pDC || ActiveSelection()) {
        for (int col = 0; col < visColumns; ++col)
            Set(row, col, u' ', 0, 0);
        return;
    }
    const ScreenChar* blank =
        BlankTemplate(0, m_layout.GetStyle(0), m_layout.GetStyle(FontStyle::Selected));
    std::copy_n(blank, visColumns, Row(row));
}

void ScreenBuffer::EraseSpan(int row, int first, int last) {
    if (row < 0 || row >= VisRows())
        return;
    first = std::max(first, 0);
    last = std::min(last, VisColumns() - 1);
    if (first > last)
        return;
    if (m_pDC || ActiveSelection()) {
        // Erased cells keep their selection flag and are drawn one by one.
        for (int col = first; col <= last; ++col)
            Set(row, col, u' ');
        return;
    }
    const ScreenChar* blank = BlankTemplate(m_charSets[m_shift], m_style, m_selStyle);
    std::copy(blank + first, blank + last + 1, Row(row) + first);
}

void ScreenBuffer::ShiftCellsRight(int row, int col, int n) {
    int visColumns = VisColumns();
    // Cells outside the visible rows are never written; repetitions beyond the
    // rest of the row would only shift blanks again.
    if (row < 0 || row >= VisRows() || col < 0 || col >= visColumns || n <= 0)
        return;
    n = std::min(n, visColumns - col);
    ScreenChar* cells = Row(row);
    if (!m_pDC) {
        std::copy_backward(cells + col, cells + visColumns - n, cells + visColumns);
        for (int i = 0; i < n; ++i)
            Set(row, col + i, u' ', 0, 0);
        return;
    }
    for (int repeat = 0; repeat < n; ++repeat) {
        for (int c = visColumns - 1; c > col; --c) {
            cells[c] = cells[c - 1];
            Draw(m_pDC, row, c);
        }
        Set(row, col, u' ', 0, 0);
    }
}

void ScreenBuffer::ShiftCellsLeft(int row, int col, int n) {
    int visColumns = VisColumns();
    if (row < 0 || row >= VisRows() || col < 0 || n <= 0)
        return;
    // A cursor at or beyond the last column shifts nothing, and each repetition
    // only blanks the last visible column again.
    n = std::min(n, std::max(visColumns - col, 1));
    ScreenChar* cells = Row(row);
    if (!m_pDC) {
        if (col < visColumns) {
            std::copy(cells + col + n, cells + visColumns, cells + col);
            for (int c = visColumns - n; c < visColumns; ++c)
                Set(row, c, u' ', 0, 0);
        } else {
            Set(row, visColumns - 1, u' ', 0, 0);
        }
        return;
    }
    for (int repeat = 0; repeat < n; ++repeat) {
        for (int c = col; c < visColumns - 1; ++c) {
            cells[c] = cells[c + 1];
            Draw(m_pDC, row, c);
        }
        Set(row, visColumns - 1, u' ', 0, 0);
    }
}
