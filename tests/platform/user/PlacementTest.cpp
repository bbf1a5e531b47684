// Show states and placements: minimising, maximising and restoring top-level
// and child windows, the restored rectangle kept through them, and the
// 44-byte placement record read and applied, bad records refused.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

std::vector<std::string> g_sizes;

LRESULT SizeRecordingProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SIZE)
        g_sizes.push_back(std::to_string(wParam) + ":" + std::to_string(LOWORD(lParam)) + "x" +
                          std::to_string(HIWORD(lParam)));
    return DefWindowProc(hwnd, message, wParam, lParam);
}

class PlacementTest : public ::testing::Test {
protected:
    void SetUp() override {
        g_sizes.clear();
        WNDCLASS wc{};
        wc.lpfnWndProc = SizeRecordingProc;
        wc.lpszClassName = u"PlacementRecording";
        RegisterClass(&wc);
        top = CreateWindowEx(0, u"PlacementRecording", u"Top", WS_OVERLAPPEDWINDOW, 100, 50, 400,
                             300, nullptr, nullptr, nullptr, nullptr);
        ASSERT_NE(top, nullptr);
    }
    void TearDown() override {
        DestroyWindow(top);
        UnregisterClass(u"PlacementRecording", nullptr);
    }
    static RECT WindowRect(HWND hwnd) {
        RECT r;
        GetWindowRect(hwnd, &r);
        return r;
    }
    static WINDOWPLACEMENT Placement(HWND hwnd) {
        WINDOWPLACEMENT wp{};
        wp.length = sizeof wp;
        EXPECT_TRUE(GetWindowPlacement(hwnd, &wp));
        return wp;
    }
    HWND top = nullptr;
};

bool Same(const RECT& a, const RECT& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

} // namespace

TEST(WindowPlacementRecord, IsFortyFourBytesInTheOriginalsOrder) {
    static_assert(sizeof(WINDOWPLACEMENT) == 44);
    WINDOWPLACEMENT wp{};
    EXPECT_EQ(reinterpret_cast<char*>(&wp.showCmd) - reinterpret_cast<char*>(&wp), 8);
    EXPECT_EQ(reinterpret_cast<char*>(&wp.ptMinPosition) - reinterpret_cast<char*>(&wp), 12);
    EXPECT_EQ(reinterpret_cast<char*>(&wp.ptMaxPosition) - reinterpret_cast<char*>(&wp), 20);
    EXPECT_EQ(reinterpret_cast<char*>(&wp.rcNormalPosition) - reinterpret_cast<char*>(&wp), 28);
}

TEST_F(PlacementTest, MaximisingFillsTheScreenWithTheBordersOutsideAndRestoreGoesBack) {
    ShowWindow(top, SW_SHOWNORMAL);
    EXPECT_EQ(GetActiveWindow(), top);
    const RECT normal = WindowRect(top);
    g_sizes.clear();

    ShowWindow(top, SW_SHOWMAXIMIZED);
    EXPECT_TRUE(IsZoomed(top));
    EXPECT_TRUE(GetWindowLongPtr(top, GWL_STYLE) & WS_MAXIMIZE);
    RECT client;
    GetClientRect(top, &client);
    POINT origin{0, 0};
    ClientToScreen(top, &origin);
    // The caption stays on the screen; the sizing borders lie beyond its edges.
    EXPECT_EQ(origin.x, 0);
    EXPECT_EQ(client.right, 1280);
    EXPECT_EQ(origin.y + client.bottom, 1024);
    EXPECT_EQ(WindowRect(top).left, -8);
    ASSERT_FALSE(g_sizes.empty());
    EXPECT_EQ(g_sizes.back().substr(0, 2), "2:");

    EXPECT_EQ(Placement(top).showCmd, static_cast<UINT>(SW_SHOWMAXIMIZED));
    EXPECT_TRUE(Same(Placement(top).rcNormalPosition, normal));

    ShowWindow(top, SW_RESTORE);
    EXPECT_FALSE(IsZoomed(top));
    EXPECT_TRUE(Same(WindowRect(top), normal));
    EXPECT_EQ(g_sizes.back().substr(0, 2), "0:");
}

