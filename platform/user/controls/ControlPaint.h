// Drawing helpers shared by the standard controls and the window's own parts
// (caption, menus): flat fills, frames and lines in the system's colours, the
// dotted focus frame, and the fonts.
#pragma once

#include <windows.h>

#include <wingdi.h>

namespace platform::user {

void FillSolid(HDC hdc, const RECT& rect, COLORREF color);
// A one-pixel frame inside rect.
void FrameSolid(HDC hdc, const RECT& rect, COLORREF color);
// The keyboard focus frame: every other pixel of a one-pixel frame.
void DottedFrame(HDC hdc, const RECT& rect, COLORREF color);
// A solid line one pixel wide from (x0, y0) to (x1, y1), end point left out.
void StrokeLine(HDC hdc, int x0, int y0, int x1, int y1, COLORREF color);

// A new font of the flat look's interface text (Segoe UI, 12 pixels); each
// part that uses it makes its own once and keeps it, as the system keeps its
// caption, menu and status fonts.
HFONT CreateInterfaceFont();

// A position summed in 64 bits (column edges, whose widths may each be as
// large as an int), held within what a device addresses: 2^27 either way.
int DeviceCoord(long long position);

// Selects a control's font (the system font when it has none) for the
// lifetime of the object.
class FontScope {
public:
    FontScope(HDC hdc, HFONT font);
    ~FontScope();
    FontScope(const FontScope&) = delete;
    FontScope& operator=(const FontScope&) = delete;

private:
    HDC m_hdc;
    HGDIOBJ m_old;
};

// The brush the parent gives for a control's background (WM_CTLCOLOR...),
// or the button face.
HBRUSH ControlBackground(HWND control, HDC hdc, UINT ctlColorMessage);

} // namespace platform::user
