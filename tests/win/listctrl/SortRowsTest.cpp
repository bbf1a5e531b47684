// What moves with a row, which rows a ranged sort may touch, the remembered
// direction, the lists that are left alone, and the item-data comparison.
#include "SortListWindow.h"

#include <algorithm>
#include <climits>
#include <random>

#include <tchar.h>

namespace listctrl_test {
namespace {

using Texts = std::vector<std::u16string>;

// The overlay image index sits in state bits 8 to 11, the state image's in
// bits 12 to 15.
UINT Overlay(int index) {
    return static_cast<UINT>(index) << 8;
}
UINT StateImage(int index) {
    return static_cast<UINT>(index) << 12;
}

LVITEM Attributes(const CListCtrl& list, int row) {
    LVITEM item{};
    item.mask = LVIF_IMAGE | LVIF_PARAM | LVIF_STATE | LVIF_INDENT;
    item.iItem = row;
    item.stateMask = 0xFFFF;
    EXPECT_TRUE(list.GetItem(&item));
    return item;
}

TEST_F(SortTest, ImageDataStateOverlayAndStateImageTravelWithTheRowButIndentStays) {
    CreateLabelled({u"30", u"10", u"20"});
    for (int r = 0; r < 3; ++r) {
        LVITEM item{};
        item.mask = LVIF_IMAGE | LVIF_INDENT | LVIF_STATE;
        item.iItem = r;
        item.iImage = 100 + r;
        item.iIndent = r;
        // Overlay image r+1 and state image r+2 in the high bits.
        item.state = Overlay(r + 1) | StateImage(r + 2);
        item.stateMask = LVIS_OVERLAYMASK | LVIS_STATEIMAGEMASK;
        ASSERT_TRUE(list.SetItem(&item));
    }
    list.SetItemState(0, LVIS_SELECTED | LVIS_CUT, LVIS_SELECTED | LVIS_CUT);
    list.SetItemState(2, LVIS_FOCUSED | LVIS_DROPHILITED, LVIS_FOCUSED | LVIS_DROPHILITED);
    list.SetItemData(1, static_cast<DWORD_PTR>(-7)); // data is whatever the host keeps there

    sorter.SortListCtrlByInteger(list, 0, true, 0, -1);
    ASSERT_EQ(Column(0), (Texts{u"10", u"20", u"30"}));
    // Old row 1 is now row 0, old row 2 row 1, old row 0 row 2.
    const int from[] = {1, 2, 0};
    for (int r = 0; r < 3; ++r) {
        SCOPED_TRACE(r);
        const LVITEM item = Attributes(list, r);
        EXPECT_EQ(item.iImage, 100 + from[r]);
        EXPECT_EQ(item.state & LVIS_OVERLAYMASK, Overlay(from[r] + 1));
        EXPECT_EQ(item.state & LVIS_STATEIMAGEMASK, StateImage(from[r] + 2));
        EXPECT_EQ(item.iIndent, r) << "the indent belongs to the place, not the row";
    }
    EXPECT_EQ(list.GetItemData(0), static_cast<DWORD_PTR>(-7));
    EXPECT_EQ(list.GetItemData(1), 2u);
    EXPECT_EQ(list.GetItemData(2), 0u);
    EXPECT_EQ(list.GetItemState(2, 0xFF), static_cast<UINT>(LVIS_SELECTED | LVIS_CUT));
    EXPECT_EQ(list.GetItemState(1, 0xFF), static_cast<UINT>(LVIS_FOCUSED | LVIS_DROPHILITED));
    EXPECT_EQ(list.GetItemState(0, 0xFF), 0u);
    EXPECT_EQ(list.GetSelectedCount(), 1u);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), 1) << "one item holds the focus";
    EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 2);
}

