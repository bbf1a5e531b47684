#include "CairoScreen.h"

#include <cairo-ft.h>
#include <cairo.h>
#include <fontconfig/fontconfig.h>

#include <cstdio>
#include <cstdlib>
#include <ft2build.h>
#include <string>
#include FT_FREETYPE_H

namespace {

FT_Library Library() {
    static FT_Library library = [] {
        FT_Library l = nullptr;
        if (FT_Init_FreeType(&l) != 0) {
            std::fprintf(stderr, "FreeType does not start\n");
            std::exit(1);
        }
        return l;
    }();
    return library;
}

std::string FontFile(const char* family) {
    FcPattern* pattern = FcNameParse(reinterpret_cast<const FcChar8*>(family));
    FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result;
    FcPattern* match = FcFontMatch(nullptr, pattern, &result);
    FcPatternDestroy(pattern);
    FcChar8* file = nullptr;
    std::string path;
    if (match && FcPatternGetString(match, FC_FILE, 0, &file) == FcResultMatch)
        path = reinterpret_cast<const char*>(file);
    if (match)
        FcPatternDestroy(match);
    if (path.empty()) {
        std::fprintf(stderr, "no font file for %s\n", family);
        std::exit(1);
    }
    return path;
}

void Source(cairo_t* cr, COLORREF colour) {
    cairo_set_source_rgb(cr, GetRValue(colour) / 255.0, GetGValue(colour) / 255.0,
                         GetBValue(colour) / 255.0);
}

} // namespace

CairoScreen::CairoScreen(int width, int height, const char* family, int pixelSize, int ascent)
    : m_ascent(ascent) {
    m_surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    m_cr = cairo_create(m_surface);
    if (FT_New_Face(Library(), FontFile(family).c_str(), 0, &m_face) != 0) {
        std::fprintf(stderr, "cannot open the font of %s\n", family);
        std::exit(1);
    }
    cairo_font_face_t* face = cairo_ft_font_face_create_for_ft_face(m_face, 0);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_NONE);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_FULL);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_ON);
    cairo_matrix_t size, identity;
    cairo_matrix_init_scale(&size, pixelSize, pixelSize);
    cairo_matrix_init_identity(&identity);
    m_font = cairo_scaled_font_create(face, &size, &identity, options);
    cairo_font_options_destroy(options);
    cairo_font_face_destroy(face);
    cairo_set_scaled_font(m_cr, m_font);
    cairo_set_antialias(m_cr, CAIRO_ANTIALIAS_NONE);
    cairo_set_line_width(m_cr, 1);
    cairo_set_line_cap(m_cr, CAIRO_LINE_CAP_BUTT);
    cairo_set_line_join(m_cr, CAIRO_LINE_JOIN_ROUND);
    FT_Face locked = cairo_ft_scaled_font_lock_face(m_font);
    for (unsigned ch = 0x20; ch < 0x7F; ++ch)
        m_glyphs[ch] = FT_Get_Char_Index(locked, ch);
    cairo_ft_scaled_font_unlock_face(m_font);
}

CairoScreen::~CairoScreen() {
    cairo_destroy(m_cr);
    cairo_scaled_font_destroy(m_font);
    cairo_surface_destroy(m_surface);
    FT_Done_Face(m_face);
}

void CairoScreen::Draw(const std::vector<ScreenChar>& cells, int cols, CSize cell) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const int x = static_cast<int>(i % static_cast<std::size_t>(cols)) * cell.cx;
        const int y = static_cast<int>(i / static_cast<std::size_t>(cols)) * cell.cy;
        if (cells[i].GetCharSet() == 0)
            Text(cells[i], x, y, cell);
        else
            Lines(cells[i], x, y, cell);
    }
    cairo_surface_flush(m_surface);
}

