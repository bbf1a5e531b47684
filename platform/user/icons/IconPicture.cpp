// Reading, scaling and drawing icon pictures. An .ico image is either a PNG
// file or a device-independent bitmap of twice the icon's height: the colour
// rows (bottom-up, 1 to 32 bits a pixel, with a colour table up to 8 bits),
// then a 1-bit mask where a set bit marks a transparent pixel. A 32-bit
// image carries its own alpha, unless every alpha is 0 (older icons), when
// the mask decides.
#include "IconPicture.h"

#include "../../gdi/DeviceContext.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace platform::user {

namespace {

// Larger pictures are refused rather than allocated.
constexpr int kLargest = 1024;

// Little-endian reads inside one block of bytes; every read is checked
// against the block's end first with Has.
class Bytes {
public:
    Bytes(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}
    bool Has(std::uint64_t at, std::uint64_t count) const {
        return at <= m_size && count <= m_size - at;
    }
    std::uint8_t U8(std::size_t at) const { return m_data[at]; }
    std::uint32_t U16(std::size_t at) const {
        return static_cast<std::uint32_t>(m_data[at] | (m_data[at + 1] << 8));
    }
    std::uint32_t U32(std::size_t at) const { return U16(at) | (U16(at + 2) << 16); }
    std::int32_t I32(std::size_t at) const { return static_cast<std::int32_t>(U32(at)); }
    const std::uint8_t* At(std::size_t at) const { return m_data + at; }
    std::size_t Size() const { return m_size; }

private:
    const std::uint8_t* m_data;
    std::size_t m_size;
};

constexpr std::uint8_t kPngSignature[8] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};

bool IsPng(const Bytes& image) {
    return image.Has(0, 8) && std::memcmp(image.At(0), kPngSignature, 8) == 0;
}

std::uint32_t Premultiplied(unsigned r, unsigned g, unsigned b, unsigned a) {
    auto scale = [a](unsigned c) { return (c * a + 127) / 255; };
    return (a << 24) | (scale(r) << 16) | (scale(g) << 8) | scale(b);
}

struct PngSource {
    const std::uint8_t* data;
    std::size_t left;
};

cairo_status_t ReadPng(void* closure, unsigned char* out, unsigned int length) {
    auto* source = static_cast<PngSource*>(closure);
    if (length > source->left)
        return CAIRO_STATUS_READ_ERROR;
    std::memcpy(out, source->data, length);
    source->data += length;
    source->left -= length;
    return CAIRO_STATUS_SUCCESS;
}

bool DecodePng(const Bytes& image, IconPicture* picture) {
    PngSource source{image.At(0), image.Size()};
    cairo_surface_t* surface = cairo_image_surface_create_from_png_stream(ReadPng, &source);
    bool ok = cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS;
    const cairo_format_t format = ok ? cairo_image_surface_get_format(surface) : CAIRO_FORMAT_A1;
    const int width = ok ? cairo_image_surface_get_width(surface) : 0;
    const int height = ok ? cairo_image_surface_get_height(surface) : 0;
    ok = ok && (format == CAIRO_FORMAT_ARGB32 || format == CAIRO_FORMAT_RGB24) && width > 0 &&
         height > 0 && width <= kLargest && height <= kLargest;
    if (ok) {
        cairo_surface_flush(surface);
        const unsigned char* data = cairo_image_surface_get_data(surface);
        const int stride = cairo_image_surface_get_stride(surface);
        picture->width = width;
        picture->height = height;
        picture->pixels.resize(static_cast<std::size_t>(width) * height);
        for (int y = 0; y < height; ++y) {
            const auto* row = reinterpret_cast<const std::uint32_t*>(data + y * stride);
            for (int x = 0; x < width; ++x)
                picture->pixels[static_cast<std::size_t>(y) * width + x] =
                    format == CAIRO_FORMAT_RGB24 ? (row[x] | 0xFF000000u) : row[x];
        }
    }
    cairo_surface_destroy(surface);
    return ok;
}