TEST_F(SortTest, SelectionTravelsInASingleSelectionList) {
    Create(2, {{u"c", u"3"}, {u"b", u"2"}, {u"a", u"1"}, {u"d", u"4"}}, LVS_SINGLESEL);
    list.SetItemState(0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    sorter.SortListCtrl(list, 0, true, 0, -1);
    ASSERT_EQ(Column(0), (Texts{u"a", u"b", u"c", u"d"}));
    EXPECT_EQ(list.GetSelectedCount(), 1u);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 2);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), 2);
    EXPECT_EQ(list.GetItemData(2), 0u);
}

TEST_F(SortTest, EveryColumnTravelsAndTheWaitCursorShowsMeanwhile) {
    Create(4, {{u"2", u"b1", u"b2", u"b3"}, {u"1", u"a1", u"a2", u"a3"}});
    list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    const HCURSOR before = ::GetCursor();
    ASSERT_NE(before, ::LoadCursor(nullptr, IDC_WAIT));
    parent.stateChanges = 0;
    sorter.SortListCtrlByInteger(list, 0, true, 0, -1);
    EXPECT_EQ(Rows(), (std::vector<Row>{{u"1", u"a1", u"a2", u"a3"}, {u"2", u"b1", u"b2", u"b3"}}));
    ASSERT_GT(parent.stateChanges, 0);
    EXPECT_EQ(parent.changesUnderWaitCursor, parent.stateChanges);
    EXPECT_EQ(::GetCursor(), before) << "the cursor is back once the sort is done";
}

TEST_F(SortTest, RangedSortsTouchOnlyTheirRows) {
    CreateLabelled({u"9", u"8", u"7", u"6", u"5", u"4", u"3"});
    list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_TRUE(sorter.SortListCtrlByInteger(list, 0, true, 2, 4));
    EXPECT_EQ(Column(0), (Texts{u"9", u"8", u"5", u"6", u"7", u"4", u"3"}));
    EXPECT_EQ(Column(1), (Texts{u"r0", u"r1", u"r4", u"r3", u"r2", u"r5", u"r6"}));
    EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 0);

    sorter.SortListCtrl(list, 0, false, 5, -1); // -1: up to the last row
    EXPECT_EQ(Column(0), (Texts{u"9", u"8", u"5", u"6", u"7", u"4", u"3"}));
    sorter.SortListCtrl(list, 0, true, 5, -1);
    EXPECT_EQ(Column(0), (Texts{u"9", u"8", u"5", u"6", u"7", u"3", u"4"}));
    EXPECT_FALSE(sorter.GetSortOrder() == false) << "ranged sorts leave the memory alone";
}

TEST_F(SortTest, EmptyRangesAndMissingColumnsLeaveTheListAlone) {
    CreateLabelled({u"c", u"a", u"b"});
    const auto before = Rows();
    EXPECT_TRUE(sorter.SortListCtrl(list, 0, true, 2, 1)) << "high below low";
    EXPECT_TRUE(sorter.SortListCtrl(list, 0, true, 1, 1));
    EXPECT_TRUE(sorter.SortListCtrl(list, 2, true, 0, -1)) << "one past the last column";
    EXPECT_TRUE(sorter.SortListCtrlByInteger(list, 2)) << "two-argument form";
    EXPECT_TRUE(sorter.SortListCtrlByDouble(list, 99, true, 0, -1));
    EXPECT_TRUE(sorter.SortListCtrlByDateTime(list, -1, true, 0, -1));
    EXPECT_EQ(Rows(), before);

    // A range reaching past the rows or before the first is held to the list.
    EXPECT_TRUE(sorter.SortListCtrl(list, 0, true, -3, 40));
    EXPECT_EQ(Column(0), (Texts{u"a", u"b", u"c"}));
    EXPECT_EQ(list.GetItemCount(), 3);
}

