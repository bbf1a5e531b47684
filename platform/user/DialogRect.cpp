// MapDialogRect: dialog units to pixels through the dialog's own font.
#include <platform/DialogUnits.h>

#include <windows.h>

BOOL MapDialogRect(HWND dialog, LPRECT rect) {
    if (!rect || !IsWindow(dialog))
        return FALSE;
    auto font = reinterpret_cast<HFONT>(SendMessage(dialog, WM_GETFONT, 0, 0));
    platform::MapDialogRect(
        platform::FontBaseUnits(font ? font : static_cast<HFONT>(GetStockObject(SYSTEM_FONT))),
        rect);
    return TRUE;
}
