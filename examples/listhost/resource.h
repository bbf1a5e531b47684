//{{NO_DEPENDENCIES}}
// Resource ids of the list host.
//
#define IDD_LIST_HOST                   300
#define IDS_COLUMNS_INVALID             697
#define IDC_LIST                        1001
#define IDC_STATUS                      1002

// Next default values for new objects
//
#ifdef APSTUDIO_INVOKED
#ifndef APSTUDIO_READONLY_SYMBOLS
#define _APS_NEXT_RESOURCE_VALUE        301
#define _APS_NEXT_COMMAND_VALUE         32771
#define _APS_NEXT_CONTROL_VALUE         1003
#define _APS_NEXT_SYMED_VALUE           101
#endif
#endif
