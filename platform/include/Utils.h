// Static helpers of the companion library: export defaults, dates and ANSI text.
#pragma once

#include "afx.h"

#include <string>

class Utils {
public:
    Utils() = delete;

    // "," and "\"".
    static CString GetDefaultFieldDelimiter();
    static CString GetDefaultTextQualifier();
    // The user's documents directory ($XDG_DOCUMENTS_DIR, else $HOME, else the
    // current directory), always ending with '/'.
    static CString GetDefaultExportDir();
    // A wcsftime format whose result may stand in a file name: "%Y-%m-%d".
    static CString GetDefaultDateFormatSpecifier();
    // The current local date and time as text, "2024-03-05 14:07:09".
    static CString GetCurrentDateAndTime();
    // The text in the ANSI code page; unmappable characters become '?'.
    static std::string ToANSI(const CString& text);
};
