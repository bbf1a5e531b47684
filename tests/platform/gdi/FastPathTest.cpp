// The direct pixel paths (glyph blits, axis-aligned strokes, rectangles) must
// give exactly what drawing everything through Cairo gives.
#include "support/Pixels.h"

#include <platform/GdiObjects.h>

#include <gtest/gtest.h>

#include <random>
#include <vector>

using namespace testing_support;

namespace {

constexpr int kWidth = 160;
constexpr int kHeight = 100;

// Draws the same scene twice, with and without the direct paths.
template <class Scene> void ExpectSamePixels(Scene scene) {
    std::vector<COLORREF> runs[2];
    for (int fast = 0; fast < 2; ++fast) {
        platform::SetFastPaths(fast == 1);
        Canvas canvas(kWidth, kHeight, RGB(0, 0, 64));
        scene(canvas.dc());
        runs[fast] = Snapshot(canvas.dc(), kWidth, kHeight);
    }
    platform::SetFastPaths(true);
    int differences = 0;
    for (size_t i = 0; i < runs[0].size(); ++i)
        if (runs[0][i] != runs[1][i] && differences++ < 5)
            ADD_FAILURE() << "pixel " << i % kWidth << "," << i / kWidth << ": Cairo " << std::hex
                          << runs[0][i] << ", direct " << runs[1][i];
    EXPECT_EQ(differences, 0);
}

} // namespace

TEST(FastPaths, AxisAlignedStrokesMatchCairo) {
    for (int width : {0, 1, 2, 3, 4, 5}) {
        for (DWORD join : {DWORD{PS_JOIN_ROUND}, DWORD{PS_JOIN_BEVEL}}) {
            ExpectSamePixels([&](CDC& dc) {
                std::mt19937 random(7 + width); // the same strokes in both runs
                LOGBRUSH brush{BS_SOLID, RGB(250, 250, 0), 0};
                CPen pen;
                pen.CreatePen(PS_GEOMETRIC | PS_ENDCAP_FLAT | join, width, &brush);
                CPen* old = dc.SelectObject(&pen);
                for (int n = 0; n < 20; ++n) {
                    // A polyline of up to four axis-aligned steps.
                    std::vector<POINT> points{{static_cast<LONG>(random() % kWidth),
                                               static_cast<LONG>(random() % kHeight)}};
                    int steps = 1 + static_cast<int>(random() % 3);
                    for (int s = 0; s < steps; ++s) {
                        POINT next = points.back();
                        int delta = 1 + static_cast<int>(random() % 30);
                        if (random() % 2)
                            delta = -delta;
                        (s % 2 ? next.y : next.x) += delta;
                        points.push_back(next);
                    }
                    dc.Polyline(points.data(), static_cast<int>(points.size()));
                }
                dc.SelectObject(old);
            });
        }
    }
}

TEST(FastPaths, GlyphBlitsMatchCairoText) {
    for (const char16_t* face : {u"Courier New", u"Lucida Console"}) {
        for (LONG height : {-13L, -16L, -40L}) {
            for (LONG weight : {FW_NORMAL, FW_BOLD}) {
                ExpectSamePixels([&](CDC& dc) {
                    LOGFONT lf{};
                    lf.lfHeight = height;
                    lf.lfWeight = weight;
                    std::char_traits<char16_t>::copy(lf.lfFaceName, face,
                                                     std::char_traits<char16_t>::length(face));
                    CFont font;
                    font.CreateFontIndirect(&lf);
                    CFont* old = dc.SelectObject(&font);
                    dc.SetTextColor(RGB(255, 255, 255));
                    dc.SetBkColor(RGB(0, 90, 0));
                    dc.TextOut(2, 2, CString(u"Ag#@|_~\u00A3\u00B0"));
                    dc.SetBkMode(TRANSPARENT);
                    dc.TextOut(3, 50, CString(u"Wij{}%"));
                    // Cut by the edges.
                    dc.TextOut(kWidth - 12, kHeight - 9, CString(u"Wg"));
                    dc.TextOut(-5, -6, CString(u"Qy"));
                    dc.SelectObject(old);
                });
            }
        }
    }
}

