// Window classes, creation and destruction, the window tree and geometry.
#include "ForeignWindows.h"
#include "WindowManager.h"

#include <algorithm>
#include <string>

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

// The title of another program's window on a shared display; false for our
// own windows and unknown handles.
bool ForeignTitle(HWND hwnd, std::u16string* title) {
    if (!hwnd || Manager().Find(hwnd))
        return false;
    platform::user::ForeignWindows* foreign = platform::user::Foreign();
    return foreign && foreign->Title(hwnd, title);
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
    platform::user::RegisterSystemClasses();
    const platform::user::WindowClass* windowClass =
        className ? Manager().FindClass(className) : nullptr;
    if (!windowClass)
        return nullptr;
    Window* given = parent ? Manager().Find(parent) : Manager().Desktop();
    if (!given || ((style & WS_CHILD) && !parent))
        return nullptr;
    // A window that is not a child is top-level: its parent argument names its
    // owner, which is always a top-level window.
    bool child = (style & WS_CHILD) != 0;
    Window* parentWindow = child ? given : Manager().Desktop();
    Window* owner = child ? nullptr : Manager().TopLevel(given);
    if (x == CW_USEDEFAULT) {
        x = 0;
        y = 0;
    }
    if (cx == CW_USEDEFAULT) {
        cx = kDefaultWidth;
        cy = kDefaultHeight;
    }

    Window* window = Manager().CreateWindowRecord(windowClass, parentWindow);
    window->owner = owner;
    // The show state is set after creation, by the show command the bits ask for.
    window->style = style & ~static_cast<DWORD>(WS_VISIBLE | WS_MINIMIZE | WS_MAXIMIZE);
    window->exStyle = exStyle;
    window->id = (style & WS_CHILD) ? static_cast<UINT>(reinterpret_cast<uintptr_t>(menu)) : 0;
    // A top-level window's menu argument is its menu bar.
    if (!child && menu && IsMenu(menu))
        window->menu = menu;
    window->rect = RECT{x, y, x + std::max(cx, 0), y + std::max(cy, 0)};
    window->normalRect = window->rect;
    platform::user::UpdateFrame(window);
    HWND hwnd = window->handle;
    if (Manager().createHook)
        Manager().createHook(hwnd);

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
    SendMessage(hwnd, WM_SIZE, SIZE_RESTORED,
                MAKELONG(window->ClientWidth(), window->ClientHeight()));
    SendMessage(hwnd, WM_MOVE, 0, MAKELONG(x + window->frame.left, y + window->frame.top));
    if (style & WS_VISIBLE)
        ShowWindow(hwnd, (style & WS_MINIMIZE)   ? SW_SHOWMINIMIZED
                         : (style & WS_MAXIMIZE) ? SW_SHOWMAXIMIZED
                                                 : SW_SHOW);
    else if (style & (WS_MINIMIZE | WS_MAXIMIZE))
        platform::user::SetShowState(window, (style & WS_MINIMIZE) ? Window::Placement::Minimized
                                                                   : Window::Placement::Maximized);
    return hwnd;
}

BOOL DestroyWindow(HWND hwnd) {
    Window* window = Manager().Find(hwnd);
    if (!window || window == Manager().Desktop() || window->destroying)
        return FALSE;
    // What the window covered shows again.
    if (window->visible && window->parent)
        InvalidateRect(window->parent->handle, &window->rect, TRUE);
    // Owned windows go first, as on the original.
    std::vector<HWND> owned;
    for (Window* top : Manager().TopLevel())
        if (top->owner == window)
            owned.push_back(top->handle);
    for (HWND h : owned)
        DestroyWindow(h);
    if (!Manager().Find(hwnd))
        return TRUE;
    HWND focus = Manager().focus;
    bool hadFocus = focus && (focus == hwnd || IsChild(hwnd, focus));
    bool wasActive = Manager().active == hwnd;
    Window* owner = window->owner;
    // An MDI client activates another document window first.
    if (window->exStyle & WS_EX_MDICHILD)
        platform::user::MdiChildGoing(window);
    if (!Manager().Find(hwnd))
        return TRUE;
    hadFocus = Manager().focus && (Manager().focus == hwnd || IsChild(hwnd, Manager().focus));
    if (hadFocus)
        SetFocus(nullptr);
    // The menu bar goes with its window.
    HMENU menu = window->menu;
    DestroyTree(window);
    if (menu)
        DestroyMenu(menu);
    if (wasActive)
        platform::user::ActivateNext(owner);
    return TRUE;
}

BOOL IsWindow(HWND hwnd) {
    if (Manager().Find(hwnd))
        return TRUE;
    platform::user::ForeignWindows* foreign = platform::user::Foreign();
    return foreign && hwnd && foreign->Exists(hwnd) ? TRUE : FALSE;
}

HWND GetDesktopWindow() {
    return Manager().Desktop()->handle;
}

HWND GetParent(HWND hwnd) {
    Window* window = Manager().Find(hwnd);
    if (!window || !window->parent)
        return nullptr;
    // A top-level window's parent is its owner, for pop-ups.
    if (window->parent == Manager().Desktop())
        return window->owner && (window->style & WS_POPUP) ? window->owner->handle : nullptr;
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
    *rect = RECT{0, 0, window->ClientWidth(), window->ClientHeight()};
    return TRUE;
}

