// A frame window as a host makes one for its control bars: a pane that takes
// what the bars leave, and a record of the commands that reach the frame.
#pragma once

#include <afxext.h>

#include <gtest/gtest.h>

#include <platform/Automation.h>
#include <platform/MessagePump.h>

#include <ostream>
#include <vector>

// Rectangles and sizes as people read them in failure messages.
inline void PrintTo(const CRect& r, std::ostream* os) {
    *os << "(" << r.left << ", " << r.top << ", " << r.right << ", " << r.bottom << ")";
}
inline void PrintTo(const CSize& s, std::ostream* os) {
    *os << s.cx << " x " << s.cy;
}
inline void PrintTo(const CPoint& p, std::ostream* os) {
    *os << "(" << p.x << ", " << p.y << ")";
}

namespace controlbars {

constexpr UINT IDS_INDICATOR_CAPS = 901;
constexpr UINT IDS_INDICATOR_NUM = 902;
constexpr UINT IDS_INDICATOR_LONG = 903;
// A command only the frame handles.
constexpr UINT ID_FRAME_COMMAND = 33001;

class CBarFrame : public CFrameWnd {
public:
    std::vector<UINT> commands;

protected:
    void OnFrameCommand() { commands.push_back(ID_FRAME_COMMAND); }

    DECLARE_MESSAGE_MAP()
};

// A shown frame at (100, 100), 600 by 400, with a pane of its own.
class BarFrameTest : public ::testing::Test {
protected:
    void SetUp() override {
        platform::automation::Reset();
        frame = new CBarFrame;
        ASSERT_TRUE(frame->Create(nullptr, u"Bars", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                  CRect(100, 100, 700, 500)));
        frameWindow = frame->m_hWnd;
        ASSERT_TRUE(pane.Create(u"STATIC", u"", WS_CHILD | WS_VISIBLE, CRect(0, 0, 0, 0), frame,
                                AFX_IDW_PANE_FIRST));
        frame->RecalcLayout();
    }
    void TearDown() override {
        // The frame object goes with its window.
        if (::IsWindow(frameWindow))
            ::DestroyWindow(frameWindow);
        platform::PumpMessages();
        platform::automation::Reset();
    }
    HWND frameHwnd() const { return frameWindow; }
    // A window's rectangle in the frame's client coordinates.
    CRect InFrame(const CWnd& wnd) const {
        CRect rect;
        wnd.GetWindowRect(&rect);
        frame->ScreenToClient(&rect);
        return rect;
    }
    CRect Client() const {
        CRect rect;
        frame->GetClientRect(&rect);
        return rect;
    }

    CBarFrame* frame = nullptr;
    HWND frameWindow = nullptr;
    CWnd pane;
};

} // namespace controlbars
