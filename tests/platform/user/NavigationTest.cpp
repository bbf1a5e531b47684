// Walking a dialog's controls and the window tree: tab stops and groups, what
// IsDialogMessage does with each key for each kind of control, the z-order
// and owner relations, the window's slots, and the last active pop-up.
#include "support/DialogItems.h"

#include <afxwin.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using testing_support::DialogItem;

constexpr DWORD kAutoRadio = 9;
constexpr UINT kEditId = 20;
constexpr UINT kNotesId = 21;
constexpr UINT kFirstRadio = 30;
constexpr UINT kDisabledId = 40;
constexpr UINT kHiddenId = 41;

std::vector<std::string> g_commands;

INT_PTR LoggingProc(HWND, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG)
        return TRUE;
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
        g_commands.push_back("clicked " + std::to_string(LOWORD(wParam)));
        return TRUE;
    }
    return FALSE;
}

platform::DialogTemplate NavigationTemplate() {
    platform::DialogTemplate t;
    t.style = WS_POPUP | WS_CAPTION | WS_VISIBLE | 0x40 /* DS_SETFONT */;
    t.caption = u"Navigation";
    t.pointSize = 8;
    t.faceName = u"MS Shell Dlg";
    t.cx = 200;
    t.cy = 120;
    t.items.push_back(DialogItem(u"EDIT", u"", kEditId, WS_TABSTOP | WS_GROUP, 7, 7, 80, 12));
    t.items.push_back(DialogItem(u"EDIT", u"", kNotesId, WS_TABSTOP | ES_MULTILINE, 7, 22, 80, 30));
    for (UINT i = 0; i < 3; ++i)
        t.items.push_back(DialogItem(u"BUTTON", u"Choice", kFirstRadio + i,
                                     kAutoRadio | (i == 0 ? WS_GROUP | WS_TABSTOP : 0u), 100,
                                     static_cast<short>(7 + 12 * i), 60, 10));
    t.items.push_back(
        DialogItem(u"BUTTON", u"Off", kDisabledId, WS_TABSTOP | WS_DISABLED, 100, 50, 40, 14));
    auto hidden = DialogItem(u"BUTTON", u"Unseen", kHiddenId, WS_TABSTOP, 100, 70, 40, 14);
    hidden.style &= ~static_cast<DWORD>(WS_VISIBLE);
    t.items.push_back(hidden);
    t.items.push_back(DialogItem(u"BUTTON", u"OK", IDOK, BS_DEFPUSHBUTTON | WS_TABSTOP | WS_GROUP,
                                 89, 100, 50, 14));
    t.items.push_back(DialogItem(u"BUTTON", u"Cancel", IDCANCEL, WS_TABSTOP, 143, 100, 50, 14));
    return t;
}

class NavigationTest : public ::testing::Test {
protected:
    void SetUp() override {
        g_commands.clear();
        tmpl = NavigationTemplate();
        dialog = CreateDialogIndirectParam(nullptr, &tmpl, nullptr, LoggingProc, 0);
        ASSERT_NE(dialog, nullptr);
    }
    void TearDown() override {
        for (HWND hwnd : created)
            if (IsWindow(hwnd))
                DestroyWindow(hwnd);
        if (IsWindow(dialog))
            DestroyWindow(dialog);
        platform::PumpMessages();
    }
    HWND Item(UINT id) const { return GetDlgItem(dialog, static_cast<int>(id)); }
    // Gives the key to IsDialogMessage as the message loop would, with the
    // focused control as its window.
    BOOL Press(UINT vk) {
        MSG msg{};
        msg.hwnd = GetFocus();
        msg.message = WM_KEYDOWN;
        msg.wParam = vk;
        return IsDialogMessage(dialog, &msg);
    }
    HWND Popup(const char16_t* name, HWND owner, DWORD style = WS_VISIBLE) {
        HWND hwnd = CreateWindowEx(0, u"STATIC", name, WS_POPUP | style, 0, 0, 50, 50, owner,
                                   nullptr, nullptr, nullptr);
        created.push_back(hwnd);
        return hwnd;
    }

    platform::DialogTemplate tmpl;
    HWND dialog = nullptr;
    std::vector<HWND> created;
};

