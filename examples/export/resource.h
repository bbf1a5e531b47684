//{{NO_DEPENDENCIES}}
// Resource ids of the export host.
//
#define IDD_EXPORT_FORMAT               234
#define IDD_WARNING                     261
#define IDS_FILE_FILTER                 422
#define IDS_DELIMITER_TAB               692
#define IDS_DELIMITER_SPACE             693
#define IDS_QUALIFIER_NONE              694
#define IDS_PREVIEW_TITLE               695
#define IDS_PREVIEW_VALUE               696
#define IDS_COLUMNS_INVALID             697
#define IDS_EXPORT_OPEN_FAILED          698
#define IDS_EXPORT_DONE                 771
#define IDC_WARNING_TEXT                1166
#define IDC_PREVIEW                     1238
#define IDC_DELIMITER                   1245
#define IDC_QUALIFIER                   1246
#define IDC_FILENAME                    1247
#define IDC_BROWSE                      1248
#define IDC_TITLES                      1249
#define IDC_WARNING_DISABLE             1260
#define IDC_APPEND                      1629
#define IDC_DATE_IN_NAME                1649

// Next default values for new objects
//
#ifdef APSTUDIO_INVOKED
#ifndef APSTUDIO_READONLY_SYMBOLS
#define _APS_NEXT_RESOURCE_VALUE        262
#define _APS_NEXT_COMMAND_VALUE         32771
#define _APS_NEXT_CONTROL_VALUE         1650
#define _APS_NEXT_SYMED_VALUE           101
#endif
#endif
