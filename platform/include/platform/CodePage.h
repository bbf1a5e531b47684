// Choosing the ANSI code page that the narrow-text conversions use, and UTF-8
// copies of UTF-16 text.
#pragma once

#include "../atlstr.h"
#include "../windef.h"

#include <string>
#include <string_view>

namespace platform {
// 1252 by default; CP_ACP goes back to it.
void SetAnsiCodePage(UINT codePage);

// UTF-8 copies of UTF-16 text, for file names and diagnostics (unpaired
// surrogates become U+FFFD).
std::string ToUtf8(std::u16string_view text);
CString FromUtf8(std::string_view text);
} // namespace platform
