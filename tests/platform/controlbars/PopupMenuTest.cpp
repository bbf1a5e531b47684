// Shortcut menus: TrackPopupMenu answered by the simulated user (a pick, the
// keyboard, Escape, a click elsewhere, nobody at all), what the owner is
// told, where the menu opens, how it looks, and the calls it refuses.
#include <afxwin.h>

#include <platform/Automation.h>
#include <platform/MessagePump.h>
#include <platform/WindowPictures.h>

#include "support/TempDir.h"

#include <cairo.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

namespace automation = platform::automation;

constexpr UINT ID_OPEN = 40001;
constexpr UINT ID_SAVE = 40002;
constexpr UINT ID_CLOSE = 40003;
constexpr UINT ID_NESTED = 40004;

std::vector<UINT> g_messages;
std::vector<UINT> g_commands;
// Greys ID_SAVE when the menu opens, as a host's update handler would.
bool g_greySave = false;

LRESULT OwnerProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_ENTERMENULOOP:
    case WM_EXITMENULOOP:
        g_messages.push_back(message);
        return 0;
    case WM_INITMENUPOPUP:
        g_messages.push_back(message);
        if (g_greySave)
            EnableMenuItem(reinterpret_cast<HMENU>(wParam), ID_SAVE, MF_GRAYED);
        return 0;
    case WM_COMMAND:
        g_commands.push_back(LOWORD(wParam));
        return 0;
    default:
        return DefWindowProc(hwnd, message, wParam, lParam);
    }
}

// Keeps the window and place of each WM_CONTEXTMENU, then acts as the owner.
std::vector<std::pair<HWND, POINT>>* g_asked = nullptr;
LRESULT AskedProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CONTEXTMENU && g_asked)
        g_asked->emplace_back(
            reinterpret_cast<HWND>(wParam),
            POINT{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))});
    return OwnerProc(hwnd, message, wParam, lParam);
}

class PopupMenuTest : public ::testing::Test {
protected:
    void SetUp() override {
        automation::Reset();
        g_messages.clear();
        g_commands.clear();
        g_greySave = false;
        WNDCLASS wc{};
        wc.lpfnWndProc = OwnerProc;
        wc.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
        wc.lpszClassName = u"PopupOwner";
        RegisterClass(&wc);
        owner = CreateWindowEx(0, u"PopupOwner", u"Owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100,
                               100, 400, 300, nullptr, nullptr, nullptr, nullptr);
        ASSERT_TRUE(owner);
        menu = CreatePopupMenu();
        AppendMenu(menu, MF_STRING, ID_OPEN, u"&Open\tCtrl+O");
        AppendMenu(menu, MF_STRING, ID_SAVE, u"&Save");
        AppendMenu(menu, MF_SEPARATOR, 0, nullptr);
        AppendMenu(menu, MF_STRING | MF_CHECKED, ID_CLOSE, u"Close");
    }
    void TearDown() override {
        DestroyMenu(menu);
        DestroyWindow(owner);
        platform::PumpMessages();
        UnregisterClass(u"PopupOwner", nullptr);
        automation::Reset();
    }
    BOOL Track(UINT flags = 0, int x = 200, int y = 150) {
        return TrackPopupMenu(menu, flags, x, y, 0, owner, nullptr);
    }

    HWND owner = nullptr;
    HMENU menu = nullptr;
};

TEST_F(PopupMenuTest, APickedItemIsPostedToTheOwnerAsACommand) {
    automation::PickPopupMenuItem(ID_SAVE);
    EXPECT_TRUE(Track());
    // Posted: nothing has arrived before the queue is pumped.
    EXPECT_TRUE(g_commands.empty());
    platform::PumpMessages();
    EXPECT_EQ(g_commands, std::vector<UINT>{ID_SAVE});
    EXPECT_EQ(g_messages, (std::vector<UINT>{WM_ENTERMENULOOP, WM_INITMENUPOPUP, WM_EXITMENULOOP}));
    ASSERT_FALSE(automation::Record().empty());
    EXPECT_EQ(automation::Record().back(), "shortcut menu 40002 '&Save'");
    // The menu's window went with the loop.
    automation::PopupMenuView view;
    EXPECT_FALSE(automation::ReadPopupMenu(&view));
}

