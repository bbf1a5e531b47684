// Font sizes scaled to a device's resolution, a DC's clip box painted in a
// colour, and the two grey frames drawn on a view's window; none of them
// leaves a pen, brush or DC behind.
#include "ViewFrames.h"

#include "support/Pixels.h"

#include <Win/Win.h>
#include <platform/GdiObjects.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

namespace {

using testing_support::Block;
using testing_support::PixelSet;

constexpr COLORREF kGrey = RGB(192, 192, 192);

// A printer DC at the resolution given, deleted with the object.
class Printer {
public:
    explicit Printer(int dpi) {
        platform::SetPrinterResolution(dpi);
        m_dc.Attach(CreateDC(u"WINSPOOL", u"PDF", nullptr, nullptr));
    }
    ~Printer() {
        m_dc.DeleteDC();
        platform::SetPrinterResolution(600);
    }
    CDC* dc() { return &m_dc; }

private:
    CDC m_dc;
};

TEST(ScaleFont, KeepsThePhysicalSizeOnAnotherDevice) {
    const platform::GdiCounts before = platform::LiveGdiObjects();
    {
        Printer printer(600);
        ASSERT_TRUE(printer.dc()->GetSafeHdc());
        EXPECT_EQ(WinUtils::ScaleFont(printer.dc(), 10), 63); // 62.5 rounded
        EXPECT_EQ(WinUtils::ScaleFont(printer.dc(), -10), -63);
        EXPECT_EQ(WinUtils::ScaleFont(printer.dc(), 12), 75);
        EXPECT_EQ(WinUtils::ScaleFont(printer.dc(), 0), 0);
    }
    {
        Printer printer(300);
        EXPECT_EQ(WinUtils::ScaleFont(printer.dc(), 10), 31); // 31.25
        EXPECT_EQ(WinUtils::ScaleFont(printer.dc(), 8), 25);
    }
    EXPECT_EQ(platform::LiveGdiObjects(), before);
    testing_support::Canvas memory(4, 4, RGB(0, 0, 0));
    EXPECT_EQ(WinUtils::ScaleFont(&memory.dc(), 10), 10);
    EXPECT_EQ(WinUtils::ScaleFont(nullptr, 10), 10);
}

TEST(PaintBackground, FillsTheWholeBitmapOfAMemoryDc) {
    testing_support::Canvas canvas(40, 30, RGB(255, 255, 255));
    CDC& dc = canvas.dc();
    CBrush* brush = dc.GetCurrentBrush();
    const platform::GdiCounts before = platform::LiveGdiObjects();
    WinUtils::PaintBackground(&dc, RGB(12, 34, 56));
    EXPECT_EQ(testing_support::PixelsOfColour(dc, CRect(0, 0, 40, 30), RGB(12, 34, 56)),
              Block(0, 0, 40, 30));
    EXPECT_EQ(dc.GetCurrentBrush()->GetSafeHandle(), brush->GetSafeHandle());
    EXPECT_EQ(platform::LiveGdiObjects(), before);
    WinUtils::PaintBackground(nullptr, RGB(1, 2, 3));
}

// A window that paints its background through the helper.
class Painted : public CWnd {
public:
    COLORREF colour = RGB(0, 0, 255);
    platform::GdiCounts counted;

protected:
    void OnPaint() override {
        CPaintDC dc(this);
        counted = platform::LiveGdiObjects();
        WinUtils::PaintBackground(&dc, colour);
        EXPECT_EQ(platform::LiveGdiObjects(), counted);
    }
};

TEST(PaintBackground, PaintsOnlyWhatThePaintHandlerMayPaint) {
    Painted wnd;
    ASSERT_TRUE(wnd.CreateEx(0, nullptr, u"Painted", WS_POPUP | WS_VISIBLE, CRect(10, 10, 110, 70),
                             nullptr, 0));
    wnd.Invalidate();
    wnd.UpdateWindow();
    wnd.colour = RGB(255, 0, 0);
    CRect part(10, 20, 30, 25);
    wnd.InvalidateRect(&part);
    wnd.UpdateWindow();
    CClientDC dc(&wnd);
    const CRect all(0, 0, 100, 60);
    EXPECT_EQ(testing_support::PixelsOfColour(dc, all, RGB(255, 0, 0)), Block(10, 20, 30, 25));
    EXPECT_EQ(testing_support::PixelsOfColour(dc, all, RGB(0, 0, 255)).size(), 100u * 60 - 100);
    wnd.DestroyWindow();
}

using PaintDialogFrame = utils_test::ViewFrameTest;

// The pixels of the grey colour in the view's window and just around it, in
// window coordinates.
PixelSet GreyAround(CWnd* view) {
    CRect window;
    view->GetWindowRect(&window);
    HDC screen = ::GetDC(nullptr);
    PixelSet grey;
    for (int y = -3; y < window.Height() + 3; ++y)
        for (int x = -3; x < window.Width() + 3; ++x)
            if (::GetPixel(screen, window.left + x, window.top + y) == kGrey)
                grey.emplace(x, y);
    ::ReleaseDC(nullptr, screen);
    return grey;
}

PixelSet Ring(int left, int top, int right, int bottom) {
    PixelSet ring = Block(left, top, right, bottom);
    for (const auto& p : Block(left + 1, top + 1, right - 1, bottom - 1))
        ring.erase(p);
    return ring;
}

TEST_F(PaintDialogFrame, OnADocumentsViewTheFirstFrameIsItsOuterEdge) {
    CView* view = OpenView(CRect(20, 20, 320, 220));
    ASSERT_TRUE(view);
    platform::PumpMessages();
    ASSERT_TRUE(GreyAround(view).empty());
    CRect client, window;
    view->GetClientRect(&client);
    view->GetWindowRect(&window);
    ASSERT_EQ(window.Width(), client.Width() + 4); // a sunken client edge
    const platform::GdiCounts before = platform::LiveGdiObjects();
    WinUtils::PaintDialogFrame(view);
    EXPECT_EQ(platform::LiveGdiObjects(), before);
    // The outer frame lies outside the window, where nothing is drawn.
    const PixelSet expected = Ring(0, 0, client.Width() + 4, client.Height() + 4);
    const PixelSet grey = GreyAround(view);
    EXPECT_EQ(grey, expected) << testing_support::Describe(expected, grey);
}

TEST_F(PaintDialogFrame, OnAThickerEdgeBothFramesShowWhereTheyFallInside) {
    CWnd parent;
    ASSERT_TRUE(parent.CreateEx(0, nullptr, u"Holder", WS_POPUP | WS_VISIBLE,
                                CRect(100, 100, 400, 300), nullptr, 0));
    auto* view = new utils_test::CPlainView();
    ASSERT_TRUE(view->CreateEx(WS_EX_CLIENTEDGE | WS_EX_STATICEDGE, nullptr, nullptr,
                               WS_CHILD | WS_VISIBLE, CRect(20, 30, 220, 130), &parent,
                               AFX_IDW_PANE_FIRST));
    platform::PumpMessages();
    CRect client;
    view->GetClientRect(&client);
    const int w = client.Width(), h = client.Height();
    ASSERT_EQ(CSize(w, h), CSize(194, 94)); // three pixels of edge on each side
    ASSERT_TRUE(GreyAround(view).empty());
    WinUtils::PaintDialogFrame(view);
    // The inner frame whole; of the outer one, the right and bottom edges.
    PixelSet expected = Ring(0, 0, w + 4, h + 4);
    for (const auto& p : Ring(-1, -1, w + 5, h + 5))
        if (p.first >= 0 && p.second >= 0)
            expected.insert(p);
    const PixelSet grey = GreyAround(view);
    EXPECT_EQ(grey, expected) << testing_support::Describe(expected, grey);
    parent.DestroyWindow();
}

TEST_F(PaintDialogFrame, NoViewWindowDrawsNothing) {
    HDC screen = ::GetDC(nullptr);
    const COLORREF corner = ::GetPixel(screen, 0, 0);
    WinUtils::PaintDialogFrame(nullptr);
    auto* unmade = new utils_test::CPlainView();
    WinUtils::PaintDialogFrame(unmade);
    delete unmade;
    EXPECT_EQ(::GetPixel(screen, 0, 0), corner);
    ::ReleaseDC(nullptr, screen);
}

} // namespace
