// The EDIT control driven by the simulated user: typing, the selection,
// Backspace and Delete, the text limit, multi-line text, and what the parent
// is told and when.
#include "ControlTestSupport.h"

#include <platform/GdiObjects.h>
#include <support/TempDir.h>

#include <gtest/gtest.h>

namespace {

namespace automation = platform::automation;
using controls_test::Host;
using controls_test::RunUser;
using controls_test::TextOf;

constexpr UINT kEditId = 100;

std::pair<int, int> Selection(HWND edit) {
    DWORD from = 0;
    DWORD to = 0;
    SendMessage(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    return {static_cast<int>(from), static_cast<int>(to)};
}

class EditTest : public ::testing::Test {
protected:
    void SetUp() override { automation::Reset(); }
    void TearDown() override { automation::Reset(); }

    HWND SingleLine(DWORD style = ES_AUTOHSCROLL, int width = 200) {
        HWND edit = host.Add(u"EDIT", WS_BORDER | WS_TABSTOP | style, 10, 10, width, 23, kEditId);
        SetFocus(edit);
        host.Log().clear();
        return edit;
    }

    Host host;
};

TEST_F(EditTest, TypedCharactersAreInsertedAndEachChangeIsReportedAfterTheTextChanged) {
    HWND edit = SingleLine();
    automation::Type(u"Hi!");
    RunUser();
    EXPECT_EQ(TextOf(edit), u"Hi!");
    EXPECT_EQ(Selection(edit), std::make_pair(3, 3));
    std::vector<std::string> expected{"update:H",  "change:H",   "update:Hi",
                                      "change:Hi", "update:Hi!", "change:Hi!"};
    EXPECT_EQ(host.Log(), expected);
}

TEST_F(EditTest, TypingReplacesTheSelectionAndBackspaceAndDeleteRemoveIt) {
    HWND edit = SingleLine();
    SetWindowText(edit, u"Hello world");
    SendMessage(edit, EM_SETSEL, 0, 5);
    automation::Type(u"Bye");
    RunUser();
    EXPECT_EQ(TextOf(edit), u"Bye world");

    automation::Key(VK_BACK);
    RunUser();
    EXPECT_EQ(TextOf(edit), u"By world");
    EXPECT_EQ(Selection(edit), std::make_pair(2, 2));

    // Shift extends the selection from where the caret was.
    automation::Key(VK_RIGHT, true);
    automation::Key(VK_RIGHT, true);
    automation::Key(VK_DELETE);
    RunUser();
    EXPECT_EQ(TextOf(edit), u"Byorld");

    automation::Key(VK_HOME);
    automation::Key(VK_DELETE);
    automation::Key(VK_END);
    automation::Key(VK_LEFT, true);
    RunUser();
    EXPECT_EQ(TextOf(edit), u"yorld");
    EXPECT_EQ(Selection(edit), std::make_pair(4, 5));

    // Ctrl+A selects everything; typing replaces it.
    automation::Key('A', false, true);
    automation::Type(u"x");
    RunUser();
    EXPECT_EQ(TextOf(edit), u"x");

    // Backspace at the start and Delete at the end change nothing.
    host.Log().clear();
    SendMessage(edit, EM_SETSEL, 0, 0);
    automation::Key(VK_BACK);
    automation::Key(VK_END);
    automation::Key(VK_DELETE);
    RunUser();
    EXPECT_EQ(TextOf(edit), u"x");
    EXPECT_TRUE(host.Log().empty());
}

TEST_F(EditTest, SetSelTakesMinusOneAsAllOrAsNoSelection) {
    HWND edit = SingleLine();
    SetWindowText(edit, u"abcdef");
    SendMessage(edit, EM_SETSEL, 0, -1);
    EXPECT_EQ(Selection(edit), std::make_pair(0, 6));
    SendMessage(edit, EM_SETSEL, 4, 2);
    EXPECT_EQ(Selection(edit), std::make_pair(2, 4));
    EXPECT_EQ(SendMessage(edit, EM_GETSEL, 0, 0), MAKELRESULT(2, 4));
    SendMessage(edit, EM_SETSEL, 1, 100);
    EXPECT_EQ(Selection(edit), std::make_pair(1, 6));
    SendMessage(edit, EM_SETSEL, static_cast<WPARAM>(-1), 0);
    EXPECT_EQ(Selection(edit).first, Selection(edit).second);
}

TEST_F(EditTest, TheLimitStopsTypingAndReplacingWithMaxText) {
    HWND edit = SingleLine();
    EXPECT_EQ(SendMessage(edit, EM_GETLIMITTEXT, 0, 0), 32767);
    SendMessage(edit, EM_LIMITTEXT, 5, 0);
    automation::Type(u"abcdefg");
    RunUser();
    EXPECT_EQ(TextOf(edit), u"abcde");
    EXPECT_EQ(std::count(host.Log().begin(), host.Log().end(), "maxtext:abcde"), 2);

    SendMessage(edit, EM_SETSEL, 1, 2);
    SendMessage(edit, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(u"XYZ"));
    EXPECT_EQ(TextOf(edit), u"aXcde");
    // Text set by the program is not held to the limit.
    SetWindowText(edit, u"0123456789");
    EXPECT_EQ(TextOf(edit), u"0123456789");
}

TEST_F(EditTest, WithoutAutoHScrollTheFieldTakesOnlyWhatFitsItsWidth) {
    HWND narrow = SingleLine(0, 60);
    automation::Type(u"a fairly long line of text");
    RunUser();
    std::u16string kept = TextOf(narrow);
    EXPECT_LT(kept.size(), 26u);
    EXPECT_GT(kept.size(), 3u);
    EXPECT_EQ(host.Log().back(), "maxtext:" + controls_test::Narrow(kept));

    HWND scrolling = host.Add(u"EDIT", WS_BORDER | ES_AUTOHSCROLL, 10, 50, 60, 23, kEditId + 1);
    SetFocus(scrolling);
    automation::Type(u"a fairly long line of text");
    RunUser();
    EXPECT_EQ(TextOf(scrolling), u"a fairly long line of text");
}

TEST_F(EditTest, SetTextReportsAChangeForASingleLineEditOnly) {
    HWND single = SingleLine();
    SetWindowText(single, u"new");
    std::vector<std::string> expected{"update:new", "change:new"};
    EXPECT_EQ(host.Log(), expected);

    HWND multi = host.Add(u"EDIT", WS_BORDER | ES_MULTILINE, 10, 50, 200, 80, kEditId + 1);
    host.Log().clear();
    SetWindowText(multi, u"one\r\ntwo");
    EXPECT_TRUE(host.Log().empty());
}

TEST_F(EditTest, ReadOnlyTextCannotBeTypedOver) {
    HWND edit = SingleLine(ES_READONLY | ES_AUTOHSCROLL);
    SetWindowText(edit, u"fixed");
    host.Log().clear();
    automation::Type(u"xy");
    automation::Key(VK_BACK);
    automation::Key(VK_DELETE);
    RunUser();
    EXPECT_EQ(TextOf(edit), u"fixed");
    EXPECT_TRUE(host.Log().empty());
    SendMessage(edit, EM_SETREADONLY, FALSE, 0);
    automation::Type(u"!");
    RunUser();
    EXPECT_EQ(TextOf(edit), u"!fixed");
}

TEST_F(EditTest, MultiLineTextIsLinesSeparatedByCrLf) {
    HWND edit =
        host.Add(u"EDIT", WS_BORDER | ES_MULTILINE | ES_AUTOVSCROLL, 10, 10, 200, 100, kEditId);
    SetWindowText(edit, u"one\r\ntwo\r\nthree");
    EXPECT_EQ(SendMessage(edit, EM_GETLINECOUNT, 0, 0), 3);
    EXPECT_EQ(SendMessage(edit, EM_LINEINDEX, 1, 0), 5);
    EXPECT_EQ(SendMessage(edit, EM_LINEINDEX, 3, 0), -1);
    EXPECT_EQ(SendMessage(edit, EM_LINELENGTH, 5, 0), 3);
    EXPECT_EQ(SendMessage(edit, EM_LINELENGTH, 10, 0), 5);
    EXPECT_EQ(SendMessage(edit, EM_LINEFROMCHAR, 4, 0), 0);
    WCHAR line[16]{};
    line[0] = 16;
    EXPECT_EQ(SendMessage(edit, EM_GETLINE, 2, reinterpret_cast<LPARAM>(line)), 5);
    EXPECT_EQ(std::u16string(line, 5), u"three");

    // Enter breaks the line; one Backspace joins it again.
    SetFocus(edit);
    SendMessage(edit, EM_SETSEL, 3, 3);
    automation::Type(u"\r");
    RunUser();
    EXPECT_EQ(TextOf(edit), u"one\r\n\r\ntwo\r\nthree");
    EXPECT_EQ(SendMessage(edit, EM_GETLINECOUNT, 0, 0), 4);
    automation::Key(VK_BACK);
    RunUser();
    EXPECT_EQ(TextOf(edit), u"one\r\ntwo\r\nthree");
    // Down goes to the same column of the next line; Home to its start.
    automation::Key(VK_DOWN);
    automation::Type(u"+");
    automation::Key(VK_HOME);
    automation::Type(u"<");
    RunUser();
    EXPECT_EQ(TextOf(edit), u"one\r\n<two+\r\nthree");
    // Right steps over a line break as one character.
    SendMessage(edit, EM_SETSEL, 3, 3);
    automation::Key(VK_RIGHT);
    RunUser();
    EXPECT_EQ(Selection(edit), std::make_pair(5, 5));
}

TEST_F(EditTest, MultiLineTextIsDrawnAsOneRowPerLine) {
    HWND edit = host.Add(u"EDIT", ES_MULTILINE, 10, 10, 200, 100, kEditId);
    SetWindowText(edit, u"Alpha\r\nBravo\r\nCharlie");
    RunUser();
    auto bands = controls_test::InkBands(edit);
    ASSERT_EQ(bands.size(), 3u);
    EXPECT_LT(bands[0].second, bands[1].first);
    EXPECT_LT(bands[1].second, bands[2].first);

    HWND single = host.Add(u"EDIT", ES_AUTOHSCROLL, 10, 120, 200, 23, kEditId + 1);
    SetWindowText(single, u"Alpha\r\nBravo");
    RunUser();
    EXPECT_EQ(TextOf(single), u"Alpha\r\nBravo");
    EXPECT_EQ(controls_test::InkBands(single).size(), 1u);
}

TEST_F(EditTest, AMultiLineEditWithoutSidewaysScrollingBreaksLongLinesAtSpaces) {
    const char16_t* text = u"alpha beta gamma delta epsilon\r\nAbcdefghijklmnopqrstuvwxyz";
    HWND wrapping = host.Add(u"EDIT", WS_BORDER | ES_MULTILINE, 10, 10, 90, 180, kEditId, text);
    HWND scrolling = host.Add(u"EDIT", WS_BORDER | ES_MULTILINE | ES_AUTOHSCROLL, 110, 10, 90, 120,
                              kEditId + 1, text);
    EXPECT_EQ(SendMessage(scrolling, EM_GETLINECOUNT, 0, 0), 2);
    int lines = static_cast<int>(SendMessage(wrapping, EM_GETLINECOUNT, 0, 0));
    EXPECT_GT(lines, 3);
    // The text itself keeps no extra breaks.
    EXPECT_EQ(TextOf(wrapping), text);
    std::u16string all = text;
    int secondStart = static_cast<int>(SendMessage(wrapping, EM_LINEINDEX, 1, 0));
    ASSERT_GT(secondStart, 0);
    // The first line ends after a space, so the second starts with a word.
    EXPECT_EQ(all[static_cast<std::size_t>(secondStart) - 1], u' ');
    EXPECT_NE(all[static_cast<std::size_t>(secondStart)], u' ');
    // The long word is broken inside; every line fits the field.
    for (int line = 0; line < lines; ++line)
        EXPECT_GT(SendMessage(wrapping, EM_LINELENGTH,
                              static_cast<WPARAM>(SendMessage(wrapping, EM_LINEINDEX, line, 0)), 0),
                  0);
    RunUser();
    EXPECT_EQ(static_cast<int>(controls_test::InkBands(wrapping).size()), lines);
}

TEST_F(EditTest, TheDialogCodeAsksForKeysAsTheOriginalDoes) {
    HWND single = SingleLine();
    EXPECT_EQ(SendMessage(single, WM_GETDLGCODE, 0, 0),
              DLGC_WANTCHARS | DLGC_HASSETSEL | DLGC_WANTARROWS);
    HWND multi = host.Add(u"EDIT", ES_MULTILINE, 10, 50, 200, 60, kEditId + 1);
    EXPECT_EQ(SendMessage(multi, WM_GETDLGCODE, 0, 0),
              DLGC_WANTCHARS | DLGC_HASSETSEL | DLGC_WANTARROWS | DLGC_WANTALLKEYS);
    HWND fixed = host.Add(u"EDIT", ES_MULTILINE | ES_READONLY, 10, 120, 200, 60, kEditId + 2);
    EXPECT_EQ(SendMessage(fixed, WM_GETDLGCODE, 0, 0),
              DLGC_WANTCHARS | DLGC_HASSETSEL | DLGC_WANTARROWS);
}

TEST_F(EditTest, AClickPlacesTheCaretAndFocusIsReported) {
    HWND other = host.Add(u"EDIT", WS_BORDER, 10, 50, 200, 23, kEditId + 1);
    SetFocus(other);
    HWND edit =
        host.Add(u"EDIT", WS_BORDER | ES_AUTOHSCROLL, 10, 10, 200, 23, kEditId, u"click me");
    host.Log().clear();
    automation::ClickAt(edit, POINT{190, 10});
    RunUser();
    EXPECT_EQ(GetFocus(), edit);
    EXPECT_EQ(Selection(edit), std::make_pair(8, 8));
    std::vector<std::string> expected{"killfocus:", "setfocus:click me"};
    EXPECT_EQ(host.Log(), expected);
    automation::ClickAt(edit, POINT{1, 10});
    RunUser();
    EXPECT_EQ(Selection(edit), std::make_pair(0, 0));
}

TEST_F(EditTest, TheTypedTextIsDrawnInTheField) {
    HWND edit = SingleLine();
    // Without the focus there is no caret: an empty field shows no ink.
    SetFocus(nullptr);
    RunUser();
    EXPECT_TRUE(controls_test::InkBands(edit).empty());
    SetFocus(edit);
    automation::Type(u"Text");
    RunUser();
    SetFocus(nullptr);
    RunUser();
    EXPECT_EQ(controls_test::InkBands(edit).size(), 1u);

    // A picture to look at: a focused field with a selection, a read-only
    // field and a multi-line field.
    HWND fixed =
        host.Add(u"EDIT", WS_BORDER | ES_READONLY, 10, 40, 200, 23, kEditId + 1, u"Read-only");
    HWND lines = host.Add(u"EDIT", WS_BORDER | ES_MULTILINE, 10, 70, 200, 60, kEditId + 2,
                          u"First line\r\nSecond line\r\nThird");
    SetFocus(edit);
    SendMessage(edit, EM_SETSEL, 1, 3);
    RunUser();
    HDC screen = GetDC(nullptr);
    platform::SaveDcAsPng(screen,
                          (testing_support::TestOutputDir("edit-pictures") / "edits.png").string());
    ReleaseDC(nullptr, screen);
    EXPECT_EQ(controls_test::InkBands(lines).size(), 3u);
    EXPECT_EQ(controls_test::InkBands(fixed).size(), 1u);
}

} // namespace
