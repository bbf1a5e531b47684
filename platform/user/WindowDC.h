// Sending a window subtree's drawing to another surface while a picture of it
// is taken.
#pragma once

#include "WindowManager.h"

#include <tuple>

typedef struct _cairo_surface cairo_surface_t;

namespace platform::user {

// While alive, the device contexts of root and its descendants draw on
// surface instead of the desktop, with the desktop point offset at the
// surface's (0, 0). Pictures nest: the previous redirection comes back at
// destruction.
class ScopedRedirection {
public:
    ScopedRedirection(const Window* root, cairo_surface_t* surface, POINT offset);
    ~ScopedRedirection();
    ScopedRedirection(const ScopedRedirection&) = delete;
    ScopedRedirection& operator=(const ScopedRedirection&) = delete;

private:
    std::tuple<const Window*, cairo_surface_t*, POINT> m_saved;
};

} // namespace platform::user
