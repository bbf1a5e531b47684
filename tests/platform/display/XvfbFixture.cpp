#ifdef WIN_TEST_HAVE_XCB
#include "XvfbFixture.h"

#include <platform/WindowPictures.h>

#include <cairo.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace testing_support {

bool PumpMessagesUntil(const std::function<bool()>& done, HWND dialog) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (std::chrono::steady_clock::now() < deadline) {
        MSG msg;
        while (PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE)) {
            if (!dialog || !IsWindow(dialog) || !IsDialogMessage(dialog, &msg)) {
                TranslateMessage(&msg);
                DispatchMessage(&msg);
            }
        }
        platform::display::Update();
        if (done())
            return true;
        if (!platform::display::WaitForInput(20))
            return done();
    }
    return false;
}

std::vector<uint32_t> DisplayPixels(xcb_connection_t* connection, unsigned window, int x, int y,
                                    int width, int height) {
    xcb_get_image_reply_t* reply = xcb_get_image_reply(
        connection,
        xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, static_cast<int16_t>(x),
                      static_cast<int16_t>(y), static_cast<uint16_t>(width),
                      static_cast<uint16_t>(height), ~0u),
        nullptr);
    std::vector<uint32_t> pixels;
    if (reply) {
        const auto* data = reinterpret_cast<const uint32_t*>(xcb_get_image_data(reply));
        pixels.assign(data, data + xcb_get_image_data_length(reply) / 4);
        for (uint32_t& p : pixels)
            p &= 0xFFFFFF;
    }
    free(reply);
    return pixels;
}

std::vector<uint32_t> HeadlessPixels(HWND hwnd, int* width, int* height) {
    const auto path = std::filesystem::temp_directory_path() /
                      ("xvfb-fixture-" + std::to_string(reinterpret_cast<uintptr_t>(hwnd)) + "-" +
                       std::to_string(getpid()) + ".png");
    std::vector<uint32_t> pixels;
    if (!platform::SaveWindowAsPng(hwnd, path.string()))
        return pixels;
    cairo_surface_t* png = cairo_image_surface_create_from_png(path.c_str());
    std::filesystem::remove(path);
    *width = cairo_image_surface_get_width(png);
    *height = cairo_image_surface_get_height(png);
    const int stride = cairo_image_surface_get_stride(png);
    const unsigned char* data = cairo_image_surface_get_data(png);
    for (int y = 0; y < *height; ++y)
        for (int x = 0; x < *width; ++x)
            pixels.push_back(reinterpret_cast<const uint32_t*>(data + y * stride)[x] & 0xFFFFFF);
    cairo_surface_destroy(png);
    return pixels;
}

xcb_atom_t InternAtom(xcb_connection_t* connection, const char* name) {
    xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, static_cast<uint16_t>(std::strlen(name)), name),
        nullptr);
    const xcb_atom_t atom = reply ? reply->atom : 0;
    free(reply);
    return atom;
}

} // namespace testing_support

#endif
