// The dialog manager and the framework's dialogs, driven by the simulated
// user: templates become windows in pixels, the keyboard interface, default
// buttons, modal loops (nested ones too) and data exchange.
#include "support/DialogItems.h"

#include <afxwin.h>
#include <platform/Automation.h>
#include <platform/DialogUnits.h>
#include <platform/MessagePump.h>
#include <platform/ResourceTemplates.h>

#include <gtest/gtest.h>

#include <string>

namespace {

using testing_support::DialogItem;

namespace automation = platform::automation;

constexpr UINT kCheckId = 10;
constexpr UINT kApplyId = 11;

platform::DialogTemplate SettingsTemplate() {
    platform::DialogTemplate t;
    t.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | 0x80 /* DS_MODALFRAME */ | 0x40 /* DS_SETFONT */;
    t.caption = u"Settings";
    t.pointSize = 8;
    t.faceName = u"MS Shell Dlg";
    t.cx = 200;
    t.cy = 90;
    t.items.push_back(DialogItem(u"STATIC", u"Choose:", 0xFFFF, 0, 7, 7, 60, 8));
    t.items.push_back(DialogItem(u"BUTTON", u"&Remember", kCheckId, 3 | WS_TABSTOP, 7, 20, 80, 10));
    t.items.push_back(DialogItem(u"BUTTON", u"Apply", kApplyId, WS_TABSTOP, 7, 69, 50, 14));
    t.items.push_back(DialogItem(u"BUTTON", u"OK", IDOK, 1 | WS_TABSTOP, 89, 69, 50, 14));
    t.items.push_back(DialogItem(u"BUTTON", u"Cancel", IDCANCEL, WS_TABSTOP, 143, 69, 50, 14));
    return t;
}

// Ends the dialog with the id of any button pressed; remembers the check
// box's state at that moment.
int g_checkAtEnd = -1;
INT_PTR EndingProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG)
        return TRUE;
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED && LOWORD(wParam) != kCheckId) {
        g_checkAtEnd = static_cast<int>(SendMessage(GetDlgItem(hwnd, kCheckId), BM_GETCHECK, 0, 0));
        EndDialog(hwnd, LOWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

std::u16string TextOf(HWND hwnd) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLength(hwnd)), u'\0');
    GetWindowText(hwnd, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

class DialogTest : public ::testing::Test {
protected:
    void SetUp() override {
        automation::Reset();
        g_checkAtEnd = -1;
        tmpl = SettingsTemplate();
    }
    void TearDown() override {
        automation::Reset();
        platform::PumpMessages();
    }
    INT_PTR Run(HWND owner = nullptr) {
        return DialogBoxIndirectParam(nullptr, &tmpl, owner, EndingProc, 0);
    }
    platform::DialogTemplate tmpl;
};

TEST_F(DialogTest, TemplateUnitsBecomePixelsThroughTheDialogFont) {
    HWND dialog = CreateDialogIndirectParam(nullptr, &tmpl, nullptr, EndingProc, 0);
    ASSERT_NE(dialog, nullptr);
    auto font = reinterpret_cast<HFONT>(SendMessage(dialog, WM_GETFONT, 0, 0));
    platform::DialogBaseUnits base = platform::FontBaseUnits(font);
    // The classic dialog font is 6 pixels wide on average at 96 dots per
    // inch; the height is the font's cell.
    EXPECT_EQ(base.cx, 6);
    HDC screen = GetDC(nullptr);
    HGDIOBJ old = SelectObject(screen, font);
    TEXTMETRIC tm{};
    GetTextMetrics(screen, &tm);
    SelectObject(screen, old);
    ReleaseDC(nullptr, screen);
    EXPECT_EQ(base.cy, tm.tmHeight);
    RECT client;
    GetClientRect(dialog, &client);
    EXPECT_EQ(client.right, MulDiv(200, base.cx, 4));
    EXPECT_EQ(client.bottom, MulDiv(90, base.cy, 8));
    HWND ok = GetDlgItem(dialog, IDOK);
    RECT rect;
    GetWindowRect(ok, &rect);
    POINT topLeft{rect.left, rect.top};
    ScreenToClient(dialog, &topLeft);
    EXPECT_EQ(topLeft.x, MulDiv(89, base.cx, 4));
    EXPECT_EQ(topLeft.y, MulDiv(69, base.cy, 8));
    EXPECT_EQ(rect.right - rect.left, MulDiv(50, base.cx, 4));
    RECT mapped{89, 69, 139, 83};
    MapDialogRect(dialog, &mapped);
    EXPECT_EQ(mapped.left, topLeft.x);
    EXPECT_EQ(mapped.bottom - mapped.top, rect.bottom - rect.top);
    // The controls carry the dialog's font; the first tab stop has the focus.
    EXPECT_EQ(reinterpret_cast<HFONT>(SendMessage(ok, WM_GETFONT, 0, 0)), font);
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, kCheckId));
    DestroyWindow(dialog);
}

