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
    // Rows [top, top + height) of a window, all its columns.
    struct Band {
        int top = 0;
        int height = 0;
    };
    // The window's whole extent; height 0 when it cannot be read.
    Band Whole(xcb_window_t window);
    // The pixels of a band of the window's rows; empty when they cannot be read.
    std::vector<uint8_t> Pixels(xcb_window_t window, Band band);
    // The rows that differ between two grabs of the same band, widened by
    // margin rows either way and kept inside it; height 0 when none differ.
    static Band ChangedRows(const std::vector<uint8_t>& before, const std::vector<uint8_t>& after,
                            Band band, int margin);
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
    xcb_window_t m_measured = 0;
    uint16_t m_width = 0;
};
