// Sending, posting, retrieving and dispatching messages, and the default
// window procedure.
#include "Menus.h"
#include "ModalLoop.h"
#include "WindowManager.h"

#include "Keyboard.h"
#include "Sizing.h"
#include "display/Backend.h"

#include <platform/Automation.h>
#include <platform/MessagePump.h>

#include <algorithm>
#include <cstring>

using platform::user::Window;
using platform::user::WindowManager;

namespace {

WindowManager& Manager() {
    return WindowManager::Instance();
}

std::function<bool()>& IdleHandler() {
    static std::function<bool()> handler;
    return handler;
}

bool InRange(UINT message, UINT filterMin, UINT filterMax) {
    if (filterMin == 0 && filterMax == 0)
        return true;
    return message >= filterMin && message <= filterMax;
}

// The first window, depth first in creation order, that is shown and needs
// painting. Top-level windows go from the bottom of the z-order up, so that a
// window on top (a drop-down list, a message box) is drawn after what it
// covers.
Window* FindWindowToPaint(Window* window, HWND filter) {
    if (!window->visible)
        return nullptr;
    if (window != Manager().Desktop() && window->hasUpdate && (!filter || filter == window->handle))
        return window;
    if (window == Manager().Desktop()) {
        for (auto it = window->children.rbegin(); it != window->children.rend(); ++it)
            if (Window* found = FindWindowToPaint(*it, filter))
                return found;
        return nullptr;
    }
    for (Window* child : window->children)
        if (Window* found = FindWindowToPaint(child, filter))
            return found;
    return nullptr;
}

} // namespace

LRESULT DefWindowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = Manager().Find(hwnd);
    if (!window)
        return 0;
    switch (message) {
    case WM_NCCREATE: {
        auto* create = reinterpret_cast<const CREATESTRUCT*>(lParam);
        if (create && create->lpszName)
            window->text = create->lpszName;
        return TRUE;
    }
    case WM_PAINT: {
        PAINTSTRUCT paint;
        BeginPaint(hwnd, &paint);
        EndPaint(hwnd, &paint);
        return 0;
    }
    case WM_ERASEBKGND: {
        HBRUSH brush = window->windowClass ? window->windowClass->wc.hbrBackground : nullptr;
        if (!brush || !wParam)
            return 0;
        RECT client{0, 0, window->ClientWidth(), window->ClientHeight()};
        FillRect(reinterpret_cast<HDC>(wParam), &client, brush);
        return 1;
    }
    case WM_NCPAINT:
        platform::user::PaintNonClient(window);
        return 0;
    case WM_NCACTIVATE:
        window->ncActive = wParam != 0;
        platform::user::RedrawFrame(window);
        return TRUE;
    case WM_CLOSE:
        DestroyWindow(hwnd);
        return 0;
    case WM_RBUTTONUP: {
        // Releasing the right button asks for the window's shortcut menu,
        // at the mouse position on the screen.
        POINT at{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
        ClientToScreen(hwnd, &at);
        SendMessage(hwnd, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(hwnd), MAKELPARAM(at.x, at.y));
        return 0;
    }
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
        // A window that does not scroll passes the wheel on to its parent.
        if ((window->style & WS_CHILD) && window->parent)
            return SendMessage(window->parent->handle, message, wParam, lParam);
        return 0;
    case WM_CONTEXTMENU:
        // A child that shows no menu of its own lets its parent show one.
        if ((window->style & WS_CHILD) && window->parent)
            return SendMessage(window->parent->handle, message, wParam, lParam);
        return 0;
    case WM_NCHITTEST:
        return platform::user::NonClientHitTest(
            window, POINT{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))});
    case WM_NCLBUTTONDOWN:
        platform::user::NonClientPress(hwnd, wParam, lParam);
        return 0;
    case WM_NCLBUTTONDBLCLK:
        platform::user::NonClientDoubleClick(hwnd, wParam, lParam);
        return 0;
    case WM_SYSCOMMAND:
        platform::user::SystemCommand(hwnd, wParam, lParam);
        return 0;
    case WM_SYSCHAR:
        platform::user::KeyMenu(hwnd, static_cast<WCHAR>(wParam));
        return 0;
    case WM_SYSKEYDOWN:
        if (wParam == VK_F10)
            platform::user::KeyMenu(hwnd, 0);
        // Alt+F4 closes the top-level window.
        else if (wParam == VK_F4 && (lParam & (1 << 29)))
            if (Window* top = Manager().TopLevel(window))
                PostMessage(top->handle, WM_CLOSE, 0, 0);
        return 0;
    case WM_SYSKEYUP:
        // Alt pressed and released alone selects the menu bar.
        if (wParam == VK_MENU && platform::user::TakeAltTap())
            platform::user::KeyMenu(hwnd, 0);
        return 0;
    case WM_SETTEXT:
        window->text = lParam ? reinterpret_cast<LPCWSTR>(lParam) : u"";
        // The caption shows the text.
        if ((window->style & WS_CAPTION) == WS_CAPTION)
            platform::user::RedrawFrame(window);
        return TRUE;
    case WM_GETTEXTLENGTH:
        return static_cast<LRESULT>(window->text.size());
    case WM_GETTEXT: {
        auto* buffer = reinterpret_cast<LPWSTR>(lParam);
        auto capacity = static_cast<std::size_t>(wParam);
        if (!buffer || capacity == 0)
            return 0;
        std::size_t count = std::min(window->text.size(), capacity - 1);
        std::copy_n(window->text.data(), count, buffer);
        buffer[count] = 0;
        return static_cast<LRESULT>(count);
    }
    default:
        return 0;
    }
}

