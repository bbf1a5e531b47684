// The stream selection: selecting with incremental redraw, ending it, and
// reading it out as text.
#include "ScreenBuffer.h"

#include <algorithm>
#include <string>

CursorPos ScreenBuffer::NextPos(const CursorPos& pos, int columns) {
    if (pos.m_col + 1 >= columns)
        return CursorPos(pos.m_row + 1, 0);
    return CursorPos(pos.m_row, pos.m_col + 1);
}

void ScreenBuffer::ChangeSelection(const CursorPos& pos, bool selected) {
    ScreenChar& cell = Cell(pos.m_row, pos.m_col);
    if (selected)
        cell.Select();
    else
        cell.Unselect();
    if (m_pDC)
        Draw(m_pDC, pos.m_row, pos.m_col);
}

void ScreenBuffer::Unselect() {
    if (!ActiveSelection())
        return;
    // The walk uses the width the run was marked at, so cells that a narrower
    // view now hides are cleared too (and not drawn, being outside it).
    for (CursorPos pos = m_selStart; pos <= m_selEnd; pos = NextPos(pos, m_selColumns))
        ChangeSelection(pos, false);
    m_selStart = CursorPos(-1, -1);
    m_selEnd = CursorPos(-1, -1);
    m_selColumns = 0;
}

void ScreenBuffer::Select(const CursorPos& a, const CursorPos& b) {
    // Positions outside the visible screen are taken as its nearest edge.
    auto toCell = [this](const CursorPos& pos) {
        return CursorPos(std::clamp(pos.m_row, 1, VisRows()) - 1,
                         std::clamp(pos.m_col, 1, VisColumns()) - 1);
    };
    CursorPos first = toCell(a <= b ? a : b);
    CursorPos last = toCell(a <= b ? b : a);
    if (last < first)
        std::swap(first, last);

    bool hadSelection = ActiveSelection();
    CursorPos oldFirst = m_selStart;
    CursorPos oldLast = m_selEnd;
    // The old run was marked at its own width, which the visible width may no
    // longer match: the walk covers the wider of the two, and a position belongs
    // to a run only inside that run's width.
    int newColumns = VisColumns();
    int oldColumns = hadSelection ? m_selColumns : newColumns;
    int walkColumns = std::max(oldColumns, newColumns);
    CursorPos from = first;
    CursorPos to = last;
    // When the old and new runs are disjoint the cells between them are skipped.
    bool disjoint = false;
    CursorPos earlierEnd;
    CursorPos laterStart;
    if (hadSelection) {
        from = std::min(oldFirst, first);
        to = std::max(oldLast, last);
        if (oldLast < first) {
            disjoint = true;
            earlierEnd = oldLast;
            laterStart = first;
        } else if (last < oldFirst) {
            disjoint = true;
            earlierEnd = last;
            laterStart = oldFirst;
        }
    }

    for (CursorPos pos = from; pos <= to; pos = NextPos(pos, walkColumns)) {
        if (disjoint && pos > earlierEnd && pos < laterStart)
            pos = laterStart;
        bool inOld = hadSelection && pos.m_col < oldColumns && oldFirst <= pos && pos <= oldLast;
        bool inNew = pos.m_col < newColumns && first <= pos && pos <= last;
        if (inOld != inNew)
            ChangeSelection(pos, inNew);
    }
    m_selStart = first;
    m_selEnd = last;
    m_selColumns = newColumns;
}

CString ScreenBuffer::SelectedText() const {
    if (!ActiveSelection())
        return CString();
    std::u16string text;
    int lastColumn = m_selColumns - 1;
    for (CursorPos pos = m_selStart; pos <= m_selEnd; pos = NextPos(pos, m_selColumns)) {
        text.push_back(Cell(pos.m_row, pos.m_col).GetValue());
        if (pos.m_col >= lastColumn) {
            std::size_t end = text.find_last_not_of(u" \t");
            text.erase(end == std::u16string::npos ? 0 : end + 1);
            text.append(u"\r\n");
        }
    }
    return CString(std::u16string_view(text));
}
