// The notes host's resource identifiers.
#pragma once

#define IDR_MAINFRAME 100
#define IDR_NOTETYPE 101
#define IDR_SKETCHTYPE 102
// A template whose string, menu and accelerators the script does not have.
#define IDR_GHOSTTYPE 103

#define ID_EDIT_STAMP 32771
#define ID_EDIT_UNHANDLED 32772
#define ID_ROUTE_VIEW 32780
#define ID_ROUTE_DOC 32781
#define ID_ROUTE_TEMPLATE 32782
#define ID_ROUTE_CHILD 32783
#define ID_ROUTE_APP 32784
#define ID_ROUTE_MAIN 32785
#define ID_ROUTE_ALL 32786
#define ID_ROUTE_DISABLED 32787
#define ID_ROUTE_APP_MAIN 32788
