#include "Win/listctrl/ListSortKeys.h"

#include <Utils.h>
#include <tchar.h>

#include <climits>
#include <limits>

namespace listsort {

CString TextKey::Of(CString text) const {
    text.MakeLower();
    return text;
}

COleDateTime DateTimeKey::Of(const CString& text) const {
    COleDateTime date;
    date.ParseDateTime(text, 0, LANG_USER_DEFAULT);
    return date;
}

int IntegerKey::Of(const CString& text) const {
    if (text.IsEmpty())
        return INT_MIN;
    return _wtoi(text);
}

double DoubleKey::Of(const CString& text) const {
    if (text.IsEmpty())
        return std::numeric_limits<double>::lowest();
    return atof(Utils::ToANSI(text).c_str());
}

} // namespace listsort
