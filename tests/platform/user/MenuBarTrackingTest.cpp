// The menu bar under the mouse and the keyboard: a press on an item opens
// its drop-down under it, the pointer moving along the bar or Left and Right
// open the others, pop-ups cascade from the drop-downs, and a pick becomes
// the window's WM_COMMAND.
#include <windows.h>

#include <platform/Automation.h>
#include <platform/MessagePump.h>
#include <platform/WindowPictures.h>

#include "support/TempDir.h"

#include <cairo.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

namespace automation = platform::automation;

constexpr UINT ID_OPEN = 101, ID_ONE = 102, ID_TWO = 103, ID_EXIT = 104, ID_COPY = 105,
               ID_HELP = 106;

std::vector<std::string> g_messages;
// The bar items selected, as WM_MENUSELECT tells them.
std::vector<int> g_barSelected;

LRESULT RecordingProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_MENUSELECT && lParam && reinterpret_cast<HMENU>(lParam) == GetMenu(hwnd))
        g_barSelected.push_back(LOWORD(wParam));
    if (message == WM_COMMAND)
        g_messages.push_back("command " + std::to_string(LOWORD(wParam)));
    else if (message == WM_INITMENU)
        g_messages.push_back("init menu");
    else if (message == WM_INITMENUPOPUP)
        g_messages.push_back("init popup " + std::to_string(LOWORD(lParam)));
    else if (message == WM_ENTERMENULOOP || message == WM_EXITMENULOOP)
        g_messages.push_back(message == WM_ENTERMENULOOP ? "enter" : "exit");
    return DefWindowProc(hwnd, message, wParam, lParam);
}

class MenuBarTrackingTest : public ::testing::Test {
protected:
    void SetUp() override {
        automation::Reset();
        g_messages.clear();
        g_barSelected.clear();
        WNDCLASS wc{};
        wc.lpfnWndProc = RecordingProc;
        wc.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
        wc.lpszClassName = u"MenuBarTracking";
        RegisterClass(&wc);
        HMENU bar = CreateMenu();
        HMENU file = CreatePopupMenu();
        HMENU recent = CreatePopupMenu();
        HMENU edit = CreatePopupMenu();
        AppendMenu(recent, MF_STRING, ID_ONE, u"&1 one.txt");
        AppendMenu(recent, MF_STRING, ID_TWO, u"&2 two.txt");
        AppendMenu(file, MF_STRING, ID_OPEN, u"&Open");
        AppendMenu(file, MF_POPUP, reinterpret_cast<UINT_PTR>(recent), u"&Recent");
        AppendMenu(file, MF_STRING, ID_EXIT, u"E&xit");
        AppendMenu(edit, MF_STRING, ID_COPY, u"&Copy");
        AppendMenu(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(file), u"&File");
        AppendMenu(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(edit), u"&Edit");
        AppendMenu(bar, MF_STRING, ID_HELP, u"&Help");
        window = CreateWindowEx(0, u"MenuBarTracking", u"Bar", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50,
                                60, 400, 300, nullptr, bar, nullptr, nullptr);
        ASSERT_TRUE(window);
        origin = POINT{0, 0};
        ClientToScreen(window, &origin);
        barY = origin.y - GetSystemMetrics(SM_CYMENU) / 2;
        // The mouse pointer, drawn in pictures, stays out of the way.
        GetCursorPos(&pointer);
        SetCursorPos(5, 5);
    }
    void TearDown() override {
        DestroyWindow(window);
        platform::PumpMessages();
        UnregisterClass(u"MenuBarTracking", nullptr);
        automation::Reset();
        SetCursorPos(pointer.x, pointer.y);
    }
    // A press on the bar at x (screen), as the mouse makes it, and the
    // menu's loop run to its end.
    void PressBar(int x) {
        PostMessage(window, WM_NCLBUTTONDOWN, HTMENU, MAKELPARAM(x, barY));
        platform::PumpMessages();
    }
    // The colour at (x, y) of a PNG picture.
    static COLORREF PixelAt(const std::string& path, int x, int y) {
        cairo_surface_t* image = cairo_image_surface_create_from_png(path.c_str());
        cairo_surface_flush(image);
        const uint32_t p =
            *reinterpret_cast<const uint32_t*>(cairo_image_surface_get_data(image) +
                                               y * cairo_image_surface_get_stride(image) + 4 * x);
        cairo_surface_destroy(image);
        return RGB((p >> 16) & 0xFF, (p >> 8) & 0xFF, p & 0xFF);
    }
    // The first item of the open drop-down, or "" with none open.
    static std::u16string OpenFirstItem() {
        automation::PopupMenuView view;
        return automation::ReadPopupMenu(&view) ? view.items[0].text : u"";
    }