bool DecodeDib(const Bytes& image, IconPicture* picture) {
    if (!image.Has(0, 40))
        return false;
    const std::uint32_t headerSize = image.U32(0);
    const std::int32_t width = image.I32(4);
    const std::int32_t doubledHeight = image.I32(8);
    const std::uint32_t bits = image.U16(14);
    const std::uint32_t compression = image.U32(16);
    const std::uint32_t coloursUsed = image.U32(32);
    if (headerSize < 40 || !image.Has(0, headerSize))
        return false;
    const std::int32_t height = doubledHeight / 2;
    if (width <= 0 || width > kLargest || height <= 0 || height > kLargest)
        return false;
    if (compression != 0) // only uncompressed colour rows
        return false;
    if (bits != 1 && bits != 4 && bits != 8 && bits != 16 && bits != 24 && bits != 32)
        return false;
    // The colour table: up to 8 bits its full size unless the header says
    // fewer; above 8 bits an optional table that the pixels do not use.
    const std::uint64_t tableEntries =
        bits <= 8 ? (coloursUsed ? coloursUsed : 1u << bits) : coloursUsed;
    if (bits <= 8 && tableEntries > (1u << bits))
        return false;
    const std::uint64_t tableAt = headerSize;
    const std::uint64_t rowsAt = tableAt + 4 * tableEntries;
    const std::uint64_t rowBytes = (static_cast<std::uint64_t>(width) * bits + 31) / 32 * 4;
    const std::uint64_t maskRowBytes = (static_cast<std::uint64_t>(width) + 31) / 32 * 4;
    const std::uint64_t maskAt = rowsAt + rowBytes * height;
    if (!image.Has(tableAt, 4 * tableEntries) || !image.Has(rowsAt, rowBytes * height))
        return false;
    const bool hasMask = image.Has(maskAt, maskRowBytes * height);
    if (!hasMask && bits != 32)
        return false;

    auto colourAt = [&](std::size_t row, int x, unsigned* r, unsigned* g, unsigned* b,
                        unsigned* a) {
        const std::size_t line = rowsAt + row * rowBytes;
        *a = 255;
        if (bits <= 8) {
            const std::size_t bit = static_cast<std::size_t>(x) * bits;
            const unsigned byte = image.U8(line + bit / 8);
            const unsigned shift = 8 - bits - bit % 8;
            const unsigned index = (byte >> shift) & ((1u << bits) - 1);
            if (index >= tableEntries) {
                *r = *g = *b = 0;
                return;
            }
            const std::size_t entry = tableAt + 4 * index;
            *b = image.U8(entry);
            *g = image.U8(entry + 1);
            *r = image.U8(entry + 2);
        } else if (bits == 16) {
            const unsigned v = image.U16(line + 2 * static_cast<std::size_t>(x));
            *r = ((v >> 10) & 31) * 255 / 31;
            *g = ((v >> 5) & 31) * 255 / 31;
            *b = (v & 31) * 255 / 31;
        } else {
            const std::size_t at = line + static_cast<std::size_t>(x) * (bits / 8);
            *b = image.U8(at);
            *g = image.U8(at + 1);
            *r = image.U8(at + 2);
            if (bits == 32)
                *a = image.U8(at + 3);
        }
    };
    auto masked = [&](std::size_t row, int x) {
        const std::size_t at = maskAt + row * maskRowBytes + static_cast<std::size_t>(x) / 8;
        return ((image.U8(at) >> (7 - x % 8)) & 1) != 0;
    };

    // A 32-bit image whose alphas are all 0 predates alpha: its mask decides.
    bool ownAlpha = false;
    if (bits == 32)
        for (std::int32_t row = 0; row < height && !ownAlpha; ++row)
            for (std::int32_t x = 0; x < width && !ownAlpha; ++x)
                ownAlpha =
                    image.U8(rowsAt + row * rowBytes + 4 * static_cast<std::size_t>(x) + 3) != 0;
    if (bits == 32 && !ownAlpha && !hasMask)
        return false;

    picture->width = width;
    picture->height = height;
    picture->pixels.assign(static_cast<std::size_t>(width) * height, 0);
    for (std::int32_t y = 0; y < height; ++y) {
        const auto row = static_cast<std::size_t>(height - 1 - y); // rows are stored bottom-up
        for (std::int32_t x = 0; x < width; ++x) {
            unsigned r, g, b, a;
            colourAt(row, x, &r, &g, &b, &a);
            if (!ownAlpha)
                a = masked(row, x) ? 0 : 255;
            picture->pixels[static_cast<std::size_t>(y) * width + x] = Premultiplied(r, g, b, a);
        }
    }
    return true;
}

} // namespace

