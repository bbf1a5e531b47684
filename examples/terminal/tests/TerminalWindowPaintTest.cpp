// What the terminal window shows: whether the screen's picture is kept up
// cell by cell (small writes, selection) or redrawn whole (a burst), the
// window holds the same pixels as a full repaint of the screen, plus the
// cursor bar.
#include "TerminalWindowSupport.h"
#include "support/Pixels.h"

namespace {

// Pixels of the window's client area that differ from a full repaint of its
// screen, outside the cursor's cell.
int DifferingPixels(TerminalWindow& window) {
    RECT client;
    window.GetClientRect(&client);
    ScreenBuffer& screen = window.Screen();
    testing_support::Canvas reference(client.right, client.bottom, screen.GetBkColor());
    CFont* oldFont = reference.dc().GetCurrentFont();
    screen.Refresh(&reference.dc());
    reference.dc().SelectObject(oldFont);

    TerminalLayout& layout = window.Layout();
    const CSize cell = layout.GetCharSize();
    const int cursorX = layout.ColumnToX(std::min(screen.GetCol(), screen.VisColumns()) - 1);
    const int cursorY = layout.RowToY(screen.GetRow() - 1);
    CClientDC shown(&window);
    int differing = 0;
    for (int y = 0; y < client.bottom; ++y)
        for (int x = 0; x < client.right; ++x) {
            const bool inCursor =
                x >= cursorX && x < cursorX + cell.cx && y >= cursorY && y < cursorY + cell.cy;
            if (!inCursor && shown.GetPixel(x, y) != reference.dc().GetPixel(x, y))
                ++differing;
        }
    return differing;
}

TEST_F(TerminalWindowTest, SmallWritesAndSelectionsKeepThePictureExact) {
    ASSERT_TRUE(Open({"sh", "-c",
                      "printf '\\033[7mreverse\\033[m and \\033[1mbold\\033[m\\r\\n'; "
                      "read x; echo got:$x; read y"}));
    ASSERT_TRUE(WaitFor("reverse and bold"));
    // Each typed key comes back as a one-byte echo, drawn into the picture.
    for (char16_t ch : std::u16string(u"typed")) {
        Type(std::u16string(1, ch));
        ASSERT_TRUE(RunUntil([&] { return !GetUpdateRect(*window, nullptr, FALSE); }));
    }
    Type(u"\r");
    ASSERT_TRUE(WaitFor("got:typed"));
    ASSERT_TRUE(RunUntil([&] { return !GetUpdateRect(*window, nullptr, FALSE); }));
    EXPECT_EQ(DifferingPixels(*window), 0);

    // A selection drawn into the picture, then grown and moved.
    const HWND hwnd = *window;
    POINT a = CellCentre(0, 2), b = CellCentre(1, 3), c = CellCentre(2, 1);
    PostMessage(hwnd, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(a.x, a.y));
    PostMessage(hwnd, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(b.x, b.y));
    PostMessage(hwnd, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(c.x, c.y));
    PostMessage(hwnd, WM_LBUTTONUP, 0, MAKELPARAM(c.x, c.y));
    ASSERT_TRUE(RunUntil([&] {
        return window->Screen().ActiveSelection() && !GetUpdateRect(hwnd, nullptr, FALSE);
    }));
    EXPECT_EQ(DifferingPixels(*window), 0);
}

TEST_F(TerminalWindowTest, ABurstIsRedrawnWhole) {
    ASSERT_TRUE(Open({"sh", "-c", "seq 1 3000; echo done; read x"}));
    ASSERT_TRUE(WaitFor("done"));
    ASSERT_TRUE(RunUntil([&] { return !GetUpdateRect(*window, nullptr, FALSE); }));
    EXPECT_EQ(DifferingPixels(*window), 0);
    // Then a small write on top of it.
    Type(u"x");
    ASSERT_TRUE(WaitFor("done\nx"));
    ASSERT_TRUE(RunUntil([&] { return !GetUpdateRect(*window, nullptr, FALSE); }));
    EXPECT_EQ(DifferingPixels(*window), 0);
}

} // namespace
