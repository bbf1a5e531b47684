// The window system's C interface: window classes, creation, the window tree,
// geometry, invalidation and painting, and messages with their queue.
#pragma once

#include "windef.h"
#include "winmessages.h"

typedef LRESULT (*WNDPROC)(HWND, UINT, WPARAM, LPARAM);

typedef struct tagWNDCLASSW {
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HANDLE hCursor;
    HBRUSH hbrBackground;
    LPCWSTR lpszMenuName;
    LPCWSTR lpszClassName;
} WNDCLASSW, WNDCLASS, *LPWNDCLASS;

typedef struct tagCREATESTRUCTW {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCWSTR lpszName;
    LPCWSTR lpszClass;
    DWORD dwExStyle;
} CREATESTRUCTW, CREATESTRUCT, *LPCREATESTRUCT;

typedef struct tagMSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
} MSG, *LPMSG;

typedef struct tagPAINTSTRUCT {
    HDC hdc;
    BOOL fErase;
    RECT rcPaint;
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
} PAINTSTRUCT, *LPPAINTSTRUCT;

// Messages.
#define WM_NULL 0x0000
#define WM_CREATE 0x0001
#define WM_DESTROY 0x0002
#define WM_MOVE 0x0003
#define WM_SIZE 0x0005
#define WM_SETTEXT 0x000C
#define WM_GETTEXT 0x000D
#define WM_GETTEXTLENGTH 0x000E
#define WM_PAINT 0x000F
#define WM_CLOSE 0x0010
#define WM_QUIT 0x0012
#define WM_ERASEBKGND 0x0014
#define WM_SHOWWINDOW 0x0018
#define WM_NCCREATE 0x0081
#define WM_NCDESTROY 0x0082
#define WM_COMMAND 0x0111
#define WM_TIMER 0x0113
#define WM_USER 0x0400

// WM_SIZE types.
#define SIZE_RESTORED 0

// Window styles.
#define WS_OVERLAPPED 0x00000000L
#define WS_POPUP 0x80000000L
#define WS_CHILD 0x40000000L
#define WS_VISIBLE 0x10000000L
#define WS_DISABLED 0x08000000L
#define WS_CLIPSIBLINGS 0x04000000L
#define WS_CLIPCHILDREN 0x02000000L
#define WS_CAPTION 0x00C00000L
#define WS_BORDER 0x00800000L
#define WS_SYSMENU 0x00080000L
#define WS_THICKFRAME 0x00040000L
#define WS_OVERLAPPEDWINDOW 0x00CF0000L

#define CW_USEDEFAULT ((int)0x80000000)

// PeekMessage options.
#define PM_NOREMOVE 0x0000
#define PM_REMOVE 0x0001

// ShowWindow commands.
#define SW_HIDE 0
#define SW_SHOWNORMAL 1
#define SW_SHOW 5

// RedrawWindow flags.
#define RDW_INVALIDATE 0x0001
#define RDW_ERASE 0x0004
#define RDW_VALIDATE 0x0008
#define RDW_UPDATENOW 0x0100

// Registers a window class; returns 0 when the name is taken or missing.
WORD RegisterClass(const WNDCLASS* wc);
BOOL UnregisterClass(LPCWSTR className, HINSTANCE instance);
BOOL GetClassInfo(HINSTANCE instance, LPCWSTR className, LPWNDCLASS wc);

// Creates a window of a registered class. x, y, cx, cy are relative to the
// parent's client area for child windows, to the desktop otherwise. The window
// receives WM_NCCREATE, WM_CREATE (a result of -1 destroys it and NULL is
// returned) and WM_SIZE before the call returns.
HWND CreateWindowEx(DWORD exStyle, LPCWSTR className, LPCWSTR windowName, DWORD style, int x, int y,
                    int cx, int cy, HWND parent, HMENU menu, HINSTANCE instance, LPVOID param);
// Destroys a window and its children (children first get WM_DESTROY after their
// parent, as on the original), and drops its posted messages.
BOOL DestroyWindow(HWND hwnd);
BOOL IsWindow(HWND hwnd);
HWND GetParent(HWND hwnd);
HWND GetDesktopWindow();
BOOL IsChild(HWND parent, HWND hwnd);
// Moves a child window, with its descendants, into another parent window; its
// rectangle keeps its numbers, now in the new parent's client coordinates,
// and it goes to the bottom of the new siblings' z-order. Returns the old
// parent; NULL (ERROR_INVALID_PARAMETER) for a window that is not a child,
// a parent that is not a window, or a parent inside the window itself.
HWND SetParent(HWND child, HWND newParent);
int GetDlgCtrlID(HWND hwnd);

