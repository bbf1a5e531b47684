// Columns through the list and its header: the framework's column masks,
// reading a missing column, cut headings, widths and display order.
#include "ListTestWindow.h"

namespace listview_test {
namespace {

// A list that records the column masks the framework sends.
class RecordingList : public CListCtrl {
public:
    std::vector<UINT> masks;
    std::vector<int> subItems;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == LVM_INSERTCOLUMNW) {
            masks.push_back(reinterpret_cast<LVCOLUMN*>(lParam)->mask);
            subItems.push_back(reinterpret_cast<LVCOLUMN*>(lParam)->iSubItem);
        }
        return CListCtrl::WindowProc(message, wParam, lParam);
    }
};

TEST_F(ListTest, InsertColumnSendsWidthAndSubItemOnlyWhenGiven) {
    Create(0, 0, 0);
    RecordingList recording;
    ASSERT_TRUE(recording.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 0, 200, 100), &parent,
                                 kListId + 1));
    recording.InsertColumn(0, u"a");
    recording.InsertColumn(1, u"b", LVCFMT_RIGHT, 50);
    recording.InsertColumn(2, u"c", LVCFMT_LEFT, -1, 4);
    EXPECT_EQ(recording.masks,
              (std::vector<UINT>{LVCF_TEXT | LVCF_FMT, LVCF_TEXT | LVCF_FMT | LVCF_WIDTH,
                                 LVCF_TEXT | LVCF_FMT | LVCF_SUBITEM}));
    EXPECT_EQ(recording.subItems[2], 4);
    EXPECT_EQ(recording.GetColumnWidth(1), 50);
    EXPECT_GT(recording.GetColumnWidth(0), 0) << "without a width the heading still fits";
    // Column 2 shows sub-item 4.
    recording.InsertItem(0, u"row");
    recording.SetItemText(0, 4, u"four");
    LVCOLUMN column{};
    column.mask = LVCF_SUBITEM | LVCF_FMT;
    ASSERT_TRUE(recording.GetColumn(2, &column));
    EXPECT_EQ(column.iSubItem, 4);
    ASSERT_TRUE(recording.GetColumn(1, &column));
    EXPECT_EQ(column.fmt, LVCFMT_RIGHT);
    recording.DestroyWindow();
}

TEST_F(ListTest, GetColumnFailsForAMissingColumnAndCutsItsText) {
    Create(0, 0, 0);
    list.InsertColumn(0, u"Heading text", LVCFMT_LEFT, 80);
    WCHAR text[8] = {};
    LVCOLUMN column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_ORDER;
    column.pszText = text;
    column.cchTextMax = 8;
    ASSERT_TRUE(list.GetColumn(0, &column));
    EXPECT_EQ(std::u16string(text), u"Heading");
    EXPECT_EQ(column.cx, 80);
    EXPECT_EQ(column.iOrder, 0);
    EXPECT_FALSE(list.GetColumn(1, &column));
    EXPECT_FALSE(list.GetColumn(-1, &column));
    EXPECT_FALSE(list.SetColumnWidth(3, 10));
    EXPECT_FALSE(list.DeleteColumn(1));

    LVCOLUMN rename{};
    rename.mask = LVCF_TEXT;
    rename.pszText = const_cast<LPWSTR>(u"New");
    ASSERT_TRUE(list.SetColumn(0, &rename));
    ASSERT_TRUE(list.GetColumn(0, &column));
    EXPECT_EQ(std::u16string(text), u"New");
    EXPECT_EQ(list.GetHeaderCtrl()->GetItemCount(), 1);
}

TEST_F(ListTest, DeletingAColumnDropsItsSubItemsAndMovesTheRest) {
    Create(0, 3, 1);
    list.SetItemText(0, 1, u"one");
    list.SetItemText(0, 2, u"two");
    ASSERT_TRUE(list.DeleteColumn(1));
    EXPECT_EQ(list.GetHeaderCtrl()->GetItemCount(), 2);
    EXPECT_EQ(list.GetItemText(0, 1), CString(u"two"));
    EXPECT_EQ(list.GetItemText(0, 0), CString(u"r0"));
}

TEST_F(ListTest, AutoSizeFitsTheWidestText) {
    Create(0, 2, 2);
    list.SetItemText(1, 1, u"a much longer text than the others");
    list.SetColumnWidth(1, 20);
    ASSERT_TRUE(list.SetColumnWidth(1, LVSCW_AUTOSIZE));
    int fitted = list.GetColumnWidth(1);
    EXPECT_GT(fitted, 100);
    list.SetItemText(1, 1, u"x");
    list.SetColumnWidth(1, LVSCW_AUTOSIZE);
    int narrow = list.GetColumnWidth(1);
    list.SetColumnWidth(1, LVSCW_AUTOSIZE_USEHEADER);
    EXPECT_GT(list.GetColumnWidth(1), narrow) << "the heading is wider than 'x'";
}

TEST_F(ListTest, ColumnOrderComesFromTheHeader) {
    Create(0, 3, 0);
    int order[3] = {};
    ASSERT_TRUE(list.GetColumnOrderArray(order));
    EXPECT_EQ(std::vector<int>(order, order + 3), (std::vector<int>{0, 1, 2}));
    int changed[3] = {2, 0, 1};
    ASSERT_TRUE(list.SetColumnOrderArray(3, changed));
    ASSERT_TRUE(list.GetColumnOrderArray(order, 3));
    EXPECT_EQ(std::vector<int>(order, order + 3), (std::vector<int>{2, 0, 1}));
    ASSERT_TRUE(list.GetHeaderCtrl()->GetOrderArray(order));
    EXPECT_EQ(order[0], 2);
    LVCOLUMN column{};
    column.mask = LVCF_ORDER;
    list.GetColumn(2, &column);
    EXPECT_EQ(column.iOrder, 0);

    int notPermutation[3] = {0, 0, 1};
    EXPECT_FALSE(list.SetColumnOrderArray(3, notPermutation));
    EXPECT_FALSE(list.SetColumnOrderArray(2, changed)) << "the count must match";
    EXPECT_FALSE(list.GetColumnOrderArray(order, 2));

    // A column inserted later takes the last place; deleting keeps the rest.
    list.InsertColumn(3, u"D", LVCFMT_LEFT, 40);
    int four[4] = {};
    ASSERT_TRUE(list.GetColumnOrderArray(four));
    EXPECT_EQ(std::vector<int>(four, four + 4), (std::vector<int>{2, 0, 1, 3}));
    list.DeleteColumn(0);
    ASSERT_TRUE(list.GetColumnOrderArray(order));
    EXPECT_EQ(std::vector<int>(order, order + 3), (std::vector<int>{1, 0, 2}));
}

TEST_F(ListTest, OrderArrayOfAListWithoutAHeaderAnswerFails) {
    CListCtrl unattached;
    int order[2] = {};
    EXPECT_FALSE(unattached.GetColumnOrderArray(order));
}

} // namespace
} // namespace listview_test
