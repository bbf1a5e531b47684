// The keyboard: a US layout that turns virtual keys into characters, and the
// state of the keys as the thread has retrieved their messages. Internal to
// the platform.
#pragma once

#include <windows.h>

#include <vector>

namespace platform::user {

// One key press of the layout: the virtual key and whether Shift is held.
struct KeyStroke {
    UINT vk;
    bool shift;
};

// How a character is typed: one key, with or without Shift, or VK_PACKET for
// a character the layout has no key for.
KeyStroke StrokeFor(WCHAR ch);

// The lParam of a key message: repeat count 1, and for VK_PACKET the
// character in the high word, where the original puts it.
LPARAM KeyDownParam(UINT vk, WCHAR ch);
LPARAM KeyUpParam(UINT vk, WCHAR ch);

// Posts a key going down or up to the window with the focus, else the active
// window, as the keyboard does. False when no window takes keys.
bool PostKeyToFocus(bool down, UINT vk, WCHAR ch);

// Records a retrieved key message in the key state table.
void NoteKeyMessage(const MSG& msg);

} // namespace platform::user
