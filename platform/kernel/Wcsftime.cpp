// wcsftime as the original runtime does it in the "C" locale, written by hand
// because the C library's formats and flags differ.
#include "wtime.h"

#include <string>

namespace {

const char* const kDays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                             "Thursday", "Friday", "Saturday"};
const char* const kMonths[] = {"January",   "February", "March",    "April",
                               "May",       "June",     "July",     "August",
                               "September", "October",  "November", "December"};

class Formatter {
public:
    explicit Formatter(const struct tm& tm) : m_tm(tm) {}

    // False when the specifier is unknown or its field is out of range.
    bool Spec(char16_t c, bool alt) {
        const struct tm& t = m_tm;
        switch (c) {
        case u'a':
            return Day() && Text(std::string(kDays[t.tm_wday]).substr(0, 3));
        case u'A':
            return Day() && Text(kDays[t.tm_wday]);
        case u'b':
            return Month() && Text(std::string(kMonths[t.tm_mon]).substr(0, 3));
        case u'B':
            return Month() && Text(kMonths[t.tm_mon]);
        case u'c':
            if (alt)
                return LongDate() && Text(" ") && Time();
            return ShortDate() && Text(" ") && Time();
        case u'd':
            return In(t.tm_mday, 1, 31) && Num(t.tm_mday, 2, alt);
        case u'H':
            return In(t.tm_hour, 0, 23) && Num(t.tm_hour, 2, alt);
        case u'I':
            return In(t.tm_hour, 0, 23) && Num(t.tm_hour % 12 == 0 ? 12 : t.tm_hour % 12, 2, alt);
        case u'j':
            return In(t.tm_yday, 0, 365) && Num(t.tm_yday + 1, 3, alt);
        case u'm':
            return Month() && Num(t.tm_mon + 1, 2, alt);
        case u'M':
            return In(t.tm_min, 0, 59) && Num(t.tm_min, 2, alt);
        case u'p':
            return In(t.tm_hour, 0, 23) && Text(t.tm_hour < 12 ? "AM" : "PM");
        case u'S':
            return In(t.tm_sec, 0, 60) && Num(t.tm_sec, 2, alt);
        case u'U':
            return Day() && In(t.tm_yday, 0, 365) && Num((t.tm_yday + 7 - t.tm_wday) / 7, 2, alt);
        case u'w':
            return Day() && Num(t.tm_wday, 1, alt);
        case u'W':
            return Day() && In(t.tm_yday, 0, 365) &&
                   Num((t.tm_yday + 7 - (t.tm_wday + 6) % 7) / 7, 2, alt);
        case u'x':
            return alt ? LongDate() : ShortDate();
        case u'X':
            return Time();
        case u'y':
            return In(t.tm_year, 0, 8099) && Num(t.tm_year % 100, 2, alt);
        case u'Y':
            return In(t.tm_year, -1900, 8099) && Num(t.tm_year + 1900, 4, alt);
        case u'z':
        case u'Z':
            return Text(t.tm_zone ? t.tm_zone : "");
        case u'%':
            m_out.push_back(u'%');
            return true;
        default:
            return false;
        }
    }

    void Literal(char16_t c) { m_out.push_back(c); }
    const std::u16string& Out() const { return m_out; }

private:
    static bool In(int v, int lo, int hi) { return v >= lo && v <= hi; }
    bool Day() const { return In(m_tm.tm_wday, 0, 6); }
    bool Month() const { return In(m_tm.tm_mon, 0, 11); }

    bool Text(const std::string& s) {
        m_out.append(s.begin(), s.end());
        return true;
    }
    // Zero-padded to width, or without leading zeros under the '#' flag.
    bool Num(int v, int width, bool alt) {
        std::string digits = std::to_string(v);
        if (!alt && static_cast<int>(digits.size()) < width)
            digits.insert(0, static_cast<std::size_t>(width) - digits.size(), '0');
        return Text(digits);
    }
    // MM/dd/yy
    bool ShortDate() {
        return Spec(u'm', false) && Text("/") && Spec(u'd', false) && Text("/") &&
               Spec(u'y', false);
    }
    // dddd, MMMM dd, yyyy
    bool LongDate() {
        return Spec(u'A', false) && Text(", ") && Spec(u'B', false) && Text(" ") &&
               Spec(u'd', false) && Text(", ") && Spec(u'Y', false);
    }
    // HH:mm:ss
    bool Time() {
        return Spec(u'H', false) && Text(":") && Spec(u'M', false) && Text(":") &&
               Spec(u'S', false);
    }

    const struct tm& m_tm;
    std::u16string m_out;
};

} // namespace

std::size_t wcsftime(WCHAR* out, std::size_t max, const WCHAR* format, const struct tm* time) {
    if (!out || max == 0)
        return 0;
    out[0] = u'\0';
    if (!format || !time)
        return 0;
    Formatter f(*time);
    for (const WCHAR* p = format; *p; ++p) {
        if (*p != u'%') {
            f.Literal(*p);
            continue;
        }
        ++p;
        bool alt = false;
        if (*p == u'#') {
            alt = true;
            ++p;
        }
        if (!*p || !f.Spec(*p, alt))
            return 0;
    }
    const std::u16string& s = f.Out();
    if (s.size() + 1 > max)
        return 0;
    s.copy(out, s.size());
    out[s.size()] = u'\0';
    return s.size();
}
