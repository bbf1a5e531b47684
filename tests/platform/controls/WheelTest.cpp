// The mouse wheel on the headless desktop: it goes to the focus window, a
// window that does not scroll passes it up to its parent (whose message map
// gets the delta and the screen point), a multi-line edit scrolls three
// lines a notch without moving its caret, and a combo box scrolls its list
// while the list shows and steps its selection while closed.
#include "ControlTestSupport.h"

#include <afxwin.h>
#include <platform/Automation.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

namespace automation = platform::automation;
using controls_test::RunUser;

struct WheelCall {
    UINT keys;
    short delta;
    CPoint point;
};

class WheelParent : public CWnd {
public:
    std::vector<WheelCall> wheels;
    std::vector<CPoint> rightDoubleClicks;

    BOOL OnMouseWheel(UINT keys, short delta, CPoint point) {
        wheels.push_back(WheelCall{keys, delta, point});
        return TRUE;
    }
    void OnRButtonDblClk(UINT, CPoint point) { rightDoubleClicks.push_back(point); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(WheelParent, CWnd)
ON_WM_MOUSEWHEEL()
ON_WM_RBUTTONDBLCLK()
END_MESSAGE_MAP()

class WheelTest : public ::testing::Test {
protected:
    void SetUp() override {
        automation::Reset();
        ASSERT_TRUE(parent.CreateEx(0, nullptr, u"Wheel", WS_POPUP | WS_VISIBLE,
                                    CRect(20, 20, 420, 320), nullptr, 0));
        ::SetActiveWindow(parent.m_hWnd);
    }
    void TearDown() override {
        if (parent.m_hWnd)
            parent.DestroyWindow();
        platform::PumpMessages();
        automation::Reset();
    }

    HWND Add(const char16_t* cls, DWORD style, int x, int y, int width, int height, UINT id,
             const char16_t* text = u"") {
        return CreateWindowEx(0, cls, text, WS_CHILD | WS_VISIBLE | style, x, y, width, height,
                              parent.m_hWnd, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)),
                              nullptr, nullptr);
    }

    void Turn(int notches) {
        automation::TurnWheel(notches);
        RunUser();
    }

    WheelParent parent;
};

TEST_F(WheelTest, AChildThatDoesNotScrollPassesTheWheelToItsParentsMap) {
    HWND button = Add(u"BUTTON", BS_PUSHBUTTON, 10, 10, 80, 24, 300, u"Go");
    HWND field = Add(u"EDIT", WS_BORDER, 10, 50, 120, 23, 100, u"one line");
    SetCursorPos(150, 100);
    ::SetFocus(button);
    Turn(-2);
    ::SetFocus(field);
    Turn(1);
    ASSERT_EQ(parent.wheels.size(), 2u);
    EXPECT_EQ(parent.wheels[0].delta, -2 * WHEEL_DELTA);
    EXPECT_EQ(parent.wheels[1].delta, WHEEL_DELTA);
    for (const WheelCall& call : parent.wheels) {
        EXPECT_EQ(call.keys, 0u);
        // The point is on the screen, not in anyone's client area.
        EXPECT_EQ(call.point, CPoint(150, 100));
    }
    EXPECT_EQ(automation::Record().back(), "wheel up 1 notch over 'one line'");
    // The keys held reach the map in the low word.
    ::SendMessage(field, WM_MOUSEWHEEL,
                  MAKEWPARAM(MK_CONTROL | MK_SHIFT, static_cast<WORD>(-WHEEL_DELTA)),
                  MAKELPARAM(7, 9));
    ASSERT_EQ(parent.wheels.size(), 3u);
    EXPECT_EQ(parent.wheels[2].keys, static_cast<UINT>(MK_CONTROL | MK_SHIFT));
    EXPECT_EQ(parent.wheels[2].delta, -WHEEL_DELTA);
    EXPECT_EQ(parent.wheels[2].point, CPoint(7, 9));
}

