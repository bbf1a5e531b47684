// Fonts and text output. On raster surfaces glyphs are copied straight from a
// per-font cache of monochrome images into the pixels; printers, and fonts
// that need synthesised styles, draw through Cairo.
#include "DeviceContext.h"
#include "FontInstance.h"
#include "Painting.h"
#include "PixelAccess.h"

#include <cairo.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace platform::gdi {
namespace {

FontInstance& InstanceOf(Font& font) {
    if (!font.instance)
        font.instance = FontInstance::For(font.logFont);
    return *font.instance;
}

cairo_font_options_t* FontOptions(bool raster) {
    static cairo_font_options_t* screen = [] {
        cairo_font_options_t* options = cairo_font_options_create();
        cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_NONE);
        cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_FULL);
        cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_ON);
        return options;
    }();
    static cairo_font_options_t* print = [] {
        cairo_font_options_t* options = cairo_font_options_create();
        cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
        cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
        return options;
    }();
    return raster ? screen : print;
}

void BlitText(DeviceContext& dc, FontInstance& font, int x, int y, const char16_t* text, int count,
              int width) {
    PixelAccess pixels(dc);
    const TEXTMETRICW& tm = font.Metrics();
    int dx = x + dc.origin.x;
    int dy = y + dc.origin.y;
    if (dc.bkMode == OPAQUE)
        pixels.Fill(dx, dy, width, tm.tmHeight, dc.bkColor);
    uint32_t ink = PixelAccess::Pixel(dc.textColor);
    int pen = 0;
    for (int i = 0; i < count; ++i) {
        const Glyph& glyph = font.RenderedGlyph(text[i]);
        int left = dx + pen + glyph.left;
        int top = dy + tm.tmAscent - glyph.top;
        if (pixels.Inside(left, top, glyph.width, glyph.rows)) {
            for (const Glyph::Run& run : glyph.runs)
                pixels.Row(left + run.x, top + run.y, run.length, ink);
            if (!glyph.runs.empty())
                pixels.Touch(left, top, left + glyph.width, top + glyph.rows);
        } else {
            pixels.Stamp(left, top, glyph.width, glyph.rows, glyph.bits.data(), ink);
        }
        pen += glyph.advance;
    }
    if (font.Underline())
        pixels.Fill(dx, dy + font.UnderlineTop(), width, font.UnderlineHeight(), dc.textColor);
    if (font.StrikeOut())
        pixels.Fill(dx, dy + font.StrikeOutTop(), width, font.StrikeOutHeight(), dc.textColor);
}

void CairoText(DeviceContext& dc, FontInstance& font, int x, int y, const char16_t* text, int count,
               int width) {
    const TEXTMETRICW& tm = font.Metrics();
    cairo_t* cr = Cairo(dc);
    if (dc.bkMode == OPAQUE) {
        SetSource(dc, dc.bkColor);
        cairo_rectangle(cr, x, y, width, tm.tmHeight);
        cairo_fill(cr);
    }
    // Most texts are short: their glyphs stay on the stack.
    cairo_glyph_t local[64];
    std::vector<cairo_glyph_t> many;
    cairo_glyph_t* glyphs = local;
    if (count > 64) {
        many.resize(static_cast<size_t>(count));
        glyphs = many.data();
    }
    int pen = 0;
    for (int i = 0; i < count; ++i) {
        const Glyph& glyph = font.GlyphFor(text[i]);
        glyphs[i] = cairo_glyph_t{glyph.index, static_cast<double>(x + pen),
                                  static_cast<double>(y + tm.tmAscent)};
        pen += glyph.advance;
    }
    if (cairo_font_face_t* face = font.CairoFace()) {
        if (dc.cairoFace != face || dc.cairoPpem != font.Ppem()) {
            cairo_set_font_face(cr, face);
            cairo_set_font_size(cr, font.Ppem());
            cairo_set_font_options(cr, FontOptions(dc.Raster()));
            dc.cairoFace = face;
            dc.cairoPpem = font.Ppem();
        }
        SetSource(dc, dc.textColor);
        cairo_show_glyphs(cr, glyphs, count);
    }
    SetSource(dc, dc.textColor);
    if (font.Underline())
        cairo_rectangle(cr, x, y + font.UnderlineTop(), width, font.UnderlineHeight());
    if (font.StrikeOut())
        cairo_rectangle(cr, x, y + font.StrikeOutTop(), width, font.StrikeOutHeight());
    cairo_fill(cr);
}