TEST_F(PopupMenuTest, WithReturnCmdThePickComesBackAndNothingIsPosted) {
    automation::PickPopupMenuItem(ID_CLOSE);
    EXPECT_EQ(Track(TPM_RETURNCMD), static_cast<BOOL>(ID_CLOSE));
    platform::PumpMessages();
    EXPECT_TRUE(g_commands.empty());
    automation::DismissPopupMenu();
    EXPECT_EQ(Track(TPM_RETURNCMD), 0);
}

TEST_F(PopupMenuTest, EscapeAndAClickElsewhereCloseTheMenuWithoutACommand) {
    automation::DismissPopupMenu();
    EXPECT_TRUE(Track());
    automation::ClickAt(owner, POINT{10, 10});
    EXPECT_TRUE(Track());
    platform::PumpMessages();
    EXPECT_TRUE(g_commands.empty());
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(PopupMenuTest, TheKeyboardMovesThroughTheItemsPastTheSeparator) {
    automation::Key(VK_DOWN);
    automation::Key(VK_DOWN);
    automation::Key(VK_DOWN);
    automation::Key(VK_RETURN);
    EXPECT_EQ(Track(TPM_RETURNCMD), static_cast<BOOL>(ID_CLOSE));
    // Up from nothing starts at the last item.
    automation::Key(VK_UP);
    automation::Key(VK_RETURN);
    EXPECT_EQ(Track(TPM_RETURNCMD), static_cast<BOOL>(ID_CLOSE));
}

TEST_F(PopupMenuTest, AMenuNobodyAnswersClosesAsIfDismissed) {
    EXPECT_EQ(Track(TPM_RETURNCMD), 0);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 1);
    ASSERT_FALSE(automation::Record().empty());
    EXPECT_EQ(automation::Record().back().rfind("no action left: cancelled", 0), 0u);
}

TEST_F(PopupMenuTest, TheOwnerMayGreyAnItemWhichThenCannotBePicked) {
    g_greySave = true;
    automation::PickPopupMenuItem(ID_SAVE);
    automation::PickPopupMenuItem(4711);
    automation::DismissPopupMenu();
    EXPECT_EQ(Track(TPM_RETURNCMD), 0);
    const auto& record = automation::Record();
    ASSERT_GE(record.size(), 3u);
    EXPECT_EQ(record[0], "shortcut menu 40002 '&Save' is disabled");
    EXPECT_EQ(record[1], "shortcut menu 4711: no such item");
    // The keyboard cannot pick it either.
    automation::Key(VK_DOWN);
    automation::Key(VK_DOWN);
    automation::Key(VK_RETURN);
    automation::DismissPopupMenu();
    EXPECT_EQ(Track(TPM_RETURNCMD), 0);
}

TEST_F(PopupMenuTest, ReadingTheOpenMenuShowsItsItemsAndWhereItIs) {
    automation::PopupMenuView view;
    automation::Do([&] { automation::ReadPopupMenu(&view); });
    automation::DismissPopupMenu();
    Track(TPM_RIGHTALIGN | TPM_BOTTOMALIGN, 600, 500);
    ASSERT_EQ(view.items.size(), 4u);
    EXPECT_EQ(view.items[0].text, u"&Open\tCtrl+O");
    EXPECT_EQ(view.items[0].command, ID_OPEN);
    EXPECT_EQ(view.items[2].command, 0u);
    EXPECT_TRUE(view.items[2].flags & MF_SEPARATOR);
    EXPECT_TRUE(view.items[3].flags & MF_CHECKED);
    // Aligned by its right and bottom edges to the point.
    EXPECT_EQ(view.rect.right, 600);
    EXPECT_EQ(view.rect.bottom, 500);
    EXPECT_GE(view.rect.right - view.rect.left, 120);
}

TEST_F(PopupMenuTest, AMenuThatWouldLeaveTheScreenOpensTheOtherWay) {
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    automation::PopupMenuView view;
    automation::Do([&] { automation::ReadPopupMenu(&view); });
    automation::DismissPopupMenu();
    Track(0, width - 10, height - 10);
    EXPECT_EQ(view.rect.right, width - 10);
    EXPECT_EQ(view.rect.bottom, height - 10);
    automation::Do([&] { automation::ReadPopupMenu(&view); });
    automation::DismissPopupMenu();
    Track(TPM_CENTERALIGN | TPM_VCENTERALIGN, 300, 300);
    EXPECT_EQ((view.rect.left + view.rect.right) / 2, 300);
    EXPECT_NEAR((view.rect.top + view.rect.bottom) / 2, 300, 1);
}

