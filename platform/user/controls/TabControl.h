// The tab control's state and geometry, shared by its messages and its
// painting. Internal to the platform.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace platform::user::tabs {

struct TabItem {
    std::u16string text;
    LPARAM param = 0;
    DWORD state = 0;
    int image = -1;
};

struct TabState {
    std::vector<TabItem> items;
    int selected = -1;
    int focusItem = -1;
    HFONT font = nullptr;
    bool focused = false;
};

// Pixels around a tab's text, and how far the selected tab stands out of
// the row: up above the others and over its neighbours on each side.
constexpr int kTextPadX = 6;
constexpr int kTextPadY = 3;
constexpr int kSelectedRaise = 2;
// The display area lies this far inside the frame of the panel.
constexpr int kDisplayInset = 4;

// The height of the row of tabs, from the top of the control to the top of
// the panel, for the control's font.
int RowHeight(HWND hwnd, const TabState& state);
// Each tab's rectangle as an unselected tab, left to right, in client
// coordinates.
std::vector<RECT> ItemRects(HWND hwnd, const TabState& state);
// The rectangle a tab covers as drawn: the selected one stands out.
RECT DrawnRect(const TabState& state, const std::vector<RECT>& rects, int index);
// TCM_ADJUSTRECT: window to display area (larger FALSE) or back.
void AdjustRect(HWND hwnd, const TabState& state, bool larger, RECT* rect);
// The tab under a client point, or -1.
int HitTest(HWND hwnd, const TabState& state, POINT point);

void Paint(HWND hwnd, const TabState& state);

} // namespace platform::user::tabs
