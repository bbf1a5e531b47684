// Base units measured with the platform's own fonts, so dialogs scale with
// the faces the alias table gives them.
#include "platform/DialogUnits.h"

#include "winbase.h"
#include "wingdi.h"

#include <algorithm>

namespace platform {

DialogBaseUnits FontBaseUnits(HFONT font) {
    DialogBaseUnits units;
    HDC dc = CreateCompatibleDC(nullptr);
    if (!dc)
        return units;
    HGDIOBJ old = SelectObject(dc, font);
    static const WCHAR kLetters[] = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    SIZE extent{};
    TEXTMETRICW tm{};
    if (GetTextExtentPoint32W(dc, kLetters, 52, &extent) && GetTextMetricsW(dc, &tm)) {
        units.cx = (extent.cx / 26 + 1) / 2;
        units.cy = tm.tmHeight;
    }
    SelectObject(dc, old);
    DeleteDC(dc);
    return units;
}

DialogBaseUnits TemplateBaseUnits(const DialogTemplate& dialog) {
    if (dialog.pointSize == 0 || dialog.faceName.empty())
        return FontBaseUnits(static_cast<HFONT>(GetStockObject(SYSTEM_FONT)));
    LOGFONTW lf{};
    lf.lfHeight = -MulDiv(dialog.pointSize, 96, 72);
    lf.lfWeight = dialog.weight;
    lf.lfItalic = dialog.italic;
    lf.lfCharSet = dialog.charSet;
    const std::size_t n = std::min<std::size_t>(dialog.faceName.size(), LF_FACESIZE - 1);
    std::copy_n(dialog.faceName.data(), n, lf.lfFaceName);
    HFONT font = CreateFontIndirectW(&lf);
    if (!font)
        return {};
    const DialogBaseUnits units = FontBaseUnits(font);
    DeleteObject(font);
    return units;
}

void MapDialogRect(const DialogBaseUnits& units, RECT* rect) {
    if (!rect)
        return;
    rect->left = MulDiv(rect->left, units.cx, 4);
    rect->right = MulDiv(rect->right, units.cx, 4);
    rect->top = MulDiv(rect->top, units.cy, 8);
    rect->bottom = MulDiv(rect->bottom, units.cy, 8);
}

RECT DialogItemRect(const DialogBaseUnits& units, const DialogItemTemplate& item) {
    // The dialog manager scales the position and the size each on its own.
    RECT r;
    r.left = MulDiv(item.x, units.cx, 4);
    r.top = MulDiv(item.y, units.cy, 8);
    r.right = r.left + MulDiv(item.cx, units.cx, 4);
    r.bottom = r.top + MulDiv(item.cy, units.cy, 8);
    return r;
}

} // namespace platform
