// The framework's control classes on real controls: what each call changes
// in the button, the edit field and the combo box, read back through the
// controls' own messages and styles.
#include <afxwin.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <string>

namespace {

class ControlWrapperTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(parent.CreateEx(0, nullptr, u"Parent", WS_POPUP | WS_VISIBLE,
                                    CRect(0, 0, 400, 300), nullptr, 0));
    }
    void TearDown() override {
        parent.DestroyWindow();
        platform::PumpMessages();
    }
    void Make(CWnd& control, LPCTSTR cls, DWORD style, LPCTSTR text = u"") {
        ASSERT_TRUE(control.Create(cls, text, WS_CHILD | WS_VISIBLE | style, CRect(10, 10, 200, 90),
                                   &parent, 100));
    }
    std::u16string Text(const CWnd& control) {
        CString text;
        control.GetWindowText(text);
        return std::u16string(text.GetString());
    }

    CWnd parent;
};

TEST_F(ControlWrapperTest, CButtonChecksHighlightsAndChangesKind) {
    CButton box;
    Make(box, u"BUTTON", BS_AUTO3STATE, u"Box");
    EXPECT_EQ(box.GetButtonStyle() & BS_TYPEMASK, static_cast<UINT>(BS_AUTO3STATE));
    box.SetCheck(BST_INDETERMINATE);
    EXPECT_EQ(box.GetCheck(), BST_INDETERMINATE);
    EXPECT_EQ(box.GetState() & 3u, static_cast<UINT>(BST_INDETERMINATE));
    box.SetState(TRUE);
    EXPECT_EQ(box.GetState() & BST_PUSHED, static_cast<UINT>(BST_PUSHED));
    box.SetState(FALSE);
    EXPECT_EQ(box.GetState() & BST_PUSHED, 0u);

    // Made a two-state box, the indeterminate state is no longer offered.
    box.SetButtonStyle(BS_AUTOCHECKBOX, FALSE);
    EXPECT_EQ(box.GetButtonStyle() & BS_TYPEMASK, static_cast<UINT>(BS_AUTOCHECKBOX));
    box.SetCheck(BST_INDETERMINATE);
    EXPECT_EQ(box.GetCheck(), BST_CHECKED);
    box.SetCheck(BST_UNCHECKED);
    EXPECT_EQ(::SendMessage(box.m_hWnd, BM_GETCHECK, 0, 0), BST_UNCHECKED);
}

TEST_F(ControlWrapperTest, CEditSelectsReplacesAndLimits) {
    CEdit edit;
    Make(edit, u"EDIT", ES_AUTOHSCROLL, u"Hello world");
    edit.SetSel(0, 5);
    int start = -1;
    int end = -1;
    edit.GetSel(start, end);
    EXPECT_EQ(start, 0);
    EXPECT_EQ(end, 5);
    edit.ReplaceSel(u"Goodbye");
    EXPECT_EQ(Text(edit), u"Goodbye world");
    EXPECT_EQ(edit.GetSel(), static_cast<DWORD>(MAKELONG(7, 7)));
    EXPECT_TRUE(edit.GetModify());
    edit.SetModify(FALSE);
    EXPECT_FALSE(edit.GetModify());

    // Start and end packed in one value; -1 as the end is the end of the text.
    edit.SetSel(static_cast<DWORD>(MAKELONG(8, 0xFFFF)), TRUE);
    EXPECT_EQ(edit.GetSel(), static_cast<DWORD>(MAKELONG(8, 13)));
    // -1 as the start drops the selection where the caret is.
    edit.SetSel(static_cast<DWORD>(MAKELONG(0xFFFF, 0)));
    EXPECT_EQ(edit.GetSel(), static_cast<DWORD>(MAKELONG(13, 13)));

    edit.LimitText(4);
    EXPECT_EQ(edit.GetLimitText(), 4u);
    edit.SetLimitText(20);
    EXPECT_EQ(edit.GetLimitText(), 20u);
    edit.LimitText();
    EXPECT_EQ(edit.GetLimitText(), 0x7FFFFFFEu);

    EXPECT_TRUE(edit.SetReadOnly());
    EXPECT_TRUE(edit.GetStyle() & ES_READONLY);
    EXPECT_TRUE(edit.SetReadOnly(FALSE));
    EXPECT_FALSE(edit.GetStyle() & ES_READONLY);
}

