// Read-only access to a screen's cells and state, for tests and the fuzz
// target, with dumps of rows as text, character sets, styles and selection.
#pragma once

#include "Win/screen/ScreenBuffer.h"

#include <string>

class ScreenBufferProbe {
public:
    explicit ScreenBufferProbe(const ScreenBuffer& screen) : m_screen(screen) {}

    const ScreenChar& Cell(int row, int col) const { return m_screen.Cell(row, col); }
    CursorPos Cursor() const { return m_screen.m_cursor; }
    int TopMargin() const { return m_screen.m_topMargin; }
    int BottomMargin() const { return m_screen.m_bottomMargin; }
    int MaxRows() const { return m_screen.MaxRows(); }
    int MaxColumns() const { return m_screen.MaxColumns(); }
    bool TabStop(int col) const { return m_screen.m_tabStops[col]; }
    int VideoMode() const { return m_screen.m_videoMode; }
    int Shift() const { return m_screen.m_shift; }
    int CharSet(int g) const { return m_screen.m_charSets[g]; }
    CursorPos SelStart() const { return m_screen.m_selStart; }
    CursorPos SelEnd() const { return m_screen.m_selEnd; }
    FontStyle* CurrentStyle() const { return m_screen.m_style; }
    FontStyle* CurrentSelStyle() const { return m_screen.m_selStyle; }
    bool AutoWrapMode() const { return m_screen.m_autoWrapMode; }
    bool OriginMode() const { return m_screen.m_originMode; }
    bool InsertMode() const { return m_screen.m_insertMode; }
    bool ColumnMode() const { return m_screen.m_columnMode; }
    CursorPos SavedCursor() const { return m_screen.m_saved.cursor; }

    // Columns first..last of a row as text (characters above 0x7E as '?').
    std::string Text(int row, int first = 0, int last = -1) const {
        if (last < 0)
            last = m_screen.VisColumns() - 1;
        std::string text;
        for (int col = first; col <= last; ++col) {
            char16_t ch = Cell(row, col).GetValue();
            text.push_back(ch >= 0x20 && ch < 0x7F ? static_cast<char>(ch) : '?');
        }
        return text;
    }
    // The visible text of a row without its trailing blanks.
    std::string Line(int row) const {
        std::string text = Text(row);
        return text.erase(text.find_last_not_of(' ') + 1);
    }
    // One digit per cell: its character set.
    std::string Sets(int row, int first = 0, int last = -1) const {
        std::string sets;
        for (int col = first; col <= (last < 0 ? m_screen.VisColumns() - 1 : last); ++col)
            sets.push_back(static_cast<char>('0' + Cell(row, col).GetCharSet()));
        return sets;
    }
    // One character per cell for the mode of its normal style: '.' for plain,
    // else a hex digit of the attribute bits; '-' for a cell without a style.
    std::string Modes(int row, int first = 0, int last = -1) const {
        std::string modes;
        for (int col = first; col <= (last < 0 ? m_screen.VisColumns() - 1 : last); ++col) {
            ScreenChar cell = Cell(row, col);
            cell.Unselect();
            const FontStyle* style = cell.GetStyle();
            int mode = style ? style->GetMode() & 0x1F : -1;
            modes.push_back(mode < 0    ? '-'
                            : mode == 0 ? '.'
                                        : "0123456789abcdefghijklmnopqrstuv"[mode]);
        }
        return modes;
    }
    // '#' for a selected cell, '.' otherwise.
    std::string Selected(int row, int first = 0, int last = -1) const {
        std::string marks;
        for (int col = first; col <= (last < 0 ? m_screen.VisColumns() - 1 : last); ++col)
            marks.push_back(Cell(row, col).IsSelected() ? '#' : '.');
        return marks;
    }

private:
    const ScreenBuffer& m_screen;
};