TEST_F(PopupMenuTest, CallsThatCannotShowAMenuAreRefused) {
    SetLastError(0);
    EXPECT_FALSE(TrackPopupMenu(reinterpret_cast<HMENU>(0x1234), 0, 0, 0, 0, owner, nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_MENU_HANDLE));
    EXPECT_FALSE(TrackPopupMenu(menu, 0, 0, 0, 0, nullptr, nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
    // An empty menu shows nothing.
    HMENU empty = CreatePopupMenu();
    EXPECT_FALSE(TrackPopupMenu(empty, 0, 0, 0, 0, owner, nullptr));
    DestroyMenu(empty);
    // One shortcut menu at a time.
    BOOL second = TRUE;
    DWORD error = 0;
    automation::Do([&] {
        second = TrackPopupMenu(menu, 0, 0, 0, 0, owner, nullptr);
        error = GetLastError();
    });
    automation::DismissPopupMenu();
    Track();
    EXPECT_FALSE(second);
    EXPECT_EQ(error, static_cast<DWORD>(ERROR_POPUP_ALREADY_ACTIVE));
    // Without a menu open there is nothing to pick or dismiss.
    automation::Reset();
    automation::PickPopupMenuItem(ID_OPEN);
    automation::DismissPopupMenu();
    while (automation::RunNext()) {
    }
    ASSERT_EQ(automation::Record().size(), 2u);
    EXPECT_EQ(automation::Record()[0], "shortcut menu 40001: no shortcut menu is open");
    EXPECT_EQ(automation::Record()[1], "dismiss shortcut menu: none is open");
}

TEST_F(PopupMenuTest, AnItemThatOpensAPopUpOpensItBesideItself) {
    HMENU nested = CreatePopupMenu();
    AppendMenu(nested, MF_STRING, ID_NESTED, u"&Inner");
    AppendMenu(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(nested), u"&More");
    automation::PopupMenuView outer, inner;
    automation::Do([&] { automation::ReadPopupMenu(&outer); });
    automation::PickPopupMenuItem(ID_NESTED);
    EXPECT_EQ(Track(TPM_RETURNCMD), static_cast<BOOL>(ID_NESTED));
    ASSERT_EQ(outer.items.size(), 5u);
    EXPECT_EQ(outer.items[4].command, 0u);
    EXPECT_TRUE(outer.items[4].flags & MF_POPUP);
    // The owner heard of each pop-up as it opened.
    EXPECT_EQ(g_messages, (std::vector<UINT>{WM_ENTERMENULOOP, WM_INITMENUPOPUP, WM_INITMENUPOPUP,
                                             WM_EXITMENULOOP}));

    // The pointer on the item opens its pop-up at its right, level with it;
    // on another item it closes again.
    automation::Do([&] { automation::ReadPopupMenu(&outer); });
    automation::Do(
        [&] { PostMessage(outer.window, WM_MOUSEMOVE, 0, MAKELPARAM(40, 3 + 22 * 3 + 9 + 11)); });
    automation::Do([&] { automation::ReadPopupMenu(&inner); });
    automation::Do([&] { PostMessage(outer.window, WM_MOUSEMOVE, 0, MAKELPARAM(40, 3 + 11)); });
    automation::PopupMenuView after;
    automation::Do([&] { automation::ReadPopupMenu(&after); });
    automation::DismissPopupMenu();
    EXPECT_EQ(Track(TPM_RETURNCMD), 0);
    ASSERT_EQ(inner.items.size(), 1u);
    EXPECT_EQ(inner.items[0].command, ID_NESTED);
    EXPECT_EQ(inner.rect.left, outer.rect.right - 3);
    EXPECT_EQ(inner.rect.top, outer.rect.top + 3 + 22 * 3 + 9 - 3);
    EXPECT_EQ(after.window, outer.window);
}

TEST_F(PopupMenuTest, TheKeyboardOpensAndClosesPopUpsAndTypesMnemonics) {
    HMENU nested = CreatePopupMenu();
    AppendMenu(nested, MF_STRING, ID_NESTED, u"&Inner");
    AppendMenu(nested, MF_STRING, ID_OPEN + 10, u"&Other");
    AppendMenu(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(nested), u"&More");
    // Up from nothing is the last item, the pop-up; Right opens it with its
    // first item hot, Left closes it, Right again and Down, Enter.
    automation::Key(VK_UP);
    automation::Key(VK_RIGHT);
    automation::Key(VK_LEFT);
    automation::Key(VK_RIGHT);
    automation::Key(VK_DOWN);
    automation::Key(VK_RETURN);
    EXPECT_EQ(Track(TPM_RETURNCMD), static_cast<BOOL>(ID_OPEN + 10));
    // A letter picks the item it underlines, through the pop-ups; Escape
    // closes one level at a time.
    automation::Type(u"m");
    automation::Key(VK_ESCAPE);
    automation::Type(u"s");
    EXPECT_EQ(Track(TPM_RETURNCMD), static_cast<BOOL>(ID_SAVE));
    automation::Type(u"mi");
    EXPECT_EQ(Track(TPM_RETURNCMD), static_cast<BOOL>(ID_NESTED));
    // No character reached the owner afterwards.
    platform::PumpMessages();
    EXPECT_TRUE(g_commands.empty());
}

TEST_F(PopupMenuTest, APopUpThatWouldLeaveTheScreenOpensOnTheLeft) {
    HMENU nested = CreatePopupMenu();
    AppendMenu(nested, MF_STRING, ID_NESTED, u"Inner");
    AppendMenu(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(nested), u"More");
    const int width = GetSystemMetrics(SM_CXSCREEN);
    automation::PopupMenuView outer, inner;
    automation::Do([&] { automation::ReadPopupMenu(&outer); });
    automation::Key(VK_UP);
    automation::Key(VK_RIGHT);
    automation::Do([&] { automation::ReadPopupMenu(&inner); });
    automation::DismissPopupMenu();
    Track(TPM_RIGHTALIGN, width - 5, 100);
    EXPECT_EQ(outer.rect.right, width - 5);
    EXPECT_EQ(inner.rect.right, outer.rect.left + 3);
}

// The owner may go while its menu is open: from the notice of a pop-up
// opening, or of the hot item changing. The menu closes with nothing picked.
HMENU g_destroyOnPopup = nullptr;
bool g_destroyOnSelect = false;
LRESULT DestroyingProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if ((message == WM_INITMENUPOPUP && reinterpret_cast<HMENU>(wParam) == g_destroyOnPopup) ||
        (message == WM_MENUSELECT && g_destroyOnSelect && HIWORD(wParam) != 0xFFFF)) {
        DestroyWindow(hwnd);
        return 0;
    }
    return OwnerProc(hwnd, message, wParam, lParam);
}

TEST_F(PopupMenuTest, AnOwnerThatGoesWhileItsMenuIsOpenEndsTheMenu) {
    HMENU nested = CreatePopupMenu();
    AppendMenu(nested, MF_STRING, ID_NESTED, u"Inner");
    AppendMenu(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(nested), u"More");
    SetWindowLongPtr(owner, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&DestroyingProc));
    g_destroyOnPopup = nested;
    automation::PickPopupMenuItem(ID_NESTED);
    EXPECT_EQ(Track(TPM_RETURNCMD), 0);
    EXPECT_FALSE(IsWindow(owner));
    automation::PopupMenuView view;
    EXPECT_FALSE(automation::ReadPopupMenu(&view));

    owner = CreateWindowEx(0, u"PopupOwner", u"Owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100,
                           400, 300, nullptr, nullptr, nullptr, nullptr);
    SetWindowLongPtr(owner, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&DestroyingProc));
    g_destroyOnPopup = nullptr;
    g_destroyOnSelect = true;
    automation::Key(VK_DOWN);
    automation::Key(VK_RETURN);
    EXPECT_EQ(Track(TPM_RETURNCMD), 0);
    EXPECT_FALSE(IsWindow(owner));
    g_destroyOnSelect = false;
    platform::PumpMessages();
    EXPECT_TRUE(g_commands.empty());
}