TEST_F(NavigationTest, TabStopsSkipDisabledAndHiddenControlsAndWrapBothWays) {
    HWND edit = Item(kEditId);
    HWND notes = Item(kNotesId);
    HWND radio = Item(kFirstRadio);
    HWND ok = Item(IDOK);
    HWND cancel = Item(IDCANCEL);
    EXPECT_EQ(GetNextDlgTabItem(dialog, edit, FALSE), notes);
    EXPECT_EQ(GetNextDlgTabItem(dialog, notes, FALSE), radio);
    // The disabled and the hidden button are passed over.
    EXPECT_EQ(GetNextDlgTabItem(dialog, radio, FALSE), ok);
    EXPECT_EQ(GetNextDlgTabItem(dialog, ok, TRUE), radio);
    EXPECT_EQ(GetNextDlgTabItem(dialog, cancel, FALSE), edit);
    EXPECT_EQ(GetNextDlgTabItem(dialog, edit, TRUE), cancel);
    // From a control that is no tab stop, the first or the last one.
    EXPECT_EQ(GetNextDlgTabItem(dialog, Item(kFirstRadio + 1), FALSE), edit);
    EXPECT_EQ(GetNextDlgTabItem(dialog, nullptr, TRUE), cancel);
    // Once enabled, the button is a stop again.
    EnableWindow(Item(kDisabledId), TRUE);
    EXPECT_EQ(GetNextDlgTabItem(dialog, radio, FALSE), Item(kDisabledId));
    // A window that is no dialog, or one with no stops at all.
    EXPECT_EQ(GetNextDlgTabItem(nullptr, edit, FALSE), nullptr);
    EXPECT_EQ(GetNextDlgTabItem(ok, nullptr, FALSE), nullptr);
}

TEST_F(NavigationTest, AControlInsideAChildWindowCountsAsThatChild) {
    HWND panel = CreateWindowEx(0, u"STATIC", u"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_GROUP, 0,
                                150, 100, 40, dialog, nullptr, nullptr, nullptr);
    HWND inner = CreateWindowEx(0, u"EDIT", u"", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, panel,
                                nullptr, nullptr, nullptr);
    EXPECT_EQ(GetNextDlgTabItem(dialog, inner, FALSE), Item(kEditId));
    EXPECT_EQ(GetNextDlgTabItem(dialog, inner, TRUE), Item(IDCANCEL));
    // The panel is its own group's only member: the arrows stay on it.
    EXPECT_EQ(GetNextDlgGroupItem(dialog, inner, FALSE), panel);
    EXPECT_EQ(GetNextDlgGroupItem(dialog, inner, TRUE), panel);
}

TEST_F(NavigationTest, GroupsRunFromOneGroupStyleToTheNextAndWrap) {
    HWND first = Item(kFirstRadio);
    HWND second = Item(kFirstRadio + 1);
    HWND third = Item(kFirstRadio + 2);
    EXPECT_EQ(GetNextDlgGroupItem(dialog, first, FALSE), second);
    EXPECT_EQ(GetNextDlgGroupItem(dialog, third, FALSE), first);
    EXPECT_EQ(GetNextDlgGroupItem(dialog, first, TRUE), third);
    // The group that starts at the OK button holds Cancel; the disabled and
    // hidden buttons of the radio group are skipped.
    EXPECT_EQ(GetNextDlgGroupItem(dialog, Item(IDOK), FALSE), Item(IDCANCEL));
    EXPECT_EQ(GetNextDlgGroupItem(dialog, Item(IDCANCEL), FALSE), Item(IDOK));
    // The first group: the two edits.
    EXPECT_EQ(GetNextDlgGroupItem(dialog, Item(kEditId), TRUE), Item(kNotesId));
}

TEST_F(NavigationTest, WindowsOutsideTheDialogHaveNoGroup) {
    HWND owned = Popup(u"owned", dialog);
    // An owned pop-up is no control of the dialog, though its parent is the dialog.
    EXPECT_EQ(GetParent(owned), dialog);
    EXPECT_EQ(GetNextDlgGroupItem(dialog, owned, FALSE), nullptr);
    EXPECT_EQ(GetNextDlgGroupItem(nullptr, dialog, FALSE), nullptr);
    EXPECT_EQ(GetNextDlgGroupItem(nullptr, Item(kEditId), FALSE), nullptr);
    EXPECT_EQ(GetNextDlgGroupItem(dialog, nullptr, FALSE), nullptr);
    // IsDialogMessage leaves other windows' messages alone.
    MSG msg{};
    msg.hwnd = owned;
    msg.message = WM_KEYDOWN;
    msg.wParam = VK_ESCAPE;
    EXPECT_FALSE(IsDialogMessage(dialog, &msg));
    EXPECT_FALSE(IsDialogMessage(dialog, nullptr));
    EXPECT_FALSE(IsDialogMessage(owned, nullptr));
    EXPECT_TRUE(g_commands.empty());
}