TEST_F(WheelTest, WithNothingFocusedTheActiveWindowGetsTheWheel) {
    ::SetFocus(nullptr);
    Turn(-1);
    ASSERT_EQ(parent.wheels.size(), 1u);
    EXPECT_EQ(parent.wheels[0].delta, -WHEEL_DELTA);
}

TEST_F(WheelTest, TheRightButtonsDoubleClickReachesTheMapInClientCoordinates) {
    ::SendMessage(parent.m_hWnd, WM_RBUTTONDBLCLK, MK_RBUTTON, MAKELPARAM(33, 44));
    ASSERT_EQ(parent.rightDoubleClicks.size(), 1u);
    EXPECT_EQ(parent.rightDoubleClicks[0], CPoint(33, 44));
}

TEST_F(WheelTest, AMultiLineEditScrollsThreeLinesANotchAndLeavesTheCaret) {
    std::u16string text;
    for (int i = 0; i < 40; ++i)
        text += u"line " + std::u16string(1, static_cast<char16_t>(u'A' + i % 26)) + u"\r\n";
    text += u"last";
    HWND edit = Add(u"EDIT", WS_BORDER | ES_MULTILINE | ES_AUTOVSCROLL, 10, 10, 200, 120, 100,
                    text.c_str());
    // Where the view stops: the last line at the bottom, as the caret on it
    // would put it.
    const auto end = static_cast<WPARAM>(text.size());
    ::SendMessage(edit, EM_SETSEL, end, end);
    ::SendMessage(edit, EM_SCROLLCARET, 0, 0);
    const LRESULT lastFirst = ::SendMessage(edit, EM_GETFIRSTVISIBLELINE, 0, 0);
    ASSERT_GT(lastFirst, 9);
    ::SendMessage(edit, EM_SETSEL, 5, 5);
    ::SendMessage(edit, EM_SCROLLCARET, 0, 0);
    ASSERT_EQ(::SendMessage(edit, EM_GETFIRSTVISIBLELINE, 0, 0), 0);

    ::SetFocus(edit);
    Turn(-1);
    EXPECT_EQ(::SendMessage(edit, EM_GETFIRSTVISIBLELINE, 0, 0), 3);
    Turn(-2);
    EXPECT_EQ(::SendMessage(edit, EM_GETFIRSTVISIBLELINE, 0, 0), 9);
    Turn(1);
    EXPECT_EQ(::SendMessage(edit, EM_GETFIRSTVISIBLELINE, 0, 0), 6);
    Turn(-100);
    EXPECT_EQ(::SendMessage(edit, EM_GETFIRSTVISIBLELINE, 0, 0), lastFirst);
    Turn(100);
    EXPECT_EQ(::SendMessage(edit, EM_GETFIRSTVISIBLELINE, 0, 0), 0);
    DWORD from = 0, to = 0;
    ::SendMessage(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    EXPECT_EQ(from, 5u);
    EXPECT_EQ(to, 5u);
    EXPECT_TRUE(parent.wheels.empty()) << "the edit used the wheel";
}

// The pop-up window that shows a combo box's dropped list.
HWND DroppedListOf(HWND combo) {
    struct Search {
        HWND combo;
        HWND found = nullptr;
    } search{combo};
    EnumWindows(
        [](HWND hwnd, LPARAM lParam) -> BOOL {
            auto* s = reinterpret_cast<Search*>(lParam);
            if (reinterpret_cast<HWND>(GetWindowLongPtr(hwnd, GWLP_USERDATA)) == s->combo &&
                IsWindowVisible(hwnd))
                s->found = hwnd;
            return s->found == nullptr;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

TEST_F(WheelTest, ADroppedComboListScrollsAndAClosedOneStepsItsSelection) {
    HWND combo = Add(u"COMBOBOX", CBS_DROPDOWNLIST | WS_TABSTOP, 10, 10, 150, 160, 200);
    for (int i = 0; i < 30; ++i) {
        const std::u16string item = u"item " + std::u16string(1, static_cast<char16_t>(u'A' + i));
        ::SendMessage(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
    }
    ::SendMessage(combo, CB_SETCURSEL, 0, 0);
    ::SetFocus(combo);
    // Closed: each notch steps the selection, as the arrow keys do, and the
    // parent gets nothing.
    Turn(-3);
    EXPECT_EQ(::SendMessage(combo, CB_GETCURSEL, 0, 0), 3);
    Turn(1);
    EXPECT_EQ(::SendMessage(combo, CB_GETCURSEL, 0, 0), 2);
    Turn(9);
    EXPECT_EQ(::SendMessage(combo, CB_GETCURSEL, 0, 0), 0);
    EXPECT_EQ(parent.wheels.size(), 0u);
    ::SendMessage(combo, CB_SETCURSEL, 0, 0);

    ::SendMessage(combo, CB_SHOWDROPDOWN, TRUE, 0);
    HWND list = DroppedListOf(combo);
    ASSERT_TRUE(list);
    Turn(-2);
    Turn(1);
    EXPECT_EQ(parent.wheels.size(), 0u) << "the dropped list used the wheel";
    EXPECT_TRUE(::SendMessage(combo, CB_GETDROPPEDSTATE, 0, 0));
    // The top row now shows item 3: a click there picks it.
    const auto itemHeight = static_cast<int>(::SendMessage(combo, CB_GETITEMHEIGHT, 0, 0));
    const LPARAM firstRow = MAKELPARAM(5, 1 + itemHeight / 2);
    ::SendMessage(list, WM_MOUSEMOVE, 0, firstRow);
    ::SendMessage(list, WM_LBUTTONUP, 0, firstRow);
    EXPECT_EQ(::SendMessage(combo, CB_GETCURSEL, 0, 0), 3);
    EXPECT_FALSE(::SendMessage(combo, CB_GETDROPPEDSTATE, 0, 0));
}

TEST_F(WheelTest, ADroppedComboListStopsAtItsEnds) {
    HWND combo = Add(u"COMBOBOX", CBS_DROPDOWNLIST, 10, 10, 150, 160, 200);
    for (int i = 0; i < 12; ++i) {
        const std::u16string item = u"row " + std::u16string(1, static_cast<char16_t>(u'a' + i));
        ::SendMessage(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
    }
    ::SetFocus(combo);
    ::SendMessage(combo, CB_SHOWDROPDOWN, TRUE, 0);
    HWND list = DroppedListOf(combo);
    ASSERT_TRUE(list);
    RECT client;
    GetClientRect(list, &client);
    const auto itemHeight = static_cast<int>(::SendMessage(combo, CB_GETITEMHEIGHT, 0, 0));
    const int visible = (client.bottom - 2) / itemHeight;
    ASSERT_LT(visible, 12);
    Turn(-50);
    // The bottom row shows the last item.
    const LPARAM lastRow = MAKELPARAM(5, 1 + (visible - 1) * itemHeight + itemHeight / 2);
    ::SendMessage(list, WM_MOUSEMOVE, 0, lastRow);
    ::SendMessage(list, WM_LBUTTONUP, 0, lastRow);
    EXPECT_EQ(::SendMessage(combo, CB_GETCURSEL, 0, 0), 11);
    ::SendMessage(combo, CB_SHOWDROPDOWN, TRUE, 0);
    list = DroppedListOf(combo);
    ASSERT_TRUE(list);
    Turn(50);
    const LPARAM firstRow = MAKELPARAM(5, 1 + itemHeight / 2);
    ::SendMessage(list, WM_MOUSEMOVE, 0, firstRow);
    ::SendMessage(list, WM_LBUTTONUP, 0, firstRow);
    EXPECT_EQ(::SendMessage(combo, CB_GETCURSEL, 0, 0), 0);
}

} // namespace
