// The combo box in a dialog, driven by the simulated user: what the dialog's
// handlers see when the user picks an item or types, programmatic changes
// that notify nothing, item searches, and the list dropped on the screen.
#include "ControlTestSupport.h"

#include <platform/GdiObjects.h>
#include <platform/ResourceTemplates.h>

#include <support/DialogItems.h>
#include <support/TempDir.h>

#include <gtest/gtest.h>

namespace {

using testing_support::DialogItem;

namespace automation = platform::automation;
using controls_test::Narrow;
using controls_test::TextOf;

constexpr UINT kComboId = 200;
constexpr UINT kListId = 201;
constexpr UINT kEditId = 101;
constexpr UINT kCheckId = 102;

platform::DialogTemplate ComboTemplate() {
    platform::DialogTemplate t;
    t.style = WS_POPUP | WS_CAPTION | 0x80 /* DS_MODALFRAME */ | 0x40 /* DS_SETFONT */;
    t.caption = u"Delimiter";
    t.pointSize = 8;
    t.faceName = u"MS Shell Dlg";
    t.x = 10;
    t.y = 10;
    t.cx = 200;
    t.cy = 110;
    t.items.push_back(DialogItem(u"COMBOBOX", u"", kComboId,
                                 CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_TABSTOP, 7, 7, 100, 60));
    t.items.push_back(
        DialogItem(u"COMBOBOX", u"", kListId, CBS_DROPDOWNLIST | WS_TABSTOP, 7, 25, 100, 60));
    t.items.push_back(
        DialogItem(u"EDIT", u"", kEditId, WS_BORDER | ES_AUTOHSCROLL | WS_TABSTOP, 7, 43, 100, 14));
    t.items.push_back(DialogItem(u"BUTTON", u"Header row", kCheckId, BS_AUTOCHECKBOX | WS_TABSTOP,
                                 7, 61, 100, 10));
    t.items.push_back(
        DialogItem(u"BUTTON", u"OK", IDOK, BS_DEFPUSHBUTTON | WS_TABSTOP, 89, 89, 50, 14));
    t.items.push_back(DialogItem(u"BUTTON", u"Cancel", IDCANCEL, WS_TABSTOP, 143, 89, 50, 14));
    return t;
}

// Logs every notification of the combo box with what the handler reads: the
// field's text, the current selection and that item's text.
class DelimiterDialog : public CDialog {
public:
    CComboBox combo;
    CComboBox list;
    CEdit edit;
    CButton check;
    std::vector<std::string> log;

    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        for (const char16_t* name : {u"Comma", u"Tab", u"Semicolon", u"Space"})
            combo.AddString(name);
        for (const char16_t* name : {u"None", u"Double quote", u"Single quote"})
            list.AddString(name);
        combo.SetCurSel(0);
        list.SetCurSel(1);
        log.clear();
        return TRUE;
    }
    void DoDataExchange(CDataExchange* dx) override {
        DDX_Control(dx, kComboId, combo);
        DDX_Control(dx, kListId, list);
        DDX_Control(dx, kEditId, edit);
        DDX_Control(dx, kCheckId, check);
    }