TEST_F(NavigationTest, EditsKeepTheKeysTheyAskForAndTheDialogTakesTheRest) {
    HWND edit = Item(kEditId);
    HWND notes = Item(kNotesId);
    SetFocus(edit);
    // A one-line edit keeps the arrows: the focus stays.
    EXPECT_TRUE(Press(VK_DOWN));
    EXPECT_EQ(GetFocus(), edit);
    // Tab moves on to the multi-line edit, which keeps every key, Tab too.
    EXPECT_TRUE(Press(VK_TAB));
    EXPECT_EQ(GetFocus(), notes);
    EXPECT_TRUE(Press(VK_TAB));
    EXPECT_EQ(GetFocus(), notes);
    EXPECT_TRUE(Press(VK_RETURN));
    EXPECT_TRUE(Press(VK_ESCAPE));
    EXPECT_TRUE(g_commands.empty());
    // From the one-line edit, Enter presses the default button and Escape
    // the Cancel button.
    SetFocus(edit);
    EXPECT_TRUE(Press(VK_RETURN));
    EXPECT_TRUE(Press(VK_ESCAPE));
    EXPECT_EQ(g_commands, (std::vector<std::string>{"clicked 1", "clicked 2"}));
}

TEST_F(NavigationTest, EnterPressesTheFocusedButtonOrTheDefaultOneUnlessItIsDisabled) {
    SetFocus(Item(IDCANCEL));
    Press(VK_RETURN);
    EXPECT_EQ(g_commands, std::vector<std::string>{"clicked 2"});
    // From a radio button Enter goes to the default button; a disabled one
    // is not pressed.
    g_commands.clear();
    SetFocus(Item(kFirstRadio));
    Press(VK_RETURN);
    EnableWindow(Item(IDOK), FALSE);
    Press(VK_RETURN);
    EXPECT_EQ(g_commands, std::vector<std::string>{"clicked 1"});
    // With no default button at all, Enter sends IDOK.
    g_commands.clear();
    SendMessage(Item(IDOK), BM_SETSTYLE, BS_PUSHBUTTON, FALSE);
    EnableWindow(Item(IDOK), TRUE);
    EXPECT_EQ(SendMessage(dialog, DM_GETDEFID, 0, 0), 0);
    Press(VK_RETURN);
    EXPECT_EQ(g_commands, std::vector<std::string>{"clicked 1"});
}

TEST_F(NavigationTest, ArrowsWalkTheGroupAndAPushButtonIsNotClickedByThem) {
    SetFocus(Item(kFirstRadio));
    Press(VK_RIGHT);
    EXPECT_EQ(GetFocus(), Item(kFirstRadio + 1));
    EXPECT_EQ(SendMessage(Item(kFirstRadio + 1), BM_GETCHECK, 0, 0), BST_CHECKED);
    Press(VK_UP);
    Press(VK_LEFT);
    EXPECT_EQ(GetFocus(), Item(kFirstRadio + 2));
    EXPECT_EQ(SendMessage(Item(kFirstRadio + 2), BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_EQ(SendMessage(Item(kFirstRadio + 1), BM_GETCHECK, 0, 0), BST_UNCHECKED);
    g_commands.clear();
    // In the buttons' group the arrows move the focus and click nothing.
    SetFocus(Item(IDOK));
    Press(VK_DOWN);
    EXPECT_EQ(GetFocus(), Item(IDCANCEL));
    EXPECT_TRUE(g_commands.empty());
    // Any other key is dispatched to the control.
    EXPECT_TRUE(Press(VK_F5));
    EXPECT_EQ(GetFocus(), Item(IDCANCEL));
}

TEST_F(NavigationTest, SiblingsOwnersAndTheEnabledPopUp) {
    HWND edit = Item(kEditId);
    EXPECT_EQ(GetWindow(Item(kFirstRadio), GW_HWNDFIRST), edit);
    EXPECT_EQ(GetWindow(edit, GW_HWNDLAST), Item(IDCANCEL));
    EXPECT_EQ(GetWindow(edit, GW_HWNDPREV), nullptr);
    EXPECT_EQ(GetWindow(Item(IDCANCEL), GW_HWNDNEXT), nullptr);
    EXPECT_EQ(GetWindow(edit, GW_CHILD), nullptr);
    EXPECT_EQ(GetWindow(edit, 99), nullptr);
    EXPECT_EQ(GetWindow(nullptr, GW_CHILD), nullptr);
    EXPECT_EQ(GetTopWindow(dialog), edit);

    HWND owned = Popup(u"owned", dialog);
    HWND disabled = Popup(u"disabled", dialog, WS_VISIBLE | WS_DISABLED);
    EXPECT_EQ(GetWindow(owned, GW_OWNER), dialog);
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), nullptr);
    EXPECT_EQ(GetWindowLongPtr(owned, GWLP_HWNDPARENT), reinterpret_cast<LONG_PTR>(dialog));
    EXPECT_EQ(GetWindow(disabled, GW_OWNER), dialog);
    EXPECT_EQ(GetWindow(dialog, GW_ENABLEDPOPUP), owned);
    EXPECT_EQ(GetWindow(owned, GW_ENABLEDPOPUP), nullptr);

    // The last active pop-up: the active owned window, else an enabled one,
    // else the window itself.
    SetActiveWindow(owned);
    EXPECT_EQ(GetLastActivePopup(dialog), owned);
    SetActiveWindow(dialog);
    EXPECT_EQ(GetLastActivePopup(dialog), owned);
    ShowWindow(owned, SW_HIDE);
    EXPECT_EQ(GetLastActivePopup(dialog), dialog);
    EXPECT_EQ(GetLastActivePopup(nullptr), nullptr);
}

