// The benchmark host's resource identifiers.
#pragma once

#define IDR_MAINFRAME 400
#define IDR_LISTPRINT 401

#define IDS_HOST_PRINT_TITLE 569
#define IDS_HOST_AFTER_TIME 619
#define IDS_HOST_FROM 1811
#define IDS_HOST_TO 1812