TEST_F(ControlWrapperTest, CEditReadsLinesOfAMultiLineText) {
    CEdit edit;
    Make(edit, u"EDIT", ES_MULTILINE, u"first\r\nsecond line\r\nx");
    EXPECT_EQ(edit.GetLineCount(), 3);
    EXPECT_EQ(edit.LineIndex(1), 7);
    EXPECT_EQ(edit.LineIndex(3), -1);
    EXPECT_EQ(edit.LineLength(8), 11);
    EXPECT_EQ(edit.LineFromChar(20), 2);
    // Without an argument: the caret's line.
    edit.SetSel(9, 9);
    EXPECT_EQ(edit.LineIndex(), 7);
    EXPECT_EQ(edit.LineFromChar(), 1);

    WCHAR buffer[32];
    int n = edit.GetLine(1, buffer, 32);
    EXPECT_EQ(std::u16string(buffer, static_cast<std::size_t>(n)), u"second line");
    // A short buffer gets what fits; no buffer or no room gets nothing.
    n = edit.GetLine(1, buffer, 3);
    EXPECT_EQ(std::u16string(buffer, static_cast<std::size_t>(n)), u"sec");
    EXPECT_EQ(edit.GetLine(0, nullptr, 10), 0);
    EXPECT_EQ(edit.GetLine(0, buffer, 0), 0);
    EXPECT_EQ(edit.GetLine(7, buffer, 32), 0);
}

TEST_F(ControlWrapperTest, CComboBoxKeepsItemsTheirDataAndTheSelection) {
    CComboBox combo;
    Make(combo, u"COMBOBOX", CBS_DROPDOWN);
    EXPECT_EQ(combo.AddString(u"Beta"), 0);
    EXPECT_EQ(combo.AddString(u"Delta"), 1);
    EXPECT_EQ(combo.InsertString(0, u"Alpha"), 0);
    EXPECT_EQ(combo.InsertString(-1, u"Gamma"), 3);
    EXPECT_EQ(combo.GetCount(), 4);

    CString text;
    combo.GetLBText(1, text);
    EXPECT_EQ(std::u16string(text.GetString()), u"Beta");
    EXPECT_EQ(combo.GetLBTextLen(3), 5);
    WCHAR raw[16] = {};
    EXPECT_EQ(combo.GetLBText(2, raw), 5);
    EXPECT_EQ(std::u16string(raw), u"Delta");
    // A missing item gives an empty text.
    text = u"stale";
    combo.GetLBText(9, text);
    EXPECT_TRUE(text.IsEmpty());

    EXPECT_EQ(combo.FindString(-1, u"del"), 2);
    EXPECT_EQ(combo.FindStringExact(-1, u"del"), CB_ERR);
    EXPECT_EQ(combo.FindStringExact(-1, u"GAMMA"), 3);
    EXPECT_EQ(combo.SelectString(-1, u"Be"), 1);
    EXPECT_EQ(combo.GetCurSel(), 1);
    EXPECT_EQ(Text(combo), u"Beta");
    EXPECT_EQ(combo.SetCurSel(3), 3);
    EXPECT_EQ(Text(combo), u"Gamma");

    EXPECT_NE(combo.SetItemData(2, 0xBEEF), CB_ERR);
    EXPECT_EQ(combo.GetItemData(2), DWORD_PTR{0xBEEF});
    EXPECT_EQ(combo.DeleteString(0), 3);
    EXPECT_EQ(combo.GetItemData(1), DWORD_PTR{0xBEEF});

    EXPECT_TRUE(combo.LimitText(3));
    EXPECT_TRUE(combo.SetEditSel(1, 3));
    EXPECT_EQ(combo.GetEditSel(), static_cast<DWORD>(MAKELONG(1, 3)));

    EXPECT_FALSE(combo.GetDroppedState());
    combo.ShowDropDown();
    EXPECT_TRUE(combo.GetDroppedState());
    combo.ShowDropDown(FALSE);
    EXPECT_FALSE(combo.GetDroppedState());

    combo.ResetContent();
    EXPECT_EQ(combo.GetCount(), 0);
    EXPECT_EQ(combo.GetCurSel(), CB_ERR);
}

} // namespace
