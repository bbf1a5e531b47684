// Pictures of windows and of the desktop: read back with Cairo and compared
// pixel for pixel with what the desktop shows, whole even under another
// window, and stacked in z-order whatever the screen shows; a lower window
// never draws over the windows above it.
#include <windows.h>

#include <platform/Automation.h>
#include <platform/MessagePump.h>
#include <platform/ResourceTemplates.h>
#include <platform/WindowPictures.h>

#include <wingdi.h>

#include "support/DialogItems.h"
#include <cairo.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "support/TempDir.h"

namespace {

using testing_support::DialogItem;

constexpr COLORREF kBlue = RGB(20, 40, 200);
constexpr COLORREF kGreen = RGB(30, 160, 60);
constexpr COLORREF kOrange = RGB(240, 140, 20);

// Fills its client area with the colour kept in its user data.
LRESULT FillProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_PAINT) {
        PAINTSTRUCT paint;
        HDC hdc = BeginPaint(hwnd, &paint);
        RECT client;
        GetClientRect(hwnd, &client);
        HBRUSH brush =
            CreateSolidBrush(static_cast<COLORREF>(GetWindowLongPtr(hwnd, GWLP_USERDATA)));
        FillRect(hdc, &client, brush);
        DeleteObject(brush);
        EndPaint(hwnd, &paint);
        return 0;
    }
    return DefWindowProc(hwnd, message, wParam, lParam);
}

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<COLORREF> pixels;
    COLORREF At(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
};

bool Read(const std::string& path, Picture& picture) {
    cairo_surface_t* image = cairo_image_surface_create_from_png(path.c_str());
    if (cairo_surface_status(image) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(image);
        return false;
    }
    cairo_surface_flush(image);
    picture.width = cairo_image_surface_get_width(image);
    picture.height = cairo_image_surface_get_height(image);
    const unsigned char* data = cairo_image_surface_get_data(image);
    const int stride = cairo_image_surface_get_stride(image);
    picture.pixels.clear();
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x) {
            auto pixel = *reinterpret_cast<const std::uint32_t*>(data + y * stride + x * 4);
            picture.pixels.push_back(RGB((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF));
        }
    cairo_surface_destroy(image);
    return true;
}

// Whether the picture equals the desktop's pixels, the picture's (0, 0) lying
// at the desktop's origin; names the first difference otherwise.
::testing::AssertionResult SameAsDesktop(const Picture& picture, POINT origin) {
    HDC screen = GetDC(nullptr);
    int wrong = 0;
    std::string first;
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x) {
            COLORREF shown = GetPixel(screen, origin.x + x, origin.y + y);
            if (picture.At(x, y) != shown && wrong++ == 0)
                first = "(" + std::to_string(x) + "," + std::to_string(y) + "): picture " +
                        std::to_string(picture.At(x, y)) + ", desktop " + std::to_string(shown);
        }
    ReleaseDC(nullptr, screen);
    if (wrong == 0)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << wrong << " pixels differ, the first at " << first;
}

COLORREF Screen(int x, int y) {
    HDC screen = GetDC(nullptr);
    COLORREF colour = GetPixel(screen, x, y);
    ReleaseDC(nullptr, screen);
    return colour;
}

