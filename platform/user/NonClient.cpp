// The default drawing of the non-client area: the frame, the caption bar with
// the window's text and the close box, and the client edges. A flat,
// Windows 10-like look: a white caption, dark text (grey when inactive), and
// a one-pixel outline in the accent colour around the active window.
#include "Menus.h"
#include "Sizing.h"
#include "WindowManager.h"

#include "controls/ControlPaint.h"

#include <wingdi.h>

namespace platform::user {
namespace {

constexpr COLORREF kCaptionFace = RGB(255, 255, 255);
constexpr COLORREF kActiveOutline = RGB(0, 120, 215);
constexpr COLORREF kInactiveOutline = RGB(170, 170, 170);
constexpr COLORREF kInactiveText = RGB(153, 153, 153);
constexpr int kTextIndent = 8;

HFONT CaptionFont() {
    static HFONT font = CreateInterfaceFont();
    return font;
}

// A sunken 3-D edge one pixel wide inside r: dark on the top and left,
// light on the bottom and right.
void Sunken(HDC hdc, const RECT& r, COLORREF dark, COLORREF light) {
    FillSolid(hdc, RECT{r.left, r.top, r.right, r.top + 1}, dark);
    FillSolid(hdc, RECT{r.left, r.top, r.left + 1, r.bottom}, dark);
    FillSolid(hdc, RECT{r.left, r.bottom - 1, r.right, r.bottom}, light);
    FillSolid(hdc, RECT{r.right - 1, r.top + 1, r.right, r.bottom}, light);
}

void DrawCloseBox(HDC hdc, const RECT& box, COLORREF color) {
    int cx = (box.left + box.right) / 2;
    int cy = (box.top + box.bottom) / 2;
    // A 10 by 10 cross: two diagonals, end points left out.
    StrokeLine(hdc, cx - 5, cy - 5, cx + 5, cy + 5, color);
    StrokeLine(hdc, cx + 4, cy - 5, cx - 6, cy + 5, color);
}

void DrawCaption(HDC hdc, const Window* window, const RECT& bar) {
    FillSolid(hdc, bar, kCaptionFace);
    COLORREF ink = window->ncActive ? GetSysColor(COLOR_CAPTIONTEXT) : kInactiveText;
    RECT text{bar.left + kTextIndent, bar.top, bar.right - 4, bar.bottom};
    if (window->style & WS_SYSMENU) {
        const RECT box = CloseBoxRect(window);
        DrawCloseBox(hdc, box, ink);
        text.right = box.left - 4;
    }
    HGDIOBJ oldFont = SelectObject(hdc, CaptionFont());
    SetTextColor(hdc, ink);
    SetBkMode(hdc, TRANSPARENT);
    DrawText(hdc, window->text.c_str(), static_cast<int>(window->text.size()), &text,
             DT_SINGLELINE | DT_VCENTER | DT_LEFT | DT_NOPREFIX);
    SelectObject(hdc, oldFont);
}

} // namespace

void PaintNonClient(Window* window) {
    if (!window->HasFrame())
        return;
    HDC hdc = GetWindowDC(window->handle);
    if (!hdc)
        return;
    const int width = window->Width();
    const int height = window->Height();
    const bool clientEdge = (window->exStyle & WS_EX_CLIENTEDGE) != 0;
    const int edge = clientEdge ? GetSystemMetrics(SM_CXEDGE) : 0;
    const int band = window->frame.left - edge; // the frame's own width
    const int top = window->frame.top - edge;   // frame and caption
    const bool caption = (window->style & WS_CAPTION) == WS_CAPTION;
    const bool staticEdge = (window->exStyle & WS_EX_STATICEDGE) &&
                            !(window->exStyle & WS_EX_DLGMODALFRAME) && band == 1;

    if (band > 0) {
        COLORREF face = caption ? kCaptionFace : GetSysColor(COLOR_BTNFACE);
        FillSolid(hdc, RECT{0, 0, width, top}, face);
        FillSolid(hdc, RECT{0, height - band, width, height}, face);
        FillSolid(hdc, RECT{0, top, band, height - band}, face);
        FillSolid(hdc, RECT{width - band, top, width, height - band}, face);
        RECT outer{0, 0, width, height};
        if (staticEdge)
            Sunken(hdc, outer, GetSysColor(COLOR_BTNSHADOW), GetSysColor(COLOR_BTNHIGHLIGHT));
        else if (caption)
            FrameSolid(hdc, outer, window->ncActive ? kActiveOutline : kInactiveOutline);
        else
            FrameSolid(hdc, outer, GetSysColor(COLOR_WINDOWFRAME));
    }
    if (caption)
        DrawCaption(hdc, window,
                    RECT{band, band, width - band, band + GetSystemMetrics(SM_CYCAPTION) - 1});
    if (const Menu* menu = window->style & WS_CHILD ? nullptr : FindMenu(window->menu)) {
        const TrackedPopup* tracking = CurrentPopup();
        const int open = OpenMenuBarItem(window->handle);
        PaintMenuBar(hdc, *menu, MenuBarRect(window), MaximizedMdiChild(window) != nullptr, open,
                     open >= 0 && tracking->cues);
    }
    if (clientEdge) {
        RECT r{band, top, width - band, height - band};
        Sunken(hdc, r, GetSysColor(COLOR_BTNSHADOW), GetSysColor(COLOR_BTNHIGHLIGHT));
        RECT inner{r.left + 1, r.top + 1, r.right - 1, r.bottom - 1};
        Sunken(hdc, inner, GetSysColor(COLOR_3DDKSHADOW), GetSysColor(COLOR_3DLIGHT));
    }
    ReleaseDC(window->handle, hdc);
}

} // namespace platform::user
