// The list as a user works it: heading clicks reach the parent's map as
// LVN_COLUMNCLICK, a divider drag widens a column, clicks and arrow keys
// move the selection.
#include "ListTestWindow.h"

namespace listview_test {
namespace {

namespace automation = platform::automation;

TEST_F(ListTest, AHeadingClickArrivesAsAColumnClick) {
    Create(0, 3, 2);
    automation::ClickHeader(kListId, 2);
    automation::ClickHeader(kListId, 0);
    automation::ClickHeader(kListId, 7);
    RunUser();
    EXPECT_EQ(parent.columnClicks, (std::vector<int>{2, 0}));
    EXPECT_EQ(automation::Record().back(), "header click 300: no column 7");
    // With the columns reordered the click still names the column.
    int order[3] = {2, 1, 0};
    list.SetColumnOrderArray(3, order);
    parent.columnClicks.clear();
    automation::ClickHeader(kListId, 0);
    RunUser();
    EXPECT_EQ(parent.columnClicks, (std::vector<int>{0}));
}

TEST_F(ListTest, DraggingADividerWidensTheColumn) {
    Create(0, 3, 2);
    automation::DragHeaderDivider(kListId, 1, 35);
    RunUser();
    EXPECT_EQ(list.GetColumnWidth(1), 135);
    EXPECT_EQ(list.GetColumnWidth(0), 100);
    EXPECT_EQ(list.GetColumnWidth(2), 100);
    ASSERT_GE(parent.headerCodes.size(), 4u);
    EXPECT_EQ(parent.headerCodes.front(), HDN_BEGINTRACKW);
    EXPECT_EQ(parent.headerCodes.back(), HDN_ENDTRACKW);
    EXPECT_NE(std::find(parent.headerCodes.begin(), parent.headerCodes.end(), HDN_TRACKW),
              parent.headerCodes.end());
    EXPECT_NE(std::find(parent.headerCodes.begin(), parent.headerCodes.end(), HDN_ITEMCHANGEDW),
              parent.headerCodes.end());
    EXPECT_TRUE(parent.columnClicks.empty()) << "a drag is not a click";
    // Narrower than nothing stays at zero.
    automation::DragHeaderDivider(kListId, 0, -300);
    RunUser();
    EXPECT_EQ(list.GetColumnWidth(0), 0);
}

TEST_F(ListTest, AColumnRemovedDuringADragEndsTheDrag) {
    Create(0, 3, 2);
    parent.deleteColumnOnTrack = true;
    automation::DragHeaderDivider(kListId, 2, 20);
    RunUser();
    EXPECT_EQ(list.GetHeaderCtrl()->GetItemCount(), 2);
    EXPECT_EQ(list.GetColumnWidth(0), 100);
    EXPECT_EQ(list.GetColumnWidth(1), 100);
    EXPECT_EQ(std::count(parent.headerCodes.begin(), parent.headerCodes.end(), HDN_ENDTRACKW), 0);
}

TEST_F(ListTest, ClicksSelectAndCtrlClicksToggle) {
    Create(0, 2, 5);
    automation::ClickListItem(kListId, 1);
    automation::ClickListItem(kListId, 3, true);
    RunUser();
    EXPECT_EQ(list.GetSelectedCount(), 2u);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), 3);
    EXPECT_EQ(::GetFocus(), list.m_hWnd);
    // The first click reported item 1 selected and focused, then NM_CLICK.
    ASSERT_GE(parent.notices.size(), 2u);
    EXPECT_EQ(parent.notices[0].code, LVN_ITEMCHANGED);
    EXPECT_EQ(parent.notices[0].item, 1);
    EXPECT_EQ(parent.notices[0].newState, static_cast<UINT>(LVIS_SELECTED | LVIS_FOCUSED));
    EXPECT_EQ(parent.notices[1].code, NM_CLICK);

    automation::ClickListItem(kListId, 3, true);
    RunUser();
    EXPECT_EQ(list.GetSelectedCount(), 1u);
    EXPECT_EQ(list.GetItemState(3, LVIS_SELECTED), 0u);
    automation::ClickListItem(kListId, 4);
    RunUser();
    EXPECT_EQ(list.GetSelectedCount(), 1u);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 4);
}

