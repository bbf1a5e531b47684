// What the terminal benchmark needs of an X display, as a user's eye and hand:
// finding a window by its title, reading its pixels, and pressing a key
// through the XTEST extension (the same path a real keyboard takes).
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <string>
#include <vector>

class XProbe {
public:
    explicit XProbe(const std::string& display);
    ~XProbe();
    XProbe(const XProbe&) = delete;
    XProbe& operator=(const XProbe&) = delete;

    bool Connected() const { return m_connection != nullptr; }

    // A top-level window (or a child of one) whose name contains text; 0 when
    // none is mapped yet.
    xcb_window_t FindWindow(const std::string& text);
    // The window's pixels; empty when it cannot be read.
    std::vector<uint8_t> Pixels(xcb_window_t window);
    // Gives the window the keyboard focus and puts the pointer on it.
    void Focus(xcb_window_t window);
    // Presses and releases the key that types ch (a-z).
    bool TypeKey(char ch);

private:
    bool NameContains(xcb_window_t window, const std::string& text);
    uint8_t Keycode(char ch);

    xcb_connection_t* m_connection = nullptr;
    xcb_window_t m_root = 0;
    uint8_t m_keycodes[256] = {};
};
