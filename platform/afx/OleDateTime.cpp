// COleDateTime: automation dates with a status.
#include "atlcomtime.h"

#include "oleaut/DayCount.h"
#include "wtime.h"

#include <cmath>
#include <ctime>

namespace {

// Dates before 30 December 1899 count their time of day forward from the
// start of the day, so -1.25 lies after -1.0; mirroring the fraction gives a
// scale that grows with time (-1.25 becomes -0.75).
double Continuous(DATE date) {
    if (date >= 0)
        return date;
    const double whole = std::trunc(date);
    return whole + (whole - date);
}

} // namespace

COleDateTime::COleDateTime(DATE date) {
    *this = date;
}

COleDateTime::COleDateTime(int year, int month, int day, int hour, int minute, int second) {
    SetDateTime(year, month, day, hour, minute, second);
}

COleDateTime& COleDateTime::operator=(DATE date) {
    m_dt = date;
    m_status = platform::IsDateInRange(date) ? valid : invalid;
    return *this;
}

int COleDateTime::SetDateTime(int year, int month, int day, int hour, int minute, int second) {
    const platform::CivilDate date{year, month, day};
    if (!platform::IsValidDate(date) || hour < 0 || hour > 23 || minute < 0 || minute > 59 ||
        second < 0 || second > 59) {
        m_status = invalid;
        return 1;
    }
    m_dt = platform::MakeDate(platform::DaysFromCivil(date), hour * 3600L + minute * 60L + second);
    m_status = valid;
    return 0;
}

bool COleDateTime::ParseDateTime(LPCTSTR text, DWORD flags, LCID lcid) {
    DATE date = 0;
    const HRESULT hr = VarDateFromStr(text, lcid, flags, &date);
    if (FAILED(hr)) {
        m_dt = hr == DISP_E_TYPEMISMATCH ? 0 : -1;
        m_status = invalid;
        return false;
    }
    m_dt = date;
    m_status = valid;
    return true;
}

CString COleDateTime::Format(LPCTSTR format) const {
    if (m_status == null || !format)
        return CString();
    platform::CivilDateTime parts{};
    if (m_status != valid || !platform::SplitDate(m_dt, parts)) {
        CString text;
        if (!text.LoadString(ATL_IDS_DATETIME_INVALID))
            text = u"Invalid DateTime";
        return text;
    }
    struct tm tm {};
    tm.tm_year = parts.date.year - 1900;
    tm.tm_mon = parts.date.month - 1;
    tm.tm_mday = parts.date.day;
    tm.tm_hour = parts.hour;
    tm.tm_min = parts.minute;
    tm.tm_sec = parts.second;
    tm.tm_wday = parts.dayOfWeek;
    tm.tm_yday = parts.dayOfYear;
    tm.tm_isdst = 0;
    WCHAR buffer[256];
    const std::size_t length = wcsftime(buffer, 256, format, &tm);
    return CString(buffer, static_cast<int>(length));
}

bool COleDateTime::operator<(const COleDateTime& other) const {
    if (m_status != valid || other.m_status != valid)
        return false;
    return Continuous(m_dt) < Continuous(other.m_dt);
}
