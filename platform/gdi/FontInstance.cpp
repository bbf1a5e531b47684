#include "FontInstance.h"

#include <platform/CodePage.h>
#include <winbase.h>

#include <cairo-ft.h>
#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <cstring>
#include <map>
#include <tuple>

namespace platform::gdi {
namespace {

FT_Library Library() {
    static FT_Library library = [] {
        FT_Library lib = nullptr;
        FT_Init_FreeType(&lib);
        return lib;
    }();
    return library;
}

std::string Lower(const std::u16string& text) {
    std::string out;
    for (char16_t ch : text)
        out += (ch >= u'A' && ch <= u'Z') ? static_cast<char>(ch - u'A' + 'a')
                                          : (ch < 0x80 ? static_cast<char>(ch) : '?');
    return out;
}

struct Alias {
    const char* family; // the family to ask fontconfig for first
    const char* generic;
};

// Face names of the original platform mapped to the packaged fonts with the
// same metrics; plain fontconfig sends some of them to proportional faces.
Alias AliasFor(const std::string& face, BYTE pitchAndFamily) {
    static const std::map<std::string, Alias> table = {
        {"courier new", {"Liberation Mono", "monospace"}},
        {"courier", {"Liberation Mono", "monospace"}},
        {"lucida console", {"DejaVu Sans Mono", "monospace"}},
        {"terminal", {"DejaVu Sans Mono", "monospace"}},
        {"fixedsys", {"DejaVu Sans Mono", "monospace"}},
        {"consolas", {"DejaVu Sans Mono", "monospace"}},
        {"ms sans serif", {"Liberation Sans", "sans-serif"}},
        {"microsoft sans serif", {"Liberation Sans", "sans-serif"}},
        {"ms shell dlg", {"Liberation Sans", "sans-serif"}},
        {"ms shell dlg 2", {"Liberation Sans", "sans-serif"}},
        {"arial", {"Liberation Sans", "sans-serif"}},
        {"tahoma", {"Liberation Sans", "sans-serif"}},
        {"times new roman", {"Liberation Serif", "serif"}},
        {"system", {"DejaVu Sans", "sans-serif"}},
        {"", {"DejaVu Sans", "sans-serif"}},
    };
    auto it = table.find(face);
    if (it != table.end())
        return it->second;
    constexpr BYTE kFixedPitch = 1;
    return {nullptr, (pitchAndFamily & 3) == kFixedPitch ? "monospace" : "sans-serif"};
}

// The file and face index fontconfig picks; only those are taken from the
// match, so the machine's rendering settings never reach the pixels.
bool MatchFile(const LOGFONTW& lf, std::string& file, int& index) {
    static FcConfig* config = [] {
        FcInit();
        return FcConfigGetCurrent();
    }();
    std::u16string face(lf.lfFaceName, std::find(lf.lfFaceName, lf.lfFaceName + LF_FACESIZE, 0));
    std::string lowered = Lower(face);
    Alias alias = AliasFor(lowered, lf.lfPitchAndFamily);
    FcPattern* pattern = FcPatternCreate();
    if (alias.family)
        FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(alias.family));
    std::string utf8 = ToUtf8(face);
    if (!utf8.empty())
        FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(utf8.c_str()));
    FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(alias.generic));
    int weight = lf.lfWeight > 0 ? std::min<LONG>(lf.lfWeight, 1000) : FW_NORMAL;
    FcPatternAddInteger(pattern, FC_WEIGHT, FcWeightFromOpenType(weight));
    FcPatternAddInteger(pattern, FC_SLANT, lf.lfItalic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(pattern, FC_SCALABLE, FcTrue);
    FcConfigSubstitute(config, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result = FcResultNoMatch;
    FcPattern* match = FcFontMatch(config, pattern, &result);
    FcPatternDestroy(pattern);
    if (!match)
        return false;
    FcChar8* path = nullptr;
    bool found = FcPatternGetString(match, FC_FILE, 0, &path) == FcResultMatch && path;
    if (found) {
        file = reinterpret_cast<const char*>(path);
        index = 0;
        FcPatternGetInteger(match, FC_INDEX, 0, &index);
    }
    FcPatternDestroy(match);
    return found;
}

long Scale(long value, int ppem, int upem) {
    // Rounded to nearest, half away from zero.
    long long product = static_cast<long long>(value) * ppem;
    long long half = upem / 2;
    return static_cast<long>(product >= 0 ? (product + half) / upem : -((-product + half) / upem));
}

using CacheKey = std::tuple<LONG, LONG, BYTE, BYTE, BYTE, BYTE, std::string>;

} // namespace

