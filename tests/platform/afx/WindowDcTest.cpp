// The framework's whole-window DC: its origin is the window's top-left
// corner, frame and caption included, its output stays inside the window,
// and it goes back to the system when the object goes.
#include <afxwin.h>
#include <platform/GdiObjects.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

namespace {

COLORREF Desktop(int x, int y) {
    HDC screen = GetDC(nullptr);
    COLORREF colour = GetPixel(screen, x, y);
    ReleaseDC(nullptr, screen);
    return colour;
}

TEST(WindowDc, DrawsOnTheWholeWindowFromItsCorner) {
    CWnd wnd;
    ASSERT_TRUE(wnd.CreateEx(0, nullptr, u"Framed", WS_POPUP | WS_CAPTION | WS_VISIBLE,
                             CRect(100, 120, 300, 270), nullptr, 0));
    platform::PumpMessages();
    const platform::GdiCounts before = platform::LiveGdiObjects();
    const COLORREF outside = Desktop(99, 119);
    {
        CWindowDC dc(&wnd);
        ASSERT_TRUE(dc.GetSafeHdc());
        CRect clip;
        EXPECT_EQ(dc.GetClipBox(&clip), SIMPLEREGION);
        EXPECT_EQ(clip, CRect(0, 0, 200, 150));
        dc.SetPixel(0, 0, RGB(255, 0, 0));
        dc.SetPixel(199, 149, RGB(0, 255, 0));
        dc.SetPixel(-1, -1, RGB(0, 0, 255)); // outside the window: not drawn
        CPoint client(0, 0);
        wnd.ClientToScreen(&client);
        dc.SetPixel(client.x - 100, client.y - 120, RGB(1, 2, 3));
        EXPECT_EQ(Desktop(client.x, client.y), RGB(1, 2, 3));
        EXPECT_NE(client, CPoint(100, 120)); // the caption lies above the client area
    }
    EXPECT_EQ(Desktop(100, 120), RGB(255, 0, 0));
    EXPECT_EQ(Desktop(299, 269), RGB(0, 255, 0));
    EXPECT_EQ(Desktop(99, 119), outside);
    EXPECT_EQ(platform::LiveGdiObjects(), before);
    wnd.DestroyWindow();
}

TEST(WindowDc, NoWindowMeansTheScreen) {
    const platform::GdiCounts before = platform::LiveGdiObjects();
    {
        CWindowDC dc(nullptr);
        CRect clip;
        dc.GetClipBox(&clip);
        EXPECT_EQ(clip, CRect(0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)));
        EXPECT_EQ(dc.GetDeviceCaps(LOGPIXELSY), 96);
    }
    EXPECT_EQ(platform::LiveGdiObjects(), before);
}

TEST(WindowDc, TheTopOfTheZOrderIsTheNullHandle) {
    EXPECT_EQ(CWnd::wndTop.GetSafeHwnd(), HWND_TOP);
    CWnd lower, upper;
    ASSERT_TRUE(lower.CreateEx(0, nullptr, u"lower", WS_POPUP, CRect(0, 0, 10, 10), nullptr, 0));
    ASSERT_TRUE(upper.CreateEx(0, nullptr, u"upper", WS_POPUP, CRect(0, 0, 10, 10), nullptr, 0));
    EXPECT_EQ(::GetTopWindow(nullptr), upper.GetSafeHwnd());
    lower.SetWindowPos(&CWnd::wndTop, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    EXPECT_EQ(::GetTopWindow(nullptr), lower.GetSafeHwnd());
    lower.DestroyWindow();
    upper.DestroyWindow();
}

} // namespace