void CairoScreen::Text(const ScreenChar& c, double x, double y, CSize cell) {
    FontStyle* style = c.GetStyle();
    Source(m_cr, style->GetBackColor());
    cairo_rectangle(m_cr, x, y, cell.cx, cell.cy);
    cairo_fill(m_cr);
    Source(m_cr, style->GetTextColor());
    cairo_glyph_t glyph = {m_glyphs[c.GetValue() & 0x7F], x, y + m_ascent};
    cairo_show_glyphs(m_cr, &glyph, 1);
    const int mode = style->GetMode();
    if (mode & FontStyle::Bold) {
        glyph.x += 1;
        cairo_show_glyphs(m_cr, &glyph, 1);
    }
    if (mode & FontStyle::Underlined) {
        cairo_rectangle(m_cr, x, y + m_ascent + 1, cell.cx, 1);
        cairo_fill(m_cr);
    }
}

void CairoScreen::Lines(const ScreenChar& c, int x, int y, CSize s) {
    FontStyle* style = c.GetStyle();
    Source(m_cr, style->GetBackColor());
    cairo_rectangle(m_cr, x, y, s.cx, s.cy);
    cairo_fill(m_cr);
    Source(m_cr, style->GetTextColor());
    // Integer coordinates name pixel centres, as in the renderer.
    const double l = x + 0.5, t = y + 0.5, r = x + s.cx + 0.5, b = y + s.cy + 0.5;
    const double xm = x + s.cx / 2 + 0.5, ym = y + s.cy / 2 + 0.5;
    const int w = s.cx / 6;
    cairo_set_line_width(m_cr, w > 0 ? w : 1);
    auto line = [&](double x0, double y0, double x1, double y1) {
        cairo_move_to(m_cr, x0, y0);
        cairo_line_to(m_cr, x1, y1);
    };
    auto corner = [&](double x0, double y0, double x1, double y1, double x2, double y2) {
        cairo_move_to(m_cr, x0, y0);
        cairo_line_to(m_cr, x1, y1);
        cairo_line_to(m_cr, x2, y2);
    };
    switch (c.GetValue()) {
    case u'`': {
        const int d = s.cx / 2 - w;
        cairo_move_to(m_cr, xm - d, ym);
        cairo_line_to(m_cr, xm, ym - d);
        cairo_line_to(m_cr, xm + d, ym);
        cairo_line_to(m_cr, xm, ym + d);
        cairo_close_path(m_cr);
        cairo_fill_preserve(m_cr);
        break;
    }
    case u'j':
        corner(l, ym, xm, ym, xm, t);
        break;
    case u'k':
        corner(l, ym, xm, ym, xm, b);
        break;
    case u'l':
        corner(xm, b, xm, ym, r, ym);
        break;
    case u'm':
        corner(xm, t, xm, ym, r, ym);
        break;
    case u'n':
        line(xm, t, xm, b);
        line(l, ym, r, ym);
        break;
    case u'o':
        line(l, t + w / 2, r, t + w / 2);
        break;
    case u'p':
        line(l, t + s.cy / 4 + w / 4, r, t + s.cy / 4 + w / 4);
        break;
    case u'q':
        line(l, ym, r, ym);
        break;
    case u'r':
        line(l, t + 3 * s.cy / 4 - w / 4, r, t + 3 * s.cy / 4 - w / 4);
        break;
    case u's':
        line(l, b - (w + 1) / 2, r, b - (w + 1) / 2);
        break;
    case u't':
        line(xm, t, xm, b);
        line(xm, ym, r, ym);
        break;
    case u'u':
        line(xm, t, xm, b);
        line(l, ym, xm, ym);
        break;
    case u'v':
        line(xm, t, xm, ym);
        line(l, ym, r, ym);
        break;
    case u'w':
        line(xm, ym, xm, b);
        line(l, ym, r, ym);
        break;
    case u'x':
        line(xm, t, xm, b);
        break;
    default:
        break;
    }
    cairo_stroke(m_cr);
}
