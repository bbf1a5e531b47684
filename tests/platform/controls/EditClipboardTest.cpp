// The edit control and the clipboard: Ctrl+C/X/V and the Insert/Delete
// chords, the messages behind them, and the fields that must not give their
// text away or take a change.
#include "ControlTestSupport.h"

#include <gtest/gtest.h>

#include <string>

namespace {

namespace automation = platform::automation;
using controls_test::Host;
using controls_test::RunUser;
using controls_test::TextOf;

void PutText(const std::u16string& text) {
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(char16_t));
    auto* units = static_cast<char16_t*>(GlobalLock(block));
    std::copy(text.c_str(), text.c_str() + text.size() + 1, units);
    GlobalUnlock(block);
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    ASSERT_NE(SetClipboardData(CF_UNICODETEXT, block), nullptr);
    CloseClipboard();
}

std::u16string ClipboardText() {
    std::u16string text;
    if (!OpenClipboard(nullptr))
        return text;
    if (HANDLE block = GetClipboardData(CF_UNICODETEXT)) {
        text = static_cast<const char16_t*>(GlobalLock(block));
        GlobalUnlock(block);
    }
    CloseClipboard();
    return text;
}

class EditClipboardTest : public ::testing::Test {
protected:
    void SetUp() override { automation::Reset(); }
    void TearDown() override { automation::Reset(); }

    HWND Edit(DWORD style, const char16_t* text) {
        HWND edit = host.Add(u"EDIT", WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL | style, 10, 10, 300,
                             23, 100);
        SetWindowText(edit, text);
        SetFocus(edit);
        host.Log().clear();
        return edit;
    }

    Host host;
};

TEST_F(EditClipboardTest, ControlKeysCopyCutAndPasteTheSelection) {
    HWND edit = Edit(0, u"alpha beta");
    SendMessage(edit, EM_SETSEL, 0, 5);
    automation::Key('C', false, true);
    RunUser();
    EXPECT_EQ(ClipboardText(), u"alpha");
    EXPECT_EQ(TextOf(edit), u"alpha beta") << "copying changes nothing";
    EXPECT_TRUE(host.Log().empty());

    SendMessage(edit, EM_SETSEL, 5, 10);
    automation::Key('X', false, true);
    RunUser();
    EXPECT_EQ(ClipboardText(), u" beta");
    EXPECT_EQ(TextOf(edit), u"alpha");
    EXPECT_EQ(host.Log().back(), "change:alpha");

    SendMessage(edit, EM_SETSEL, 0, 0);
    automation::Key('V', false, true);
    RunUser();
    EXPECT_EQ(TextOf(edit), u" betaalpha");

    // The older chords do the same.
    SendMessage(edit, EM_SETSEL, 0, 5);
    automation::Key(VK_DELETE, true, false); // Shift+Delete cuts
    RunUser();
    EXPECT_EQ(TextOf(edit), u"alpha");
    EXPECT_EQ(ClipboardText(), u" beta");
    automation::Key(VK_END);
    automation::Key(VK_INSERT, true, false); // Shift+Insert pastes
    RunUser();
    EXPECT_EQ(TextOf(edit), u"alpha beta");
    SendMessage(edit, EM_SETSEL, 0, 2);
    automation::Key(VK_INSERT, false, true); // Ctrl+Insert copies
    RunUser();
    EXPECT_EQ(ClipboardText(), u"al");
}

TEST_F(EditClipboardTest, PasteIntoOneLineKeepsTheFirstLineAndHonoursTheLimit) {
    HWND edit = Edit(0, u"");
    SendMessage(edit, EM_LIMITTEXT, 6, 0);
    PutText(u"first line\r\nsecond");
    SendMessage(edit, WM_PASTE, 0, 0);
    EXPECT_EQ(TextOf(edit), u"first ");

    HWND lines = host.Add(u"EDIT", WS_BORDER | ES_MULTILINE, 10, 40, 300, 80, 101);
    SendMessage(lines, WM_PASTE, 0, 0);
    EXPECT_EQ(TextOf(lines), u"first line\r\nsecond");
}

TEST_F(EditClipboardTest, PasswordAndReadOnlyFieldsKeepWhatTheyShould) {
    PutText(u"before");
    HWND secret = Edit(ES_PASSWORD, u"hidden");
    SendMessage(secret, EM_SETSEL, 0, -1);
    SendMessage(secret, WM_COPY, 0, 0);
    SendMessage(secret, WM_CUT, 0, 0);
    EXPECT_EQ(ClipboardText(), u"before") << "a password never reaches the clipboard";
    EXPECT_EQ(TextOf(secret), u"") << "but cutting still removes it";

    HWND fixed = host.Add(u"EDIT", WS_BORDER | ES_READONLY, 10, 40, 300, 23, 101);
    SetWindowText(fixed, u"fixed text");
    SendMessage(fixed, EM_SETSEL, 0, 5);
    SendMessage(fixed, WM_CUT, 0, 0);
    EXPECT_EQ(TextOf(fixed), u"fixed text");
    EXPECT_EQ(ClipboardText(), u"before");
    SendMessage(fixed, WM_COPY, 0, 0);
    EXPECT_EQ(ClipboardText(), u"fixed");
    SendMessage(fixed, WM_PASTE, 0, 0);
    SendMessage(fixed, WM_CLEAR, 0, 0);
    EXPECT_EQ(TextOf(fixed), u"fixed text");

    // Nothing selected: copying leaves the clipboard alone, clearing does nothing.
    HWND plain = Edit(0, u"abc");
    SendMessage(plain, EM_SETSEL, 1, 1);
    SendMessage(plain, WM_COPY, 0, 0);
    SendMessage(plain, WM_CLEAR, 0, 0);
    EXPECT_EQ(ClipboardText(), u"fixed");
    EXPECT_EQ(TextOf(plain), u"abc");
    // An empty clipboard pastes nothing.
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    CloseClipboard();
    SendMessage(plain, WM_PASTE, 0, 0);
    EXPECT_EQ(TextOf(plain), u"abc");
}

} // namespace