TEST(FastPaths, PolygonsMatchCairo) {
    const DWORD styles[] = {PS_JOIN_BEVEL | PS_ENDCAP_FLAT, PS_JOIN_ROUND | PS_ENDCAP_ROUND,
                            PS_JOIN_MITER | PS_ENDCAP_SQUARE};
    for (int width : {-1, 0, 1, 2, 3}) { // -1: a null pen
        for (DWORD style : styles) {
            for (bool filled : {true, false}) {
                ExpectSamePixels([&](CDC& dc) {
                    std::mt19937 random(11 + width); // the same shapes in both runs
                    LOGBRUSH pattern{BS_SOLID, RGB(250, 250, 0), 0};
                    CPen pen;
                    if (width < 0)
                        pen.CreatePen(PS_NULL, 0, RGB(0, 0, 0));
                    else
                        pen.CreatePen(PS_GEOMETRIC | style, width, &pattern);
                    CBrush brush(RGB(0, 200, 90));
                    CPen* oldPen = dc.SelectObject(&pen);
                    CBrush* oldBrush = filled
                                           ? dc.SelectObject(&brush)
                                           : static_cast<CBrush*>(dc.SelectStockObject(NULL_BRUSH));
                    ::SetPolyFillMode(dc.GetSafeHdc(), width % 2 ? WINDING : ALTERNATE);
                    // Diamonds, as the line-drawing glyphs draw them, and random
                    // shapes, each drawn again elsewhere, some cut by the edges.
                    for (int n = 0; n < 12; ++n) {
                        std::vector<POINT> points;
                        if (n < 4) {
                            const LONG d = 2 + n, xm = 8 + 20 * n, ym = 12;
                            points = {{xm - d, ym}, {xm, ym - d}, {xm + d, ym}, {xm, ym + d}};
                        } else {
                            const int corners = 3 + static_cast<int>(random() % 4);
                            for (int c = 0; c < corners; ++c)
                                points.push_back({static_cast<LONG>(random() % 40),
                                                  static_cast<LONG>(random() % 40)});
                        }
                        for (int copy = 0; copy < 3; ++copy) {
                            const LONG dx = static_cast<LONG>(random() % (kWidth + 40)) - 30;
                            const LONG dy = static_cast<LONG>(random() % (kHeight + 40)) - 30;
                            std::vector<POINT> moved = points;
                            for (POINT& p : moved)
                                p = POINT{p.x + dx, p.y + dy};
                            dc.Polygon(moved.data(), static_cast<int>(moved.size()));
                        }
                    }
                    dc.SelectObject(oldPen);
                    dc.SelectObject(oldBrush);
                });
            }
        }
    }
}

TEST(FastPaths, BlockCopiesMatchCairo) {
    // A source with a pattern in every pixel, so an offset by one shows.
    auto pattern = [](CDC& dc, int width, int height) {
        for (int y = 0; y < height; y += 3)
            for (int x = 0; x < width; x += 5)
                dc.FillSolidRect(x, y, 5, 3, RGB(x * 7 % 256, y * 11 % 256, (x + y) % 256));
    };
    ExpectSamePixels([&](CDC& dc) {
        Canvas other(90, 70, RGB(10, 20, 30));
        pattern(other.dc(), 90, 70);
        dc.BitBlt(3, 4, 50, 40, &other.dc(), 7, 9, SRCCOPY);
        // Clipped by the destination's edges.
        dc.BitBlt(kWidth - 30, kHeight - 20, 60, 50, &other.dc(), 0, 0, SRCCOPY);
        dc.BitBlt(-10, 60, 40, 60, &other.dc(), 20, 5, SRCCOPY);
        // Partly outside the source: Cairo's own path.
        dc.BitBlt(100, 10, 50, 30, &other.dc(), 60, 50, SRCCOPY);
        // Moved origins on both sides.
        dc.SetViewportOrg(5, -3);
        other.dc().SetViewportOrg(-2, 4);
        dc.BitBlt(0, 0, 160, 100, &other.dc(), 10, 3, SRCCOPY);
    });
    // Within one surface, overlapping every way (the scrolls of a screen).
    for (POINT shift : {POINT{0, 7}, POINT{0, -7}, POINT{9, 0}, POINT{-9, 0}, POINT{4, -5}}) {
        ExpectSamePixels([&](CDC& dc) {
            pattern(dc, kWidth, kHeight);
            dc.BitBlt(20 + shift.x, 20 + shift.y, 100, 60, &dc, 20, 20, SRCCOPY);
        });
    }
}
