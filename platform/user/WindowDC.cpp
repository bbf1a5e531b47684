// Device contexts for a window's client area.
#include "WindowManager.h"

namespace platform::user {

HDC GetClientDC(HWND, const RECT*) {
    // Window DCs come with the desktop surface of the drawing core.
    return nullptr;
}

} // namespace platform::user
