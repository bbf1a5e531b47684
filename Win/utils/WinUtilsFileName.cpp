#include "Win/utils/WinUtils.h"

#include <Utils.h>

void WinUtils::AppendDateToFileName(CString& name) {
    const CString date = CTime::GetCurrentTime().Format(Utils::GetDefaultDateFormatSpecifier());
    const int dot = name.ReverseFind(u'.');
    if (dot < 0)
        return;
    name = name.Left(dot) + u"_" + date + u".txt";
}
