// The display's key symbols as the original's virtual keys and characters.
#pragma once

#include <windef.h>

#include <cstdint>

namespace platform::display::x11 {

// The virtual key of a key symbol; 0 for one the keyboard has no key for.
// A character that the US layout cannot type maps to VK_PACKET.
UINT VirtualKeyFor(uint32_t keysym);
// The character a key symbol types; 0 for keys that type none.
WCHAR CharacterFor(uint32_t keysym);

} // namespace platform::display::x11