TEST_F(PlacementTest, MinimisingAMaximisedWindowRestoresItMaximised) {
    ShowWindow(top, SW_SHOWMAXIMIZED);
    ShowWindow(top, SW_MINIMIZE);
    EXPECT_TRUE(IsIconic(top));
    EXPECT_FALSE(IsZoomed(top));
    EXPECT_TRUE(IsWindowVisible(top));
    // Minimising hands the activation on.
    EXPECT_NE(GetActiveWindow(), top);
    RECT client;
    GetClientRect(top, &client);
    EXPECT_EQ(client.bottom, 0);
    EXPECT_EQ(WindowRect(top).left, -32000);

    WINDOWPLACEMENT wp = Placement(top);
    EXPECT_EQ(wp.showCmd, static_cast<UINT>(SW_SHOWMINIMIZED));
    EXPECT_EQ(wp.flags, static_cast<UINT>(WPF_RESTORETOMAXIMIZED));
    EXPECT_EQ(wp.ptMinPosition.x, -32000);

    ShowWindow(top, SW_RESTORE);
    EXPECT_TRUE(IsZoomed(top));
    EXPECT_EQ(GetActiveWindow(), top);
    ShowWindow(top, SW_RESTORE);
    EXPECT_FALSE(IsZoomed(top));
    EXPECT_EQ(WindowRect(top).left, 100);
}

TEST_F(PlacementTest, MovesWhileMaximisedDoNotChangeTheRestoredRectangle) {
    ShowWindow(top, SW_SHOWMAXIMIZED);
    MoveWindow(top, 5, 5, 500, 500, TRUE);
    EXPECT_EQ(Placement(top).rcNormalPosition.left, 100);
    ShowWindow(top, SW_SHOWNORMAL);
    EXPECT_EQ(WindowRect(top).left, 100);
    MoveWindow(top, 30, 40, 200, 100, TRUE);
    EXPECT_TRUE(Same(Placement(top).rcNormalPosition, RECT{30, 40, 230, 140}));
}

TEST_F(PlacementTest, ChildWindowsMaximiseIntoTheirParentAndMinimiseAlongItsBottom) {
    ShowWindow(top, SW_SHOW);
    HWND a =
        CreateWindowEx(0, u"PlacementRecording", u"A", WS_CHILD | WS_VISIBLE | WS_OVERLAPPEDWINDOW,
                       10, 10, 200, 150, top, nullptr, nullptr, nullptr);
    HWND b =
        CreateWindowEx(0, u"PlacementRecording", u"B", WS_CHILD | WS_VISIBLE | WS_OVERLAPPEDWINDOW,
                       20, 20, 200, 150, top, nullptr, nullptr, nullptr);
    RECT parentClient;
    GetClientRect(top, &parentClient);

    ShowWindow(a, SW_MAXIMIZE);
    RECT client;
    GetClientRect(a, &client);
    EXPECT_EQ(client.right, parentClient.right);
    EXPECT_EQ(client.bottom, parentClient.bottom);
    POINT origin{0, 0}, parentOrigin{0, 0};
    ClientToScreen(a, &origin);
    ClientToScreen(top, &parentOrigin);
    EXPECT_EQ(origin.x, parentOrigin.x);
    EXPECT_EQ(origin.y, parentOrigin.y);

    ShowWindow(a, SW_MINIMIZE);
    ShowWindow(b, SW_MINIMIZE);
    const WINDOWPLACEMENT pa = Placement(a), pb = Placement(b);
    EXPECT_EQ(pa.ptMinPosition.x, 0);
    EXPECT_EQ(pb.ptMinPosition.x, 160);
    RECT ra;
    GetWindowRect(a, &ra);
    EXPECT_EQ(ra.bottom, parentOrigin.y + parentClient.bottom);
    EXPECT_TRUE(Same(Placement(b).rcNormalPosition, RECT{20, 20, 220, 170}));
}

