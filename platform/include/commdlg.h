// The common dialogs' C interface: the file open and save dialogs.
#pragma once

#include "windef.h"

// OPENFILENAME flags.
#define OFN_READONLY 0x00000001
#define OFN_OVERWRITEPROMPT 0x00000002
#define OFN_HIDEREADONLY 0x00000004
#define OFN_NOCHANGEDIR 0x00000008
#define OFN_SHOWHELP 0x00000010
#define OFN_ENABLEHOOK 0x00000020
#define OFN_ENABLETEMPLATE 0x00000040
#define OFN_ENABLETEMPLATEHANDLE 0x00000080
#define OFN_NOVALIDATE 0x00000100
#define OFN_ALLOWMULTISELECT 0x00000200
#define OFN_EXTENSIONDIFFERENT 0x00000400
#define OFN_PATHMUSTEXIST 0x00000800
#define OFN_FILEMUSTEXIST 0x00001000
#define OFN_CREATEPROMPT 0x00002000
#define OFN_SHAREAWARE 0x00004000
#define OFN_NOREADONLYRETURN 0x00008000
#define OFN_NOTESTFILECREATE 0x00010000
#define OFN_NONETWORKBUTTON 0x00020000
#define OFN_NOLONGNAMES 0x00040000
#define OFN_EXPLORER 0x00080000
#define OFN_NODEREFERENCELINKS 0x00100000
#define OFN_LONGNAMES 0x00200000
#define OFN_ENABLEINCLUDENOTIFY 0x00400000
#define OFN_ENABLESIZING 0x00800000
#define OFN_DONTADDTORECENT 0x02000000
#define OFN_FORCESHOWHIDDEN 0x10000000

// CommDlgExtendedError codes of the file dialogs.
#define CDERR_STRUCTSIZE 0x0001
#define CDERR_INITIALIZATION 0x0002
#define FNERR_SUBCLASSFAILURE 0x3001
#define FNERR_INVALIDFILENAME 0x3002
#define FNERR_BUFFERTOOSMALL 0x3003

typedef UINT_PTR (*LPOFNHOOKPROC)(HWND, UINT, WPARAM, LPARAM);

// lpstrFilter holds pairs of NUL-ended strings (a description, then one or
// more ';'-separated patterns) and ends with an empty string. lpstrFile
// holds the initial name and receives the chosen path (nMaxFile units with
// its NUL); nFileOffset and nFileExtension index its name and extension.
typedef struct tagOFNW {
    DWORD lStructSize;
    HWND hwndOwner;
    HINSTANCE hInstance;
    LPCWSTR lpstrFilter;
    LPWSTR lpstrCustomFilter;
    DWORD nMaxCustFilter;
    DWORD nFilterIndex;
    LPWSTR lpstrFile;
    DWORD nMaxFile;
    LPWSTR lpstrFileTitle;
    DWORD nMaxFileTitle;
    LPCWSTR lpstrInitialDir;
    LPCWSTR lpstrTitle;
    DWORD Flags;
    WORD nFileOffset;
    WORD nFileExtension;
    LPCWSTR lpstrDefExt;
    LPARAM lCustData;
    LPOFNHOOKPROC lpfnHook;
    LPCWSTR lpTemplateName;
    void* pvReserved;
    DWORD dwReserved;
    DWORD FlagsEx;
} OPENFILENAMEW, *LPOPENFILENAMEW, OPENFILENAME, *LPOPENFILENAME;

// Run the platform's file dialog modally over hwndOwner. The process's
// current directory never changes, whatever OFN_NOCHANGEDIR says.
// OFN_OVERWRITEPROMPT asks only in the save form, OFN_FILEMUSTEXIST and
// OFN_CREATEPROMPT act only in the open form, as the original's do. TRUE when the user
// chose a file (its full path is in lpstrFile); FALSE when the user
// cancelled (CommDlgExtendedError gives 0) or the request was bad (it gives
// the reason).
BOOL GetOpenFileNameW(LPOPENFILENAMEW ofn);
BOOL GetSaveFileNameW(LPOPENFILENAMEW ofn);
#define GetOpenFileName GetOpenFileNameW
#define GetSaveFileName GetSaveFileNameW
DWORD CommDlgExtendedError();

// CHOOSECOLOR flags.
#define CC_RGBINIT 0x00000001
#define CC_FULLOPEN 0x00000002
#define CC_PREVENTFULLOPEN 0x00000004
#define CC_SHOWHELP 0x00000008
#define CC_ENABLEHOOK 0x00000010
#define CC_ENABLETEMPLATE 0x00000020
#define CC_ENABLETEMPLATEHANDLE 0x00000040
#define CC_SOLIDCOLOR 0x00000080
#define CC_ANYCOLOR 0x00000100

typedef UINT_PTR (*LPCCHOOKPROC)(HWND, UINT, WPARAM, LPARAM);

// rgbResult holds the initial colour (with CC_RGBINIT) and receives the
// chosen one; lpCustColors points to the caller's 16 custom colours.
typedef struct tagCHOOSECOLORW {
    DWORD lStructSize;
    HWND hwndOwner;
    HWND hInstance;
    COLORREF rgbResult;
    COLORREF* lpCustColors;
    DWORD Flags;
    LPARAM lCustData;
    LPCCHOOKPROC lpfnHook;
    LPCWSTR lpTemplateName;
} CHOOSECOLORW, *LPCHOOSECOLORW, CHOOSECOLOR, *LPCHOOSECOLOR;

