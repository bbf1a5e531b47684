// Cursor movement, the scrolling region, reverse index, the saved cursor and tab
// stops. Counts below 0 move nothing: each relative move checks only the limit
// on its own side, so a negative count would otherwise carry the cursor past the
// opposite one.
#include "ScreenBuffer.h"

#include <algorithm>

namespace {

int Count(int n) {
    return n > 0 ? n : 0;
}

} // namespace

void ScreenBuffer::SetRow(long long value, int min, int max) {
    m_cursor.m_row = static_cast<int>(value < min ? min : value > max ? max : value);
}

void ScreenBuffer::SetCol(long long value, int min, int max) {
    m_cursor.m_col = static_cast<int>(value < min ? min : value > max ? max : value);
}

void ScreenBuffer::CursorUp(int n) {
    int limit = m_cursor.m_row < m_topMargin ? 0 : m_topMargin;
    long long row = static_cast<long long>(m_cursor.m_row) - Count(n);
    m_cursor.m_row = static_cast<int>(std::max<long long>(row, limit));
}

void ScreenBuffer::CursorDown(int n) {
    int limit = m_cursor.m_row > m_bottomMargin ? NumRows() - 1 : m_bottomMargin;
    long long row = static_cast<long long>(m_cursor.m_row) + Count(n);
    m_cursor.m_row = static_cast<int>(std::min<long long>(row, limit));
}

void ScreenBuffer::CursorForward(int n) {
    long long col = static_cast<long long>(m_cursor.m_col) + Count(n);
    m_cursor.m_col = static_cast<int>(std::min<long long>(col, NumColumns() - 1));
}

void ScreenBuffer::CursorBackward(int n) {
    long long col = static_cast<long long>(m_cursor.m_col) - Count(n);
    m_cursor.m_col = static_cast<int>(std::max<long long>(col, 0));
}

void ScreenBuffer::CursorPosition(int row, int col) {
    SetCol(static_cast<long long>(col) - 1, 0, NumColumns() - 1);
    if (m_originMode)
        SetRow(static_cast<long long>(row) - 1 + m_topMargin, 0, m_bottomMargin);
    else
        SetRow(static_cast<long long>(row) - 1, 0, NumRows() - 1);
}

void ScreenBuffer::CursorPositionRel(int rowDelta, int colDelta) {
    // The zero-based position plus the deltas, taken as one-based numbers.
    auto toInt = [](long long value) {
        return static_cast<int>(std::clamp<long long>(value, -(1LL << 30), 1LL << 30));
    };
    CursorPosition(toInt(static_cast<long long>(m_cursor.m_row) + rowDelta),
                   toInt(static_cast<long long>(m_cursor.m_col) + colDelta));
}

void ScreenBuffer::CursorNextLine(int n) {
    CursorDown(n);
    m_cursor.m_col = 0;
}

void ScreenBuffer::CursorPreviousLine(int n) {
    CursorUp(n);
    m_cursor.m_col = 0;
}

void ScreenBuffer::HorizontalPositionAbs(int n) {
    SetCol(static_cast<long long>(n) - 1, 0, NumColumns() - 1);
}

void ScreenBuffer::HorizontalPositionRel(int n) {
    SetCol(static_cast<long long>(m_cursor.m_col) + n, 0, NumColumns() - 1);
}

void ScreenBuffer::VerticalPositionAbs(int n) {
    SetRow(static_cast<long long>(n) - 1, 0, NumRows() - 1);
}

void ScreenBuffer::VerticalPositionRel(int n) {
    SetRow(static_cast<long long>(m_cursor.m_row) + n, 0, NumRows() - 1);
}

void ScreenBuffer::ReverseIndex() {
    if (m_cursor.m_row == m_topMargin)
        ScrollLine(ScrollDown);
    else if (m_cursor.m_row > 0)
        --m_cursor.m_row;
}

void ScreenBuffer::NextLine() {
    Index();
    m_cursor.m_col = 0;
}

void ScreenBuffer::CarriageReturn() {
    m_cursor.m_col = 0;
}

void ScreenBuffer::CursorHomeDown() {
    m_cursor = CursorPos(NumRows() - 1, 0);
}

void ScreenBuffer::SaveCursor() {
    m_saved.cursor = m_cursor;
    m_saved.videoMode = m_videoMode;
    m_saved.autoWrapMode = m_autoWrapMode;
    m_saved.originMode = m_originMode;
    m_saved.shift = m_shift;
    std::copy_n(m_charSets, 4, m_saved.charSets);
}

void ScreenBuffer::RestoreCursor() {
    // Restored as saved: the saved position lies inside the array, which never shrinks.
    m_cursor = m_saved.cursor;
    m_videoMode = m_saved.videoMode;
    m_autoWrapMode = m_saved.autoWrapMode;
    m_originMode = m_saved.originMode;
    m_shift = m_saved.shift;
    std::copy_n(m_saved.charSets, 4, m_charSets);
    UpdateVideoMode();
}

void ScreenBuffer::SetScrollingRegion(int top, int bottom) {
    int visRows = VisRows();
    // 0 asks for the default; negative values are taken the same way.
    if (top <= 0)
        top = 1;
    if (top >= visRows)
        top = visRows;
    if (bottom <= 0 || bottom >= visRows)
        bottom = visRows;
    if (top >= bottom) {
        m_topMargin = 0;
        m_bottomMargin = visRows - 1;
    } else {
        m_topMargin = top - 1;
        m_bottomMargin = bottom - 1;
    }
    CursorPosition(1, 1);
}

void ScreenBuffer::DefaultTabStops() {
    int visColumns = VisColumns();
    for (int col = 0; col < visColumns; ++col)
        m_tabStops[col] = col % 8 == 0;
}

void ScreenBuffer::HorizontalTabSet() {
    if (m_cursor.m_col >= 0 && m_cursor.m_col < kMaxColumns)
        m_tabStops[m_cursor.m_col] = true;
}

void ScreenBuffer::TabulationClear(int mode) {
    if (mode == 0) {
        if (m_cursor.m_col >= 0 && m_cursor.m_col < kMaxColumns)
            m_tabStops[m_cursor.m_col] = false;
    } else if (mode == 3) {
        std::fill_n(m_tabStops, VisColumns(), false);
    }
}

void ScreenBuffer::TabToNextTabStop() {
    int visColumns = VisColumns();
    int col = m_cursor.m_col + 1;
    while (col < visColumns) {
        if (m_tabStops[col] || col == visColumns - 1)
            break;
        ++col;
    }
    // The pending-wrap column is as far as a step goes.
    m_cursor.m_col = std::min(col, visColumns);
}

void ScreenBuffer::TabToPrevTabStop() {
    int col = std::min(m_cursor.m_col, kMaxColumns) - 1;
    while (col >= 0) {
        if (m_tabStops[col] || col == 0)
            break;
        --col;
    }
    m_cursor.m_col = std::max(col, 0);
}

void ScreenBuffer::CursorHorizontalTab(int n) {
    AutoWrapCursor();
    int lastColumn = VisColumns() - 1;
    for (int i = 0; i < n; ++i) {
        if (n > 1 && m_cursor.m_col == lastColumn)
            break;
        int before = m_cursor.m_col;
        TabToNextTabStop();
        if (m_cursor.m_col == before)
            break;
    }
}

void ScreenBuffer::CursorBackwardTab(int n) {
    for (int i = 0; i < n && m_cursor.m_col > 0; ++i)
        TabToPrevTabStop();
}
