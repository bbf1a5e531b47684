// The baseline for a full-screen refresh: the same cells drawn by Cairo's own
// paths onto an image surface of the same size. Text goes through a scaled
// font (Cairo's glyph cache) of the same font file and size, monochrome and
// hinted; line-drawing glyphs are the same segments stroked by Cairo.
#pragma once

#include <Win/Win.h>

#include <vector>

struct _cairo;
struct _cairo_surface;
struct _cairo_scaled_font;
struct FT_FaceRec_;

class CairoScreen {
public:
    // A surface of width by height pixels and the font face at pixelSize
    // pixels per em, its baseline ascent pixels below a cell's top.
    CairoScreen(int width, int height, const char* family, int pixelSize, int ascent);
    ~CairoScreen();
    CairoScreen(const CairoScreen&) = delete;
    CairoScreen& operator=(const CairoScreen&) = delete;

    // Draws each cell at its column and row in its style's colours.
    void Draw(const std::vector<ScreenChar>& cells, int cols, CSize cell);

private:
    void Text(const ScreenChar& c, double x, double y, CSize cell);
    void Lines(const ScreenChar& c, int x, int y, CSize cell);

    _cairo_surface* m_surface = nullptr;
    _cairo* m_cr = nullptr;
    FT_FaceRec_* m_face = nullptr;
    _cairo_scaled_font* m_font = nullptr;
    unsigned long m_glyphs[128] = {};
    int m_ascent;
};
