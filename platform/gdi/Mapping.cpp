// Mapping modes: logical coordinates to device coordinates and back.
#include "DeviceContext.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace platform::gdi {
namespace {

// Mapped coordinates stay within what a device addresses, so sums of them
// cannot overflow.
constexpr std::int64_t kCoordinateLimit = 1 << 27;

// value * numerator / denominator, rounded half away from zero and held in
// the device's range. denominator is never 0 (extents are never 0).
int Scale(std::int64_t value, int numerator, int denominator) {
    std::int64_t product = value * numerator;
    bool negative = (product < 0) != (denominator < 0);
    std::int64_t magnitude = std::llabs(product);
    std::int64_t divisor = std::llabs(static_cast<std::int64_t>(denominator));
    std::int64_t result = (magnitude + divisor / 2) / divisor;
    result = negative ? -result : result;
    return static_cast<int>(std::clamp(result, -kCoordinateLimit, kCoordinateLimit));
}

// In MM_ISOTROPIC the viewport extent gives up what makes one axis scale
// more than the other: both take the smaller scale, each keeping its sign.
void KeepIsotropic(Mapping& m) {
    if (m.mode != MM_ISOTROPIC)
        return;
    double sx = std::abs(static_cast<double>(m.viewportExt.cx) / m.windowExt.cx);
    double sy = std::abs(static_cast<double>(m.viewportExt.cy) / m.windowExt.cy);
    if (sx > sy) {
        int cx =
            Scale(std::abs(m.windowExt.cx), std::abs(m.viewportExt.cy), std::abs(m.windowExt.cy));
        m.viewportExt.cx = m.viewportExt.cx < 0 ? -cx : cx;
    } else if (sy > sx) {
        int cy =
            Scale(std::abs(m.windowExt.cy), std::abs(m.viewportExt.cx), std::abs(m.windowExt.cx));
        m.viewportExt.cy = m.viewportExt.cy < 0 ? -cy : cy;
    }
}

RECT Ordered(POINT a, POINT b) {
    return RECT{std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

} // namespace

POINT Mapping::ToDevice(int x, int y) const {
    if (mode == MM_TEXT)
        return POINT{static_cast<LONG>(
                         std::clamp<std::int64_t>(std::int64_t{x} - windowOrg.x + viewportOrg.x,
                                                  -kCoordinateLimit, kCoordinateLimit)),
                     static_cast<LONG>(
                         std::clamp<std::int64_t>(std::int64_t{y} - windowOrg.y + viewportOrg.y,
                                                  -kCoordinateLimit, kCoordinateLimit))};
    return POINT{Scale(std::int64_t{x} - windowOrg.x, viewportExt.cx, windowExt.cx) + viewportOrg.x,
                 Scale(std::int64_t{y} - windowOrg.y, viewportExt.cy, windowExt.cy) +
                     viewportOrg.y};
}

POINT Mapping::ToLogical(int x, int y) const {
    if (mode == MM_TEXT)
        return POINT{static_cast<LONG>(
                         std::clamp<std::int64_t>(std::int64_t{x} - viewportOrg.x + windowOrg.x,
                                                  -kCoordinateLimit, kCoordinateLimit)),
                     static_cast<LONG>(
                         std::clamp<std::int64_t>(std::int64_t{y} - viewportOrg.y + windowOrg.y,
                                                  -kCoordinateLimit, kCoordinateLimit))};
    return POINT{Scale(std::int64_t{x} - viewportOrg.x, windowExt.cx, viewportExt.cx) + windowOrg.x,
                 Scale(std::int64_t{y} - viewportOrg.y, windowExt.cy, viewportExt.cy) +
                     windowOrg.y};
}

RECT Mapping::ToDevice(const RECT& rect) const {
    return Ordered(ToDevice(rect.left, rect.top), ToDevice(rect.right, rect.bottom));
}

RECT Mapping::ToLogical(const RECT& rect) const {
    return Ordered(ToLogical(rect.left, rect.top), ToLogical(rect.right, rect.bottom));
}

int Mapping::WidthToDevice(int length) const {
    return mode == MM_TEXT
               ? length
               : std::abs(Scale(length, viewportExt.cx, windowExt.cx)) * (length < 0 ? -1 : 1);
}

int Mapping::HeightToDevice(int length) const {
    return mode == MM_TEXT
               ? length
               : std::abs(Scale(length, viewportExt.cy, windowExt.cy)) * (length < 0 ? -1 : 1);
}

int Mapping::WidthToLogical(int length) const {
    return mode == MM_TEXT
               ? length
               : std::abs(Scale(length, windowExt.cx, viewportExt.cx)) * (length < 0 ? -1 : 1);
}

int Mapping::HeightToLogical(int length) const {
    return mode == MM_TEXT
               ? length
               : std::abs(Scale(length, windowExt.cy, viewportExt.cy)) * (length < 0 ? -1 : 1);
}

} // namespace platform::gdi

using namespace platform::gdi;

namespace {

// A mapping change: fonts realised for the old scale no longer fit.
void Changed(DeviceContext& dc) {
    dc.mappedFont.reset();
}

} // namespace

int SetMapMode(HDC hdc, int mode) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc || (mode != MM_TEXT && mode != MM_ISOTROPIC && mode != MM_ANISOTROPIC))
        return 0;
    Mapping& m = dc->mapping;
    int previous = m.mode;
    m.mode = mode;
    if (mode == MM_TEXT) {
        m.windowExt = SIZE{1, 1};
        m.viewportExt = SIZE{1, 1};
    }
    KeepIsotropic(m);
    Changed(*dc);
    return previous;
}

