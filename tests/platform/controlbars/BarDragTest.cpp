// Dragging a bar with the mouse, a docked one by its title strip, a floating
// one by its small frame's caption: an outline shows where it would go while
// the button is held, the release docks it at an edge, row or place, or
// floats it outside; a small movement, Escape or a right click leave it
// where it was.
#include "BarFrame.h"

#include <SECControlBar.h>

#include <algorithm>
#include <vector>

namespace controlbars {
namespace {

namespace automation = platform::automation;

int DockedIn(const CControlBar& bar) {
    return bar.m_pDockBar ? ::GetDlgCtrlID(::GetParent(bar.m_hWnd)) : 0;
}

// The sides of the drag outline on the screen: shown windows without a
// caption that the frame owns.
std::vector<CRect> OutlineSides(HWND frame) {
    struct Search {
        HWND frame;
        std::vector<CRect> sides;
    } search{frame, {}};
    ::EnumWindows(
        [](HWND hwnd, LPARAM param) -> BOOL {
            auto* s = reinterpret_cast<Search*>(param);
            if (::GetWindow(hwnd, GW_OWNER) == s->frame && ::IsWindowVisible(hwnd) &&
                (::GetWindowLongPtr(hwnd, GWL_STYLE) & WS_CAPTION) != WS_CAPTION) {
                CRect r;
                ::GetWindowRect(hwnd, &r);
                s->sides.push_back(r);
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.sides;
}

// The rectangle the sides enclose and their thickness.
struct OutlineSeen {
    CRect around;
    int line = 0;
};

OutlineSeen Enclosed(const std::vector<CRect>& sides) {
    OutlineSeen seen;
    if (sides.empty())
        return seen;
    seen.around = sides[0];
    seen.line = std::min(sides[0].Width(), sides[0].Height());
    for (const CRect& side : sides) {
        seen.around.UnionRect(seen.around, side);
        seen.line = std::min(seen.line, std::min(side.Width(), side.Height()));
    }
    return seen;
}

class BarDragTest : public BarFrameTest {
protected:
    void SetUp() override {
        BarFrameTest::SetUp();
        frame->EnableDocking(CBRS_ALIGN_ANY);
        ASSERT_TRUE(bar.Create(u"Tools", frame));
        bar.EnableDocking(CBRS_ALIGN_ANY);
        frame->DockControlBar(&bar, AFX_IDW_DOCKBAR_LEFT);
    }

    // The simulated user moves the pointer (screen points) with the button
    // held on the captured bar.
    void QueueMove(CPoint screen, UINT message = WM_MOUSEMOVE) {
        automation::Do([this, screen, message] {
            CPoint client = screen;
            bar.ScreenToClient(&client);
            bar.PostMessage(message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON,
                            MAKELPARAM(client.x, client.y));
        });
    }
    // Presses on the bar's title strip and runs the drag the actions queued
    // make; where the press was, in screen coordinates.
    CPoint PressTitle(int x = 30) {
        CPoint at(x, 8);
        bar.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
        platform::PumpMessages();
        return at;
    }
    CPoint TitleOnScreen(int x = 30) const {
        CPoint at(x, 8);
        bar.ClientToScreen(&at);
        return at;
    }
    CRect ClientOnScreen() const {
        CRect client = Client();
        frame->ClientToScreen(&client);
        return client;
    }

    SECControlBar bar;
};

TEST_F(BarDragTest, DroppedAtAnotherEdgeTheBarDocksThereWithAThinOutlineOnTheWay) {
    const CPoint start = TitleOnScreen();
    const CRect client = ClientOnScreen();
    const CPoint right(client.right - 5, client.CenterPoint().y);
    OutlineSeen over;
    QueueMove(CPoint(start.x + 20, start.y + 40));
    QueueMove(right);
    automation::Do([&] { over = Enclosed(OutlineSides(frameHwnd())); });
    QueueMove(right, WM_LBUTTONUP);
    PressTitle();
    EXPECT_EQ(DockedIn(bar), AFX_IDW_DOCKBAR_RIGHT);
    EXPECT_FALSE(bar.IsFloating());
    // The outline had the bar's size along a side, held where it was
    // pressed but inside the frame, where the bar goes.
    EXPECT_EQ(over.line, 1);
    EXPECT_EQ(over.around.Size(), bar.m_szVert);
    EXPECT_EQ(over.around.right, client.right);
    EXPECT_EQ(over.around.bottom, std::min(right.y - 8 + bar.m_szVert.cy, client.bottom));
    EXPECT_TRUE(OutlineSides(frameHwnd()).empty());
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(BarDragTest, DroppedOutsideTheFrameTheBarFloatsThereWithAThickOutlineOnTheWay) {
    const CPoint out(ClientOnScreen().right + 80, ClientOnScreen().top + 40);
    OutlineSeen over;
    QueueMove(out);
    automation::Do([&] { over = Enclosed(OutlineSides(frameHwnd())); });
    QueueMove(out, WM_LBUTTONUP);
    PressTitle();
    ASSERT_TRUE(bar.IsFloating());
    CRect small;
    ::GetWindowRect(::GetParent(::GetParent(bar.m_hWnd)), &small);
    EXPECT_EQ(small.TopLeft(), CPoint(out.x - 30, out.y - 8));
    EXPECT_EQ(over.line, 3);
    EXPECT_EQ(over.around, small);
    // Floating, the bar's own presses drag nothing: its small frame moves.
    bar.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(30, 8));
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(BarDragTest, AFloatingBarDraggedByItsCaptionMovesOrDocksOverAnEdge) {
    frame->FloatControlBar(&bar, CPoint(760, 150), CBRS_ALIGN_TOP);
    ASSERT_TRUE(bar.IsFloating());
    const HWND small = ::GetParent(::GetParent(bar.m_hWnd));
    auto pressCaption = [&] {
        CRect now;
        ::GetWindowRect(small, &now);
        ::SendMessage(small, WM_NCLBUTTONDOWN, HTCAPTION, MAKELPARAM(now.left + 40, now.top + 8));
        platform::PumpMessages();
    };
    // Moved a little, the small frame follows.
    QueueMove(CPoint(760 + 40 + 30, 150 + 8 + 20));
    QueueMove(CPoint(760 + 40 + 30, 150 + 8 + 20), WM_LBUTTONUP);
    pressCaption();
    CRect moved;
    ::GetWindowRect(small, &moved);
    EXPECT_TRUE(bar.IsFloating());
    EXPECT_EQ(moved.TopLeft(), CPoint(790, 170));
    // Over the frame's left edge it docks there, and the small frame goes.
    const CPoint left(ClientOnScreen().left + 5, ClientOnScreen().top + 100);
    OutlineSeen over;
    QueueMove(left);
    automation::Do([&] { over = Enclosed(OutlineSides(frameHwnd())); });
    QueueMove(left, WM_LBUTTONUP);
    pressCaption();
    EXPECT_EQ(DockedIn(bar), AFX_IDW_DOCKBAR_LEFT);
    EXPECT_FALSE(::IsWindowVisible(small));
    // The outline had the bar's size along a side.
    EXPECT_EQ(over.line, 1);
    EXPECT_EQ(over.around.Size(), bar.m_szVert);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(BarDragTest, AlongItsEdgeTheDropPicksTheRowAndThePlaceInIt) {
    SECControlBar second;
    ASSERT_TRUE(second.Create(u"Output", frame));
    second.EnableDocking(CBRS_ALIGN_ANY);
    second.m_szHorz = CSize(150, 60);
    frame->DockControlBar(&bar, AFX_IDW_DOCKBAR_TOP);
    frame->DockControlBar(&second, AFX_IDW_DOCKBAR_TOP);
    ASSERT_EQ(InFrame(second).top, bar.m_szHorz.cy);
    // The second bar's title dragged up into the first row, right of where
    // the first bar ends when it shares the row: the two share it.
    CPoint grab(30, 8);
    second.ClientToScreen(&grab);
    CRect first;
    bar.GetWindowRect(&first);
    const CPoint drop(first.left + bar.m_szHorz.cx + 40, first.top + 10);
    automation::Do([&] {
        CPoint client = drop;
        second.ScreenToClient(&client);
        second.PostMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(client.x, client.y));
        second.PostMessage(WM_LBUTTONUP, 0, MAKELPARAM(client.x, client.y));
    });
    second.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(30, 8));
    EXPECT_EQ(DockedIn(second), AFX_IDW_DOCKBAR_TOP);
    EXPECT_EQ(InFrame(second), CRect(bar.m_szHorz.cx, 0, Client().right, bar.m_szHorz.cy));
    EXPECT_EQ(InFrame(pane).top, bar.m_szHorz.cy);
}

TEST_F(BarDragTest, ASmallMovementEscapeARightClickOrNobodyLeaveTheBarWhereItWas) {
    const CRect before = InFrame(bar);
    const CPoint start = TitleOnScreen();
    const CPoint out(ClientOnScreen().right + 80, ClientOnScreen().top + 40);
    // Three pixels are a click, not a drag.
    QueueMove(CPoint(start.x + 3, start.y));
    QueueMove(CPoint(start.x + 3, start.y), WM_LBUTTONUP);
    PressTitle();
    // Escape or a right click during the drag.
    QueueMove(out);
    automation::Do([&] { bar.PostMessage(WM_KEYDOWN, VK_ESCAPE, 1); });
    PressTitle();
    QueueMove(out);
    automation::Do([&] { bar.PostMessage(WM_RBUTTONDOWN, MK_RBUTTON, 0); });
    PressTitle();
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
    // A drag nobody ends.
    PressTitle();
    EXPECT_EQ(automation::CancelsForWantOfActions(), 1);
    // A press below the title strip, on the bar's inside, drags nothing.
    bar.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(30, 60));
    EXPECT_EQ(automation::CancelsForWantOfActions(), 1);
    EXPECT_FALSE(bar.IsFloating());
    EXPECT_EQ(DockedIn(bar), AFX_IDW_DOCKBAR_LEFT);
    EXPECT_EQ(InFrame(bar), before);
    EXPECT_TRUE(OutlineSides(frameHwnd()).empty());
    EXPECT_EQ(::GetCapture(), nullptr);
}

} // namespace
} // namespace controlbars
