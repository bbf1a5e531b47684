#include "ControlPaint.h"

#include <algorithm>
#include <iterator>

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

void StrokeLine(HDC hdc, int x0, int y0, int x1, int y1, COLORREF color) {
    HPEN pen = CreatePen(PS_SOLID, 1, color);
    HGDIOBJ old = SelectObject(hdc, pen);
    MoveToEx(hdc, x0, y0, nullptr);
    LineTo(hdc, x1, y1);
    SelectObject(hdc, old);
    DeleteObject(pen);
}

HFONT CreateInterfaceFont() {
    LOGFONTW lf{};
    lf.lfHeight = -12;
    lf.lfWeight = FW_NORMAL;
    const char16_t face[] = u"Segoe UI";
    std::copy(std::begin(face), std::end(face), lf.lfFaceName);
    return CreateFontIndirect(&lf);
}

void DottedFrame(HDC hdc, const RECT& rect, COLORREF color) {
    if (rect.right <= rect.left || rect.bottom <= rect.top)
        return;
    // Only the dots inside the clip box are set (a frame may be far wider than
    // any window); they keep the phase of the frame's corner.
    RECT clip{};
    if (GetClipBox(hdc, &clip) == ERROR)
        return;
    auto firstDot = [](long long from, long long clipFrom) {
        return from >= clipFrom ? from : from + (clipFrom - from + 1) / 2 * 2;
    };
    const long long xEnd = std::min<long long>(rect.right, clip.right);
    for (long long x = firstDot(rect.left, clip.left); x < xEnd; x += 2) {
        SetPixel(hdc, static_cast<int>(x), rect.top, color);
        SetPixel(hdc, static_cast<int>(x), rect.bottom - 1, color);
    }
    const long long yEnd = std::min<long long>(rect.bottom, clip.bottom);
    for (long long y = firstDot(rect.top, clip.top); y < yEnd; y += 2) {
        SetPixel(hdc, rect.left, static_cast<int>(y), color);
        SetPixel(hdc, rect.right - 1, static_cast<int>(y), color);
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

int DeviceCoord(long long position) {
    constexpr long long kLimit = 1 << 27;
    return static_cast<int>(std::clamp(position, -kLimit, kLimit));
}

} // namespace platform::user
