// Update regions and painting: what invalidation and validation leave behind,
// RedrawWindow's flags, background erasing with the class brush, and the paint
// DC drawing on the desktop only inside the region being painted.
#include <afxwin.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

constexpr COLORREF kBackground = RGB(10, 200, 30);
constexpr COLORREF kInk = RGB(200, 20, 120);

std::vector<std::string> g_log;
PAINTSTRUCT g_lastPaint;

// Paints its whole client area with kInk; the paint DC keeps the ink inside
// the update region.
LRESULT InkProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_ERASEBKGND: {
        LRESULT erased = DefWindowProc(hwnd, message, wParam, lParam);
        g_log.push_back(wParam ? "erase" : "erase without dc");
        return erased;
    }
    case WM_PAINT: {
        PAINTSTRUCT paint;
        HDC hdc = BeginPaint(hwnd, &paint);
        g_lastPaint = paint;
        RECT client;
        GetClientRect(hwnd, &client);
        HBRUSH ink = CreateSolidBrush(kInk);
        FillRect(hdc, &client, ink);
        DeleteObject(ink);
        EndPaint(hwnd, &paint);
        g_log.push_back("paint");
        return 0;
    }
    }
    return DefWindowProc(hwnd, message, wParam, lParam);
}

class PaintingTest : public ::testing::Test {
protected:
    void SetUp() override {
        g_log.clear();
        background = CreateSolidBrush(kBackground);
        WNDCLASS wc{};
        wc.lpfnWndProc = InkProc;
        wc.lpszClassName = u"PaintingTestInk";
        wc.hbrBackground = background;
        RegisterClass(&wc);
        hwnd = CreateWindowEx(0, u"PaintingTestInk", u"ink", WS_VISIBLE, 100, 60, 80, 50, nullptr,
                              nullptr, nullptr, nullptr);
        ASSERT_NE(hwnd, nullptr);
        platform::PumpMessages();
        g_log.clear();
    }
    void TearDown() override {
        DestroyWindow(hwnd);
        platform::PumpMessages();
        UnregisterClass(u"PaintingTestInk", nullptr);
        DeleteObject(background);
    }
    // The desktop's pixel at a point of the window's client area.
    COLORREF At(int x, int y) {
        POINT p{x, y};
        ClientToScreen(hwnd, &p);
        HDC screen = GetDC(nullptr);
        COLORREF colour = GetPixel(screen, p.x, p.y);
        ReleaseDC(nullptr, screen);
        return colour;
    }
    void Fill(COLORREF colour) {
        HDC hdc = GetDC(hwnd);
        RECT client{0, 0, 80, 50};
        HBRUSH brush = CreateSolidBrush(colour);
        FillRect(hdc, &client, brush);
        DeleteObject(brush);
        ReleaseDC(hwnd, hdc);
    }
    RECT Update() {
        RECT r{-1, -1, -1, -1};
        GetUpdateRect(hwnd, &r, FALSE);
        return r;
    }

    HWND hwnd = nullptr;
    HBRUSH background = nullptr;
};

bool Same(const RECT& a, const RECT& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

} // namespace

TEST_F(PaintingTest, InvalidationIsClippedToTheClientArea) {
    RECT outside{200, 200, 300, 300};
    EXPECT_TRUE(InvalidateRect(hwnd, &outside, FALSE));
    EXPECT_FALSE(GetUpdateRect(hwnd, nullptr, FALSE));
    RECT straddling{-10, 40, 30, 90};
    InvalidateRect(hwnd, &straddling, FALSE);
    EXPECT_TRUE(Same(Update(), RECT{0, 40, 30, 50}));
    // No rectangle means the whole client area.
    InvalidateRect(hwnd, nullptr, FALSE);
    EXPECT_TRUE(Same(Update(), RECT{0, 0, 80, 50}));
}

TEST_F(PaintingTest, ValidationEmptiesTheRegionOnlyWhenItCoversIt) {
    RECT a{10, 10, 30, 20};
    InvalidateRect(hwnd, &a, TRUE);
    RECT part{10, 10, 20, 20};
    ValidateRect(hwnd, &part);
    EXPECT_TRUE(Same(Update(), a));
    RECT cover{0, 0, 40, 40};
    ValidateRect(hwnd, &cover);
    EXPECT_FALSE(GetUpdateRect(hwnd, nullptr, FALSE));
    EXPECT_TRUE(Same(Update(), RECT{0, 0, 0, 0}));
    // Validating everything also forgets the request to erase.
    InvalidateRect(hwnd, &a, TRUE);
    ValidateRect(hwnd, nullptr);
    InvalidateRect(hwnd, &a, FALSE);
    UpdateWindow(hwnd);
    EXPECT_EQ(g_log, std::vector<std::string>{"paint"});
}

