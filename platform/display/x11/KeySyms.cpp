// Key symbols: Latin-1 ones are their characters, the function keys sit at
// 0xFF00 and up, and any other Unicode character is 0x01000000 plus its
// code point.
#include "display/x11/KeySyms.h"

#include "user/Keyboard.h"

#include <winuser.h>

namespace platform::display::x11 {
namespace {

struct Named {
    uint32_t keysym;
    UINT vk;
};

constexpr Named kNamedKeys[] = {
    {0xFF08, VK_BACK},   {0xFF09, VK_TAB},     {0xFF0D, VK_RETURN},   {0xFF8D, VK_RETURN},
    {0xFF1B, VK_ESCAPE}, {0xFFFF, VK_DELETE},  {0xFF50, VK_HOME},     {0xFF51, VK_LEFT},
    {0xFF52, VK_UP},     {0xFF53, VK_RIGHT},   {0xFF54, VK_DOWN},     {0xFF55, VK_PRIOR},
    {0xFF56, VK_NEXT},   {0xFF57, VK_END},     {0xFF63, VK_INSERT},   {0xFFE1, VK_SHIFT},
    {0xFFE2, VK_SHIFT},  {0xFFE3, VK_CONTROL}, {0xFFE4, VK_CONTROL},  {0xFFE9, VK_MENU},
    {0xFFEA, VK_MENU},   {0xFF13, VK_PAUSE},   {0xFF61, VK_SNAPSHOT}, {0xFF67, VK_APPS},
    {0xFE20, VK_TAB},
};

} // namespace

WCHAR CharacterFor(uint32_t keysym) {
    if ((keysym >= 0x20 && keysym <= 0x7E) || (keysym >= 0xA0 && keysym <= 0xFF))
        return static_cast<WCHAR>(keysym);
    if (keysym >= 0x01000000 && keysym <= 0x0100FFFF)
        return static_cast<WCHAR>(keysym - 0x01000000);
    switch (keysym) {
    case 0xFF08:
        return u'\b';
    case 0xFF09:
        return u'\t';
    case 0xFF0D:
    case 0xFF8D:
        return u'\r';
    case 0xFF1B:
        return 0x1B;
    default:
        return 0;
    }
}

UINT VirtualKeyFor(uint32_t keysym) {
    for (const Named& named : kNamedKeys)
        if (named.keysym == keysym)
            return named.vk;
    // F1 to F24 follow one another in both numberings.
    if (keysym >= 0xFFBE && keysym <= 0xFFD5)
        return VK_F1 + (keysym - 0xFFBE);
    // The keypad's digits.
    if (keysym >= 0xFFB0 && keysym <= 0xFFB9)
        return 0x60 /* VK_NUMPAD0 */ + (keysym - 0xFFB0);
    WCHAR ch = CharacterFor(keysym);
    if (!ch)
        return 0;
    return user::StrokeFor(ch).vk;
}

} // namespace platform::display::x11
