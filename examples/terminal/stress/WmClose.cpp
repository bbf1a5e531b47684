// Asks an X window to close the way a window manager's close button does: a
// WM_DELETE_WINDOW message of the WM_PROTOCOLS protocol, sent to the window.
// The stress run uses it to end the terminal politely on a display that has
// no window manager.
//
//   x11_wm_close WINDOW-ID      (on $DISPLAY; the id in decimal or 0x hex)
#include <xcb/xcb.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

xcb_atom_t Atom(xcb_connection_t* connection, const char* name) {
    xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, static_cast<uint16_t>(std::strlen(name)), name),
        nullptr);
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    std::free(reply);
    return atom;
}

} // namespace

int main(int argc, char** argv) {
    char* end = nullptr;
    const unsigned long window = argc == 2 ? std::strtoul(argv[1], &end, 0) : 0;
    if (argc != 2 || *end || window == 0) {
        std::fprintf(stderr, "usage: x11_wm_close WINDOW-ID\n");
        return 2;
    }
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection)) {
        std::fprintf(stderr, "x11_wm_close: cannot open the display\n");
        xcb_disconnect(connection);
        return 1;
    }
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = static_cast<xcb_window_t>(window);
    message.type = Atom(connection, "WM_PROTOCOLS");
    message.data.data32[0] = Atom(connection, "WM_DELETE_WINDOW");
    message.data.data32[1] = XCB_CURRENT_TIME;
    xcb_void_cookie_t sent =
        xcb_send_event_checked(connection, 0, message.window, XCB_EVENT_MASK_NO_EVENT,
                               reinterpret_cast<const char*>(&message));
    xcb_generic_error_t* error = xcb_request_check(connection, sent);
    const int status = error ? 1 : 0;
    if (error)
        std::fprintf(stderr, "x11_wm_close: no window 0x%lx\n", window);
    std::free(error);
    xcb_disconnect(connection);
    return status;
}