std::shared_ptr<FontInstance> FontInstance::For(const LOGFONTW& lf) {
    static auto* cache = new std::map<CacheKey, std::shared_ptr<FontInstance>>();
    std::u16string face(lf.lfFaceName, std::find(lf.lfFaceName, lf.lfFaceName + LF_FACESIZE, 0));
    CacheKey key{lf.lfHeight,    lf.lfWeight,         lf.lfItalic, lf.lfUnderline,
                 lf.lfStrikeOut, lf.lfPitchAndFamily, Lower(face)};
    auto it = cache->find(key);
    if (it != cache->end())
        return it->second;
    // Bounded: drop instances no font object uses any more.
    if (cache->size() >= 256) {
        for (auto entry = cache->begin(); entry != cache->end();)
            entry = entry->second.use_count() == 1 ? cache->erase(entry) : std::next(entry);
    }
    std::shared_ptr<FontInstance> instance(new FontInstance());
    std::string file;
    int index = 0;
    bool opened = MatchFile(lf, file, index) && instance->Open(file, index, lf);
    if (!opened) {
        LOGFONTW fallback{};
        fallback.lfHeight = lf.lfHeight;
        fallback.lfWeight = lf.lfWeight;
        fallback.lfItalic = lf.lfItalic;
        fallback.lfUnderline = lf.lfUnderline;
        fallback.lfStrikeOut = lf.lfStrikeOut;
        if (!MatchFile(fallback, file, index) || !instance->Open(file, index, fallback))
            return instance; // no usable font at all: empty metrics, no glyphs
    }
    cache->emplace(key, instance);
    return instance;
}

FontInstance::~FontInstance() {
    if (m_cairoFace)
        cairo_font_face_destroy(m_cairoFace);
    if (m_face)
        FT_Done_Face(m_face);
}