// The selected font as the device draws it: under a scaling mapping mode
// its height and width are mapped to device pixels first.
FontInstance& CurrentFont(DeviceContext& dc) {
    if (dc.mapping.Unscaled())
        return InstanceOf(*dc.font);
    LOGFONTW lf = dc.font->logFont;
    lf.lfHeight = dc.mapping.HeightToDevice(lf.lfHeight);
    lf.lfWidth = dc.mapping.WidthToDevice(lf.lfWidth);
    // A height that maps to nothing still asks for the smallest font, not
    // the default size that a height of 0 means.
    if (lf.lfHeight == 0 && dc.font->logFont.lfHeight != 0)
        lf.lfHeight = dc.font->logFont.lfHeight < 0 ? -1 : 1;
    if (!dc.mappedFont || std::memcmp(&lf, &dc.mappedFor, sizeof lf) != 0) {
        dc.mappedFont = FontInstance::For(lf);
        dc.mappedFor = lf;
    }
    return *dc.mappedFont;
}

// Draws text with its top-left corner at device point (x, y), clipped to
// clip (device pixels) when given and the text's box does not fit in it.
void Output(DeviceContext& dc, int x, int y, const char16_t* text, int count, const RECT* clip) {
    FontInstance& font = CurrentFont(dc);
    int width = 0;
    for (int i = 0; i < count; ++i)
        width += font.Advance(text[i]);
    if (dc.boundsEnabled) {
        // Glyphs may reach past their advances and the line's height.
        const int height = font.Metrics().tmHeight;
        const int reach = height / 2 + 1;
        RECT box{x - reach, y - reach, x + width + reach, y + height + reach};
        if (clip)
            box = RECT{std::max(box.left, clip->left), std::max(box.top, clip->top),
                       std::min(box.right, clip->right), std::min(box.bottom, clip->bottom)};
        AddBounds(dc, box);
    }
    const bool blit = dc.Direct() && FastPathsEnabled() && !font.Synthesised();
    const bool clipped = clip && (x < clip->left || y < clip->top || x + width > clip->right ||
                                  y + font.Metrics().tmHeight > clip->bottom);
    if (!clipped) {
        if (blit)
            BlitText(dc, font, x, y, text, count, width);
        else
            CairoText(dc, font, x, y, text, count, width);
        return;
    }
    const RECT box{clip->left + dc.origin.x, clip->top + dc.origin.y, clip->right + dc.origin.x,
                   clip->bottom + dc.origin.y};
    const RECT inside{std::max(dc.clip.left, box.left), std::max(dc.clip.top, box.top),
                      std::min(dc.clip.right, box.right), std::min(dc.clip.bottom, box.bottom)};
    if (inside.right <= inside.left || inside.bottom <= inside.top)
        return;
    if (blit) {
        const RECT saved = dc.clip;
        dc.clip = inside;
        BlitText(dc, font, x, y, text, count, width);
        dc.clip = saved;
        return;
    }
    // Through Cairo, a clip of its own that the restore takes away again,
    // with the source and font it set inside.
    const COLORREF source = dc.cairoSource;
    cairo_font_face_t* face = dc.cairoFace;
    const int ppem = dc.cairoPpem;
    cairo_t* cr = Cairo(dc);
    cairo_save(cr);
    cairo_rectangle(cr, clip->left, clip->top, clip->right - clip->left, clip->bottom - clip->top);
    cairo_clip(cr);
    CairoText(dc, font, x, y, text, count, width);
    cairo_restore(cr);
    dc.cairoSource = source;
    dc.cairoFace = face;
    dc.cairoPpem = ppem;
}

} // namespace
} // namespace platform::gdi

namespace platform {

std::string ResolvedFontFile(HFONT handle) {
    auto* font = gdi::LookupAs<gdi::Font>(handle, OBJ_FONT);
    return font ? gdi::InstanceOf(*font).File() : std::string();
}

} // namespace platform