TEST_F(PlacementTest, SetWindowPlacementAppliesTheRecordAndItsShowCommand) {
    WINDOWPLACEMENT wp{};
    wp.length = sizeof wp;
    wp.showCmd = SW_SHOWNORMAL;
    wp.ptMinPosition = POINT{-1, -1};
    wp.ptMaxPosition = POINT{-1, -1};
    wp.rcNormalPosition = RECT{10, 20, 410, 320};
    ASSERT_TRUE(SetWindowPlacement(top, &wp));
    EXPECT_TRUE(IsWindowVisible(top));
    EXPECT_TRUE(Same(WindowRect(top), wp.rcNormalPosition));

    wp.showCmd = SW_SHOWMAXIMIZED;
    wp.rcNormalPosition = RECT{50, 60, 350, 260};
    ASSERT_TRUE(SetWindowPlacement(top, &wp));
    EXPECT_TRUE(IsZoomed(top));
    ShowWindow(top, SW_RESTORE);
    EXPECT_TRUE(Same(WindowRect(top), RECT{50, 60, 350, 260}));

    wp.showCmd = SW_SHOWMINIMIZED;
    wp.flags = WPF_RESTORETOMAXIMIZED;
    ASSERT_TRUE(SetWindowPlacement(top, &wp));
    EXPECT_TRUE(IsIconic(top));
    ShowWindow(top, SW_RESTORE);
    EXPECT_TRUE(IsZoomed(top));
}

TEST_F(PlacementTest, ARestoredRectangleOffTheScreenIsMovedBackOntoIt) {
    WINDOWPLACEMENT wp{};
    wp.length = sizeof wp;
    wp.showCmd = SW_SHOWNORMAL;
    wp.rcNormalPosition = RECT{5000, -3000, 5300, -2800};
    ASSERT_TRUE(SetWindowPlacement(top, &wp));
    const RECT r = WindowRect(top);
    EXPECT_EQ(r.right - r.left, 300);
    EXPECT_EQ(r.bottom - r.top, 200);
    EXPECT_EQ(r.right, 1280);
    EXPECT_EQ(r.top, 0);
}

TEST_F(PlacementTest, RecordsOfTheWrongLengthOrShowCommandAreRefusedAndChangeNothing) {
    ShowWindow(top, SW_SHOWNORMAL);
    const RECT before = WindowRect(top);
    WINDOWPLACEMENT wp{};
    wp.length = 40;
    wp.showCmd = SW_SHOWMAXIMIZED;
    wp.rcNormalPosition = RECT{0, 0, 10, 10};
    SetLastError(0);
    EXPECT_FALSE(SetWindowPlacement(top, &wp));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    EXPECT_FALSE(GetWindowPlacement(top, &wp));

    // Garbage: a length that happens to be right, then nonsense.
    std::memset(&wp, 0xA5, sizeof wp);
    wp.length = sizeof wp;
    EXPECT_FALSE(SetWindowPlacement(top, &wp));
    EXPECT_FALSE(IsZoomed(top));
    EXPECT_TRUE(Same(WindowRect(top), before));
    EXPECT_FALSE(SetWindowPlacement(top, nullptr));
    EXPECT_FALSE(SetWindowPlacement(nullptr, &wp));
}

TEST_F(PlacementTest, AnInsideOutRectangleGetsNoSize) {
    WINDOWPLACEMENT wp{};
    wp.length = sizeof wp;
    wp.showCmd = SW_SHOWNORMAL;
    wp.rcNormalPosition = RECT{300, 300, 100, 100};
    ASSERT_TRUE(SetWindowPlacement(top, &wp));
    const RECT r = WindowRect(top);
    EXPECT_EQ(r.right - r.left, 0);
    EXPECT_EQ(r.bottom - r.top, 0);
}
