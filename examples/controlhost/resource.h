//{{NO_DEPENDENCIES}}
// Resource ids of the control host.
//
#define IDI_APP 101
#define IDI_TAG 102
#define IDI_FLAG 103
#define IDI_STAR 104
#define IDD_LABELS 200
#define IDC_APP_ICON 1000
#define IDC_INTRO 1001
#define IDC_LABELS 1002
#define IDC_NAME_LABEL 1003
#define IDC_NAME 1004
#define IDC_NOTE_LABEL 1005
#define IDC_NOTE 1006
#define IDC_COLOUR_LABEL 1007
#define IDC_COLOUR 1008

// Next default values for new objects
//
#ifdef APSTUDIO_INVOKED
#ifndef APSTUDIO_READONLY_SYMBOLS
#define _APS_NEXT_RESOURCE_VALUE 201
#define _APS_NEXT_COMMAND_VALUE 32771
#define _APS_NEXT_CONTROL_VALUE 1009
#define _APS_NEXT_SYMED_VALUE 105
#endif
#endif
