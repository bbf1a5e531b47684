// GDI: device contexts, pens, brushes, fonts and bitmaps. Integer coordinates
// name pixel centres; lines and fills are not anti-aliased.
#pragma once

#include "windef.h"

#define LF_FACESIZE 32

#define FW_DONTCARE 0
#define FW_NORMAL 400
#define FW_BOLD 700

#define ANSI_CHARSET 0
#define DEFAULT_CHARSET 1

typedef struct tagLOGFONTW {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    WCHAR lfFaceName[LF_FACESIZE];
} LOGFONTW, *LPLOGFONTW, LOGFONT, *LPLOGFONT;

typedef struct tagTEXTMETRICW {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    WCHAR tmFirstChar;
    WCHAR tmLastChar;
    WCHAR tmDefaultChar;
    WCHAR tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
} TEXTMETRICW, *LPTEXTMETRICW, TEXTMETRIC, *LPTEXTMETRIC;

typedef struct tagLOGBRUSH {
    UINT lbStyle;
    COLORREF lbColor;
    ULONG_PTR lbHatch;
} LOGBRUSH, *LPLOGBRUSH;

typedef struct tagBITMAP {
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    LPVOID bmBits;
} BITMAP, *LPBITMAP;

typedef struct tagLOGPEN {
    UINT lopnStyle;
    POINT lopnWidth;
    COLORREF lopnColor;
} LOGPEN, *LPLOGPEN;

// Pen styles.
#define PS_SOLID 0
#define PS_DASH 1
#define PS_DOT 2
#define PS_DASHDOT 3
#define PS_DASHDOTDOT 4
#define PS_NULL 5
#define PS_INSIDEFRAME 6
#define PS_STYLE_MASK 0x0000000F
#define PS_ENDCAP_ROUND 0x00000000
#define PS_ENDCAP_SQUARE 0x00000100
#define PS_ENDCAP_FLAT 0x00000200
#define PS_ENDCAP_MASK 0x00000F00
#define PS_JOIN_ROUND 0x00000000
#define PS_JOIN_BEVEL 0x00001000
#define PS_JOIN_MITER 0x00002000
#define PS_JOIN_MASK 0x0000F000
#define PS_COSMETIC 0x00000000
#define PS_GEOMETRIC 0x00010000
#define PS_TYPE_MASK 0x000F0000

// Brush styles.
#define BS_SOLID 0
#define BS_NULL 1
#define BS_HOLLOW BS_NULL

// Background modes.
#define TRANSPARENT 1
#define OPAQUE 2

// Polygon fill modes.
#define ALTERNATE 1
#define WINDING 2

#define CLR_INVALID 0xFFFFFFFF

// Stock objects.
#define WHITE_BRUSH 0
#define LTGRAY_BRUSH 1
#define GRAY_BRUSH 2
#define DKGRAY_BRUSH 3
#define BLACK_BRUSH 4
#define NULL_BRUSH 5
#define HOLLOW_BRUSH NULL_BRUSH
#define WHITE_PEN 6
#define BLACK_PEN 7
#define NULL_PEN 8
#define OEM_FIXED_FONT 10
#define ANSI_FIXED_FONT 11
#define ANSI_VAR_FONT 12
#define SYSTEM_FONT 13
#define DEVICE_DEFAULT_FONT 14
#define SYSTEM_FIXED_FONT 16
#define DEFAULT_GUI_FONT 17

// GetObjectType results.
#define OBJ_PEN 1
#define OBJ_BRUSH 2
#define OBJ_DC 3
#define OBJ_FONT 6
#define OBJ_BITMAP 7
#define OBJ_MEMDC 10

// GetDeviceCaps indices.
#define HORZRES 8
#define VERTRES 10
#define BITSPIXEL 12
#define LOGPIXELSX 88
#define LOGPIXELSY 90
#define PHYSICALWIDTH 110
#define PHYSICALHEIGHT 111
#define PHYSICALOFFSETX 112
#define PHYSICALOFFSETY 113