LRESULT CallWindowProc(WNDPROC proc, HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return proc ? proc(hwnd, message, wParam, lParam) : 0;
}

LRESULT SendMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = Manager().Find(hwnd);
    if (!window || !window->proc)
        return 0;
    return window->proc(hwnd, message, wParam, lParam);
}

BOOL PostMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (hwnd && !Manager().Find(hwnd))
        return FALSE;
    // As on the original, a message carries the mouse position at its posting.
    POINT cursor{0, 0};
    GetCursorPos(&cursor);
    Manager().Queue().push_back(MSG{hwnd, message, wParam, lParam, 0, cursor});
    return TRUE;
}

void PostQuitMessage(int exitCode) {
    Manager().quitPosted = true;
    Manager().quitCode = exitCode;
}

BOOL PeekMessage(LPMSG msg, HWND hwnd, UINT filterMin, UINT filterMax, UINT remove) {
    if (!msg)
        return FALSE;
    auto& queue = Manager().Queue();
    for (auto it = queue.begin(); it != queue.end(); ++it) {
        if ((hwnd && it->hwnd != hwnd) || !InRange(it->message, filterMin, filterMax))
            continue;
        *msg = *it;
        if (remove & PM_REMOVE) {
            queue.erase(it);
            platform::user::NoteKeyMessage(*msg);
        }
        return TRUE;
    }
    if (Manager().quitPosted) {
        *msg = MSG{nullptr, WM_QUIT, static_cast<WPARAM>(Manager().quitCode), 0, 0, POINT{0, 0}};
        if (remove & PM_REMOVE)
            Manager().quitPosted = false;
        return TRUE;
    }
    // WM_PAINT is made up from the update regions and stays until they are
    // validated.
    if (InRange(WM_PAINT, filterMin, filterMax)) {
        if (Window* window = FindWindowToPaint(Manager().Desktop(), hwnd)) {
            *msg = MSG{window->handle, WM_PAINT, 0, 0, 0, POINT{0, 0}};
            return TRUE;
        }
    }
    return FALSE;
}

BOOL GetMessage(LPMSG msg, HWND hwnd, UINT filterMin, UINT filterMax) {
    if (!msg)
        return -1;
    for (;;) {
        if (PeekMessage(msg, hwnd, filterMin, filterMax, PM_REMOVE))
            return msg->message == WM_QUIT ? FALSE : TRUE;
        if (!platform::RunIdle())
            break;
    }
    *msg = MSG{nullptr, WM_QUIT, 0, 0, 0, POINT{0, 0}};
    return FALSE;
}

LRESULT DispatchMessage(const MSG* msg) {
    if (!msg || !msg->hwnd)
        return 0;
    // A button pressed inside a document window activates that document
    // first, as the window system's mouse activation does.
    if (msg->message == WM_LBUTTONDOWN || msg->message == WM_RBUTTONDOWN ||
        msg->message == WM_NCLBUTTONDOWN || msg->message == WM_NCLBUTTONDBLCLK)
        for (Window* w = Manager().Find(msg->hwnd); w && w != Manager().Desktop(); w = w->parent)
            if (w->exStyle & WS_EX_MDICHILD) {
                SendMessage(w->handle, WM_CHILDACTIVATE, 0, 0);
                break;
            }
    return SendMessage(msg->hwnd, msg->message, msg->wParam, msg->lParam);
}

namespace platform {

int PumpMessages() {
    int dispatched = 0;
    MSG msg;
    while (PeekMessage(&msg, nullptr, 0, 0, PM_NOREMOVE) && msg.message != WM_QUIT) {
        PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE);
        DispatchMessage(&msg);
        ++dispatched;
        platform::user::SettlePaint(msg);
    }
    return dispatched;
}

void SetIdleHandler(std::function<bool()> handler) {
    IdleHandler() = std::move(handler);
}

bool RunIdle() {
    if (automation::RunNext())
        return true;
    auto& idle = IdleHandler();
    if (idle && idle())
        return true;
    return display::WaitInMessageLoop();
}

} // namespace platform
