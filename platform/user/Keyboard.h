// The keyboard: a US layout that turns virtual keys into characters, and the
// state of the keys as the thread has retrieved their messages. Internal to
// the platform.
#pragma once

#include <windows.h>

#include <string_view>
#include <vector>

namespace platform::user {

// The character a key types with or without Shift and Ctrl, 0 for none.
WCHAR CharacterFor(UINT vk, bool shift, bool control);

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
// window, as the keyboard does; alt: Alt is held (without Ctrl, which makes
// Ctrl+Alt a character key). False when no window takes keys.
bool PostKeyToFocus(bool down, UINT vk, WCHAR ch, bool alt = false);

// The character a text's '&' underlines, upper-cased (a to z only), or 0;
// "&&" is a plain '&'. A '\t' ends the text (a menu item's accelerator).
WCHAR MnemonicOf(std::u16string_view text);
// Whether two characters are the same mnemonic.
bool SameMnemonic(WCHAR a, WCHAR b);

// Records a retrieved message: a key's in the key state table, and whether
// Alt was tapped alone (a key going down or a mouse button ends the tap).
void NoteKeyMessage(const MSG& msg);
// True, once, when Alt went down outside a menu and nothing was pressed
// since: its release then selects the menu bar.
bool TakeAltTap();
// Ends an Alt tap the keyboard is in the middle of (the keyboard or the
// mouse went elsewhere): the release it posts next selects nothing.
void ForgetAltTap();

} // namespace platform::user
