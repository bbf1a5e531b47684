// The colour status bar: the first pane's text and one space in white on
// dark blue at (0, 3), in the bar's own font, and nothing else; an empty
// text leaves an empty bar; painting leaves no drawing object behind.
#include "support/Pixels.h"

#include <Win/controls/CColorStatusBar.h>
#include <platform/GdiObjects.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

namespace {

using testing_support::PixelSet;

constexpr UINT IDS_INDICATOR_CAPS = 901;
constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kDarkBlue = 0x800000;

class ColorStatusBarTest : public ::testing::Test {
protected:
    void SetUp() override {
        frame = new CFrameWnd;
        ASSERT_TRUE(frame->Create(nullptr, u"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                  CRect(100, 100, 600, 400)));
        frameWindow = frame->m_hWnd;
        ASSERT_TRUE(bar.Create(frame));
        const UINT ids[] = {ID_SEPARATOR, IDS_INDICATOR_CAPS};
        ASSERT_TRUE(bar.SetIndicators(ids, 2));
        frame->RecalcLayout();
        bar.GetClientRect(&client);
    }
    void TearDown() override {
        ::DestroyWindow(frameWindow);
        platform::PumpMessages();
    }
    void Repaint() {
        bar.Invalidate();
        bar.UpdateWindow();
    }
    // Every pixel of the bar of the colour, after a repaint.
    PixelSet Pixels(COLORREF colour) {
        Repaint();
        CDC* dc = bar.GetDC();
        PixelSet pixels = testing_support::PixelsOfColour(*dc, client, colour);
        bar.ReleaseDC(dc);
        return pixels;
    }
    // The box TextOut fills for text in the bar's font.
    CRect TextBox(const CString& text) {
        CClientDC dc(&bar);
        CFont* old = dc.SelectObject(bar.GetFont());
        TEXTMETRIC tm{};
        dc.GetTextMetrics(&tm);
        const CSize extent = dc.GetTextExtent(text);
        dc.SelectObject(old);
        return CRect(0, 3, extent.cx, 3 + tm.tmHeight);
    }

    CFrameWnd* frame = nullptr;
    HWND frameWindow = nullptr;
    CColorStatusBar bar;
    CRect client;
};

TEST_F(ColorStatusBarTest, TheFirstPaneShowsInWhiteOnDarkBlueWithATrailingSpace) {
    bar.SetPaneText(0, u"Ready");
    const CRect box = TextBox(u"Ready ");
    ASSERT_LT(box.bottom, client.bottom + 1);
    const PixelSet white = Pixels(kWhite);
    const PixelSet blue = Pixels(kDarkBlue);
    // The box is all white and blue, and holds both.
    EXPECT_EQ(testing_support::Union(white, blue),
              testing_support::Block(0, 3, box.right, box.bottom))
        << testing_support::Describe(testing_support::Block(0, 3, box.right, box.bottom),
                                     testing_support::Union(white, blue));
    EXPECT_GT(white.size(), 30u);
    // The trailing space is a column of blue as wide as a space.
    const int withoutSpace = TextBox(u"Ready").right;
    ASSERT_LT(withoutSpace, box.right);
    for (int y = box.top; y < box.bottom; ++y)
        for (int x = withoutSpace + 1; x < box.right; ++x)
            EXPECT_TRUE(blue.count({x, y})) << x << "," << y;
    // The text starts at the left edge, three pixels below the top: rows 0
    // to 2 are the face, and nothing is drawn past the box.
    const PixelSet face = Pixels(::GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(face.size() + white.size() + blue.size(),
              static_cast<std::size_t>(client.Width() * client.Height()));
    for (int x = 0; x < client.right; ++x)
        EXPECT_TRUE(face.count({x, 2})) << x;
}

TEST_F(ColorStatusBarTest, TheTextIsDrawnWithTheBarsOwnFont) {
    LOGFONT lf{};
    lf.lfHeight = -15;
    const char16_t name[] = u"Liberation Serif";
    std::copy(std::begin(name), std::end(name), lf.lfFaceName);
    CFont font;
    ASSERT_TRUE(font.CreateFontIndirect(&lf));
    bar.SetFont(&font);
    frame->RecalcLayout();
    bar.GetClientRect(&client);
    bar.SetPaneText(0, u"Fonts differ: Wg");
    // The same text drawn the same way on a canvas of the bar's size.
    testing_support::Canvas canvas(client.Width(), client.Height(), ::GetSysColor(COLOR_BTNFACE));
    CFont* old = canvas.dc().SelectObject(&font);
    canvas.dc().SetBkColor(kDarkBlue);
    canvas.dc().SetTextColor(kWhite);
    canvas.dc().TextOut(0, 3, CString(u"Fonts differ: Wg "));
    canvas.dc().SelectObject(old);
    const PixelSet expected = testing_support::PixelsOfColour(canvas.dc(), client, kWhite);
    const PixelSet shown = Pixels(kWhite);
    EXPECT_EQ(shown, expected) << testing_support::Describe(expected, shown);
    EXPECT_EQ(Pixels(kDarkBlue), testing_support::PixelsOfColour(canvas.dc(), client, kDarkBlue));
    bar.SetFont(nullptr);
}

TEST_F(ColorStatusBarTest, AnEmptyTextLeavesAnEmptyBarAtTheNextRepaint) {
    bar.SetPaneText(0, u"Busy");
    ASSERT_FALSE(Pixels(kWhite).empty());
    bar.SetPaneText(0, u"");
    const PixelSet face = Pixels(::GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(face.size(), static_cast<std::size_t>(client.Width() * client.Height()));
    // The repaint validated the bar.
    CRect update;
    EXPECT_FALSE(bar.GetUpdateRect(&update));
}

TEST_F(ColorStatusBarTest, ABarWithoutPanesShowsNothing) {
    ASSERT_TRUE(bar.SetIndicators(nullptr, 0));
    const PixelSet face = Pixels(::GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(face.size(), static_cast<std::size_t>(client.Width() * client.Height()));
}

TEST_F(ColorStatusBarTest, PaintingLeavesNoDrawingObjectBehind) {
    bar.SetPaneText(0, u"Ready");
    Repaint();
    const platform::GdiCounts before = platform::LiveGdiObjects();
    for (const char16_t* text : {u"One", u"", u"Three and more"}) {
        bar.SetPaneText(0, text);
        Repaint();
    }
    EXPECT_EQ(platform::LiveGdiObjects(), before) << platform::ToString(platform::LiveGdiObjects());
}

} // namespace
