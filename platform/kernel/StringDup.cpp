#include "tchar.h"

#include <cstdlib>
#include <cstring>
#include <string>

WCHAR* _wcsdup(const WCHAR* text) {
    if (!text)
        return nullptr;
    const std::size_t size = (std::char_traits<WCHAR>::length(text) + 1) * sizeof(WCHAR);
    auto* copy = static_cast<WCHAR*>(std::malloc(size));
    if (copy)
        std::memcpy(copy, text, size);
    return copy;
}