class PictureTest : public ::testing::Test {
protected:
    void SetUp() override {
        WNDCLASS wc{};
        wc.lpfnWndProc = FillProc;
        wc.lpszClassName = u"PictureTestFill";
        RegisterClass(&wc);
        // A dialog-like window with a caption, a coloured panel and a button.
        lower = Window(0, WS_POPUP | WS_CAPTION | WS_SYSMENU, 100, 100, 320, 200, nullptr,
                       u"Lower window", kGreen);
        panel = Window(0, WS_CHILD | WS_BORDER, 10, 10, 120, 80, lower, u"", kBlue);
        HWND button = CreateWindowEx(0, u"BUTTON", u"OK", WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON,
                                     200, 130, 75, 23, lower, nullptr, nullptr, nullptr);
        ASSERT_NE(button, nullptr);
        ShowWindow(panel, SW_SHOW);
        ShowWindow(lower, SW_SHOW);
        platform::PumpMessages();
        directory = testing_support::TestOutputDir(
            std::string("pictures-") +
            ::testing::UnitTest::GetInstance()->current_test_info()->name());
    }
    void TearDown() override {
        DestroyWindow(upper);
        DestroyWindow(lower);
        platform::PumpMessages();
        UnregisterClass(u"PictureTestFill", nullptr);
    }
    HWND Window(DWORD exStyle, DWORD style, int x, int y, int cx, int cy, HWND parent,
                const char16_t* text, COLORREF colour) {
        HWND hwnd = CreateWindowEx(exStyle, u"PictureTestFill", text, style, x, y, cx, cy, parent,
                                   nullptr, nullptr, nullptr);
        SetWindowLongPtr(hwnd, GWLP_USERDATA, static_cast<LONG_PTR>(colour));
        return hwnd;
    }
    void CoverWithUpper() {
        upper = Window(0, WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE, 180, 150, 300, 160,
                       nullptr, u"Upper window", kOrange);
        platform::PumpMessages();
    }
    std::string Path(const char* name) const { return (directory / name).string(); }
    // A desktop point inside the panel that the upper window covers.
    static POINT Covered() { return POINT{100 + 3 + 10 + 100, 100 + 26 + 10 + 60}; }

    std::filesystem::path directory;
    HWND lower = nullptr;
    HWND panel = nullptr;
    HWND upper = nullptr;
};

TEST_F(PictureTest, AnUncoveredWindowsPictureIsWhatTheDesktopShowsPixelForPixel) {
    const std::string path = Path("lower.png");
    ASSERT_TRUE(platform::SaveWindowAsPng(lower, path));
    Picture picture;
    ASSERT_TRUE(Read(path, picture));
    EXPECT_EQ(picture.width, 320);
    EXPECT_EQ(picture.height, 200);
    RECT window;
    GetWindowRect(lower, &window);
    EXPECT_TRUE(SameAsDesktop(picture, POINT{window.left, window.top}));
    // The frame, the caption, the client and the child controls are all in it.
    EXPECT_EQ(picture.At(0, 100), RGB(0, 120, 215));
    EXPECT_EQ(picture.At(3 + 10 + 60, 26 + 10 + 40), kBlue);
    EXPECT_EQ(picture.At(3 + 300, 26 + 100), kGreen);
    EXPECT_EQ(picture.At(3 + 10, 26 + 10), GetSysColor(COLOR_WINDOWFRAME)); // the panel's border
    EXPECT_NE(picture.At(3 + 200 + 37, 26 + 130 + 11), kGreen);             // the button
}

TEST_F(PictureTest, AWindowUnderAnotherIsPicturedWhole) {
    const std::string before = Path("before.png");
    ASSERT_TRUE(platform::SaveWindowAsPng(lower, before));
    CoverWithUpper();
    POINT covered = Covered();
    ASSERT_EQ(Screen(covered.x, covered.y), kOrange);

    const std::string after = Path("covered.png");
    ASSERT_TRUE(platform::SaveWindowAsPng(lower, after));
    Picture first, second;
    ASSERT_TRUE(Read(before, first));
    ASSERT_TRUE(Read(after, second));
    EXPECT_EQ(second.At(covered.x - 100, covered.y - 100), kBlue);
    // Only the caption's look changed: the upper window took the activation.
    int differ = 0;
    for (int y = 26; y < first.height; ++y)
        for (int x = 0; x < first.width; ++x)
            if (first.At(x, y) != second.At(x, y) && x > 0 && x < first.width - 1 &&
                y < first.height - 1)
                ++differ;
    EXPECT_EQ(differ, 0);
    // Taking the picture leaves the desktop as it was.
    EXPECT_EQ(Screen(covered.x, covered.y), kOrange);
}