// The menu as a person sees it, read back from a picture of its place.
TEST_F(PopupMenuTest, TheMenuIsDrawnAboveItsOwnerWithItsItems) {
    const auto dir = testing_support::TestOutputDir("popup-menu");
    // The mouse pointer, drawn in pictures, stays out of the way.
    SetCursorPos(5, 5);
    const std::string path = (dir / "menu.png").string();
    automation::PopupMenuView view;
    bool saved = false;
    automation::Do([&] {
        automation::ReadPopupMenu(&view);
        saved = platform::SaveDesktopAreaAsPng(view.rect, path);
    });
    automation::DismissPopupMenu();
    Track(0, 150, 120);
    ASSERT_TRUE(saved);
    cairo_surface_t* image = cairo_image_surface_create_from_png(path.c_str());
    ASSERT_EQ(cairo_surface_status(image), CAIRO_STATUS_SUCCESS);
    const int width = cairo_image_surface_get_width(image);
    const int height = cairo_image_surface_get_height(image);
    EXPECT_EQ(width, view.rect.right - view.rect.left);
    EXPECT_EQ(height, view.rect.bottom - view.rect.top);
    const int stride = cairo_image_surface_get_stride(image);
    const unsigned char* data = cairo_image_surface_get_data(image);
    auto at = [&](int x, int y) {
        const uint32_t p = *reinterpret_cast<const uint32_t*>(data + y * stride + x * 4);
        return RGB((p >> 16) & 0xFF, (p >> 8) & 0xFF, p & 0xFF);
    };
    // A grey outline round the menu's face.
    const COLORREF outline = at(0, 0);
    EXPECT_EQ(at(width - 1, height - 1), outline);
    EXPECT_EQ(at(width / 2, 1), GetSysColor(COLOR_MENU));
    EXPECT_NE(outline, GetSysColor(COLOR_MENU));
    // Dark text in the first row, none in the separator's row but its line.
    int ink = 0;
    for (int y = 3; y < 3 + 22; ++y)
        for (int x = 30; x < width - 30; ++x)
            ink += at(x, y) == GetSysColor(COLOR_MENUTEXT) ? 1 : 0;
    EXPECT_GT(ink, 20);
    // The separator's line runs from the check mark's column to two pixels
    // before the items' right end.
    int separator = 0;
    for (int x = 0; x < width; ++x)
        separator += at(x, 3 + 44 + 4) != GetSysColor(COLOR_MENU) ? 1 : 0;
    EXPECT_EQ(separator, 2 + (width - 3 - 2) - (3 + 30));
    cairo_surface_destroy(image);
    // An area off the screen makes no picture.
    EXPECT_FALSE(platform::SaveDesktopAreaAsPng(RECT{-500, -500, -10, -10}, path));
}

