// Device contexts for a window's client area.
#include "WindowManager.h"

#include "gdi/DeviceContext.h"

namespace platform::user {

HDC GetClientDC(HWND hwnd, const RECT* clip) {
    WindowManager& manager = WindowManager::Instance();
    Window* window = manager.Find(hwnd);
    if (!window)
        return nullptr;
    POINT origin = manager.ClientOrigin(window);
    // A hidden window draws nothing; a shown one only inside its ancestors.
    RECT visible = manager.IsShown(window) ? manager.VisibleClientRect(window) : RECT{0, 0, 0, 0};
    if (clip)
        visible = Intersect(visible, RECT{clip->left + origin.x, clip->top + origin.y,
                                          clip->right + origin.x, clip->bottom + origin.y});
    return gdi::CreateDesktopDC(origin, visible, hwnd);
}

} // namespace platform::user