// Text metric pitch flags: set when the font is NOT fixed pitch.
#define TMPF_FIXED_PITCH 0x01
#define TMPF_VECTOR 0x02
#define TMPF_TRUETYPE 0x04

// GetClipBox results.
#define ERROR 0
#define NULLREGION 1
#define SIMPLEREGION 2
#define COMPLEXREGION 3

// Mapping modes: how logical coordinates become device coordinates.
#define MM_TEXT 1
#define MM_ISOTROPIC 7
#define MM_ANISOTROPIC 8

// Printing failures.
#define SP_ERROR (-1)

// Raster operations.
#define SRCCOPY 0x00CC0020
#define PATCOPY 0x00F00021
#define BLACKNESS 0x00000042
#define WHITENESS 0x00FF0062

#define HGDI_ERROR ((HGDIOBJ)(intptr_t)-1)

HDC CreateCompatibleDC(HDC hdc);
BOOL DeleteDC(HDC hdc);
HGDIOBJ SelectObject(HDC hdc, HGDIOBJ obj);
BOOL DeleteObject(HGDIOBJ obj);
HGDIOBJ GetStockObject(int index);
HGDIOBJ GetCurrentObject(HDC hdc, UINT type);
DWORD GetObjectType(HGDIOBJ obj);
int GetObjectW(HGDIOBJ obj, int size, LPVOID out);
#define GetObject GetObjectW

HFONT CreateFontIndirectW(const LOGFONTW* lf);
#define CreateFontIndirect CreateFontIndirectW
HPEN CreatePen(int style, int width, COLORREF color);
HPEN ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH* brush, DWORD styleCount,
                  const DWORD* styles);
HBRUSH CreateSolidBrush(COLORREF color);
HBITMAP CreateCompatibleBitmap(HDC hdc, int cx, int cy);

COLORREF SetTextColor(HDC hdc, COLORREF color);
COLORREF GetTextColor(HDC hdc);
COLORREF SetBkColor(HDC hdc, COLORREF color);
COLORREF GetBkColor(HDC hdc);
int SetBkMode(HDC hdc, int mode);
int GetBkMode(HDC hdc);
int SetPolyFillMode(HDC hdc, int mode);
int GetDeviceCaps(HDC hdc, int index);

BOOL TextOutW(HDC hdc, int x, int y, LPCWSTR text, int count);
#define TextOut TextOutW
#define ETO_OPAQUE 0x0002
#define ETO_CLIPPED 0x0004
BOOL ExtTextOutW(HDC hdc, int x, int y, UINT options, const RECT* rect, LPCWSTR text, UINT count,
                 const INT* widths);
#define ExtTextOut ExtTextOutW
BOOL GetTextExtentPoint32W(HDC hdc, LPCWSTR text, int count, LPSIZE size);
#define GetTextExtentPoint32 GetTextExtentPoint32W
BOOL GetTextMetricsW(HDC hdc, LPTEXTMETRICW tm);
#define GetTextMetrics GetTextMetricsW
BOOL MoveToEx(HDC hdc, int x, int y, LPPOINT previous);
BOOL LineTo(HDC hdc, int x, int y);
BOOL Polyline(HDC hdc, const POINT* points, int count);
BOOL Polygon(HDC hdc, const POINT* points, int count);
BOOL Rectangle(HDC hdc, int left, int top, int right, int bottom);
BOOL PatBlt(HDC hdc, int x, int y, int w, int h, DWORD rop);
BOOL BitBlt(HDC dst, int x, int y, int cx, int cy, HDC src, int x1, int y1, DWORD rop);
COLORREF GetPixel(HDC hdc, int x, int y);
COLORREF SetPixel(HDC hdc, int x, int y, COLORREF color);
int GetClipBox(HDC hdc, LPRECT rect);

