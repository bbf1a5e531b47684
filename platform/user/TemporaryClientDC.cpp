#include "gdi/DeviceContext.h"
namespace platform::user {
HDC GetClientDC(HWND, const RECT*) {
    return nullptr;
}
} // namespace platform::user
