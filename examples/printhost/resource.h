// Resource identifiers of the print host.
#pragma once

// The menu and keys that every delivery document shares, and the templates.
#define IDR_SHARED 13
#define IDR_MAINFRAME 128
#define IDR_DELIVERIES 129
#define IDR_LISTPRINT 130

// The strings list printing names: the printout's title and the pieces of
// its header line.
#define IDS_PRINTOUT_TITLE 569
#define IDS_PRINTOUT_AFTER_TIME 619
#define IDS_PRINTOUT_FROM 1811
#define IDS_PRINTOUT_TO 1812

// The printout wizard: its three pages, its caption and messages, and the
// fields of its pages.
#define IDD_WIZARD_HEADER 140
#define IDD_WIZARD_DATES 141
#define IDD_WIZARD_SUMMARY 142
#define IDS_PRINT_WIZARD 150
#define IDS_BAD_DATE 151
#define IDS_DATES_REVERSED 152
#define IDS_NO_HEADER_LINE 153
#define IDC_SYSTEM_NAME 1001
#define IDC_INCLUDE_DATES 1002
#define IDC_DATE_FROM 1003
#define IDC_DATE_TO 1004
#define IDC_SUMMARY 1005

// The host's commands.
#define ID_LIST_PRINT 32771
#define ID_LIST_PREVIEW 32772
#define ID_LIST_WIZARD 32773
#define ID_CLOSE_WINDOW 32785
