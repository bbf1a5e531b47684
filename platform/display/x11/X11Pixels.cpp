// The pixels of each X window: its own window's, never another's. A window
// that nothing covers is copied from the desktop surface as it stands; one
// that others lie over is painted afresh onto a picture of its own, with its
// owned popups that lie in it, whenever the parts of it that show change.
// Either way only the changed columns of the rows that differ from what the X
// window holds are sent.
#include "display/x11/X11Backend.h"

#include "gdi/DeviceContext.h"
#include "user/WindowManager.h"
#include "user/WindowPicture.h"

#include <cairo.h>

#include <algorithm>
#include <cstring>

namespace platform::display::x11 {
namespace {

int Width(const RECT& r) {
    return std::max(1, static_cast<int>(r.right - r.left));
}

int Height(const RECT& r) {
    return std::max(1, static_cast<int>(r.bottom - r.top));
}

bool Inside(const RECT& inner, const RECT& outer) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

bool SameRects(const std::vector<RECT>& a, const std::vector<RECT>& b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](auto& x, auto& y) {
               return x.left == y.left && x.top == y.top && x.right == y.right &&
                      x.bottom == y.bottom;
           });
}

// An owned popup (a list, a menu, a dialog) whose owner is window and which
// lies wholly inside it.
bool LiesInOwner(const user::Window* other, user::Window* window) {
    user::WindowManager& manager = user::WindowManager::Instance();
    return other->owner && manager.TopLevel(other->owner) == window &&
           Inside(other->rect, window->rect) && !(other->style & WS_CAPTION);
}

} // namespace

std::vector<RECT> X11Backend::Covering(user::Window* window) const {
    user::WindowManager& manager = user::WindowManager::Instance();
    std::vector<RECT> covered;
    // The z-order lists the topmost first: those before window lie above it.
    for (const user::Window* other : manager.TopLevel()) {
        if (other == window)
            break;
        if (!manager.IsShown(other) || other->destroying || LiesInOwner(other, window))
            continue;
        RECT overlap{std::max(other->rect.left, window->rect.left),
                     std::max(other->rect.top, window->rect.top),
                     std::min(other->rect.right, window->rect.right),
                     std::min(other->rect.bottom, window->rect.bottom)};
        if (overlap.left < overlap.right && overlap.top < overlap.bottom)
            covered.push_back(RECT{overlap.left - window->rect.left, overlap.top - window->rect.top,
                                   overlap.right - window->rect.left,
                                   overlap.bottom - window->rect.top});
    }
    return covered;
}

void X11Backend::SendPixels(user::Window* window, Shown& shown, const RECT& changed) {
    cairo_surface_t* desktop = gdi::DesktopSurface();
    cairo_surface_flush(desktop);
    const unsigned char* data = cairo_image_surface_get_data(desktop);
    const int desktopStride = cairo_image_surface_get_stride(desktop);
    const int surfaceWidth = cairo_image_surface_get_width(desktop);
    const int surfaceHeight = cairo_image_surface_get_height(desktop);
    const int width = Width(shown.rect);
    const int height = Height(shown.rect);
    const std::vector<RECT> covered = Covering(window);
    const bool onDesktop = shown.rect.left >= 0 && shown.rect.top >= 0 &&
                           shown.rect.left + width <= surfaceWidth &&
                           shown.rect.top + height <= surfaceHeight;
    if (covered.empty() && onDesktop) {
        // Compared and sent straight from the desktop, and when the X window
        // holds the desktop's pixels already, only the rows that DCs could
        // have drawn on: a key's echo costs a few rows.
        const bool holdsDesktop = !shown.sent.empty() && shown.covered.empty();
        RECT area{0, 0, width, height};
        if (holdsDesktop)
            area = RECT{std::max(LONG{0}, changed.left - shown.rect.left),
                        std::max(LONG{0}, changed.top - shown.rect.top),
                        std::min(static_cast<LONG>(width), changed.right - shown.rect.left),
                        std::min(static_cast<LONG>(height), changed.bottom - shown.rect.top)};
        shown.seen.clear();
        shown.covered.clear();
        SendRows(shown,
                 reinterpret_cast<const uint32_t*>(
                     data + static_cast<std::ptrdiff_t>(shown.rect.top) * desktopStride +
                     static_cast<std::ptrdiff_t>(shown.rect.left) * 4),
                 desktopStride / 4, area);
        return;
    }
    // The window's part of the desktop (outside the desktop stays black).
    std::vector<uint32_t> showing(static_cast<std::size_t>(width) * height, 0u);
    const int from = std::max(0, static_cast<int>(-shown.rect.left));
    const int to = std::min(width, surfaceWidth - static_cast<int>(shown.rect.left));
    for (int y = 0; y < height && to > from; ++y) {
        const int desktopY = static_cast<int>(shown.rect.top) + y;
        if (desktopY >= 0 && desktopY < surfaceHeight)
            std::memcpy(showing.data() + static_cast<std::size_t>(y) * width + from,
                        data + static_cast<std::ptrdiff_t>(desktopY) * desktopStride +
                            (static_cast<std::ptrdiff_t>(shown.rect.left) + from) * 4,
                        static_cast<std::size_t>(to - from) * 4);
    }
    if (covered.empty()) {
        shown.seen.clear();
        shown.covered.clear();
        SendRows(shown, showing.data(), width);
        return;
    }
    for (const RECT& r : covered)
        for (int y = std::max(0, static_cast<int>(r.top)); y < std::min(height, int(r.bottom)); ++y)
            std::fill_n(showing.data() + static_cast<std::size_t>(y) * width + r.left,
                        r.right - r.left, 0u);
    if (!shown.sent.empty() && showing == shown.seen && SameRects(covered, shown.covered))
        return;
    shown.seen = std::move(showing);
    shown.covered = covered;

    cairo_surface_t* picture = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    cairo_t* cr = cairo_create(picture);
    cairo_set_source_rgb(cr, 1.0, 1.0, 1.0);
    cairo_paint(cr);
    cairo_destroy(cr);
    const POINT origin{shown.rect.left, shown.rect.top};
    const HWND hwnd = window->handle;
    user::PaintPicture(window, picture, origin);
    // Its popups lie above it: paint them bottom first.
    user::WindowManager& manager = user::WindowManager::Instance();
    std::vector<HWND> popups;
    for (const user::Window* other : manager.TopLevel()) {
        if (other == window)
            break;
        if (manager.IsShown(other) && !other->destroying && LiesInOwner(other, window))
            popups.insert(popups.begin(), other->handle);
    }
    for (HWND popup : popups)
        if (user::Window* record = manager.Find(popup))
            user::PaintPicture(record, picture, origin);
    cairo_surface_flush(picture);
    // A paint handler may have destroyed the window.
    if (manager.Find(hwnd))
        SendRows(shown, reinterpret_cast<const uint32_t*>(cairo_image_surface_get_data(picture)),
                 cairo_image_surface_get_stride(picture) / 4);
    cairo_surface_destroy(picture);
}

