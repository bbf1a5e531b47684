// The screen of a character-cell terminal: a fixed-stride array of cells, a
// cursor, scrolling margins, tab stops, modes, video attributes, character set
// designations and a stream selection. The host's parser calls one operation per
// printable character or control function; changed cells are drawn at once into
// an attached device context.
#pragma once

#include "Win/screen/CursorPos.h"
#include "Win/screen/EmulatorLayout.h"
#include "Win/screen/FontStyle.h"
#include "Win/screen/ScreenChar.h"

#include <afxwin.h>

#include <vector>

class CWnd;
class ScreenBufferProbe;

class ScreenBuffer {
public:
    enum ScrollDirection { ScrollUp = 0, ScrollDown = 1 };

    explicit ScreenBuffer(EmulatorLayout& layout);
    virtual ~ScreenBuffer();

    // --- Storage and character output ---
    void SetParent(CWnd* parent);
    // A null DC stops immediate drawing.
    void SetDC(CDC* dc);
    // The rows and columns of cells the window shows; reserve asks for spare rows
    // when the array must grow.
    void SetWindowSize(int rows, int columns, bool reserve);
    // Writes ch at the cursor and moves the cursor on. The common case (inside
    // the visible rows, no pending wrap, no insert mode, no DC, nothing
    // selected) is inline: it is the per-character path of every stream.
    void PutChar(WCHAR ch) {
        const int row = m_cursor.m_row;
        const int col = m_cursor.m_col;
        if (col < VisColumns() && WritesPlainly(row)) {
            Cell(row, col).Set(ch, m_charSets[m_shift], m_style, m_selStyle);
            m_cursor.m_col = col + 1;
            return;
        }
        PutCharWrapping(ch);
    }
    // PutChar for each of count characters (bytes taken as code points), as
    // many as the common case takes in one go: up to the row's last visible
    // column, none where the general case applies. Returns how many it wrote;
    // the caller puts the next one with PutChar.
    std::size_t PutChars(const unsigned char* text, std::size_t count) {
        const int row = m_cursor.m_row;
        const int col = m_cursor.m_col;
        const int room = VisColumns() - col;
        if (room <= 0 || !WritesPlainly(row))
            return 0;
        const std::size_t n =
            count < static_cast<std::size_t>(room) ? count : static_cast<std::size_t>(room);
        ScreenChar* cell = Row(row) + col;
        const int charSet = m_charSets[m_shift];
        FontStyle* const style = m_style;
        FontStyle* const selStyle = m_selStyle;
        for (std::size_t i = 0; i < n; ++i)
            cell[i].Set(text[i], charSet, style, selStyle);
        m_cursor.m_col = col + static_cast<int>(n);
        return n;
    }
    void AutoWrapCursor();
    void Index();
    void ScrollLine(ScrollDirection direction);
    void InsertCharacter(int n);
    void Unselect();
    bool ActiveSelection() const {
        return m_selStart.m_row >= 0 && m_selStart.m_col >= 0 && m_selEnd.m_row >= 0 &&
               m_selEnd.m_col >= 0;
    }

    int NumRows() const { return m_numRows; }
    int NumColumns() const { return m_numColumns; }
    int VisRows() const { return m_windowRows > m_numRows ? m_windowRows : m_numRows; }
    int VisColumns() const {
        if (m_numColumns > m_windowColumns || !m_autoWrapMode)
            return m_numColumns;
        return m_windowColumns < kMaxColumns ? m_windowColumns : kMaxColumns;
    }
    // The cursor, one-based.
    int GetRow() const { return m_cursor.m_row + 1; }
    int GetCol() const { return m_cursor.m_col + 1; }

    void SetInsertMode(bool on) { m_insertMode = on; }
    void SetNewlineMode(bool on) { m_newlineMode = on; }
    void SetCursorKeyMode(bool on) { m_cursorKeyMode = on; }
    void SetScreenMode(bool on) { m_screenMode = on; }
    void SetOriginMode(bool on) { m_originMode = on; }
    void SetAutoWrapMode(bool on) { m_autoWrapMode = on; }
    bool GetCursorKeyMode() const { return m_cursorKeyMode; }

