// The exact pixels of the line-drawing glyphs, read back from a real memory DC.
#include "support/Pixels.h"

#include <Win/Win.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

using namespace testing_support;

namespace {

constexpr COLORREF kInk = RGB(0xFF, 0, 0);
constexpr COLORREF kPaper = RGB(0, 0, 0xFF);
constexpr COLORREF kCanvas = RGB(0, 0x80, 0);

// One cell's geometry, as the glyph routines compute it.
struct Cell {
    int x, y, w, h;
    int L() const { return w / 6; }
    int Lw() const { return L() < 1 ? 1 : L(); } // a zero-width pen draws one pixel wide
    int xm() const { return x + w / 2; }
    int ym() const { return y + h / 2; }
    // A flat-capped stroke covers [start, end) along its length; an even width
    // reaches one pixel further up or left.
    PixelSet HBand(int x0, int x1, int yy) const {
        return Block(std::min(x0, x1), yy - Lw() / 2, std::max(x0, x1), yy - Lw() / 2 + Lw());
    }
    PixelSet VBand(int xx, int y0, int y1) const {
        return Block(xx - Lw() / 2, std::min(y0, y1), xx - Lw() / 2 + Lw(), std::max(y0, y1));
    }
    // Pixels whose centres lie within the round join's radius of the bend.
    PixelSet Join() const {
        PixelSet result;
        int r2 = Lw() * Lw(); // (2r)^2, compared with (2d)^2
        for (int dy = -Lw(); dy <= Lw(); ++dy)
            for (int dx = -Lw(); dx <= Lw(); ++dx)
                if (4 * (dx * dx + dy * dy) <= r2)
                    result.emplace(xm() + dx, ym() + dy);
        return result;
    }
};

struct Glyph {
    char code;
    const char* name;
    bool corner; // a bend with a round join
    std::function<PixelSet(const Cell&)> arms;
};

const Glyph kGlyphs[] = {
    {0x6A, "down-left", true,
     [](const Cell& c) {
         return Union(c.HBand(c.x, c.xm(), c.ym()), c.VBand(c.xm(), c.y, c.ym()));
     }},
    {0x6B, "up-left", true,
     [](const Cell& c) {
         return Union(c.HBand(c.x, c.xm(), c.ym()), c.VBand(c.xm(), c.ym(), c.y + c.h));
     }},
    {0x6C, "up-right", true,
     [](const Cell& c) {
         return Union(c.VBand(c.xm(), c.y + c.h, c.ym()), c.HBand(c.xm(), c.x + c.w, c.ym()));
     }},
    {0x6D, "down-right", true,
     [](const Cell& c) {
         return Union(c.VBand(c.xm(), c.y, c.ym()), c.HBand(c.xm(), c.x + c.w, c.ym()));
     }},
    {0x6E, "cross", false,
     [](const Cell& c) {
         return Union(c.VBand(c.xm(), c.y, c.y + c.h), c.HBand(c.x, c.x + c.w, c.ym()));
     }},
    {0x74, "vertical-right", false,
     [](const Cell& c) {
         return Union(c.VBand(c.xm(), c.y, c.y + c.h), c.HBand(c.xm(), c.x + c.w, c.ym()));
     }},
    {0x75, "vertical-left", false,
     [](const Cell& c) {
         return Union(c.VBand(c.xm(), c.y, c.y + c.h), c.HBand(c.x, c.xm(), c.ym()));
     }},
    {0x76, "up-horizontal", false,
     [](const Cell& c) {
         return Union(c.VBand(c.xm(), c.y, c.ym()), c.HBand(c.x, c.x + c.w, c.ym()));
     }},
    {0x77, "down-horizontal", false,
     [](const Cell& c) {
         return Union(c.VBand(c.xm(), c.ym(), c.y + c.h), c.HBand(c.x, c.x + c.w, c.ym()));
     }},
    {0x78, "vertical", false, [](const Cell& c) { return c.VBand(c.xm(), c.y, c.y + c.h); }},
    {0x6F, "scan 1", false, [](const Cell& c) { return c.HBand(c.x, c.x + c.w, c.y + c.L() / 2); }},
    {0x70, "scan 3", false,
     [](const Cell& c) { return c.HBand(c.x, c.x + c.w, c.y + c.h / 4 + c.L() / 4); }},
    {0x71, "scan 5", false, [](const Cell& c) { return c.HBand(c.x, c.x + c.w, c.ym()); }},
    {0x72, "scan 7", false,
     [](const Cell& c) { return c.HBand(c.x, c.x + c.w, c.y + (3 * c.h) / 4 - c.L() / 4); }},
    {0x73, "scan 9", false,
     [](const Cell& c) { return c.HBand(c.x, c.x + c.w, c.y + c.h - (c.L() + 1) / 2); }},
};

// Draws one special-graphics cell onto the canvas and returns the canvas's ink.
PixelSet DrawGlyph(Canvas& canvas, const Cell& c, char code) {
    CFont font;
    LOGFONT lf = {};
    lf.lfHeight = -c.h;
    font.CreateFontIndirect(&lf);
    FontStyle style(0, kInk, kPaper, &font);
    ScreenChar cell;
    cell.Set(static_cast<WCHAR>(code), 2, &style, &style);
    ScreenCharRenderer::Instance()->SetFontBounds(CSize(c.w, c.h));
    ScreenCharRenderer::Instance()->Draw(&canvas.dc(), &cell, c.x, c.y, CSize(c.w, c.h));
    canvas.dc().SelectStockObject(SYSTEM_FONT);
    return PixelsOfColour(canvas.dc(), CRect(0, 0, 200, 120), kInk);
}

class GlyphPixels : public ::testing::TestWithParam<Cell> {
protected:
    PixelSet Draw(char code) {
        canvas_ = std::make_unique<Canvas>(200, 120, kCanvas);
        return DrawGlyph(*canvas_, GetParam(), code);
    }
    std::unique_ptr<Canvas> canvas_;
};

} // namespace

