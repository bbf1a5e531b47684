// Enumerating the desktop's top-level windows: every one, hidden ones too,
// topmost first, never a child; the walk stops when asked and passes over
// windows destroyed on the way.
#include <afxwin.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

// The windows enumerated, in order, while each callback's answer comes from
// a function of the test.
struct Walk {
    std::vector<HWND> seen;
    std::function<BOOL(HWND)> answer = [](HWND) { return TRUE; };
};

BOOL Collect(HWND hwnd, LPARAM lParam) {
    auto* walk = reinterpret_cast<Walk*>(lParam);
    walk->seen.push_back(hwnd);
    return walk->answer(hwnd);
}

class EnumWindowsTest : public ::testing::Test {
protected:
    void TearDown() override {
        for (HWND hwnd : created)
            if (IsWindow(hwnd))
                DestroyWindow(hwnd);
        platform::PumpMessages();
    }
    HWND Make(const char16_t* name, DWORD style, HWND parent = nullptr) {
        HWND hwnd = CreateWindowEx(0, u"STATIC", name, style, 10, 10, 50, 50, parent, nullptr,
                                   nullptr, nullptr);
        created.push_back(hwnd);
        return hwnd;
    }
    // The position of hwnd in the walk, or -1.
    static int Place(const Walk& walk, HWND hwnd) {
        auto it = std::find(walk.seen.begin(), walk.seen.end(), hwnd);
        return it == walk.seen.end() ? -1 : static_cast<int>(it - walk.seen.begin());
    }

    std::vector<HWND> created;
};

TEST_F(EnumWindowsTest, EveryTopLevelWindowTopmostFirst) {
    HWND first = Make(u"first", WS_POPUP | WS_VISIBLE);
    HWND hidden = Make(u"hidden", WS_POPUP);
    HWND last = Make(u"last", WS_POPUP | WS_VISIBLE);
    HWND child = Make(u"child", WS_CHILD | WS_VISIBLE, first);
    Walk walk;
    EXPECT_TRUE(EnumWindows(Collect, reinterpret_cast<LPARAM>(&walk)));
    EXPECT_EQ(Place(walk, last), 0);
    EXPECT_EQ(Place(walk, hidden), 1);
    EXPECT_EQ(Place(walk, first), 2);
    EXPECT_EQ(Place(walk, child), -1);
    EXPECT_EQ(walk.seen.front(), GetTopWindow(nullptr));

    // Raising a window changes the order.
    SetWindowPos(first, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    walk = Walk{};
    EnumWindows(Collect, reinterpret_cast<LPARAM>(&walk));
    EXPECT_EQ(Place(walk, first), 0);
    EXPECT_EQ(Place(walk, last), 1);
}

TEST_F(EnumWindowsTest, TheWalkStopsWhenTheCallbackSaysSo) {
    Make(u"a", WS_POPUP);
    HWND b = Make(u"b", WS_POPUP);
    Walk walk;
    walk.answer = [](HWND) { return FALSE; };
    EXPECT_FALSE(EnumWindows(Collect, reinterpret_cast<LPARAM>(&walk)));
    ASSERT_EQ(walk.seen.size(), 1u);
    EXPECT_EQ(walk.seen[0], b);
    EXPECT_FALSE(EnumWindows(nullptr, 0));
}

TEST_F(EnumWindowsTest, WindowsDestroyedOrMadeOnTheWayArePassedOver) {
    HWND a = Make(u"a", WS_POPUP);
    HWND b = Make(u"b", WS_POPUP);
    HWND made = nullptr;
    Walk walk;
    walk.answer = [&](HWND hwnd) {
        if (hwnd == b) {
            DestroyWindow(a);
            made = Make(u"new", WS_POPUP);
        }
        return TRUE;
    };
    EXPECT_TRUE(EnumWindows(Collect, reinterpret_cast<LPARAM>(&walk)));
    EXPECT_EQ(Place(walk, b), 0);
    EXPECT_EQ(Place(walk, a), -1);
    EXPECT_EQ(Place(walk, made), -1);
}

} // namespace
