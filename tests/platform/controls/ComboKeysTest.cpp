// The combo box outside a dialog: the paging keys of a drop-down list, keys a
// drop-down leaves to its edit field, the enabled state shared with that
// field, sizes it reports, and a dropped list that goes with the combo box.
#include "ControlTestSupport.h"

#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <string>

namespace {

namespace automation = platform::automation;
using controls_test::Host;
using controls_test::RunUser;
using controls_test::TextOf;

constexpr UINT kListId = 200;
constexpr UINT kDropId = 201;

class ComboKeysTest : public ::testing::Test {
protected:
    void SetUp() override { automation::Reset(); }
    void TearDown() override { automation::Reset(); }

    HWND Combo(DWORD style, UINT id, int items) {
        HWND combo = host.Add(u"COMBOBOX", style | WS_VSCROLL, 10, 10, 150, 200, id);
        for (int i = 0; i < items; ++i) {
            std::u16string text = u"Item " + std::u16string(1, static_cast<char16_t>(u'A' + i));
            SendMessage(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
        }
        return combo;
    }
    LRESULT Selected(HWND combo) { return SendMessage(combo, CB_GETCURSEL, 0, 0); }
    void Press(UINT vk) {
        automation::Key(vk);
        RunUser();
    }

    Host host{20, 20, 320, 300};
};

TEST_F(ComboKeysTest, PagingKeysMoveTheSelectionOfADropDownListByEightAndToItsEnds) {
    HWND combo = Combo(CBS_DROPDOWNLIST, kListId, 20);
    SetFocus(combo);
    host.Log().clear();
    Press(VK_NEXT);
    EXPECT_EQ(Selected(combo), 8);
    Press(VK_NEXT);
    Press(VK_NEXT);
    EXPECT_EQ(Selected(combo), 19);
    Press(VK_PRIOR);
    EXPECT_EQ(Selected(combo), 11);
    Press(VK_HOME);
    EXPECT_EQ(Selected(combo), 0);
    // Already at the start: nothing changes and nothing is reported.
    Press(VK_PRIOR);
    Press(VK_HOME);
    Press(VK_END);
    EXPECT_EQ(Selected(combo), 19);
    EXPECT_EQ(TextOf(combo), u"Item T");
    // Each change is reported while the field still shows the item before it.
    std::vector<std::string> expected{"selchange:",       "selchange:Item I", "selchange:Item Q",
                                      "selchange:Item T", "selchange:Item L", "selchange:Item A"};
    EXPECT_EQ(host.Log(), expected);
}

TEST_F(ComboKeysTest, ADropDownLeavesHomeAndEndToItsEditFieldAndSharesItsEnabledState) {
    HWND combo = Combo(CBS_DROPDOWN, kDropId, 5);
    SendMessage(combo, CB_SETCURSEL, 2, 0);
    SetFocus(combo);
    HWND edit = GetFocus();
    ASSERT_NE(edit, combo);
    EXPECT_EQ(GetParent(edit), combo);
    host.Log().clear();
    Press(VK_HOME);
    Press(VK_END);
    // Sent to the combo box itself they are not taken either.
    SendMessage(combo, WM_KEYDOWN, VK_HOME, 0);
    SendMessage(combo, WM_KEYDOWN, VK_END, 0);
    EXPECT_EQ(Selected(combo), 2);
    EXPECT_TRUE(host.Log().empty());
    // The paging keys still move through the items.
    Press(VK_NEXT);
    EXPECT_EQ(Selected(combo), 4);

    EnableWindow(combo, FALSE);
    EXPECT_FALSE(IsWindowEnabled(edit));
    EnableWindow(combo, TRUE);
    EXPECT_TRUE(IsWindowEnabled(edit));
}

TEST_F(ComboKeysTest, AltWithDownOpensTheListAndOtherAltKeysAreTheWindows) {
    HWND list = Combo(CBS_DROPDOWNLIST, kListId, 5);
    HWND drop = Combo(CBS_DROPDOWN, kDropId, 5);
    // Alt+Down as the keyboard sends it: Alt, then Down, both system keys.
    auto altDown = [](HWND target) {
        PostMessage(target, WM_SYSKEYDOWN, VK_MENU, 1 << 29);
        PostMessage(target, WM_SYSKEYDOWN, VK_DOWN, 1 << 29);
        PostMessage(target, WM_SYSKEYUP, VK_DOWN, static_cast<LPARAM>(0xE0000001u));
        PostMessage(target, WM_SYSKEYUP, VK_MENU, static_cast<LPARAM>(0xC0000001u));
        platform::PumpMessages();
    };
    SetFocus(list);
    altDown(list);
    EXPECT_TRUE(SendMessage(list, CB_GETDROPPEDSTATE, 0, 0));
    SendMessage(list, CB_SHOWDROPDOWN, FALSE, 0);
    // In a drop-down the edit field has the focus and passes Alt+Down on.
    SetFocus(drop);
    altDown(GetFocus());
    EXPECT_TRUE(SendMessage(drop, CB_GETDROPPEDSTATE, 0, 0));
    SendMessage(drop, CB_SHOWDROPDOWN, FALSE, 0);
    // Alt with a letter moves nothing in either.
    const LRESULT before = Selected(list);
    PostMessage(list, WM_SYSKEYDOWN, VK_END, 1 << 29);
    platform::PumpMessages();
    EXPECT_EQ(Selected(list), before);
}

TEST_F(ComboKeysTest, SizesFontAndWhatADropDownListCannotDo) {
    HWND list = Combo(CBS_DROPDOWNLIST, kListId, 3);
    auto font = reinterpret_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    SendMessage(list, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    EXPECT_EQ(reinterpret_cast<HFONT>(SendMessage(list, WM_GETFONT, 0, 0)), font);

    // The field is taller than an item; the window is the field's height.
    auto field = SendMessage(list, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0);
    auto item = SendMessage(list, CB_GETITEMHEIGHT, 0, 0);
    EXPECT_GT(field, item);
    RECT window;
    GetWindowRect(list, &window);
    EXPECT_EQ(window.bottom - window.top, field);
    // Dropped, it reaches as far down as it was created tall.
    RECT dropped{};
    EXPECT_EQ(SendMessage(list, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped)),
              TRUE);
    EXPECT_EQ(dropped.top, window.top);
    EXPECT_EQ(dropped.bottom - dropped.top, 200);
    EXPECT_EQ(SendMessage(list, CB_GETDROPPEDCONTROLRECT, 0, 0), CB_ERR);

    // No edit field: no edit selection and no text limit.
    EXPECT_EQ(SendMessage(list, CB_GETEDITSEL, 0, 0), CB_ERR);
    EXPECT_EQ(SendMessage(list, CB_LIMITTEXT, 5, 0), CB_ERR);
}

TEST_F(ComboKeysTest, ADroppedListGoesWithItsComboBox) {
    HWND combo = Combo(CBS_DROPDOWNLIST, kListId, 3);
    HWND before = GetTopWindow(nullptr);
    SendMessage(combo, CB_SHOWDROPDOWN, TRUE, 0);
    EXPECT_TRUE(SendMessage(combo, CB_GETDROPPEDSTATE, 0, 0));
    HWND list = GetTopWindow(nullptr);
    ASSERT_NE(list, before);
    EXPECT_TRUE(IsWindowVisible(list));
    DestroyWindow(combo);
    EXPECT_FALSE(IsWindow(list));
}

} // namespace
