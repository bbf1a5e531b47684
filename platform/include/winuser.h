// The window system: windows, messages, painting.
#pragma once

#include "windef.h"

// The screen's device context for hwnd == NULL, else the window's client area.
HDC GetDC(HWND hwnd);
int ReleaseDC(HWND hwnd, HDC hdc);

int FillRect(HDC hdc, const RECT* rect, HBRUSH brush);
int FrameRect(HDC hdc, const RECT* rect, HBRUSH brush);

#include "winwindows.h"