BOOL GetClientRect(HWND hwnd, LPRECT rect);
// Window rectangle in desktop (screen) coordinates.
BOOL GetWindowRect(HWND hwnd, LPRECT rect);
BOOL ClientToScreen(HWND hwnd, LPPOINT point);
BOOL ScreenToClient(HWND hwnd, LPPOINT point);
BOOL MoveWindow(HWND hwnd, int x, int y, int cx, int cy, BOOL repaint);
BOOL ShowWindow(HWND hwnd, int command);
BOOL IsWindowVisible(HWND hwnd);
int GetWindowTextLength(HWND hwnd);
int GetWindowText(HWND hwnd, LPWSTR buffer, int maxCount);
BOOL SetWindowText(HWND hwnd, LPCWSTR text);

// Invalidation only marks the update region: however often a window is
// invalidated, one WM_PAINT comes out of the queue once nothing else is pending.
BOOL InvalidateRect(HWND hwnd, const RECT* rect, BOOL erase);
BOOL ValidateRect(HWND hwnd, const RECT* rect);
// The bounding box of the update region; FALSE when it is empty.
BOOL GetUpdateRect(HWND hwnd, LPRECT rect, BOOL erase);
// Sends WM_PAINT at once when the update region is not empty.
BOOL UpdateWindow(HWND hwnd);
BOOL RedrawWindow(HWND hwnd, const RECT* rect, HRGN region, UINT flags);
HDC BeginPaint(HWND hwnd, LPPAINTSTRUCT paint);
BOOL EndPaint(HWND hwnd, const PAINTSTRUCT* paint);

