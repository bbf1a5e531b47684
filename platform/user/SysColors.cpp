// System colours with the original's default (Windows 10 era) values, and a
// stock brush for each.
#include "gdi/GdiObject.h"

#include <windows.h>

#include <wingdi.h>

#include <array>

namespace {

constexpr COLORREF Rgb(int r, int g, int b) {
    return static_cast<COLORREF>(r | (g << 8) | (b << 16));
}

constexpr std::array<COLORREF, 31> kColors = {
    Rgb(200, 200, 200), // COLOR_SCROLLBAR
    Rgb(0, 0, 0),       // COLOR_BACKGROUND
    Rgb(153, 180, 209), // COLOR_ACTIVECAPTION
    Rgb(191, 205, 219), // COLOR_INACTIVECAPTION
    Rgb(240, 240, 240), // COLOR_MENU
    Rgb(255, 255, 255), // COLOR_WINDOW
    Rgb(100, 100, 100), // COLOR_WINDOWFRAME
    Rgb(0, 0, 0),       // COLOR_MENUTEXT
    Rgb(0, 0, 0),       // COLOR_WINDOWTEXT
    Rgb(0, 0, 0),       // COLOR_CAPTIONTEXT
    Rgb(180, 180, 180), // COLOR_ACTIVEBORDER
    Rgb(244, 247, 252), // COLOR_INACTIVEBORDER
    Rgb(171, 171, 171), // COLOR_APPWORKSPACE
    Rgb(0, 120, 215),   // COLOR_HIGHLIGHT
    Rgb(255, 255, 255), // COLOR_HIGHLIGHTTEXT
    Rgb(240, 240, 240), // COLOR_BTNFACE
    Rgb(160, 160, 160), // COLOR_BTNSHADOW
    Rgb(109, 109, 109), // COLOR_GRAYTEXT
    Rgb(0, 0, 0),       // COLOR_BTNTEXT
    Rgb(0, 0, 0),       // COLOR_INACTIVECAPTIONTEXT
    Rgb(255, 255, 255), // COLOR_BTNHIGHLIGHT
    Rgb(105, 105, 105), // COLOR_3DDKSHADOW
    Rgb(227, 227, 227), // COLOR_3DLIGHT
    Rgb(0, 0, 0),       // COLOR_INFOTEXT
    Rgb(255, 255, 225), // COLOR_INFOBK
    Rgb(0, 0, 0),       // 25, unused
    Rgb(0, 102, 204),   // COLOR_HOTLIGHT
    Rgb(185, 209, 234), // COLOR_GRADIENTACTIVECAPTION
    Rgb(215, 228, 242), // COLOR_GRADIENTINACTIVECAPTION
    Rgb(51, 153, 255),  // COLOR_MENUHILIGHT
    Rgb(240, 240, 240), // COLOR_MENUBAR
};

} // namespace

DWORD GetSysColor(int index) {
    if (index < 0 || index >= static_cast<int>(kColors.size()))
        return 0;
    return kColors[static_cast<std::size_t>(index)];
}

HBRUSH GetSysColorBrush(int index) {
    // Made once and never deleted, like the system's own brushes.
    static std::array<HBRUSH, kColors.size()> brushes{};
    if (index < 0 || index >= static_cast<int>(kColors.size()))
        return nullptr;
    HBRUSH& brush = brushes[static_cast<std::size_t>(index)];
    if (!brush)
        brush = static_cast<HBRUSH>(
            platform::gdi::MakeSystemBrush(kColors[static_cast<std::size_t>(index)]));
    return brush;
}
