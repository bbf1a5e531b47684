// Sizing a window by its frame, as the user drags an edge or a corner: the
// hit test of the non-client area and the messages of the system's sizing
// loop. Included from winuser.h.
#pragma once

#include "windef.h"

// WM_NCHITTEST (lParam: the screen point, x in the low word) answers where a
// point lies: in the client area, the caption, a sizing edge or corner of a
// WS_THICKFRAME window (the side frames; the corners reach as far along each
// edge as the caption is high), or another part of the frame.
#define WM_NCHITTEST 0x0084
#define HTERROR (-2)
#define HTTRANSPARENT (-1)
#define HTNOWHERE 0
#define HTCLIENT 1
#define HTCAPTION 2
#define HTSYSMENU 3
#define HTMENU 5
#define HTLEFT 10
#define HTRIGHT 11
#define HTTOP 12
#define HTTOPLEFT 13
#define HTTOPRIGHT 14
#define HTBOTTOM 15
#define HTBOTTOMLEFT 16
#define HTBOTTOMRIGHT 17
#define HTBORDER 18

// A press on the frame (wParam the hit code, lParam the screen point). The
// default procedure starts the sizing loop for a sizing edge or corner
// (WM_SYSCOMMAND with SC_SIZE plus the WMSZ_ edge).
#define WM_NCMOUSEMOVE 0x00A0
#define WM_NCLBUTTONDOWN 0x00A1
#define WM_NCLBUTTONUP 0x00A2
#define SC_SIZE 0xF000

// The sizing loop: WM_GETMINMAXINFO asks for the limits, WM_ENTERSIZEMOVE
// starts it; each mouse move sends WM_SIZING (wParam the edge, lParam the
// RECT the window is about to take, in screen coordinates, which the window
// may change) and then moves the window, kept within the track sizes; the
// button's release, or Escape (which puts the window back), ends it with
// WM_EXITSIZEMOVE. The mouse messages of the drag go to the loop, not to the
// window.
#define WM_GETMINMAXINFO 0x0024
#define WM_SIZING 0x0214
#define WM_ENTERSIZEMOVE 0x0231
#define WM_EXITSIZEMOVE 0x0232
#define WMSZ_LEFT 1
#define WMSZ_RIGHT 2
#define WMSZ_TOP 3
#define WMSZ_TOPLEFT 4
#define WMSZ_TOPRIGHT 5
#define WMSZ_BOTTOM 6
#define WMSZ_BOTTOMLEFT 7
#define WMSZ_BOTTOMRIGHT 8

typedef struct tagMINMAXINFO {
    POINT ptReserved;
    POINT ptMaxSize;
    POINT ptMaxPosition;
    POINT ptMinTrackSize;
    POINT ptMaxTrackSize;
} MINMAXINFO, *PMINMAXINFO, *LPMINMAXINFO;

// The smallest size a user can drag a window to.
#define SM_CXMINTRACK 34
#define SM_CYMINTRACK 35

// Moving a window by its caption and closing it by its close box: a press on
// the caption runs the move loop (WM_SYSCOMMAND with SC_MOVE; each mouse move
// sends WM_MOVING, lParam the RECT the window is about to take), and a press
// released on the close box sends SC_CLOSE, which the default procedure
// turns into WM_CLOSE.
#define HTCLOSE 20
#define SC_MOVE 0xF010
#define SC_CLOSE 0xF060
#define WM_MOVING 0x0216

// A double click on the caption of a window with a maximise box maximises it,
// or restores it when it is maximised (WM_SYSCOMMAND with SC_MAXIMIZE or
// SC_RESTORE). Double clicks on the frame come whatever the window's class.
#define WM_NCLBUTTONDBLCLK 0x00A3
#define SC_MAXIMIZE 0xF030
#define SC_RESTORE 0xF120
