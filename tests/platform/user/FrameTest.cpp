// The non-client area: the frame each style gives, window and client
// rectangles, coordinates through the client origin, dialogs sized by their
// client area, and the frame and caption the default procedure draws.
#include <windows.h>

#include <platform/DialogUnits.h>
#include <platform/MessagePump.h>
#include <platform/ResourceTemplates.h>

#include <wingdi.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

LRESULT PlainProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProc(hwnd, message, wParam, lParam);
}

std::vector<LPARAM> g_sizes;

LRESULT SizeLogProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SIZE)
        g_sizes.push_back(lParam);
    return DefWindowProc(hwnd, message, wParam, lParam);
}

class FrameTest : public ::testing::Test {
protected:
    void SetUp() override {
        WNDCLASS wc{};
        wc.lpfnWndProc = PlainProc;
        wc.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
        wc.lpszClassName = u"FrameTestPlain";
        RegisterClass(&wc);
        wc.lpfnWndProc = SizeLogProc;
        wc.lpszClassName = u"FrameTestSizes";
        RegisterClass(&wc);
        g_sizes.clear();
    }
    void TearDown() override {
        for (HWND hwnd : windows)
            DestroyWindow(hwnd);
        platform::PumpMessages();
        UnregisterClass(u"FrameTestPlain", nullptr);
        UnregisterClass(u"FrameTestSizes", nullptr);
    }
    HWND Make(DWORD exStyle, DWORD style, int x, int y, int cx, int cy, HWND parent = nullptr,
              const char16_t* cls = u"FrameTestPlain", const char16_t* text = u"") {
        HWND hwnd = CreateWindowEx(exStyle, cls, text, style, x, y, cx, cy, parent, nullptr,
                                   nullptr, nullptr);
        if (hwnd && !parent)
            windows.push_back(hwnd);
        return hwnd;
    }
    static COLORREF Screen(int x, int y) {
        HDC screen = GetDC(nullptr);
        COLORREF colour = GetPixel(screen, x, y);
        ReleaseDC(nullptr, screen);
        return colour;
    }
    std::vector<HWND> windows;
};

struct Case {
    const char* name;
    DWORD style;
    DWORD exStyle;
    RECT insets; // left, top, right, bottom widths of the non-client area
};

