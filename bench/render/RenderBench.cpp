// A full-screen refresh through the cell renderer into a memory DC, against
// the same screen drawn by Cairo's own text path and strokes, in interleaved
// rounds: text screens with a realistic mix of styles, and screens of
// line-drawing glyphs, at 80x24 and 132x50.
#include "CairoScreen.h"
#include "Interleaved.h"
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

// Our refresh and Cairo's of the same screen; the ratio is Cairo's time over ours.
bench::Measure Refresh(const bench::Options& options, int cols, int rows, bool lines) {
    testing_support::TestLayout layout(u"Lucida Console", -13); // an 8x15 cell
    const CSize cell = layout.GetCharSize();
    Screen screen = MakeScreen(layout, cols, rows, lines);
    Target target(cols * cell.cx, rows * cell.cy);
    TEXTMETRIC metrics{};
    target.dc.SelectObject(layout.GetStyle(0)->GetFont());
    target.dc.GetTextMetrics(&metrics);
    // "Lucida Console" is DejaVu Sans Mono here; -13 asks for 13 pixels per em.
    CairoScreen cairo(cols * cell.cx, rows * cell.cy, "DejaVu Sans Mono", 13,
                      static_cast<int>(metrics.tmAscent));
    ScreenCharRenderer* renderer = ScreenCharRenderer::Instance();
    auto ours = [&] {
        std::size_t i = 0;
        for (int r = 0; r < rows; ++r)
            for (int c = 0; c < cols; ++c)
                renderer->Draw(&target.dc, &screen.cells[i++], c * cell.cx, r * cell.cy, cell);
        benchmark::ClobberMemory();
    };
    auto baseline = [&] {
        cairo.Draw(screen.cells, cols, cell);
        benchmark::ClobberMemory();
    };
    const bench::Result result = bench::Interleave(options, ours, baseline);
    const std::string name = std::string(lines ? "refresh-lines-" : "refresh-text-") +
                             std::to_string(cols) + "x" + std::to_string(rows);
    return bench::MakeMeasure(name, "ms", 1e3, lines ? "Cairo strokes" : "Cairo text path",
                              result.cpu);
}

} // namespace

int main(int argc, char** argv) {
    bench::Options options;
    if (!bench::ParseOptions(argc, argv, options))
        return 2;
    std::vector<bench::Measure> measures;
    for (bool lines : {false, true}) {
        measures.push_back(Refresh(options, 80, 24, lines));
        measures.push_back(Refresh(options, 132, 50, lines));
    }
    bench::Report(options, measures);
    return 0;
}
