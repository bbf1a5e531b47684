// The display's events as the window system's messages: keys to the focus
// inside the window they were typed into, the wheel to the focus, buttons
// and motion to the window under the pointer, exposure and resizing
// through invalidation and WM_SIZE, the window manager's close as WM_CLOSE.
#include "display/x11/KeySyms.h"
#include "display/x11/X11Backend.h"

#include "user/Keyboard.h"
#include "user/Menus.h"
#include "user/PointerInput.h"
#include "user/WindowManager.h"

#include <cstdlib>

namespace platform::display::x11 {
namespace {

constexpr uint16_t kShiftMask = XCB_MOD_MASK_SHIFT;
constexpr uint16_t kControlMask = XCB_MOD_MASK_CONTROL;

// The MK_ state of a pointer event's modifier and button mask.
WPARAM MouseKeys(uint16_t state) {
    WPARAM keys = 0;
    if (state & XCB_BUTTON_MASK_1)
        keys |= MK_LBUTTON;
    if (state & XCB_BUTTON_MASK_2)
        keys |= MK_MBUTTON;
    if (state & XCB_BUTTON_MASK_3)
        keys |= MK_RBUTTON;
    if (state & kShiftMask)
        keys |= MK_SHIFT;
    if (state & kControlMask)
        keys |= MK_CONTROL;
    return keys;
}

} // namespace

bool X11Backend::ProcessInput(bool read) {
    while (!m_deferred.empty()) {
        xcb_generic_event_t* event = m_deferred.front();
        m_deferred.pop_front();
        Handle(event);
        free(event);
    }
    // One read takes what the connection holds; what arrives after it makes
    // the descriptor readable again, so the rest come from the queue alone.
    xcb_generic_event_t* event =
        read ? xcb_poll_for_event(m_connection) : xcb_poll_for_queued_event(m_connection);
    for (; event; event = xcb_poll_for_queued_event(m_connection)) {
        Handle(event);
        free(event);
    }
    return !xcb_connection_has_error(m_connection);
}

void X11Backend::Handle(xcb_generic_event_t* event) {
    if (m_clipboard->Handle(event))
        return;
    const uint8_t type = event->response_type & 0x7F;
    switch (type) {
    case XCB_KEY_PRESS:
        HandleKey(reinterpret_cast<xcb_key_press_event_t*>(event), true);
        break;
    case XCB_KEY_RELEASE:
        HandleKey(reinterpret_cast<xcb_key_press_event_t*>(event), false);
        break;
    case XCB_BUTTON_PRESS:
    case XCB_BUTTON_RELEASE:
        HandleButton(reinterpret_cast<xcb_button_press_event_t*>(event), type == XCB_BUTTON_PRESS);
        break;
    case XCB_MOTION_NOTIFY: {
        auto* motion = reinterpret_cast<xcb_motion_notify_event_t*>(event);
        HWND hwnd = FindByWindow(motion->event);
        if (!hwnd)
            break;
        const RECT& rect = m_shown[hwnd].rect;
        user::PostMove(hwnd, POINT{rect.left + motion->event_x, rect.top + motion->event_y},
                       MouseKeys(motion->state) | m_extraButtons);
        break;
    }
    case XCB_EXPOSE:
        HandleExpose(reinterpret_cast<xcb_expose_event_t*>(event));
        break;
    case XCB_CONFIGURE_NOTIFY:
        HandleConfigure(reinterpret_cast<xcb_configure_notify_event_t*>(event));
        break;
    case XCB_FOCUS_IN: {
        // The window manager gave a window the focus: it becomes the active
        // one, unless a modal dialog has disabled it.
        HWND hwnd = FindByWindow(reinterpret_cast<xcb_focus_in_event_t*>(event)->event);
        if (hwnd && IsWindowEnabled(hwnd) && GetActiveWindow() != hwnd)
            SetActiveWindow(hwnd);
        break;
    }
    case XCB_FOCUS_OUT: {
        // The keys went elsewhere meanwhile (another window, or a grab such
        // as the window manager's Alt+Tab): an Alt released after it was not
        // tapped alone.
        user::ForgetAltTap();
        // Gone to another program: an open menu closes and a drag lets go,
        // as when the original deactivates the program.
        const auto* out = reinterpret_cast<xcb_focus_out_event_t*>(event);
        if (out->mode != XCB_NOTIFY_MODE_GRAB && out->detail != XCB_NOTIFY_DETAIL_INFERIOR &&
            !FocusIsOurs())
            CancelModes();
        break;
    }
    case XCB_LEAVE_NOTIFY:
        // The same for the pointer grabbed elsewhere (a window manager's
        // Alt and drag).
        if (reinterpret_cast<xcb_leave_notify_event_t*>(event)->mode == XCB_NOTIFY_MODE_GRAB)
            user::ForgetAltTap();
        break;
    case XCB_CLIENT_MESSAGE: {
        auto* message = reinterpret_cast<xcb_client_message_event_t*>(event);
        HWND hwnd = FindByWindow(message->window);
        if (hwnd && message->type == m_protocols && message->format == 32 &&
            message->data.data32[0] == m_deleteWindow && IsWindowEnabled(hwnd))
            PostMessage(hwnd, WM_CLOSE, 0, 0);
        break;
    }
    case XCB_MAPPING_NOTIFY:
        LoadKeyboardMapping();
        break;
    default:
        break;
    }
}

bool X11Backend::FocusIsOurs() const {
    xcb_get_input_focus_reply_t* reply =
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr);
    const bool ours = reply && FindByWindow(reply->focus) != nullptr;
    free(reply);
    return ours;
}

