// Other programs' top-level windows on the display, as handles of their own:
// the window manager's client list when one runs, else the root window's
// children that have a name. Every call asks the display afresh, so a window
// that has gone simply makes the call fail.
#pragma once

#include "user/ForeignWindows.h"

#include <xcb/xcb.h>

#include <functional>
#include <optional>
#include <string>

namespace platform::display::x11 {

class X11ForeignWindows final : public user::ForeignWindows {
public:
    // ours tells the back end's own X windows, which are never foreign.
    X11ForeignWindows(xcb_connection_t* connection, xcb_screen_t* screen,
                      std::function<bool(xcb_window_t)> ours);

    // The handle standing for an X window, and back (0 for any other handle).
    static HWND HandleOf(xcb_window_t window);
    static xcb_window_t WindowOf(HWND hwnd);

    std::vector<HWND> TopLevel() override;
    bool Exists(HWND hwnd) override;
    bool Title(HWND hwnd, std::u16string* title) override;
    bool Activate(HWND hwnd) override;
    bool Iconic(HWND hwnd) override;

private:
    // A property's type and bytes; nothing when the window is gone.
    struct Property {
        xcb_atom_t type = XCB_NONE;
        uint8_t format = 0;
        std::string bytes;
    };
    std::optional<Property> Read(xcb_window_t window, xcb_atom_t atom);
    std::optional<std::u16string> NameOf(xcb_window_t window);
    std::vector<xcb_window_t> Candidates(bool* managed);
    bool HasWindowManager();

    xcb_connection_t* m_connection;
    xcb_window_t m_root;
    std::function<bool(xcb_window_t)> m_ours;
    xcb_atom_t m_clientList = 0;
    xcb_atom_t m_clientStacking = 0;
    xcb_atom_t m_wmCheck = 0;
    xcb_atom_t m_activeWindow = 0;
    xcb_atom_t m_netName = 0;
    xcb_atom_t m_utf8 = 0;
    xcb_atom_t m_wmState = 0;
};

} // namespace platform::display::x11
