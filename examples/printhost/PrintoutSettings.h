// What the printouts of the delivery lists name in their header line: the
// site, and whether and which delivery dates. The printout wizard edits it;
// every print and preview of a list uses it.
#pragma once

#include <afxdisp.h>
#include <afxwin.h>

struct PrintoutSettings {
    CString site = u"North Plant";
    BOOL includeDates = TRUE;
    COleDateTime from{2024, 1, 1, 0, 0, 0};
    COleDateTime to{2024, 6, 30, 0, 0, 0};
};