bool FontInstance::Open(const std::string& file, int index, const LOGFONTW& lf) {
    FT_Face face = nullptr;
    if (FT_New_Face(Library(), file.c_str(), index, &face) != 0)
        return false;
    const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
    const auto* hhea = static_cast<const TT_HoriHeader*>(FT_Get_Sfnt_Table(face, FT_SFNT_HHEA));
    const auto* post = static_cast<const TT_Postscript*>(FT_Get_Sfnt_Table(face, FT_SFNT_POST));
    int upem = face->units_per_EM > 0 ? face->units_per_EM : 2048;
    // GDI measures with the OS/2 Windows ascent and descent, not hhea's.
    long winAscent = os2 ? os2->usWinAscent : face->ascender;
    long winDescent = os2 ? os2->usWinDescent : -face->descender;
    if (winAscent + winDescent <= 0) {
        winAscent = upem * 4 / 5;
        winDescent = upem / 5;
    }

    // Height 0 asks for the default size; positive heights are cell heights,
    // negative ones character heights.
    long long height = lf.lfHeight == 0 ? 16 : lf.lfHeight;
    constexpr long long kMaxPpem = 2048;
    int ppem = 0;
    if (height < 0) {
        ppem = static_cast<int>(std::min(-height, kMaxPpem));
    } else {
        height = std::min(height, kMaxPpem * 2);
        ppem = MulDiv(upem, static_cast<int>(height), static_cast<int>(winAscent + winDescent));
        if (Scale(winAscent, ppem, upem) + Scale(winDescent, ppem, upem) > height)
            --ppem;
    }
    ppem = std::max(ppem, 1);
    if (FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(ppem)) != 0) {
        FT_Done_Face(face);
        return false;
    }

    m_face = face;
    m_file = file;
    m_faceIndex = index;
    m_ppem = ppem;
    m_underline = lf.lfUnderline != 0;
    m_strikeOut = lf.lfStrikeOut != 0;
    int faceWeight =
        os2 ? os2->usWeightClass : ((face->style_flags & FT_STYLE_FLAG_BOLD) ? 700 : 400);
    m_synthBold = lf.lfWeight >= 600 && faceWeight < 600;
    m_synthOblique = lf.lfItalic && !(face->style_flags & FT_STYLE_FLAG_ITALIC);

    TEXTMETRICW& tm = m_metrics;
    tm.tmAscent = Scale(winAscent, ppem, upem);
    tm.tmDescent = Scale(winDescent, ppem, upem);
    tm.tmHeight = tm.tmAscent + tm.tmDescent;
    tm.tmInternalLeading = std::max<LONG>(0, Scale(winAscent + winDescent - upem, ppem, upem));
    long lineGap = hhea ? hhea->Line_Gap : 0;
    long hheaHeight = hhea ? hhea->Ascender - hhea->Descender : winAscent + winDescent;
    tm.tmExternalLeading =
        std::max<LONG>(0, Scale(lineGap - ((winAscent + winDescent) - hheaHeight), ppem, upem));
    tm.tmAveCharWidth = os2 ? Scale(os2->xAvgCharWidth, ppem, upem) : ppem / 2;
    tm.tmMaxCharWidth = Scale(face->max_advance_width, ppem, upem);
    tm.tmWeight = lf.lfWeight > 0 ? lf.lfWeight : FW_NORMAL;
    tm.tmOverhang = 0;
    tm.tmDigitizedAspectX = 96;
    tm.tmDigitizedAspectY = 96;
    tm.tmFirstChar = 0x20;
    tm.tmLastChar = 0xFFFC;
    tm.tmDefaultChar = 0x1F;
    tm.tmBreakChar = 0x20;
    tm.tmItalic = lf.lfItalic ? 1 : 0;
    tm.tmUnderlined = lf.lfUnderline ? 1 : 0;
    tm.tmStruckOut = lf.lfStrikeOut ? 1 : 0;
    // The low bit set means variable pitch.
    tm.tmPitchAndFamily = static_cast<BYTE>(TMPF_TRUETYPE | TMPF_VECTOR |
                                            (FT_IS_FIXED_WIDTH(face) ? 0 : TMPF_FIXED_PITCH));
    tm.tmCharSet = lf.lfCharSet;

    long underlineThickness =
        post && post->underlineThickness > 0 ? post->underlineThickness : upem / 20;
    long underlinePosition = post ? post->underlinePosition : -upem / 10;
    m_underlineHeight = std::max<int>(1, Scale(underlineThickness, ppem, upem));
    m_underlineTop = tm.tmAscent - Scale(underlinePosition, ppem, upem) - m_underlineHeight / 2;
    m_underlineTop = std::min<int>(m_underlineTop, tm.tmHeight - m_underlineHeight);
    long strikeSize = os2 && os2->yStrikeoutSize > 0 ? os2->yStrikeoutSize : underlineThickness;
    long strikePosition = os2 && os2->yStrikeoutPosition > 0 ? os2->yStrikeoutPosition : upem / 4;
    m_strikeHeight = std::max<int>(1, Scale(strikeSize, ppem, upem));
    m_strikeTop = tm.tmAscent - Scale(strikePosition, ppem, upem);
    return true;
}