TEST_F(ListTest, ArrowKeysMoveFocusAndSelectionAndScroll) {
    Create(0, 1, 40);
    automation::ClickListItem(kListId, 0);
    automation::Key(VK_DOWN);
    automation::Key(VK_DOWN);
    automation::Key(VK_UP);
    RunUser();
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), 1);
    EXPECT_EQ(list.GetSelectedCount(), 1u);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 1);
    automation::Key(VK_END);
    RunUser();
    EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 39);
    int top = static_cast<int>(list.SendMessage(LVM_GETTOPINDEX));
    int page = static_cast<int>(list.SendMessage(LVM_GETCOUNTPERPAGE));
    EXPECT_EQ(top + page - 1, 39) << "the last row was scrolled into view";
    // An item scrolled into view can be clicked.
    automation::ClickListItem(kListId, 2);
    RunUser();
    EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 2);
    EXPECT_EQ(list.SendMessage(LVM_GETTOPINDEX), 2);
}

TEST_F(ListTest, ScrollingMovesByWholeRowsWithinTheList) {
    Create(0, 1, 40);
    RECT rect{};
    rect.left = LVIR_BOUNDS;
    list.SendMessage(LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&rect));
    int rowHeight = rect.bottom - rect.top;
    ASSERT_GT(rowHeight, 0);
    list.SendMessage(LVM_SCROLL, 0, 5 * rowHeight + 1);
    EXPECT_EQ(list.SendMessage(LVM_GETTOPINDEX), 5);
    list.SendMessage(LVM_SCROLL, 0, -2 * rowHeight);
    EXPECT_EQ(list.SendMessage(LVM_GETTOPINDEX), 3);
    list.SendMessage(LVM_SCROLL, 0, 1000 * rowHeight);
    int page = static_cast<int>(list.SendMessage(LVM_GETCOUNTPERPAGE));
    EXPECT_EQ(list.SendMessage(LVM_GETTOPINDEX), 40 - page);
    list.SendMessage(LVM_SCROLL, 0, -1000 * rowHeight);
    EXPECT_EQ(list.SendMessage(LVM_GETTOPINDEX), 0);
}

TEST_F(ListTest, ADoubleClickNamesItsItem) {
    Create(0, 2, 3);
    RECT rect{};
    rect.left = LVIR_BOUNDS;
    list.SendMessage(LVM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&rect));
    list.SendMessage(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(150, rect.top + 2));
    ASSERT_FALSE(parent.notices.empty());
    EXPECT_EQ(parent.notices.back().code, NM_DBLCLK);
    EXPECT_EQ(parent.notices.back().item, 1);
    EXPECT_EQ(parent.notices.back().subItem, 1);
}

TEST_F(ListTest, ASelectionHidesWhenTheListLosesTheFocus) {
    Create(0, 2, 3);
    list.SetFocus();
    list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
    platform::PumpMessages();
    RECT rect{};
    rect.left = LVIR_BOUNDS;
    list.SendMessage(LVM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&rect));
    CClientDC dc(&list);
    EXPECT_EQ(dc.GetPixel(rect.left + 2, rect.top + 2), GetSysColor(COLOR_HIGHLIGHT));
    parent.SetFocus();
    platform::PumpMessages();
    EXPECT_EQ(dc.GetPixel(rect.left + 2, rect.top + 2), GetSysColor(COLOR_WINDOW));
}

TEST_F(ListTest, HitTestFindsItemAndColumn) {
    Create(LVS_SHOWSELALWAYS, 3, 3);
    RECT rect{};
    rect.left = LVIR_BOUNDS;
    ASSERT_TRUE(list.SendMessage(LVM_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&rect)));
    EXPECT_EQ(rect.right, 300);
    LVHITTESTINFO info{};
    info.pt = POINT{250, (rect.top + rect.bottom) / 2};
    EXPECT_EQ(list.SendMessage(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&info)), 2);
    EXPECT_EQ(info.iSubItem, 2);
    info.pt = POINT{350, info.pt.y};
    EXPECT_EQ(list.SendMessage(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&info)), -1);
    info.pt = POINT{10, 2};
    EXPECT_EQ(list.SendMessage(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&info)), -1);
    EXPECT_EQ(info.flags, static_cast<UINT>(LVHT_ABOVE));
}

} // namespace
} // namespace listview_test