    HWND window = nullptr;
    POINT pointer{};
    POINT origin{};
    int barY = 0;
};

TEST_F(MenuBarTrackingTest, APressOpensTheDropDownUnderItsItemAndAPickIsACommand) {
    automation::PopupMenuView view;
    automation::Do([&] { automation::ReadPopupMenu(&view); });
    automation::PickPopupMenuItem(ID_TWO);
    PressBar(origin.x + 10);
    ASSERT_EQ(view.items.size(), 3u);
    EXPECT_EQ(view.items[0].text, u"&Open");
    // Under the bar, from its first item's left end.
    EXPECT_EQ(view.rect.top, origin.y);
    EXPECT_EQ(view.rect.left, origin.x);
    // The pick went through the Recent pop-up.
    EXPECT_EQ(g_messages, (std::vector<std::string>{"enter", "init menu", "init popup 0",
                                                    "init popup 1", "exit", "command 103"}));
    automation::PopupMenuView none;
    EXPECT_FALSE(automation::ReadPopupMenu(&none));
}

TEST_F(MenuBarTrackingTest, TheOpenItemIsDrawnOnTheHotBandUntilTheMenuCloses) {
    const auto dir = testing_support::TestOutputDir("menu-bar");
    const std::string open = (dir / "open.png").string();
    const std::string closed = (dir / "closed.png").string();
    const RECT band{origin.x, origin.y - GetSystemMetrics(SM_CYMENU), origin.x + 4, origin.y};
    automation::Do([&] { platform::SaveDesktopAreaAsPng(band, open); });
    automation::DismissPopupMenu();
    PressBar(origin.x + 10);
    platform::SaveDesktopAreaAsPng(band, closed);
    EXPECT_EQ(PixelAt(open, 1, 1), RGB(145, 201, 247));
    EXPECT_EQ(PixelAt(closed, 1, 1), GetSysColor(COLOR_MENUBAR));
}

TEST_F(MenuBarTrackingTest, MovingAlongTheBarAndLeftAndRightOpenTheOtherDropDowns) {
    // The pointer moves right along the bar a few pixels at a time.
    std::vector<std::u16string> seen;
    for (int x = origin.x + 10; x < origin.x + 200; x += 6) {
        automation::Do(
            [&, x] { PostMessage(window, WM_NCMOUSEMOVE, HTMENU, MAKELPARAM(x, barY)); });
        automation::Do([&] {
            const std::u16string first = OpenFirstItem();
            if (seen.empty() || seen.back() != first)
                seen.push_back(first);
        });
    }
    // Right from Edit passes over Help, a command of the bar itself, back to
    // File; Left goes back to Edit.
    automation::Key(VK_RIGHT);
    automation::Do([&] { seen.push_back(OpenFirstItem()); });
    automation::Key(VK_LEFT);
    automation::Do([&] { seen.push_back(OpenFirstItem()); });
    automation::Key(VK_DOWN);
    automation::Key(VK_RETURN);
    PressBar(origin.x + 10);
    EXPECT_EQ(seen, (std::vector<std::u16string>{u"&Open", u"&Copy", u"&Open", u"&Copy"}));
    EXPECT_EQ(g_messages.back(), "command 105");
}

