// The screen model's operations against baselines timed in interleaved
// rounds: character output, scrolling at the bottom margin, line insertion and
// deletion, erasing, selection and text, and output with a raster DC attached.
// Each baseline does the same job the way a literal implementation would
// (block moves of whole 132-cell rows, cell-by-cell writes and walks), so the
// figures show what the row table and the short paths save.
#include "Interleaved.h"

#include <Win/Win.h>

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
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

// Each timed run repeats an operation this many times, so the call into the
// timing loop is no part of the figure.
constexpr int kBatch = 100;
constexpr double kNsPerOperation = 1e9 / kBatch;

// 80 characters on one row, then the cursor to the next row's start.
bench::Measure PutChar(const bench::Options& options) {
    ScreenBuffer screen(Layout());
    screen.SetAutoWrapMode(true);
    int row = 0;
    auto ours = [&] {
        for (int n = 0; n < kBatch; ++n) {
            for (int i = 0; i < 80; ++i)
                screen.PutChar(static_cast<WCHAR>(u'a' + i % 26));
            screen.CarriageReturn();
            row = (row + 1) % 24;
            screen.CursorPosition(1 + row, 1);
        }
    };
    BlockMoveScreen raw;
    FontStyle* style = Layout().GetStyle(0);
    FontStyle* selStyle = Layout().GetStyle(0x1000);
    int rawRow = 0;
    auto baseline = [&] {
        for (int n = 0; n < kBatch; ++n) {
            for (int i = 0; i < 80; ++i)
                raw.cells[rawRow * 132 + i].Set(static_cast<WCHAR>(u'a' + i % 26), 0, style,
                                                selStyle);
            rawRow = (rawRow + 1) % 24;
            benchmark::ClobberMemory();
        }
    };
    return bench::MakeMeasure("screen-putchar", "ns/row", kNsPerOperation, "raw cell writes",
                              bench::Interleave(options, ours, baseline).cpu);
}

bench::Measure ScrollAtBottomMargin(const bench::Options& options) {
    ScreenBuffer screen(Layout());
    screen.CursorPosition(24, 1);
    auto ours = [&] {
        for (int n = 0; n < kBatch; ++n)
            screen.Index();
    };
    BlockMoveScreen raw;
    auto baseline = [&] {
        for (int n = 0; n < kBatch; ++n) {
            raw.ScrollUp(0, 23);
            benchmark::ClobberMemory();
        }
    };
    return bench::MakeMeasure("screen-scroll-bottom-margin", "ns", kNsPerOperation,
                              "block move of 24 rows",
                              bench::Interleave(options, ours, baseline).cpu);
}

bench::Measure InsertDeleteLine(const bench::Options& options) {
    ScreenBuffer screen(Layout());
    screen.SetScrollingRegion(3, 22);
    screen.CursorPosition(5, 1);
    auto ours = [&] {
        for (int n = 0; n < kBatch; ++n) {
            screen.InsertLine(1);
            screen.DeleteLine(1);
        }
    };
    BlockMoveScreen raw;
    auto baseline = [&] {
        for (int n = 0; n < kBatch; ++n) {
            raw.ScrollDown(4, 21);
            raw.ScrollUp(4, 21);
            benchmark::ClobberMemory();
        }
    };
    return bench::MakeMeasure("screen-insert-delete-line", "ns/pair", kNsPerOperation,
                              "block moves of 18 rows",
                              bench::Interleave(options, ours, baseline).cpu);
}

bench::Measure EraseInDisplay(const bench::Options& options) {
    ScreenBuffer screen(Layout());
    screen.CursorPosition(1, 1);
    auto ours = [&] {
        for (int n = 0; n < kBatch; ++n)
            screen.EraseInDisplay(2, false);
    };
    BlockMoveScreen raw;
    FontStyle* style = Layout().GetStyle(0);
    FontStyle* selStyle = Layout().GetStyle(0x1000);
    auto baseline = [&] {
        for (int n = 0; n < kBatch; ++n) {
            for (int row = 0; row < 24; ++row)
                for (int col = 0; col < 80; ++col)
                    raw.cells[row * 132 + col].Set(u' ', 0, style, selStyle);
            benchmark::ClobberMemory();
        }
    };
    return bench::MakeMeasure("screen-erase-in-display", "ns", kNsPerOperation,
                              "cell-by-cell blanks",
                              bench::Interleave(options, ours, baseline).cpu);
}

