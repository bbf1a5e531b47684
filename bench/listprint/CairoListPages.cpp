#include "CairoListPages.h"

#include <cairo-ft.h>
#include <cairo-pdf.h>
#include <cairo.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ft2build.h>
#include FT_FREETYPE_H

namespace {

constexpr double kPoints = 0.75; // points per print unit

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

// A font face for a file, kept for the whole run.
cairo_font_face_t* Face(const std::string& file) {
    FT_Face face = nullptr;
    if (FT_New_Face(Library(), file.c_str(), 0, &face) != 0) {
        std::fprintf(stderr, "cannot open %s\n", file.c_str());
        std::exit(1);
    }
    return cairo_ft_font_face_create_for_ft_face(face, 0);
}

void UseFont(cairo_t* cr, cairo_font_face_t* face, double points) {
    cairo_set_font_face(cr, face);
    cairo_set_font_size(cr, points);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_set_font_options(cr, options);
    cairo_font_options_destroy(options);
}

} // namespace

int DrawListPages(const ListPageLayout& layout, const std::string& pdf) {
    static cairo_font_face_t* cellFace = Face(layout.cellFont);
    static cairo_font_face_t* headerFace = Face(layout.headerFont);
    cairo_surface_t* surface = cairo_pdf_surface_create(pdf.c_str(), 612, 792);
    cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_CREATE_DATE, "2000-01-01T00:00:00");
    cairo_t* cr = cairo_create(surface);
    cairo_set_source_rgb(cr, 0, 0, 0);

    UseFont(cr, cellFace, layout.cellPoints);
    cairo_font_extents_t cell{};
    cairo_font_extents(cr, &cell);
    const int h = layout.rowHeight;
    const int perPage = std::max(1, (layout.pageHeight - layout.top - layout.bottom - h) / h);
    const int rows = static_cast<int>(layout.cells.size());
    const int pages = std::max(1, (rows + perPage - 1) / perPage);

    auto drawRow = [&](const std::vector<std::string>& texts, int y) {
        int x = layout.left;
        for (std::size_t c = 0; c < texts.size(); ++c) {
            cairo_move_to(cr, (x + 3) * kPoints, (y + 1) * kPoints + cell.ascent);
            cairo_show_text(cr, texts[c].c_str());
            x += layout.widths[c];
        }
    };
    for (int page = 0; page < pages; ++page) {
        UseFont(cr, headerFace, layout.headerPoints);
        cairo_font_extents_t header{};
        cairo_font_extents(cr, &header);
        cairo_text_extents_t extents{};
        cairo_text_extents(cr, layout.header.c_str(), &extents);
        cairo_move_to(cr, layout.headerCentre * kPoints - extents.x_advance / 2, header.ascent);
        cairo_show_text(cr, layout.header.c_str());

        UseFont(cr, cellFace, layout.cellPoints);
        drawRow(layout.titles, layout.top);
        const int first = page * perPage;
        const int last = std::min(rows, first + perPage);
        for (int r = first; r < last; ++r)
            drawRow(layout.cells[static_cast<std::size_t>(r)], layout.top + (r - first + 1) * h);
        cairo_show_page(cr);
    }
    cairo_destroy(cr);
    cairo_surface_finish(surface);
    cairo_surface_destroy(surface);
    return pages;
}
