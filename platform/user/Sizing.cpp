// Sizing a window by its frame, moving it by its caption and closing it by
// its close box. The loops run inside the default procedure, as the
// original's do: they take the mouse messages of the drag from the queue
// themselves (they never reach the window), dispatch everything else, and ask
// the simulated user for more when the queue runs dry; with nobody left to
// act they end as Escape would, the window put back.
#include "Sizing.h"

#include "Menus.h"

#include <platform/MessagePump.h>

#include <algorithm>
#include <functional>

namespace platform::user {

namespace {

short LowSigned(LPARAM value) {
    return static_cast<short>(LOWORD(value));
}

short HighSigned(LPARAM value) {
    return static_cast<short>(HIWORD(value));
}

bool Sizable(const Window* window) {
    return (window->style & WS_THICKFRAME) && !(window->style & (WS_MINIMIZE | WS_MAXIMIZE));
}

// The parent's client coordinates of a rectangle in screen coordinates.
RECT InParent(HWND hwnd, RECT screen) {
    HWND parent = (GetWindowLongPtr(hwnd, GWL_STYLE) & WS_CHILD) ? GetParent(hwnd) : nullptr;
    if (!parent)
        return screen;
    POINT origin{0, 0};
    ClientToScreen(parent, &origin);
    return RECT{screen.left - origin.x, screen.top - origin.y, screen.right - origin.x,
                screen.bottom - origin.y};
}

// The drag's edge when the caption moves the whole window.
constexpr UINT kMoveWhole = 0;

// The drag's state: where it started and what moves.
struct Drag {
    HWND hwnd;
    UINT edge;
    POINT start;
    RECT original; // screen coordinates
    MINMAXINFO limits;
};

bool MovesLeft(UINT edge) {
    return edge == WMSZ_LEFT || edge == WMSZ_TOPLEFT || edge == WMSZ_BOTTOMLEFT;
}
bool MovesRight(UINT edge) {
    return edge == WMSZ_RIGHT || edge == WMSZ_TOPRIGHT || edge == WMSZ_BOTTOMRIGHT;
}
bool MovesTop(UINT edge) {
    return edge == WMSZ_TOP || edge == WMSZ_TOPLEFT || edge == WMSZ_TOPRIGHT;
}
bool MovesBottom(UINT edge) {
    return edge == WMSZ_BOTTOM || edge == WMSZ_BOTTOMLEFT || edge == WMSZ_BOTTOMRIGHT;
}

void Track(const Drag& drag, POINT mouse) {
    const int dx = mouse.x - drag.start.x;
    const int dy = mouse.y - drag.start.y;
    RECT rect = drag.original;
    if (drag.edge == kMoveWhole) {
        rect = RECT{rect.left + dx, rect.top + dy, rect.right + dx, rect.bottom + dy};
        SendMessage(drag.hwnd, WM_MOVING, 0, reinterpret_cast<LPARAM>(&rect));
        const RECT placed = InParent(drag.hwnd, rect);
        SetWindowPos(drag.hwnd, nullptr, placed.left, placed.top, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        return;
    }
    if (MovesLeft(drag.edge))
        rect.left += dx;
    if (MovesRight(drag.edge))
        rect.right += dx;
    if (MovesTop(drag.edge))
        rect.top += dy;
    if (MovesBottom(drag.edge))
        rect.bottom += dy;
    SendMessage(drag.hwnd, WM_SIZING, drag.edge, reinterpret_cast<LPARAM>(&rect));
    // Within the track sizes, the moving edge giving way.
    const int width =
        std::clamp<int>(rect.right - rect.left, drag.limits.ptMinTrackSize.x,
                        std::max(drag.limits.ptMinTrackSize.x, drag.limits.ptMaxTrackSize.x));
    const int height =
        std::clamp<int>(rect.bottom - rect.top, drag.limits.ptMinTrackSize.y,
                        std::max(drag.limits.ptMinTrackSize.y, drag.limits.ptMaxTrackSize.y));
    if (MovesLeft(drag.edge))
        rect.left = rect.right - width;
    else
        rect.right = rect.left + width;
    if (MovesTop(drag.edge))
        rect.top = rect.bottom - height;
    else
        rect.bottom = rect.top + height;
    const RECT placed = InParent(drag.hwnd, rect);
    SetWindowPos(drag.hwnd, nullptr, placed.left, placed.top, placed.right - placed.left,
                 placed.bottom - placed.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

// The screen point of a mouse message: where the mouse was when it was
// posted (its client coordinates would follow the window as it moves).
POINT MousePoint(const MSG& msg) {
    return msg.pt;
}

// How a loop that has the mouse goes on after a message.
enum class Step { Going, Done, Cancelled };

// Runs a loop with the mouse captured for hwnd. Mouse moves, the button's
// release and keys going down go to step; everything else is dispatched. It
// ends when step says so, and is cancelled when the capture goes, WM_QUIT
// comes up (posted again for the loop outside) or nobody is left to act.
Step RunCapturedLoop(HWND hwnd, const std::function<Step(const MSG&)>& step) {
    SetCapture(hwnd);
    Step result = Step::Going;
    while (result == Step::Going) {
        if (!IsWindow(hwnd) || GetCapture() != hwnd) {
            result = Step::Cancelled; // something else took the mouse
            break;
        }
        MSG msg;
        if (!PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE)) {
            if (platform::RunIdle())
                continue;
            result = Step::Cancelled;
            break;
        }
        switch (msg.message) {
        case WM_MOUSEMOVE:
        case WM_LBUTTONUP:
        case WM_KEYDOWN:
            result = step(msg);
            break;
        case WM_QUIT:
            PostQuitMessage(static_cast<int>(msg.wParam));
            result = Step::Cancelled;
            break;
        default:
            TranslateMessage(&msg);
            DispatchMessage(&msg);
            // A paint handler that left its window invalid would come back
            // for ever.
            if (msg.message == WM_PAINT && IsWindow(msg.hwnd))
                ValidateRect(msg.hwnd, nullptr);
            break;
        }
    }
    if (IsWindow(hwnd) && GetCapture() == hwnd)
        ReleaseCapture();
    return result;
}

void RunSizingLoop(HWND hwnd, UINT edge, POINT start) {
    Drag drag{hwnd, edge, start, RECT{}, MINMAXINFO{}};
    GetWindowRect(hwnd, &drag.original);
    drag.limits.ptMaxSize = POINT{GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    drag.limits.ptMinTrackSize =
        POINT{GetSystemMetrics(SM_CXMINTRACK), GetSystemMetrics(SM_CYMINTRACK)};
    drag.limits.ptMaxTrackSize = POINT{32767, 32767};
    SendMessage(hwnd, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&drag.limits));
    SendMessage(hwnd, WM_ENTERSIZEMOVE, 0, 0);
    const Step end = RunCapturedLoop(hwnd, [&drag](const MSG& msg) {
        if (msg.message == WM_KEYDOWN)
            return msg.wParam == VK_ESCAPE   ? Step::Cancelled
                   : msg.wParam == VK_RETURN ? Step::Done
                                             : Step::Going;
        Track(drag, MousePoint(msg));
        return msg.message == WM_LBUTTONUP ? Step::Done : Step::Going;
    });
    if (!IsWindow(hwnd))
        return;
    if (end == Step::Cancelled) {
        const RECT placed = InParent(hwnd, drag.original);
        SetWindowPos(hwnd, nullptr, placed.left, placed.top, placed.right - placed.left,
                     placed.bottom - placed.top, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    SendMessage(hwnd, WM_EXITSIZEMOVE, 0, 0);
}

// Follows a press on the close box until the button comes up; true when it
// comes up on the box. Escape, or nobody left to let go, is no.
bool ReleasedOnCloseBox(HWND hwnd) {
    bool onBox = false;
    RunCapturedLoop(hwnd, [hwnd, &onBox](const MSG& msg) {
        if (msg.message == WM_KEYDOWN)
            return msg.wParam == VK_ESCAPE ? Step::Cancelled : Step::Going;
        if (msg.message != WM_LBUTTONUP)
            return Step::Going;
        RECT outer{};
        GetWindowRect(hwnd, &outer);
        const RECT box = CloseBoxRect(WindowManager::Instance().Find(hwnd));
        const POINT at = MousePoint(msg);
        const int x = at.x - outer.left, y = at.y - outer.top;
        onBox = x >= box.left && x < box.right && y >= box.top && y < box.bottom;
        return Step::Done;
    });
    return onBox && IsWindow(hwnd);
}

} // namespace

LRESULT NonClientHitTest(const Window* window, POINT screen) {
    RECT rect;
    GetWindowRect(window->handle, &rect);
    const int x = screen.x - rect.left, y = screen.y - rect.top;
    const int width = window->Width(), height = window->Height();
    if (x < 0 || y < 0 || x >= width || y >= height)
        return HTNOWHERE;
    const RECT& frame = window->frame;
    if (x >= frame.left && x < width - frame.right && y >= frame.top && y < height - frame.bottom)
        return HTCLIENT;
    if (Sizable(window)) {
        const int border = frame.left;
        const int corner = GetSystemMetrics(SM_CYCAPTION);
        const bool left = x < border, right = x >= width - border;
        const bool top = y < border, bottom = y >= height - border;
        if (left || right || top || bottom) {
            const bool nearTop = top || y < corner, nearBottom = bottom || y >= height - corner;
            const bool nearLeft = left || x < corner, nearRight = right || x >= width - corner;
            if (nearTop && nearLeft)
                return HTTOPLEFT;
            if (nearTop && nearRight)
                return HTTOPRIGHT;
            if (nearBottom && nearLeft)
                return HTBOTTOMLEFT;
            if (nearBottom && nearRight)
                return HTBOTTOMRIGHT;
            return left ? HTLEFT : right ? HTRIGHT : top ? HTTOP : HTBOTTOM;
        }
    }
    if ((window->style & WS_CAPTION) == WS_CAPTION && y < frame.top &&
        y >= frame.top - GetSystemMetrics(SM_CYCAPTION) -
                 (window->menu ? GetSystemMetrics(SM_CYMENU) : 0)) {
        if (window->menu && y >= frame.top - GetSystemMetrics(SM_CYMENU))
            return HTMENU;
        const RECT box = CloseBoxRect(window);
        return x >= box.left && x < box.right && y >= box.top && y < box.bottom ? HTCLOSE
                                                                                : HTCAPTION;
    }
    return HTBORDER;
}

RECT CloseBoxRect(const Window* window) {
    if ((window->style & WS_CAPTION) != WS_CAPTION || !(window->style & WS_SYSMENU))
        return RECT{0, 0, 0, 0};
    const int edge = (window->exStyle & WS_EX_CLIENTEDGE) ? GetSystemMetrics(SM_CXEDGE) : 0;
    const int band = window->frame.left - edge;
    const int right = window->Width() - band;
    return RECT{right - GetSystemMetrics(SM_CXSIZE), band, right,
                band + GetSystemMetrics(SM_CYCAPTION) - 1};
}

void NonClientPress(HWND hwnd, WPARAM hit, LPARAM where) {
    if (hit == HTMENU)
        TrackMenuBar(hwnd, MenuBarItemAt(hwnd, POINT{static_cast<short>(LOWORD(where)),
                                                     static_cast<short>(HIWORD(where))}));
    else if (hit >= HTLEFT && hit <= HTBOTTOMRIGHT)
        SendMessage(hwnd, WM_SYSCOMMAND, SC_SIZE + (hit - HTLEFT + WMSZ_LEFT), where);
    else if (hit == HTCAPTION)
        SendMessage(hwnd, WM_SYSCOMMAND, SC_MOVE + HTCAPTION, where);
    else if (hit == HTCLOSE && ReleasedOnCloseBox(hwnd))
        SendMessage(hwnd, WM_SYSCOMMAND, SC_CLOSE, where);
}

void NonClientDoubleClick(HWND hwnd, WPARAM hit, LPARAM where) {
    Window* window = WindowManager::Instance().Find(hwnd);
    if (!window)
        return;
    if (hit != HTCAPTION) {
        NonClientPress(hwnd, hit, where);
        return;
    }
    if (!(window->style & WS_MAXIMIZEBOX))
        return;
    const bool restore = window->style & (WS_MAXIMIZE | WS_MINIMIZE);
    SendMessage(hwnd, WM_SYSCOMMAND, restore ? SC_RESTORE : SC_MAXIMIZE, where);
}

void SystemCommand(HWND hwnd, WPARAM command, LPARAM where) {
    Window* window = WindowManager::Instance().Find(hwnd);
    if (!window)
        return;
    const POINT start{LowSigned(where), HighSigned(where)};
    switch (command & 0xFFF0) {
    case SC_SIZE: {
        const UINT edge = static_cast<UINT>(command & 0x0F);
        if (Sizable(window) && edge >= WMSZ_LEFT && edge <= WMSZ_BOTTOMRIGHT)
            RunSizingLoop(hwnd, edge, start);
        break;
    }
    case SC_MOVE:
        if (!(window->style & (WS_MINIMIZE | WS_MAXIMIZE)))
            RunSizingLoop(hwnd, kMoveWhole, start);
        break;
    case SC_CLOSE:
        SendMessage(hwnd, WM_CLOSE, 0, 0);
        break;
    case SC_MAXIMIZE:
        ShowWindow(hwnd, SW_MAXIMIZE);
        break;
    case SC_RESTORE:
        ShowWindow(hwnd, SW_RESTORE);
        break;
    default:
        break;
    }
}

} // namespace platform::user
