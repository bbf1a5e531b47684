// PNG output of a memory DC, a bitmap and a window's client area, read back with
// Cairo and compared pixel for pixel with what the device context holds.
#include <afxwin.h>
#include <platform/GdiObjects.h>

#include <cairo.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "support/Pixels.h"
#include "support/TempDir.h"

namespace {

std::string OutPath(const char* name) {
    return (testing_support::TestOutputDir("png") / name).string();
}

// A picture where every row and column differs: colour bands, single pixels
// in the corners and a diagonal line.
void DrawPattern(CDC& dc, int width, int height) {
    for (int band = 0; band * 5 < width; ++band)
        dc.FillSolidRect(band * 5, 0, 5, height, RGB(band * 40 % 256, 255 - band * 30 % 256, 90));
    dc.SetPixel(0, 0, RGB(1, 2, 3));
    dc.SetPixel(width - 1, 0, RGB(250, 0, 0));
    dc.SetPixel(0, height - 1, RGB(0, 250, 0));
    dc.SetPixel(width - 1, height - 1, RGB(0, 0, 250));
    for (int i = 1; i < height - 1 && i < width - 1; ++i)
        dc.SetPixel(i, i, RGB(255, 255, 255));
}

// Compares a PNG file with what dc shows in [0, width) x [0, height).
::testing::AssertionResult SameAsDc(const std::string& path, CDC& dc, int width, int height) {
    cairo_surface_t* image = cairo_image_surface_create_from_png(path.c_str());
    if (cairo_surface_status(image) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(image);
        return ::testing::AssertionFailure() << path << " cannot be read back";
    }
    cairo_surface_flush(image);
    const int w = cairo_image_surface_get_width(image);
    const int h = cairo_image_surface_get_height(image);
    if (w != width || h != height) {
        cairo_surface_destroy(image);
        return ::testing::AssertionFailure()
               << "size " << w << "x" << h << ", expected " << width << "x" << height;
    }
    const unsigned char* data = cairo_image_surface_get_data(image);
    const int stride = cairo_image_surface_get_stride(image);
    int wrong = 0;
    std::string first;
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const auto pixel = *reinterpret_cast<const std::uint32_t*>(data + y * stride + x * 4);
            const COLORREF file = RGB((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF);
            const COLORREF shown = dc.GetPixel(x, y);
            if (file != shown && wrong++ == 0)
                first = "(" + std::to_string(x) + "," + std::to_string(y) + "): file " +
                        std::to_string(file) + ", DC " + std::to_string(shown);
        }
    cairo_surface_destroy(image);
    if (wrong)
        return ::testing::AssertionFailure() << wrong << " pixels differ, first at " << first;
    return ::testing::AssertionSuccess();
}

LRESULT PlainProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProc(hwnd, message, wParam, lParam);
}

} // namespace

TEST(Png, AMemoryDcIsWrittenPixelForPixel) {
    testing_support::Canvas canvas(37, 23, RGB(255, 255, 255));
    DrawPattern(canvas.dc(), 37, 23);
    const std::string path = OutPath("memory.png");
    ASSERT_TRUE(platform::SaveDcAsPng(canvas.dc(), path));
    EXPECT_TRUE(SameAsDc(path, canvas.dc(), 37, 23));
}

TEST(Png, ABitmapIsWrittenWhetherOrNotItIsSelected) {
    CDC screen;
    screen.Attach(::GetDC(nullptr));
    CDC dc;
    ASSERT_TRUE(dc.CreateCompatibleDC(&screen));
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateCompatibleBitmap(&screen, 19, 31));
    CBitmap* old = dc.SelectObject(&bitmap);
    DrawPattern(dc, 19, 31);
    const std::string selected = OutPath("bitmap-selected.png");
    ASSERT_TRUE(platform::SaveBitmapAsPng(bitmap, selected));
    EXPECT_TRUE(SameAsDc(selected, dc, 19, 31));

    // Once deselected, the bitmap still holds the same pixels.
    dc.SelectObject(old);
    const std::string deselected = OutPath("bitmap-deselected.png");
    ASSERT_TRUE(platform::SaveBitmapAsPng(bitmap, deselected));
    dc.SelectObject(&bitmap);
    EXPECT_TRUE(SameAsDc(deselected, dc, 19, 31));
    dc.SelectObject(old);
    ::ReleaseDC(nullptr, screen.Detach());
}

TEST(Png, AWindowDcWritesItsClientAreaOnly) {
    WNDCLASS wc{};
    wc.lpfnWndProc = PlainProc;
    wc.lpszClassName = u"PngTestWindow";
    RegisterClass(&wc);
    HWND hwnd = CreateWindowEx(0, u"PngTestWindow", u"png", WS_VISIBLE, 40, 30, 45, 26, nullptr,
                               nullptr, nullptr, nullptr);
    ASSERT_NE(hwnd, nullptr);
    RECT client;
    GetClientRect(hwnd, &client);
    {
        CDC dc;
        dc.Attach(::GetDC(hwnd));
        DrawPattern(dc, client.right, client.bottom);
        const std::string path = OutPath("window.png");
        ASSERT_TRUE(platform::SaveDcAsPng(dc, path));
        EXPECT_TRUE(SameAsDc(path, dc, client.right, client.bottom));
        ::ReleaseDC(hwnd, dc.Detach());
    }
    // The same pixels sit on the desktop at the window's client origin.
    POINT origin{0, 0};
    ClientToScreen(hwnd, &origin);
    CDC screen;
    screen.Attach(::GetDC(nullptr));
    EXPECT_EQ(screen.GetPixel(origin.x, origin.y), RGB(1, 2, 3));
    EXPECT_EQ(screen.GetPixel(origin.x + client.right - 1, origin.y + client.bottom - 1),
              RGB(0, 0, 250));
    ::ReleaseDC(nullptr, screen.Detach());

    // A hidden window shows nothing, so there is nothing to write.
    ShowWindow(hwnd, SW_HIDE);
    HDC hidden = ::GetDC(hwnd);
    EXPECT_FALSE(platform::SaveDcAsPng(hidden, OutPath("hidden.png")));
    ::ReleaseDC(hwnd, hidden);
    DestroyWindow(hwnd);
}

TEST(Png, WhatCannotBeWrittenGivesFalse) {
    testing_support::Canvas canvas(4, 4, RGB(0, 0, 0));
    EXPECT_FALSE(platform::SaveDcAsPng(nullptr, OutPath("none.png")));
    EXPECT_FALSE(platform::SaveBitmapAsPng(nullptr, OutPath("none.png")));
    // A pen is not a bitmap.
    HPEN pen = CreatePen(PS_SOLID, 1, RGB(0, 0, 0));
    EXPECT_FALSE(platform::SaveBitmapAsPng(reinterpret_cast<HBITMAP>(pen), OutPath("pen.png")));
    DeleteObject(pen);
    EXPECT_FALSE(platform::SaveDcAsPng(canvas.dc(), OutPath("no-such-dir/x.png")));
    // A printer DC writes PDF pages, not pixels.
    platform::SetPrinterOutput(OutPath("printer.pdf"));
    HDC printer = CreateDC(u"WINSPOOL", u"PDF", nullptr, nullptr);
    ASSERT_NE(printer, nullptr);
    EXPECT_FALSE(platform::SaveDcAsPng(printer, OutPath("printer.png")));
    DeleteDC(printer);
}
