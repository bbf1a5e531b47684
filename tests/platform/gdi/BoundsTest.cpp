// Bounds accumulation: whatever a drawing call changes lies inside the
// bounds it reports, and the flags behave as documented.
#include "support/Pixels.h"

#include <platform/GdiObjects.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

using namespace testing_support;

namespace {

constexpr int kWidth = 200;
constexpr int kHeight = 120;

// Runs draw with bounds on and checks every changed pixel lies inside them.
void ExpectChangesInsideBounds(const char* what, const std::function<void(CDC&)>& draw) {
    Canvas canvas(kWidth, kHeight, RGB(0, 0, 64));
    CDC& dc = canvas.dc();
    const std::vector<COLORREF> before = Snapshot(dc, kWidth, kHeight);
    dc.SetBoundsRect(nullptr, DCB_RESET | DCB_ENABLE);
    draw(dc);
    CRect bounds;
    const UINT state = dc.GetBoundsRect(&bounds, 0);
    const std::vector<COLORREF> after = Snapshot(dc, kWidth, kHeight);
    int changed = 0, outside = 0;
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            const std::size_t i = static_cast<std::size_t>(y) * kWidth + x;
            if (before[i] == after[i])
                continue;
            ++changed;
            if (!bounds.PtInRect(CPoint(x, y)) && outside++ < 3)
                ADD_FAILURE() << what << ": pixel " << x << "," << y << " changed outside "
                              << bounds.left << "," << bounds.top << "-" << bounds.right << ","
                              << bounds.bottom;
        }
    EXPECT_GT(changed, 0) << what << " drew nothing";
    EXPECT_EQ(state, UINT{DCB_SET}) << what;
    // Not the whole canvas for a small drawing: the bounds are worth having.
    EXPECT_LT(bounds.Width() * bounds.Height(), kWidth * kHeight / 2) << what;
}

} // namespace

TEST(BoundsRect, EveryDrawingCallReportsWhatItChanged) {
    ExpectChangesInsideBounds("text", [](CDC& dc) {
        LOGFONTW lf{};
        lf.lfHeight = -16;
        std::u16string face = u"Courier New";
        face.copy(lf.lfFaceName, face.size());
        CFont font;
        font.CreateFontIndirect(&lf);
        CFont* old = dc.SelectObject(&font);
        dc.SetTextColor(RGB(255, 255, 0));
        dc.SetBkMode(TRANSPARENT);
        dc.TextOut(40, 30, CString(u"Wg|Qy"));
        dc.SelectObject(old);
    });
    ExpectChangesInsideBounds("bold italic text", [](CDC& dc) {
        LOGFONTW lf{};
        lf.lfHeight = -20;
        lf.lfWeight = FW_BOLD;
        lf.lfItalic = TRUE;
        std::u16string face = u"Courier New";
        face.copy(lf.lfFaceName, face.size());
        CFont font;
        font.CreateFontIndirect(&lf);
        CFont* old = dc.SelectObject(&font);
        dc.SetTextColor(RGB(255, 255, 255));
        dc.SetBkColor(RGB(200, 0, 0));
        dc.TextOut(60, 50, CString(u"fj"));
        dc.SelectObject(old);
    });
    ExpectChangesInsideBounds("filled rectangle",
                              [](CDC& dc) { dc.FillSolidRect(10, 20, 30, 15, RGB(9, 200, 9)); });
    ExpectChangesInsideBounds("wide pen lines", [](CDC& dc) {
        CPen pen(PS_SOLID, 5, RGB(255, 0, 255));
        CPen* old = dc.SelectObject(&pen);
        const POINT points[] = {{50, 40}, {90, 70}, {60, 90}};
        dc.Polyline(points, 3);
        dc.MoveTo(120, 10);
        dc.LineTo(150, 10);
        dc.SelectObject(old);
    });
    ExpectChangesInsideBounds("polygon", [](CDC& dc) {
        CBrush brush(RGB(0, 255, 255));
        CBrush* old = dc.SelectObject(&brush);
        const POINT points[] = {{100, 60}, {130, 100}, {80, 110}};
        dc.Polygon(points, 3);
        dc.SelectObject(old);
    });
    ExpectChangesInsideBounds("block copy", [](CDC& dc) {
        Canvas source(20, 20, RGB(255, 255, 255));
        dc.BitBlt(150, 80, 20, 20, &source.dc(), 0, 0, SRCCOPY);
    });
}

TEST(BoundsRect, FlagsEnableResetAndMapToLogicalCoordinates) {
    Canvas canvas(kWidth, kHeight, RGB(0, 0, 0));
    CDC& dc = canvas.dc();
    CRect bounds;
    // Off by default: drawing gathers nothing.
    dc.FillSolidRect(5, 5, 10, 10, RGB(255, 0, 0));
    EXPECT_EQ(dc.GetBoundsRect(&bounds, 0), UINT{DCB_RESET});
    EXPECT_TRUE(bounds.IsRectEmpty());

    // Enabling reports the state before: empty and disabled.
    EXPECT_EQ(dc.SetBoundsRect(nullptr, DCB_ENABLE), UINT{DCB_RESET | DCB_DISABLE});
    dc.FillSolidRect(5, 5, 10, 10, RGB(255, 0, 0));
    dc.FillSolidRect(40, 30, 2, 2, RGB(255, 0, 0));
    EXPECT_EQ(dc.GetBoundsRect(&bounds, 0), UINT{DCB_SET});
    EXPECT_EQ(bounds, CRect(5, 5, 42, 32));

    // A rectangle added by hand, given in any order, joins them.
    const RECT added{100, 90, 60, 50};
    EXPECT_EQ(dc.SetBoundsRect(&added, DCB_ACCUMULATE), UINT{DCB_SET | DCB_ENABLE});
    dc.GetBoundsRect(&bounds, 0);
    EXPECT_EQ(bounds, CRect(5, 5, 100, 90));

    // GetBoundsRect with DCB_RESET empties them after reading.
    EXPECT_EQ(dc.GetBoundsRect(&bounds, DCB_RESET), UINT{DCB_SET});
    EXPECT_EQ(dc.GetBoundsRect(&bounds, 0), UINT{DCB_RESET});

    // Read back in logical units under a mapping mode.
    dc.SetMapMode(MM_ANISOTROPIC);
    dc.SetWindowExt(1, 1);
    dc.SetViewportExt(2, 2);
    dc.FillSolidRect(10, 10, 5, 5, RGB(0, 255, 0));
    dc.GetBoundsRect(&bounds, DCB_RESET);
    EXPECT_EQ(bounds, CRect(10, 10, 15, 15));
    dc.SetMapMode(MM_TEXT);

    // Disabled again: nothing more is gathered, and bad handles fail.
    dc.SetBoundsRect(nullptr, DCB_DISABLE);
    dc.FillSolidRect(0, 0, 3, 3, RGB(0, 0, 255));
    EXPECT_EQ(dc.GetBoundsRect(&bounds, 0), UINT{DCB_RESET});
    EXPECT_EQ(::GetBoundsRect(nullptr, &bounds, 0), 0u);
    EXPECT_EQ(::SetBoundsRect(nullptr, nullptr, DCB_ENABLE), 0u);
}
