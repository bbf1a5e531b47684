// Window classes, creation and destruction, the window tree and geometry.
#include "WindowManager.h"

#include <algorithm>

using platform::user::Window;
using platform::user::WindowManager;

namespace {

// The size a window gets when its creator leaves it to the system.
constexpr int kDefaultWidth = 640;
constexpr int kDefaultHeight = 480;

WindowManager& Manager() {
    return WindowManager::Instance();
}

void DestroyTree(Window* window) {
    window->destroying = true;
    HWND handle = window->handle;
    SendMessage(handle, WM_DESTROY, 0, 0);
    // Children are destroyed after their parent has seen WM_DESTROY; copy the
    // list, as destruction edits it.
    std::vector<Window*> children = window->children;
    for (Window* child : children)
        if (Manager().Find(child->handle))
            DestroyTree(child);
    SendMessage(handle, WM_NCDESTROY, 0, 0);
    Manager().Forget(window);
}

} // namespace

WORD RegisterClass(const WNDCLASS* wc) {
    static WORD atom = 0xC000;
    if (!wc || !Manager().AddClass(*wc))
        return 0;
    return atom++;
}

BOOL UnregisterClass(LPCWSTR className, HINSTANCE) {
    return className && Manager().RemoveClass(className);
}

BOOL GetClassInfo(HINSTANCE, LPCWSTR className, LPWNDCLASS wc) {
    const platform::user::WindowClass* found = className ? Manager().FindClass(className) : nullptr;
    if (!found || !wc)
        return FALSE;
    *wc = found->wc;
    return TRUE;
}

HWND CreateWindowEx(DWORD exStyle, LPCWSTR className, LPCWSTR windowName, DWORD style, int x, int y,
                    int cx, int cy, HWND parent, HMENU menu, HINSTANCE instance, LPVOID param) {
    const platform::user::WindowClass* windowClass =
        className ? Manager().FindClass(className) : nullptr;
    if (!windowClass)
        return nullptr;
    Window* parentWindow = parent ? Manager().Find(parent) : Manager().Desktop();
    if (!parentWindow || ((style & WS_CHILD) && !parent))
        return nullptr;
    if (x == CW_USEDEFAULT) {
        x = 0;
        y = 0;
    }
    if (cx == CW_USEDEFAULT) {
        cx = kDefaultWidth;
        cy = kDefaultHeight;
    }

    Window* window = Manager().CreateWindowRecord(windowClass, parentWindow);
    window->style = style & ~static_cast<DWORD>(WS_VISIBLE);
    window->exStyle = exStyle;
    window->id = (style & WS_CHILD) ? static_cast<UINT>(reinterpret_cast<uintptr_t>(menu)) : 0;
    window->rect = RECT{x, y, x + std::max(cx, 0), y + std::max(cy, 0)};
    HWND hwnd = window->handle;

    CREATESTRUCT create{
        param,      instance,  menu,   parent, cy, cx, y, x, static_cast<LONG>(style),
        windowName, className, exStyle};
    if (!SendMessage(hwnd, WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&create)) ||
        SendMessage(hwnd, WM_CREATE, 0, reinterpret_cast<LPARAM>(&create)) == -1) {
        DestroyWindow(hwnd);
        return nullptr;
    }
    if (!IsWindow(hwnd))
        return nullptr;
    SendMessage(hwnd, WM_SIZE, SIZE_RESTORED, MAKELONG(window->Width(), window->Height()));
    SendMessage(hwnd, WM_MOVE, 0, MAKELONG(x, y));
    if (style & WS_VISIBLE)
        ShowWindow(hwnd, SW_SHOW);
    return hwnd;
}

BOOL DestroyWindow(HWND hwnd) {
    Window* window = Manager().Find(hwnd);
    if (!window || window == Manager().Desktop() || window->destroying)
        return FALSE;
    if (window->visible && window->parent)
        InvalidateRect(window->parent->handle, nullptr, TRUE);
    DestroyTree(window);
    return TRUE;
}

BOOL IsWindow(HWND hwnd) {
    return Manager().Find(hwnd) != nullptr;
}

HWND GetDesktopWindow() {
    return Manager().Desktop()->handle;
}

HWND GetParent(HWND hwnd) {
    Window* window = Manager().Find(hwnd);
    if (!window || !window->parent || window->parent == Manager().Desktop())
        return nullptr;
    return window->parent->handle;
}