std::vector<IconEntry> ReadIconDirectory(const std::vector<std::uint8_t>& file) {
    const Bytes bytes(file.data(), file.size());
    if (!bytes.Has(0, 6) || bytes.U16(0) != 0 || bytes.U16(2) != 1)
        return {};
    const std::uint32_t count = bytes.U16(4);
    if (count == 0 || !bytes.Has(6, 16ull * count))
        return {};
    std::vector<IconEntry> entries;
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::size_t at = 6 + 16 * static_cast<std::size_t>(i);
        IconEntry entry;
        entry.width = bytes.U8(at) ? bytes.U8(at) : 256;
        entry.height = bytes.U8(at + 1) ? bytes.U8(at + 1) : 256;
        entry.bitCount = static_cast<int>(bytes.U16(at + 6));
        entry.size = bytes.U32(at + 8);
        entry.offset = bytes.U32(at + 12);
        if (entry.size == 0 || !bytes.Has(entry.offset, entry.size))
            return {};
        // Older files leave the depth to the image itself.
        if (entry.bitCount == 0) {
            const Bytes image(bytes.At(entry.offset), entry.size);
            entry.bitCount = IsPng(image) ? 32 : image.Has(14, 2) ? image.U16(14) : 0;
        }
        entries.push_back(entry);
    }
    return entries;
}

int ChooseIconEntry(const std::vector<IconEntry>& entries, int cx, int cy) {
    int best = -1;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const IconEntry& e = entries[i];
        if (best < 0) {
            best = static_cast<int>(i);
            continue;
        }
        const IconEntry& b = entries[static_cast<std::size_t>(best)];
        const int distance = std::abs(e.width - cx) + std::abs(e.height - cy);
        const int bestDistance = std::abs(b.width - cx) + std::abs(b.height - cy);
        const long area = static_cast<long>(e.width) * e.height;
        const long bestArea = static_cast<long>(b.width) * b.height;
        if (distance < bestDistance || (distance == bestDistance && area > bestArea) ||
            (distance == bestDistance && area == bestArea && e.bitCount > b.bitCount))
            best = static_cast<int>(i);
    }
    return best;
}

bool DecodeIconImage(const std::vector<std::uint8_t>& file, const IconEntry& entry,
                     IconPicture* picture) {
    *picture = IconPicture{};
    const Bytes all(file.data(), file.size());
    if (!all.Has(entry.offset, entry.size))
        return false;
    const Bytes image(all.At(entry.offset), entry.size);
    const bool ok = IsPng(image) ? DecodePng(image, picture) : DecodeDib(image, picture);
    if (!ok)
        *picture = IconPicture{};
    return ok;
}

