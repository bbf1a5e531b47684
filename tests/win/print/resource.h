// The list print host's resource identifiers.
#pragma once

#define IDR_MAINFRAME 300
#define IDR_LISTPRINT 301
#define IDR_PLAINPRINT 302

// The host's strings that list printing names.
#define IDS_HOST_PRINT_TITLE 569
#define IDS_HOST_AFTER_TIME 619
#define IDS_HOST_FROM 1811
#define IDS_HOST_TO 1812
#define IDS_HOST_BAD_COLUMNS 697

// A command of the host that no print view handles.
#define ID_HOST_REFRESH 32801