int GetMapMode(HDC hdc) {
    DeviceContext* dc = LookupDC(hdc);
    return dc ? dc->mapping.mode : 0;
}

BOOL SetWindowExtEx(HDC hdc, int x, int y, LPSIZE previous) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc)
        return FALSE;
    Mapping& m = dc->mapping;
    if (previous)
        *previous = m.windowExt;
    // MM_TEXT has fixed extents: the call is accepted and changes nothing.
    if (m.mode == MM_TEXT)
        return TRUE;
    if (x == 0 || y == 0)
        return FALSE;
    m.windowExt = SIZE{x, y};
    KeepIsotropic(m);
    Changed(*dc);
    return TRUE;
}

BOOL GetWindowExtEx(HDC hdc, LPSIZE size) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc || !size)
        return FALSE;
    *size = dc->mapping.windowExt;
    return TRUE;
}

BOOL SetViewportExtEx(HDC hdc, int x, int y, LPSIZE previous) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc)
        return FALSE;
    Mapping& m = dc->mapping;
    if (previous)
        *previous = m.viewportExt;
    if (m.mode == MM_TEXT)
        return TRUE;
    if (x == 0 || y == 0)
        return FALSE;
    m.viewportExt = SIZE{x, y};
    KeepIsotropic(m);
    Changed(*dc);
    return TRUE;
}

BOOL GetViewportExtEx(HDC hdc, LPSIZE size) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc || !size)
        return FALSE;
    *size = dc->mapping.viewportExt;
    return TRUE;
}

BOOL SetWindowOrgEx(HDC hdc, int x, int y, LPPOINT previous) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc)
        return FALSE;
    if (previous)
        *previous = dc->mapping.windowOrg;
    dc->mapping.windowOrg = POINT{x, y};
    return TRUE;
}

BOOL GetWindowOrgEx(HDC hdc, LPPOINT point) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc || !point)
        return FALSE;
    *point = dc->mapping.windowOrg;
    return TRUE;
}

BOOL SetViewportOrgEx(HDC hdc, int x, int y, LPPOINT previous) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc)
        return FALSE;
    if (previous)
        *previous = dc->mapping.viewportOrg;
    dc->mapping.viewportOrg = POINT{x, y};
    return TRUE;
}

BOOL GetViewportOrgEx(HDC hdc, LPPOINT point) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc || !point)
        return FALSE;
    *point = dc->mapping.viewportOrg;
    return TRUE;
}

BOOL LPtoDP(HDC hdc, LPPOINT points, int count) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc || (count > 0 && !points) || count < 0)
        return FALSE;
    for (int i = 0; i < count; ++i)
        points[i] = dc->mapping.ToDevice(points[i].x, points[i].y);
    return TRUE;
}

BOOL DPtoLP(HDC hdc, LPPOINT points, int count) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc || (count > 0 && !points) || count < 0)
        return FALSE;
    for (int i = 0; i < count; ++i)
        points[i] = dc->mapping.ToLogical(points[i].x, points[i].y);
    return TRUE;
}
