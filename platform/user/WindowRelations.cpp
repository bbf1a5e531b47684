// Walking the window tree: z-order neighbours, owners, dialog items, and the
// values kept in a window's slots.
#include "ForeignWindows.h"
#include "WindowManager.h"

#include <winbase.h>

#include <algorithm>
#include <vector>

using platform::user::Window;
using platform::user::WindowManager;

namespace {

WindowManager& Manager() {
    return WindowManager::Instance();
}

} // namespace

HWND GetWindow(HWND hwnd, UINT command) {
    Window* window = Manager().Find(hwnd);
    if (!window)
        return nullptr;
    switch (command) {
    case GW_CHILD:
        return window->children.empty() ? nullptr : window->children.front()->handle;
    case GW_OWNER:
        return window->owner ? window->owner->handle : nullptr;
    case GW_ENABLEDPOPUP:
        for (Window* top : Manager().TopLevel())
            if (top->owner == window && top->visible && !(top->style & WS_DISABLED))
                return top->handle;
        return nullptr;
    default:
        break;
    }
    if (!window->parent)
        return nullptr;
    const auto& siblings = window->parent->children;
    auto it = std::find(siblings.begin(), siblings.end(), window);
    switch (command) {
    case GW_HWNDFIRST:
        return siblings.front()->handle;
    case GW_HWNDLAST:
        return siblings.back()->handle;
    case GW_HWNDNEXT:
        return it + 1 == siblings.end() ? nullptr : (*(it + 1))->handle;
    case GW_HWNDPREV:
        return it == siblings.begin() ? nullptr : (*(it - 1))->handle;
    default:
        return nullptr;
    }
}

HWND GetTopWindow(HWND hwnd) {
    return GetWindow(hwnd ? hwnd : GetDesktopWindow(), GW_CHILD);
}

HWND GetDlgItem(HWND dialog, int id) {
    Window* window = Manager().Find(dialog);
    if (!window)
        return nullptr;
    for (Window* child : window->children)
        if (child->id == static_cast<UINT>(id))
            return child->handle;
    return nullptr;
}

LONG_PTR GetWindowLongPtr(HWND hwnd, int index) {
    Window* window = Manager().Find(hwnd);
    if (!window)
        return 0;
    switch (index) {
    case GWLP_WNDPROC:
        return reinterpret_cast<LONG_PTR>(window->proc);
    case GWLP_HWNDPARENT:
        return reinterpret_cast<LONG_PTR>(window->owner ? window->owner->handle : nullptr);
    case GWLP_ID:
        return static_cast<LONG_PTR>(window->id);
    case GWL_STYLE:
        return static_cast<LONG_PTR>(window->style);
    case GWL_EXSTYLE:
        return static_cast<LONG_PTR>(window->exStyle);
    case GWLP_USERDATA:
        return window->userData;
    case DWLP_MSGRESULT:
    case DWLP_DLGPROC:
    case DWLP_USER:
        return window->dialogSlots[index / 8];
    default:
        return 0;
    }
}

LONG_PTR SetWindowLongPtr(HWND hwnd, int index, LONG_PTR value) {
    Window* window = Manager().Find(hwnd);
    if (!window || window == Manager().Desktop())
        return 0;
    LONG_PTR previous = GetWindowLongPtr(hwnd, index);
    switch (index) {
    case GWLP_WNDPROC:
        window->proc = reinterpret_cast<WNDPROC>(value);
        break;
    case GWLP_ID:
        window->id = static_cast<UINT>(value);
        break;
    case GWL_STYLE:
        // The visible bit follows the window's state, which ShowWindow changes.
        window->style = (static_cast<DWORD>(value) & ~static_cast<DWORD>(WS_VISIBLE)) |
                        (window->style & WS_VISIBLE);
        break;
    case GWL_EXSTYLE:
        window->exStyle = static_cast<DWORD>(value);
        break;
    case GWLP_USERDATA:
        window->userData = value;
        break;
    case DWLP_MSGRESULT:
    case DWLP_DLGPROC:
    case DWLP_USER:
        window->dialogSlots[index / 8] = value;
        break;
    default:
        return 0;
    }
    return previous;
}

HWND GetLastActivePopup(HWND hwnd) {
    if (!IsWindow(hwnd))
        return nullptr;
    HWND active = GetActiveWindow();
    if (active && GetWindow(active, GW_OWNER) == hwnd && IsWindowEnabled(active))
        return active;
    HWND popup = GetWindow(hwnd, GW_ENABLEDPOPUP);
    return popup ? popup : hwnd;
}

HWND SetParent(HWND hwnd, HWND newParent) {
    Window* window = Manager().Find(hwnd);
    Window* parent = Manager().Find(newParent);
    if (!window || !parent || !(window->style & WS_CHILD) || !window->parent ||
        parent == Manager().Desktop()) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    // A window cannot go inside itself.
    for (Window* up = parent; up; up = up->parent)
        if (up == window) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return nullptr;
        }
    Window* old = window->parent;
    if (old == parent)
        return old->handle;
    if (window->visible)
        InvalidateRect(old->handle, &window->rect, TRUE);
    auto& siblings = old->children;
    siblings.erase(std::find(siblings.begin(), siblings.end(), window));
    parent->children.push_back(window);
    window->parent = parent;
    if (window->visible) {
        window->ncDirty = window->HasFrame();
        InvalidateRect(hwnd, nullptr, TRUE);
    }
    return old->handle;
}

BOOL EnumWindows(WNDENUMPROC proc, LPARAM lParam) {
    if (!proc)
        return FALSE;
    // The callback may create, raise or destroy windows: walk a snapshot of
    // the handles and skip those that are gone by their turn.
    std::vector<HWND> handles;
    for (const Window* window : Manager().TopLevel())
        handles.push_back(window->handle);
    for (HWND hwnd : handles)
        if (Manager().Find(hwnd) && !proc(hwnd, lParam))
            return FALSE;
    // Then other programs' windows on a shared display.
    if (platform::user::ForeignWindows* foreign = platform::user::Foreign())
        for (HWND hwnd : foreign->TopLevel())
            if (!proc(hwnd, lParam))
                return FALSE;
    return TRUE;
}
