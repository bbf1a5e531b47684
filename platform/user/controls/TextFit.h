// Single-line cell text cut to a width with a trailing ellipsis, as list and
// header cells show text that does not fit.
#pragma once

#include <windows.h>

#include <wingdi.h>

#include <string_view>

namespace platform::user {

// Draws text on one line inside rect (left, centred or right by align:
// 0, DT_CENTER or DT_RIGHT), vertically centred, ending in "..." when cut.
void DrawCellText(HDC hdc, std::u16string_view text, const RECT& rect, UINT align);

} // namespace platform::user
