// Helpers for the standard controls' tests: a top-level host window that
// logs the notifications its controls send, and a loop that runs the
// simulated user's actions outside a modal loop.
#pragma once

#include <afxwin.h>
#include <platform/Automation.h>

#include <string>
#include <vector>

namespace controls_test {

std::u16string TextOf(HWND hwnd);
std::string Narrow(const std::u16string& text);

// Runs queued messages (keys translated to characters) and the simulated
// user's actions until both are used up.
void RunUser();

// Controls with ids from 200 to 299 are combo boxes in these tests.
inline bool IsComboId(UINT id) {
    return id >= 200 && id < 300;
}

// Controls with ids from 300 to 399 are buttons.
inline bool IsButtonId(UINT id) {
    return id >= 300 && id < 400;
}

// A visible top-level window at (x, y) on the desktop. Each WM_COMMAND from
// a control is logged as "<code>:<control's text at that moment>".
class Host {
public:
    Host(int x = 20, int y = 20, int width = 320, int height = 200);
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    HWND hwnd() const { return m_hwnd; }
    HWND Add(const char16_t* cls, DWORD style, int x, int y, int width, int height, UINT id,
             const char16_t* text = u"");
    std::vector<std::string>& Log();

private:
    HWND m_hwnd = nullptr;
};

// The name a log entry uses for an edit, combo box or button notification.
std::string CodeName(UINT code, UINT id);

// The dark pixels' rows of a window's client area, as bands of adjacent rows
// (top, bottom exclusive).
std::vector<std::pair<int, int>> InkBands(HWND hwnd);

} // namespace controls_test
