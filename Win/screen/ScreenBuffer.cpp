// Construction, the cell array and its sizes, and character output.
#include "ScreenBuffer.h"

#include <algorithm>
#include <cstring>

namespace {

// A taller window than this is treated as this tall: it bounds the cell array
// however large a size the host reports.
constexpr int kMaxWindowRows = 512;
// Spare rows allocated beyond a requested height when the host asks for them.
constexpr int kReserveRows = 4;

} // namespace

ScreenBuffer::ScreenBuffer(EmulatorLayout& layout) : m_layout(layout) {
    AllocateBuffer(24, 0);
    DefaultTabStops();
    UpdateVideoMode();
    Clear();
}

ScreenBuffer::~ScreenBuffer() {
    delete[] m_buffer;
}

void ScreenBuffer::SetParent(CWnd* parent) {
    m_pParent = parent;
}

void ScreenBuffer::SetDC(CDC* dc) {
    m_pDC = dc;
}

void ScreenBuffer::AllocateBuffer(int newRows, int oldRows) {
    // Allocate first: if it throws, the old array and its row count stay.
    auto* cells = new ScreenChar[static_cast<std::size_t>(newRows) * kMaxColumns];
    std::vector<ScreenChar*> rows(static_cast<std::size_t>(newRows));
    for (int row = 0; row < newRows; ++row)
        rows[static_cast<std::size_t>(row)] = cells + static_cast<std::size_t>(row) * kMaxColumns;

    int kept = m_buffer ? std::min(oldRows, std::min(newRows, m_maxRows)) : 0;
    for (int row = 0; row < kept; ++row)
        std::copy_n(Row(row), kMaxColumns, rows[static_cast<std::size_t>(row)]);
    ScreenChar blank;
    blank.Set(u' ', 0, m_style, m_selStyle);
    for (int row = kept; row < newRows; ++row)
        std::fill_n(rows[static_cast<std::size_t>(row)], kMaxColumns, blank);

    delete[] m_buffer;
    m_buffer = cells;
    m_rows.swap(rows);
    m_maxRows = newRows;
}

void ScreenBuffer::SetWindowSize(int rows, int columns, bool reserve) {
    rows = std::clamp(rows, 0, kMaxWindowRows);
    columns = std::max(columns, 0);

    if (rows > m_maxRows) {
        AllocateBuffer(reserve ? rows + kReserveRows : rows, m_maxRows);
    } else if (m_windowRows > NumRows() && rows < m_windowRows &&
               m_cursor.m_row == m_windowRows - 1) {
        // Keep the text under the cursor in view as the window shrinks.
        for (int i = m_windowRows - rows; i > 0 && m_cursor.m_row > 0; --i) {
            --m_cursor.m_row;
            ScrollLine(ScrollUp);
        }
    }

    if (m_bottomMargin == VisRows() - 1)
        m_bottomMargin = rows > NumRows() ? rows - 1 : NumRows() - 1;
    m_windowRows = rows;
    m_windowColumns = columns;

    // A bottom margin set by the host can fall outside a smaller window, or above
    // its top margin once it follows the window: keep the region inside the
    // visible rows and ordered, falling back to the whole screen.
    if (m_bottomMargin > VisRows() - 1)
        m_bottomMargin = VisRows() - 1;
    if (m_topMargin > m_bottomMargin) {
        m_topMargin = 0;
        m_bottomMargin = VisRows() - 1;
    }
}

void ScreenBuffer::Set(int row, int col, WCHAR ch) {
    if (!IsValid(row, col))
        return;
    Cell(row, col).Set(ch, m_charSets[m_shift], m_style, m_selStyle);
    if (m_pDC)
        Draw(m_pDC, row, col);
}

void ScreenBuffer::Set(int row, int col, WCHAR ch, int charSet, int mode) {
    FontStyle* style = m_layout.GetStyle(mode);
    FontStyle* selStyle = m_layout.GetStyle((mode & 0x1015) | FontStyle::Selected);
    if (!IsValid(row, col))
        return;
    Cell(row, col).Set(ch, charSet, style, selStyle);
    if (m_pDC)
        Draw(m_pDC, row, col);
}

void ScreenBuffer::PutCharWrapping(WCHAR ch) {
    Unselect();
    AutoWrapCursor();
    if (m_insertMode)
        InsertCharacter(1);
    const int col = m_cursor.m_col++;
    Set(m_cursor.m_row, col, ch);
}

void ScreenBuffer::AutoWrapCursor() {
    int visColumns = VisColumns();
    if (m_autoWrapMode) {
        while (m_cursor.m_col >= visColumns) {
            m_cursor.m_col -= visColumns;
            Index();
        }
    } else if (m_cursor.m_col >= visColumns) {
        m_cursor.m_col = visColumns - 1;
    }
}

void ScreenBuffer::Clear() {
    m_cursor = CursorPos(0, 0);
    m_shift = 0;
    m_style = m_layout.GetStyle(0);
    m_selStyle = m_layout.GetStyle(FontStyle::Selected);
    Unselect();
    m_topMargin = 0;
    m_bottomMargin = VisRows() - 1;
    const ScreenChar* blank = BlankTemplate(0, m_style, m_selStyle);
    for (int row = 0; row < m_maxRows; ++row)
        std::copy_n(blank, kMaxColumns, Row(row));
    if (m_pDC)
        Refresh(m_pDC);
}

void ScreenBuffer::Index() {
    if (m_cursor.m_row == m_bottomMargin)
        ScrollLine(ScrollUp);
    else if (m_cursor.m_row < VisRows() - 1)
        ++m_cursor.m_row;
}

void ScreenBuffer::ScrollLine(ScrollDirection direction) {
    Unselect();
    if (direction == ScrollUp) {
        ShiftRowsUp(m_topMargin, m_bottomMargin, 1);
        BlankVisibleRow(m_bottomMargin);
    } else {
        ShiftRowsDown(m_topMargin, m_bottomMargin, 1);
        BlankVisibleRow(m_topMargin);
    }
    RedrawScrollingRegion();
}

void ScreenBuffer::InsertCharacter(int n) {
    Unselect();
    ShiftCellsRight(m_cursor.m_row, m_cursor.m_col, n);
}

void ScreenBuffer::UpdateVideoMode() {
    m_style = m_layout.GetStyle(m_videoMode);
    m_selStyle = m_layout.GetSelStyle(m_videoMode);
}