TEST_F(PopupMenuTest, CMenuTracksForItsOwnerWindowObject) {
    CMenu wrapped;
    wrapped.Attach(menu);
    CWnd* wnd = CWnd::FromHandle(owner);
    automation::PickPopupMenuItem(ID_OPEN);
    EXPECT_TRUE(wrapped.TrackPopupMenu(TPM_LEFTALIGN | TPM_RIGHTBUTTON, 200, 150, wnd));
    wrapped.Detach();
    platform::PumpMessages();
    EXPECT_EQ(g_commands, std::vector<UINT>{ID_OPEN});
    EXPECT_FALSE(wrapped.TrackPopupMenu(0, 0, 0, nullptr));
}

TEST_F(PopupMenuTest, ARightClickAsksTheWindowAndItsParentsForAMenu) {
    HWND child = CreateWindowEx(0, u"STATIC", u"", WS_CHILD | WS_VISIBLE, 20, 30, 100, 50, owner,
                                nullptr, nullptr, nullptr);
    std::vector<std::pair<HWND, POINT>> asked;
    g_asked = &asked;
    SetWindowLongPtr(owner, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AskedProc));
    automation::RightClickAt(child, POINT{5, 6});
    while (automation::RunNext())
        platform::PumpMessages();
    platform::PumpMessages();
    SetWindowLongPtr(owner, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&OwnerProc));
    ASSERT_EQ(asked.size(), 1u);
    EXPECT_EQ(asked[0].first, child);
    POINT screen{5, 6};
    ClientToScreen(child, &screen);
    EXPECT_EQ(asked[0].second.x, screen.x);
    EXPECT_EQ(asked[0].second.y, screen.y);
    // A hidden window cannot be clicked.
    ShowWindow(child, SW_HIDE);
    automation::RightClickAt(child, POINT{5, 6});
    while (automation::RunNext())
        platform::PumpMessages();
    EXPECT_EQ(asked.size(), 1u);
    EXPECT_EQ(automation::Record().back(), "right click at a window that cannot be clicked");
}

} // namespace
