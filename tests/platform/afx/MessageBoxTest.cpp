// The framework's message boxes as the user sees them: the caption is the
// application's name (the program's without an application object), the
// icon follows the buttons unless the caller chose one, the text can come
// from the string table, and the box is owned by the main window's last
// active pop-up.
#include <afxwin.h>
#include <platform/Automation.h>
#include <platform/MessagePump.h>
#include <platform/ResourceModule.h>

#include <gtest/gtest.h>

#include <string>

namespace {

namespace automation = platform::automation;

constexpr COLORREF kExclamation = 0x00D7FF;
constexpr COLORREF kQuestion = 0xC77A1F;
constexpr COLORREF kError = 0x2E1CE8;
constexpr UINT kPromptId = 0x7F01;

std::u16string TextOf(HWND hwnd) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLength(hwnd)), u'\0');
    if (!text.empty())
        GetWindowText(hwnd, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

// What the box showed while it waited for the user.
struct Seen {
    std::u16string caption;
    HWND owner = nullptr;
    bool hasNo = false;
    COLORREF icon = CLR_INVALID;
    bool text = false;
};

// The icon colour found in the box's client area, or CLR_INVALID.
COLORREF IconColour(HWND box) {
    HDC hdc = GetDC(box);
    COLORREF found = CLR_INVALID;
    for (int y = 0; y < 60 && found == CLR_INVALID; ++y)
        for (int x = 0; x < 60 && found == CLR_INVALID; ++x) {
            COLORREF c = GetPixel(hdc, x, y);
            if (c == kExclamation || c == kQuestion || c == kError)
                found = c;
        }
    ReleaseDC(box, hdc);
    return found;
}

// Queues a look at the box, then the answer.
void LookAndAnswer(Seen& seen, int answer, const std::u16string& expectedText = {}) {
    automation::Do([&seen, expectedText] {
        HWND box = GetActiveWindow();
        seen.caption = TextOf(box);
        seen.owner = GetWindow(box, GW_OWNER);
        seen.hasNo = GetDlgItem(box, IDNO) != nullptr;
        seen.icon = IconColour(box);
        if (!expectedText.empty())
            for (HWND child = GetWindow(box, GW_CHILD); child;
                 child = GetWindow(child, GW_HWNDNEXT))
                seen.text = seen.text || TextOf(child) == expectedText;
    });
    automation::AnswerMessageBox(answer);
}

class MessageBoxTest : public ::testing::Test {
protected:
    void SetUp() override { automation::Reset(); }
    void TearDown() override {
        automation::Reset();
        platform::PumpMessages();
    }
};

TEST_F(MessageBoxTest, WithoutAnApplicationTheCaptionIsTheProgramsName) {
    ASSERT_EQ(AfxGetApp(), nullptr);
    EXPECT_EQ(AfxGetMainWnd(), nullptr);
    Seen seen;
    LookAndAnswer(seen, IDOK, u"Saved.");
    EXPECT_EQ(AfxMessageBox(u"Saved."), IDOK);
    EXPECT_EQ(seen.caption, u"platform_afx_tests");
    EXPECT_EQ(seen.owner, nullptr);
    EXPECT_TRUE(seen.text);
    // OK alone gets the exclamation mark.
    EXPECT_EQ(seen.icon, kExclamation);
}

TEST_F(MessageBoxTest, TheIconFollowsTheButtonsUnlessTheCallerChoseOne) {
    CWinApp app(u"Viewer");
    Seen question, okCancel, chosen, none;
    LookAndAnswer(question, IDNO);
    EXPECT_EQ(AfxMessageBox(u"Keep it?", MB_YESNO), IDNO);
    EXPECT_EQ(question.caption, u"Viewer");
    EXPECT_TRUE(question.hasNo);
    EXPECT_EQ(question.icon, kQuestion);

    LookAndAnswer(okCancel, IDCANCEL);
    EXPECT_EQ(AfxMessageBox(u"Go on?", MB_OKCANCEL), IDCANCEL);
    EXPECT_EQ(okCancel.icon, kExclamation);

    LookAndAnswer(chosen, IDYES);
    EXPECT_EQ(AfxMessageBox(u"Failed. Retry?", MB_YESNOCANCEL | MB_ICONERROR), IDYES);
    EXPECT_EQ(chosen.icon, kError);

    // Buttons with no icon of their own get none.
    LookAndAnswer(none, IDRETRY);
    EXPECT_EQ(AfxMessageBox(u"Busy.", MB_RETRYCANCEL), IDRETRY);
    EXPECT_EQ(none.icon, CLR_INVALID);
}

TEST_F(MessageBoxTest, ThePromptCanComeFromTheStringTableAndTheMainWindowOwnsTheBox) {
    CWinApp app(u"Viewer");
    platform::Resources(AfxGetResourceHandle()).SetString(kPromptId, u"From the table.");
    CWnd main;
    ASSERT_TRUE(main.CreateEx(0, nullptr, u"Main", WS_POPUP | WS_VISIBLE, CRect(0, 0, 300, 200),
                              nullptr, 0));
    app.m_pMainWnd = &main;
    EXPECT_EQ(AfxGetMainWnd(), &main);

    Seen seen;
    LookAndAnswer(seen, IDYES, u"From the table.");
    EXPECT_EQ(AfxMessageBox(kPromptId, MB_YESNO), IDYES);
    EXPECT_TRUE(seen.text);
    EXPECT_EQ(seen.owner, main.m_hWnd);
    EXPECT_EQ(seen.caption, u"Viewer");

    // A pop-up the main window owns, active, owns the box instead.
    CWnd tool;
    ASSERT_TRUE(
        tool.CreateEx(0, nullptr, u"Tool", WS_POPUP | WS_VISIBLE, CRect(0, 0, 100, 100), &main, 0));
    ::SetActiveWindow(tool.m_hWnd);
    Seen owned;
    LookAndAnswer(owned, IDOK);
    EXPECT_EQ(AfxMessageBox(kPromptId), IDOK);
    EXPECT_EQ(owned.owner, tool.m_hWnd);

    tool.DestroyWindow();
    main.DestroyWindow();
    app.m_pMainWnd = nullptr;
    platform::Resources(AfxGetResourceHandle()).RemoveString(kPromptId);
}

} // namespace