using namespace platform::gdi;
using platform::JournalEntry;

HFONT CreateFontIndirectW(const LOGFONTW* lf) {
    if (!lf)
        return nullptr;
    auto* font = new Font();
    font->logFont = *lf;
    font->logFont.lfFaceName[LF_FACESIZE - 1] = 0;
    return static_cast<HFONT>(Register(font));
}

BOOL TextOutW(HDC hdc, int x, int y, LPCWSTR text, int count) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc || count < 0 || (count > 0 && !text))
        return FALSE;
    if (dc->journal) {
        JournalEntry& entry = Record(*dc, "TextOut");
        entry.args[0] = x;
        entry.args[1] = y;
        entry.args[2] = count;
        entry.text.assign(text ? text : u"", static_cast<size_t>(count));
    }
    if (count == 0)
        return TRUE;
    POINT at = dc->mapping.ToDevice(x, y);
    Output(*dc, at.x, at.y, text, count, nullptr);
    return TRUE;
}

BOOL GetTextExtentPoint32W(HDC hdc, LPCWSTR text, int count, LPSIZE size) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc || !size || count < 0 || (count > 0 && !text))
        return FALSE;
    FontInstance& font = CurrentFont(*dc);
    LONG width = 0;
    for (int i = 0; i < count; ++i)
        width += font.Advance(text[i]);
    size->cx = std::abs(dc->mapping.WidthToLogical(width));
    size->cy = std::abs(dc->mapping.HeightToLogical(font.Metrics().tmHeight));
    return TRUE;
}

BOOL GetTextMetricsW(HDC hdc, LPTEXTMETRICW tm) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc || !tm)
        return FALSE;
    *tm = CurrentFont(*dc).Metrics();
    if (!dc->mapping.Unscaled()) {
        const Mapping& m = dc->mapping;
        for (LONG* height : {&tm->tmHeight, &tm->tmAscent, &tm->tmDescent, &tm->tmInternalLeading,
                             &tm->tmExternalLeading})
            *height = std::abs(m.HeightToLogical(*height));
        for (LONG* width : {&tm->tmAveCharWidth, &tm->tmMaxCharWidth, &tm->tmOverhang})
            *width = std::abs(m.WidthToLogical(*width));
    }
    return TRUE;
}

BOOL ExtTextOutW(HDC hdc, int x, int y, UINT options, const RECT* rect, LPCWSTR text, UINT count,
                 const INT* widths) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc || count > 0x7FFFFFFF)
        return FALSE;
    if (count > 0 && !text)
        return FALSE;
    RECT box{};
    if (rect)
        box = dc->mapping.ToDevice(*rect);
    if ((options & ETO_OPAQUE) && rect) {
        if (dc->journal) {
            JournalEntry& entry = Record(*dc, "ExtTextOut");
            entry.args[0] = rect->left;
            entry.args[1] = rect->top;
            entry.args[2] = rect->right;
            entry.args[3] = rect->bottom;
        }
        PaintRect(*dc, box.left, box.top, box.right - box.left, box.bottom - box.top, dc->bkColor);
    }
    if (count == 0)
        return TRUE;
    const RECT* clip = (options & ETO_CLIPPED) && rect ? &box : nullptr;
    if (!widths) {
        if (dc->journal) {
            JournalEntry& entry = Record(*dc, "TextOut");
            entry.args[0] = x;
            entry.args[1] = y;
            entry.args[2] = static_cast<int>(count);
            entry.text.assign(text, count);
        }
        POINT at = dc->mapping.ToDevice(x, y);
        Output(*dc, at.x, at.y, text, static_cast<int>(count), clip);
        return TRUE;
    }
    // Explicit advances (logical units): one character at a time.
    int pen = x;
    for (UINT i = 0; i < count; ++i) {
        if (dc->journal) {
            JournalEntry& entry = Record(*dc, "TextOut");
            entry.args[0] = pen;
            entry.args[1] = y;
            entry.args[2] = 1;
            entry.text.assign(text + i, 1);
        }
        POINT at = dc->mapping.ToDevice(pen, y);
        Output(*dc, at.x, at.y, text + i, 1, clip);
        pen += widths[i];
    }
    return TRUE;
}
