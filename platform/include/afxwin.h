// The class framework's window and drawing classes.
#pragma once

#include "afx.h"

class CDC;

// A GDI object owned by a C++ object: the handle is deleted with the object
// unless it was detached. FromHandle gives the C++ object that owns a handle, or a
// temporary wrapper that lives until the handle is deleted.
class CGdiObject : public CObject {
public:
    HGDIOBJ m_hObject = nullptr;

    CGdiObject() = default;
    ~CGdiObject() override;

    HGDIOBJ GetSafeHandle() const { return m_hObject; }
    operator HGDIOBJ() const { return m_hObject; }
    BOOL Attach(HGDIOBJ handle);
    HGDIOBJ Detach();
    BOOL DeleteObject();
    int GetObject(int size, LPVOID out) const;
    BOOL CreateStockObject(int index);

    static CGdiObject* FromHandle(HGDIOBJ handle);
};

class CPen : public CGdiObject {
public:
    CPen() = default;
    CPen(int style, int width, COLORREF color);
    BOOL CreatePen(int style, int width, COLORREF color);
    BOOL CreatePen(int style, int width, const LOGBRUSH* brush, int styleCount = 0,
                   const DWORD* styles = nullptr);
    operator HPEN() const { return static_cast<HPEN>(m_hObject); }
    static CPen* FromHandle(HPEN handle);
};

class CBrush : public CGdiObject {
public:
    CBrush() = default;
    explicit CBrush(COLORREF color);
    BOOL CreateSolidBrush(COLORREF color);
    operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); }
    static CBrush* FromHandle(HBRUSH handle);
};

class CFont : public CGdiObject {
public:
    BOOL CreateFontIndirect(const LOGFONT* lf);
    int GetLogFont(LOGFONT* lf) const;
    operator HFONT() const { return static_cast<HFONT>(m_hObject); }
    static CFont* FromHandle(HFONT handle);
};

class CBitmap : public CGdiObject {
public:
    BOOL CreateCompatibleBitmap(CDC* dc, int width, int height);
    int GetBitmap(BITMAP* bitmap) const { return GetObject(sizeof(BITMAP), bitmap); }
    operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }
    static CBitmap* FromHandle(HBITMAP handle);
};

// A device context. Output goes to m_hDC; attribute queries read m_hAttribDC,
// which is the same handle except where a subclass says otherwise.
class CDC : public CObject {
public:
    HDC m_hDC = nullptr;
    HDC m_hAttribDC = nullptr;
    // Set while the DC prints or draws a preview page.
    BOOL m_bPrinting = FALSE;

    CDC() = default;
    ~CDC() override;

    HDC GetSafeHdc() const { return m_hDC; }
    operator HDC() const { return m_hDC; }
    BOOL Attach(HDC hdc);
    HDC Detach();
    BOOL CreateCompatibleDC(CDC* dc);
    BOOL DeleteDC();
    static CDC* FromHandle(HDC hdc);

    CGdiObject* SelectStockObject(int index);
    CPen* SelectObject(CPen* pen);
    CBrush* SelectObject(CBrush* brush);
    CFont* SelectObject(CFont* font);
    CBitmap* SelectObject(CBitmap* bitmap);
    CGdiObject* SelectObject(CGdiObject* object);
    CPen* GetCurrentPen() const;
    CBrush* GetCurrentBrush() const;
    CFont* GetCurrentFont() const;

    COLORREF SetTextColor(COLORREF color);
    COLORREF GetTextColor() const;
    COLORREF SetBkColor(COLORREF color);
    COLORREF GetBkColor() const;
    int SetBkMode(int mode);
    int GetBkMode() const;
    int GetDeviceCaps(int index) const;

    BOOL TextOut(int x, int y, LPCTSTR text, int count);
    BOOL TextOut(int x, int y, const CString& text);
    BOOL ExtTextOut(int x, int y, UINT options, LPCRECT rect, LPCTSTR text, UINT count,
                    const int* widths);
    CSize GetTextExtent(LPCTSTR text, int count) const;
    CSize GetTextExtent(const CString& text) const;
    BOOL GetTextMetrics(LPTEXTMETRIC tm) const;

    CPoint MoveTo(int x, int y);
    BOOL LineTo(int x, int y);
    BOOL Polyline(const POINT* points, int count);
    BOOL Polygon(const POINT* points, int count);
    BOOL Rectangle(int left, int top, int right, int bottom);
    BOOL Rectangle(LPCRECT rect);
    void FillRect(LPCRECT rect, CBrush* brush);
    void FillSolidRect(LPCRECT rect, COLORREF color);
    void FillSolidRect(int x, int y, int cx, int cy, COLORREF color);
    void FrameRect(LPCRECT rect, CBrush* brush);
    BOOL PatBlt(int x, int y, int width, int height, DWORD rop);
    BOOL BitBlt(int x, int y, int width, int height, CDC* src, int xSrc, int ySrc, DWORD rop);
    COLORREF GetPixel(int x, int y) const;
    COLORREF SetPixel(int x, int y, COLORREF color);
    int GetClipBox(LPRECT rect) const;
    UINT SetBoundsRect(LPCRECT rect, UINT flags);
    UINT GetBoundsRect(LPRECT rect, UINT flags);

    // Formatted text in a rectangle (DrawText); the height of the text drawn.
    int DrawText(LPCTSTR text, int count, LPRECT rect, UINT format);
    int DrawText(const CString& text, LPRECT rect, UINT format);

    // Mapping modes. The setters return the previous mode, extent or origin.
    int SetMapMode(int mode);
    int GetMapMode() const;
    CSize SetWindowExt(int cx, int cy);
    CSize SetWindowExt(SIZE size) { return SetWindowExt(size.cx, size.cy); }
    CSize GetWindowExt() const;
    CSize SetViewportExt(int cx, int cy);
    CSize SetViewportExt(SIZE size) { return SetViewportExt(size.cx, size.cy); }
    CSize GetViewportExt() const;
    CPoint SetWindowOrg(int x, int y);
    CPoint GetWindowOrg() const;
    CPoint SetViewportOrg(int x, int y);
    CPoint GetViewportOrg() const;
    void LPtoDP(LPPOINT points, int count = 1) const;
    void LPtoDP(LPRECT rect) const;
    void DPtoLP(LPPOINT points, int count = 1) const;
    void DPtoLP(LPRECT rect) const;

    // Printing: a document of pages on a printer DC.
    BOOL IsPrinting() const { return m_bPrinting; }
    int StartDoc(LPDOCINFO info);
    int StartDoc(LPCTSTR docName);
    int StartPage();
    int EndPage();
    int EndDoc();
    int AbortDoc();

private:
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;
};

#include "afxapp.h"
#include "afxctrls.h"
#include "afxdialog.h"
#include "afxdlgs.h"
#include "afxdll_.h"
#include "afxdoc.h"
#include "afxdoctempl.h"
#include "afxframe.h"
#include "afxmdichild.h"
#include "afxmdiframe.h"
#include "afxmenu.h"
#include "afxprint.h"
#include "afxview.h"
#include "afxwnd.h"