// A drag that grows the selection by a row at a time, then reads it; the
// baseline flags the same cells of a plain array one by one and gathers their
// characters, a row break after each row.
bench::Measure SelectAndText(const bench::Options& options) {
    ScreenBuffer screen(Layout());
    BlockMoveScreen raw;
    FontStyle* style = Layout().GetStyle(0);
    FontStyle* selStyle = Layout().GetStyle(0x1000);
    for (int row = 1; row <= 24; ++row) {
        screen.CursorPosition(row, 1);
        for (int i = 0; i < 60; ++i) {
            const WCHAR ch = static_cast<WCHAR>(u'A' + (row + i) % 26);
            screen.PutChar(ch);
            raw.cells[(row - 1) * 132 + i].Set(ch, 0, style, selStyle);
        }
    }
    int end = 0;
    auto ours = [&] {
        for (int n = 0; n < kBatch / 10; ++n) {
            end = end % 23 + 2;
            screen.Select(CursorPos(1, 1), CursorPos(end, 40));
            CString text = screen.SelectedText();
            benchmark::DoNotOptimize(text.GetLength());
        }
    };
    int rawEnd = 0;
    auto baseline = [&] {
        for (int n = 0; n < kBatch / 10; ++n) {
            rawEnd = rawEnd % 23 + 2;
            for (ScreenChar& cell : raw.cells)
                cell.Unselect();
            CString text;
            for (int row = 0; row < rawEnd; ++row) {
                // Each row's text ends after its last written cell.
                const int last = row + 1 == rawEnd ? 40 : 60;
                for (int col = 0; col < last; ++col) {
                    ScreenChar& cell = raw.cells[row * 132 + col];
                    cell.Select();
                    text.AppendChar(cell.GetValue());
                }
                if (row + 1 < rawEnd)
                    text.Append(u"\r\n", 2);
            }
            benchmark::DoNotOptimize(text.GetLength());
        }
    };
    return bench::MakeMeasure("screen-select-and-text", "ns", 1e9 / (kBatch / 10),
                              "flag and gather cell by cell",
                              bench::Interleave(options, ours, baseline).cpu);
}

// Character output with a raster DC attached, against the same output without one.
bench::Measure PutCharWithRasterDC(const bench::Options& options) {
    CDC screenDC;
    screenDC.Attach(::GetDC(nullptr));
    CDC memory;
    memory.CreateCompatibleDC(&screenDC);
    CBitmap bitmap;
    CSize cell = Layout().GetCharSize();
    bitmap.CreateCompatibleBitmap(&screenDC, cell.cx * 80, cell.cy * 24);
    CBitmap* old = memory.SelectObject(&bitmap);
    bench::Result result;
    {
        ScreenBuffer drawn(Layout());
        drawn.SetAutoWrapMode(true);
        drawn.SetDC(&memory);
        ScreenBuffer plain(Layout());
        plain.SetAutoWrapMode(true);
        auto run = [](ScreenBuffer& screen, int& row) {
            for (int n = 0; n < kBatch; ++n) {
                for (int i = 0; i < 80; ++i)
                    screen.PutChar(static_cast<WCHAR>(u'a' + i % 26));
                row = (row + 1) % 24;
                screen.CursorPosition(1 + row, 1);
            }
        };
        int drawnRow = 0, plainRow = 0;
        result = bench::Interleave(
            options, [&] { run(drawn, drawnRow); }, [&] { run(plain, plainRow); });
        drawn.SetDC(nullptr);
    }
    memory.SelectObject(old);
    ::ReleaseDC(nullptr, screenDC.Detach());
    return bench::MakeMeasure("screen-putchar-raster-dc", "ns/row", kNsPerOperation, "without a DC",
                              result.cpu);
}

} // namespace

int main(int argc, char** argv) {
    bench::Options options;
    if (!bench::ParseOptions(argc, argv, options))
        return 2;
    bench::Report(options,
                  {PutChar(options), ScrollAtBottomMargin(options), InsertDeleteLine(options),
                   EraseInDisplay(options), SelectAndText(options), PutCharWithRasterDC(options)});
    return 0;
}