void X11Backend::CancelModes() {
    user::EndMenuTracking();
    if (GetCapture())
        ReleaseCapture();
}

void X11Backend::HandleKey(xcb_key_press_event_t* event, bool down) {
    if (!m_keysymsPerKeycode || event->detail < m_minKeycode)
        return;
    const std::size_t base =
        static_cast<std::size_t>(event->detail - m_minKeycode) * m_keysymsPerKeycode;
    if (base >= m_keysyms.size())
        return;
    // The first column is the unshifted symbol, the second the shifted one;
    // a key with one symbol (a letter) shifts by case.
    uint32_t keysym = m_keysyms[base];
    if ((event->state & kShiftMask) && m_keysymsPerKeycode > 1 && m_keysyms[base + 1])
        keysym = m_keysyms[base + 1];
    UINT vk = VirtualKeyFor(keysym);
    if (!vk)
        return;
    // The key belongs to the window it was typed into: that window becomes
    // the active one (its focus coming back with it), as a click on it would
    // make it, unless a modal dialog has disabled it.
    HWND hwnd = FindByWindow(event->event);
    if (down && hwnd && IsWindowEnabled(hwnd) && GetActiveWindow() != hwnd)
        SetActiveWindow(hwnd);
    const bool alt = (event->state & XCB_MOD_MASK_1) && !(event->state & kControlMask);
    user::PostKeyToFocus(down, vk, CharacterFor(keysym), alt);
}

void X11Backend::HandleButton(xcb_button_press_event_t* event, bool down) {
    // Buttons 1 to 3 are left, middle and right, 4 and 5 the wheel turned up
    // and down, 6 and 7 the wheel tilted left and right, 8 and 9 back and
    // forward.
    const unsigned number = event->detail;
    if (number < 1 || number > 9)
        return;
    HWND hwnd = FindByWindow(event->event);
    if (!hwnd)
        return;
    const RECT& rect = m_shown[hwnd].rect;
    POINT desktop{rect.left + event->event_x, rect.top + event->event_y};
    // The event's state is the one before it.
    WPARAM keys = MouseKeys(event->state) | m_extraButtons;
    if (number >= 4 && number <= 7) {
        // Each notch is a press and a release; the press is the notch.
        if (down)
            user::PostWheel(number == 4 || number == 7 ? WHEEL_DELTA : -WHEEL_DELTA, number >= 6,
                            desktop, keys);
        return;
    }
    static constexpr user::MouseButton kButtons[] = {
        user::MouseButton::Left, user::MouseButton::Middle, user::MouseButton::Right,
        user::MouseButton::X1, user::MouseButton::X2};
    static constexpr WPARAM kButtonKeys[] = {MK_LBUTTON, MK_MBUTTON, MK_RBUTTON, MK_XBUTTON1,
                                             MK_XBUTTON2};
    const std::size_t index = number <= 3 ? number - 1 : number - 5;
    const WPARAM mine = kButtonKeys[index];
    if (number >= 8)
        m_extraButtons = down ? m_extraButtons | mine : m_extraButtons & ~mine;
    keys = down ? keys | mine : keys & ~mine;
    user::PostButton(hwnd, desktop, kButtons[index], down, keys, event->time);
}

void X11Backend::HandleExpose(xcb_expose_event_t* event) {
    HWND hwnd = FindByWindow(event->window);
    if (!hwnd)
        return;
    // The server lost the window's contents: send all of it again, and have
    // the exposed part painted afresh.
    m_shown[hwnd].sent.clear();
    user::Window* window = user::WindowManager::Instance().Find(hwnd);
    if (!window)
        return;
    RECT exposed{event->x - window->frame.left, event->y - window->frame.top,
                 event->x + event->width - window->frame.left,
                 event->y + event->height - window->frame.top};
    InvalidateRect(hwnd, &exposed, TRUE);
    if (event->x < window->frame.left || event->y < window->frame.top ||
        event->x + event->width > window->rect.right - window->rect.left - window->frame.right ||
        event->y + event->height > window->rect.bottom - window->rect.top - window->frame.bottom)
        user::RedrawFrame(window);
}

void X11Backend::HandleConfigure(xcb_configure_notify_event_t* event) {
    HWND hwnd = FindByWindow(event->window);
    if (!hwnd)
        return;
    Shown& shown = m_shown[hwnd];
    if (shown.configured &&
        static_cast<int16_t>(static_cast<uint16_t>(event->sequence - shown.configureSequence)) < 0)
        return;
    RECT wanted = shown.rect;
    wanted.right = wanted.left + event->width;
    wanted.bottom = wanted.top + event->height;
    // Only a synthetic notice (from the window manager) carries the position
    // on the root window; a real one is relative to the manager's frame.
    if (event->response_type & 0x80) {
        wanted = RECT{event->x, event->y, event->x + event->width, event->y + event->height};
    }
    user::Window* window = user::WindowManager::Instance().Find(hwnd);
    if (!window || (wanted.left == window->rect.left && wanted.top == window->rect.top &&
                    wanted.right == window->rect.right && wanted.bottom == window->rect.bottom))
        return;
    // What the display already shows needs no configure request back.
    shown.rect = wanted;
    shown.sent.clear();
    SetWindowPos(hwnd, nullptr, wanted.left, wanted.top, wanted.right - wanted.left,
                 wanted.bottom - wanted.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace platform::display::x11