TEST_F(DialogTest, AnUnknownControlClassFailsTheDialog) {
    tmpl.items.push_back(DialogItem(u"NoSuchClass", u"", 50, 0, 0, 0, 10, 10));
    EXPECT_EQ(CreateDialogIndirectParam(nullptr, &tmpl, nullptr, EndingProc, 0), nullptr);
    EXPECT_EQ(Run(), -1);
}

TEST_F(DialogTest, EnterPressesTheDefaultButtonAndEscapeCancels) {
    automation::Key(VK_RETURN);
    EXPECT_EQ(Run(), IDOK);
    automation::Key(VK_ESCAPE);
    EXPECT_EQ(Run(), IDCANCEL);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(DialogTest, TabMovesThroughTheTabStopsAndEnterPressesAFocusedButton) {
    automation::Key(VK_TAB);
    automation::Do([] { EXPECT_EQ(GetDlgCtrlID(GetFocus()), static_cast<int>(kApplyId)); });
    automation::Key(VK_TAB, true);
    automation::Do([] { EXPECT_EQ(GetDlgCtrlID(GetFocus()), static_cast<int>(kCheckId)); });
    automation::Key(VK_TAB);
    automation::Key(VK_RETURN);
    EXPECT_EQ(Run(), static_cast<INT_PTR>(kApplyId));
}

TEST_F(DialogTest, TheSimulatedUserClicksAndTypesThroughTheControlsOwnMessages) {
    automation::Click(kCheckId);
    automation::Do([] { EXPECT_EQ(g_checkAtEnd, -1); });
    automation::Type(u" "); // the space bar toggles the focused box back
    automation::Type(u" ");
    automation::Click(IDOK);
    EXPECT_EQ(Run(), IDOK);
    EXPECT_EQ(g_checkAtEnd, 1);

    automation::SetCheck(kCheckId, false); // already clear: nothing to do
    automation::Click(IDCANCEL);
    EXPECT_EQ(Run(), IDCANCEL);
    EXPECT_EQ(g_checkAtEnd, 0);
}

TEST_F(DialogTest, AModalLoopWithNoActionLeftIsCancelledAndRecorded) {
    EXPECT_EQ(Run(), IDCANCEL);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 1);
    ASSERT_FALSE(automation::Record().empty());
    EXPECT_EQ(automation::Record().back(), "no action left: cancelled 'Settings'");
}

TEST_F(DialogTest, ADisabledControlCannotBeClicked) {
    automation::Do([] { EnableWindow(GetDlgItem(GetActiveWindow(), IDOK), FALSE); });
    automation::Click(IDOK);
    automation::Key(VK_RETURN); // the default button is disabled: nothing happens
    automation::Click(kApplyId);
    EXPECT_EQ(Run(), static_cast<INT_PTR>(kApplyId));
    EXPECT_NE(std::find(automation::Record().begin(), automation::Record().end(),
                        "click 1: control 'OK' cannot be clicked"),
              automation::Record().end());
}