void X11Backend::SendRows(Shown& shown, const uint32_t* pixels, int stride, RECT area) {
    const int width = Width(shown.rect);
    const int height = Height(shown.rect);
    const std::size_t size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    const bool fresh = shown.sent.size() != size;
    if (fresh)
        shown.sent.assign(size, 0);
    const std::size_t rowBytes = static_cast<std::size_t>(width) * 4;
    const int rowsPerRequest = std::max(
        1, static_cast<int>((m_maxRequestBytes - 64) / std::max<std::size_t>(rowBytes, 1)));
    // Only the area's columns can differ from what the window holds (all of
    // them for a fresh window).
    const int firstColumn = fresh ? 0 : std::clamp(static_cast<int>(area.left), 0, width);
    const int endColumn = fresh ? width : std::clamp(static_cast<int>(area.right), 0, width);
    if (firstColumn >= endColumn)
        return;
    // Takes a row into what the window holds and tells whether it changed,
    // widening [left, right) to the columns that did.
    auto refresh = [&](int y, int& left, int& right) {
        const uint32_t* row = pixels + static_cast<std::ptrdiff_t>(y) * stride;
        uint32_t* kept = shown.sent.data() + static_cast<std::size_t>(y) * width;
        int from = firstColumn, to = endColumn;
        if (fresh) {
            std::memcpy(kept, row, rowBytes);
        } else {
            if (std::memcmp(kept + from, row + from, static_cast<std::size_t>(to - from) * 4) == 0)
                return false;
            while (kept[from] == row[from])
                ++from;
            while (kept[to - 1] == row[to - 1])
                --to;
            std::memcpy(kept + from, row + from, static_cast<std::size_t>(to - from) * 4);
        }
        left = std::min(left, from);
        right = std::max(right, to);
        return true;
    };
    const int last = fresh ? height : std::min(height, static_cast<int>(area.bottom));
    int y = fresh ? 0 : std::max(0, static_cast<int>(area.top));
    std::vector<uint32_t> block;
    while (y < last) {
        int left = width, right = 0;
        if (!refresh(y, left, right)) {
            ++y;
            continue;
        }
        int next = y + 1;
        while (next < last && next - y < rowsPerRequest && refresh(next, left, right))
            ++next;
        // Only the columns that changed go: an echo is a cell or two, not
        // whole rows.
        const int columns = right - left;
        const uint32_t* data = shown.sent.data() + static_cast<std::size_t>(y) * width + left;
        if (columns < width) {
            block.resize(static_cast<std::size_t>(columns) * (next - y));
            for (int r = y; r < next; ++r)
                std::memcpy(block.data() + static_cast<std::size_t>(r - y) * columns,
                            shown.sent.data() + static_cast<std::size_t>(r) * width + left,
                            static_cast<std::size_t>(columns) * 4);
            data = block.data();
        }
        xcb_put_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, shown.id, m_gc,
                      static_cast<uint16_t>(columns), static_cast<uint16_t>(next - y),
                      static_cast<int16_t>(left), static_cast<int16_t>(y), 0, 24,
                      static_cast<uint32_t>(static_cast<std::size_t>(columns) * 4 * (next - y)),
                      reinterpret_cast<const uint8_t*>(data));
        y = next;
    }
}

} // namespace platform::display::x11
