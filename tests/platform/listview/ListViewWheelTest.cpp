// The report list scrolled by the mouse wheel: three rows a notch, a part of
// a notch kept until it makes a row, never past either end.
#include "ListTestWindow.h"

namespace listview_test {
namespace {

namespace automation = platform::automation;

class ListWheelTest : public ListTest {
protected:
    void Turn(int notches) {
        automation::TurnWheel(notches);
        RunUser();
    }
    void Wheel(short delta) {
        list.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)), 0);
    }
    int Top() { return static_cast<int>(list.SendMessage(LVM_GETTOPINDEX, 0, 0)); }
};

TEST_F(ListWheelTest, EachNotchScrollsThreeRowsWithinTheList) {
    Create(0, 2, 60);
    list.SetFocus();
    const int page = static_cast<int>(list.SendMessage(LVM_GETCOUNTPERPAGE, 0, 0));
    ASSERT_GT(page, 3);
    ASSERT_LT(page, 57);
    Turn(-1); // toward the user: down the list
    EXPECT_EQ(Top(), 3);
    Turn(-2);
    EXPECT_EQ(Top(), 9);
    Turn(1);
    EXPECT_EQ(Top(), 6);
    Turn(5);
    EXPECT_EQ(Top(), 0);
    Turn(-100);
    EXPECT_EQ(Top(), 60 - page);
    // The selection and the focus stay where they were.
    EXPECT_EQ(list.GetSelectedCount(), 0u);
    EXPECT_EQ(::GetFocus(), list.m_hWnd);
}

TEST_F(ListWheelTest, PartsOfANotchAddUpAndATurnBackDropsThem) {
    Create(0, 1, 40);
    Wheel(-20);
    EXPECT_EQ(Top(), 0);
    Wheel(-20); // 40 units make a row
    EXPECT_EQ(Top(), 1);
    Wheel(-30);
    Wheel(20); // the way back starts afresh
    EXPECT_EQ(Top(), 1);
    Wheel(20);
    EXPECT_EQ(Top(), 0);
    Wheel(-WHEEL_DELTA * 2);
    EXPECT_EQ(Top(), 6);
}

TEST_F(ListWheelTest, AListThatFitsDoesNotMove) {
    Create(0, 1, 3);
    list.SetFocus();
    Turn(-3);
    EXPECT_EQ(Top(), 0);
    Turn(2);
    EXPECT_EQ(Top(), 0);
    Wheel(-WHEEL_DELTA);
    EXPECT_EQ(Top(), 0);
}

} // namespace
} // namespace listview_test
