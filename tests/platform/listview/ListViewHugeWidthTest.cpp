// Columns as wide as an int: the list and its header paint them and measure
// with them without their positions overflowing; edges stop where a device
// stops addressing pixels.
#include "ListTestWindow.h"

#include <climits>

namespace listview_test {
namespace {

TEST_F(ListTest, ColumnsAsWideAsAnIntPaintAndMeasure) {
    Create(0, 0, 0);
    list.SetExtendedStyle(LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT);
    list.InsertColumn(0, u"Wide", LVCFMT_LEFT, INT_MAX);
    list.InsertColumn(1, u"Wider", LVCFMT_RIGHT, INT_MAX);
    list.InsertColumn(2, u"Last", LVCFMT_LEFT, INT_MAX);
    list.InsertItem(0, u"row");
    list.SetItemText(0, 2, u"far away");
    list.SetItemState(0, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
    list.SetFocus();
    platform::PumpMessages();
    EXPECT_EQ(list.GetColumnWidth(1), INT_MAX);

    constexpr int kDeviceLimit = 1 << 27;
    RECT row{};
    row.left = LVIR_BOUNDS;
    ASSERT_TRUE(::SendMessage(list.m_hWnd, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row)));
    EXPECT_EQ(row.left, 0);
    EXPECT_EQ(row.right, kDeviceLimit);
    RECT second{};
    second.top = 1;
    second.left = LVIR_BOUNDS;
    ASSERT_TRUE(
        ::SendMessage(list.m_hWnd, LVM_GETSUBITEMRECT, 0, reinterpret_cast<LPARAM>(&second)));
    EXPECT_EQ(second.left, kDeviceLimit);
    EXPECT_EQ(second.right, kDeviceLimit);

    // The visible part belongs to the first column.
    LVHITTESTINFO hit{};
    RECT first{};
    first.left = LVIR_BOUNDS;
    ::SendMessage(list.m_hWnd, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&first));
    hit.pt = POINT{300, first.top + 2};
    EXPECT_EQ(::SendMessage(list.m_hWnd, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit)), 0);
    EXPECT_EQ(hit.iSubItem, 0);
}

} // namespace
} // namespace listview_test