LRESULT DefWindowProcW(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
#define DefWindowProc DefWindowProcW
LRESULT CallWindowProc(WNDPROC proc, HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
// Calls the window procedure at once and returns its result; 0 for a bad window.
LRESULT SendMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
// Queues the message (FIFO) and returns at once. A NULL window posts to the thread.
BOOL PostMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
void PostQuitMessage(int exitCode);
// Posted messages first, then WM_QUIT, then WM_PAINT for a window with a
// non-empty update region. WM_PAINT stays until the window is validated.
BOOL PeekMessage(LPMSG msg, HWND hwnd, UINT filterMin, UINT filterMax, UINT remove);
// As PeekMessage with removal. Nothing can arrive in a headless process while
// it waits, so with nothing to retrieve it asks the platform's idle handler
// (platform/MessagePump.h) for more; when none comes it returns FALSE with
// WM_QUIT in msg, as if the application had quit, so no loop waits forever.
BOOL GetMessage(LPMSG msg, HWND hwnd, UINT filterMin, UINT filterMax);
// Posts WM_CHAR for a key-down message of a key that types a character.
BOOL TranslateMessage(const MSG* msg);
// The high bit is set while the key is down.
SHORT GetKeyState(int vk);
LRESULT DispatchMessage(const MSG* msg);

// Focus, activation, enabled state and mouse capture. SetFocus sends
// WM_KILLFOCUS to the old window, then WM_SETFOCUS to the new one, and
// activates the new one's top-level window first; it returns the previous
// focus window.
HWND GetFocus();
HWND SetFocus(HWND hwnd);
HWND GetActiveWindow();
HWND SetActiveWindow(HWND hwnd);
HWND GetForegroundWindow();
BOOL SetForegroundWindow(HWND hwnd);
BOOL BringWindowToTop(HWND hwnd);
// Returns whether the window was disabled before. Disabling the window with
// the focus, or its parent, leaves no window focused.
BOOL EnableWindow(HWND hwnd, BOOL enable);
BOOL IsWindowEnabled(HWND hwnd);
HWND GetCapture();
HWND SetCapture(HWND hwnd);
BOOL ReleaseCapture();

// The tree and the z-order: child windows keep their creation order (the
// first is on top, and it is first in the tab order); a new top-level window
// comes up on top.
HWND GetWindow(HWND hwnd, UINT command);
HWND GetTopWindow(HWND hwnd);
HWND GetDlgItem(HWND dialog, int id);
BOOL SetWindowPos(HWND hwnd, HWND insertAfter, int x, int y, int cx, int cy, UINT flags);
// Calls proc for each top-level window of the desktop, hidden ones included,
// from the top of the z-order down, until it returns FALSE (EnumWindows then
// returns FALSE). Windows created during the walk are not visited; windows
// destroyed during it are skipped.
typedef BOOL (*WNDENUMPROC)(HWND, LPARAM);
BOOL EnumWindows(WNDENUMPROC proc, LPARAM lParam);
LONG_PTR GetWindowLongPtr(HWND hwnd, int index);
LONG_PTR SetWindowLongPtr(HWND hwnd, int index, LONG_PTR value);

// Dialogs. A template is the resource script's dialog as the platform reads
// it (platform/ResourceTemplates.h); dialog units become pixels through the
// dialog font (platform/DialogUnits.h).
namespace platform {
struct DialogTemplate;
}
typedef const platform::DialogTemplate* LPCDLGTEMPLATE;
typedef INT_PTR (*DLGPROC)(HWND, UINT, WPARAM, LPARAM);

// Creates the dialog and its controls, sends WM_SETFONT and WM_INITDIALOG
// (TRUE from the procedure focuses the first tab stop) and shows it if the
// template asks for WS_VISIBLE. NULL when a control's class is unknown.
HWND CreateDialogIndirectParam(HINSTANCE instance, LPCDLGTEMPLATE tmpl, HWND owner, DLGPROC proc,
                               LPARAM init);
// Runs the dialog modally with the owner disabled; returns what EndDialog
// was given, or -1 when the dialog could not be created.
INT_PTR DialogBoxIndirectParam(HINSTANCE instance, LPCDLGTEMPLATE tmpl, HWND owner, DLGPROC proc,
                               LPARAM init);
// Marks a dialog's modal state as ended with result; its loop ends after the
// current message.
BOOL EndDialog(HWND dialog, INT_PTR result);
LRESULT DefDlgProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
// Handles the dialog keyboard (Tab, arrows, Enter, Escape) for a message
// meant for the dialog or one of its controls, and dispatches the rest.
// FALSE for a message of another window.
BOOL IsDialogMessage(HWND dialog, LPMSG msg);
HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
HWND GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous);
BOOL MapDialogRect(HWND dialog, LPRECT rect);

// System metrics at 96 dots per inch, as the original's Windows 10 defaults.
#define SM_CXSCREEN 0
#define SM_CYSCREEN 1
#define SM_CYCAPTION 4
#define SM_CXBORDER 5
#define SM_CYBORDER 6
#define SM_CXDLGFRAME 7
#define SM_CYDLGFRAME 8
#define SM_CXICON 11
#define SM_CYICON 12
#define SM_CYMENU 15
#define SM_CXSIZE 30
#define SM_CYSIZE 31
#define SM_CXFRAME 32
#define SM_CYFRAME 33
#define SM_CXEDGE 45
#define SM_CYEDGE 46
#define SM_CXSMICON 49
#define SM_CYSMICON 50
#define SM_CYSMCAPTION 51
#define SM_CXPADDEDBORDER 92
#define SM_CXFIXEDFRAME SM_CXDLGFRAME
#define SM_CYFIXEDFRAME SM_CYDLGFRAME
#define SM_CXSIZEFRAME SM_CXFRAME
#define SM_CYSIZEFRAME SM_CYFRAME
// 0 for an index it does not know.
int GetSystemMetrics(int index);
// Grows a client rectangle to the window rectangle that has it as its client
// area, for the given styles (and a menu bar when menu is TRUE).
BOOL AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu, DWORD exStyle);
BOOL AdjustWindowRect(LPRECT rect, DWORD style, BOOL menu);

DWORD GetSysColor(int index);
// The system's brush of a colour; never delete it.
HBRUSH GetSysColorBrush(int index);

// Draws text in a rectangle with the DC's font and colours: lines break at
// CR, LF and CR LF, and with DT_WORDBREAK between words; '&' underlines the
// next character unless DT_NOPREFIX ("&&" is one '&'); output is clipped to
// the rectangle unless DT_NOCLIP. DT_CALCRECT measures instead of drawing.
// Returns the height of the text.
int DrawTextW(HDC hdc, LPCWSTR text, int count, LPRECT rect, UINT format);
#define DrawText DrawTextW

// A modal message box over owner (NULL for none): the text, an icon and the
// buttons of the type's MB_ flags. Returns the button's id (IDOK, IDYES, ...);
// Escape gives IDCANCEL, or IDOK when OK is the only button. 0 on failure.
int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);
#define MessageBox MessageBoxW
// The enabled pop-up owned by hwnd that was active last, else hwnd.
HWND GetLastActivePopup(HWND hwnd);
