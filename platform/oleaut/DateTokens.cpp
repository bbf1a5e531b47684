#include "oleaut/DateTokens.h"

namespace platform {

namespace {

// English (US) names. Full names come before the abbreviations so the longest
// name at a position wins.
const char* const kMonthNames[] = {"january",   "february", "march",    "april",
                                   "may",       "june",     "july",     "august",
                                   "september", "october",  "november", "december"};
const char* const kMonthAbbreviations[] = {"jan", "feb", "mar", "apr", "may", "jun",
                                           "jul", "aug", "sep", "oct", "nov", "dec"};
const char* const kDayNames[] = {"sunday",   "monday", "tuesday", "wednesday",
                                 "thursday", "friday", "saturday"};
const char* const kDayAbbreviations[] = {"sun", "mon", "tue", "wed", "thu", "fri", "sat"};

bool IsLetter(WCHAR c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool IsDigit(WCHAR c) {
    return c >= u'0' && c <= u'9';
}

bool IsNeutral(WCHAR c) {
    return c == u' ' || (c >= u'\t' && c <= u'\r') || c == u',' || c == 0xA0 || c == 0x3000;
}

WCHAR Lower(WCHAR c) {
    return c >= u'A' && c <= u'Z' ? static_cast<WCHAR>(c - u'A' + u'a') : c;
}

// The length of name when the text starts with it, ignoring case; 0 otherwise.
// Stops at the first difference, so it never reads past the terminator.
int MatchName(const WCHAR* text, const char* name) {
    int i = 0;
    for (; name[i]; ++i) {
        if (Lower(text[i]) != static_cast<WCHAR>(name[i]))
            return 0;
    }
    return i;
}

// The index of the first name of the list that starts the text, or -1; its
// length goes to length.
int MatchList(const WCHAR* text, const char* const* names, int count, int& length) {
    for (int i = 0; i < count; ++i) {
        length = MatchName(text, names[i]);
        if (length > 0)
            return i;
    }
    return -1;
}

} // namespace

bool TokenizeDate(const WCHAR* text, std::vector<DateToken>& tokens) {
    tokens.clear();
    const WCHAR* p = text;
    while (*p) {
        const WCHAR c = *p;
        if (IsNeutral(c)) {
            ++p;
        } else if (IsDigit(c)) {
            int value = 0;
            for (; IsDigit(*p); ++p)
                value = value >= kNumberCap ? kNumberCap : value * 10 + (*p - u'0');
            tokens.push_back({DateToken::Number, value > kNumberCap ? kNumberCap : value});
        } else if (c == u':' || c == u'.') {
            tokens.push_back({DateToken::TimeSeparator, c == u'.' ? 1 : 0});
            ++p;
        } else if (c == u'/' || c == u'-') {
            tokens.push_back({DateToken::DateSeparator, 0});
            ++p;
        } else if (IsLetter(c)) {
            int length = 0;
            int index = MatchList(p, kMonthNames, 12, length);
            if (index < 0)
                index = MatchList(p, kMonthAbbreviations, 12, length);
            if (index >= 0) {
                tokens.push_back({DateToken::Month, index + 1});
                p += length;
                continue;
            }
            if (MatchList(p, kDayNames, 7, length) >= 0 ||
                MatchList(p, kDayAbbreviations, 7, length) >= 0) {
                p += length;
                continue;
            }
            const bool afterNumber = !tokens.empty() && tokens.back().kind == DateToken::Number;
            const WCHAR lower = Lower(c);
            if (lower != u'a' && lower != u'p')
                return false;
            // "AM" and "PM" anywhere; the bare letter only after a number.
            const bool full = Lower(p[1]) == u'm';
            if (!full && !afterNumber)
                return false;
            tokens.push_back({lower == u'a' ? DateToken::Am : DateToken::Pm, 0});
            p += full ? 2 : 1;
        } else {
            return false;
        }
    }
    return true;
}

} // namespace platform