IconPicture ScalePicture(const IconPicture& source, int cx, int cy) {
    if (source.Empty() || cx <= 0 || cy <= 0)
        return IconPicture{};
    if (cx == source.width && cy == source.height)
        return source;
    IconPicture target;
    target.width = cx;
    target.height = cy;
    target.pixels.resize(static_cast<std::size_t>(cx) * cy);
    const double sx = static_cast<double>(source.width) / cx;
    const double sy = static_cast<double>(source.height) / cy;
    for (int ty = 0; ty < cy; ++ty) {
        const double y0 = ty * sy, y1 = (ty + 1) * sy;
        for (int tx = 0; tx < cx; ++tx) {
            const double x0 = tx * sx, x1 = (tx + 1) * sx;
            double sum[4] = {0, 0, 0, 0};
            for (int y = static_cast<int>(y0); y < source.height && y < y1; ++y) {
                const double wy = std::min<double>(y1, y + 1) - std::max<double>(y0, y);
                for (int x = static_cast<int>(x0); x < source.width && x < x1; ++x) {
                    const double w = wy * (std::min<double>(x1, x + 1) - std::max<double>(x0, x));
                    const std::uint32_t p =
                        source.pixels[static_cast<std::size_t>(y) * source.width + x];
                    for (int c = 0; c < 4; ++c)
                        sum[c] += w * ((p >> (8 * c)) & 0xFF);
                }
            }
            std::uint32_t pixel = 0;
            for (int c = 0; c < 4; ++c) {
                const auto v = static_cast<std::uint32_t>(std::lround(sum[c] / (sx * sy)));
                pixel |= std::min<std::uint32_t>(v, 255) << (8 * c);
            }
            target.pixels[static_cast<std::size_t>(ty) * cx + tx] = pixel;
        }
    }
    return target;
}

void ThresholdAlpha(IconPicture* picture) {
    for (std::uint32_t& p : picture->pixels) {
        const unsigned a = p >> 24;
        if (a < 128) {
            p = 0;
            continue;
        }
        auto channel = [&](int shift) {
            const unsigned c = (p >> shift) & 0xFF;
            return std::min<unsigned>((c * 255 + a / 2) / a, 255);
        };
        p = 0xFF000000u | (channel(16) << 16) | (channel(8) << 8) | channel(0);
    }
}

bool DrawPicture(HDC hdc, int x, int y, const IconPicture& picture, IconDraw how) {
    gdi::DeviceContext* dc = gdi::LookupDC(hdc);
    if (!dc)
        return false;
    if (picture.Empty())
        return true;
    if (dc->journal) {
        JournalEntry& entry = gdi::Record(*dc, "DrawIcon");
        entry.args[0] = x;
        entry.args[1] = y;
        entry.args[2] = picture.width;
        entry.args[3] = picture.height;
    }
    // Cairo owns the copy: a printer's page may hold on to it until the page
    // is written.
    cairo_surface_t* surface =
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, picture.width, picture.height);
    if (cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(surface);
        return false;
    }
    cairo_surface_flush(surface);
    unsigned char* data = cairo_image_surface_get_data(surface);
    const int stride = cairo_image_surface_get_stride(surface);
    for (int row = 0; row < picture.height; ++row) {
        auto* line =
            reinterpret_cast<std::uint32_t*>(data + static_cast<std::ptrdiff_t>(row) * stride);
        for (int col = 0; col < picture.width; ++col) {
            std::uint32_t p = picture.pixels[static_cast<std::size_t>(row) * picture.width + col];
            if (how == IconDraw::Image)
                p |= 0xFF000000u; // premultiplied colours are the colours over black
            else if (how == IconDraw::Mask)
                p = (p >> 24) >= 128 ? 0xFF000000u : 0xFFFFFFFFu;
            line[col] = p;
        }
    }
    cairo_surface_mark_dirty(surface);
    gdi::AddBounds(*dc, RECT{x, y, x + picture.width, y + picture.height});
    cairo_t* cr = Cairo(*dc);
    cairo_save(cr);
    cairo_set_source_surface(cr, surface, x, y);
    cairo_pattern_set_filter(cairo_get_source(cr), CAIRO_FILTER_NEAREST);
    cairo_rectangle(cr, x, y, picture.width, picture.height);
    cairo_fill(cr);
    cairo_restore(cr);
    cairo_surface_destroy(surface);
    return true;
}

} // namespace platform::user
