// Splits date text into the tokens the date reader resolves: numbers, month
// names, AM and PM, and the time and date separators. Day names, commas and
// white space carry no meaning and leave no token.
#pragma once

#include "windef.h"

#include <vector>

namespace platform {

struct DateToken {
    enum Kind { Number, Month, Am, Pm, TimeSeparator, DateSeparator };
    Kind kind;
    // A number's value (capped at kNumberCap), a month from 1 to 12, or 1 for
    // a time separator written as a full stop.
    int value;
};

// Numbers larger than this are never a valid field; the cap keeps the
// arithmetic away from overflow.
constexpr int kNumberCap = 1000000;

// False when the text holds a character or word that has no place in a date.
// Reads up to the terminating zero and no further.
bool TokenizeDate(const WCHAR* text, std::vector<DateToken>& tokens);

} // namespace platform
