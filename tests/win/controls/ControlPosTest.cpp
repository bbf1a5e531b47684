// The control positioner: controls moved and stretched by the change of the
// parent's client size, the initial-size floor with negative moves off, and
// registrations that fail or outlive their control.
#include <Win/controls/CControlPos.h>

#include <gtest/gtest.h>

#include <memory>

namespace {

class ControlPosTest : public ::testing::Test {
protected:
    void SetUp() override {
        // A framed window, so client and screen coordinates differ.
        ASSERT_TRUE(parent.CreateEx(0, nullptr, u"Dialog",
                                    WS_POPUP | WS_CAPTION | WS_THICKFRAME | WS_VISIBLE,
                                    CRect(30, 40, 500, 400), nullptr, 0));
        ResizeClient(400, 300);
    }
    void TearDown() override {
        for (auto& control : controls)
            if (control->GetSafeHwnd())
                control->DestroyWindow();
        parent.DestroyWindow();
    }
    void ResizeClient(int width, int height) {
        CRect window, client;
        parent.GetWindowRect(&window);
        parent.GetClientRect(&client);
        parent.SetWindowPos(nullptr, 0, 0, width + window.Width() - client.Width(),
                            height + window.Height() - client.Height(),
                            SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        parent.GetClientRect(&client);
        ASSERT_EQ(client.Width(), width);
        ASSERT_EQ(client.Height(), height);
    }
    CWnd* AddChild(UINT id, const CRect& rect) {
        controls.push_back(std::make_unique<CButton>());
        EXPECT_TRUE(
            controls.back()->Create(u"BUTTON", u"", WS_CHILD | WS_VISIBLE, rect, &parent, id));
        return controls.back().get();
    }
    static CRect Placed(CWnd* control) {
        CRect rect;
        control->GetWindowRect(&rect);
        control->GetParent()->ScreenToClient(&rect);
        return rect;
    }

    CWnd parent;
    std::vector<std::unique_ptr<CButton>> controls;
};

TEST_F(ControlPosTest, EachFlagFollowsTheGrowth) {
    CControlPos pos;
    pos.SetParent(&parent);
    CWnd* mover = AddChild(1001, CRect(10, 10, 110, 30));
    CWnd* taller = AddChild(1002, CRect(10, 50, 110, 70));
    CWnd* both = AddChild(1003, CRect(10, 90, 110, 110));
    CWnd* down = AddChild(1004, CRect(10, 130, 110, 150));
    CWnd* still = AddChild(1005, CRect(10, 170, 110, 190));
    EXPECT_TRUE(pos.AddControl(mover, MoveWithWidth));
    EXPECT_TRUE(pos.AddControl(1002u, StretchWithHeight));
    EXPECT_TRUE(pos.AddControl(both, MoveWithWidth | StretchWithWidth));
    EXPECT_TRUE(pos.AddControl(down, MoveWithHeight | 0x30)); // unknown bits ignored
    EXPECT_TRUE(pos.AddControl(still, 0));

    ResizeClient(450, 320);
    pos.MoveControls();

    EXPECT_EQ(Placed(mover), CRect(60, 10, 160, 30));
    EXPECT_EQ(Placed(taller), CRect(10, 50, 110, 90));
    EXPECT_EQ(Placed(both), CRect(60, 90, 210, 110));
    EXPECT_EQ(Placed(down), CRect(10, 150, 110, 170));
    EXPECT_EQ(Placed(still), CRect(10, 170, 110, 190));

    // A second call with no resize measures from the present size.
    pos.MoveControls();
    EXPECT_EQ(Placed(mover), CRect(60, 10, 160, 30));
    EXPECT_EQ(Placed(taller), CRect(10, 50, 110, 90));
}

TEST_F(ControlPosTest, ShrinkingBelowTheInitialSizeIsFloored) {
    CControlPos pos;
    pos.SetParent(&parent);
    EXPECT_FALSE(pos.GetNegativeMoves());
    CWnd* mover = AddChild(1001, CRect(200, 10, 300, 30));
    CWnd* low = AddChild(1002, CRect(10, 200, 110, 220));
    ASSERT_TRUE(pos.AddControl(mover, MoveWithWidth));
    ASSERT_TRUE(pos.AddControl(low, MoveWithHeight));

    ResizeClient(300, 300);
    pos.MoveControls();
    EXPECT_EQ(Placed(mover).left, 200);
    ResizeClient(350, 300);
    pos.MoveControls();
    EXPECT_EQ(Placed(mover).left, 200);
    ResizeClient(500, 300);
    pos.MoveControls();
    EXPECT_EQ(Placed(mover).left, 300); // by 100, not 200

    // From above the initial size back below it: back to the design.
    ResizeClient(300, 250);
    pos.MoveControls();
    EXPECT_EQ(Placed(mover).left, 200);
    EXPECT_EQ(Placed(low).top, 200);
    ResizeClient(300, 340);
    pos.MoveControls();
    EXPECT_EQ(Placed(low).top, 240);
}

TEST_F(ControlPosTest, NegativeMovesFollowEveryChange) {
    CControlPos pos;
    pos.SetParent(&parent);
    pos.SetNegativeMoves(TRUE);
    EXPECT_EQ(pos.GetNegativeMoves(), TRUE);
    CWnd* mover = AddChild(1001, CRect(200, 10, 300, 30));
    CWnd* wide = AddChild(1002, CRect(10, 50, 310, 250));
    ASSERT_TRUE(pos.AddControl(mover, MoveWithWidth));
    ASSERT_TRUE(pos.AddControl(wide, StretchWithWidth | StretchWithHeight));

    ResizeClient(300, 260);
    pos.MoveControls();
    EXPECT_EQ(Placed(mover), CRect(100, 10, 200, 30));
    EXPECT_EQ(Placed(wide), CRect(10, 50, 210, 210));
    ResizeClient(350, 300);
    pos.MoveControls();
    EXPECT_EQ(Placed(mover), CRect(150, 10, 250, 30));
    EXPECT_EQ(Placed(wide), CRect(10, 50, 260, 250));
}

TEST_F(ControlPosTest, ReattachingTakesThePresentSizeAsTheDesign) {
    CControlPos pos;
    pos.SetParent(&parent);
    CWnd* mover = AddChild(1001, CRect(200, 10, 300, 30));
    ASSERT_TRUE(pos.AddControl(mover, MoveWithWidth));
    ResizeClient(500, 300);
    pos.SetParent(&parent); // entries stay; 500 is the new floor
    ResizeClient(450, 300);
    pos.MoveControls();
    EXPECT_EQ(Placed(mover).left, 200);
    ResizeClient(520, 300);
    pos.MoveControls();
    EXPECT_EQ(Placed(mover).left, 220);
}

TEST_F(ControlPosTest, AParentGivenToTheConstructorIsMeasuredThen) {
    CControlPos pos(&parent);
    CWnd* mover = AddChild(1001, CRect(200, 10, 300, 30));
    ASSERT_TRUE(pos.AddControl(mover, MoveWithWidth));
    ResizeClient(430, 300);
    pos.MoveControls();
    EXPECT_EQ(Placed(mover).left, 230);
}

TEST_F(ControlPosTest, RegistrationNeedsAParentAndAControl) {
    CControlPos pos;
    CWnd* child = AddChild(1001, CRect(10, 10, 110, 30));
    EXPECT_EQ(pos.AddControl(child, MoveWithWidth), FALSE);
    EXPECT_EQ(pos.AddControl(1001u, MoveWithWidth), FALSE);
    EXPECT_EQ(pos.RemoveControl(1001u), FALSE);
    pos.MoveControls(); // no parent: nothing happens
    pos.SetParent(&parent);
    ResizeClient(500, 300);
    pos.MoveControls();
    EXPECT_EQ(Placed(child).left, 10); // the early registration did not happen

    EXPECT_EQ(pos.AddControl(static_cast<CWnd*>(nullptr), MoveWithWidth), FALSE);
    EXPECT_EQ(pos.AddControl(4242u, MoveWithWidth), FALSE);
    EXPECT_EQ(pos.RemoveControl(4242u), FALSE);
    EXPECT_EQ(pos.RemoveControl(child), FALSE);
    EXPECT_EQ(pos.RemoveControl(static_cast<CWnd*>(nullptr)), FALSE);
}

TEST_F(ControlPosTest, RemovingTakesTheFirstRegistrationOnly) {
    CControlPos pos;
    pos.SetParent(&parent);
    CWnd* twice = AddChild(1001, CRect(10, 10, 110, 30));
    ASSERT_TRUE(pos.AddControl(twice, MoveWithWidth));
    ASSERT_TRUE(pos.AddControl(1001u, MoveWithHeight));
    ResizeClient(420, 310);
    pos.MoveControls(); // each entry acts on its own
    EXPECT_EQ(Placed(twice), CRect(30, 20, 130, 40));

    EXPECT_EQ(pos.RemoveControl(1001u), TRUE);
    ResizeClient(440, 330);
    pos.MoveControls(); // only the height entry is left
    EXPECT_EQ(Placed(twice), CRect(30, 40, 130, 60));
    EXPECT_EQ(pos.RemoveControl(twice), TRUE);
    EXPECT_EQ(pos.RemoveControl(twice), FALSE);

    ASSERT_TRUE(pos.AddControl(twice, MoveWithWidth));
    pos.ResetControls();
    ResizeClient(480, 330);
    pos.MoveControls();
    EXPECT_EQ(Placed(twice).left, 30);
    EXPECT_EQ(pos.RemoveControl(twice), FALSE);
}

TEST_F(ControlPosTest, MovingWithNoEntriesStillRecordsTheSize) {
    CControlPos pos;
    pos.SetParent(&parent);
    ResizeClient(470, 300);
    pos.MoveControls();
    CWnd* mover = AddChild(1001, CRect(10, 10, 110, 30));
    ASSERT_TRUE(pos.AddControl(mover, MoveWithWidth));
    ResizeClient(480, 300);
    pos.MoveControls();
    EXPECT_EQ(Placed(mover).left, 20);
}

TEST_F(ControlPosTest, ADestroyedControlIsPassedOver) {
    CControlPos pos;
    pos.SetParent(&parent);
    CWnd* gone = AddChild(1001, CRect(10, 10, 110, 30));
    CWnd* kept = AddChild(1002, CRect(10, 50, 110, 70));
    ASSERT_TRUE(pos.AddControl(gone, MoveWithWidth));
    ASSERT_TRUE(pos.AddControl(kept, MoveWithWidth));
    gone->DestroyWindow();
    ResizeClient(425, 300);
    pos.MoveControls();
    EXPECT_EQ(Placed(kept).left, 35);
    EXPECT_EQ(pos.RemoveControl(kept), TRUE);
}

TEST_F(ControlPosTest, ADestroyedParentStopsTheMoves) {
    auto pos = std::make_unique<CControlPos>();
    pos->SetParent(&parent);
    CWnd* child = AddChild(1001, CRect(10, 10, 110, 30));
    ASSERT_TRUE(pos->AddControl(child, MoveWithWidth));
    parent.DestroyWindow();
    pos->MoveControls();
    EXPECT_EQ(pos->AddControl(1001u, MoveWithWidth), FALSE);
    pos.reset(); // deletes the entries of windows that are gone
}

} // namespace