TEST_F(FrameTest, EachStyleGivesTheOriginalsFrameInAdjustWindowRectAndInRealWindows) {
    const Case cases[] = {
        {"no frame", WS_POPUP, 0, {0, 0, 0, 0}},
        {"border", WS_POPUP | WS_BORDER, 0, {1, 1, 1, 1}},
        {"dialog frame", WS_POPUP | WS_DLGFRAME, 0, {3, 3, 3, 3}},
        {"modal frame", WS_POPUP, WS_EX_DLGMODALFRAME, {3, 3, 3, 3}},
        {"modal dialog", WS_POPUP | WS_CAPTION | WS_SYSMENU, WS_EX_DLGMODALFRAME, {3, 26, 3, 3}},
        {"caption", WS_POPUP | WS_CAPTION, 0, {3, 26, 3, 3}},
        {"sizing frame", WS_POPUP | WS_THICKFRAME, 0, {7, 7, 7, 7}},
        {"overlapped window", WS_OVERLAPPEDWINDOW, 0, {8, 31, 8, 8}},
        {"client edge", WS_POPUP, WS_EX_CLIENTEDGE, {2, 2, 2, 2}},
        {"static edge", WS_POPUP, WS_EX_STATICEDGE, {1, 1, 1, 1}},
        {"border and client edge", WS_POPUP | WS_BORDER, WS_EX_CLIENTEDGE, {3, 3, 3, 3}},
        {"overlapped with edges", WS_OVERLAPPEDWINDOW, WS_EX_OVERLAPPEDWINDOW, {10, 33, 10, 10}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        RECT rect{100, 100, 300, 250};
        ASSERT_TRUE(AdjustWindowRectEx(&rect, c.style, FALSE, c.exStyle));
        EXPECT_EQ(100 - rect.left, c.insets.left);
        EXPECT_EQ(100 - rect.top, c.insets.top);
        EXPECT_EQ(rect.right - 300, c.insets.right);
        EXPECT_EQ(rect.bottom - 250, c.insets.bottom);

        // A window of that size has a client area of 200 x 150 at the inset.
        HWND hwnd = Make(c.exStyle, c.style, rect.left, rect.top, rect.right - rect.left,
                         rect.bottom - rect.top);
        ASSERT_NE(hwnd, nullptr);
        RECT window, client;
        GetWindowRect(hwnd, &window);
        GetClientRect(hwnd, &client);
        EXPECT_EQ(window.left, rect.left);
        EXPECT_EQ(window.bottom, rect.bottom);
        EXPECT_EQ(client.right, 200);
        EXPECT_EQ(client.bottom, 150);
        POINT origin{0, 0};
        ClientToScreen(hwnd, &origin);
        EXPECT_EQ(origin.x, 100);
        EXPECT_EQ(origin.y, 100);
        ScreenToClient(hwnd, &origin);
        EXPECT_EQ(origin.x, 0);
        EXPECT_EQ(origin.y, 0);
    }
    // A menu bar adds its height above the client area.
    RECT withMenu{0, 0, 10, 10};
    AdjustWindowRect(&withMenu, WS_OVERLAPPEDWINDOW, TRUE);
    EXPECT_EQ(withMenu.top, -31 - GetSystemMetrics(SM_CYMENU));
    EXPECT_FALSE(AdjustWindowRectEx(nullptr, WS_CAPTION, FALSE, 0));
}

TEST_F(FrameTest, SystemMetricsAreTheWindows10OnesAt96Dpi) {
    EXPECT_EQ(GetSystemMetrics(SM_CXSCREEN), 1280);
    EXPECT_EQ(GetSystemMetrics(SM_CYSCREEN), 1024);
    EXPECT_EQ(GetSystemMetrics(SM_CXBORDER), 1);
    EXPECT_EQ(GetSystemMetrics(SM_CYBORDER), 1);
    EXPECT_EQ(GetSystemMetrics(SM_CYCAPTION), 23);
    EXPECT_EQ(GetSystemMetrics(SM_CXDLGFRAME), 3);
    EXPECT_EQ(GetSystemMetrics(SM_CXFIXEDFRAME), 3);
    EXPECT_EQ(GetSystemMetrics(SM_CXFRAME), 4);
    EXPECT_EQ(GetSystemMetrics(SM_CYSIZEFRAME), 4);
    EXPECT_EQ(GetSystemMetrics(SM_CXPADDEDBORDER), 4);
    EXPECT_EQ(GetSystemMetrics(SM_CXEDGE), 2);
    EXPECT_EQ(GetSystemMetrics(-1), 0);
    // The sizing frame of a captioned window is frame, padding and border.
    RECT rect{0, 0, 0, 0};
    AdjustWindowRectEx(&rect, WS_OVERLAPPEDWINDOW, FALSE, 0);
    EXPECT_EQ(-rect.left, GetSystemMetrics(SM_CXFRAME) + GetSystemMetrics(SM_CXPADDEDBORDER));
    EXPECT_EQ(-rect.top, -rect.left + GetSystemMetrics(SM_CYCAPTION));
}

TEST_F(FrameTest, PositionsAreWindowRectanglesAndSizesReportTheClientArea) {
    HWND parent = Make(0, WS_POPUP | WS_CAPTION | WS_VISIBLE, 50, 60, 300, 200);
    // A bordered child: its x and y place its frame in the parent's client
    // area; WM_SIZE carries its client size.
    HWND child =
        Make(0, WS_CHILD | WS_BORDER | WS_VISIBLE, 10, 20, 100, 40, parent, u"FrameTestSizes");
    ASSERT_NE(child, nullptr);
    ASSERT_FALSE(g_sizes.empty());
    EXPECT_EQ(LOWORD(g_sizes.back()), 98);
    EXPECT_EQ(HIWORD(g_sizes.back()), 38);
    RECT window;
    GetWindowRect(child, &window);
    EXPECT_EQ(window.left, 50 + 3 + 10);
    EXPECT_EQ(window.top, 60 + 26 + 20);
    EXPECT_EQ(window.right - window.left, 100);
    POINT origin{0, 0};
    ClientToScreen(child, &origin);
    EXPECT_EQ(origin.x, window.left + 1);
    EXPECT_EQ(origin.y, window.top + 1);

    MoveWindow(child, 0, 0, 60, 30, TRUE);
    EXPECT_EQ(LOWORD(g_sizes.back()), 58);
    EXPECT_EQ(HIWORD(g_sizes.back()), 28);
    SetWindowPos(child, nullptr, 5, 5, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    GetWindowRect(child, &window);
    EXPECT_EQ(window.left, 50 + 3 + 5);
    EXPECT_EQ(window.right - window.left, 60);

    // A style change takes effect on the frame with SWP_FRAMECHANGED.
    SetWindowLongPtr(child, GWL_EXSTYLE, WS_EX_CLIENTEDGE);
    RECT client;
    GetClientRect(child, &client);
    EXPECT_EQ(client.right, 58);
    SetWindowPos(child, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_FRAMECHANGED);
    GetClientRect(child, &client);
    EXPECT_EQ(client.right, 54);
    EXPECT_EQ(LOWORD(g_sizes.back()), 54);
}

platform::DialogTemplate FramedTemplate() {
    platform::DialogTemplate t;
    t.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT;
    t.caption = u"Framed";
    t.pointSize = 8;
    t.faceName = u"MS Shell Dlg";
    t.x = 40;
    t.y = 40;
    t.cx = 160;
    t.cy = 80;
    return t;
}

INT_PTR QuietDialogProc(HWND, UINT message, WPARAM, LPARAM) {
    return message == WM_INITDIALOG ? TRUE : FALSE;
}

TEST_F(FrameTest, ADialogsClientAreaIsItsTemplatesSize) {
    platform::DialogTemplate tmpl = FramedTemplate();
    HWND dialog = CreateDialogIndirectParam(nullptr, &tmpl, nullptr, QuietDialogProc, 0);
    ASSERT_NE(dialog, nullptr);
    auto font = reinterpret_cast<HFONT>(SendMessage(dialog, WM_GETFONT, 0, 0));
    platform::DialogBaseUnits base = platform::FontBaseUnits(font);
    RECT client, window;
    GetClientRect(dialog, &client);
    GetWindowRect(dialog, &window);
    EXPECT_EQ(client.right, MulDiv(160, base.cx, 4));
    EXPECT_EQ(client.bottom, MulDiv(80, base.cy, 8));
    // A modal frame and a caption around it.
    EXPECT_EQ(window.right - window.left, client.right + 6);
    EXPECT_EQ(window.bottom - window.top, client.bottom + 29);
    // The template's position is the client area's.
    POINT origin{0, 0};
    ClientToScreen(dialog, &origin);
    EXPECT_EQ(origin.x, MulDiv(40, base.cx, 4));
    EXPECT_EQ(origin.y, MulDiv(40, base.cy, 8));
    DestroyWindow(dialog);

    // Near the corner, the frame is kept on the desktop.
    tmpl.x = 1;
    tmpl.y = 1;
    dialog = CreateDialogIndirectParam(nullptr, &tmpl, nullptr, QuietDialogProc, 0);
    ASSERT_NE(dialog, nullptr);
    GetWindowRect(dialog, &window);
    EXPECT_EQ(window.left, 0);
    EXPECT_EQ(window.top, 0);
    DestroyWindow(dialog);
}

// The columns of the caption's text area holding ink of the given colour.
int InkIn(const RECT& area, COLORREF ink) {
    int count = 0;
    HDC screen = GetDC(nullptr);
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x)
            if (GetPixel(screen, x, y) == ink)
                ++count;
    ReleaseDC(nullptr, screen);
    return count;
}

TEST_F(FrameTest, TheCaptionShowsTheTextTheCloseBoxAndTheActiveState) {
    HWND hwnd = Make(0, WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE, 200, 300, 240, 120,
                     nullptr, u"FrameTestPlain", u"Hello World");
    ASSERT_EQ(GetActiveWindow(), hwnd);
    RECT window;
    GetWindowRect(hwnd, &window);
    // The text area of the caption, left of the close box.
    RECT text{window.left + 3, window.top + 3, window.right - 3 - GetSystemMetrics(SM_CXSIZE),
              window.top + 3 + 22};
    RECT box{text.right, text.top, window.right - 3, text.bottom};
    const COLORREF black = RGB(0, 0, 0);
    int inked = InkIn(text, black);
    EXPECT_GT(inked, 40);
    EXPECT_GT(InkIn(box, black), 10);
    // The caption is white around the text, and the outline is the accent.
    EXPECT_EQ(Screen(text.right - 2, text.top + 1), RGB(255, 255, 255));
    EXPECT_EQ(Screen(window.left, window.top + 50), RGB(0, 120, 215));

    // Longer text draws more ink; no text draws none.
    SetWindowText(hwnd, u"Hello World, and more of it");
    EXPECT_GT(InkIn(text, black), inked);
    SetWindowText(hwnd, u"");
    EXPECT_EQ(InkIn(text, black), 0);
    SetWindowText(hwnd, u"Hello World");

    // Another window taking the activation greys the caption.
    HWND other = Make(0, WS_POPUP | WS_VISIBLE, 600, 600, 50, 50);
    ASSERT_EQ(GetActiveWindow(), other);
    EXPECT_EQ(InkIn(text, black), 0);
    EXPECT_GT(InkIn(text, RGB(153, 153, 153)), 40);
    EXPECT_EQ(Screen(window.left, window.top + 50), RGB(170, 170, 170));
    SetActiveWindow(hwnd);
    EXPECT_EQ(InkIn(text, black), inked);
}

TEST_F(FrameTest, ChildrenDrawOnlyInsideTheirParentsClientArea) {
    HWND parent = Make(0, WS_POPUP | WS_CAPTION | WS_VISIBLE, 400, 100, 200, 150);
    HWND child = Make(0, WS_CHILD | WS_VISIBLE, -20, -20, 100, 100, parent);
    ASSERT_NE(child, nullptr);
    HDC hdc = GetWindowDC(child);
    RECT all{0, 0, 100, 100};
    HBRUSH red = CreateSolidBrush(RGB(255, 0, 0));
    FillRect(hdc, &all, red);
    DeleteObject(red);
    ReleaseDC(child, hdc);
    POINT origin{0, 0};
    ClientToScreen(parent, &origin);
    EXPECT_EQ(Screen(origin.x, origin.y), RGB(255, 0, 0));
    EXPECT_EQ(Screen(origin.x + 79, origin.y + 79), RGB(255, 0, 0));
    EXPECT_NE(Screen(origin.x + 80, origin.y + 80), RGB(255, 0, 0));
    // The parent's caption and frame stay as they were.
    EXPECT_NE(Screen(origin.x, origin.y - 1), RGB(255, 0, 0));
    EXPECT_NE(Screen(origin.x - 1, origin.y), RGB(255, 0, 0));
    // A window DC reaches the frame: its clip is the whole window.
    HDC whole = GetWindowDC(parent);
    RECT box;
    GetClipBox(whole, &box);
    EXPECT_EQ(box.right - box.left, 200);
    EXPECT_EQ(box.bottom - box.top, 150);
    ReleaseDC(parent, whole);
}

} // namespace
