// The table of live GDI objects, the stock objects and the live-object counts.
#include "DeviceContext.h"

#include <platform/GdiObjects.h>

#include <cairo.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <unordered_map>

namespace platform::gdi {
namespace {

// Handles are serial numbers rather than addresses: a freed object's memory
// is reused at once, and a handle that outlived its object must not find the
// new one.
std::unordered_map<const void*, GdiObject*>& Table() {
    static auto* table = new std::unordered_map<const void*, GdiObject*>();
    return *table;
}

// The objects looked up most recently, by handle: a drawing call looks up its
// DC and the objects it selects again and again. Handles are never reused, so
// an entry is only cleared when its object is destroyed.
struct Recent {
    const void* handle = nullptr;
    GdiObject* object = nullptr;
};
constexpr std::size_t kRecentSlots = 64;
Recent g_recent[kRecentSlots];

Recent& RecentSlot(const void* handle) {
    return g_recent[(reinterpret_cast<uintptr_t>(handle) >> 2) % kRecentSlots];
}

void* NewHandle() {
    static uintptr_t next = 0x10000;
    next += 4;
    return reinterpret_cast<void*>(next);
}

void Enter(GdiObject* object) {
    object->handle = NewHandle();
    Table().emplace(object->handle, object);
    RecentSlot(object->handle) = Recent{object->handle, object};
}

GdiCounts& Counts() {
    static GdiCounts counts;
    return counts;
}

int* Counter(DWORD type) {
    switch (type) {
    case OBJ_PEN:
        return &Counts().pens;
    case OBJ_BRUSH:
        return &Counts().brushes;
    case OBJ_FONT:
        return &Counts().fonts;
    case OBJ_BITMAP:
        return &Counts().bitmaps;
    case OBJ_DC:
    case OBJ_MEMDC:
        return &Counts().dcs;
    default:
        return nullptr;
    }
}

GdiObject* MakeStock(GdiObject* object) {
    object->stock = true;
    Enter(object);
    return object;
}

Pen* StockPen(DWORD style, COLORREF color) {
    auto* pen = new Pen();
    pen->style = style;
    pen->color = color;
    return pen;
}

Brush* StockBrush(UINT style, COLORREF color) {
    auto* brush = new Brush();
    brush->style = style;
    brush->color = color;
    return brush;
}

Font* StockFont(const char16_t* face, LONG height, LONG weight);

} // namespace

Bitmap::~Bitmap() {
    if (surface)
        cairo_surface_destroy(surface);
}

void* Register(GdiObject* object) {
    Enter(object);
    if (int* counter = Counter(object->type))
        ++*counter;
    return object->handle;
}

GdiObject* Lookup(const void* handle) {
    if (!handle)
        return nullptr;
    Recent& recent = RecentSlot(handle);
    if (recent.handle == handle)
        return recent.object;
    auto found = Table().find(handle);
    if (found == Table().end())
        return nullptr;
    recent = Recent{handle, found->second};
    return found->second;
}

void* HandleOf(const GdiObject* object) {
    return object ? object->handle : nullptr;
}

void Destroy(GdiObject* object) {
    if (object->stock)
        return;
    Table().erase(object->handle);
    if (Recent& recent = RecentSlot(object->handle); recent.handle == object->handle)
        recent = Recent{};
    if (int* counter = Counter(object->type))
        --*counter;
    NotifyHandleGone(object->handle);
    delete object;
}

void Retain(GdiObject* object) {
    if (object)
        ++object->selections;
}

void Release(GdiObject* object) {
    if (!object)
        return;
    if (--object->selections == 0 && object->deletePending)
        Destroy(object);
}

void* MakeSystemBrush(COLORREF color) {
    return MakeStock(StockBrush(BS_SOLID, color))->handle;
}

GdiObject* Stock(int index) {
    static GdiObject* stock[18] = {
        MakeStock(StockBrush(BS_SOLID, RGB(255, 255, 255))),
        MakeStock(StockBrush(BS_SOLID, RGB(192, 192, 192))),
        MakeStock(StockBrush(BS_SOLID, RGB(128, 128, 128))),
        MakeStock(StockBrush(BS_SOLID, RGB(64, 64, 64))),
        MakeStock(StockBrush(BS_SOLID, RGB(0, 0, 0))),
        MakeStock(StockBrush(BS_NULL, 0)),
        MakeStock(StockPen(PS_SOLID, RGB(255, 255, 255))),
        MakeStock(StockPen(PS_SOLID, RGB(0, 0, 0))),
        MakeStock(StockPen(PS_NULL, 0)),
        nullptr,
        MakeStock(StockFont(u"Terminal", 12, FW_NORMAL)),
        MakeStock(StockFont(u"Courier New", 13, FW_NORMAL)),
        MakeStock(StockFont(u"MS Sans Serif", 13, FW_NORMAL)),
        MakeStock(StockFont(u"System", 16, FW_BOLD)),
        MakeStock(StockFont(u"System", 16, FW_BOLD)),
        nullptr,
        MakeStock(StockFont(u"Fixedsys", 15, FW_NORMAL)),
        MakeStock(StockFont(u"MS Shell Dlg", -11, FW_NORMAL)),
    };
    if (index < 0 || index >= static_cast<int>(std::size(stock)))
        return nullptr;
    return stock[index];
}

Bitmap* DefaultBitmap() {
    static Bitmap* bitmap = [] {
        auto* b = new Bitmap();
        b->width = 1;
        b->height = 1;
        b->surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 1, 1);
        MakeStock(b);
        return b;
    }();
    return bitmap;
}

