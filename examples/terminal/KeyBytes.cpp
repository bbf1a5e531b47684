#include "KeyBytes.h"

namespace key_bytes {
namespace {

void AppendUtf8(std::string& out, char32_t code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (code >> 18));
        out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

} // namespace

std::string ForChar(WCHAR ch, WCHAR* pendingHigh) {
    std::string out;
    const WCHAR high = *pendingHigh;
    *pendingHigh = 0;
    if (ch >= 0xD800 && ch <= 0xDBFF) {
        *pendingHigh = ch;
        return out;
    }
    if (ch >= 0xDC00 && ch <= 0xDFFF) {
        if (high)
            AppendUtf8(out, 0x10000 + ((static_cast<char32_t>(high) - 0xD800) << 10) +
                                (static_cast<char32_t>(ch) - 0xDC00));
        return out;
    }
    // The key above Enter erases with DEL on a VT100.
    AppendUtf8(out, ch == u'\b' ? 0x7F : static_cast<char32_t>(ch));
    return out;
}

std::string ForKey(UINT vk, bool applicationCursorKeys) {
    const char* cursorPrefix = applicationCursorKeys ? "\x1bO" : "\x1b[";
    switch (vk) {
    case VK_UP:
        return std::string(cursorPrefix) + 'A';
    case VK_DOWN:
        return std::string(cursorPrefix) + 'B';
    case VK_RIGHT:
        return std::string(cursorPrefix) + 'C';
    case VK_LEFT:
        return std::string(cursorPrefix) + 'D';
    case VK_HOME:
        return "\x1b[1~";
    case VK_INSERT:
        return "\x1b[2~";
    case VK_DELETE:
        return "\x1b[3~";
    case VK_END:
        return "\x1b[4~";
    case VK_PRIOR:
        return "\x1b[5~";
    case VK_NEXT:
        return "\x1b[6~";
    case VK_F1:
    case VK_F2:
    case VK_F3:
    case VK_F4:
        return std::string("\x1bO") + static_cast<char>('P' + (vk - VK_F1));
    default:
        return std::string();
    }
}

} // namespace key_bytes
