// What a VT100 keyboard sends for a key: the bytes a terminal window writes to
// its program for the characters typed and for the keys that type none.
#pragma once

#include <windows.h>

#include <string>

namespace key_bytes {

// The bytes of a typed character (WM_CHAR): UTF-8, with Backspace sent as
// DEL. A high surrogate is held in *pendingHigh until its low half arrives;
// an unpaired half is dropped.
std::string ForChar(WCHAR ch, WCHAR* pendingHigh);

// The bytes of a key that types no character (WM_KEYDOWN): the cursor keys
// (ESC [ A..D, or ESC O A..D in application cursor-key mode), Home, End,
// Insert, Delete, Page Up and Page Down as ESC [ n ~, F1 to F4 as ESC O P..S.
// Empty for any other key, which WM_CHAR then carries.
std::string ForKey(UINT vk, bool applicationCursorKeys);

} // namespace key_bytes
