// A bar dragged with a real pointer on a private X server: by its title strip
// over the frame's right edge it docks there, out of the frame it floats
// where the button comes up, and by its small frame's caption over the left
// edge it docks again.
#ifdef WIN_TEST_HAVE_XCB
#include "XvfbFixture.h"

#include <SECControlBar.h>
#include <platform/Display.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <string>

namespace {

class X11BarDragTest : public testing_support::XvfbFixture<> {
protected:
    void SetUp() override {
        XvfbFixture::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        if (Run("xdotool version") != 0)
            GTEST_SKIP() << "xdotool is not installed";
        frame = new CFrameWnd;
        ASSERT_TRUE(frame->Create(nullptr, u"Bars", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                  CRect(40, 30, 560, 400)));
        frameWindow = frame->m_hWnd;
        frame->EnableDocking(CBRS_ALIGN_ANY);
        ASSERT_TRUE(bar.Create(u"Tools", frame));
        bar.EnableDocking(CBRS_ALIGN_ANY);
        frame->DockControlBar(&bar, AFX_IDW_DOCKBAR_LEFT);
        ASSERT_TRUE(PumpUntil([&] { return platform::display::XWindowOf(frameWindow) != 0; }));
    }
    void TearDown() override {
        // The frame object goes with its window.
        if (::IsWindow(frameWindow))
            ::DestroyWindow(frameWindow);
        platform::PumpMessages();
        XvfbFixture::TearDown();
    }

    // Holds the button at a screen point, moves in steps to another and
    // lets go there, pumping until done says the bar went.
    bool Drag(POINT title, POINT to, const std::function<bool()>& done) {
        const std::string actions = MoveTo(title) + "sleep 0.2 mousedown 1 sleep 0.2 " +
                                    MoveTo(POINT{(title.x + to.x) / 2, (title.y + to.y) / 2}) +
                                    "sleep 0.2 " + MoveTo(to) + "sleep 0.3 mouseup 1";
        if (Run("xdotool " + actions + " >/dev/null 2>&1 &") != 0)
            return false;
        return PumpUntil(done);
    }
    bool DragTitleTo(POINT to, const std::function<bool()>& done) {
        POINT title{30, 8};
        ::ClientToScreen(bar.m_hWnd, &title);
        return Drag(title, to, done);
    }
    static std::string MoveTo(POINT at) {
        return "mousemove " + std::to_string(at.x) + " " + std::to_string(at.y) + " ";
    }
    int DockedIn() const { return bar.m_pDockBar ? ::GetDlgCtrlID(::GetParent(bar.m_hWnd)) : 0; }

    CFrameWnd* frame = nullptr;
    HWND frameWindow = nullptr;
    SECControlBar bar;
};

TEST_F(X11BarDragTest, TheTitleStripDraggedToAnEdgeDocksThereAndOutOfTheFrameFloats) {
    CRect client;
    frame->GetClientRect(&client);
    frame->ClientToScreen(&client);
    ASSERT_TRUE(DragTitleTo(POINT{client.right - 6, client.top + 60},
                            [&] { return DockedIn() == AFX_IDW_DOCKBAR_RIGHT; }));
    ASSERT_TRUE(DragTitleTo(POINT{client.right + 60, client.top + 40},
                            [&] { return bar.IsFloating() != FALSE; }));
    CRect small;
    ::GetWindowRect(::GetParent(::GetParent(bar.m_hWnd)), &small);
    EXPECT_EQ(small.left, client.right + 60 - 30);
    // Its small frame's caption dragged over the left edge docks it there.
    ASSERT_TRUE(Drag(POINT{small.left + 40, small.top + 8}, POINT{client.left + 5, client.top + 80},
                     [&] { return DockedIn() == AFX_IDW_DOCKBAR_LEFT; }));
    EXPECT_EQ(::GetCapture(), nullptr);
}

} // namespace
#endif