BOOL GetWindowRect(HWND hwnd, LPRECT rect) {
    Window* window = Manager().Find(hwnd);
    if (!window || !rect)
        return FALSE;
    POINT origin = Manager().WindowOrigin(window);
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
    if (window->placement == Window::Placement::Normal)
        window->normalRect = window->rect;
    bool resized =
        old.right - old.left != window->Width() || old.bottom - old.top != window->Height();
    if (repaint && window->visible) {
        if (window->parent)
            InvalidateRect(window->parent->handle, &old, TRUE);
        InvalidateRect(hwnd, nullptr, TRUE);
        if (resized || old.left != x || old.top != y)
            platform::user::RedrawFrame(window);
    }
    if (resized)
        SendMessage(hwnd, WM_SIZE, platform::user::SizeType(window),
                    MAKELONG(window->ClientWidth(), window->ClientHeight()));
    if (old.left != x || old.top != y)
        SendMessage(hwnd, WM_MOVE, 0, MAKELONG(x + window->frame.left, y + window->frame.top));
    return TRUE;
}

BOOL IsWindowVisible(HWND hwnd) {
    Window* window = Manager().Find(hwnd);
    return window && Manager().IsShown(window) ? TRUE : FALSE;
}

int GetWindowTextLength(HWND hwnd) {
    std::u16string title;
    if (ForeignTitle(hwnd, &title))
        return static_cast<int>(title.size());
    return static_cast<int>(SendMessage(hwnd, WM_GETTEXTLENGTH, 0, 0));
}

int GetWindowText(HWND hwnd, LPWSTR buffer, int maxCount) {
    if (!buffer || maxCount <= 0)
        return 0;
    std::u16string title;
    if (ForeignTitle(hwnd, &title)) {
        const std::size_t n = std::min(title.size(), static_cast<std::size_t>(maxCount - 1));
        title.copy(buffer, n);
        buffer[n] = u'\0';
        return static_cast<int>(n);
    }
    return static_cast<int>(SendMessage(hwnd, WM_GETTEXT, static_cast<WPARAM>(maxCount),
                                        reinterpret_cast<LPARAM>(buffer)));
}

BOOL SetWindowText(HWND hwnd, LPCWSTR text) {
    return static_cast<BOOL>(SendMessage(hwnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)));
}

BOOL SetWindowPos(HWND hwnd, HWND insertAfter, int x, int y, int cx, int cy, UINT flags) {
    Window* window = Manager().Find(hwnd);
    if (!window || window == Manager().Desktop())
        return FALSE;
    if (!(flags & SWP_NOZORDER) && window->parent) {
        auto& siblings = window->parent->children;
        siblings.erase(std::find(siblings.begin(), siblings.end(), window));
        auto at = siblings.begin();
        if (insertAfter == HWND_BOTTOM) {
            at = siblings.end();
        } else if (insertAfter != HWND_TOP && insertAfter != HWND_TOPMOST &&
                   insertAfter != HWND_NOTOPMOST) {
            Window* after = Manager().Find(insertAfter);
            auto it = std::find(siblings.begin(), siblings.end(), after);
            at = it == siblings.end() ? siblings.begin() : it + 1;
        }
        siblings.insert(at, window);
        // A window raised over others shows all of itself again, frame too.
        if (window->visible) {
            window->ncDirty = window->HasFrame();
            InvalidateRect(hwnd, nullptr, TRUE);
        }
    }
    if (flags & SWP_FRAMECHANGED) {
        // The styles may have changed the frame, and with it the client area.
        int oldWidth = window->ClientWidth();
        int oldHeight = window->ClientHeight();
        platform::user::UpdateFrame(window);
        if (oldWidth != window->ClientWidth() || oldHeight != window->ClientHeight())
            SendMessage(hwnd, WM_SIZE, platform::user::SizeType(window),
                        MAKELONG(window->ClientWidth(), window->ClientHeight()));
        if (window->visible && !(flags & SWP_NOREDRAW)) {
            InvalidateRect(hwnd, nullptr, TRUE);
            platform::user::RedrawFrame(window);
        }
    }
    if ((flags & (SWP_NOMOVE | SWP_NOSIZE)) != (SWP_NOMOVE | SWP_NOSIZE)) {
        if (flags & SWP_NOMOVE) {
            x = window->rect.left;
            y = window->rect.top;
        }
        if (flags & SWP_NOSIZE) {
            cx = window->Width();
            cy = window->Height();
        }
        MoveWindow(hwnd, x, y, cx, cy, (flags & SWP_NOREDRAW) ? FALSE : TRUE);
    }
    if (flags & SWP_SHOWWINDOW)
        ShowWindow(hwnd, (flags & SWP_NOACTIVATE) ? SW_SHOWNA : SW_SHOW);
    else if (flags & SWP_HIDEWINDOW)
        ShowWindow(hwnd, SW_HIDE);
    else if (!(flags & SWP_NOACTIVATE) && !(flags & SWP_NOZORDER) &&
             window->parent == Manager().Desktop() && window->visible)
        SetActiveWindow(hwnd);
    // A child window that is not told otherwise is activated among its
    // siblings (an MDI child becomes the active one).
    if (!(flags & SWP_NOACTIVATE) && (window->style & WS_CHILD) && IsWindow(hwnd) &&
        window->visible)
        SendMessage(hwnd, WM_CHILDACTIVATE, 0, 0);
    return TRUE;
}
