// Items, sub-items and their state through the list view's messages: masks
// act only on their fields, the focus is unique, single selection, and
// every state change reaches the parent.
#include "ListTestWindow.h"

namespace listview_test {
namespace {

LRESULT Send(HWND hwnd, UINT message, WPARAM wParam, const void* lParam) {
    return ::SendMessage(hwnd, message, wParam, reinterpret_cast<LPARAM>(lParam));
}

TEST_F(ListTest, ItemMasksReadAndWriteOnlyTheirFields) {
    Create(0, 3, 0);
    LVITEM item{};
    item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM | LVIF_INDENT;
    item.iItem = 5; // past the end: appended
    item.pszText = const_cast<LPWSTR>(u"first");
    item.iImage = 7;
    item.lParam = 1234;
    item.iIndent = 2;
    ASSERT_EQ(Send(list, LVM_INSERTITEMW, 0, &item), 0);
    item.iSubItem = 1;
    EXPECT_EQ(Send(list, LVM_INSERTITEMW, 0, &item), -1) << "a sub-item cannot be inserted";

    // 0x0E: image, data and state, but not the text.
    WCHAR text[16] = u"untouched";
    LVITEM read{};
    read.mask = LVIF_IMAGE | LVIF_PARAM | LVIF_STATE;
    read.stateMask = 0xFF0F;
    read.pszText = text;
    read.cchTextMax = 16;
    ASSERT_TRUE(Send(list, LVM_GETITEMW, 0, &read));
    EXPECT_EQ(read.iImage, 7);
    EXPECT_EQ(read.lParam, 1234);
    EXPECT_EQ(read.state, 0u);
    EXPECT_EQ(std::u16string(text), u"untouched");

    // Setting only the image leaves the data alone.
    LVITEM image{};
    image.mask = LVIF_IMAGE;
    image.iImage = 3;
    ASSERT_TRUE(Send(list, LVM_SETITEMW, 0, &image));
    EXPECT_EQ(list.GetItemData(0), 1234u);
    read.mask = LVIF_IMAGE | LVIF_INDENT;
    Send(list, LVM_GETITEMW, 0, &read);
    EXPECT_EQ(read.iImage, 3);
    EXPECT_EQ(read.iIndent, 2);

    // A sub-item takes only text.
    LVITEM sub{};
    sub.mask = LVIF_TEXT;
    sub.iSubItem = 2;
    sub.pszText = const_cast<LPWSTR>(u"third");
    ASSERT_TRUE(Send(list, LVM_SETITEMW, 0, &sub));
    sub.mask = LVIF_PARAM;
    EXPECT_FALSE(Send(list, LVM_SETITEMW, 0, &sub));
    EXPECT_EQ(list.GetItemText(0, 2), CString(u"third"));
    EXPECT_EQ(list.GetItemText(0, 1), CString(u""));
    EXPECT_EQ(list.GetItemText(0, 0), CString(u"first"));

    LVITEM missing{};
    missing.mask = LVIF_PARAM;
    missing.iItem = 1;
    EXPECT_FALSE(Send(list, LVM_GETITEMW, 0, &missing));
    EXPECT_FALSE(list.SetItemText(9, 0, u"x"));
}

TEST_F(ListTest, ItemTextIsCutToTheBufferAndReturnsItsLength) {
    Create(0, 2, 1);
    ASSERT_TRUE(list.SetItemText(0, 1, u"abcdefgh"));
    WCHAR buffer[5] = {u'x', u'x', u'x', u'x', u'x'};
    EXPECT_EQ(list.GetItemText(0, 1, buffer, 5), 4);
    EXPECT_EQ(std::u16string(buffer), u"abcd");
    EXPECT_EQ(list.GetItemText(0, 1, buffer, 1), 0);
    EXPECT_EQ(buffer[0], u'\0');
    EXPECT_EQ(list.GetItemText(0, 7, buffer, 5), 0) << "a sub-item never set is empty";
    EXPECT_EQ(list.GetItemText(3, 0, buffer, 5), 0);

    // The framework's string form grows its buffer until the text fits.
    std::u16string longText(1000, u'q');
    longText += u"end";
    list.SetItemText(0, 0, longText.c_str());
    EXPECT_EQ(std::u16string(list.GetItemText(0, 0).GetString()), longText);
    std::u16string exact(255, u'e'); // fills the first buffer to the last place
    list.SetItemText(0, 0, exact.c_str());
    EXPECT_EQ(list.GetItemText(0, 0).GetLength(), 255);
}

TEST_F(ListTest, WildNumbersAreRefusedWithoutGrowingTheList) {
    Create(0, 2, 1);
    EXPECT_FALSE(list.SetItemText(0, 0x7FFFFFFF, u"far"));
    EXPECT_FALSE(list.SetItemText(0, 2, u"no column shows it"));
    EXPECT_FALSE(list.SetItemText(0, -1, u"negative"));
    EXPECT_EQ(list.InsertColumn(2, u"far", LVCFMT_LEFT, 10, 0x7FFFFFF0), -1);
    EXPECT_EQ(list.InsertColumn(2, u"near", LVCFMT_LEFT, 10, 5), 2);
    EXPECT_TRUE(list.SetItemText(0, 5, u"shown by column 2"));
    EXPECT_TRUE(list.SendMessage(LVM_SETITEMCOUNT, static_cast<WPARAM>(-1), 0));
    EXPECT_EQ(list.GetItemCount(), 1);
}

TEST_F(ListTest, StateChangesOnlyTheMaskedBitsAndReportsEachChange) {
    Create(0, 1, 3);
    ASSERT_TRUE(
        list.SetItemState(1, 0x0F00 | LVIS_CUT | LVIS_SELECTED, LVIS_OVERLAYMASK | LVIS_CUT));
    EXPECT_EQ(list.GetItemState(1, 0xFF0F), static_cast<UINT>(0x0F00 | LVIS_CUT));
    EXPECT_EQ(list.GetItemState(1, LVIS_CUT), static_cast<UINT>(LVIS_CUT));
    EXPECT_EQ(list.GetSelectedCount(), 0u);
    ASSERT_EQ(Changes().size(), 1u);
    EXPECT_EQ(Changes()[0].item, 1);
    EXPECT_EQ(Changes()[0].newState, static_cast<UINT>(0x0F00 | LVIS_CUT));
    EXPECT_EQ(Changes()[0].oldState, 0u);
    EXPECT_EQ(Changes()[0].changed, static_cast<UINT>(LVIF_STATE));

    // Setting what is already there says nothing.
    parent.notices.clear();
    list.SetItemState(1, LVIS_CUT, LVIS_CUT);
    EXPECT_TRUE(Changes().empty());
    EXPECT_FALSE(list.SetItemState(3, LVIS_SELECTED, LVIS_SELECTED));
}

TEST_F(ListTest, OnlyOneItemHoldsTheFocus) {
    Create(0, 1, 4);
    list.SetItemState(0, LVIS_FOCUSED, LVIS_FOCUSED);
    list.SetItemState(2, LVIS_FOCUSED, LVIS_FOCUSED);
    EXPECT_EQ(list.GetItemState(0, LVIS_FOCUSED), 0u);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), 2);
    // Item -1 cannot focus every item, but clears them all.
    list.SetItemState(-1, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), 2);
    EXPECT_EQ(list.GetSelectedCount(), 4u);
    list.SetItemState(-1, 0, LVIS_FOCUSED | LVIS_SELECTED);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), -1);
    EXPECT_EQ(list.GetSelectedCount(), 0u);
    // The focus follows its item when rows are inserted and deleted above it.
    list.SetItemState(2, LVIS_FOCUSED, LVIS_FOCUSED);
    list.InsertItem(0, u"new");
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), 3);
    list.DeleteItem(1);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), 2);
    list.DeleteItem(2);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), -1);
}

