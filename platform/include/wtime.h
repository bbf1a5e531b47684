// The original runtime's wcsftime, for UTF-16 text: "C"-locale names and
// formats, the '#' flag, and no C99 specifiers. An unknown specifier or a year
// the runtime cannot format gives an empty result and 0; so does a result
// that does not fit in max characters (terminator included).
#pragma once

#include "windef.h"

#include <ctime>

std::size_t wcsftime(WCHAR* out, std::size_t max, const WCHAR* format, const struct tm* time);
