// The header control on its own: item fields, insertion order, refusal of a
// change by the parent, and headings that do not act as buttons.
#include "ListTestWindow.h"

namespace listview_test {
namespace {

// A parent that refuses width changes of the header's items.
class RefusingParent : public CWnd {
public:
    int refusals = 0;

protected:
    BOOL OnNotify(WPARAM, LPARAM lParam, LRESULT* result) override {
        if (reinterpret_cast<NMHDR*>(lParam)->code == HDN_ITEMCHANGINGW) {
            ++refusals;
            *result = TRUE;
            return TRUE;
        }
        return FALSE;
    }
};

class HeaderTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(parent.CreateEx(0, nullptr, u"header", WS_OVERLAPPED | WS_VISIBLE,
                                    CRect(0, 0, 300, 100), nullptr, 0));
        ASSERT_TRUE(header.Create(WC_HEADERW, nullptr, WS_CHILD | WS_VISIBLE | HDS_BUTTONS,
                                  CRect(0, 0, 300, 24), &parent, 7));
    }
    void TearDown() override {
        header.DestroyWindow();
        parent.DestroyWindow();
        platform::PumpMessages();
    }
    int Insert(int index, const char16_t* text, int width, UINT extraMask = 0, int order = 0) {
        HDITEM item{};
        item.mask = HDI_TEXT | HDI_WIDTH | HDI_FORMAT | extraMask;
        item.pszText = const_cast<LPWSTR>(text);
        item.cxy = width;
        item.fmt = HDF_CENTER | HDF_STRING;
        item.iOrder = order;
        return static_cast<int>(header.SendMessage(HDM_INSERTITEMW, static_cast<WPARAM>(index),
                                                   reinterpret_cast<LPARAM>(&item)));
    }
    RefusingParent parent;
    CHeaderCtrl header;
};

TEST_F(HeaderTest, ItemsKeepTheirFieldsAndOrder) {
    EXPECT_EQ(header.GetItemCount(), 0);
    EXPECT_EQ(Insert(0, u"one", 50), 0);
    EXPECT_EQ(Insert(9, u"two", 60), 1) << "past the end appends";
    EXPECT_EQ(Insert(0, u"zero", 40, HDI_ORDER, 2), 0);
    EXPECT_EQ(header.GetItemCount(), 3);
    int order[3] = {};
    ASSERT_TRUE(header.GetOrderArray(order));
    EXPECT_EQ(std::vector<int>(order, order + 3), (std::vector<int>{1, 2, 0}));

    WCHAR text[3] = {};
    HDITEM item{};
    item.mask = HDI_TEXT | HDI_WIDTH | HDI_FORMAT | HDI_ORDER;
    item.pszText = text;
    item.cchTextMax = 3;
    ASSERT_TRUE(header.GetItem(0, &item));
    EXPECT_EQ(std::u16string(text), u"ze");
    EXPECT_EQ(item.cxy, 40);
    EXPECT_EQ(item.fmt, HDF_CENTER | HDF_STRING);
    EXPECT_EQ(item.iOrder, 2);
    EXPECT_FALSE(header.GetItem(3, &item));

    RECT rect{};
    ASSERT_TRUE(header.SendMessage(HDM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&rect)));
    EXPECT_EQ(rect.left, 110) << "shown last, after 50 and 60";
    EXPECT_TRUE(header.SendMessage(HDM_DELETEITEM, 1));
    EXPECT_FALSE(header.SendMessage(HDM_DELETEITEM, 5));
    ASSERT_TRUE(header.GetOrderArray(order, 2));
    EXPECT_EQ(std::vector<int>(order, order + 2), (std::vector<int>{1, 0}));
}

TEST_F(HeaderTest, TheParentCanRefuseAChange) {
    Insert(0, u"one", 50);
    HDITEM item{};
    item.mask = HDI_WIDTH;
    item.cxy = 90;
    EXPECT_FALSE(header.SetItem(0, &item));
    EXPECT_EQ(parent.refusals, 1);
    ASSERT_TRUE(header.GetItem(0, &item));
    EXPECT_EQ(item.cxy, 50);
}

TEST_F(HeaderTest, AHeaderOfAWindowThatIsGoneCountsMinusOne) {
    CHeaderCtrl none;
    EXPECT_EQ(none.GetItemCount(), -1);
    int order[1];
    EXPECT_FALSE(none.GetOrderArray(order));
}

TEST_F(ListTest, HeadingsOfANoSortHeaderListAreNotButtons) {
    Create(LVS_NOSORTHEADER, 2, 1);
    platform::automation::ClickHeader(kListId, 1);
    RunUser();
    EXPECT_TRUE(parent.columnClicks.empty());
}

} // namespace
} // namespace listview_test
