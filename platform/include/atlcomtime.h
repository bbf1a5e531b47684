// COleDateTime: an automation DATE with a status, as the class framework
// keeps dates for its documents and reports.
#pragma once

#include "atlstr.h"
#include "oleauto.h"

// The string resource of the text an invalid date formats to.
#define ATL_IDS_DATETIME_INVALID 0xD800

class COleDateTime {
public:
    enum DateTimeStatus { error = -1, valid = 0, invalid = 1, null = 2 };

    // 30 December 1899 00:00, valid.
    COleDateTime() = default;
    // Valid when the value lies between 1 January 100 and 31 December 9999.
    COleDateTime(DATE date);
    COleDateTime(int year, int month, int day, int hour, int minute, int second);

    COleDateTime& operator=(DATE date);
    operator DATE() const { return m_dt; }

    DateTimeStatus GetStatus() const { return m_status; }
    void SetStatus(DateTimeStatus status) { m_status = status; }

    // Year 100 to 9999, month 1 to 12, day within its month, hour 0 to 23,
    // minute and second 0 to 59. Otherwise the status becomes invalid and the
    // value stays as it was. Returns 0 when set, 1 when not.
    int SetDateTime(int year, int month, int day, int hour, int minute, int second);

    // Reads text with VarDateFromStr. Text that is not a date gives value 0,
    // any other failure -1, both with status invalid.
    bool ParseDateTime(LPCTSTR text, DWORD flags = 0, LCID lcid = LANG_USER_DEFAULT);

    // The date through wcsftime (at most 255 characters, else empty). A null
    // date gives an empty text, an invalid one the invalid-date text.
    CString Format(LPCTSTR format) const;

    // Equal when both value and status are. Less and greater order the
    // dates in time and are false when either side is not valid.
    bool operator==(const COleDateTime& other) const {
        return m_status == other.m_status && m_dt == other.m_dt;
    }
    bool operator!=(const COleDateTime& other) const { return !(*this == other); }
    bool operator<(const COleDateTime& other) const;
    bool operator>(const COleDateTime& other) const { return other < *this; }
    bool operator<=(const COleDateTime& other) const { return *this < other || *this == other; }
    bool operator>=(const COleDateTime& other) const { return *this > other || *this == other; }

    DATE m_dt = 0;
    DateTimeStatus m_status = valid;
};