TEST_F(DialogTest, SettingTheDefaultIdMovesTheDefaultLook) {
    automation::Do([] {
        HWND dialog = GetActiveWindow();
        EXPECT_EQ(SendMessage(dialog, DM_GETDEFID, 0, 0), MAKELRESULT(IDOK, DC_HASDEFID));
        SendMessage(dialog, DM_SETDEFID, kApplyId, 0);
        EXPECT_EQ(SendMessage(GetDlgItem(dialog, IDOK), WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON,
                  0);
        EXPECT_NE(
            SendMessage(GetDlgItem(dialog, kApplyId), WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON, 0);
    });
    automation::Key(VK_RETURN);
    EXPECT_EQ(Run(), static_cast<INT_PTR>(kApplyId));
}

TEST_F(DialogTest, TheOwnerIsDisabledWhileTheDialogRuns) {
    HWND owner = CreateWindowEx(0, u"STATIC", u"Main", WS_POPUP | WS_VISIBLE, 0, 0, 600, 400,
                                nullptr, nullptr, nullptr, nullptr);
    automation::Do([owner] {
        EXPECT_FALSE(IsWindowEnabled(owner));
        EXPECT_EQ(GetWindow(GetActiveWindow(), GW_OWNER), owner);
    });
    automation::Key(VK_RETURN);
    EXPECT_EQ(Run(owner), IDOK);
    EXPECT_TRUE(IsWindowEnabled(owner));
    EXPECT_EQ(GetActiveWindow(), owner);
    DestroyWindow(owner);
}

// A message box opened from a dialog's button runs its own loop over the
// dialog; the dialog's loop goes on afterwards.
int g_boxAnswer = 0;
INT_PTR AskingProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND && LOWORD(wParam) == kApplyId) {
        g_boxAnswer = MessageBox(hwnd, u"Apply the settings now?", u"Settings", MB_YESNO);
        return TRUE;
    }
    return EndingProc(hwnd, message, wParam, lParam);
}

TEST_F(DialogTest, AMessageBoxNestsInsideAModalDialog) {
    g_boxAnswer = 0;
    automation::Click(kApplyId);
    automation::Do([] {
        HWND box = GetActiveWindow();
        EXPECT_EQ(TextOf(box), u"Settings");
        EXPECT_EQ(TextOf(GetDlgItem(box, 0xFFFF)), u"Apply the settings now?");
        HWND dialog = GetWindow(box, GW_OWNER);
        EXPECT_FALSE(IsWindowEnabled(dialog));
    });
    automation::Key(VK_ESCAPE); // a Yes/No box has no cancel
    automation::AnswerMessageBox(IDNO);
    automation::Key(VK_ESCAPE);
    EXPECT_EQ(DialogBoxIndirectParam(nullptr, &tmpl, nullptr, AskingProc, 0), IDCANCEL);
    EXPECT_EQ(g_boxAnswer, IDNO);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(DialogTest, AMessageBoxWithOnlyOkAnswersEscapeWithOk) {
    automation::Key(VK_ESCAPE);
    EXPECT_EQ(MessageBox(nullptr, u"Done.", u"Export", MB_OK), IDOK);
    EXPECT_EQ(MessageBox(nullptr, u"Done.", u"Export", MB_OKCANCEL), IDCANCEL);
}

class SettingsDialog : public CDialog {
public:
    int remember = 0;
    bool failExchange = false;
    bool postOk = false;
    CWnd missing;

    BOOL OnInitDialog() override {
        BOOL result = CDialog::OnInitDialog();
        if (postOk)
            PostMessage(WM_COMMAND, IDOK, 0);
        return result;
    }
    void DoDataExchange(CDataExchange* dx) override {
        DDX_Check(dx, kCheckId, remember);
        if (failExchange)
            DDX_Control(dx, 999, missing);
    }
};

TEST_F(DialogTest, DoModalExchangesDataOnOkOnly) {
    SettingsDialog dialog;
    dialog.InitModalIndirect(&tmpl);
    automation::SetCheck(kCheckId, true);
    automation::Key(VK_RETURN);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.remember, 1);
    EXPECT_EQ(dialog.m_hWnd, nullptr);

    automation::SetCheck(kCheckId, false);
    automation::Click(IDCANCEL);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.remember, 1);
}

