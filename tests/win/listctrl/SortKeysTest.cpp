// The four variants' orders: how each reads a cell's text, where empty cells
// and cells that are no number or date go, and case in the text sort.
#include "SortListWindow.h"

#include <algorithm>

namespace listctrl_test {
namespace {

using Texts = std::vector<std::u16string>;

TEST_F(SortTest, IntegerSortPutsEmptyFirstAndReadsWordsAsZero) {
    CreateLabelled({u"10", u"", u"9", u"x", u"-3"});
    EXPECT_TRUE(sorter.SortListCtrlByInteger(list, 0, true, 0, -1));
    EXPECT_EQ(Column(0), (Texts{u"", u"-3", u"x", u"9", u"10"}));
    // Whole rows moved: each key still stands beside its own label.
    EXPECT_EQ(Column(1), (Texts{u"r1", u"r4", u"r3", u"r2", u"r0"}));

    EXPECT_TRUE(sorter.SortListCtrlByInteger(list, 0, false, 0, -1));
    EXPECT_EQ(Column(0), (Texts{u"10", u"9", u"x", u"-3", u""}));
}

TEST_F(SortTest, IntegerSortReadsTheLeadingNumberOnly) {
    CreateLabelled({u"  7 apples", u"+3", u"12abc", u"-0", u"0x20", u"2147483648"});
    sorter.SortListCtrlByInteger(list, 0, true, 0, -1);
    const Texts sorted = Column(0);
    // -0 and 0x20 both read as 0; the too large number as the largest int.
    EXPECT_TRUE((sorted[0] == u"-0" && sorted[1] == u"0x20") ||
                (sorted[0] == u"0x20" && sorted[1] == u"-0"));
    EXPECT_EQ(Texts(sorted.begin() + 2, sorted.end()),
              (Texts{u"+3", u"  7 apples", u"12abc", u"2147483648"}));
}

TEST_F(SortTest, DoubleSortPutsEmptyFirstAndReadsTheRuntimesForms) {
    CreateLabelled({u"1.5", u"1e2", u"", u".25"});
    EXPECT_TRUE(sorter.SortListCtrlByDouble(list, 0, true, 0, -1));
    EXPECT_EQ(Column(0), (Texts{u"", u".25", u"1.5", u"1e2"}));
    EXPECT_EQ(Column(1), (Texts{u"r2", u"r3", u"r0", u"r1"}));
    sorter.SortListCtrlByDouble(list, 0, false, 0, -1);
    EXPECT_EQ(Column(0), (Texts{u"1e2", u"1.5", u".25", u""}));
}

TEST_F(SortTest, DoubleSortKnowsNoNanInfinityOrHexadecimal) {
    // The C library would read these as nan, infinity and 16; the runtime
    // reads them as 0, so they fall between -1 and 0.5.
    CreateLabelled({u"inf", u"0.5", u"nan", u"-1", u"0x10", u"-1e-3", u"1,5"});
    sorter.SortListCtrlByDouble(list, 0, true, 0, -1);
    const Texts sorted = Column(0);
    EXPECT_EQ(sorted[0], u"-1");
    EXPECT_EQ(sorted[1], u"-1e-3");
    const Texts zeros{u"inf", u"nan", u"0x10"};
    EXPECT_TRUE(std::is_permutation(sorted.begin() + 2, sorted.begin() + 5, zeros.begin()));
    // "1,5" stops at the comma.
    EXPECT_EQ(sorted[5], u"0.5");
    EXPECT_EQ(sorted[6], u"1,5");
}

TEST_F(SortTest, DoubleSortOfTextOutsideTheAnsiCodePage) {
    // U+2212 MINUS SIGN becomes '?' in the ANSI code page, so reads as 0.
    CreateLabelled({u"1", u"\u22122", u"-2"});
    sorter.SortListCtrlByDouble(list, 0, true, 0, -1);
    EXPECT_EQ(Column(0), (Texts{u"-2", u"\u22122", u"1"}));
}

TEST_F(SortTest, TextSortIgnoresCaseOfAToZOnly) {
    CreateLabelled({u"b", u"A", u"a", u"B"});
    EXPECT_TRUE(sorter.SortListCtrl(list, 0, true, 0, -1));
    Texts sorted = Column(0);
    EXPECT_TRUE(std::is_permutation(sorted.begin(), sorted.begin() + 2, Texts{u"a", u"A"}.begin()));
    EXPECT_TRUE(std::is_permutation(sorted.begin() + 2, sorted.end(), Texts{u"b", u"B"}.begin()));

    // Lower-cased, "A" goes after "_" (0x5F); "Z" before "Ä" and "ä", which
    // keep their case and compare by code unit.
    list.DeleteAllItems();
    for (const auto& text : {u"\u00e4", u"Z", u"_", u"\u00c4", u"A"})
        AddRow({text, u""});
    sorter.SortListCtrl(list, 0, true, 0, -1);
    EXPECT_EQ(Column(0), (Texts{u"_", u"A", u"Z", u"\u00c4", u"\u00e4"}));
    sorter.SortListCtrl(list, 0, false, 0, -1);
    EXPECT_EQ(Column(0), (Texts{u"\u00e4", u"\u00c4", u"Z", u"A", u"_"}));
}

TEST_F(SortTest, TextSortComparesCodeUnitsAndPrefixesFirst) {
    CreateLabelled({u"abc", u"ab", u"Abd", u"a b", u"\U0001F600", u"\uFFFD"});
    sorter.SortListCtrl(list, 0, true, 0, -1);
    // A surrogate pair (0xD83D ...) sorts below U+FFFD by code unit.
    EXPECT_EQ(Column(0), (Texts{u"a b", u"ab", u"abc", u"Abd", u"\U0001F600", u"\uFFFD"}));
}

TEST_F(SortTest, RowsWhoseTextsAreTheSameNeverSwapButCaseDifferencesDo) {
    Create(2, {{u"same", u"1"}, {u"same", u"2"}, {u"same", u"3"}, {u"same", u"4"}});
    sorter.SortListCtrl(list, 0, true, 0, -1);
    EXPECT_EQ(Column(1), (Texts{u"1", u"2", u"3", u"4"}));
    sorter.SortListCtrl(list, 0, false, 0, -1);
    EXPECT_EQ(Column(1), (Texts{u"1", u"2", u"3", u"4"}));

    // Equal keys stop both scans; the texts differ, so the rows trade places.
    list.DeleteAllItems();
    AddRow({u"X", u"1"});
    AddRow({u"x", u"2"});
    sorter.SortListCtrl(list, 0, true, 0, -1);
    EXPECT_EQ(Column(0), (Texts{u"x", u"X"}));
    EXPECT_EQ(Column(1), (Texts{u"2", u"1"}));
}

TEST_F(SortTest, DateSortIsChronologicalAcrossTheFormsOfDates) {
    CreateLabelled({u"2013-05-14 02:04:12", u"Dec 31, 2004", u"10:30 PM", u"1/2/1970",
                    u"12/31/2004 10:30 PM", u"2 Jan 1970 00:00:01"});
    EXPECT_TRUE(sorter.SortListCtrlByDateTime(list, 0, true, 0, -1));
    // A time alone is on 30 December 1899.
    EXPECT_EQ(Column(0), (Texts{u"10:30 PM", u"1/2/1970", u"2 Jan 1970 00:00:01", u"Dec 31, 2004",
                                u"12/31/2004 10:30 PM", u"2013-05-14 02:04:12"}));
    sorter.SortListCtrlByDateTime(list, 0, false, 0, -1);
    EXPECT_EQ(Column(0), (Texts{u"2013-05-14 02:04:12", u"12/31/2004 10:30 PM", u"Dec 31, 2004",
                                u"2 Jan 1970 00:00:01", u"1/2/1970", u"10:30 PM"}));
}

TEST_F(SortTest, DateSortLeavesTextThatIsNoDateWhereTheScansStop) {
    // The pivot "n/a" compares neither way with anything: both scans stop at
    // once, the outer rows trade places, and "n/a" stays in the middle.
    CreateLabelled({u"1/2/1970", u"n/a", u"12/31/1969"});
    sorter.SortListCtrlByDateTime(list, 0, true, 0, -1);
    EXPECT_EQ(Column(0), (Texts{u"12/31/1969", u"n/a", u"1/2/1970"}));

    // Empty text is no date either; here it ends up last.
    list.DeleteAllItems();
    for (const auto& text : {u"3/1/2000", u"", u"1/1/2000", u"2/1/2000"})
        AddRow({text, u""});
    sorter.SortListCtrlByDateTime(list, 0, true, 0, -1);
    EXPECT_EQ(Column(0), (Texts{u"1/1/2000", u"2/1/2000", u"3/1/2000", u""}));
}

TEST_F(SortTest, DateSortOfNothingButNonDatesKeepsEveryRow) {
    CreateLabelled({u"later", u"soon", u"", u"never", u"today?"});
    const auto before = Rows();
    sorter.SortListCtrlByDateTime(list, 0, true, 0, -1);
    auto after = Rows();
    EXPECT_TRUE(std::is_permutation(after.begin(), after.end(), before.begin()));
}

} // namespace
} // namespace listctrl_test