TEST_F(SortTest, ListsOfNoneOrOneRowAndListsWithoutColumns) {
    Create(2, {});
    EXPECT_TRUE(sorter.SortListCtrl(list, 0));
    EXPECT_TRUE(sorter.SortListCtrlByDouble(list, 1, false, 0, -1));
    EXPECT_EQ(list.GetItemCount(), 0);
    AddRow({u"only", u"one"});
    list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_TRUE(sorter.SortListCtrlByInteger(list, 0));
    EXPECT_EQ(Rows(), (std::vector<Row>{{u"only", u"one"}}));
    EXPECT_EQ(list.GetItemState(0, LVIS_SELECTED), static_cast<UINT>(LVIS_SELECTED));

    // Rows but no columns: the header counts none, so nothing is sorted.
    list.DestroyWindow();
    Create(0, {});
    list.InsertItem(0, u"b");
    list.InsertItem(1, u"a");
    EXPECT_TRUE(sorter.SortListCtrl(list, 0, true, 0, -1));
    EXPECT_EQ(Column(0), (Texts{u"b", u"a"}));
}

TEST_F(SortTest, TwoArgumentSortsAlternateOnOneColumnAndStartAscendingOnAnother) {
    Create(2, {{u"2", u"b"}, {u"3", u"c"}, {u"1", u"a"}});
    EXPECT_TRUE(sorter.GetSortOrder());
    EXPECT_TRUE(sorter.SortListCtrl(list, 1));
    EXPECT_EQ(Column(1), (Texts{u"a", u"b", u"c"}));
    EXPECT_TRUE(sorter.GetSortOrder());
    EXPECT_TRUE(sorter.SortListCtrl(list, 1));
    EXPECT_EQ(Column(1), (Texts{u"c", u"b", u"a"}));
    EXPECT_FALSE(sorter.GetSortOrder());
    // Another column starts ascending, whatever the variant.
    EXPECT_TRUE(sorter.SortListCtrlByDouble(list, 0));
    EXPECT_EQ(Column(0), (Texts{u"1", u"2", u"3"}));
    // The variants share the memory: the same column again goes descending.
    EXPECT_TRUE(sorter.SortListCtrlByInteger(list, 0));
    EXPECT_EQ(Column(0), (Texts{u"3", u"2", u"1"}));
    EXPECT_TRUE(sorter.SortListCtrlByDateTime(list, 0));
    EXPECT_TRUE(sorter.GetSortOrder());
    // A column past the last still counts as the column sorted last.
    sorter.SortListCtrl(list, 5);
    sorter.SortListCtrl(list, 5);
    EXPECT_FALSE(sorter.GetSortOrder());
}

TEST_F(SortTest, AHostSortsOnEachHeadingClickAndTheUsersSelectionFollows) {
    Create(2, {{u"20", u"pear"}, {u"3", u"apple"}, {u"100", u"fig"}});
    parent.onColumnClick = [this](int column) {
        if (column == 0)
            sorter.SortListCtrlByInteger(list, column);
        else
            sorter.SortListCtrl(list, column);
    };
    ::SetActiveWindow(parent.m_hWnd);
    namespace automation = platform::automation;
    automation::ClickListItem(100, 2); // "100", "fig"
    automation::ClickHeader(100, 0);
    RunUser();
    EXPECT_EQ(Column(0), (Texts{u"3", u"20", u"100"}));
    EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 2);
    automation::ClickHeader(100, 0);
    RunUser();
    EXPECT_EQ(Column(0), (Texts{u"100", u"20", u"3"}));
    EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 0);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), 0);
    automation::ClickHeader(100, 1);
    RunUser();
    EXPECT_EQ(Column(1), (Texts{u"apple", u"fig", u"pear"}));
    EXPECT_EQ(list.GetItemText(list.GetNextItem(-1, LVNI_SELECTED), 1), CString(u"fig"));
}

