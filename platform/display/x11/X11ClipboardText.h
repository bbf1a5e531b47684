// Text between the clipboard's form (UTF-16, lines ending in CR LF) and the
// display's (lines ending in LF; STRING is Latin-1).
#pragma once

#include <string>
#include <string_view>

namespace platform::display::x11 {

// Lines end in CR LF: a lone LF gains a CR.
std::u16string FromDisplayText(std::u16string_view text);
// Lines end in LF: CR LF loses its CR.
std::u16string ToDisplayText(std::u16string_view text);

std::u16string FromLatin1(std::string_view text);
// A character outside Latin-1 (a surrogate pair counts as one) becomes '?'.
std::string ToLatin1(std::u16string_view text);
bool FitsLatin1(std::u16string_view text);

} // namespace platform::display::x11
