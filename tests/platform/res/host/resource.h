//{{NO_DEPENDENCIES}}
// Resource ids of the export host.
//
#define IDR_MAINFRAME                   128
#define IDD_EXPORT_FORMAT               234
#define IDS_EXPORT_TITLE                422
#define IDS_EXPORT_FAILED               698
#define IDS_EXPORT_DONE                 771
#define IDC_DELIMITER                   1247
#define IDC_QUALIFIER                   1248
#define IDC_FILENAME                    1249
#define IDC_BROWSE                      1250
#define IDC_HEADINGS                    1251
#define IDC_PREVIEW                     1252
#define IDC_PREVIEW_LABEL               (IDC_PREVIEW + 100)
#define ID_EXPORT_LIST                  32771
#define ID_EXPORT_SELECTION             (ID_EXPORT_LIST + 1)

// Next default values for new objects
//
#ifdef APSTUDIO_INVOKED
#ifndef APSTUDIO_READONLY_SYMBOLS
#define _APS_NEXT_RESOURCE_VALUE        130
#define _APS_NEXT_COMMAND_VALUE         32773
#define _APS_NEXT_CONTROL_VALUE         1253
#define _APS_NEXT_SYMED_VALUE           101
#endif
#endif
