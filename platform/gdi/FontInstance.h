// A realised font: the file fontconfig chose for a LOGFONT, its size in pixels
// per em, the text metrics computed as the original computes them, and caches
// of glyph indices, advances and monochrome glyph images.
#pragma once

#include <wingdi.h>

#include <array>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

typedef struct FT_FaceRec_* FT_Face;
typedef struct _cairo_font_face cairo_font_face_t;

namespace platform::gdi {

struct Glyph {
    unsigned index = 0;
    int advance = 0;
    bool rendered = false;
    // The monochrome image: one byte per pixel (0 or 1), left and top relative
    // to the pen position on the baseline.
    int left = 0;
    int top = 0;
    int width = 0;
    int rows = 0;
    std::vector<unsigned char> bits;
    // The same image as horizontal runs of set pixels, row by row: copied
    // into the pixels without looking at the ones left clear.
    struct Run {
        short x;
        short y;
        short length;
    };
    std::vector<Run> runs;
};

class FontInstance {
public:
    // The instance for a LOGFONT, shared by every font object with the same
    // request. Never null: an unusable request falls back to the default face.
    static std::shared_ptr<FontInstance> For(const LOGFONTW& lf);
    ~FontInstance();

    const TEXTMETRICW& Metrics() const { return m_metrics; }
    const std::string& File() const { return m_file; }
    int Ppem() const { return m_ppem; }
    bool Underline() const { return m_underline; }
    bool StrikeOut() const { return m_strikeOut; }
    // Synthesised bold or oblique: only Cairo can draw it.
    bool Synthesised() const { return m_synthBold || m_synthOblique; }

    // Index and advance; the image only when asked for.
    const Glyph& GlyphFor(char16_t ch);
    const Glyph& RenderedGlyph(char16_t ch);
    int Advance(char16_t ch) { return GlyphFor(ch).advance; }

    // Rectangles relative to the text origin's top: underline and strike-out.
    int UnderlineTop() const { return m_underlineTop; }
    int UnderlineHeight() const { return m_underlineHeight; }
    int StrikeOutTop() const { return m_strikeTop; }
    int StrikeOutHeight() const { return m_strikeHeight; }

    // A Cairo face for this font (with synthesis applied), created on first use.
    cairo_font_face_t* CairoFace();

private:
    FontInstance() = default;
    bool Open(const std::string& file, int index, const LOGFONTW& lf);
    Glyph& Slot(char16_t ch);
    void Load(Glyph& glyph, char16_t ch);

    std::string m_file;
    int m_faceIndex = 0;
    FT_Face m_face = nullptr; // our own face, sized to m_ppem
    cairo_font_face_t* m_cairoFace = nullptr;
    int m_ppem = 0;
    bool m_synthBold = false;
    bool m_synthOblique = false;
    bool m_underline = false;
    bool m_strikeOut = false;
    TEXTMETRICW m_metrics{};
    int m_underlineTop = 0;
    int m_underlineHeight = 1;
    int m_strikeTop = 0;
    int m_strikeHeight = 1;
    std::array<Glyph, 256> m_latin1{};
    std::array<bool, 256> m_latin1Known{};
    std::unordered_map<char16_t, Glyph> m_others;
};

} // namespace platform::gdi
