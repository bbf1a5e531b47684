// Menus and accelerator tables through the window system's functions: items
// by command and by position, states, the menu bar taking its height from
// the client area and going with its window, and keys translated into
// commands only with exactly their modifiers and only while enabled.
#include <windows.h>

#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> g_messages;

LRESULT CommandRecordingProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND)
        g_messages.push_back("command " + std::to_string(LOWORD(wParam)) + " from " +
                             std::to_string(HIWORD(wParam)));
    else if (message == WM_INITMENU)
        g_messages.push_back("init menu");
    else if (message == WM_INITMENUPOPUP)
        g_messages.push_back("init popup " + std::to_string(LOWORD(lParam)));
    return DefWindowProc(hwnd, message, wParam, lParam);
}

class MenuTest : public ::testing::Test {
protected:
    void SetUp() override {
        g_messages.clear();
        WNDCLASS wc{};
        wc.lpfnWndProc = CommandRecordingProc;
        wc.lpszClassName = u"MenuRecording";
        RegisterClass(&wc);
        bar = CreateMenu();
        file = CreatePopupMenu();
        AppendMenu(file, MF_STRING, 101, u"&Open");
        AppendMenu(file, MF_SEPARATOR, 0, nullptr);
        AppendMenu(file, MF_STRING, 102, u"E&xit");
        AppendMenu(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(file), u"&File");
        AppendMenu(bar, MF_STRING, 103, u"&Help");
    }
    void TearDown() override {
        if (window)
            DestroyWindow(window);
        if (IsMenu(bar))
            DestroyMenu(bar);
        platform::PumpMessages();
        UnregisterClass(u"MenuRecording", nullptr);
    }
    HWND CreateWithMenu(HMENU menu) {
        window = CreateWindowEx(0, u"MenuRecording", u"Menus", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0,
                                0, 300, 200, nullptr, menu, nullptr, nullptr);
        return window;
    }
    static std::u16string Text(HMENU menu, UINT item, UINT flags) {
        WCHAR text[64] = {};
        GetMenuString(menu, item, text, 64, flags);
        return text;
    }
    HMENU bar = nullptr;
    HMENU file = nullptr;
    HWND window = nullptr;
};

} // namespace

TEST_F(MenuTest, ItemsAreFoundByPositionAndByCommandThroughThePopups) {
    EXPECT_EQ(GetMenuItemCount(bar), 2);
    EXPECT_EQ(GetSubMenu(bar, 0), file);
    EXPECT_EQ(GetMenuItemID(bar, 0), static_cast<UINT>(-1));
    EXPECT_EQ(GetMenuItemID(file, 1), 0u);
    EXPECT_EQ(GetMenuItemID(file, 2), 102u);
    EXPECT_EQ(Text(bar, 102, MF_BYCOMMAND), u"E&xit");
    EXPECT_EQ(Text(bar, 0, MF_BYPOSITION), u"&File");
    EXPECT_EQ(GetMenuString(bar, 999, nullptr, 0, MF_BYCOMMAND), 0);
    EXPECT_EQ(GetMenuState(bar, 0, MF_BYPOSITION), static_cast<UINT>(MF_POPUP | (3 << 8)));
    EXPECT_EQ(GetMenuState(bar, 999, MF_BYCOMMAND), static_cast<UINT>(-1));

    EXPECT_EQ(CheckMenuItem(bar, 101, MF_CHECKED), static_cast<DWORD>(MF_UNCHECKED));
    EXPECT_EQ(CheckMenuItem(bar, 101, MF_UNCHECKED), static_cast<DWORD>(MF_CHECKED));
    EXPECT_EQ(EnableMenuItem(bar, 102, MF_GRAYED), MF_ENABLED);
    EXPECT_EQ(GetMenuState(file, 102, MF_BYCOMMAND), static_cast<UINT>(MF_GRAYED));
    EXPECT_EQ(EnableMenuItem(bar, 999, MF_GRAYED), -1);

    ASSERT_TRUE(InsertMenu(file, 102, MF_BYCOMMAND | MF_STRING, 104, u"&Save"));
    EXPECT_EQ(GetMenuItemID(file, 2), 104u);
    ASSERT_TRUE(RemoveMenu(bar, 104, MF_BYCOMMAND));
    EXPECT_EQ(GetMenuItemCount(file), 3);
    EXPECT_FALSE(RemoveMenu(bar, 104, MF_BYCOMMAND));
}

TEST_F(MenuTest, DeletingAPopupDestroysItRemovingItDoesNot) {
    HMENU other = CreatePopupMenu();
    AppendMenu(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(other), u"&Other");
    ASSERT_TRUE(RemoveMenu(bar, 2, MF_BYPOSITION));
    EXPECT_TRUE(IsMenu(other));
    AppendMenu(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(other), u"&Other");
    ASSERT_TRUE(DeleteMenu(bar, 2, MF_BYPOSITION));
    EXPECT_FALSE(IsMenu(other));
    // Destroying the bar destroys its pop-ups.
    ASSERT_TRUE(DestroyMenu(bar));
    EXPECT_FALSE(IsMenu(file));
    EXPECT_FALSE(AppendMenu(bar, MF_STRING, 1, u"x"));
    EXPECT_EQ(GetMenuItemCount(bar), -1);
}

