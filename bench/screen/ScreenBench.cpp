// Micro-benchmarks of the screen model: character output, scrolling at the
// bottom margin, line insertion and deletion, erasing, selection and text, and
// output with a raster DC attached. Each baseline does the same job the way a
// literal implementation would (block moves of whole 132-cell rows), so the
// figures show what the row table and the short paths save.
#include <Win/Win.h>

#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

namespace {

class BenchLayout : public EmulatorLayout {
public:
    BenchLayout() {
        static const COLORREF colours[7] = {0xC0C0C0, 0,        0x808080, 0x00C000,
                                            0xC0C000, 0xFFFFFF, 0xA00000};
        ChangeLayout(colours, u"DejaVu Sans Mono", 14, false, false);
    }
    void OnLayoutChanged() override {}
    CSize GetCharSize() override { return m_charSize; }
    int RowToY(int row) override { return row * m_charSize.cy; }
    int ColumnToX(int col) override { return col * m_charSize.cx; }
};

BenchLayout& Layout() {
    static BenchLayout layout;
    return layout;
}

// The literal storage: one array of rows of 132 cells, scrolled by block moves.
struct BlockMoveScreen {
    static constexpr int kColumns = 132;
    std::vector<ScreenChar> cells = std::vector<ScreenChar>(24 * kColumns);
    ScreenChar blank;
    void ScrollUp(int top, int bottom) {
        std::memmove(static_cast<void*>(&cells[top * kColumns]), &cells[(top + 1) * kColumns],
                     sizeof(ScreenChar) * kColumns * (bottom - top));
        for (int col = 0; col < 80; ++col)
            cells[bottom * kColumns + col] = blank;
    }
    void ScrollDown(int top, int bottom) {
        std::memmove(static_cast<void*>(&cells[(top + 1) * kColumns]), &cells[top * kColumns],
                     sizeof(ScreenChar) * kColumns * (bottom - top));
        for (int col = 0; col < 80; ++col)
            cells[top * kColumns + col] = blank;
    }
};

void BM_PutChar(benchmark::State& state) {
    ScreenBuffer screen(Layout());
    screen.SetAutoWrapMode(true);
    for (auto _ : state) {
        for (int i = 0; i < 80; ++i)
            screen.PutChar(static_cast<WCHAR>(u'a' + i % 26));
        screen.CarriageReturn();
        screen.CursorPosition(1 + static_cast<int>(state.iterations() % 24), 1);
    }
    state.SetItemsProcessed(state.iterations() * 80);
}
BENCHMARK(BM_PutChar);

void BM_PutChar_RawCells(benchmark::State& state) {
    BlockMoveScreen screen;
    FontStyle* style = Layout().GetStyle(0);
    FontStyle* selStyle = Layout().GetStyle(0x1000);
    int row = 0;
    for (auto _ : state) {
        for (int i = 0; i < 80; ++i)
            screen.cells[row * 132 + i].Set(static_cast<WCHAR>(u'a' + i % 26), 0, style, selStyle);
        row = (row + 1) % 24;
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * 80);
}
BENCHMARK(BM_PutChar_RawCells);

void BM_ScrollAtBottomMargin(benchmark::State& state) {
    ScreenBuffer screen(Layout());
    screen.CursorPosition(24, 1);
    for (auto _ : state)
        screen.Index();
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ScrollAtBottomMargin);

void BM_ScrollAtBottomMargin_BlockMove(benchmark::State& state) {
    BlockMoveScreen screen;
    for (auto _ : state) {
        screen.ScrollUp(0, 23);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ScrollAtBottomMargin_BlockMove);

void BM_InsertDeleteLine(benchmark::State& state) {
    ScreenBuffer screen(Layout());
    screen.SetScrollingRegion(3, 22);
    screen.CursorPosition(5, 1);
    for (auto _ : state) {
        screen.InsertLine(1);
        screen.DeleteLine(1);
    }
    state.SetItemsProcessed(state.iterations() * 2);
}
BENCHMARK(BM_InsertDeleteLine);

void BM_InsertDeleteLine_BlockMove(benchmark::State& state) {
    BlockMoveScreen screen;
    for (auto _ : state) {
        screen.ScrollDown(4, 21);
        screen.ScrollUp(4, 21);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * 2);
}
BENCHMARK(BM_InsertDeleteLine_BlockMove);

void BM_EraseInDisplay(benchmark::State& state) {
    ScreenBuffer screen(Layout());
    screen.CursorPosition(1, 1);
    for (auto _ : state)
        screen.EraseInDisplay(2, false);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_EraseInDisplay);

void BM_EraseInDisplay_CellByCell(benchmark::State& state) {
    BlockMoveScreen screen;
    FontStyle* style = Layout().GetStyle(0);
    FontStyle* selStyle = Layout().GetStyle(0x1000);
    for (auto _ : state) {
        for (int row = 0; row < 24; ++row)
            for (int col = 0; col < 80; ++col)
                screen.cells[row * 132 + col].Set(u' ', 0, style, selStyle);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_EraseInDisplay_CellByCell);

void BM_SelectAndText(benchmark::State& state) {
    ScreenBuffer screen(Layout());
    for (int row = 1; row <= 24; ++row) {
        screen.CursorPosition(row, 1);
        for (int i = 0; i < 60; ++i)
            screen.PutChar(static_cast<WCHAR>(u'A' + (row + i) % 26));
    }
    int end = 0;
    for (auto _ : state) {
        // A drag that grows the selection by a row at a time, then reads it.
        end = end % 23 + 2;
        screen.Select(CursorPos(1, 1), CursorPos(end, 40));
        CString text = screen.SelectedText();
        benchmark::DoNotOptimize(text.GetLength());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_SelectAndText);

void BM_PutCharWithRasterDC(benchmark::State& state) {
    CDC screenDC;
    screenDC.Attach(::GetDC(nullptr));
    CDC memory;
    memory.CreateCompatibleDC(&screenDC);
    CBitmap bitmap;
    CSize cell = Layout().GetCharSize();
    bitmap.CreateCompatibleBitmap(&screenDC, cell.cx * 80, cell.cy * 24);
    CBitmap* old = memory.SelectObject(&bitmap);
    {
        ScreenBuffer screen(Layout());
        screen.SetAutoWrapMode(true);
        screen.SetDC(&memory);
        for (auto _ : state) {
            for (int i = 0; i < 80; ++i)
                screen.PutChar(static_cast<WCHAR>(u'a' + i % 26));
            screen.CursorPosition(1 + static_cast<int>(state.iterations() % 24), 1);
        }
        screen.SetDC(nullptr);
    }
    memory.SelectObject(old);
    ::ReleaseDC(nullptr, screenDC.Detach());
    state.SetItemsProcessed(state.iterations() * 80);
}
BENCHMARK(BM_PutCharWithRasterDC);

} // namespace

BENCHMARK_MAIN();
