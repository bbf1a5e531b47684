// Show states and placements, menus, accelerator tables and the multiple
// document interface of the window system. Included from winuser.h.
#pragma once

#include "windef.h"
#include "winwindows.h"

// More ShowWindow commands.
#define SW_SHOWDEFAULT 10
#define SW_FORCEMINIMIZE 11
#define SW_MAX 11

// WM_SIZE types.
#define SIZE_MINIMIZED 1
#define SIZE_MAXIMIZED 2

// A window's show state and the rectangles of its restored, minimised and
// maximised forms. Top-level windows are in workspace (here: screen)
// coordinates, child windows in their parent's client coordinates.
typedef struct tagWINDOWPLACEMENT {
    UINT length;
    UINT flags;
    UINT showCmd;
    POINT ptMinPosition;
    POINT ptMaxPosition;
    RECT rcNormalPosition;
} WINDOWPLACEMENT, *PWINDOWPLACEMENT, *LPWINDOWPLACEMENT;

#define WPF_SETMINPOSITION 0x0001
#define WPF_RESTORETOMAXIMIZED 0x0002
#define WPF_ASYNCWINDOWPLACEMENT 0x0004

// TRUE while the window is minimised (maximised).
BOOL IsIconic(HWND hwnd);
BOOL IsZoomed(HWND hwnd);
// Both fail (ERROR_INVALID_PARAMETER) unless length is
// sizeof(WINDOWPLACEMENT). showCmd reads SW_SHOWMINIMIZED, SW_SHOWMAXIMIZED or
// SW_SHOWNORMAL; a minimised window that was maximised reports
// WPF_RESTORETOMAXIMIZED. Setting moves the restored rectangle (a top-level
// one that would lie wholly off the screen is moved back onto it) and then
// shows the window with showCmd.
BOOL GetWindowPlacement(HWND hwnd, WINDOWPLACEMENT* placement);
BOOL SetWindowPlacement(HWND hwnd, const WINDOWPLACEMENT* placement);

#define WM_CHILDACTIVATE 0x0022
#define WM_INITMENU 0x0116
#define WM_INITMENUPOPUP 0x0117
#define WM_MENUSELECT 0x011F
#define WM_SYSCHAR 0x0106
#define WM_KEYFIRST 0x0100
#define WM_KEYLAST 0x0109
#define WM_PARENTNOTIFY 0x0210

// Menus. An item is named by its command (MF_BYCOMMAND, searched through the
// pop-ups as well) or by its position (MF_BYPOSITION).
#define MF_ENABLED 0x00000000L
#define MF_UNCHECKED 0x00000000L
#define MF_BYCOMMAND 0x00000000L
#define MF_BYPOSITION 0x00000400L

HMENU CreateMenu();
HMENU CreatePopupMenu();
// Destroys the menu and the pop-ups it holds.
BOOL DestroyMenu(HMENU menu);
BOOL IsMenu(HMENU menu);
// With MF_POPUP, item is the pop-up's HMENU, which then belongs to menu.
BOOL AppendMenuW(HMENU menu, UINT flags, UINT_PTR item, LPCWSTR text);
#define AppendMenu AppendMenuW
// Inserts before the item named by position (by command or position); an
// unknown position appends.
BOOL InsertMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR item, LPCWSTR text);
#define InsertMenu InsertMenuW
// RemoveMenu leaves a removed pop-up alive; DeleteMenu destroys it.
BOOL RemoveMenu(HMENU menu, UINT position, UINT flags);
BOOL DeleteMenu(HMENU menu, UINT position, UINT flags);
// -1 for a handle that is not a menu.
int GetMenuItemCount(HMENU menu);
// The command of the item at pos: 0 for a separator, -1 for a pop-up or no item.
UINT GetMenuItemID(HMENU menu, int pos);
HMENU GetSubMenu(HMENU menu, int pos);
// Copies at most max-1 characters and a NUL; the length of the item's text
// when buffer is NULL. 0 when there is no such item.
int GetMenuStringW(HMENU menu, UINT item, LPWSTR buffer, int max, UINT flags);
#define GetMenuString GetMenuStringW
// The item's MF_ flags (a pop-up also has its item count in the high byte),
// or -1 (as UINT) when there is no such item.
UINT GetMenuState(HMENU menu, UINT item, UINT flags);
// Both return the previous state (MF_CHECKED; MF_GRAYED, MF_DISABLED), or -1
// when there is no such item.
DWORD CheckMenuItem(HMENU menu, UINT item, UINT check);
BOOL EnableMenuItem(HMENU menu, UINT item, UINT enable);
// A new menu built from a module's MENU resource; NULL when it has none.
HMENU LoadMenuW(HINSTANCE module, LPCWSTR name);
#define LoadMenu LoadMenuW
// The menu bar of a top-level window (NULL removes it); the frame grows by
// the bar's height and the client area shrinks.
BOOL SetMenu(HWND hwnd, HMENU menu);
HMENU GetMenu(HWND hwnd);
BOOL DrawMenuBar(HWND hwnd);

