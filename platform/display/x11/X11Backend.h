// The desktop on an X11 display: each shown top-level window is an X window
// holding that window's own pixels, sent with plain PutImage requests; the
// display's input becomes messages, the clipboard is the display's selection
// and other programs' top-level windows are seen through handles of their own.
#pragma once

#include "display/Backend.h"
#include "display/x11/X11Clipboard.h"
#include "display/x11/X11ForeignWindows.h"

#include <xcb/xcb.h>

#include <climits>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace platform::user {
struct Window;
}

namespace platform::display::x11 {

class X11Backend final : public Backend {
public:
    static std::unique_ptr<Backend> Connect(const char* name, std::string* error);
    ~X11Backend() override;

    int Descriptor() const override;
    void Update() override;
    bool ProcessInput(bool read) override;
    unsigned WindowOf(HWND hwnd) const override;

private:
    struct Shown {
        xcb_window_t id = 0;
        RECT rect{};
        std::u16string title;
        HWND owner = nullptr;
        bool mapped = false;
        // The sequence number of the last move or resize asked of the
        // display: notices older than it describe a size already replaced.
        uint16_t configureSequence = 0;
        bool configured = false;
        // The pixels the X window holds, as last sent; empty forces a resend.
        std::vector<uint32_t> sent;
        // For a window that others cover: the parts of it that show on the
        // desktop, and where the others lie (window coordinates), when its
        // picture was last painted.
        std::vector<uint32_t> seen;
        std::vector<RECT> covered;
    };

    X11Backend(xcb_connection_t* connection, xcb_screen_t* screen);
    bool CheckFormat(std::string* error) const;
    void LoadKeyboardMapping();

    Shown& Create(HWND hwnd);
    void SyncWindow(HWND hwnd, Shown& shown);
    // changed: the part of the desktop drawn on since the last update.
    void SendPixels(user::Window* window, Shown& shown, const RECT& changed);
    // The desktop rectangles of the shown windows above window that lie over
    // it, in its own coordinates; its owned popups that lie inside it are
    // part of its picture and cover nothing.
    std::vector<RECT> Covering(user::Window* window) const;
    // Sends the rows of pixels (width by the window's height, stride in
    // pixels) that differ from what the X window holds, looking only inside
    // area (rows and columns) when the X window holds the rest already.
    void SendRows(Shown& shown, const uint32_t* pixels, int stride,
                  RECT area = RECT{0, 0, INT_MAX, INT_MAX});
    void Forget(std::map<HWND, Shown>::iterator it);
    void Restack();

    HWND FindByWindow(xcb_window_t id) const;
    // Whether the keyboard's focus is on one of our windows.
    bool FocusIsOurs() const;
    // The program lost the keyboard to another: the menu being tracked ends
    // and the mouse is let go, which ends a drag.
    void CancelModes();
    void Handle(xcb_generic_event_t* event);
    void HandleKey(xcb_key_press_event_t* event, bool down);
    void HandleButton(xcb_button_press_event_t* event, bool down);
    void HandleConfigure(xcb_configure_notify_event_t* event);
    void HandleExpose(xcb_expose_event_t* event);

    void OpenClipboard();
    void CloseClipboard();

    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen;
    std::unique_ptr<X11Clipboard> m_clipboard;
    std::unique_ptr<X11ForeignWindows> m_foreign;
    // Events that came while the clipboard waited for another program.
    std::deque<xcb_generic_event_t*> m_deferred;
    xcb_gcontext_t m_gc = 0;
    std::map<HWND, Shown> m_shown;
    // The mapped X windows, topmost first, as last stacked.
    std::vector<xcb_window_t> m_stacked;
    // MK_XBUTTON1 and MK_XBUTTON2 while the extra buttons are held: the
    // server's button mask has no bits for them.
    WPARAM m_extraButtons = 0;
    xcb_atom_t m_protocols = 0;
    xcb_atom_t m_deleteWindow = 0;
    xcb_atom_t m_netName = 0;
    xcb_atom_t m_utf8 = 0;
    xcb_atom_t m_motifHints = 0;
    uint32_t m_maxRequestBytes = 0;
    uint8_t m_minKeycode = 0;
    uint8_t m_keysymsPerKeycode = 0;
    std::vector<uint32_t> m_keysyms;
};

} // namespace platform::display::x11
