// Polygons on raster surfaces. Without anti-aliasing, Cairo's rendering of a
// shape moved by whole pixels is the same pixels moved, so the fill and the
// outline of each shape are rendered by Cairo once, into masks kept per shape,
// and stamped wherever the shape is drawn again. A line-drawing glyph draws the
// same small polygon in every cell.
#include "Painting.h"
#include "PixelAccess.h"

#include <cairo.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace platform::gdi {
namespace {

struct Shape {
    std::vector<POINT> points; // relative to the smallest x and y
    int fillMode;              // 0 when not filled
    int penWidth;              // 0 when not outlined
    DWORD penStyle;
};

bool operator==(const Shape& a, const Shape& b) {
    return a.fillMode == b.fillMode && a.penWidth == b.penWidth && a.penStyle == b.penStyle &&
           a.points.size() == b.points.size() &&
           std::equal(a.points.begin(), a.points.end(), b.points.begin(),
                      [](const POINT& p, const POINT& q) { return p.x == q.x && p.y == q.y; });
}

struct Masks {
    Shape shape;
    int left; // of the masks, relative to the smallest x and y
    int top;
    int width;
    int height;
    std::vector<unsigned char> fill;
    std::vector<unsigned char> outline;
};

// Shapes bigger than this go through Cairo each time.
constexpr int kMaxExtent = 256;
constexpr std::size_t kMaxShapes = 32;

std::vector<Masks>& Cache() {
    static auto* cache = new std::vector<Masks>();
    return *cache;
}

// Renders the shape as Polygon's Cairo path does, fill and outline apart.
bool Render(Masks& masks) {
    const Shape& shape = masks.shape;
    cairo_surface_t* surface =
        cairo_image_surface_create(CAIRO_FORMAT_A8, masks.width, masks.height);
    if (cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(surface);
        return false;
    }
    auto pass = [&](bool fill, std::vector<unsigned char>& out) {
        cairo_t* cr = cairo_create(surface);
        cairo_set_operator(cr, CAIRO_OPERATOR_CLEAR);
        cairo_paint(cr);
        cairo_set_operator(cr, CAIRO_OPERATOR_OVER);
        cairo_set_antialias(cr, CAIRO_ANTIALIAS_NONE);
        cairo_translate(cr, -masks.left, -masks.top);
        cairo_move_to(cr, shape.points[0].x + 0.5, shape.points[0].y + 0.5);
        for (std::size_t i = 1; i < shape.points.size(); ++i)
            cairo_line_to(cr, shape.points[i].x + 0.5, shape.points[i].y + 0.5);
        cairo_close_path(cr);
        cairo_set_source_rgba(cr, 0, 0, 0, 1);
        if (fill) {
            cairo_set_fill_rule(cr, shape.fillMode == WINDING ? CAIRO_FILL_RULE_WINDING
                                                              : CAIRO_FILL_RULE_EVEN_ODD);
            cairo_fill(cr);
        } else {
            cairo_set_line_width(cr, shape.penWidth);
            cairo_set_line_cap(cr, CairoCap(shape.penStyle));
            cairo_set_line_join(cr, CairoJoin(shape.penStyle));
            cairo_stroke(cr);
        }
        cairo_destroy(cr);
        cairo_surface_flush(surface);
        const unsigned char* data = cairo_image_surface_get_data(surface);
        const int stride = cairo_image_surface_get_stride(surface);
        out.assign(static_cast<std::size_t>(masks.width) * masks.height, 0);
        for (int y = 0; y < masks.height; ++y)
            for (int x = 0; x < masks.width; ++x)
                out[static_cast<std::size_t>(y) * masks.width + x] =
                    data[static_cast<long>(y) * stride + x] ? 1 : 0;
    };
    if (shape.fillMode)
        pass(true, masks.fill);
    if (shape.penWidth)
        pass(false, masks.outline);
    cairo_surface_destroy(surface);
    return true;
}

const Masks* MasksFor(Shape&& shape, int extentX, int extentY) {
    std::vector<Masks>& cache = Cache();
    for (const Masks& masks : cache)
        if (masks.shape == shape)
            return &masks;
    if (cache.size() >= kMaxShapes)
        cache.clear();
    // Room for the outline around the points, with a pixel to spare.
    const int margin = shape.penWidth + 2;
    Masks masks{std::move(shape),         -margin, -margin, extentX + 1 + 2 * margin,
                extentY + 1 + 2 * margin, {},      {}};
    if (!Render(masks))
        return nullptr;
    cache.push_back(std::move(masks));
    return &cache.back();
}

} // namespace

bool PolygonFromMasks(DeviceContext& dc, const POINT* points, int count) {
    const Pen& pen = *dc.pen;
    const bool outline = !pen.Null();
    if (!dc.Direct() || !FastPathsEnabled() || count < 2 ||
        (outline && (!pen.Geometric() || (pen.style & PS_STYLE_MASK) != PS_SOLID ||
                     (pen.style & PS_JOIN_MASK) == PS_JOIN_MITER)))
        return false; // a mitred corner reaches further than the masks' margin
    const bool fill = Paints(dc.brush);
    if (!fill && !outline)
        return true;
    int minX = points[0].x, minY = points[0].y, maxX = minX, maxY = minY;
    for (int i = 1; i < count; ++i) {
        minX = std::min<int>(minX, points[i].x);
        minY = std::min<int>(minY, points[i].y);
        maxX = std::max<int>(maxX, points[i].x);
        maxY = std::max<int>(maxY, points[i].y);
    }
    const int width = outline ? std::max(pen.width, 1) : 0;
    if (static_cast<long long>(maxX) - minX > kMaxExtent ||
        static_cast<long long>(maxY) - minY > kMaxExtent || width > kMaxExtent)
        return false;
    Shape shape{std::vector<POINT>(points, points + count), fill ? dc.polyFillMode : 0, width,
                outline ? pen.style : 0};
    for (POINT& p : shape.points)
        p = POINT{p.x - minX, p.y - minY};
    const Masks* masks = MasksFor(std::move(shape), maxX - minX, maxY - minY);
    if (!masks)
        return false;
    PixelAccess pixels(dc);
    const int x = minX + masks->left + dc.origin.x;
    const int y = minY + masks->top + dc.origin.y;
    // Cairo cuts a shape at the clip before it rasterises it, which can move
    // pixels along the cut: only shapes wholly inside are stamped.
    if (!pixels.Inside(x, y, masks->width, masks->height))
        return false;
    if (fill)
        pixels.Stamp(x, y, masks->width, masks->height, masks->fill.data(),
                     PixelAccess::Pixel(dc.brush->color));
    if (outline)
        pixels.Stamp(x, y, masks->width, masks->height, masks->outline.data(),
                     PixelAccess::Pixel(pen.color));
    return true;
}

} // namespace platform::gdi
