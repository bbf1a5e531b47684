// Data exchange run directly on a window's controls: integers at and past the
// limits of int, combo box strings that match an item or not, check states out
// of range, the text limit set on the way in, control attachment, and where
// the focus goes when a value is refused.
#include <afxwin.h>
#include <platform/Automation.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <string>

namespace {

namespace automation = platform::automation;

constexpr int kEditId = 20;
constexpr int kComboId = 30;
constexpr int kCheckId = 40;

class DataExchangeTest : public ::testing::Test {
protected:
    void SetUp() override {
        automation::Reset();
        ASSERT_TRUE(window.CreateEx(0, nullptr, u"Form", WS_POPUP | WS_VISIBLE,
                                    CRect(0, 0, 400, 300), nullptr, 0));
        edit = Child(u"EDIT", ES_AUTOHSCROLL, kEditId);
        combo = Child(u"COMBOBOX", CBS_DROPDOWN, kComboId);
        check = Child(u"BUTTON", BS_AUTO3STATE, kCheckId);
        for (const char16_t* item : {u"Alpha", u"Beta", u"Gamma"})
            ::SendMessage(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
    }
    void TearDown() override {
        window.DestroyWindow();
        platform::PumpMessages();
        automation::Reset();
    }
    HWND Child(LPCTSTR cls, DWORD style, int id) {
        return ::CreateWindowEx(0, cls, u"", WS_CHILD | WS_VISIBLE | style, 10, 10 + id, 150, 20,
                                window.m_hWnd, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)),
                                nullptr, nullptr);
    }
    std::u16string Text(HWND hwnd) {
        CString text;
        CWnd::FromHandle(hwnd)->GetWindowText(text);
        return std::u16string(text.GetString());
    }
    // Reads the edit as an integer; false when the exchange refused it. The
    // user answers the message box a refusal shows.
    bool SaveInt(const char16_t* text, int& value, bool refusalExpected) {
        ::SetWindowText(edit, text);
        CDataExchange dx(&window, TRUE);
        if (refusalExpected)
            automation::AnswerMessageBox(IDOK);
        try {
            DDX_Text(&dx, kEditId, value);
            return true;
        } catch (CUserException* e) {
            e->Delete();
            return false;
        }
    }

    CWnd window;
    HWND edit = nullptr;
    HWND combo = nullptr;
    HWND check = nullptr;
};

