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

// The host's commands.
#define ID_LIST_PRINT 32771
#define ID_LIST_PREVIEW 32772
#define ID_CLOSE_WINDOW 32785