TEST_F(MenuTest, AMenuThatHoldsItselfIsStillSearchedAndDestroyed) {
    HMENU inner = CreatePopupMenu();
    AppendMenu(inner, MF_STRING, 7, u"x");
    ASSERT_TRUE(AppendMenu(file, MF_POPUP, reinterpret_cast<UINT_PTR>(inner), u"&Inner"));
    ASSERT_TRUE(AppendMenu(inner, MF_POPUP, reinterpret_cast<UINT_PTR>(bar), u"loop"));
    // Found through the loop, and a missing command is missing.
    EXPECT_EQ(GetMenuState(bar, 7, MF_BYCOMMAND), 0u);
    EXPECT_EQ(GetMenuState(bar, 4711, MF_BYCOMMAND), static_cast<UINT>(-1));
    EXPECT_EQ(CheckMenuItem(bar, 4711, MF_CHECKED), static_cast<DWORD>(-1));
    EXPECT_TRUE(DestroyMenu(bar));
    EXPECT_FALSE(IsMenu(inner));
}

TEST_F(MenuTest, TheMenuBarTakesItsHeightFromTheClientAreaAndGoesWithTheWindow) {
    ASSERT_NE(CreateWithMenu(nullptr), nullptr);
    RECT without;
    GetClientRect(window, &without);
    ASSERT_TRUE(SetMenu(window, bar));
    EXPECT_EQ(GetMenu(window), bar);
    RECT with;
    GetClientRect(window, &with);
    EXPECT_EQ(without.bottom - with.bottom, GetSystemMetrics(SM_CYMENU));
    ASSERT_TRUE(SetMenu(window, nullptr));
    GetClientRect(window, &with);
    EXPECT_EQ(with.bottom, without.bottom);

    ASSERT_TRUE(SetMenu(window, bar));
    DestroyWindow(window);
    window = nullptr;
    EXPECT_FALSE(IsMenu(bar));
}

TEST_F(MenuTest, AWindowCreatedWithAMenuHasItsBar) {
    ASSERT_NE(CreateWithMenu(bar), nullptr);
    EXPECT_EQ(GetMenu(window), bar);
    // A child window's menu argument is its id, never a menu.
    HWND child = CreateWindowEx(0, u"MenuRecording", u"child", WS_CHILD, 0, 0, 10, 10, window,
                                reinterpret_cast<HMENU>(uintptr_t{7}), nullptr, nullptr);
    EXPECT_EQ(GetMenu(child), nullptr);
    EXPECT_EQ(GetDlgCtrlID(child), 7);
    EXPECT_FALSE(SetMenu(child, bar));
}

TEST_F(MenuTest, AcceleratorsNeedExactlyTheirModifiersAndSendTheirCommands) {
    ASSERT_NE(CreateWithMenu(bar), nullptr);
    ACCEL entries[] = {{FVIRTKEY | FCONTROL, 'O', 101},
                       {FVIRTKEY | FCONTROL | FSHIFT, 'O', 105},
                       {FVIRTKEY, VK_F1, 103},
                       {0, 'q', 102}};
    HACCEL table = CreateAcceleratorTable(entries, 4);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(CopyAcceleratorTable(table, nullptr, 0), 4);

    auto press = [&](UINT message, WPARAM key, bool control, bool shift) {
        // The key state comes from the messages the thread has retrieved.
        if (control)
            PostMessage(window, WM_KEYDOWN, VK_CONTROL, 1);
        if (shift)
            PostMessage(window, WM_KEYDOWN, VK_SHIFT, 1);
        MSG msg{window, message, key, 1, 0, {0, 0}};
        platform::PumpMessages();
        int result = TranslateAccelerator(window, table, &msg);
        if (control)
            PostMessage(window, WM_KEYUP, VK_CONTROL, static_cast<LPARAM>(0xC0000001u));
        if (shift)
            PostMessage(window, WM_KEYUP, VK_SHIFT, static_cast<LPARAM>(0xC0000001u));
        platform::PumpMessages();
        return result;
    };
    EXPECT_EQ(press(WM_KEYDOWN, 'O', false, false), 0);
    EXPECT_NE(press(WM_KEYDOWN, 'O', true, false), 0);
    EXPECT_NE(press(WM_KEYDOWN, 'O', true, true), 0);
    EXPECT_NE(press(WM_KEYDOWN, VK_F1, false, false), 0);
    EXPECT_EQ(press(WM_KEYDOWN, VK_F1, true, false), 0);
    EXPECT_NE(press(WM_CHAR, 'q', false, false), 0);
    EXPECT_EQ(press(WM_KEYDOWN, 'Q', false, false), 0);

    // Each command in the menu is announced as the menu would be, and a
    // disabled item sends nothing.
    EXPECT_EQ(g_messages,
              (std::vector<std::string>{"init menu", "init popup 0", "command 101 from 1",
                                        "command 105 from 1", "init menu", "command 103 from 1",
                                        "init menu", "init popup 0", "command 102 from 1"}));
    g_messages.clear();
    EnableMenuItem(bar, 101, MF_GRAYED);
    EXPECT_NE(press(WM_KEYDOWN, 'O', true, false), 0);
    EXPECT_EQ(g_messages, (std::vector<std::string>{"init menu", "init popup 0"}));

    EXPECT_TRUE(DestroyAcceleratorTable(table));
    EXPECT_FALSE(DestroyAcceleratorTable(table));
    MSG msg{window, WM_KEYDOWN, 'O', 1, 0, {0, 0}};
    EXPECT_EQ(TranslateAccelerator(window, table, &msg), 0);
}

TEST_F(MenuTest, KeysReleasedForAWindowThatIsGoneAreStillReleased) {
    ASSERT_NE(CreateWithMenu(nullptr), nullptr);
    PostMessage(window, WM_KEYDOWN, VK_CONTROL, 1);
    platform::PumpMessages();
    EXPECT_LT(GetKeyState(VK_CONTROL), 0);
    PostMessage(window, WM_KEYUP, VK_CONTROL, static_cast<LPARAM>(0xC0000001u));
    DestroyWindow(window);
    window = nullptr;
    EXPECT_GE(GetKeyState(VK_CONTROL), 0);
}