TEST_F(MenuBarTrackingTest, PressesOnTheOpenItemOrElsewhereCloseWithoutACommand) {
    automation::Do(
        [&] { PostMessage(window, WM_NCLBUTTONDOWN, HTMENU, MAKELPARAM(origin.x + 10, barY)); });
    PressBar(origin.x + 10);
    automation::ClickAt(window, POINT{100, 100});
    PressBar(origin.x + 10);
    // Escape closes the drop-down, leaving its item selected on the bar, and
    // then the menu.
    automation::PopupMenuView view;
    bool open = true;
    automation::Key(VK_ESCAPE);
    automation::Do([&] { open = automation::ReadPopupMenu(&view); });
    automation::Key(VK_ESCAPE);
    PressBar(origin.x + 10);
    EXPECT_FALSE(open);
    for (const std::string& message : g_messages)
        EXPECT_EQ(message.rfind("command", 0), std::string::npos) << message;
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(MenuBarTrackingTest, ACommandOnTheBarItselfIsPickedAtOnce) {
    // Help lies right of File and Edit: pressed along the bar until it
    // answers (the drop-downs on the way close for want of a user).
    bool picked = false;
    for (int x = origin.x + 10; x < origin.x + 300 && !picked; x += 6) {
        g_messages.clear();
        PressBar(x);
        picked = !g_messages.empty() && g_messages.back() == "command 106";
    }
    ASSERT_TRUE(picked);
    EXPECT_EQ(g_messages, (std::vector<std::string>{"enter", "init menu", "exit", "command 106"}));
}

TEST_F(MenuBarTrackingTest, AltWithALetterOrF10OpensTheBarFromTheKeyboard) {
    constexpr LPARAM kAltHeld = 1 << 29;
    // Alt+E opens Edit with its first item hot, which Enter picks.
    automation::Key(VK_RETURN);
    PostMessage(window, WM_SYSCHAR, u'e', kAltHeld);
    platform::PumpMessages();
    EXPECT_EQ(g_messages.back(), "command 105");
    // F10 selects the first item of the bar: Down opens it, down to Recent,
    // into it, Enter.
    automation::Key(VK_DOWN);
    automation::Key(VK_DOWN);
    automation::Key(VK_RIGHT);
    automation::Key(VK_RETURN);
    PostMessage(window, WM_SYSKEYDOWN, VK_F10, 1);
    platform::PumpMessages();
    EXPECT_EQ(g_messages.back(), "command 102");
    // From an edit field with the focus too.
    HWND edit = CreateWindowEx(0, u"EDIT", u"", WS_CHILD | WS_VISIBLE, 10, 10, 100, 20, window,
                               nullptr, nullptr, nullptr);
    SetFocus(edit);
    automation::Key(VK_RETURN);
    automation::Key(VK_RETURN);
    PostMessage(edit, WM_SYSKEYDOWN, VK_F10, 1);
    platform::PumpMessages();
    EXPECT_EQ(g_messages.back(), "command 101");
    // Help is a command of the bar itself; a letter nothing underlines does
    // nothing; Alt+F4 closes the window.
    PostMessage(window, WM_SYSCHAR, u'h', kAltHeld);
    PostMessage(window, WM_SYSCHAR, u'q', kAltHeld);
    platform::PumpMessages();
    EXPECT_EQ(g_messages.back(), "command 106");
    PostMessage(window, WM_SYSKEYDOWN, VK_F4, kAltHeld);
    platform::PumpMessages();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(MenuBarTrackingTest, FromTheKeyboardTheMnemonicsAreUnderlined) {
    const auto dir = testing_support::TestOutputDir("menu-bar");
    // The text colour's pixels in the drop-down and the bar, opened by the
    // mouse and from the keyboard.
    auto ink = [](const std::string& path) {
        cairo_surface_t* image = cairo_image_surface_create_from_png(path.c_str());
        const int width = cairo_image_surface_get_width(image);
        const int height = cairo_image_surface_get_height(image);
        const int stride = cairo_image_surface_get_stride(image);
        const unsigned char* data = cairo_image_surface_get_data(image);
        int count = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                count +=
                    (*reinterpret_cast<const uint32_t*>(data + y * stride + x * 4) & 0xFFFFFF) == 0;
        cairo_surface_destroy(image);
        return count;
    };
    auto shoot = [&](const std::string& name) {
        const std::string path = (dir / name).string();
        automation::Do([&, path] {
            automation::PopupMenuView view;
            automation::ReadPopupMenu(&view);
            RECT area = view.rect;
            area.top -= GetSystemMetrics(SM_CYMENU);
            platform::SaveDesktopAreaAsPng(area, path);
        });
        automation::DismissPopupMenu();
        return path;
    };
    const std::string byMouse = shoot("by-mouse.png");
    PressBar(origin.x + 10);
    automation::Key(VK_DOWN);
    const std::string byKey = shoot("by-key.png");
    PostMessage(window, WM_SYSKEYDOWN, VK_F10, 1);
    platform::PumpMessages();
    // One underline under each of File's and its three items' letters.
    EXPECT_GT(ink(byKey), ink(byMouse) + 4 * 4);
}

TEST_F(MenuBarTrackingTest, AltAloneSelectsTheBarAndTheKeysMoveAlongIt) {
    // Alt pressed and released: File selected on the hot band, its letter
    // underlined, nothing open; Right passes Edit to Help, a command of the
    // bar, which Enter picks.
    const std::string selected =
        (testing_support::TestOutputDir("menu-bar") / "alt-selected.png").string();
    const int barHeight = GetSystemMetrics(SM_CYMENU);
    bool open = true;
    automation::Do([&] {
        automation::PopupMenuView view;
        open = automation::ReadPopupMenu(&view);
        platform::SaveDesktopAreaAsPng(
            RECT{origin.x, origin.y - barHeight, origin.x + 120, origin.y}, selected);
    });
    automation::Key(VK_RIGHT);
    automation::Key(VK_RIGHT);
    automation::Key(VK_RETURN);
    PostMessage(window, WM_SYSKEYDOWN, VK_MENU, 1 << 29);
    PostMessage(window, WM_SYSKEYUP, VK_MENU, static_cast<LPARAM>(0xC0000001u));
    platform::PumpMessages();
    EXPECT_FALSE(open);
    EXPECT_EQ(PixelAt(selected, 1, 1), RGB(145, 201, 247));
    EXPECT_EQ(g_barSelected, (std::vector<int>{0, 1, ID_HELP}));
    EXPECT_EQ(g_messages, (std::vector<std::string>{"enter", "init menu", "exit", "command 106"}));
    // A letter opens the item it underlines, with its first item hot.
    g_messages.clear();
    automation::Key('E');
    automation::Key(VK_RETURN);
    PostMessage(window, WM_SYSKEYDOWN, VK_MENU, 1 << 29);
    PostMessage(window, WM_SYSKEYUP, VK_MENU, static_cast<LPARAM>(0xC0000001u));
    platform::PumpMessages();
    EXPECT_EQ(g_messages.back(), "command 105");
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(MenuBarTrackingTest, AltWithAnotherKeyOrAClickBetweenOrAltInTheMenuSelectsNothing) {
    constexpr LPARAM kAltHeld = 1 << 29;
    const auto altUp = static_cast<LPARAM>(0xC0000001u);
    // Alt with a key pressed in between.
    PostMessage(window, WM_SYSKEYDOWN, VK_MENU, kAltHeld);
    PostMessage(window, WM_SYSKEYDOWN, VK_SHIFT, kAltHeld);
    PostMessage(window, WM_SYSKEYUP, VK_SHIFT, kAltHeld | altUp);
    PostMessage(window, WM_SYSKEYUP, VK_MENU, altUp);
    // Alt with a click in between.
    PostMessage(window, WM_SYSKEYDOWN, VK_MENU, kAltHeld);
    PostMessage(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 20));
    PostMessage(window, WM_LBUTTONUP, 0, MAKELPARAM(20, 20));
    PostMessage(window, WM_SYSKEYUP, VK_MENU, altUp);
    platform::PumpMessages();
    EXPECT_TRUE(g_messages.empty());
    // Alt in an open menu closes it, and its release opens nothing again.
    automation::Do([&] {
        PostMessage(window, WM_SYSKEYDOWN, VK_MENU, kAltHeld);
        PostMessage(window, WM_SYSKEYUP, VK_MENU, altUp);
    });
    PressBar(origin.x + 10);
    platform::PumpMessages();
    EXPECT_EQ(std::count(g_messages.begin(), g_messages.end(), "enter"), 1);
    EXPECT_EQ(g_messages.back(), "exit");
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(MenuBarTrackingTest, WithNoneOpenAPressOnAnItemOpensItAndEscapeEnds) {
    std::u16string first;
    automation::Do(
        [&] { PostMessage(window, WM_NCLBUTTONDOWN, HTMENU, MAKELPARAM(origin.x + 10, barY)); });
    automation::Do([&] { first = OpenFirstItem(); });
    // Back to the bar, then out of the menu.
    automation::Key(VK_ESCAPE);
    automation::Key(VK_ESCAPE);
    PostMessage(window, WM_SYSKEYDOWN, VK_F10, 1);
    platform::PumpMessages();
    EXPECT_EQ(first, u"&Open");
    EXPECT_EQ(g_messages.back(), "exit");
    for (const std::string& message : g_messages)
        EXPECT_EQ(message.rfind("command", 0), std::string::npos) << message;
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

} // namespace