BOOL IsChild(HWND parent, HWND hwnd) {
    Window* window = Manager().Find(hwnd);
    for (Window* ancestor = window ? window->parent : nullptr; ancestor;
         ancestor = ancestor->parent)
        if (ancestor->handle == parent)
            return TRUE;
    return FALSE;
}

int GetDlgCtrlID(HWND hwnd) {
    Window* window = Manager().Find(hwnd);
    return window ? static_cast<int>(window->id) : 0;
}

BOOL GetClientRect(HWND hwnd, LPRECT rect) {
    Window* window = Manager().Find(hwnd);
    if (!window || !rect)
        return FALSE;
    *rect = RECT{0, 0, window->Width(), window->Height()};
    return TRUE;
}

BOOL GetWindowRect(HWND hwnd, LPRECT rect) {
    Window* window = Manager().Find(hwnd);
    if (!window || !rect)
        return FALSE;
    POINT origin = Manager().ClientOrigin(window);
    *rect = RECT{origin.x, origin.y, origin.x + window->Width(), origin.y + window->Height()};
    return TRUE;
}

BOOL ClientToScreen(HWND hwnd, LPPOINT point) {
    Window* window = Manager().Find(hwnd);
    if (!window || !point)
        return FALSE;
    POINT origin = Manager().ClientOrigin(window);
    point->x += origin.x;
    point->y += origin.y;
    return TRUE;
}

BOOL ScreenToClient(HWND hwnd, LPPOINT point) {
    Window* window = Manager().Find(hwnd);
    if (!window || !point)
        return FALSE;
    POINT origin = Manager().ClientOrigin(window);
    point->x -= origin.x;
    point->y -= origin.y;
    return TRUE;
}

BOOL MoveWindow(HWND hwnd, int x, int y, int cx, int cy, BOOL repaint) {
    Window* window = Manager().Find(hwnd);
    if (!window || window == Manager().Desktop())
        return FALSE;
    RECT old = window->rect;
    window->rect = RECT{x, y, x + std::max(cx, 0), y + std::max(cy, 0)};
    if (repaint && window->visible) {
        if (window->parent)
            InvalidateRect(window->parent->handle, &old, TRUE);
        InvalidateRect(hwnd, nullptr, TRUE);
    }
    if (old.right - old.left != window->Width() || old.bottom - old.top != window->Height())
        SendMessage(hwnd, WM_SIZE, SIZE_RESTORED, MAKELONG(window->Width(), window->Height()));
    if (old.left != x || old.top != y)
        SendMessage(hwnd, WM_MOVE, 0, MAKELONG(x, y));
    return TRUE;
}

BOOL ShowWindow(HWND hwnd, int command) {
    Window* window = Manager().Find(hwnd);
    if (!window || window == Manager().Desktop())
        return FALSE;
    BOOL wasVisible = window->visible ? TRUE : FALSE;
    bool show = command != SW_HIDE;
    if (show == window->visible)
        return wasVisible;
    SendMessage(hwnd, WM_SHOWWINDOW, show ? TRUE : FALSE, 0);
    window->visible = show;
    if (show) {
        window->style |= WS_VISIBLE;
        InvalidateRect(hwnd, nullptr, TRUE);
    } else {
        window->style &= ~static_cast<DWORD>(WS_VISIBLE);
        if (window->parent)
            InvalidateRect(window->parent->handle, &window->rect, TRUE);
    }
    return wasVisible;
}

BOOL IsWindowVisible(HWND hwnd) {
    Window* window = Manager().Find(hwnd);
    return window && Manager().IsShown(window) ? TRUE : FALSE;
}

int GetWindowTextLength(HWND hwnd) {
    return static_cast<int>(SendMessage(hwnd, WM_GETTEXTLENGTH, 0, 0));
}

int GetWindowText(HWND hwnd, LPWSTR buffer, int maxCount) {
    if (!buffer || maxCount <= 0)
        return 0;
    return static_cast<int>(SendMessage(hwnd, WM_GETTEXT, static_cast<WPARAM>(maxCount),
                                        reinterpret_cast<LPARAM>(buffer)));
}

BOOL SetWindowText(HWND hwnd, LPCWSTR text) {
    return static_cast<BOOL>(SendMessage(hwnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)));
}
