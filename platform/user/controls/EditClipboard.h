// The edit control's side of the clipboard: its text goes out and comes in as
// CF_UNICODETEXT (the clipboard makes CF_TEXT from it and back). Internal.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace platform::user {

// False when the clipboard cannot be opened or the memory not had.
bool PutTextOnClipboard(HWND owner, std::u16string_view text);
// Empty when the clipboard holds no text or cannot be opened.
std::u16string TextFromClipboard(HWND owner);

} // namespace platform::user
