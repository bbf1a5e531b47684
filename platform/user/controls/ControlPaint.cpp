#include "ControlPaint.h"

namespace platform::user {

void FillSolid(HDC hdc, const RECT& rect, COLORREF color) {
    HBRUSH brush = CreateSolidBrush(color);
    FillRect(hdc, &rect, brush);
    DeleteObject(brush);
}

void FrameSolid(HDC hdc, const RECT& rect, COLORREF color) {
    HBRUSH brush = CreateSolidBrush(color);
    FrameRect(hdc, &rect, brush);
    DeleteObject(brush);
}

void DottedFrame(HDC hdc, const RECT& rect, COLORREF color) {
    if (rect.right <= rect.left || rect.bottom <= rect.top)
        return;
    for (int x = rect.left; x < rect.right; x += 2) {
        SetPixel(hdc, x, rect.top, color);
        SetPixel(hdc, x, rect.bottom - 1, color);
    }
    for (int y = rect.top; y < rect.bottom; y += 2) {
        SetPixel(hdc, rect.left, y, color);
        SetPixel(hdc, rect.right - 1, y, color);
    }
}

FontScope::FontScope(HDC hdc, HFONT font)
    : m_hdc(hdc), m_old(SelectObject(hdc, font ? font : GetStockObject(SYSTEM_FONT))) {}

FontScope::~FontScope() {
    SelectObject(m_hdc, m_old);
}

HBRUSH ControlBackground(HWND control, HDC hdc, UINT ctlColorMessage) {
    HWND parent = GetParent(control);
    if (parent) {
        auto brush = reinterpret_cast<HBRUSH>(SendMessage(parent, ctlColorMessage,
                                                          reinterpret_cast<WPARAM>(hdc),
                                                          reinterpret_cast<LPARAM>(control)));
        if (brush)
            return brush;
    }
    return GetSysColorBrush(COLOR_BTNFACE);
}

} // namespace platform::user