// Bounds accumulation: while enabled, a DC gathers the smallest rectangle
// holding everything drawn on it (a little more for text, whose glyphs may
// reach past their cells), in logical coordinates when read.
#define DCB_RESET 0x0001
#define DCB_ACCUMULATE 0x0002
#define DCB_DIRTY DCB_ACCUMULATE
#define DCB_SET (DCB_RESET | DCB_ACCUMULATE)
#define DCB_ENABLE 0x0004
#define DCB_DISABLE 0x0008
UINT SetBoundsRect(HDC hdc, const RECT* rect, UINT flags);
UINT GetBoundsRect(HDC hdc, LPRECT rect, UINT flags);

// Mapping modes. A device point is (logical - window origin) * viewport
// extent / window extent + viewport origin, rounded; MM_TEXT ignores the
// extents, MM_ISOTROPIC keeps one scale for both axes. Fonts are realised at
// their mapped height; pens of width 0 and 1 stay one device pixel wide.
int SetMapMode(HDC hdc, int mode);
int GetMapMode(HDC hdc);
BOOL SetWindowExtEx(HDC hdc, int x, int y, LPSIZE previous);
BOOL GetWindowExtEx(HDC hdc, LPSIZE size);
BOOL SetViewportExtEx(HDC hdc, int x, int y, LPSIZE previous);
BOOL GetViewportExtEx(HDC hdc, LPSIZE size);
BOOL SetWindowOrgEx(HDC hdc, int x, int y, LPPOINT previous);
BOOL GetWindowOrgEx(HDC hdc, LPPOINT point);
BOOL SetViewportOrgEx(HDC hdc, int x, int y, LPPOINT previous);
BOOL GetViewportOrgEx(HDC hdc, LPPOINT point);
BOOL LPtoDP(HDC hdc, LPPOINT points, int count);
BOOL DPtoLP(HDC hdc, LPPOINT points, int count);

// Printing.
typedef struct _DOCINFOW {
    int cbSize;
    LPCWSTR lpszDocName;
    LPCWSTR lpszOutput;
    LPCWSTR lpszDatatype;
    DWORD fwType;
} DOCINFOW, *LPDOCINFOW, DOCINFO, *LPDOCINFO;
// A printer's settings for one DC, the leading part of the original's
// record: dmFields says which of the settings are given.
#define CCHDEVICENAME 32
#define DM_ORIENTATION 0x00000001
#define DM_COPIES 0x00000100
#define DM_COLLATE 0x00008000
#define DMORIENT_PORTRAIT 1
#define DMORIENT_LANDSCAPE 2
#define DMCOLLATE_FALSE 0
#define DMCOLLATE_TRUE 1
typedef struct _devicemodeW {
    WCHAR dmDeviceName[CCHDEVICENAME];
    WORD dmSpecVersion;
    WORD dmDriverVersion;
    WORD dmSize;
    WORD dmDriverExtra;
    DWORD dmFields;
    short dmOrientation;
    short dmPaperSize;
    short dmPaperLength;
    short dmPaperWidth;
    short dmScale;
    short dmCopies;
    short dmDefaultSource;
    short dmPrintQuality;
    short dmColor;
    short dmDuplex;
    short dmYResolution;
    short dmTTOption;
    short dmCollate;
} DEVMODEW, *LPDEVMODEW, DEVMODE, *LPDEVMODE;

// A printer DC: device is the printer's name (see platform/Printers.h), port
// the PDF printer's output file (StartDoc's lpszOutput wins over it), devMode
// a DEVMODE or null. Null for a printer that does not exist.
HDC CreateDCW(LPCWSTR driver, LPCWSTR device, LPCWSTR port, const void* devMode);
#define CreateDC CreateDCW
int StartDocW(HDC hdc, const DOCINFOW* info);
#define StartDoc StartDocW
int EndDoc(HDC hdc);
int StartPage(HDC hdc);
int EndPage(HDC hdc);
int AbortDoc(HDC hdc);
