// The framework's built-in texts, and the string helpers that split and fill
// resource strings.
#include "FrameworkStrings.h"

namespace platform::afx {

CString FrameworkString(UINT id) {
    CString text;
    if (text.LoadString(id))
        return text;
    switch (id) {
    case AFX_IDS_UNTITLED:
        return u"Untitled";
    case AFX_IDP_ASK_TO_SAVE:
        return u"Save changes to %1?";
    case AFX_IDP_FAILED_TO_OPEN_DOC:
        return u"Failed to open document.";
    case AFX_IDP_FAILED_TO_SAVE_DOC:
        return u"Failed to save document.";
    case AFX_IDP_FAILED_TO_CREATE_DOC:
        return u"Failed to create empty document.";
    case AFX_IDP_INVALID_FILENAME:
        return u"Invalid filename.";
    case AFX_IDP_FAILED_TO_START_PRINT:
        return u"Could not start print job.";
    default:
        return CString();
    }
}

} // namespace platform::afx

BOOL AfxExtractSubString(CString& string, LPCTSTR fullString, int index, WCHAR sep) {
    if (!fullString)
        return FALSE;
    const WCHAR* start = fullString;
    for (; index > 0; --index) {
        while (*start && *start != sep)
            ++start;
        if (!*start) {
            string.Empty();
            return FALSE;
        }
        ++start;
    }
    if (index < 0) {
        string.Empty();
        return FALSE;
    }
    const WCHAR* end = start;
    while (*end && *end != sep)
        ++end;
    string = CString(start, static_cast<int>(end - start));
    return TRUE;
}

void AfxFormatString1(CString& string, UINT id, LPCTSTR text) {
    const CString format = platform::afx::FrameworkString(id);
    const CString value = text ? text : u"";
    string.Empty();
    for (int i = 0; i < format.GetLength(); ++i) {
        if (format[i] == u'%' && i + 1 < format.GetLength() && format[i + 1] == u'1') {
            string += value;
            ++i;
        } else {
            string += format[i];
        }
    }
}
