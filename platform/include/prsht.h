// Property sheets: a dialog of pages, shown either behind the tabs of a tab
// control with OK, Cancel and Apply buttons, or one at a time as a wizard
// with Back, Next and Finish. Included from commctrl.h.
#pragma once

#include "winmessages.h"
#include "winuser.h"

#include <cstddef>

struct _PSP;
typedef struct _PSP* HPROPSHEETPAGE;

struct _PROPSHEETPAGEW;
typedef UINT (*LPFNPSPCALLBACKW)(HWND hwnd, UINT message, struct _PROPSHEETPAGEW* page);
typedef int (*PFNPROPSHEETCALLBACK)(HWND hwnd, UINT message, LPARAM lParam);

// Page flags.
#define PSP_DEFAULT 0x00000000
#define PSP_DLGINDIRECT 0x00000001
#define PSP_USEHICON 0x00000002
#define PSP_USEICONID 0x00000004
#define PSP_USETITLE 0x00000008
#define PSP_RTLREADING 0x00000010
#define PSP_HASHELP 0x00000020
#define PSP_USEREFPARENT 0x00000040
#define PSP_USECALLBACK 0x00000080
#define PSP_PREMATURE 0x00000400
#define PSP_HIDEHEADER 0x00000800
#define PSP_USEHEADERTITLE 0x00001000
#define PSP_USEHEADERSUBTITLE 0x00002000

// What a page's callback is told.
#define PSPCB_ADDREF 0
#define PSPCB_RELEASE 1
#define PSPCB_CREATE 2

// One page. The template is pszTemplate in hInstance's resources, or the
// template pResource points to when dwFlags has PSP_DLGINDIRECT. The title is
// the template's caption unless PSP_USETITLE gives pszTitle (text, or a
// string resource number of hInstance). WM_INITDIALOG's lParam points to the
// sheet's copy of this structure; bytes past the structure, up to dwSize, are
// copied with it.
typedef struct _PROPSHEETPAGEW {
    DWORD dwSize;
    DWORD dwFlags;
    HINSTANCE hInstance;
    union {
        LPCWSTR pszTemplate;
        LPCDLGTEMPLATE pResource;
    };
    union {
        HICON hIcon;
        LPCWSTR pszIcon;
    };
    LPCWSTR pszTitle;
    DLGPROC pfnDlgProc;
    LPARAM lParam;
    LPFNPSPCALLBACKW pfnCallback;
    UINT* pcRefParent;
    LPCWSTR pszHeaderTitle;
    LPCWSTR pszHeaderSubTitle;
    HANDLE hActCtx;
} PROPSHEETPAGEW, *LPPROPSHEETPAGEW, PROPSHEETPAGE, *LPPROPSHEETPAGE;
typedef const PROPSHEETPAGEW* LPCPROPSHEETPAGEW;
typedef LPCPROPSHEETPAGEW LPCPROPSHEETPAGE;

// The sizes of the structure's earlier versions.
#define PROPSHEETPAGEW_V1_SIZE (offsetof(PROPSHEETPAGEW, pcRefParent) + sizeof(UINT*))
#define PROPSHEETPAGEW_V2_SIZE (offsetof(PROPSHEETPAGEW, pszHeaderSubTitle) + sizeof(LPCWSTR))
#define PROPSHEETPAGEW_V3_SIZE sizeof(PROPSHEETPAGEW)
#define PROPSHEETPAGE_V1_SIZE PROPSHEETPAGEW_V1_SIZE

// Sheet flags.
#define PSH_DEFAULT 0x00000000
#define PSH_PROPTITLE 0x00000001
#define PSH_USEHICON 0x00000002
#define PSH_USEICONID 0x00000004
#define PSH_PROPSHEETPAGE 0x00000008
#define PSH_WIZARDHASFINISH 0x00000010
#define PSH_WIZARD 0x00000020
#define PSH_USEPSTARTPAGE 0x00000040
#define PSH_NOAPPLYNOW 0x00000080
#define PSH_USECALLBACK 0x00000100
#define PSH_HASHELP 0x00000200
#define PSH_MODELESS 0x00000400
#define PSH_RTLREADING 0x00000800
#define PSH_WIZARDCONTEXTHELP 0x00001000
#define PSH_AEROWIZARD 0x00004000
#define PSH_WATERMARK 0x00008000
#define PSH_USEHBMWATERMARK 0x00010000
#define PSH_USEHPLWATERMARK 0x00020000
#define PSH_STRETCHWATERMARK 0x00040000
#define PSH_HEADER 0x00080000
#define PSH_USEHBMHEADER 0x00100000
#define PSH_USEPAGELANG 0x00200000
#define PSH_WIZARD_LITE 0x00400000
#define PSH_WIZARD97 0x01000000
#define PSH_NOCONTEXTHELP 0x02000000

// What the sheet's callback is told.
#define PSCB_INITIALIZED 1
#define PSCB_PRECREATE 2