// Runs the platform's colour dialog modally over hwndOwner: a grid of 48
// basic colours and the red, green and blue values of the colour being
// chosen, which the user may type. It starts on rgbResult with CC_RGBINIT,
// else on black. TRUE when the user chose a colour (in rgbResult); FALSE
// when the user cancelled (CommDlgExtendedError gives 0) or the request was
// bad (it gives the reason). Hooks and templates are not supported.
BOOL ChooseColorW(LPCHOOSECOLORW cc);
#define ChooseColor ChooseColorW

// PRINTDLG flags.
#define PD_ALLPAGES 0x00000000
#define PD_SELECTION 0x00000001
#define PD_PAGENUMS 0x00000002
#define PD_NOSELECTION 0x00000004
#define PD_NOPAGENUMS 0x00000008
#define PD_COLLATE 0x00000010
#define PD_PRINTTOFILE 0x00000020
#define PD_PRINTSETUP 0x00000040
#define PD_NOWARNING 0x00000080
#define PD_RETURNDC 0x00000100
#define PD_RETURNIC 0x00000200
#define PD_RETURNDEFAULT 0x00000400
#define PD_SHOWHELP 0x00000800
#define PD_ENABLEPRINTHOOK 0x00001000
#define PD_ENABLESETUPHOOK 0x00002000
#define PD_ENABLEPRINTTEMPLATE 0x00004000
#define PD_ENABLESETUPTEMPLATE 0x00008000
#define PD_ENABLEPRINTTEMPLATEHANDLE 0x00010000
#define PD_ENABLESETUPTEMPLATEHANDLE 0x00020000
#define PD_USEDEVMODECOPIES 0x00040000
#define PD_USEDEVMODECOPIESANDCOLLATE 0x00040000
#define PD_DISABLEPRINTTOFILE 0x00080000
#define PD_HIDEPRINTTOFILE 0x00100000
#define PD_NONETWORKBUTTON 0x00200000

// CommDlgExtendedError codes of the print dialog.
#define PDERR_SETUPFAILURE 0x1001
#define PDERR_PARSEFAILURE 0x1002
#define PDERR_RETDEFFAILURE 0x1003
#define PDERR_LOADDRVFAILURE 0x1004
#define PDERR_GETDEVMODEFAIL 0x1005
#define PDERR_INITFAILURE 0x1006
#define PDERR_NODEVICES 0x1007
#define PDERR_NODEFAULTPRN 0x1008
#define PDERR_DNDMMISMATCH 0x1009
#define PDERR_CREATEICFAILURE 0x100A
#define PDERR_PRINTERNOTFOUND 0x100B
#define PDERR_DEFAULTDIFFERENT 0x100C

// A printer's names in one global block: the offsets count characters from
// the block's start to NUL-ended strings. The driver is "WINSPOOL"; the device
// is the printer's name; the output is where the printer sends its pages (a
// file for the PDF printer).
#define DN_DEFAULTPRN 0x0001
typedef struct tagDEVNAMES {
    WORD wDriverOffset;
    WORD wDeviceOffset;
    WORD wOutputOffset;
    WORD wDefault;
} DEVNAMES, *LPDEVNAMES;

typedef UINT_PTR (*LPPRINTHOOKPROC)(HWND, UINT, WPARAM, LPARAM);
typedef UINT_PTR (*LPSETUPHOOKPROC)(HWND, UINT, WPARAM, LPARAM);

// hDevNames chooses the printer the dialog starts on (the default one when
// null) and receives the chosen printer's names, in a new block that the
// caller frees with GlobalFree. nFromPage and nToPage receive the page range
// with PD_PAGENUMS; nCopies the number of copies. hDevMode stays null: the
// platform's printers have no device modes.
typedef struct tagPDW {
    DWORD lStructSize;
    HWND hwndOwner;
    HGLOBAL hDevMode;
    HGLOBAL hDevNames;
    HDC hDC;
    DWORD Flags;
    WORD nFromPage;
    WORD nToPage;
    WORD nMinPage;
    WORD nMaxPage;
    WORD nCopies;
    HINSTANCE hInstance;
    LPARAM lCustData;
    LPPRINTHOOKPROC lpfnPrintHook;
    LPSETUPHOOKPROC lpfnSetupHook;
    LPCWSTR lpPrintTemplateName;
    LPCWSTR lpSetupTemplateName;
    HGLOBAL hPrintTemplate;
    HGLOBAL hSetupTemplate;
} PRINTDLGW, *LPPRINTDLGW, PRINTDLG, *LPPRINTDLG;

// Runs the platform's print dialog modally over hwndOwner: the printer (the
// PDF printer, which writes a file the user names, and the system's print
// queues), the page range (all pages, or pages from and to within nMinPage
// and nMaxPage) and the number of copies. PD_RETURNDEFAULT shows nothing and
// returns the default printer (hDevNames must be null then). PD_RETURNDC
// also creates the chosen printer's DC in hDC. TRUE when the user chose;
// FALSE when the user cancelled (CommDlgExtendedError gives 0) or the request
// was bad (it gives the reason). Hooks, templates and print setup are not
// supported.
BOOL PrintDlgW(LPPRINTDLGW pd);
#define PrintDlg PrintDlgW