TEST_F(SortTest, SortOrderMemoryIsCopied) {
    sorter.SetSortOrder(3);
    sorter.SetSortOrder(3);
    CListCtrlSorter copy(sorter);
    EXPECT_FALSE(copy.GetSortOrder());
    copy.SetSortOrder(3);
    EXPECT_TRUE(copy.GetSortOrder()) << "the copy knew the column";
    CListCtrlSorter assigned;
    assigned = sorter;
    assigned.SetSortOrder(4);
    EXPECT_TRUE(assigned.GetSortOrder());
    assigned = sorter;
    assigned.SetSortOrder(3);
    EXPECT_TRUE(assigned.GetSortOrder());
}

TEST_F(SortTest, LargeListsComeOutOrderedWithEveryRowKept) {
    std::mt19937 random(17);
    std::vector<Row> rows;
    for (int r = 0; r < 3000; ++r)
        rows.push_back({Number(static_cast<int>(random() % 500) - 250), Number(r)});
    // Runs of equal keys and an already sorted stretch.
    for (int r = 0; r < 300; ++r)
        rows.push_back({Number(r / 7), Number(3000 + r)});
    Create(2, rows);
    auto expectOrdered = [&](bool ascending) {
        std::vector<int> keys;
        for (const auto& text : Column(0))
            keys.push_back(_wtoi(text.c_str()));
        if (ascending)
            EXPECT_TRUE(std::is_sorted(keys.begin(), keys.end()));
        else
            EXPECT_TRUE(std::is_sorted(keys.rbegin(), keys.rend()));
        auto now = Rows();
        auto sortedNow = now;
        auto sortedRows = rows;
        std::sort(sortedNow.begin(), sortedNow.end());
        std::sort(sortedRows.begin(), sortedRows.end());
        EXPECT_EQ(sortedNow, sortedRows) << "every row kept";
        for (int r = 0; r < list.GetItemCount(); ++r)
            ASSERT_EQ(list.GetItemData(r), static_cast<DWORD_PTR>(_wtoi(now[r][1].c_str())))
                << "the data stays with its row";
    };
    sorter.SortListCtrlByInteger(list, 0);
    expectOrdered(true);
    sorter.SortListCtrlByInteger(list, 0); // an ordered list, reversed
    expectOrdered(false);
    sorter.SortListCtrlByInteger(list, 0, false, 0, -1); // already in order
    expectOrdered(false);
}

TEST_F(SortTest, CompareIntFuncOrdersItemDataAsSigned32BitNumbers) {
    EXPECT_EQ(CListCtrlSorter::CompareIntFunc(2, 1, 0), 1);
    EXPECT_EQ(CListCtrlSorter::CompareIntFunc(1, 2, 99), -1);
    EXPECT_EQ(CListCtrlSorter::CompareIntFunc(5, 5, -1), 0);
    EXPECT_EQ(CListCtrlSorter::CompareIntFunc(-1, 1, 0), -1);
    // Only the low 32 bits count: 0x1'0000'0000 is 0 and 0xFFFFFFFF is -1.
    EXPECT_EQ(CListCtrlSorter::CompareIntFunc(LPARAM{0x100000000}, 1, 0), -1);
    EXPECT_EQ(CListCtrlSorter::CompareIntFunc(LPARAM{0xFFFFFFFF}, 0, 0), -1);
    EXPECT_EQ(CListCtrlSorter::CompareIntFunc(INT_MIN, INT_MAX, 0), -1);

    CreateLabelled({u"a", u"b", u"c", u"d", u"e"});
    const LONG data[] = {40, -3, INT_MIN, 7, 0};
    for (int r = 0; r < 5; ++r)
        list.SetItemData(r, static_cast<DWORD_PTR>(static_cast<LPARAM>(data[r])));
    list.SetItemState(3, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_TRUE(list.SortItems(&CListCtrlSorter::CompareIntFunc, 0));
    EXPECT_EQ(Column(0), (Texts{u"c", u"b", u"e", u"d", u"a"}));
    EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 3);
    EXPECT_EQ(static_cast<LONG>(list.GetItemData(0)), INT_MIN);
}

} // namespace
} // namespace listctrl_test