    void Note(const char* what) {
        CString text;
        combo.GetWindowText(text);
        std::string entry = std::string(what) +
                            " text=" + Narrow(std::u16string(text.GetString(), text.GetLength()));
        int sel = combo.GetCurSel();
        if (sel != CB_ERR) {
            CString item;
            combo.GetLBText(sel, item);
            entry += " item=" + Narrow(std::u16string(item.GetString(), item.GetLength()));
        }
        log.push_back(entry);
    }
    void OnSelChange() { Note("selchange"); }
    void OnEditChange() { Note("editchange"); }
    void OnEditUpdate() { Note("editupdate"); }
    void OnDropDown() { Note("dropdown"); }
    void OnCloseUp() { Note("closeup"); }
    void OnSelEndOk() { Note("selendok"); }
    void OnListSelChange() {
        CString text;
        list.GetWindowText(text);
        log.push_back("list selchange text=" +
                      Narrow(std::u16string(text.GetString(), text.GetLength())));
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(DelimiterDialog, CDialog)
ON_CBN_SELCHANGE(kComboId, OnSelChange)
ON_CBN_EDITCHANGE(kComboId, OnEditChange)
ON_CBN_EDITUPDATE(kComboId, OnEditUpdate)
ON_CBN_DROPDOWN(kComboId, OnDropDown)
ON_CBN_CLOSEUP(kComboId, OnCloseUp)
ON_CBN_SELENDOK(kComboId, OnSelEndOk)
ON_CBN_SELCHANGE(kListId, OnListSelChange)
END_MESSAGE_MAP()

class ComboTest : public ::testing::Test {
protected:
    void SetUp() override {
        automation::Reset();
        tmpl = ComboTemplate();
        dialog.InitModalIndirect(&tmpl);
    }
    void TearDown() override { automation::Reset(); }

    // Reads something while the dialog is open.
    template <typename F> void Then(F read) { automation::Do(read); }

    platform::DialogTemplate tmpl;
    DelimiterDialog dialog;
};

TEST_F(ComboTest, PickingAnItemNotifiesSelChangeBeforeTheFieldTakesItsText) {
    std::u16string after;
    automation::PickComboItem(kComboId, 2);
    Then([&] { after = TextOf(dialog.combo.m_hWnd); });
    automation::Click(IDCANCEL);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    std::vector<std::string> expected{
        "dropdown text=Comma item=Comma", "selchange text=Comma item=Semicolon",
        "selendok text=Semicolon item=Semicolon", "closeup text=Semicolon item=Semicolon"};
    EXPECT_EQ(dialog.log, expected);
    EXPECT_EQ(after, u"Semicolon");
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(ComboTest, ArrowKeysInTheFieldPickTheNextItemTheSameWay) {
    // The combo box is the first tab stop: the dialog starts with its field focused.
    automation::Key(VK_DOWN);
    automation::Key(VK_DOWN);
    automation::Key(VK_UP);
    automation::Key(VK_UP);
    automation::Key(VK_UP); // already at the first item: nothing
    automation::Click(IDCANCEL);
    dialog.DoModal();
    std::vector<std::string> expected{
        "selchange text=Comma item=Tab", "selchange text=Tab item=Semicolon",
        "selchange text=Semicolon item=Tab", "selchange text=Tab item=Comma"};
    EXPECT_EQ(dialog.log, expected);
}

TEST_F(ComboTest, TypingInTheFieldNotifiesEditUpdateThenEditChangeWithTheNewText) {
    std::u16string text;
    int selected = 0;
    // The field's text was selected when the dialog focused it: typing replaces it.
    automation::Type(u"|;");
    Then([&] {
        text = TextOf(dialog.combo.m_hWnd);
        selected = dialog.combo.GetCurSel();
    });
    automation::Click(IDCANCEL);
    dialog.DoModal();
    std::vector<std::string> expected{
        "editupdate text=| item=Comma", "editchange text=| item=Comma",
        "editupdate text=|; item=Comma", "editchange text=|; item=Comma"};
    EXPECT_EQ(dialog.log, expected);
    EXPECT_EQ(text, u"|;");
    EXPECT_EQ(selected, 0);
}

TEST_F(ComboTest, ChangesMadeByTheProgramNotifyNothing) {
    std::u16string text;
    Then([&] {
        dialog.combo.SetCurSel(3);
        dialog.combo.SelectString(-1, u"t");
        dialog.combo.SetWindowText(u"custom");
        dialog.combo.InsertString(0, u"Pipe");
        dialog.combo.DeleteString(1);
        dialog.list.SetCurSel(2);
        dialog.list.SetWindowText(u"None");
        text = TextOf(dialog.combo.m_hWnd);
    });
    automation::Click(IDCANCEL);
    dialog.DoModal();
    EXPECT_TRUE(dialog.log.empty()) << dialog.log.front();
    EXPECT_EQ(text, u"custom");
}

TEST_F(ComboTest, ADropDownListTakesItsTextFromItsItems) {
    std::u16string picked;
    std::u16string kept;
    automation::PickComboItem(kListId, u"single QUOTE");
    Then([&] {
        picked = TextOf(dialog.list.m_hWnd);
        // Text that names no item is refused.
        EXPECT_EQ(SetWindowText(dialog.list.m_hWnd, u"Backtick"), CB_ERR);
        kept = TextOf(dialog.list.m_hWnd);
    });
    automation::PickComboItem(kListId, u"Backtick");
    automation::Click(IDCANCEL);
    dialog.DoModal();
    EXPECT_EQ(picked, u"Single quote");
    EXPECT_EQ(kept, u"Single quote");
    std::vector<std::string> expected{"list selchange text=Double quote"};
    EXPECT_EQ(dialog.log, expected);
    const auto& record = automation::Record();
    EXPECT_NE(std::find(record.begin(), record.end(), "pick 'Backtick' in 201: no such item"),
              record.end());
}

TEST_F(ComboTest, EscapeClosesTheDroppedListWithoutPicking) {
    bool dropped = false;
    automation::Key(VK_F4);
    Then([&] { dropped = dialog.combo.GetDroppedState(); });
    automation::Key(VK_DOWN);
    automation::Key(VK_ESCAPE);
    automation::Click(IDCANCEL);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_TRUE(dropped);
    std::vector<std::string> expected{"dropdown text=Comma item=Comma",
                                      "selchange text=Comma item=Tab", "closeup text=Tab item=Tab"};
    EXPECT_EQ(dialog.log, expected);
}

TEST_F(ComboTest, TheDroppedListIsDrawnOverTheDialogWithTheSelectionHighlighted) {
    bool dropped = false;
    int selectedPixels = 0;
    COLORREF highlight = 0;
    COLORREF below = 0;
    automation::Key(VK_F4);
    Then([&] {
        RECT combo;
        GetWindowRect(dialog.combo.m_hWnd, &combo);
        HDC screen = GetDC(nullptr);
        // A picture to look at: the dialog with its list dropped.
        platform::SaveDcAsPng(
            screen,
            (testing_support::TestOutputDir("combo-pictures") / "combo-dropped.png").string());
        // The first row (the current item, Comma) is highlighted; the
        // row below it shows the list's white background, not the dialog.
        highlight = GetPixel(screen, combo.left + 60, combo.bottom + 1 + 3);
        below = GetPixel(screen, combo.right - 4, combo.bottom + 1 + 20);
        ReleaseDC(nullptr, screen);
        dropped = dialog.combo.GetDroppedState();
        // The field (id 1001) still shows its text, selected.
        HWND field = GetDlgItem(dialog.combo.m_hWnd, 1001);
        HDC fieldDc = GetDC(field);
        RECT client;
        GetClientRect(field, &client);
        for (int x = 0; x < client.right; ++x)
            selectedPixels +=
                GetPixel(fieldDc, x, client.bottom / 2) == GetSysColor(COLOR_HIGHLIGHT);
        ReleaseDC(field, fieldDc);
    });
    automation::Key(VK_ESCAPE);
    automation::Click(IDCANCEL);
    dialog.DoModal();
    EXPECT_EQ(highlight, GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(below, GetSysColor(COLOR_WINDOW));
    EXPECT_TRUE(dropped);
    EXPECT_GT(selectedPixels, 10);
}

TEST_F(ComboTest, TheWrappersSendTheControlsMessages) {
    Then([&] {
        CComboBox& combo = dialog.combo;
        EXPECT_EQ(combo.GetCount(), 4);
        EXPECT_EQ(combo.AddString(u"Pipe"), 4);
        EXPECT_EQ(combo.InsertString(1, u"Colon"), 1);
        EXPECT_EQ(combo.GetLBTextLen(1), 5);
        WCHAR buffer[16]{};
        EXPECT_EQ(combo.GetLBText(5, buffer), 4);
        EXPECT_EQ(std::u16string(buffer), u"Pipe");
        EXPECT_EQ(combo.GetLBTextLen(9), CB_ERR);
        EXPECT_EQ(combo.SetItemData(2, 77), TRUE);
        EXPECT_EQ(combo.GetItemData(2), 77u);
        EXPECT_EQ(combo.GetItemData(9), static_cast<DWORD_PTR>(CB_ERR));
        // The selection follows its item when others come and go.
        combo.SetCurSel(2);
        combo.DeleteString(0);
        EXPECT_EQ(combo.GetCurSel(), 1);
        EXPECT_EQ(combo.GetItemData(1), 77u);
        combo.DeleteString(1);
        EXPECT_EQ(combo.GetCurSel(), CB_ERR);
        EXPECT_EQ(combo.DeleteString(42), CB_ERR);
        combo.ResetContent();
        EXPECT_EQ(combo.GetCount(), 0);
        EXPECT_EQ(combo.SetCurSel(0), CB_ERR);

        CEdit& edit = dialog.edit;
        edit.SetWindowText(u"abc");
        edit.SetSel(1, 2);
        int start = 0;
        int end = 0;
        edit.GetSel(start, end);
        EXPECT_EQ(start, 1);
        EXPECT_EQ(end, 2);
        edit.ReplaceSel(u"XY");
        EXPECT_EQ(TextOf(edit.m_hWnd), u"aXYc");
        edit.LimitText(3);
        EXPECT_EQ(edit.GetLimitText(), 3u);
        EXPECT_EQ(edit.GetLineCount(), 1);
        edit.SetReadOnly();
        EXPECT_TRUE(edit.GetStyle() & ES_READONLY);

        CButton& check = dialog.check;
        check.SetCheck(BST_CHECKED);
        EXPECT_EQ(check.GetCheck(), BST_CHECKED);
        EXPECT_EQ(check.GetButtonStyle() & BS_TYPEMASK, static_cast<UINT>(BS_AUTOCHECKBOX));
        check.SetState(TRUE);
        EXPECT_TRUE(check.GetState() & BST_PUSHED);
    });
    automation::Click(IDCANCEL);
    dialog.DoModal();
}

class SearchTest : public ::testing::Test {
protected:
    void SetUp() override {
        combo = host.Add(u"COMBOBOX", CBS_DROPDOWN, 10, 10, 120, 100, kComboId);
        for (const char16_t* item : {u"apple", u"Banana", u"band", u"Cherry", u"\u00e9clair"})
            SendMessage(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
    }
    LRESULT Find(UINT message, int start, const char16_t* text) {
        return SendMessage(combo, message, static_cast<WPARAM>(start),
                           reinterpret_cast<LPARAM>(text));
    }
    controls_test::Host host;
    HWND combo = nullptr;
};

TEST_F(SearchTest, FindStringMatchesPrefixesFromTheItemAfterStartAndWraps) {
    EXPECT_EQ(Find(CB_FINDSTRING, -1, u"ban"), 1);
    EXPECT_EQ(Find(CB_FINDSTRING, 1, u"BAN"), 2);
    EXPECT_EQ(Find(CB_FINDSTRING, 2, u"ban"), 1);
    EXPECT_EQ(Find(CB_FINDSTRING, 0, u"apple"), 0);
    EXPECT_EQ(Find(CB_FINDSTRING, -1, u""), 0);
    EXPECT_EQ(Find(CB_FINDSTRING, -1, u"bananas"), CB_ERR);
    // Only A to Z fold.
    EXPECT_EQ(Find(CB_FINDSTRING, -1, u"\u00c9"), CB_ERR);
    EXPECT_EQ(Find(CB_FINDSTRING, -1, u"\u00e9"), 4);
    EXPECT_EQ(Find(CB_FINDSTRINGEXACT, -1, u"BAND"), 2);
    EXPECT_EQ(Find(CB_FINDSTRINGEXACT, -1, u"ban"), CB_ERR);
    EXPECT_EQ(SendMessage(combo, CB_FINDSTRING, 0, 0), CB_ERR);
}

TEST_F(SearchTest, SelectStringSelectsThePrefixMatchAndShowsItsText) {
    host.Log().clear();
    EXPECT_EQ(Find(CB_SELECTSTRING, -1, u"ch"), 3);
    EXPECT_EQ(SendMessage(combo, CB_GETCURSEL, 0, 0), 3);
    EXPECT_EQ(TextOf(combo), u"Cherry");
    EXPECT_EQ(Find(CB_SELECTSTRING, -1, u"kiwi"), CB_ERR);
    EXPECT_EQ(SendMessage(combo, CB_GETCURSEL, 0, 0), 3);
    EXPECT_EQ(TextOf(combo), u"Cherry");
    EXPECT_TRUE(host.Log().empty());
}

} // namespace

namespace {

class OtherStylesTest : public ::testing::Test {
protected:
    void SetUp() override { automation::Reset(); }
    void TearDown() override { automation::Reset(); }

    HWND Combo(DWORD style) {
        HWND combo = host.Add(u"COMBOBOX", style | WS_TABSTOP, 10, 10, 120, 100, kComboId);
        for (const char16_t* item : {u"Red", u"Green", u"Blue", u"Black"})
            SendMessage(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
        SendMessage(combo, CB_SETCURSEL, 0, 0);
        host.Log().clear();
        return combo;
    }
    controls_test::Host host;
};

TEST_F(OtherStylesTest, ASimpleComboBoxShowsItsListAndAClickPicksAtOnce) {
    HWND combo = Combo(CBS_SIMPLE);
    automation::PickComboItem(kComboId, 2);
    controls_test::RunUser();
    EXPECT_EQ(TextOf(combo), u"Blue");
    EXPECT_EQ(SendMessage(combo, CB_GETCURSEL, 0, 0), 2);
    EXPECT_FALSE(SendMessage(combo, CB_GETDROPPEDSTATE, 0, 0));
    // The host logs the combo box's text as the notification arrives.
    ASSERT_FALSE(host.Log().empty());
    EXPECT_EQ(host.Log().back(), "selchange:Red");
    RECT rect;
    GetClientRect(combo, &rect);
    EXPECT_EQ(rect.bottom, 100); // the list stays inside the combo box
}

TEST_F(OtherStylesTest, ADropDownListPicksTheNextItemStartingWithATypedLetter) {
    HWND combo = Combo(CBS_DROPDOWNLIST);
    SetFocus(combo);
    host.Log().clear();
    automation::Type(u"bbx");
    controls_test::RunUser();
    EXPECT_EQ(TextOf(combo), u"Black");
    std::vector<std::string> expected{"selchange:Red", "selchange:Blue"};
    EXPECT_EQ(host.Log(), expected);
    // The field is only as tall as a line of text; the rest is the list's.
    RECT rect;
    GetClientRect(combo, &rect);
    EXPECT_LT(rect.bottom, 30);
}

} // namespace

namespace {

TEST(ComboItemsTest, ASortedComboBoxAddsInOrderAndInsertKeepsThePlaceAsked) {
    controls_test::Host host;
    HWND combo = host.Add(u"COMBOBOX", CBS_DROPDOWN | CBS_SORT, 10, 10, 120, 100, kComboId);
    auto add = [combo](const char16_t* text) {
        return SendMessage(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    };
    EXPECT_EQ(add(u"pear"), 0);
    EXPECT_EQ(add(u"Apple"), 0);
    EXPECT_EQ(add(u"banana"), 1);
    EXPECT_EQ(add(u"APPLE"), 1); // after the item that compares equal
    EXPECT_EQ(SendMessage(combo, CB_INSERTSTRING, 0, reinterpret_cast<LPARAM>(u"zebra")), 0);
    EXPECT_EQ(SendMessage(combo, CB_INSERTSTRING, 9, reinterpret_cast<LPARAM>(u"x")), CB_ERR);
    EXPECT_EQ(SendMessage(combo, CB_INSERTSTRING, static_cast<WPARAM>(-1),
                          reinterpret_cast<LPARAM>(u"end")),
              5);
    std::vector<std::u16string> items;
    for (int i = 0; i < SendMessage(combo, CB_GETCOUNT, 0, 0); ++i) {
        WCHAR buffer[16]{};
        SendMessage(combo, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(buffer));
        items.emplace_back(buffer);
    }
    std::vector<std::u16string> expected{u"zebra", u"Apple", u"APPLE", u"banana", u"pear", u"end"};
    EXPECT_EQ(items, expected);
    // Bad arguments give CB_ERR, never a crash.
    EXPECT_EQ(SendMessage(combo, CB_GETLBTEXT, 0, 0), CB_ERR);
    EXPECT_EQ(SendMessage(combo, CB_SELECTSTRING, static_cast<WPARAM>(-1), 0), CB_ERR);
    EXPECT_EQ(SendMessage(combo, CB_SETITEMDATA, 42, 1), CB_ERR);
}

} // namespace
