// CGdiObject and the pen, brush, font and bitmap classes.
#include "HandleMaps.h"

using platform::afx::AttachPermanent;
using platform::afx::DetachPermanent;

CGdiObject::~CGdiObject() {
    DeleteObject();
}

BOOL CGdiObject::Attach(HGDIOBJ handle) {
    if (!handle)
        return FALSE;
    m_hObject = handle;
    AttachPermanent(handle, this);
    return TRUE;
}

HGDIOBJ CGdiObject::Detach() {
    HGDIOBJ handle = m_hObject;
    if (handle)
        DetachPermanent(handle);
    m_hObject = nullptr;
    return handle;
}

BOOL CGdiObject::DeleteObject() {
    if (!m_hObject)
        return FALSE;
    return ::DeleteObject(Detach());
}

int CGdiObject::GetObject(int size, LPVOID out) const {
    return ::GetObjectW(m_hObject, size, out);
}

BOOL CGdiObject::CreateStockObject(int index) {
    return Attach(::GetStockObject(index));
}

CGdiObject* CGdiObject::FromHandle(HGDIOBJ handle) {
    if (!handle)
        return nullptr;
    if (CObject* known = platform::afx::FindObject(handle))
        return static_cast<CGdiObject*>(known);
    CGdiObject* wrapper = nullptr;
    switch (::GetObjectType(handle)) {
    case OBJ_PEN:
        wrapper = new CPen();
        break;
    case OBJ_BRUSH:
        wrapper = new CBrush();
        break;
    case OBJ_FONT:
        wrapper = new CFont();
        break;
    case OBJ_BITMAP:
        wrapper = new CBitmap();
        break;
    default:
        return nullptr; // not a live GDI object
    }
    wrapper->m_hObject = handle;
    platform::afx::AddTemporary(handle, wrapper);
    return wrapper;
}

CPen::CPen(int style, int width, COLORREF color) {
    CreatePen(style, width, color);
}

BOOL CPen::CreatePen(int style, int width, COLORREF color) {
    return Attach(::CreatePen(style, width, color));
}

BOOL CPen::CreatePen(int style, int width, const LOGBRUSH* brush, int styleCount,
                     const DWORD* styles) {
    return Attach(::ExtCreatePen(static_cast<DWORD>(style), static_cast<DWORD>(width), brush,
                                 static_cast<DWORD>(styleCount), styles));
}

CPen* CPen::FromHandle(HPEN handle) {
    return static_cast<CPen*>(CGdiObject::FromHandle(handle));
}

CBrush::CBrush(COLORREF color) {
    CreateSolidBrush(color);
}

BOOL CBrush::CreateSolidBrush(COLORREF color) {
    return Attach(::CreateSolidBrush(color));
}

CBrush* CBrush::FromHandle(HBRUSH handle) {
    return static_cast<CBrush*>(CGdiObject::FromHandle(handle));
}

BOOL CFont::CreateFontIndirect(const LOGFONT* lf) {
    return Attach(::CreateFontIndirectW(lf));
}

int CFont::GetLogFont(LOGFONT* lf) const {
    return GetObject(sizeof(LOGFONT), lf);
}

CFont* CFont::FromHandle(HFONT handle) {
    return static_cast<CFont*>(CGdiObject::FromHandle(handle));
}

BOOL CBitmap::CreateCompatibleBitmap(CDC* dc, int width, int height) {
    return Attach(::CreateCompatibleBitmap(dc ? dc->m_hDC : nullptr, width, height));
}

CBitmap* CBitmap::FromHandle(HBITMAP handle) {
    return static_cast<CBitmap*>(CGdiObject::FromHandle(handle));
}
