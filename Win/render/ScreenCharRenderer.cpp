#include "ScreenCharRenderer.h"

#include "Win/screen/FontStyle.h"

namespace {

enum CharSet { UsAscii = 0, UkNational = 1, SpecialGraphics = 2, ExtendedGraphics = 3 };

} // namespace

ScreenCharRenderer* ScreenCharRenderer::Instance() {
    // Constructed on first use and never destroyed: it owns no resources.
    static ScreenCharRenderer* instance = new ScreenCharRenderer();
    return instance;
}

void ScreenCharRenderer::SetFontBounds(CSize charSize) {
    m_lineWidth = charSize.cx / 6;
}

void ScreenCharRenderer::Draw(CDC* dc, ScreenChar* cell, int x, int y, CSize charSize) {
    // A cell written before the layout had styles has nothing to draw it with.
    FontStyle* style = cell->GetStyle();
    if (!style)
        return;
    style->SetupText(dc);
    m_color = style->GetTextColor();
    Render(dc, cell, x, y, charSize);
}

void ScreenCharRenderer::Print(CDC* dc, ScreenChar* cell, int x, int y, CSize charSize) {
    FontStyle* style = cell->GetStyle();
    if (!style)
        return;
    if (style->GetMode() & FontStyle::Reverse) {
        COLORREF text = dc->GetTextColor();
        COLORREF back = dc->GetBkColor();
        dc->SetTextColor(back);
        dc->SetBkColor(text);
        m_color = dc->GetTextColor();
        Render(dc, cell, x, y, charSize);
        dc->SetTextColor(text);
        dc->SetBkColor(back);
    } else {
        m_color = dc->GetTextColor();
        Render(dc, cell, x, y, charSize);
    }
}

void ScreenCharRenderer::Render(CDC* dc, ScreenChar* cell, int x, int y, CSize charSize) {
    WCHAR code = cell->GetValue();
    m_pDC = dc;
    switch (cell->GetCharSet()) {
    case UkNational:
        if (code == u'#')
            code = u'\u00A3';
        [[fallthrough]];
    case UsAscii: {
        // Code 0 is an empty string: nothing at all is painted.
        int length = code ? 1 : 0;
        dc->TextOut(x, y, &code, length);
        if (cell->GetStyle()->GetMode() & FontStyle::Bold) {
            dc->SetBkMode(TRANSPARENT);
            dc->TextOut(x + 1, y, &code, length);
            dc->SetBkMode(OPAQUE);
        }
        break;
    }
    case SpecialGraphics:
        RenderSpecialGraphics(dc, static_cast<char>(code & 0xFF), x, y, charSize);
        break;
    case ExtendedGraphics:
        if (code >= 0x40 && code <= 0x5E)
            RenderExtendedGraphics(dc, static_cast<char>(code & 0xFF), x, y, charSize);
        else
            RenderSpecialGraphics(dc, static_cast<char>(code & 0xFF), x, y, charSize);
        break;
    default:
        // An unknown set leaves the cell untouched, background included.
        break;
    }
}
