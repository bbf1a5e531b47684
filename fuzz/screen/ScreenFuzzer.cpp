// Turns bytes into a sequence of ScreenBuffer calls with any integer arguments,
// window sizes and selections, and checks the screen's invariants after each.
#include "support/ScreenBufferProbe.h"

#include <Win/Win.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

class FuzzLayout : public EmulatorLayout {
public:
    FuzzLayout() {
        static const COLORREF colours[7] = {0xC0C0C0, 0,        0x808080, 0x00C000,
                                            0xC0C000, 0xFFFFFF, 0xA00000};
        ChangeLayout(colours, u"DejaVu Sans Mono", 14, false, false);
    }
    void OnLayoutChanged() override {}
    CSize GetCharSize() override { return CSize(7, 14); }
    int RowToY(int row) override { return row * 14; }
    int ColumnToX(int col) override { return col * 7; }
};

class Input {
public:
    Input(const uint8_t* data, size_t size) : m_data(data), m_size(size) {}
    bool Empty() const { return m_pos >= m_size; }
    uint8_t Byte() { return m_pos < m_size ? m_data[m_pos++] : 0; }
    // Mostly small values around the screen's sizes, sometimes any 32-bit value.
    int Int() {
        uint8_t kind = Byte();
        if (kind < 192)
            return static_cast<int>(kind % 150) - 10;
        uint32_t value = 0;
        for (int i = 0; i < 4; ++i)
            value = (value << 8) | Byte();
        int result;
        std::memcpy(&result, &value, sizeof result);
        return result;
    }
    bool Bool() { return Byte() & 1; }

private:
    const uint8_t* m_data;
    size_t m_size;
    size_t m_pos = 0;
};

[[noreturn]] void Fail(const char* what, int op) {
    std::fprintf(stderr, "invariant broken after operation %d: %s\n", op, what);
    std::abort();
}

void Check(const ScreenBuffer& screen, int op) {
    ScreenBufferProbe probe(screen);
    if (screen.VisRows() < screen.NumRows() || screen.VisRows() > probe.MaxRows())
        Fail("visible rows outside the allocation", op);
    if (screen.VisColumns() < 1 || screen.VisColumns() > probe.MaxColumns())
        Fail("visible columns outside the row", op);
    CursorPos cursor = probe.Cursor();
    if (cursor.m_row < 0 || cursor.m_row >= probe.MaxRows())
        Fail("cursor row outside the array", op);
    if (cursor.m_col < 0 || cursor.m_col > probe.MaxColumns())
        Fail("cursor column beyond the pending-wrap column", op);
    if (screen.GetRow() != cursor.m_row + 1 || screen.GetCol() != cursor.m_col + 1)
        Fail("one-based cursor disagrees", op);
    int top = probe.TopMargin();
    int bottom = probe.BottomMargin();
    if (top < 0 || top > bottom || bottom >= screen.VisRows())
        Fail("margins out of order or outside the visible rows", op);
    CursorPos start = probe.SelStart();
    CursorPos end = probe.SelEnd();
    if (screen.ActiveSelection()) {
        if (end < start || end.m_row >= probe.MaxRows() || start.m_col >= probe.MaxColumns() ||
            end.m_col >= probe.MaxColumns())
            Fail("selection outside the array", op);
    } else if (start != CursorPos(-1, -1) || end != CursorPos(-1, -1)) {
        Fail("half a selection", op);
    }
}

// Every stored cell, hidden columns and spare rows included, that carries a
// selection mark must lie in the selection's run; with no selection, none may.
void CheckMarks(const ScreenBuffer& screen, int op) {
    ScreenBufferProbe probe(screen);
    bool active = screen.ActiveSelection();
    CursorPos start = probe.SelStart();
    CursorPos end = probe.SelEnd();
    for (int row = 0; row < probe.MaxRows(); ++row)
        for (int col = 0; col < probe.MaxColumns(); ++col) {
            if (!probe.Cell(row, col).IsSelected())
                continue;
            if (!active)
                Fail("a cell still marked with no selection", op);
            CursorPos pos(row, col);
            if (pos < start || end < pos)
                Fail("a marked cell outside the selection", op);
        }
}

// One small memory DC for the whole run; drawing outside it is clipped.
struct RasterTarget {
    CDC dc;
    CBitmap bitmap;
    RasterTarget() {
        dc.CreateCompatibleDC(nullptr);
        bitmap.CreateCompatibleBitmap(&dc, 64, 48);
        dc.SelectObject(&bitmap);
    }
};

RasterTarget& Raster() {
    static RasterTarget* target = new RasterTarget(); // kept to the end of the run
    return *target;
}