TEST_F(DialogTest, AnOkPostedFromOnInitDialogEndsTheDialogOnceTheLoopRuns) {
    SettingsDialog dialog;
    dialog.InitModalIndirect(&tmpl);
    dialog.postOk = true;
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(DialogTest, AControlTheTemplateLacksIsReportedAndEndsTheDialog) {
    SettingsDialog dialog;
    dialog.InitModalIndirect(&tmpl);
    dialog.failExchange = true;
    std::u16string shown;
    automation::Do([&shown] { shown = TextOf(GetDlgItem(GetActiveWindow(), 0xFFFF)); });
    automation::AnswerMessageBox(IDOK);
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(shown, u"An unsupported operation was attempted.");
}

TEST_F(DialogTest, DoModalFindsTheHostsTemplateThroughTheModuleChain) {
    SettingsDialog dialog;
    dialog.m_lpszTemplateName = MAKEINTRESOURCE(100);
    automation::Do([] {
        HWND active = GetActiveWindow();
        EXPECT_EQ(TextOf(active), u"Settings");
        EXPECT_EQ(TextOf(GetDlgItem(active, kCheckId)), u"&Remember");
    });
    automation::Click(kCheckId);
    automation::Key(VK_RETURN);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.remember, 1);
}

TEST_F(DialogTest, DoModalWithoutATemplateFails) {
    CDialog dialog(12345);
    EXPECT_EQ(dialog.DoModal(), -1);
}

} // namespace

namespace {

class NumberDialog : public CDialog {
public:
    CString name = u"start";
    int count = 7;
    void DoDataExchange(CDataExchange* dx) override {
        DDX_Text(dx, 20, name);
        DDV_MaxChars(dx, name, 5);
        DDX_Text(dx, 21, count);
    }
};

platform::DialogTemplate NumberTemplate() {
    platform::DialogTemplate t = SettingsTemplate();
    t.items.push_back(DialogItem(
        u"EDIT", u"", 20, WS_TABSTOP | WS_BORDER | 0x80 /* ES_AUTOHSCROLL */, 100, 7, 60, 12));
    t.items.push_back(DialogItem(u"EDIT", u"", 21, WS_TABSTOP | WS_BORDER | 0x80, 100, 24, 60, 12));
    return t;
}

TEST_F(DialogTest, TextExchangeValidatesWhatTheUserTyped) {
    tmpl = NumberTemplate();
    NumberDialog dialog;
    dialog.InitModalIndirect(&tmpl);
    std::vector<std::u16string> shown;
    auto look = [&shown] { shown.push_back(TextOf(GetDlgItem(GetActiveWindow(), 0xFFFF))); };
    automation::Do([] {
        HWND active = GetActiveWindow();
        EXPECT_EQ(TextOf(GetDlgItem(active, 20)), u"start");
        EXPECT_EQ(TextOf(GetDlgItem(active, 21)), u"7");
        SetWindowText(GetDlgItem(active, 20), u"far too long");
        SetWindowText(GetDlgItem(active, 21), u" 12x");
    });
    automation::Key(VK_RETURN); // the name is too long: a message, and the dialog stays
    automation::Do(look);
    automation::AnswerMessageBox(IDOK);
    automation::Do([] {
        // The focus went back to the field that failed, its text selected.
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), 20);
        SetWindowText(GetFocus(), u"short");
    });
    automation::Key(VK_RETURN); // now the number is not one
    automation::Do(look);
    automation::AnswerMessageBox(IDOK);
    automation::Do([] { SetWindowText(GetDlgItem(GetActiveWindow(), 21), u" -42 "); });
    automation::Key(VK_RETURN);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(shown, (std::vector<std::u16string>{u"Enter no more than 5 characters.",
                                                  u"Please enter an integer."}));
    EXPECT_EQ(dialog.name, u"short");
    EXPECT_EQ(dialog.count, -42);
}

} // namespace