    // --- Cursor movement, margins, tabs and scrolling ---
    void CursorUp(int n);
    void CursorDown(int n);
    void CursorForward(int n);
    void CursorBackward(int n);
    void CursorPosition(int row, int col);
    void CursorPositionRel(int rowDelta, int colDelta);
    void CursorNextLine(int n);
    void CursorPreviousLine(int n);
    void HorizontalPositionAbs(int n);
    void HorizontalPositionRel(int n);
    void VerticalPositionAbs(int n);
    void VerticalPositionRel(int n);
    void ReverseIndex();
    void NextLine();
    void CarriageReturn();
    void CursorHomeDown();
    void SaveCursor();
    void RestoreCursor();
    void SetScrollingRegion(int top, int bottom);
    void HorizontalTabSet();
    void TabulationClear(int mode);
    void CursorHorizontalTab(int n);
    void CursorBackwardTab(int n);

    // --- Line and character editing and erasure ---
    void InsertLine(int n);
    void DeleteLine(int n);
    void DeleteCharacter(int n);
    void EraseCharacter(int n);
    void EraseInDisplay(int mode, bool withinRegion);
    void EraseInLine(int mode);
    void EraseInField(int mode);
    void EraseInArea(int mode);

    // --- Video attributes, character sets and resets ---
    void SetVideoBold();
    void ResetVideoBold();
    void SetVideoSubdued();
    void ResetVideoSubdued();
    void SetVideoUnderlined();
    void ResetVideoUnderlined();
    void SetVideoBlinking();
    void ResetVideoBlinking();
    void SetVideoReverse();
    void ResetVideoReverse();
    void ResetVideo();
    void SetCharSetUS_ASCII(int g);
    void SetCharSetUK_National(int g);
    void SetCharSetSpecialGraphics(int g);
    void SetCharSetExtendedGraphics(int g);
    void ShiftIn();
    void ShiftOut();
    void SetColumnMode(bool wide);
    void SoftTerminalReset();
    void ResetToInitialState();

    // --- Selection and text extraction (one-based positions) ---
    // Marks the run from a to b (either order), wrapping from the last visible
    // column of a row to column 0 of the next; only cells whose mark changes are
    // touched and drawn.
    void Select(const CursorPos& a, const CursorPos& b);
    // The text of the marked run, a row break (CR LF, trailing blanks and tabs
    // dropped) wherever the run goes on to the next row. The run keeps the width
    // it was marked at: after the visible width narrows, the text still holds
    // the cells now hidden beyond the last visible column.
    CString SelectedText() const;

    // --- Painting and printing ---
    void Refresh(CDC* dc);
    void PrintBuffer(CDC* dc, CSize charSize);
    CSize ScreenCharSize() const;
    COLORREF GetBkColor() const;

private:
    friend class ScreenBufferProbe; // read-only inspection for tests and fuzzing

    static constexpr int kMaxColumns = 132;

    // The state SaveCursor keeps and RestoreCursor brings back.
    struct SavedState {
        CursorPos cursor{0, 0};
        int videoMode = 0;
        bool autoWrapMode = false;
        bool originMode = false;
        int shift = 0;
        int charSets[4] = {0, 0, 0, 0};
    };

    ScreenBuffer(const ScreenBuffer&) = delete;
    ScreenBuffer& operator=(const ScreenBuffer&) = delete;

    void AllocateBuffer(int newRows, int oldRows);
    void Set(int row, int col, WCHAR ch);
    void Set(int row, int col, WCHAR ch, int charSet, int mode);
    void Clear();
    bool IsValid(int row, int col) const {
        return row >= 0 && row < VisRows() && col >= 0 && col < VisColumns();
    }
    int MaxRows() const { return m_maxRows; }
    int MaxColumns() const { return kMaxColumns; }
    void UpdateVideoMode();

