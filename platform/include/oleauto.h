// Automation dates: the DATE type and reading a date and time from text.
#pragma once

#include "windef.h"

// Days since 30 December 1899 00:00; the fraction is the time of day, added
// as a positive time also to negative dates (-1.25 is 29 December 1899 06:00).
typedef double DATE;
typedef LONG HRESULT;
typedef DWORD LCID;
typedef const WCHAR* LPCOLESTR;

#define S_OK ((HRESULT)0)
#define E_INVALIDARG ((HRESULT)0x80070057)
#define DISP_E_TYPEMISMATCH ((HRESULT)0x80020005)
#define DISP_E_OVERFLOW ((HRESULT)0x8002000A)
#define SUCCEEDED(hr) (((HRESULT)(hr)) >= 0)
#define FAILED(hr) (((HRESULT)(hr)) < 0)

#define LANG_USER_DEFAULT 0x400
#define LOCALE_USER_DEFAULT 0x400
#define VAR_TIMEVALUEONLY 0x1
#define VAR_DATEVALUEONLY 0x2

// The first and last days a DATE may hold: 1 January 100 and 31 December 9999.
#define VTDATEGRE_MIN (-657434)
#define VTDATEGRE_MAX 2958465

// Reads a date and time written the way English (US) users write them: month
// and day names, "/" and "-" between date fields, ":" and "." between time
// fields, AM and PM. The user's default locale is English (US) here, and
// every locale identifier reads with its rules. Text that is not a date gives
// DISP_E_TYPEMISMATCH; VAR_TIMEVALUEONLY with VAR_DATEVALUEONLY, or a null
// result pointer, gives E_INVALIDARG.
HRESULT VarDateFromStr(LPCOLESTR text, LCID lcid, ULONG flags, DATE* result);
