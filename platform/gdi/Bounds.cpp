// What drawing touched: a DC's accumulated bounds (SetBoundsRect and
// GetBoundsRect), and the part of the desktop that DCs may have drawn on since
// the display last looked.
#include "DeviceContext.h"

#include <algorithm>
#include <limits>
#include <set>

namespace platform::gdi {
namespace {

bool Empty(const RECT& r) {
    return r.right <= r.left || r.bottom <= r.top;
}

RECT Union(const RECT& a, const RECT& b) {
    if (Empty(a))
        return b;
    if (Empty(b))
        return a;
    return RECT{std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
                std::max(a.bottom, b.bottom)};
}

// A rectangle given in any order, as the bounds calls take it.
RECT Ordered(const RECT& r) {
    return RECT{std::min(r.left, r.right), std::min(r.top, r.bottom), std::max(r.left, r.right),
                std::max(r.top, r.bottom)};
}

struct DesktopChanges {
    RECT taken{0, 0, 0, 0};
    std::set<const DeviceContext*> open;
};

DesktopChanges& Desktop() {
    static auto* changes = new DesktopChanges();
    return *changes;
}

} // namespace

void AddBounds(DeviceContext& dc, const RECT& device) {
    if (dc.boundsEnabled && !Empty(device))
        dc.bounds = Union(dc.bounds, device);
}

void AddPointBounds(DeviceContext& dc, const POINT* points, int count, int margin) {
    if (!dc.boundsEnabled || count <= 0)
        return;
    const LONG most = std::numeric_limits<LONG>::max();
    const LONG least = std::numeric_limits<LONG>::min();
    RECT box{most, most, least, least};
    for (int i = 0; i < count; ++i) {
        box.left = std::min(box.left, points[i].x);
        box.top = std::min(box.top, points[i].y);
        box.right = std::max(box.right, points[i].x + 1);
        box.bottom = std::max(box.bottom, points[i].y + 1);
    }
    AddBounds(dc,
              RECT{box.left - margin, box.top - margin, box.right + margin, box.bottom + margin});
}

void OpenedOnDesktop(const DeviceContext& dc) {
    Desktop().open.insert(&dc);
    Desktop().taken = Union(Desktop().taken, dc.clip);
}

void ClosedOnDesktop(const DeviceContext& dc) {
    if (Desktop().open.erase(&dc))
        Desktop().taken = Union(Desktop().taken, dc.clip);
}

RECT TakeDesktopChanges() {
    RECT changed = Desktop().taken;
    // A DC still open may draw again before it is released.
    for (const DeviceContext* dc : Desktop().open)
        changed = Union(changed, dc->clip);
    Desktop().taken = RECT{0, 0, 0, 0};
    return Empty(changed) ? RECT{0, 0, 0, 0} : changed;
}

} // namespace platform::gdi

using namespace platform::gdi;

UINT SetBoundsRect(HDC hdc, const RECT* rect, UINT flags) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc)
        return 0;
    const UINT previous =
        (Empty(dc->bounds) ? DCB_RESET : DCB_SET) | (dc->boundsEnabled ? DCB_ENABLE : DCB_DISABLE);
    if (flags & DCB_RESET)
        dc->bounds = RECT{0, 0, 0, 0};
    if ((flags & DCB_ACCUMULATE) && rect)
        dc->bounds = Union(dc->bounds, Ordered(dc->mapping.ToDevice(Ordered(*rect))));
    if (flags & DCB_ENABLE)
        dc->boundsEnabled = true;
    if (flags & DCB_DISABLE)
        dc->boundsEnabled = false;
    return previous;
}

UINT GetBoundsRect(HDC hdc, LPRECT rect, UINT flags) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc || !rect)
        return 0;
    const bool empty = Empty(dc->bounds);
    *rect = empty ? RECT{0, 0, 0, 0} : Ordered(dc->mapping.ToLogical(dc->bounds));
    if (flags & DCB_RESET)
        dc->bounds = RECT{0, 0, 0, 0};
    return empty ? DCB_RESET : DCB_SET;
}