TEST_F(DataExchangeTest, IntegersAreReadWithinTheLimitsOfIntAndRefusedBeyond) {
    int value = 0;
    EXPECT_TRUE(SaveInt(u"2147483647", value, false));
    EXPECT_EQ(value, 2147483647);
    EXPECT_TRUE(SaveInt(u"\t-2147483648 ", value, false));
    EXPECT_EQ(value, -2147483647 - 1);
    EXPECT_TRUE(SaveInt(u"+15", value, false));
    EXPECT_EQ(value, 15);
    for (const char16_t* bad : {u"2147483648", u"-2147483649", u"99999999999999999999", u"", u"  ",
                                u"-", u"1 2", u"0x10"}) {
        value = 123;
        EXPECT_FALSE(SaveInt(bad, value, true))
            << std::string(bad, bad + std::char_traits<char16_t>::length(bad));
        EXPECT_EQ(value, 123);
    }
    // Each refusal told the user and put the focus, text selected, back in the field.
    EXPECT_EQ(GetFocus(), edit);
    DWORD from = 1;
    DWORD to = 0;
    ::SendMessage(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    EXPECT_EQ(from, 0u);
    EXPECT_EQ(to, 4u);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
    EXPECT_EQ(automation::Pending(), 0u);

    // Written out, the number becomes its decimal text.
    CDataExchange dx(&window, FALSE);
    value = -305;
    DDX_Text(&dx, kEditId, value);
    EXPECT_EQ(Text(edit), u"-305");
}

TEST_F(DataExchangeTest, ComboStringsSelectAMatchingItemOrBecomeTheText) {
    CDataExchange load(&window, FALSE);
    CString value = u"gam";
    DDX_CBString(&load, kComboId, value);
    EXPECT_EQ(::SendMessage(combo, CB_GETCURSEL, 0, 0), 2);
    EXPECT_EQ(Text(combo), u"Gamma");
    value = u"Omega";
    DDX_CBString(&load, kComboId, value);
    EXPECT_EQ(Text(combo), u"Omega");

    CDataExchange save(&window, TRUE);
    CString read;
    DDX_CBString(&save, kComboId, read);
    EXPECT_EQ(std::u16string(read.GetString()), u"Omega");
}

TEST_F(DataExchangeTest, CheckStatesOutOfRangeAreWrittenAsUnchecked) {
    CDataExchange load(&window, FALSE);
    int state = BST_INDETERMINATE;
    DDX_Check(&load, kCheckId, state);
    EXPECT_EQ(::SendMessage(check, BM_GETCHECK, 0, 0), BST_INDETERMINATE);
    state = 7;
    DDX_Check(&load, kCheckId, state);
    EXPECT_EQ(state, 0);
    EXPECT_EQ(::SendMessage(check, BM_GETCHECK, 0, 0), BST_UNCHECKED);

    ::SendMessage(check, BM_SETCHECK, BST_CHECKED, 0);
    CDataExchange save(&window, TRUE);
    DDX_Check(&save, kCheckId, state);
    EXPECT_EQ(state, BST_CHECKED);
}

TEST_F(DataExchangeTest, TheLengthLimitIsSetOnTheWayInAndCheckedOnTheWayOut) {
    CDataExchange load(&window, FALSE);
    CString name = u"Ada";
    DDX_Text(&load, kEditId, name);
    DDV_MaxChars(&load, name, 8);
    EXPECT_EQ(::SendMessage(edit, EM_GETLIMITTEXT, 0, 0), 8);
    EXPECT_EQ(Text(edit), u"Ada");
    // After a control that is no edit field, no limit is set anywhere.
    int state = 0;
    DDX_Check(&load, kCheckId, state);
    DDV_MaxChars(&load, name, 2);
    EXPECT_EQ(::SendMessage(edit, EM_GETLIMITTEXT, 0, 0), 8);

    // Refused on the way out: the focus goes to the last control, which is
    // no edit field, so nothing is selected.
    ::SetWindowText(edit, u"Too long");
    CDataExchange save(&window, TRUE);
    DDX_Text(&save, kEditId, name);
    EXPECT_EQ(std::u16string(name.GetString()), u"Too long");
    DDX_Check(&save, kCheckId, state);
    automation::AnswerMessageBox(IDOK);
    bool refused = false;
    try {
        DDV_MaxChars(&save, name, 3);
    } catch (CUserException* e) {
        e->Delete();
        refused = true;
    }
    EXPECT_TRUE(refused);
    EXPECT_EQ(GetFocus(), check);
    EXPECT_EQ(automation::Pending(), 0u);
}

TEST_F(DataExchangeTest, ControlsAreAttachedOnceAndAMissingOneIsNotSupported) {
    CDataExchange dx(&window, FALSE);
    CEdit field;
    DDX_Control(&dx, kEditId, field);
    EXPECT_EQ(field.m_hWnd, edit);
    EXPECT_EQ(CWnd::FromHandlePermanent(edit), &field);
    // Again: nothing changes.
    DDX_Control(&dx, kComboId, field);
    EXPECT_EQ(field.m_hWnd, edit);
    // The attached object drives the control.
    field.SetWindowText(u"attached");
    EXPECT_EQ(Text(edit), u"attached");

    CEdit missing;
    bool thrown = false;
    try {
        DDX_Control(&dx, 999, missing);
    } catch (CNotSupportedException* e) {
        e->Delete();
        thrown = true;
    }
    EXPECT_TRUE(thrown);
    EXPECT_EQ(missing.m_hWnd, nullptr);
    // A window another object already has cannot be attached twice.
    CEdit second;
    CDataExchange again(&window, FALSE);
    thrown = false;
    try {
        DDX_Control(&again, kEditId, second);
    } catch (CNotSupportedException* e) {
        e->Delete();
        thrown = true;
    }
    EXPECT_TRUE(thrown);
    field.UnsubclassWindow();
}

} // namespace