// Shortcut menus. TrackPopupMenu shows menu at (x, y) of the screen, aligned
// as the TPM_ flags say and kept on the screen, and runs its own loop until
// the user picks an item or dismisses it (Escape, or a click elsewhere).
// The owner gets WM_ENTERMENULOOP, WM_INITMENUPOPUP (it may change the items
// then) and WM_EXITMENULOOP. With TPM_RETURNCMD the picked command comes back
// (0 when none); otherwise it is posted to the owner as WM_COMMAND and the
// result is TRUE. FALSE, or 0, for an unknown menu or owner
// (ERROR_INVALID_MENU_HANDLE, ERROR_INVALID_WINDOW_HANDLE), while another
// shortcut menu is open (ERROR_POPUP_ALREADY_ACTIVE), and for a menu without
// items, which shows nothing. An item with a pop-up opens it beside itself
// (WM_INITMENUPOPUP first). reserved and rect are not used.
#define TPM_LEFTBUTTON 0x0000L
#define TPM_RIGHTBUTTON 0x0002L
#define TPM_LEFTALIGN 0x0000L
#define TPM_CENTERALIGN 0x0004L
#define TPM_RIGHTALIGN 0x0008L
#define TPM_TOPALIGN 0x0000L
#define TPM_VCENTERALIGN 0x0010L
#define TPM_BOTTOMALIGN 0x0020L
#define TPM_NONOTIFY 0x0080L
#define TPM_RETURNCMD 0x0100L
BOOL TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int reserved, HWND owner,
                    const RECT* rect);

// Accelerator tables.
typedef struct tagACCEL {
    BYTE fVirt;
    WORD key;
    WORD cmd;
} ACCEL, *LPACCEL;
DECLARE_HANDLE(HACCEL);

// A module's ACCELERATORS resource; the same handle at every call, freed with
// the process. NULL when the module has none.
HACCEL LoadAcceleratorsW(HINSTANCE module, LPCWSTR name);
#define LoadAccelerators LoadAcceleratorsW
HACCEL CreateAcceleratorTableW(LPACCEL entries, int count);
#define CreateAcceleratorTable CreateAcceleratorTableW
// Only tables made by CreateAcceleratorTable can be destroyed.
BOOL DestroyAcceleratorTable(HACCEL table);
// Copies up to count entries; the table's size when entries is NULL.
int CopyAcceleratorTableW(HACCEL table, LPACCEL entries, int count);
#define CopyAcceleratorTable CopyAcceleratorTableW
// A key message that matches an entry (the virtual key with exactly its Shift
// and Ctrl state, or the character) becomes WM_COMMAND with the entry's
// command and notification code 1, sent to hwnd. When the command is an item
// of hwnd's menu, WM_INITMENU and WM_INITMENUPOPUP come first, as if the user
// opened the menu, and a disabled item sends nothing. Nonzero when the
// message matched.
int TranslateAcceleratorW(HWND hwnd, HACCEL table, LPMSG msg);
#define TranslateAccelerator TranslateAcceleratorW

// The multiple document interface: an MDI client window (class "MDICLIENT")
// inside a frame holds the document windows (MDI children) and keeps one of
// them active.
#define WM_MDICREATE 0x0220
#define WM_MDIDESTROY 0x0221
#define WM_MDIACTIVATE 0x0222
#define WM_MDIRESTORE 0x0223
#define WM_MDINEXT 0x0224
#define WM_MDIMAXIMIZE 0x0225
#define WM_MDIGETACTIVE 0x0229
#define WM_MDISETMENU 0x0230
#define WM_MDIREFRESHMENU 0x0234

#define MDIS_ALLCHILDSTYLES 0x0001

// The creation parameters of the MDI client (CREATESTRUCT::lpCreateParams).
typedef struct tagCLIENTCREATESTRUCT {
    HANDLE hWindowMenu;
    UINT idFirstChild;
} CLIENTCREATESTRUCT, *LPCLIENTCREATESTRUCT;

// WM_MDICREATE's lParam; the child's CREATESTRUCT::lpCreateParams points to it.
typedef struct tagMDICREATESTRUCTW {
    LPCWSTR szClass;
    LPCWSTR szTitle;
    HANDLE hOwner;
    int x;
    int y;
    int cx;
    int cy;
    DWORD style;
    LPARAM lParam;
} MDICREATESTRUCTW, MDICREATESTRUCT, *LPMDICREATESTRUCT;

// The default procedures of an MDI frame (its client given) and of an MDI
// child: the frame's caption shows " - [child]" while the active child is
// maximised, the focus goes on to the active child, and a child activates
// itself in the client when it is shown, focused or brought to the top.
LRESULT DefFrameProcW(HWND hwnd, HWND client, UINT message, WPARAM wParam, LPARAM lParam);
#define DefFrameProc DefFrameProcW
LRESULT DefMDIChildProcW(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
#define DefMDIChildProc DefMDIChildProcW

// Resource types, for finding the module that holds a resource.
#define RT_ICON MAKEINTRESOURCE(3)
#define RT_MENU MAKEINTRESOURCE(4)
#define RT_DIALOG MAKEINTRESOURCE(5)
#define RT_STRING MAKEINTRESOURCE(6)
#define RT_ACCELERATOR MAKEINTRESOURCE(9)
#define RT_GROUP_ICON MAKEINTRESOURCE(14)