// The sheet. Its pages are nPages handles in phpage, or with
// PSH_PROPSHEETPAGE nPages structures in ppsp; the sheet owns the handles
// from the call on and destroys them with itself. The first page shown is
// nStartPage, or pStartPage with PSH_USEPSTARTPAGE.
typedef struct _PROPSHEETHEADERW {
    DWORD dwSize;
    DWORD dwFlags;
    HWND hwndParent;
    HINSTANCE hInstance;
    union {
        HICON hIcon;
        LPCWSTR pszIcon;
    };
    LPCWSTR pszCaption;
    UINT nPages;
    union {
        UINT nStartPage;
        LPCWSTR pStartPage;
    };
    union {
        LPCPROPSHEETPAGEW ppsp;
        HPROPSHEETPAGE* phpage;
    };
    PFNPROPSHEETCALLBACK pfnCallback;
    union {
        HBITMAP hbmWatermark;
        LPCWSTR pszbmWatermark;
    };
    HANDLE hplWatermark;
    union {
        HBITMAP hbmHeader;
        LPCWSTR pszbmHeader;
    };
} PROPSHEETHEADERW, *LPPROPSHEETHEADERW, PROPSHEETHEADER, *LPPROPSHEETHEADER;
typedef const PROPSHEETHEADERW* LPCPROPSHEETHEADERW;
typedef LPCPROPSHEETHEADERW LPCPROPSHEETHEADER;

// A copy of the page for a sheet; null when the structure is too small.
HPROPSHEETPAGE CreatePropertySheetPageW(LPCPROPSHEETPAGEW page);
BOOL DestroyPropertySheetPage(HPROPSHEETPAGE page);
// A modal sheet returns 1 after OK or Finish, 0 after Cancel, -1 when it
// could not be created; with PSH_MODELESS it returns the sheet's window
// (0 on failure), which the caller's own loop then runs.
INT_PTR PropertySheetW(LPCPROPSHEETHEADERW header);
#define CreatePropertySheetPage CreatePropertySheetPageW
#define PropertySheet PropertySheetW

// Notifications to the pages, through WM_NOTIFY with a PSHNOTIFY whose
// hwndFrom is the sheet.
#define PSN_FIRST (0U - 200U)
#define PSN_SETACTIVE (PSN_FIRST - 0)
#define PSN_KILLACTIVE (PSN_FIRST - 1)
#define PSN_APPLY (PSN_FIRST - 2)
#define PSN_RESET (PSN_FIRST - 3)
#define PSN_HELP (PSN_FIRST - 5)
#define PSN_WIZBACK (PSN_FIRST - 6)
#define PSN_WIZNEXT (PSN_FIRST - 7)
#define PSN_WIZFINISH (PSN_FIRST - 8)
#define PSN_QUERYCANCEL (PSN_FIRST - 9)

typedef struct _PSHNOTIFY {
    NMHDR hdr;
    LPARAM lParam; // PSN_APPLY: TRUE for OK, FALSE for Apply
} PSHNOTIFY, *LPPSHNOTIFY;

// PSN_APPLY answers.
#define PSNRET_NOERROR 0
#define PSNRET_INVALID 1
#define PSNRET_INVALID_NOCHANGEPAGE 2
#define PSNRET_MESSAGEHANDLED 3

// Messages to the sheet.
#define PSM_SETCURSEL (WM_USER + 101)
#define PSM_REMOVEPAGE (WM_USER + 102)
#define PSM_ADDPAGE (WM_USER + 103)
#define PSM_CHANGED (WM_USER + 104)
#define PSM_CANCELTOCLOSE (WM_USER + 107)
#define PSM_UNCHANGED (WM_USER + 109)
#define PSM_APPLY (WM_USER + 110)
#define PSM_SETWIZBUTTONS (WM_USER + 112)
#define PSM_PRESSBUTTON (WM_USER + 113)
#define PSM_SETCURSELID (WM_USER + 114)
#define PSM_GETTABCONTROL (WM_USER + 116)
#define PSM_ISDIALOGMESSAGE (WM_USER + 117)
#define PSM_GETCURRENTPAGEHWND (WM_USER + 118)
#define PSM_SETTITLEW (WM_USER + 120)
#define PSM_SETFINISHTEXTW (WM_USER + 121)
#define PSM_HWNDTOINDEX (WM_USER + 129)
#define PSM_INDEXTOHWND (WM_USER + 130)
#define PSM_PAGETOINDEX (WM_USER + 131)
#define PSM_INDEXTOPAGE (WM_USER + 132)
#define PSM_IDTOINDEX (WM_USER + 133)
#define PSM_INDEXTOID (WM_USER + 134)
#define PSM_GETRESULT (WM_USER + 135)
#define PSM_SETTITLE PSM_SETTITLEW
#define PSM_SETFINISHTEXT PSM_SETFINISHTEXTW

// PSM_SETWIZBUTTONS flags.
#define PSWIZB_BACK 0x00000001
#define PSWIZB_NEXT 0x00000002
#define PSWIZB_FINISH 0x00000004
#define PSWIZB_DISABLEDFINISH 0x00000008

// PSM_PRESSBUTTON buttons.
#define PSBTN_BACK 0
#define PSBTN_NEXT 1
#define PSBTN_FINISH 2
#define PSBTN_OK 3
#define PSBTN_APPLYNOW 4
#define PSBTN_CANCEL 5
#define PSBTN_HELP 6

// The sheet's own controls.
#define ID_APPLY_NOW 0x3021
#define ID_WIZBACK 0x3023
#define ID_WIZNEXT 0x3024
#define ID_WIZFINISH 0x3025
#define AFX_IDC_TAB_CONTROL 0x3020
