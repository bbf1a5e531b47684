// Building dialog templates in tests, as a resource script would declare them.
#pragma once

#include <platform/ResourceTemplates.h>
#include <windows.h>

namespace testing_support {

// A visible child control of a template, in dialog units.
inline platform::DialogItemTemplate DialogItem(const char16_t* cls, const char16_t* text, UINT id,
                                               DWORD style, short x, short y, short cx, short cy) {
    platform::DialogItemTemplate item;
    item.className = cls;
    item.text = text;
    item.id = id;
    item.style = WS_CHILD | WS_VISIBLE | style;
    item.x = x;
    item.y = y;
    item.cx = cx;
    item.cy = cy;
    return item;
}

} // namespace testing_support
