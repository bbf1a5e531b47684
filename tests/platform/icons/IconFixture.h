// A module of the test's own whose resource script names .ico files written
// to a temporary directory, and ways to look at what an icon draws.
#pragma once

#include "support/IconFiles.h"
#include "support/Pixels.h"
#include "support/TempDir.h"

#include <afxwin.h>
#include <platform/ResourceModule.h>
#include <platform/ResourceScript.h>

#include <gtest/gtest.h>

#include <cairo.h>

#include <fstream>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace icons_test {

// The background icons are drawn on when a test looks at them; no icon of
// the tests uses this colour.
constexpr COLORREF kDrawBackground = RGB(1, 254, 3);

// PNG bytes of an image whose pixels (premultiplied 0xAARRGGBB) pixel gives.
inline std::string PngBytes(int width, int height,
                            const std::function<std::uint32_t(int, int)>& pixel) {
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    cairo_surface_flush(surface);
    unsigned char* data = cairo_image_surface_get_data(surface);
    const int stride = cairo_image_surface_get_stride(surface);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            reinterpret_cast<std::uint32_t*>(data + y * stride)[x] = pixel(x, y);
    cairo_surface_mark_dirty(surface);
    std::string bytes;
    cairo_surface_write_to_png_stream(
        surface,
        [](void* closure, const unsigned char* chunk, unsigned int length) {
            static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(chunk),
                                                       length);
            return CAIRO_STATUS_SUCCESS;
        },
        &bytes);
    cairo_surface_destroy(surface);
    return bytes;
}

// An extension module in the resource chain for the test's lifetime.
class ExtensionScope {
public:
    ExtensionScope() {
        AfxInitExtensionModule(m_state, reinterpret_cast<HMODULE>(&m_marker));
        m_library = new CDynLinkLibrary(m_state);
    }
    ~ExtensionScope() {
        delete m_library;
        platform::ReleaseResources(m_state.hResource);
    }
    HINSTANCE Handle() const { return m_state.hResource; }

private:
    int m_marker = 0;
    AFX_EXTENSION_MODULE m_state{};
    CDynLinkLibrary* m_library = nullptr;
};

class IconFixture : public ::testing::Test {
protected:
    void SetUp() override {
        m_dir = testing_support::TestOutputDir("icons");
        m_resourceHandle = AfxGetResourceHandle();
    }
    void TearDown() override { platform::ReleaseResources(Module()); }

    static HINSTANCE Module() {
        static int marker = 0;
        return reinterpret_cast<HINSTANCE>(&marker);
    }
    HINSTANCE OriginalResourceHandle() const { return m_resourceHandle; }

    // Writes each icon to a file of its own, and a script naming them by
    // number (after more, when given), and reads that script into module.
    void LoadInto(HINSTANCE module, const std::vector<std::pair<int, std::string>>& icons,
                  const std::string& more = {}) {
        std::string script = more;
        for (const auto& [id, bytes] : icons) {
            const std::string name = "icon" + std::to_string(id) + ".ico";
            Write(name, bytes);
            script += std::to_string(id) + " ICON \"" + name + "\"\n";
        }
        ReadScript(module, script);
    }
    void Load(const std::vector<std::pair<int, std::string>>& icons) { LoadInto(Module(), icons); }
    void LoadNamed(const std::string& name, const std::string& bytes) {
        Write(name + ".ico", bytes);
        ReadScript(Module(), name + " ICON \"" + name + ".ico\"\n");
    }

    // The colour at (x, y) of the icon drawn at its own size.
    static COLORREF Drawn(HICON icon, int x, int y) {
        testing_support::Canvas canvas(300, 300, kDrawBackground);
        DrawIconEx(canvas.dc().GetSafeHdc(), 0, 0, icon, 0, 0, 0, nullptr, DI_NORMAL);
        return canvas.dc().GetPixel(x, y);
    }
    // The size the icon draws at by itself: its colours drawn without their
    // transparency cover exactly that.
    static CSize DrawnSize(HICON icon) {
        testing_support::Canvas canvas(300, 300, kDrawBackground);
        DrawIconEx(canvas.dc().GetSafeHdc(), 0, 0, icon, 0, 0, 0, nullptr, DI_IMAGE);
        CSize size(0, 0);
        for (int y = 0; y < 300; ++y)
            for (int x = 0; x < 300; ++x)
                if (canvas.dc().GetPixel(x, y) != kDrawBackground)
                    size = CSize(std::max<int>(size.cx, x + 1), std::max<int>(size.cy, y + 1));
        return size;
    }

    std::filesystem::path m_dir;

private:
    void Write(const std::string& name, const std::string& bytes) {
        std::ofstream(m_dir / name, std::ios::binary) << bytes;
    }
    void ReadScript(HINSTANCE module, const std::string& script) {
        const std::string path = (m_dir / "icons.rc").string();
        std::ofstream(path) << script;
        std::string error;
        ASSERT_TRUE(platform::LoadResourceScript(module, path, &error)) << error;
    }

    HINSTANCE m_resourceHandle = nullptr;
};

} // namespace icons_test