void Apply(ScreenBuffer& screen, Input& in, int op) {
    switch (op) {
    case 0:
        screen.PutChar(static_cast<WCHAR>(0x20 + in.Byte() % 0x60));
        break;
    case 1: {
        int count = in.Byte();
        for (int i = 0; i < count; ++i)
            screen.PutChar(static_cast<WCHAR>(u'a' + i % 26));
        break;
    }
    case 2:
        screen.SetWindowSize(in.Int(), in.Int(), in.Bool());
        break;
    case 3:
        screen.AutoWrapCursor();
        break;
    case 4:
        screen.Index();
        break;
    case 5:
        screen.ScrollLine(in.Bool() ? ScreenBuffer::ScrollDown : ScreenBuffer::ScrollUp);
        break;
    case 6:
        screen.InsertCharacter(in.Int());
        break;
    case 7:
        screen.Unselect();
        break;
    case 8:
        screen.SetInsertMode(in.Bool());
        break;
    case 9:
        screen.SetAutoWrapMode(in.Bool());
        break;
    case 10:
        screen.SetOriginMode(in.Bool());
        break;
    case 11:
        screen.CursorUp(in.Int());
        break;
    case 12:
        screen.CursorDown(in.Int());
        break;
    case 13:
        screen.CursorForward(in.Int());
        break;
    case 14:
        screen.CursorBackward(in.Int());
        break;
    case 15:
        screen.CursorPosition(in.Int(), in.Int());
        break;
    case 16:
        screen.CursorPositionRel(in.Int(), in.Int());
        break;
    case 17:
        screen.CursorNextLine(in.Int());
        break;
    case 18:
        screen.CursorPreviousLine(in.Int());
        break;
    case 19:
        screen.HorizontalPositionAbs(in.Int());
        break;
    case 20:
        screen.HorizontalPositionRel(in.Int());
        break;
    case 21:
        screen.VerticalPositionAbs(in.Int());
        break;
    case 22:
        screen.VerticalPositionRel(in.Int());
        break;
    case 23:
        screen.ReverseIndex();
        break;
    case 24:
        screen.NextLine();
        break;
    case 25:
        screen.CarriageReturn();
        break;
    case 26:
        screen.CursorHomeDown();
        break;
    case 27:
        screen.SaveCursor();
        break;
    case 28:
        screen.RestoreCursor();
        break;
    case 29:
        screen.SetScrollingRegion(in.Int(), in.Int());
        break;
    case 30:
        screen.HorizontalTabSet();
        break;
    case 31:
        screen.TabulationClear(in.Int());
        break;
    case 32:
        screen.CursorHorizontalTab(in.Int());
        break;
    case 33:
        screen.CursorBackwardTab(in.Int());
        break;
    case 34:
        screen.InsertLine(in.Int());
        break;
    case 35:
        screen.DeleteLine(in.Int());
        break;
    case 36:
        screen.DeleteCharacter(in.Int());
        break;
    case 37:
        screen.EraseCharacter(in.Int());
        break;
    case 38:
        screen.EraseInDisplay(in.Int(), in.Bool());
        break;
    case 39:
        screen.EraseInLine(in.Int());
        break;
    case 40: {
        switch (in.Byte() % 11) {
        case 0:
            screen.SetVideoBold();
            break;
        case 1:
            screen.ResetVideoBold();
            break;
        case 2:
            screen.SetVideoSubdued();
            break;
        case 3:
            screen.ResetVideoSubdued();
            break;
        case 4:
            screen.SetVideoUnderlined();
            break;
        case 5:
            screen.ResetVideoUnderlined();
            break;
        case 6:
            screen.SetVideoBlinking();
            break;
        case 7:
            screen.ResetVideoBlinking();
            break;
        case 8:
            screen.SetVideoReverse();
            break;
        case 9:
            screen.ResetVideoReverse();
            break;
        default:
            screen.ResetVideo();
            break;
        }
        break;
    }
    case 41: {
        int g = in.Int();
        switch (in.Byte() % 4) {
        case 0:
            screen.SetCharSetUS_ASCII(g);
            break;
        case 1:
            screen.SetCharSetUK_National(g);
            break;
        case 2:
            screen.SetCharSetSpecialGraphics(g);
            break;
        default:
            screen.SetCharSetExtendedGraphics(g);
            break;
        }
        break;
    }
    case 42:
        screen.ShiftIn();
        break;
    case 43:
        screen.ShiftOut();
        break;
    case 44:
        screen.SetColumnMode(in.Bool());
        break;
    case 45:
        screen.SoftTerminalReset();
        break;
    case 46:
        screen.ResetToInitialState();
        break;
    case 47: {
        int a = in.Int(), b = in.Int(), c = in.Int(), d = in.Int();
        screen.Select(CursorPos(a, b), CursorPos(c, d));
        break;
    }
    case 48: {
        CString text = screen.SelectedText();
        ScreenBufferProbe probe(screen);
        if (text.GetLength() > probe.MaxRows() * (probe.MaxColumns() + 2))
            Fail("selected text longer than the screen", op);
        break;
    }
    case 49:
        screen.EraseInField(in.Int());
        screen.EraseInArea(in.Int());
        break;
    case 50:
        screen.SetNewlineMode(in.Bool());
        screen.SetScreenMode(in.Bool());
        break;
    case 51:
        // Attaching a small raster DC sends every later change through the
        // renderer; detaching goes back to the silent path.
        screen.SetDC(in.Bool() ? &Raster().dc : nullptr);
        break;
    case 52:
        screen.Refresh(&Raster().dc);
        break;
    default:
        screen.PrintBuffer(&Raster().dc, CSize(in.Int(), in.Int()));
        break;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static FuzzLayout layout;
    ScreenBuffer screen(layout);
    Input in(data, size);
    for (int step = 0; !in.Empty() && step < 4096; ++step) {
        int op = in.Byte() % 54;
        bool hadSelection = screen.ActiveSelection();
        Apply(screen, in, op);
        Check(screen, op);
        // The whole array is scanned only where marks change wholesale: when a
        // selection is made or ends.
        if (op == 7 || op == 47 || (hadSelection && !screen.ActiveSelection()))
            CheckMarks(screen, op);
    }
    return 0;
}