TEST_F(PaintingTest, ThePaintDcDrawsOnlyInsideTheUpdateRegion) {
    Fill(RGB(0, 0, 0));
    RECT a{10, 5, 20, 15};
    InvalidateRect(hwnd, &a, FALSE);
    EXPECT_EQ(platform::PumpMessages(), 1);
    EXPECT_TRUE(Same(g_lastPaint.rcPaint, a));
    EXPECT_FALSE(g_lastPaint.fErase);
    EXPECT_EQ(At(10, 5), kInk);
    EXPECT_EQ(At(19, 14), kInk);
    EXPECT_EQ(At(9, 5), RGB(0, 0, 0));
    EXPECT_EQ(At(20, 14), RGB(0, 0, 0));
    EXPECT_EQ(At(19, 15), RGB(0, 0, 0));
    EXPECT_FALSE(GetUpdateRect(hwnd, nullptr, FALSE));
}

TEST_F(PaintingTest, EraseFillsWithTheClassBrushBeforeThePaint) {
    Fill(RGB(0, 0, 0));
    RECT a{0, 0, 40, 25};
    InvalidateRect(hwnd, &a, TRUE);
    HDC hdc = nullptr;
    PAINTSTRUCT paint;
    hdc = BeginPaint(hwnd, &paint);
    ASSERT_NE(hdc, nullptr);
    EXPECT_EQ(g_log, std::vector<std::string>{"erase"});
    // The class brush erased the region; the brush filled it, so fErase is off.
    EXPECT_FALSE(paint.fErase);
    EXPECT_TRUE(Same(paint.rcPaint, a));
    EXPECT_EQ(At(0, 0), kBackground);
    EXPECT_EQ(At(39, 24), kBackground);
    EXPECT_EQ(At(40, 24), RGB(0, 0, 0));
    EXPECT_TRUE(EndPaint(hwnd, &paint));
    // BeginPaint validated the region: nothing left to paint.
    EXPECT_EQ(platform::PumpMessages(), 0);
}

TEST_F(PaintingTest, WithoutAClassBrushTheEraseIsLeftToThePaint) {
    WNDCLASS wc{};
    wc.lpfnWndProc = InkProc;
    wc.lpszClassName = u"PaintingTestBare";
    RegisterClass(&wc);
    HWND bare = CreateWindowEx(0, u"PaintingTestBare", u"bare", WS_VISIBLE, 0, 0, 20, 20, nullptr,
                               nullptr, nullptr, nullptr);
    platform::PumpMessages();
    g_log.clear();
    InvalidateRect(bare, nullptr, TRUE);
    PAINTSTRUCT paint;
    ASSERT_NE(BeginPaint(bare, &paint), nullptr);
    EXPECT_TRUE(paint.fErase);
    EndPaint(bare, &paint);
    DestroyWindow(bare);
    UnregisterClass(u"PaintingTestBare", nullptr);
}

TEST_F(PaintingTest, RedrawWindowInvalidatesErasesAndPaintsAtOnce) {
    Fill(RGB(0, 0, 0));
    RECT a{30, 20, 50, 30};
    EXPECT_TRUE(RedrawWindow(hwnd, &a, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW));
    EXPECT_EQ(g_log, (std::vector<std::string>{"erase", "paint"}));
    EXPECT_EQ(At(30, 20), kInk);
    EXPECT_EQ(At(29, 20), RGB(0, 0, 0));

    // Invalidate without painting, then validate: nothing is painted.
    g_log.clear();
    RedrawWindow(hwnd, &a, nullptr, RDW_INVALIDATE);
    EXPECT_TRUE(Same(Update(), a));
    RedrawWindow(hwnd, nullptr, nullptr, RDW_VALIDATE);
    EXPECT_EQ(platform::PumpMessages(), 0);
    EXPECT_TRUE(g_log.empty());
}

TEST_F(PaintingTest, AHandleThatNamesNoWindowIsRefused) {
    HWND dead = CreateWindowEx(0, u"PaintingTestInk", u"dead", 0, 0, 0, 10, 10, nullptr, nullptr,
                               nullptr, nullptr);
    DestroyWindow(dead);
    RECT r{0, 0, 1, 1};
    PAINTSTRUCT paint;
    EXPECT_FALSE(InvalidateRect(dead, &r, TRUE));
    EXPECT_FALSE(ValidateRect(dead, &r));
    EXPECT_FALSE(GetUpdateRect(dead, &r, FALSE));
    EXPECT_FALSE(UpdateWindow(dead));
    EXPECT_FALSE(RedrawWindow(dead, nullptr, nullptr, RDW_INVALIDATE));
    EXPECT_EQ(BeginPaint(dead, &paint), nullptr);
    EXPECT_EQ(BeginPaint(hwnd, nullptr), nullptr);
    EXPECT_EQ(GetDC(dead), nullptr);
}

