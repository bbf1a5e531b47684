// Dialog base units of a font, measured on the screen.
#include <platform/DialogUnits.h>

#include <windows.h>
#include <wingdi.h>

namespace platform {

SIZE DialogBaseUnits(HFONT font) {
    static const WCHAR kLetters[] = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    HDC screen = GetDC(nullptr);
    HGDIOBJ old = SelectObject(screen, font ? font : GetStockObject(SYSTEM_FONT));
    SIZE extent{0, 0};
    GetTextExtentPoint32(screen, kLetters, 52, &extent);
    TEXTMETRIC tm{};
    GetTextMetrics(screen, &tm);
    SelectObject(screen, old);
    ReleaseDC(nullptr, screen);
    return SIZE{(extent.cx / 26 + 1) / 2, tm.tmHeight};
}

} // namespace platform

BOOL MapDialogRect(HWND dialog, LPRECT rect) {
    if (!rect || !IsWindow(dialog))
        return FALSE;
    HFONT font = reinterpret_cast<HFONT>(SendMessage(dialog, WM_GETFONT, 0, 0));
    SIZE base = platform::DialogBaseUnits(font);
    rect->left = MulDiv(rect->left, base.cx, 4);
    rect->right = MulDiv(rect->right, base.cx, 4);
    rect->top = MulDiv(rect->top, base.cy, 8);
    rect->bottom = MulDiv(rect->bottom, base.cy, 8);
    return TRUE;
}