TEST_P(GlyphPixels, LineGlyphsCoverExactlyTheirStrokes) {
    const Cell& c = GetParam();
    for (const Glyph& g : kGlyphs) {
        PixelSet ink = Draw(g.code);
        PixelSet arms = g.arms(c);
        CRect box(c.x, c.y, c.x + c.w, c.y + c.h);
        // With L = 0 scan line 9 lies (L + 1) / 2 = 0 above the bottom edge, on the
        // next cell's first row; every other stroke stays inside.
        bool spills = c.L() == 0 && g.code == 0x73;
        for (auto& p : ink)
            ASSERT_TRUE(spills || box.PtInRect(CPoint(p.first, p.second)))
                << g.name << ": ink outside the cell at " << p.first << "," << p.second;
        if (!g.corner || c.Lw() == 1) {
            // A width-1 join adds exactly the bend pixel.
            PixelSet expected = g.corner ? Union(arms, {{c.xm(), c.ym()}}) : arms;
            EXPECT_EQ(ink, expected) << g.name << Describe(expected, ink);
        } else {
            // Wider joins round the bend: both arms and the bend pixel are inked,
            // and nothing lies beyond the join's radius. A pixel whose centre lies
            // exactly on the join's circle is a tie the grid decides (an even
            // width loses the outer corner's pixel upward or leftward).
            PixelSet limit = Union(arms, c.Join());
            for (auto& p : arms) {
                int dx = p.first - c.xm(), dy = p.second - c.ym();
                if (4 * (dx * dx + dy * dy) == c.Lw() * c.Lw())
                    continue;
                EXPECT_TRUE(ink.count(p)) << g.name << " misses " << p.first << "," << p.second;
            }
            EXPECT_TRUE(ink.count({c.xm(), c.ym()})) << g.name;
            for (auto& p : ink)
                EXPECT_TRUE(limit.count(p)) << g.name << " extra " << p.first << "," << p.second;
        }
    }
}

TEST_P(GlyphPixels, DiamondIsASquareOnItsCornerSizedByTheWidth) {
    const Cell& c = GetParam();
    int d = c.w / 2 - c.L();
    PixelSet expected;
    for (int dy = -d; dy <= d; ++dy)
        for (int dx = -d; dx <= d; ++dx)
            if (std::abs(dx) + std::abs(dy) <= d)
                expected.emplace(c.xm() + dx, c.ym() + dy);
    PixelSet ink = Draw(0x60);
    EXPECT_EQ(ink, expected) << Describe(expected, ink);
}

INSTANTIATE_TEST_SUITE_P(Cells, GlyphPixels,
                         ::testing::Values(Cell{0, 0, 8, 16}, Cell{0, 0, 24, 48},
                                           Cell{100, 48, 12, 24}, Cell{0, 0, 24, 24},
                                           Cell{20, 10, 5, 10}),
                         [](const auto& info) {
                             const Cell& c = info.param;
                             return std::to_string(c.w) + "x" + std::to_string(c.h) + "at" +
                                    std::to_string(c.x) + "_" + std::to_string(c.y);
                         });

TEST(GlyphPixels, ScanLinesLieWhereTheTableSays) {
    struct Case {
        Cell cell;
        int rows[5]; // top row of scan lines 1, 3, 5, 7, 9
        int width;
    } cases[] = {
        {{0, 0, 8, 16}, {0, 4, 8, 12, 15}, 1},
        {{0, 0, 24, 48}, {0, 11, 22, 33, 44}, 4}, // lines at 2, 13, 24, 35, 46, two rows above
        {{100, 48, 12, 24}, {48, 53, 59, 65, 70}, 2},
    };
    const char codes[5] = {0x6F, 0x70, 0x71, 0x72, 0x73};
    for (const Case& c : cases) {
        for (int i = 0; i < 5; ++i) {
            Canvas canvas(200, 120, kCanvas);
            PixelSet ink = DrawGlyph(canvas, c.cell, codes[i]);
            PixelSet expected =
                Block(c.cell.x, c.rows[i], c.cell.x + c.cell.w, c.rows[i] + c.width);
            EXPECT_EQ(ink, expected)
                << c.cell.w << "x" << c.cell.h << " scan " << 2 * i + 1 << Describe(expected, ink);
        }
    }
    Canvas canvas(200, 120, kCanvas);
    EXPECT_EQ(DrawGlyph(canvas, {100, 48, 12, 24}, 0x78), Block(105, 48, 107, 72));
}