TEST_F(NavigationTest, TheWindowsSlotsHoldWhatIsSetAndGiveBackThePreviousValue) {
    HWND edit = Item(kEditId);
    EXPECT_EQ(GetWindowLongPtr(edit, GWLP_ID), static_cast<LONG_PTR>(kEditId));
    EXPECT_EQ(SetWindowLongPtr(edit, GWLP_ID, 77), static_cast<LONG_PTR>(kEditId));
    EXPECT_EQ(GetDlgItem(dialog, 77), edit);
    EXPECT_EQ(GetDlgCtrlID(edit), 77);

    const LONG_PTR exStyle = GetWindowLongPtr(edit, GWL_EXSTYLE);
    EXPECT_EQ(SetWindowLongPtr(edit, GWL_EXSTYLE, WS_EX_STATICEDGE), exStyle);
    EXPECT_EQ(GetWindowLongPtr(edit, GWL_EXSTYLE), WS_EX_STATICEDGE);

    // A dialog's own slots: the result of a message, its procedure and the user's value.
    EXPECT_EQ(GetWindowLongPtr(dialog, DWLP_DLGPROC), reinterpret_cast<LONG_PTR>(LoggingProc));
    EXPECT_EQ(SetWindowLongPtr(dialog, DWLP_USER, 1234), 0);
    EXPECT_EQ(SetWindowLongPtr(dialog, DWLP_MSGRESULT, 5), 0);
    EXPECT_EQ(GetWindowLongPtr(dialog, DWLP_USER), 1234);
    EXPECT_EQ(GetWindowLongPtr(dialog, DWLP_MSGRESULT), 5);

    // Only ShowWindow changes the visible bit.
    auto style = GetWindowLongPtr(edit, GWL_STYLE);
    SetWindowLongPtr(edit, GWL_STYLE, style & ~static_cast<LONG_PTR>(WS_VISIBLE));
    EXPECT_TRUE(IsWindowVisible(edit));
    EXPECT_TRUE(GetWindowLongPtr(edit, GWL_STYLE) & WS_VISIBLE);

    // Unknown slots, the desktop and dead handles keep nothing.
    EXPECT_EQ(SetWindowLongPtr(edit, 12345, 1), 0);
    EXPECT_EQ(GetWindowLongPtr(edit, 12345), 0);
    EXPECT_EQ(SetWindowLongPtr(GetDesktopWindow(), GWLP_USERDATA, 9), 0);
    EXPECT_EQ(GetWindowLongPtr(GetDesktopWindow(), GWLP_USERDATA), 0);
    HWND gone = Popup(u"gone", nullptr);
    DestroyWindow(gone);
    EXPECT_EQ(SetWindowLongPtr(gone, GWLP_USERDATA, 9), 0);
    EXPECT_EQ(GetWindowLongPtr(gone, GWLP_USERDATA), 0);
}

} // namespace
