// CDC: the device context class over the GDI calls.
#include "HandleMaps.h"

#include <winuser.h>

CDC::~CDC() {
    if (m_hDC)
        ::DeleteDC(Detach());
}

BOOL CDC::Attach(HDC hdc) {
    if (!hdc)
        return FALSE;
    m_hDC = m_hAttribDC = hdc;
    platform::afx::AttachPermanent(hdc, this);
    return TRUE;
}

HDC CDC::Detach() {
    HDC hdc = m_hDC;
    if (hdc)
        platform::afx::DetachPermanent(hdc);
    m_hDC = m_hAttribDC = nullptr;
    return hdc;
}

BOOL CDC::CreateCompatibleDC(CDC* dc) {
    return Attach(::CreateCompatibleDC(dc ? dc->m_hDC : nullptr));
}

BOOL CDC::DeleteDC() {
    if (!m_hDC)
        return FALSE;
    return ::DeleteDC(Detach());
}

CDC* CDC::FromHandle(HDC hdc) {
    if (!hdc)
        return nullptr;
    if (CObject* known = platform::afx::FindObject(hdc))
        return static_cast<CDC*>(known);
    DWORD type = ::GetObjectType(hdc);
    if (type != OBJ_DC && type != OBJ_MEMDC)
        return nullptr;
    auto* wrapper = new CDC();
    wrapper->m_hDC = wrapper->m_hAttribDC = hdc;
    platform::afx::AddTemporary(hdc, wrapper);
    return wrapper;
}

CGdiObject* CDC::SelectStockObject(int index) {
    HGDIOBJ stock = ::GetStockObject(index);
    return stock ? CGdiObject::FromHandle(::SelectObject(m_hDC, stock)) : nullptr;
}

CPen* CDC::SelectObject(CPen* pen) {
    return pen ? CPen::FromHandle(static_cast<HPEN>(::SelectObject(m_hDC, pen->m_hObject)))
               : nullptr;
}

CBrush* CDC::SelectObject(CBrush* brush) {
    return brush ? CBrush::FromHandle(static_cast<HBRUSH>(::SelectObject(m_hDC, brush->m_hObject)))
                 : nullptr;
}

CFont* CDC::SelectObject(CFont* font) {
    return font ? CFont::FromHandle(static_cast<HFONT>(::SelectObject(m_hDC, font->m_hObject)))
                : nullptr;
}

CBitmap* CDC::SelectObject(CBitmap* bitmap) {
    return bitmap
               ? CBitmap::FromHandle(static_cast<HBITMAP>(::SelectObject(m_hDC, bitmap->m_hObject)))
               : nullptr;
}

CGdiObject* CDC::SelectObject(CGdiObject* object) {
    return object ? CGdiObject::FromHandle(::SelectObject(m_hDC, object->m_hObject)) : nullptr;
}

CPen* CDC::GetCurrentPen() const {
    return CPen::FromHandle(static_cast<HPEN>(::GetCurrentObject(m_hDC, OBJ_PEN)));
}

CBrush* CDC::GetCurrentBrush() const {
    return CBrush::FromHandle(static_cast<HBRUSH>(::GetCurrentObject(m_hDC, OBJ_BRUSH)));
}

CFont* CDC::GetCurrentFont() const {
    return CFont::FromHandle(static_cast<HFONT>(::GetCurrentObject(m_hDC, OBJ_FONT)));
}

COLORREF CDC::SetTextColor(COLORREF color) {
    return ::SetTextColor(m_hDC, color);
}

COLORREF CDC::GetTextColor() const {
    return ::GetTextColor(m_hAttribDC);
}

COLORREF CDC::SetBkColor(COLORREF color) {
    return ::SetBkColor(m_hDC, color);
}

COLORREF CDC::GetBkColor() const {
    return ::GetBkColor(m_hAttribDC);
}

int CDC::SetBkMode(int mode) {
    return ::SetBkMode(m_hDC, mode);
}

int CDC::GetBkMode() const {
    return ::GetBkMode(m_hAttribDC);
}

int CDC::GetDeviceCaps(int index) const {
    return ::GetDeviceCaps(m_hAttribDC, index);
}

BOOL CDC::TextOut(int x, int y, LPCTSTR text, int count) {
    return ::TextOutW(m_hDC, x, y, text, count);
}

