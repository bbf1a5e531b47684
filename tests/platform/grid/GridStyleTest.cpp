// Cell styles: what a style includes, and how applying one style to another
// takes just the included attributes.
#include <GridStyle.h>

#include <gtest/gtest.h>

TEST(GridStyle, IncludesOnlyWhatWasSet) {
    CGXStyle style;
    EXPECT_TRUE(style.IsEmpty());
    style.SetValue(u"Name").SetUserAttribute(7, u"tip");
    EXPECT_TRUE(style.GetIncludeValue());
    EXPECT_EQ(style.GetValue(), u"Name");
    EXPECT_FALSE(style.GetIncludeControl());
    EXPECT_FALSE(style.GetIncludeChoiceList());
    EXPECT_TRUE(style.GetIncludeUserAttribute(7));
    EXPECT_FALSE(style.GetIncludeUserAttribute(8));
    EXPECT_EQ(style.GetUserAttribute(7), u"tip");
    EXPECT_EQ(style.GetUserAttribute(8), u"");

    // An empty text is still included; a null one is empty.
    CGXStyle blank;
    blank.SetValue(static_cast<LPCTSTR>(nullptr)).SetChoiceList(u"");
    EXPECT_TRUE(blank.GetIncludeValue());
    EXPECT_TRUE(blank.GetIncludeChoiceList());
    EXPECT_FALSE(blank.IsEmpty());

    style.Free();
    EXPECT_TRUE(style.IsEmpty());
    EXPECT_FALSE(style.GetIncludeUserAttribute(7));
    EXPECT_EQ(style, CGXStyle());
}

TEST(GridStyle, ChangeStyleOverridesIncludedAttributesAndKeepsTheRest) {
    CGXStyle cell;
    cell.SetValue(u"old").SetControl(1).SetUserAttribute(1, u"one").SetUserAttribute(2, u"two");
    CGXStyle change;
    change.SetControl(0xCD25).SetChoiceList(u"x\ny\n").SetUserAttribute(2, u"TWO");
    cell.ChangeStyle(change);
    EXPECT_EQ(cell.GetValue(), u"old");
    EXPECT_EQ(cell.GetControl(), 0xCD25);
    EXPECT_EQ(cell.GetChoiceList(), u"x\ny\n");
    EXPECT_EQ(cell.GetUserAttribute(1), u"one");
    EXPECT_EQ(cell.GetUserAttribute(2), u"TWO");

    // An empty style changes nothing.
    CGXStyle before = cell;
    cell.ChangeStyle(CGXStyle());
    EXPECT_EQ(cell, before);
}

TEST(GridStyle, CopiesAreIndependent) {
    CGXStyle original;
    original.SetValue(u"a").SetUserAttribute(3, u"tip");
    CGXStyle copy = original;
    copy.SetUserAttribute(3, u"changed").SetValue(u"b");
    EXPECT_EQ(original.GetUserAttribute(3), u"tip");
    EXPECT_EQ(original.GetValue(), u"a");
    EXPECT_FALSE(copy == original);
    copy = original;
    EXPECT_EQ(copy, original);
    CGXStyle moved = std::move(copy);
    EXPECT_EQ(moved, original);
}