    void SetRow(long long value, int min, int max);
    void SetCol(long long value, int min, int max);
    void DefaultTabStops();
    void TabToNextTabStop();
    void TabToPrevTabStop();

    void EraseChars(CursorPos from, CursorPos to);

    void Draw(CDC* dc, int row, int col);
    void RedrawScrollingRegion();
    // PutChar's general case: ends a selection, wraps, inserts and draws.
    void PutCharWrapping(WCHAR ch);
    // Whether a character written in a visible column of row only stores its
    // cell: the row is visible, and there is no insert mode, DC or selection.
    bool WritesPlainly(int row) const {
        return row < VisRows() && !m_insertMode && !m_pDC && !ActiveSelection();
    }

    // Row storage. Rows are addressed through m_rows, a table of pointers into
    // m_buffer that scrolling and line insertion rotate instead of moving cells.
    ScreenChar* Row(int row) { return m_rows[static_cast<std::size_t>(row)]; }
    const ScreenChar* Row(int row) const { return m_rows[static_cast<std::size_t>(row)]; }
    ScreenChar& Cell(int row, int col) { return Row(row)[col]; }
    const ScreenChar& Cell(int row, int col) const { return Row(row)[col]; }
    // Rows top..bottom move down (or up) by k as one block move would move them;
    // the k rows left behind keep their cells and are blanked by the caller.
    void ShiftRowsDown(int top, int bottom, int k);
    void ShiftRowsUp(int top, int bottom, int k);
    // Columns 0..VisColumns()-1 of a row become plain blanks (set 0, mode 0).
    void BlankVisibleRow(int row);
    // A row of 132 blanks in the given set and styles, rebuilt when they change.
    const ScreenChar* BlankTemplate(int charSet, FontStyle* style, FontStyle* selStyle);
    // Stores blanks in columns first..last of a visible row in the current style
    // and active set, keeping selection flags.
    void EraseSpan(int row, int first, int last);
    void ShiftCellsRight(int row, int col, int n);
    void ShiftCellsLeft(int row, int col, int n);
    // One step of a walk over rows of the given width: right, or to column 0 of
    // the next row.
    static CursorPos NextPos(const CursorPos& pos, int columns);
    void ChangeSelection(const CursorPos& pos, bool selected);

    EmulatorLayout& m_layout;
    CWnd* m_pParent = nullptr;
    CDC* m_pDC = nullptr;
    ScreenChar* m_buffer = nullptr;
    std::vector<ScreenChar*> m_rows;
    CursorPos m_cursor{0, 0};
    int m_numRows = 24;
    int m_numColumns = 80;
    int m_windowRows = 24;
    int m_windowColumns = 80;
    int m_maxRows = 0;
    bool m_tabStops[kMaxColumns] = {};
    int m_videoMode = 0;
    FontStyle* m_style = nullptr;
    FontStyle* m_selStyle = nullptr;
    int m_shift = 0;
    int m_charSets[4] = {0, 0, 0, 0};
    bool m_insertMode = false;
    bool m_newlineMode = false;
    bool m_cursorKeyMode = false;
    bool m_columnMode = false;
    bool m_screenMode = false;
    bool m_originMode = false;
    bool m_autoWrapMode = false;
    SavedState m_saved;
    int m_topMargin = 0;
    int m_bottomMargin = 23;
    CursorPos m_selStart{-1, -1};
    CursorPos m_selEnd{-1, -1};
    // The visible width when the selection was marked: its walk keeps this width
    // whatever VisColumns() does later, so ending it clears every marked cell.
    int m_selColumns = 0;

    ScreenChar m_blank[kMaxColumns];
    int m_blankCharSet = -1;
    FontStyle* m_blankStyle = nullptr;
    FontStyle* m_blankSelStyle = nullptr;
};
