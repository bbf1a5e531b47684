// What the screen asks for when no device context is attached: the parent
// window is invalidated by scrolls (one paint however many), and nothing else.
#include "ScreenTestSupport.h"

#include <platform/MessagePump.h>

namespace {

class PaintCounter : public CWnd {
public:
    int paints = 0;

protected:
    void OnPaint() override {
        CPaintDC dc(this);
        ++paints;
    }
};

class PaintingTest : public ScreenTest {
protected:
    void SetUp() override {
        ASSERT_TRUE(
            view.Create(nullptr, u"terminal", WS_VISIBLE, CRect(0, 0, 640, 400), nullptr, 0));
        platform::PumpMessages();
        view.paints = 0;
    }
    PaintCounter view;
};

TEST_F(PaintingTest, ScrollsInvalidateTheParentOnceWithoutADC) {
    screen.SetParent(&view);
    screen.CursorPosition(24, 1);
    for (int i = 0; i < 100; ++i)
        screen.Index();
    CRect update;
    EXPECT_TRUE(view.GetUpdateRect(&update));
    EXPECT_EQ(update, CRect(0, 0, 640, 400));
    EXPECT_EQ(platform::PumpMessages(), 1);
    EXPECT_EQ(view.paints, 1);
    screen.ReverseIndex();
    screen.ScrollLine(ScreenBuffer::ScrollDown);
    platform::PumpMessages();
    EXPECT_EQ(view.paints, 2);
}

TEST_F(PaintingTest, OnlyScrollsInvalidate) {
    screen.SetParent(&view);
    Write("text");
    screen.CursorPosition(5, 5);
    screen.InsertLine(1);
    screen.DeleteLine(1);
    screen.InsertCharacter(2);
    screen.EraseInDisplay(2, false);
    screen.Select(CursorPos(1, 1), CursorPos(2, 2));
    screen.SetColumnMode(true);
    screen.SetWindowSize(30, 132, true);
    EXPECT_FALSE(view.GetUpdateRect(nullptr));
    EXPECT_EQ(platform::PumpMessages(), 0);
}

TEST_F(PaintingTest, WithoutParentOrDCScrollsChangeCellsSilently) {
    Write("top");
    screen.CursorPosition(24, 1);
    screen.Index();
    EXPECT_EQ(Line(0), "");
    EXPECT_FALSE(view.GetUpdateRect(nullptr));
}

TEST_F(PaintingTest, NullDevicesDrawNothing) {
    Write("abc");
    screen.Refresh(nullptr);
    screen.PrintBuffer(nullptr, CSize(10, 20));
    screen.SetDC(nullptr);
    Write("d");
    EXPECT_EQ(Line(0), "abcd");
}

TEST_F(PaintingTest, CellSizeAndBackgroundComeFromTheLayout) {
    EXPECT_EQ(screen.ScreenCharSize(), CSize(TestLayout::kCellWidth, TestLayout::kCellHeight));
    EXPECT_EQ(screen.GetBkColor(), TestLayout::kColours[1]);
}

} // namespace
