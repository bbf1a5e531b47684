// More of the EDIT control: forced case, Tab in a multi-line field, arrows
// that collapse a selection, a drag that selects, clicks past the last line,
// what the line messages say about a selection across lines, and the first
// visible line of a scrolled field.
#include "ControlTestSupport.h"

#include <gtest/gtest.h>

namespace {

namespace automation = platform::automation;
using controls_test::Host;
using controls_test::RunUser;
using controls_test::TextOf;

std::pair<int, int> Selection(HWND edit) {
    DWORD from = 0;
    DWORD to = 0;
    SendMessage(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    return {static_cast<int>(from), static_cast<int>(to)};
}

class EditMoreTest : public ::testing::Test {
protected:
    void SetUp() override { automation::Reset(); }
    void TearDown() override { automation::Reset(); }

    HWND Edit(DWORD style, const char16_t* text = u"", int height = 23) {
        HWND edit = host.Add(u"EDIT", WS_BORDER | style, 10, 10, 200, height, 100, text);
        SetFocus(edit);
        host.Log().clear();
        return edit;
    }
    void Type(const std::u16string& text) {
        automation::Type(text);
        RunUser();
    }
    void Press(UINT vk, bool shift = false) {
        automation::Key(vk, shift);
        RunUser();
    }

    Host host;
};

TEST_F(EditMoreTest, UpperAndLowerCaseFieldsChangeWhatIsTyped) {
    HWND upper = Edit(ES_AUTOHSCROLL | ES_UPPERCASE);
    Type(u"Mixed 1a");
    EXPECT_EQ(TextOf(upper), u"MIXED 1A");
    DestroyWindow(upper);
    HWND lower = Edit(ES_AUTOHSCROLL | ES_LOWERCASE);
    Type(u"Mixed 1A");
    EXPECT_EQ(TextOf(lower), u"mixed 1a");
}

TEST_F(EditMoreTest, AMultiLineFieldTakesTabsAndASingleLineKeepsTheFirstLineOfAPaste) {
    HWND notes = Edit(ES_MULTILINE | ES_WANTRETURN, u"", 80);
    Type(u"a\tb");
    EXPECT_EQ(TextOf(notes), u"a\tb");
    DestroyWindow(notes);
    HWND single = Edit(ES_AUTOHSCROLL);
    SendMessage(single, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(u"first\r\nsecond"));
    EXPECT_EQ(TextOf(single), u"first");
    // Tab is no character for a single line.
    Type(u"\t");
    EXPECT_EQ(TextOf(single), u"first");
}

TEST_F(EditMoreTest, ArrowsWithoutShiftCollapseTheSelectionToTheSideTheyPointTo) {
    HWND edit = Edit(ES_AUTOHSCROLL, u"abcdef");
    SendMessage(edit, EM_SETSEL, 2, 4);
    Press(VK_LEFT);
    EXPECT_EQ(Selection(edit), std::make_pair(2, 2));
    SendMessage(edit, EM_SETSEL, 2, 4);
    Press(VK_RIGHT);
    EXPECT_EQ(Selection(edit), std::make_pair(4, 4));
    // In a single line, up and down step back and forth.
    Press(VK_UP);
    EXPECT_EQ(Selection(edit), std::make_pair(3, 3));
    Press(VK_DOWN);
    Press(VK_DOWN);
    EXPECT_EQ(Selection(edit), std::make_pair(5, 5));
}

TEST_F(EditMoreTest, UpAndDownMoveBetweenLinesAndStopAtTheEnds) {
    HWND edit = Edit(ES_MULTILINE, u"one\r\ntwo\r\nthree", 80);
    SendMessage(edit, EM_SETSEL, 6, 6); // "t|wo"
    Press(VK_UP);
    EXPECT_EQ(SendMessage(edit, EM_LINEFROMCHAR, static_cast<WPARAM>(-1), 0), 0);
    Press(VK_UP);
    EXPECT_EQ(SendMessage(edit, EM_LINEFROMCHAR, static_cast<WPARAM>(-1), 0), 0);
    Press(VK_DOWN);
    Press(VK_DOWN);
    EXPECT_EQ(SendMessage(edit, EM_LINEFROMCHAR, static_cast<WPARAM>(-1), 0), 2);
    Press(VK_DOWN);
    EXPECT_EQ(SendMessage(edit, EM_LINEFROMCHAR, static_cast<WPARAM>(-1), 0), 2);
}

TEST_F(EditMoreTest, DraggingSelectsAndAClickBelowTheTextGoesToTheLastLine) {
    HWND edit = Edit(ES_MULTILINE, u"one\r\ntwo", 80);
    RECT area{};
    SendMessage(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&area));
    RECT client;
    GetClientRect(edit, &client);
    EXPECT_GE(area.left, client.left);
    EXPECT_LE(area.right, client.right);
    EXPECT_LT(area.left, area.right);

    // Press at the start of the first line, drag far right and down, release.
    SendMessage(edit, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(area.left, area.top + 2));
    EXPECT_EQ(GetCapture(), edit);
    SendMessage(edit, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(area.right - 1, area.top + 2));
    EXPECT_EQ(Selection(edit), std::make_pair(0, 3));
    SendMessage(edit, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(area.right - 1, client.bottom - 2));
    EXPECT_EQ(Selection(edit), std::make_pair(0, 8));
    SendMessage(edit, WM_LBUTTONUP, 0, MAKELPARAM(area.right - 1, client.bottom - 2));
    EXPECT_EQ(GetCapture(), nullptr);
    // After the release the mouse no longer selects.
    SendMessage(edit, WM_MOUSEMOVE, 0, MAKELPARAM(area.left, area.top + 2));
    EXPECT_EQ(Selection(edit), std::make_pair(0, 8));

    // The characters of the selected lines that are not selected.
    SendMessage(edit, EM_SETSEL, 1, 6);
    EXPECT_EQ(SendMessage(edit, EM_LINELENGTH, static_cast<WPARAM>(-1), 0), 1 + 2);

    // Above the text: the first line.
    SendMessage(edit, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(area.left, 0));
    SendMessage(edit, WM_LBUTTONUP, 0, MAKELPARAM(area.left, 0));
    EXPECT_EQ(Selection(edit), std::make_pair(0, 0));
    // Losing the focus while the button is down ends the drag.
    SendMessage(edit, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(area.left, area.top + 2));
    SetFocus(host.hwnd());
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(EditMoreTest, TheFirstVisibleLineFollowsTheCaretOfAMultiLineFieldOnly) {
    std::u16string text;
    for (int i = 0; i < 20; ++i)
        text += u"line\r\n";
    text += u"last";
    HWND edit = Edit(ES_MULTILINE | ES_AUTOVSCROLL, text.c_str(), 60);
    EXPECT_EQ(SendMessage(edit, EM_GETFIRSTVISIBLELINE, 0, 0), 0);
    SendMessage(edit, EM_SETSEL, static_cast<WPARAM>(-1), -1);
    SendMessage(edit, EM_SETSEL, 200, 200);
    SendMessage(edit, EM_SCROLLCARET, 0, 0);
    LRESULT first = SendMessage(edit, EM_GETFIRSTVISIBLELINE, 0, 0);
    EXPECT_GT(first, 10);
    // Back to the top: the view follows up again.
    Press(VK_HOME, false);
    SendMessage(edit, EM_SETSEL, 0, 0);
    SendMessage(edit, EM_SCROLLCARET, 0, 0);
    EXPECT_EQ(SendMessage(edit, EM_GETFIRSTVISIBLELINE, 0, 0), 0);

    HWND single = host.Add(u"EDIT", WS_BORDER | ES_AUTOHSCROLL, 10, 100, 200, 23, 101, u"x");
    EXPECT_EQ(SendMessage(single, EM_GETFIRSTVISIBLELINE, 0, 0), 0);
    auto font = reinterpret_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    SendMessage(single, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    EXPECT_EQ(reinterpret_cast<HFONT>(SendMessage(single, WM_GETFONT, 0, 0)), font);
}

} // namespace