// CWnd's painting members route to the same update region and paint DC.
class InkWnd : public CWnd {
public:
    int erases = 0;
    RECT painted{};

protected:
    BOOL OnEraseBkgnd(CDC* dc) override {
        ++erases;
        return CWnd::OnEraseBkgnd(dc);
    }
    void OnPaint() override {
        CPaintDC dc(this);
        painted = dc.m_ps.rcPaint;
        CRect client;
        GetClientRect(&client);
        dc.FillSolidRect(&client, kInk);
    }
};

TEST_F(PaintingTest, CWndInvalidatesValidatesAndPaintsThroughItsHandlers) {
    InkWnd wnd;
    ASSERT_TRUE(wnd.Create(nullptr, u"wnd", WS_VISIBLE, CRect(5, 5, 45, 35), nullptr, 0));
    platform::PumpMessages();
    wnd.erases = 0; // the first paint after showing erased too
    {
        CClientDC dc(&wnd);
        dc.FillSolidRect(0, 0, 40, 30, RGB(0, 0, 0));
    }
    CRect a(2, 3, 12, 13);
    wnd.InvalidateRect(&a, TRUE);
    CRect update;
    EXPECT_TRUE(wnd.GetUpdateRect(&update));
    EXPECT_EQ(update, a);
    wnd.UpdateWindow();
    EXPECT_EQ(wnd.erases, 1);
    EXPECT_TRUE(Same(wnd.painted, a));
    POINT inside{2, 3}, outside{12, 3};
    wnd.ClientToScreen(&inside);
    wnd.ClientToScreen(&outside);
    HDC screen = GetDC(nullptr);
    EXPECT_EQ(GetPixel(screen, inside.x, inside.y), kInk);
    EXPECT_EQ(GetPixel(screen, outside.x, outside.y), RGB(0, 0, 0));
    ReleaseDC(nullptr, screen);

    wnd.Invalidate(FALSE);
    wnd.ValidateRect(nullptr);
    EXPECT_FALSE(wnd.GetUpdateRect(nullptr));

    // GetDC and BeginPaint hand out CDCs on the same window.
    CDC* dc = wnd.GetDC();
    ASSERT_NE(dc, nullptr);
    dc->SetPixel(0, 0, RGB(1, 1, 1));
    EXPECT_EQ(dc->GetPixel(0, 0), RGB(1, 1, 1));
    EXPECT_EQ(wnd.ReleaseDC(dc), 1);
    wnd.Invalidate(FALSE);
    PAINTSTRUCT paint;
    CDC* paintDc = wnd.BeginPaint(&paint);
    ASSERT_NE(paintDc, nullptr);
    EXPECT_TRUE(Same(paint.rcPaint, RECT{0, 0, 40, 30}));
    wnd.EndPaint(&paint);
    EXPECT_FALSE(wnd.GetUpdateRect(nullptr));
    wnd.DestroyWindow();
}

namespace {

LRESULT CoverProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProc(hwnd, message, wParam, lParam);
}

} // namespace

TEST_F(PaintingTest, AWindowOnTopIsPaintedAfterTheOneItCovers) {
    constexpr COLORREF kCover = RGB(250, 240, 10);
    HBRUSH coverBrush = CreateSolidBrush(kCover);
    WNDCLASS wc{};
    wc.lpfnWndProc = CoverProc;
    wc.lpszClassName = u"PaintingTestCover";
    wc.hbrBackground = coverBrush;
    RegisterClass(&wc);
    // A pop-up over the right half of the window; both wait to be painted.
    HWND cover = CreateWindowEx(0, u"PaintingTestCover", u"", WS_POPUP | WS_VISIBLE, 140, 60, 40,
                                50, hwnd, nullptr, nullptr, nullptr);
    InvalidateRect(hwnd, nullptr, TRUE);
    platform::PumpMessages();
    EXPECT_EQ(At(10, 10), kInk);
    EXPECT_EQ(At(60, 10), kCover);
    DestroyWindow(cover);
    platform::PumpMessages();
    UnregisterClass(u"PaintingTestCover", nullptr);
    DeleteObject(coverBrush);
}

TEST_F(PaintingTest, AChildThatPaintedBeforeItsParentIsPaintedAgainAfterIt) {
    // A child (an edit updating at once as it is typed into) paints while its
    // parent still waits to be painted: the parent's painting covers it, so
    // it must be painted again after.
    HWND child = CreateWindowEx(0, u"PaintingTestInk", u"", WS_CHILD | WS_VISIBLE | WS_BORDER, 10,
                                10, 30, 20, hwnd, nullptr, nullptr, nullptr);
    platform::PumpMessages();
    ASSERT_EQ(At(20, 20), kInk);
    InvalidateRect(hwnd, nullptr, TRUE);
    UpdateWindow(child);
    // The parent paints only its background: its ink would hide the test.
    SetWindowLongPtr(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(DefWindowProc));
    platform::PumpMessages();
    EXPECT_EQ(At(20, 20), kInk);
    // The child's frame too.
    EXPECT_NE(At(10, 10), kBackground);
    SetWindowLongPtr(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(InkProc));
    DestroyWindow(child);
}