TEST_F(ListTest, SingleSelectionDeselectsTheOthers) {
    Create(LVS_SINGLESEL, 1, 4);
    list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
    list.SetItemState(3, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(list.GetSelectedCount(), 1u);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 3);
    list.SetItemState(-1, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(list.GetSelectedCount(), 1u) << "selecting all is refused";
}

TEST_F(ListTest, MultipleSelectionIsWalkedInOrder) {
    Create(0, 1, 6);
    for (int i : {4, 1, 2})
        list.SetItemState(i, LVIS_SELECTED, LVIS_SELECTED);
    std::vector<int> seen;
    POSITION pos = list.GetFirstSelectedItemPosition();
    while (pos)
        seen.push_back(list.GetNextSelectedItem(pos));
    EXPECT_EQ(seen, (std::vector<int>{1, 2, 4}));
    EXPECT_EQ(list.GetNextItem(2, LVNI_SELECTED), 4);
    EXPECT_EQ(list.GetNextItem(4, LVNI_SELECTED), -1);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_ALL), 0);
    list.DeleteItem(1);
    EXPECT_EQ(list.GetSelectedCount(), 2u);
    list.DeleteAllItems();
    EXPECT_EQ(list.GetSelectedCount(), 0u);
    EXPECT_EQ(list.GetFirstSelectedItemPosition(), nullptr);
}