TEST_F(PictureTest, ALowerWindowNeverDrawsOverTheWindowsAboveIt) {
    CoverWithUpper();
    POINT covered = Covered();
    RedrawWindow(panel, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_EQ(Screen(covered.x, covered.y), kOrange);
    // Not even through its own device context.
    HDC hdc = GetWindowDC(lower);
    RECT all{0, 0, 320, 200};
    HBRUSH red = CreateSolidBrush(RGB(255, 0, 0));
    FillRect(hdc, &all, red);
    SetPixel(hdc, covered.x - 100, covered.y - 100, RGB(255, 0, 0));
    EXPECT_EQ(GetPixel(hdc, covered.x - 100, covered.y - 100), CLR_INVALID);
    DeleteObject(red);
    ReleaseDC(lower, hdc);
    EXPECT_EQ(Screen(covered.x, covered.y), kOrange);
    EXPECT_EQ(Screen(101, 101), RGB(255, 0, 0));
    EXPECT_EQ(Screen(179, 200), RGB(255, 0, 0));
    EXPECT_EQ(Screen(180, 200), RGB(0, 120, 215)); // the upper window's outline
    // Raised, the lower window paints itself whole over the other, frame too,
    // also when it does not take the activation.
    SetWindowPos(lower, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    platform::PumpMessages();
    EXPECT_EQ(Screen(covered.x, covered.y), kBlue);
    EXPECT_EQ(Screen(100 + 319, 200), RGB(170, 170, 170));
    SetWindowPos(upper, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    platform::PumpMessages();
    EXPECT_EQ(Screen(covered.x, covered.y), kOrange);
    // Hiding the upper window lets the lower one paint what it uncovers.
    ShowWindow(upper, SW_HIDE);
    platform::PumpMessages();
    EXPECT_EQ(Screen(covered.x, covered.y), kBlue);
}

TEST_F(PictureTest, TheDesktopPictureStacksWindowsInZOrderWhateverTheScreenShows) {
    CoverWithUpper();
    POINT covered = Covered();
    // Something draws over everything on the screen itself.
    HDC screen = GetDC(nullptr);
    RECT scribble{0, 0, 640, 480};
    HBRUSH grey = CreateSolidBrush(RGB(90, 90, 90));
    FillRect(screen, &scribble, grey);
    DeleteObject(grey);
    ReleaseDC(nullptr, screen);

    const std::string path = Path("desktop-stacked.png");
    ASSERT_TRUE(platform::SaveDesktopAsPng(path));
    Picture desktop;
    ASSERT_TRUE(Read(path, desktop));
    EXPECT_EQ(desktop.width, GetSystemMetrics(SM_CXSCREEN));
    EXPECT_EQ(desktop.height, GetSystemMetrics(SM_CYSCREEN));
    EXPECT_EQ(desktop.At(covered.x, covered.y), kOrange);
    EXPECT_EQ(desktop.At(100 + 3 + 20, 100 + 26 + 20), kBlue);
    EXPECT_EQ(desktop.At(5, 5), RGB(255, 255, 255));
    // Raising the lower window puts it on top in the next picture.
    SetWindowPos(lower, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    ASSERT_TRUE(platform::SaveDesktopAsPng(Path("desktop-raised.png")));
    ASSERT_TRUE(Read(Path("desktop-raised.png"), desktop));
    EXPECT_EQ(desktop.At(covered.x, covered.y), kBlue);
    // A hidden window is not in the picture.
    ShowWindow(lower, SW_HIDE);
    ASSERT_TRUE(platform::SaveDesktopAsPng(Path("desktop-hidden.png")));
    ASSERT_TRUE(Read(Path("desktop-hidden.png"), desktop));
    EXPECT_EQ(desktop.At(covered.x, covered.y), kOrange);
    EXPECT_EQ(desktop.At(100 + 3 + 20, 100 + 26 + 20), RGB(255, 255, 255));
}

TEST_F(PictureTest, PendingPaintsSurviveThePicture) {
    InvalidateRect(panel, nullptr, TRUE);
    ASSERT_TRUE(platform::SaveWindowAsPng(lower, Path("pending.png")));
    RECT update;
    EXPECT_TRUE(GetUpdateRect(panel, &update, FALSE));
    EXPECT_FALSE(GetUpdateRect(lower, &update, FALSE));
}

INT_PTR QuietDialogProc(HWND, UINT message, WPARAM, LPARAM) {
    return message == WM_INITDIALOG ? TRUE : FALSE;
}

TEST_F(PictureTest, ADialogsPictureHasItsCaptionAndControls) {
    platform::DialogTemplate t;
    t.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT | WS_VISIBLE;
    t.caption = u"Export options";
    t.pointSize = 8;
    t.faceName = u"MS Shell Dlg";
    t.x = 300;
    t.y = 300;
    t.cx = 180;
    t.cy = 70;
    t.items.push_back(
        DialogItem(u"STATIC", u"Write the list to a file:", 0xFFFF, SS_LEFT, 7, 7, 120, 8));
    t.items.push_back(
        DialogItem(u"BUTTON", u"Include headings", 10, BS_AUTOCHECKBOX, 7, 22, 100, 10));
    t.items.push_back(DialogItem(u"BUTTON", u"OK", IDOK, BS_DEFPUSHBUTTON, 69, 49, 50, 14));
    t.items.push_back(DialogItem(u"BUTTON", u"Cancel", IDCANCEL, BS_PUSHBUTTON, 123, 49, 50, 14));
    HWND dialog = CreateDialogIndirectParam(nullptr, &t, nullptr, QuietDialogProc, 0);
    ASSERT_NE(dialog, nullptr);
    platform::PumpMessages();
    const std::string path = Path("dialog.png");
    ASSERT_TRUE(platform::SaveWindowAsPng(dialog, path));
    Picture picture;
    ASSERT_TRUE(Read(path, picture));
    RECT window, client;
    GetWindowRect(dialog, &window);
    GetClientRect(dialog, &client);
    EXPECT_EQ(picture.width, window.right - window.left);
    EXPECT_EQ(picture.height, window.bottom - window.top);
    EXPECT_EQ(picture.width, client.right + 6);
    EXPECT_TRUE(SameAsDesktop(picture, POINT{window.left, window.top}));
    // The default button sits at its template place in the client area: its
    // accent border, then its face.
    RECT ok;
    GetWindowRect(GetDlgItem(dialog, IDOK), &ok);
    const int x = ok.left - window.left, y = ok.top - window.top + 10;
    EXPECT_EQ(picture.At(x - 1, y), GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(picture.At(x, y), RGB(0, 120, 215));
    EXPECT_EQ(picture.At(x + 3, y), RGB(225, 225, 225));
    DestroyWindow(dialog);
}

TEST_F(PictureTest, AMessageBoxIsPicturedWhileItWaitsForTheUser) {
    platform::automation::Reset();
    const std::string path = Path("message-box.png");
    Picture picture;
    RECT window{}, client{};
    bool same = false;
    platform::automation::Do([&] {
        HWND box = GetActiveWindow();
        GetWindowRect(box, &window);
        GetClientRect(box, &client);
        if (platform::SaveWindowAsPng(box, path) && Read(path, picture))
            same = SameAsDesktop(picture, POINT{window.left, window.top});
    });
    platform::automation::AnswerMessageBox(IDOK);
    EXPECT_EQ(MessageBox(lower, u"The list was written to the file.", u"Export", MB_OKCANCEL),
              IDOK);
    ASSERT_EQ(picture.width, window.right - window.left);
    EXPECT_EQ(picture.width, client.right + 6);
    EXPECT_EQ(picture.height, client.bottom + 29);
    EXPECT_TRUE(same);
    // The caption's text is drawn in the active window's ink.
    int ink = 0;
    for (int y = 3; y < 25; ++y)
        for (int x = 3; x < 60; ++x)
            ink += picture.At(x, y) == RGB(0, 0, 0);
    EXPECT_GT(ink, 20);
    platform::automation::Reset();
}

TEST_F(PictureTest, WhatCannotBePicturedGivesFalse) {
    EXPECT_FALSE(platform::SaveWindowAsPng(nullptr, Path("none.png")));
    HWND gone = Window(0, WS_POPUP, 0, 0, 10, 10, nullptr, u"", kBlue);
    DestroyWindow(gone);
    EXPECT_FALSE(platform::SaveWindowAsPng(gone, Path("gone.png")));
    HWND empty = Window(0, WS_POPUP | WS_VISIBLE, 0, 0, 0, 0, nullptr, u"", kBlue);
    EXPECT_FALSE(platform::SaveWindowAsPng(empty, Path("empty.png")));
    DestroyWindow(empty);
    EXPECT_FALSE(platform::SaveWindowAsPng(lower, "/nonexistent-directory/lower.png"));
    EXPECT_FALSE(platform::SaveDesktopAsPng("/nonexistent-directory/desktop.png"));
}

} // namespace
