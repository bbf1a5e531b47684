// Resource ids of the window helpers' host.
#define IDI_RED 201
#define IDI_GREEN 202
#define IDI_BLUE 203
#define IDR_SOURCE 210
#define IDD_EDITS 220
#define IDC_NAME 1001
#define IDC_NOTES 1002
#define IDC_HINT 1003
#define ID_DOC_NEW 32001
#define ID_DOC_OPEN 32002
#define ID_DOC_RECENT_A 32003
#define ID_DOC_RECENT_B 32004
#define ID_DOC_ARCHIVED 32005
#define ID_DOC_EXIT 32006
#define ID_VIEW_GRID 32010
#define ID_VIEW_RULER 32011