int ByDataDescending(LPARAM a, LPARAM b, LPARAM) {
    return static_cast<int>(b - a);
}

// Equal when the data has the same parity: the sort keeps their order.
int ByParity(LPARAM a, LPARAM b, LPARAM flip) {
    return static_cast<int>((a % 2) - (b % 2)) * static_cast<int>(flip);
}

TEST_F(ListTest, SortingByItemDataCarriesTheWholeRowAndIsStable) {
    Create(0, 2, 6);
    for (int r = 0; r < 6; ++r)
        list.SetItemText(r, 1, CString(std::to_string(r * 10).c_str()));
    list.SetItemState(1, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
    ASSERT_TRUE(list.SortItems(ByDataDescending, 0));
    for (int r = 0; r < 6; ++r) {
        EXPECT_EQ(list.GetItemData(r), static_cast<DWORD_PTR>(5 - r));
        EXPECT_EQ(list.GetItemText(r, 1), CString(std::to_string((5 - r) * 10).c_str()));
    }
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), 4);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 4);

    ASSERT_TRUE(list.SortItems(ByParity, 1));
    std::vector<DWORD_PTR> order;
    for (int r = 0; r < 6; ++r)
        order.push_back(list.GetItemData(r));
    EXPECT_EQ(order, (std::vector<DWORD_PTR>{4, 2, 0, 5, 3, 1}));
    EXPECT_FALSE(list.SendMessage(LVM_SORTITEMS, 0, 0)) << "no comparison, no sort";
}

// Texts stay with their rows whatever happens around them: rows inserted
// before and between, a sub-item first written when rows already exist,
// rows deleted, and the list emptied and filled again.
TEST_F(ListTest, TextsStayWithTheirRowsAsRowsComeAndGo) {
    Create(0, 4, 3); // rows r0, r1, r2
    list.SetItemText(1, 3, u"late");
    list.InsertItem(0, u"front");
    list.InsertItem(2, u"middle");
    list.SetItemText(0, 2, u"front2");
    std::vector<std::u16string> firsts, lasts;
    for (int r = 0; r < list.GetItemCount(); ++r) {
        firsts.push_back(list.GetItemText(r, 0).GetString());
        lasts.push_back(list.GetItemText(r, 3).GetString());
    }
    EXPECT_EQ(firsts, (std::vector<std::u16string>{u"front", u"r0", u"middle", u"r1", u"r2"}));
    EXPECT_EQ(lasts, (std::vector<std::u16string>{u"", u"", u"", u"late", u""}));
    EXPECT_EQ(list.GetItemText(0, 2), CString(u"front2"));

    ASSERT_TRUE(list.DeleteItem(2));
    EXPECT_EQ(list.GetItemText(2, 0), CString(u"r1"));
    EXPECT_EQ(list.GetItemText(2, 3), CString(u"late"));
    EXPECT_EQ(list.GetItemText(4, 0), CString(u"")) << "past the last row";

    ASSERT_TRUE(list.DeleteAllItems());
    list.InsertItem(0, u"again");
    EXPECT_EQ(list.GetItemText(0, 0), CString(u"again"));
    EXPECT_EQ(list.GetItemText(0, 3), CString(u""));
}

} // namespace
} // namespace listview_test
