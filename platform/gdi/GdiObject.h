// The GDI object model behind the handles: pens, brushes, fonts, bitmaps and
// device contexts. A handle is the address of its object; every handle that
// comes in is checked against the table of live objects first, so a stale or
// made-up handle fails cleanly instead of being dereferenced.
#pragma once

#include <wingdi.h>

#include <memory>

typedef struct _cairo_surface cairo_surface_t;

namespace platform::gdi {

class FontInstance;
struct DeviceContext;

struct GdiObject {
    DWORD type = 0;     // OBJ_PEN, OBJ_BRUSH, OBJ_FONT, OBJ_BITMAP, OBJ_DC, OBJ_MEMDC
    bool stock = false; // stock objects are never deleted
    int selections = 0; // how many DCs have it selected
    bool deletePending = false;
    void* handle = nullptr; // never reused, so a stale handle stays invalid

    explicit GdiObject(DWORD objectType) : type(objectType) {}
    virtual ~GdiObject() = default;
};

struct Pen : GdiObject {
    DWORD style = PS_SOLID; // the full style word: type, end cap, join and line style
    int width = 1;
    COLORREF color = 0;
    Pen() : GdiObject(OBJ_PEN) {}
    bool Geometric() const { return (style & PS_TYPE_MASK) == PS_GEOMETRIC; }
    bool Null() const { return (style & PS_STYLE_MASK) == PS_NULL; }
};

struct Brush : GdiObject {
    UINT style = BS_SOLID;
    COLORREF color = 0;
    Brush() : GdiObject(OBJ_BRUSH) {}
};

struct Font : GdiObject {
    LOGFONTW logFont{};
    std::shared_ptr<FontInstance> instance;
    Font() : GdiObject(OBJ_FONT) {}
};

struct Bitmap : GdiObject {
    cairo_surface_t* surface = nullptr; // RGB24 image, owned
    int width = 0;
    int height = 0;
    Bitmap() : GdiObject(OBJ_BITMAP) {}
    ~Bitmap() override;
};

// Registers a new object and counts it as live; returns its handle.
void* Register(GdiObject* object);
// The live object behind a handle, or null for an unknown or stale handle.
GdiObject* Lookup(const void* handle);
void* HandleOf(const GdiObject* object); // null for null
template <class T> T* LookupAs(const void* handle, DWORD type) {
    GdiObject* object = Lookup(handle);
    return object && object->type == type ? static_cast<T*>(object) : nullptr;
}
// Removes an object from the table, updates the counters and frees it.
void Destroy(GdiObject* object);
// Called when a DC lets go of an object: finishes a deletion that had to wait
// because the object was selected.
void Release(GdiObject* object);
void Retain(GdiObject* object);

// Stock objects by index; the default bitmap of memory DCs is a stock 1 x 1 bitmap.
GdiObject* Stock(int index);
// A solid brush that lives as long as the process and, like the stock objects,
// is neither counted as live nor ever deleted: the system colour brushes.
void* MakeSystemBrush(COLORREF color);
Bitmap* DefaultBitmap();

// Tells the class framework's handle maps that a handle is gone.
void NotifyHandleGone(void* handle);

// Whether drawing may bypass Cairo with direct pixel writes (glyph blits and
// axis-aligned strokes). On by default; tests compare both paths.
bool FastPathsEnabled();

} // namespace platform::gdi
