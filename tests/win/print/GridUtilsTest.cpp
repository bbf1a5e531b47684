// Setting up a grid from strings: columns from a column specification (and
// the message a malformed one gives), drop-down choices and tool tips.
#include "support/MessageBoxLook.h"

#include <Win/Win.h>
#include <platform/Automation.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <climits>
#include <initializer_list>
#include <string>

namespace {

namespace automation = platform::automation;
using testing_support::LookAndConfirm;
using testing_support::MessageBoxLook;

const char16_t kMessage[] = u"The column layout is not valid.";

using Entries = std::initializer_list<const char16_t*>;

// A string list of the entries, head to tail.
struct ListOf {
    ListOf(Entries entries) {
        for (const char16_t* entry : entries)
            list.AddTail(entry);
    }
    operator const CStringList&() const { return list; }
    CStringList list;
};

class GridUtilsTest : public ::testing::Test {
protected:
    void SetUp() override { automation::Reset(); }
    void TearDown() override {
        // Every message the test expected was answered.
        EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
        EXPECT_EQ(automation::Pending(), 0u);
        automation::Reset();
        platform::PumpMessages();
    }
    CGXStyle StyleOf(int row, int col) {
        CGXStyle style;
        EXPECT_TRUE(grid.GetStyleRowCol(row, col, style));
        return style;
    }
    CGXGridCore grid;
};

TEST_F(GridUtilsTest, ASpecificationMakesTitledColumnsOfItsWidths) {
    grid.SetRowCount(5);
    CGXUtils::CreateColumns(grid, u"A;10;B;20;");
    EXPECT_EQ(grid.GetColCount(), 2);
    EXPECT_EQ(grid.GetRowCount(), 5);
    EXPECT_EQ(grid.GetValueRowCol(0, 1), u"A");
    EXPECT_EQ(grid.GetValueRowCol(0, 2), u"B");
    EXPECT_EQ(grid.GetColWidth(1), 10);
    EXPECT_EQ(grid.GetColWidth(2), 20);
    EXPECT_EQ(grid.GetValueRowCol(1, 1), u"");

    // Titles may be empty or hold blanks; blanks before numbers and
    // separators are skipped; a width may be as large as an int goes.
    CGXUtils::CreateColumns(grid, u" Long title ;\t 7 ;;2147483647 ;");
    EXPECT_EQ(grid.GetColCount(), 2);
    EXPECT_EQ(grid.GetValueRowCol(0, 1), u" Long title ");
    EXPECT_EQ(grid.GetValueRowCol(0, 2), u"");
    EXPECT_EQ(grid.GetColWidth(1), 7);
    EXPECT_EQ(grid.GetColWidth(2), INT_MAX);
}

TEST_F(GridUtilsTest, AnEmptySpecificationLeavesTheGridAsItWas) {
    grid.SetColCount(3);
    CGXUtils::CreateColumns(grid, CString());
    EXPECT_EQ(grid.GetColCount(), 3);
}

TEST_F(GridUtilsTest, TheColumnCountFollowsTheSpecification) {
    grid.SetColCount(4);
    CGXUtils::CreateColumns(grid, u"Only;30;");
    EXPECT_EQ(grid.GetColCount(), 1);
}

TEST_F(GridUtilsTest, AWidthThatIsNotAnIntegerStopsWithTheMessage) {
    grid.SetColCount(1);
    grid.SetColWidth(1, 1, 33);
    MessageBoxLook look;
    LookAndConfirm(look);
    CGXUtils::CreateColumns(grid, u"A;x;");
    EXPECT_EQ(look.text, kMessage);
    EXPECT_TRUE(look.stopIcon);
    EXPECT_EQ(grid.GetColCount(), 1);
    EXPECT_EQ(grid.GetValueRowCol(0, 1), u"A");
    EXPECT_EQ(grid.GetColWidth(1), 33);
}

TEST_F(GridUtilsTest, ColumnsBeforeAFaultyEntryStay) {
    struct Case {
        const char16_t* spec;
        int cols;
        const char16_t* lastTitle;
        int lastWidth;
    };
    const Case cases[] = {
        {u"A;10;B;20", 2, u"B", 20},           // no final ";": B is complete otherwise
        {u"A;10;B", 2, u"", 64},               // a title without ";"
        {u"A;10;B;", 2, u"B", 64},             // no width
        {u"A;10;B;99999999999;", 2, u"B", 64}, // beyond an int
        {u"A;10; ", 2, u"", 64},               // blanks after the last entry
        {u"A;10;;", 2, u"", 64},               // a lone separator
        {u"A;10x;", 1, u"A", 10},              // the width does not end at ";"
    };
    for (const Case& c : cases) {
        CGXGridCore fresh;
        MessageBoxLook look;
        LookAndConfirm(look);
        CGXUtils::CreateColumns(fresh, c.spec);
        SCOPED_TRACE(platform::ToUtf8(c.spec));
        EXPECT_EQ(look.text, kMessage);
        EXPECT_EQ(fresh.GetColCount(), c.cols);
        EXPECT_EQ(fresh.GetValueRowCol(0, 1), u"A");
        EXPECT_EQ(fresh.GetValueRowCol(0, c.cols), c.lastTitle);
        EXPECT_EQ(fresh.GetColWidth(c.cols), c.lastWidth);
        if (c.cols == 2) {
            EXPECT_EQ(fresh.GetColWidth(1), 10);
        }
    }
}

TEST_F(GridUtilsTest, OneChoiceOrNoneOnlySetsThePlainControl) {
    grid.SetRowCount(2);
    grid.SetColCount(2);
    for (Entries choices : {Entries{u"only"}, Entries{}}) {
        CGXUtils::SetComboChoices(grid, CGXRange(1, 1, 2, 1), ListOf(choices));
        for (int row = 1; row <= 2; ++row) {
            CGXStyle style = StyleOf(row, 1);
            EXPECT_EQ(style.GetControl(), GRID_CONTROL_EDIT);
            EXPECT_EQ(style.GetControl(), 52512);
            EXPECT_FALSE(style.GetIncludeChoiceList());
        }
        EXPECT_FALSE(StyleOf(1, 2).GetIncludeControl());
    }
}

TEST_F(GridUtilsTest, ChoicesBecomeADropDownList) {
    grid.SetRowCount(2);
    grid.SetColCount(2);
    CGXUtils::SetComboChoices(grid, CGXRange(1, 2, 2, 2), ListOf({u"x", u"y"}));
    for (int row = 1; row <= 2; ++row) {
        CGXStyle style = StyleOf(row, 2);
        EXPECT_EQ(style.GetControl(), GRID_CONTROL_CHOICE_LIST);
        EXPECT_EQ(style.GetControl(), 52517);
        EXPECT_EQ(style.GetChoiceList(), u"x\ny\n");
    }
    EXPECT_FALSE(StyleOf(0, 2).GetIncludeControl());
    // Choices may be empty; each still ends with a line feed.
    CGXUtils::SetComboChoices(grid, CGXRange(1, 1), ListOf({u"", u"b", u""}));
    EXPECT_EQ(StyleOf(1, 1).GetChoiceList(), u"\nb\n\n");
}

TEST_F(GridUtilsTest, ToolTipEntriesAreJoinedWithSeparatorsAfterText) {
    grid.SetRowCount(1);
    grid.SetColCount(1);
    const CGXRange cell(1, 1);
    auto tip = [&] {
        return std::u16string(StyleOf(1, 1).GetUserAttribute(GRID_ATTR_TOOLTIP).GetString());
    };

    CGXUtils::SetToolTip(grid, cell, ListOf({u"", u"a"}));
    EXPECT_EQ(tip(), u"a");
    CGXUtils::SetToolTip(grid, cell, ListOf({u"a", u""}));
    EXPECT_EQ(tip(), u"a, ");
    CGXUtils::SetToolTip(grid, cell, ListOf({u"Size", u"in bytes", u"rounded"}));
    EXPECT_EQ(tip(), u"Size, in bytes, rounded");
    EXPECT_EQ(StyleOf(1, 1).GetUserAttribute(51022), u"Size, in bytes, rounded");
    // A separator is text, so it is never blank.
    CGXUtils::SetToolTip(grid, cell, ListOf({u" ", u""}));
    EXPECT_EQ(tip(), u" , ");

    // Blank texts change nothing.
    for (Entries blank :
         {Entries{u"", u" "}, Entries{}, Entries{u"", u""}, Entries{u"", u"\t\r\n "}}) {
        CGXUtils::SetToolTip(grid, cell, ListOf(blank));
        EXPECT_EQ(tip(), u" , ");
    }
    CGXGridCore untouched;
    untouched.SetRowCount(1);
    untouched.SetColCount(1);
    CGXUtils::SetToolTip(untouched, cell, ListOf({u"", u" "}));
    CGXStyle style;
    untouched.GetStyleRowCol(1, 1, style);
    EXPECT_TRUE(style.IsEmpty());
}

TEST_F(GridUtilsTest, LongToolTipsAreCutAtNinetyCharacters) {
    grid.SetRowCount(1);
    grid.SetColCount(1);
    const CGXRange cell(1, 1);
    auto tip = [&] {
        return std::u16string(StyleOf(1, 1).GetUserAttribute(GRID_ATTR_TOOLTIP).GetString());
    };
    const std::u16string ninety(90, u'n');
    CGXUtils::SetToolTip(grid, cell, ListOf({ninety.c_str()}));
    EXPECT_EQ(tip(), ninety);
    const std::u16string longer = ninety + u"z";
    CGXUtils::SetToolTip(grid, cell, ListOf({longer.c_str()}));
    EXPECT_EQ(tip(), ninety + u"...");
    // The cut applies to the joined text.
    const std::u16string half(45, u'h');
    CGXUtils::SetToolTip(grid, cell, ListOf({half.c_str(), half.c_str()}));
    EXPECT_EQ(tip(), half + u", " + std::u16string(43, u'h') + u"...");
}

} // namespace