namespace {

Font* StockFont(const char16_t* face, LONG height, LONG weight) {
    auto* font = new Font();
    font->logFont.lfHeight = height;
    font->logFont.lfWeight = weight;
    for (int i = 0; face[i] && i < LF_FACESIZE - 1; ++i)
        font->logFont.lfFaceName[i] = face[i];
    return font;
}

} // namespace
} // namespace platform::gdi

namespace platform {

GdiCounts LiveGdiObjects() {
    return gdi::Counts();
}

std::string ToString(const GdiCounts& counts) {
    return "pens " + std::to_string(counts.pens) + ", brushes " + std::to_string(counts.brushes) +
           ", fonts " + std::to_string(counts.fonts) + ", bitmaps " +
           std::to_string(counts.bitmaps) + ", DCs " + std::to_string(counts.dcs);
}

} // namespace platform

using namespace platform::gdi;
using platform::JournalEntry;

HGDIOBJ GetStockObject(int index) {
    return HandleOf(Stock(index));
}

DWORD GetObjectType(HGDIOBJ handle) {
    GdiObject* object = Lookup(handle);
    return object ? object->type : 0;
}

BOOL DeleteObject(HGDIOBJ handle) {
    GdiObject* object = Lookup(handle);
    if (!object || object->type == OBJ_DC || object->type == OBJ_MEMDC)
        return FALSE;
    if (object->stock)
        return TRUE;
    // An object still selected into a DC goes when the DC lets go of it.
    if (object->selections > 0) {
        object->deletePending = true;
        return TRUE;
    }
    Destroy(object);
    return TRUE;
}

int GetObjectW(HGDIOBJ handle, int size, LPVOID out) {
    GdiObject* object = Lookup(handle);
    if (!object)
        return 0;
    auto copy = [&](const auto& value) {
        int needed = static_cast<int>(sizeof(value));
        if (!out)
            return needed;
        if (size < needed)
            return 0;
        std::memcpy(out, &value, sizeof(value));
        return needed;
    };
    switch (object->type) {
    case OBJ_PEN: {
        auto* pen = static_cast<Pen*>(object);
        LOGPEN lp{pen->style, POINT{pen->width, 0}, pen->color};
        return copy(lp);
    }
    case OBJ_BRUSH: {
        auto* brush = static_cast<Brush*>(object);
        LOGBRUSH lb{brush->style, brush->color, 0};
        return copy(lb);
    }
    case OBJ_FONT:
        return copy(static_cast<Font*>(object)->logFont);
    case OBJ_BITMAP: {
        auto* bitmap = static_cast<Bitmap*>(object);
        BITMAP bm{};
        bm.bmWidth = bitmap->width;
        bm.bmHeight = bitmap->height;
        bm.bmWidthBytes = bitmap->width * 4;
        bm.bmPlanes = 1;
        bm.bmBitsPixel = 32;
        return copy(bm);
    }
    default:
        return 0;
    }
}

HPEN CreatePen(int style, int width, COLORREF color) {
    if ((style & PS_STYLE_MASK) > PS_NULL && (style & PS_STYLE_MASK) != 6)
        return nullptr;
    auto* pen = new Pen();
    // A wide pen is geometric, with round ends and joins.
    pen->style = static_cast<DWORD>(style & PS_STYLE_MASK);
    if (width > 1)
        pen->style |= PS_GEOMETRIC | PS_ENDCAP_ROUND | PS_JOIN_ROUND;
    pen->width = width < 0 ? 0 : width;
    pen->color = color & 0xFFFFFF;
    return static_cast<HPEN>(Register(pen));
}

HPEN ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH* brush, DWORD styleCount,
                  const DWORD* styles) {
    (void)styles;
    if (!brush || styleCount != 0)
        return nullptr;
    bool geometric = (style & PS_TYPE_MASK) == PS_GEOMETRIC;
    // A cosmetic pen is one pixel wide and has no caps or joins.
    if (!geometric && width != 1)
        return nullptr;
    if (width > 0x7FFF)
        return nullptr;
    auto* pen = new Pen();
    pen->style = style;
    pen->width = static_cast<int>(width);
    pen->color = brush->lbStyle == BS_NULL ? 0 : brush->lbColor & 0xFFFFFF;
    if (brush->lbStyle == BS_NULL)
        pen->style = (pen->style & ~PS_STYLE_MASK) | PS_NULL;
    return static_cast<HPEN>(Register(pen));
}

HBRUSH CreateSolidBrush(COLORREF color) {
    auto* brush = new Brush();
    brush->color = color & 0xFFFFFF;
    return static_cast<HBRUSH>(Register(brush));
}

HBITMAP CreateCompatibleBitmap(HDC hdc, int cx, int cy) {
    if (!LookupDC(hdc) || cx < 0 || cy < 0)
        return nullptr;
    // A zero size gives the 1 x 1 default bitmap, as the original does.
    if (cx == 0 || cy == 0)
        return static_cast<HBITMAP>(HandleOf(DefaultBitmap()));
    // Bounded so that a bad size fails instead of exhausting memory.
    if (cx > 32767 || cy > 32767 || static_cast<long long>(cx) * cy > (1LL << 28))
        return nullptr;
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, cx, cy);
    if (cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(surface);
        return nullptr;
    }
    // New bitmaps are black, as on the original.
    cairo_surface_flush(surface);
    unsigned char* data = cairo_image_surface_get_data(surface);
    std::memset(data, 0, static_cast<size_t>(cairo_image_surface_get_stride(surface)) * cy);
    cairo_surface_mark_dirty(surface);
    auto* bitmap = new Bitmap();
    bitmap->surface = surface;
    bitmap->width = cx;
    bitmap->height = cy;
    return static_cast<HBITMAP>(Register(bitmap));
}
