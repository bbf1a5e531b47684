#include "display/x11/X11ClipboardText.h"

#include <algorithm>

namespace platform::display::x11 {

std::u16string FromDisplayText(std::u16string_view text) {
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'\n' && (i == 0 || text[i - 1] != u'\r'))
            out += u'\r';
        out += text[i];
    }
    return out;
}

std::u16string ToDisplayText(std::u16string_view text) {
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i)
        if (!(text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n'))
            out += text[i];
    return out;
}

std::u16string FromLatin1(std::string_view text) {
    std::u16string out(text.size(), u'\0');
    std::transform(text.begin(), text.end(), out.begin(),
                   [](char c) { return static_cast<char16_t>(static_cast<unsigned char>(c)); });
    return out;
}

std::string ToLatin1(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (c < 0x100) {
            out += static_cast<char>(c);
            continue;
        }
        out += '?';
        if (c >= 0xD800 && c < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
            text[i + 1] < 0xE000)
            ++i;
    }
    return out;
}

bool FitsLatin1(std::u16string_view text) {
    return std::all_of(text.begin(), text.end(), [](char16_t c) { return c < 0x100; });
}

} // namespace platform::display::x11