BOOL CDC::TextOut(int x, int y, const CString& text) {
    return ::TextOutW(m_hDC, x, y, text.GetString(), text.GetLength());
}

BOOL CDC::ExtTextOut(int x, int y, UINT options, LPCRECT rect, LPCTSTR text, UINT count,
                     const int* widths) {
    return ::ExtTextOutW(m_hDC, x, y, options, rect, text, count, widths);
}

CSize CDC::GetTextExtent(LPCTSTR text, int count) const {
    SIZE size{0, 0};
    ::GetTextExtentPoint32W(m_hAttribDC, text, count, &size);
    return CSize(size);
}

CSize CDC::GetTextExtent(const CString& text) const {
    return GetTextExtent(text.GetString(), text.GetLength());
}

BOOL CDC::GetTextMetrics(LPTEXTMETRIC tm) const {
    return ::GetTextMetricsW(m_hAttribDC, tm);
}

CPoint CDC::MoveTo(int x, int y) {
    POINT previous{0, 0};
    ::MoveToEx(m_hDC, x, y, &previous);
    return CPoint(previous);
}

BOOL CDC::LineTo(int x, int y) {
    return ::LineTo(m_hDC, x, y);
}

BOOL CDC::Polyline(const POINT* points, int count) {
    return ::Polyline(m_hDC, points, count);
}

BOOL CDC::Polygon(const POINT* points, int count) {
    return ::Polygon(m_hDC, points, count);
}

BOOL CDC::Rectangle(int left, int top, int right, int bottom) {
    return ::Rectangle(m_hDC, left, top, right, bottom);
}

BOOL CDC::Rectangle(LPCRECT rect) {
    return rect ? ::Rectangle(m_hDC, rect->left, rect->top, rect->right, rect->bottom) : FALSE;
}

void CDC::FillRect(LPCRECT rect, CBrush* brush) {
    if (brush)
        ::FillRect(m_hDC, rect, static_cast<HBRUSH>(brush->m_hObject));
}

// As in the framework, the fill leaves the background colour set to the fill's.
void CDC::FillSolidRect(LPCRECT rect, COLORREF color) {
    ::SetBkColor(m_hDC, color);
    ::ExtTextOutW(m_hDC, 0, 0, ETO_OPAQUE, rect, nullptr, 0, nullptr);
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF color) {
    RECT rect{x, y, x + cx, y + cy};
    FillSolidRect(&rect, color);
}

void CDC::FrameRect(LPCRECT rect, CBrush* brush) {
    if (brush)
        ::FrameRect(m_hDC, rect, static_cast<HBRUSH>(brush->m_hObject));
}

BOOL CDC::PatBlt(int x, int y, int width, int height, DWORD rop) {
    return ::PatBlt(m_hDC, x, y, width, height, rop);
}

BOOL CDC::BitBlt(int x, int y, int width, int height, CDC* src, int xSrc, int ySrc, DWORD rop) {
    return ::BitBlt(m_hDC, x, y, width, height, src ? src->m_hDC : nullptr, xSrc, ySrc, rop);
}

COLORREF CDC::GetPixel(int x, int y) const {
    return ::GetPixel(m_hDC, x, y);
}

COLORREF CDC::SetPixel(int x, int y, COLORREF color) {
    return ::SetPixel(m_hDC, x, y, color);
}

int CDC::GetClipBox(LPRECT rect) const {
    return ::GetClipBox(m_hDC, rect);
}

UINT CDC::SetBoundsRect(LPCRECT rect, UINT flags) {
    return ::SetBoundsRect(m_hDC, rect, flags);
}

UINT CDC::GetBoundsRect(LPRECT rect, UINT flags) {
    return ::GetBoundsRect(m_hDC, rect, flags);
}

int CDC::StartDoc(LPDOCINFO info) {
    return ::StartDoc(m_hDC, info);
}

int CDC::StartDoc(LPCTSTR docName) {
    DOCINFO info{};
    info.cbSize = sizeof(info);
    info.lpszDocName = docName;
    return ::StartDoc(m_hDC, &info);
}

int CDC::StartPage() {
    return ::StartPage(m_hDC);
}

int CDC::EndPage() {
    return ::EndPage(m_hDC);
}

int CDC::EndDoc() {
    return ::EndDoc(m_hDC);
}

int CDC::AbortDoc() {
    return ::AbortDoc(m_hDC);
}
