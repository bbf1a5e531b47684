// Takes arbitrary bytes as date text (the first byte chooses single-byte or
// UTF-16 units and the flags) and as number text. A date that reads must be a
// finite DATE within 1 January 100 to 31 December 9999 and honour the flags;
// failures must be the reader's error codes; the number readers must never
// give NaN or a value from text without digits. Any other outcome traps.
#include <afxdisp.h>
#include <tchar.h>

#include "platform/Clock.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace {

void Check(bool condition) {
    if (!condition)
        __builtin_trap();
}

// Two-number dates fall in the current year: a fixed one keeps runs repeatable.
const bool g_pinned = [] {
    platform::PinLocalClock(2024, 6, 15, 12, 0);
    return true;
}();

void CheckDate(const std::vector<WCHAR>& text, ULONG flags) {
    DATE date = 0;
    const HRESULT hr = VarDateFromStr(text.data(), LOCALE_USER_DEFAULT, flags, &date);
    const bool contradictory = (flags & VAR_TIMEVALUEONLY) && (flags & VAR_DATEVALUEONLY);
    if (contradictory) {
        Check(hr == E_INVALIDARG);
        return;
    }
    Check(hr == S_OK || hr == DISP_E_TYPEMISMATCH);
    if (hr != S_OK)
        return;
    Check(std::isfinite(date));
    Check(date > VTDATEGRE_MIN - 1.0 && date < VTDATEGRE_MAX + 1.0);
    if (flags & VAR_TIMEVALUEONLY)
        Check(date >= 0.0 && date < 1.0);
    if (flags & VAR_DATEVALUEONLY)
        Check(date == std::trunc(date));

    COleDateTime parsed;
    Check(parsed.ParseDateTime(text.data(), flags));
    Check(parsed.GetStatus() == COleDateTime::valid && parsed.m_dt == date);
    const CString shown = parsed.Format(u"%#c %j %U %W %p");
    Check(shown != CString(u"Invalid DateTime"));
}

bool HasDigit(const std::string& text) {
    for (char c : text)
        if (c >= '0' && c <= '9')
            return true;
    return false;
}

void CheckNumbers(const uint8_t* data, size_t size) {
    const std::string narrow(reinterpret_cast<const char*>(data), size);
    const double value = atof(narrow.c_str());
    Check(!std::isnan(value));
    std::u16string wide(narrow.begin(), narrow.end());
    const int whole = _wtoi(wide.c_str());
    if (!HasDigit(narrow.substr(0, narrow.find('\0'))))
        Check(value == 0.0 && whole == 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Check(g_pinned);
    if (size == 0)
        return 0;
    const uint8_t mode = data[0];
    ++data;
    --size;
    // Exactly the text and its terminator, so a read past it is caught.
    std::vector<WCHAR> text;
    if (mode & 1) {
        for (size_t i = 0; i + 1 < size; i += 2)
            text.push_back(static_cast<WCHAR>(data[i] | data[i + 1] << 8));
    } else {
        text.assign(data, data + size);
    }
    text.push_back(0);
    text.shrink_to_fit();
    CheckDate(text, (mode >> 1) & 3);
    CheckNumbers(data, size);
    return 0;
}
