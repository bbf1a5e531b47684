// The runtime's number readers, by hand: the C library's accept forms (nan,
// inf, hexadecimal) and a decimal point that the original runtime did not.
#include "tchar.h"

#include <climits>
#include <clocale>
#include <locale.h>
#include <string>

#undef atof

namespace {

template <typename Char> bool IsSpace(Char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

template <typename Char> bool IsDigit(Char c) {
    return c >= '0' && c <= '9';
}

} // namespace

int _wtoi(const WCHAR* text) {
    if (!text)
        return 0;
    const WCHAR* p = text;
    while (IsSpace(*p))
        ++p;
    const bool negative = *p == u'-';
    if (*p == u'-' || *p == u'+')
        ++p;
    long long value = 0;
    for (; IsDigit(*p); ++p) {
        value = value * 10 + (*p - u'0');
        if (value > static_cast<long long>(INT_MAX) + 1)
            value = static_cast<long long>(INT_MAX) + 1;
    }
    if (negative)
        return static_cast<int>(-value);
    return value > INT_MAX ? INT_MAX : static_cast<int>(value);
}

namespace platform {

double atof(const char* text) {
    if (!text)
        return 0.0;
    const char* p = text;
    while (IsSpace(*p))
        ++p;
    // The longest prefix that is a number, copied for the conversion.
    std::string number;
    if (*p == '-' || *p == '+')
        number.push_back(*p++);
    int digits = 0;
    for (; IsDigit(*p); ++p, ++digits)
        number.push_back(*p);
    if (*p == '.') {
        number.push_back(*p++);
        for (; IsDigit(*p); ++p, ++digits)
            number.push_back(*p);
    }
    if (digits == 0)
        return 0.0;
    if (*p == 'e' || *p == 'E') {
        const char* q = p + 1;
        if (*q == '-' || *q == '+')
            ++q;
        if (IsDigit(*q)) {
            number.append(p, q);
            for (; IsDigit(*q); ++q)
                number.push_back(*q);
        }
    }
    // Correct rounding from the C library, always with a full stop.
    static const locale_t c = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(0));
    return strtod_l(number.c_str(), nullptr, c);
}

} // namespace platform