void FontInstance::Load(Glyph& glyph, char16_t ch) {
    glyph = Glyph{};
    if (!m_face)
        return;
    glyph.index = FT_Get_Char_Index(m_face, ch);
    if (FT_Load_Glyph(m_face, glyph.index, FT_LOAD_TARGET_MONO) == 0)
        glyph.advance = static_cast<int>((m_face->glyph->advance.x + 32) >> 6);
    // Synthesised bold is one pixel wider.
    if (m_synthBold)
        ++glyph.advance;
}

Glyph& FontInstance::Slot(char16_t ch) {
    if (ch < 256) {
        Glyph& glyph = m_latin1[ch];
        if (!m_latin1Known[ch]) {
            m_latin1Known[ch] = true;
            Load(glyph, ch);
        }
        return glyph;
    }
    auto it = m_others.find(ch);
    if (it != m_others.end())
        return it->second;
    Glyph& glyph = m_others[ch];
    Load(glyph, ch);
    return glyph;
}

const Glyph& FontInstance::GlyphFor(char16_t ch) {
    return Slot(ch);
}

const Glyph& FontInstance::RenderedGlyph(char16_t ch) {
    Glyph& glyph = Slot(ch);
    if (glyph.rendered || !m_face)
        return glyph;
    glyph.rendered = true;
    if (FT_Load_Glyph(m_face, glyph.index, FT_LOAD_TARGET_MONO | FT_LOAD_RENDER) != 0)
        return glyph;
    const FT_Bitmap& bitmap = m_face->glyph->bitmap;
    glyph.left = m_face->glyph->bitmap_left;
    glyph.top = m_face->glyph->bitmap_top;
    glyph.width = static_cast<int>(bitmap.width);
    glyph.rows = static_cast<int>(bitmap.rows);
    glyph.bits.assign(static_cast<size_t>(glyph.width) * glyph.rows, 0);
    for (int y = 0; y < glyph.rows; ++y) {
        const unsigned char* row = bitmap.buffer + static_cast<long>(y) * bitmap.pitch;
        for (int x = 0; x < glyph.width; ++x) {
            bool on = bitmap.pixel_mode == FT_PIXEL_MODE_MONO ? (row[x >> 3] >> (7 - (x & 7))) & 1
                                                              : row[x] >= 128;
            glyph.bits[static_cast<size_t>(y) * glyph.width + x] = on ? 1 : 0;
        }
    }
    for (int y = 0; y < glyph.rows; ++y) {
        const unsigned char* row = glyph.bits.data() + static_cast<size_t>(y) * glyph.width;
        for (int x = 0; x < glyph.width;) {
            if (!row[x]) {
                ++x;
                continue;
            }
            int end = x;
            while (end < glyph.width && row[end])
                ++end;
            glyph.runs.push_back(Glyph::Run{static_cast<short>(x), static_cast<short>(y),
                                            static_cast<short>(end - x)});
            x = end;
        }
    }
    return glyph;
}

cairo_font_face_t* FontInstance::CairoFace() {
    if (m_cairoFace || m_file.empty())
        return m_cairoFace;
    // Cairo sizes the face it holds as it pleases, so it gets a face of its own,
    // freed together with the Cairo face.
    FT_Face face = nullptr;
    if (FT_New_Face(Library(), m_file.c_str(), m_faceIndex, &face) != 0)
        return nullptr;
    m_cairoFace = cairo_ft_font_face_create_for_ft_face(face, 0);
    static cairo_user_data_key_t key;
    cairo_font_face_set_user_data(m_cairoFace, &key, face,
                                  [](void* data) { FT_Done_Face(static_cast<FT_Face>(data)); });
    unsigned synth = (m_synthBold ? CAIRO_FT_SYNTHESIZE_BOLD : 0) |
                     (m_synthOblique ? CAIRO_FT_SYNTHESIZE_OBLIQUE : 0);
    if (synth)
        cairo_ft_font_face_set_synthesize(m_cairoFace, synth);
    return m_cairoFace;
}

} // namespace platform::gdi