namespace {

INT_PTR OkOnlyProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG)
        return TRUE;
    if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
        EndDialog(hwnd, LOWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

TEST_F(DialogTest, TheLetterAControlUnderlinesTakesTheFocusThereOrPressesIt) {
    constexpr DWORD kEdit = WS_BORDER | WS_TABSTOP;
    tmpl.items.insert(tmpl.items.begin(),
                      {DialogItem(u"STATIC", u"&Name:", 0xFFFF, 0, 7, 40, 30, 8),
                       DialogItem(u"EDIT", u"", 20, kEdit, 40, 40, 80, 12)});
    tmpl.items[4].text = u"&Apply";
    // With Alt, wherever the focus is: a label sends it to the control after
    // it, a check box takes it and turns; typed into the edit, a letter is
    // text.
    auto post = [](UINT message, char16_t ch) {
        automation::Do([=] { PostMessage(GetFocus(), message, ch, 1 << 29); });
    };
    post(WM_SYSCHAR, u'n');
    automation::Do([] { EXPECT_EQ(GetDlgCtrlID(GetFocus()), 20); });
    post(WM_CHAR, u'r');
    post(WM_SYSCHAR, u'R');
    automation::Do([] {
        HWND dialog = GetActiveWindow();
        EXPECT_EQ(TextOf(GetDlgItem(dialog, 20)), u"r");
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), static_cast<int>(kCheckId));
    });
    // Without Alt where the focus takes no characters (a button): Apply.
    post(WM_CHAR, u'a');
    EXPECT_EQ(Run(), static_cast<INT_PTR>(kApplyId));
    EXPECT_EQ(g_checkAtEnd, BST_CHECKED);
    // A letter nothing underlines does nothing.
    post(WM_SYSCHAR, u'q');
    automation::Key(VK_ESCAPE);
    EXPECT_EQ(Run(), IDCANCEL);
}

TEST_F(DialogTest, ArrowKeysMoveThroughARadioGroupAndCheckTheButtonTheyReach) {
    constexpr DWORD kAutoRadio = 9;
    tmpl.items.clear();
    tmpl.items.push_back(
        DialogItem(u"BUTTON", u"Comma", 30, kAutoRadio | WS_GROUP | WS_TABSTOP, 7, 7, 60, 10));
    tmpl.items.push_back(DialogItem(u"BUTTON", u"Tab", 31, kAutoRadio, 7, 19, 60, 10));
    tmpl.items.push_back(DialogItem(u"BUTTON", u"Space", 32, kAutoRadio, 7, 31, 60, 10));
    tmpl.items.push_back(
        DialogItem(u"BUTTON", u"OK", IDOK, 1 | WS_GROUP | WS_TABSTOP, 89, 69, 50, 14));
    std::vector<int> checks;
    auto read = [&checks] {
        HWND dialog = GetActiveWindow();
        checks.clear();
        for (int id = 30; id <= 32; ++id)
            checks.push_back(
                static_cast<int>(SendMessage(GetDlgItem(dialog, id), BM_GETCHECK, 0, 0)));
    };
    automation::Click(30);
    automation::Key(VK_DOWN);
    automation::Key(VK_DOWN);
    automation::Do([&] {
        read();
        EXPECT_EQ(checks, (std::vector<int>{0, 0, 1}));
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), 32);
    });
    automation::Key(VK_DOWN); // the group wraps round to its first button
    automation::Do([&] {
        read();
        EXPECT_EQ(checks, (std::vector<int>{1, 0, 0}));
    });
    automation::Key(VK_TAB); // Tab leaves the group for the next tab stop
    automation::Do([] { EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDOK); });
    automation::Key(VK_RETURN);
    EXPECT_EQ(DialogBoxIndirectParam(nullptr, &tmpl, nullptr, OkOnlyProc, 0), IDOK);
}

} // namespace
