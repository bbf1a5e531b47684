// Cells drawn per second by the renderer into a memory DC: text screens with a
// realistic mix of styles, and screens of line-drawing glyphs.
#include "support/TestLayout.h"

#include <Win/Win.h>

#include <benchmark/benchmark.h>

#include <memory>
#include <random>
#include <vector>

namespace {

struct Screen {
    int cols;
    int rows;
    std::vector<ScreenChar> cells;
};

// A deterministic screen: text with 15% bold, 11% reverse and some underlined,
// subdued and blinking cells, or all line-drawing glyphs.
Screen MakeScreen(EmulatorLayout& layout, int cols, int rows, bool lines) {
    Screen s{cols, rows, std::vector<ScreenChar>(static_cast<std::size_t>(cols * rows))};
    std::mt19937 rng(42);
    const char glyphs[] = "jklmnopqrstuvwx`";
    for (auto& cell : s.cells) {
        int mode = 0;
        int r = static_cast<int>(rng() % 100);
        if (r < 15)
            mode |= FontStyle::Bold;
        else if (r < 26)
            mode |= FontStyle::Reverse;
        else if (r < 32)
            mode |= FontStyle::Underlined;
        else if (r < 36)
            mode |= FontStyle::Subdued;
        else if (r < 38)
            mode |= FontStyle::Blinking;
        if (lines)
            cell.Set(static_cast<WCHAR>(glyphs[rng() % 16]), 2, layout.GetStyle(0),
                     layout.GetSelStyle(0));
        else
            cell.Set(static_cast<WCHAR>(0x21 + rng() % 94), 0, layout.GetStyle(mode),
                     layout.GetSelStyle(mode));
    }
    return s;
}

class Target {
public:
    Target(int width, int height) {
        HDC screen = ::GetDC(nullptr);
        dc.CreateCompatibleDC(CDC::FromHandle(screen));
        bitmap.CreateCompatibleBitmap(CDC::FromHandle(screen), width, height);
        ::ReleaseDC(nullptr, screen);
        old = dc.SelectObject(&bitmap);
    }
    ~Target() {
        dc.SelectStockObject(SYSTEM_FONT);
        dc.SelectObject(old);
    }
    CDC dc;
    CBitmap bitmap;
    CBitmap* old = nullptr;
};

void Refresh(benchmark::State& state, bool lines) {
    int cols = static_cast<int>(state.range(0)), rows = static_cast<int>(state.range(1));
    testing_support::TestLayout layout(u"Lucida Console", -13); // an 8x15 cell
    CSize cell = layout.GetCharSize();
    Screen screen = MakeScreen(layout, cols, rows, lines);
    Target target(cols * cell.cx, rows * cell.cy);
    ScreenCharRenderer* renderer = ScreenCharRenderer::Instance();
    for (auto _ : state) {
        std::size_t i = 0;
        for (int r = 0; r < rows; ++r)
            for (int c = 0; c < cols; ++c)
                renderer->Draw(&target.dc, &screen.cells[i++], c * cell.cx, r * cell.cy, cell);
        benchmark::ClobberMemory();
    }
    state.counters["cells_per_s"] = benchmark::Counter(
        static_cast<double>(cols * rows), benchmark::Counter::kIsIterationInvariantRate);
}

void BM_RefreshText(benchmark::State& state) {
    Refresh(state, false);
}
void BM_RefreshLines(benchmark::State& state) {
    Refresh(state, true);
}

BENCHMARK(BM_RefreshText)->Args({80, 24})->Args({132, 50})->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RefreshLines)->Args({80, 24})->Args({132, 50})->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
