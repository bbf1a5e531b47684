// The graphics character sets: which codes become drawn glyphs, substitute
// characters, a composed character or the unsupported glyph.
#include "ScreenCharRenderer.h"

void ScreenCharRenderer::RenderSpecialGraphics(CDC* dc, char code, int x, int y, CSize charSize) {
    // Codes 0x5F to 0x7E carry graphics; everything else shows as itself.
    unsigned index = static_cast<unsigned>(static_cast<int>(code) - 0x5F);
    if (index > 31) {
        OutputByte(dc, x, y, code);
        return;
    }
    switch (code) {
    case 0x5F:
        OutputChar(m_pDC, x, y, u' ');
        break;
    case 0x60:
        DrawDiamond(x, y, charSize);
        break;
    case 0x66:
        OutputChar(m_pDC, x, y, u'\u00B0');
        break;
    case 0x67:
        OutputChar(m_pDC, x, y, u'\u00B1');
        break;
    case 0x6A:
        DrawDownLeft(x, y, charSize);
        break;
    case 0x6B:
        DrawUpLeft(x, y, charSize);
        break;
    case 0x6C:
        DrawUpRight(x, y, charSize);
        break;
    case 0x6D:
        DrawDownRight(x, y, charSize);
        break;
    case 0x6E:
        DrawVerticalHorizontal(x, y, charSize);
        break;
    case 0x6F:
        DrawHorizontal1(x, y, charSize);
        break;
    case 0x70:
        DrawHorizontal3(x, y, charSize);
        break;
    case 0x71:
        DrawHorizontal5(x, y, charSize);
        break;
    case 0x72:
        DrawHorizontal7(x, y, charSize);
        break;
    case 0x73:
        DrawHorizontal9(x, y, charSize);
        break;
    case 0x74:
        DrawVerticalRight(x, y, charSize);
        break;
    case 0x75:
        DrawVerticalLeft(x, y, charSize);
        break;
    case 0x76:
        DrawUpHorizontal(x, y, charSize);
        break;
    case 0x77:
        DrawDownHorizontal(x, y, charSize);
        break;
    case 0x78:
        DrawVertical(x, y, charSize);
        break;
    case 0x7C:
        // Not equal: "=" paints the background, "/" is struck over it.
        OutputChar(dc, x, y, u'=');
        dc->SetBkMode(TRANSPARENT);
        OutputChar(dc, x, y, u'/');
        dc->SetBkMode(OPAQUE);
        break;
    case 0x7D:
        OutputChar(dc, x, y, u'\u00A3');
        break;
    case 0x7E:
        OutputChar(dc, x, y, u'\u00B7');
        break;
    default:
        // 0x61-0x65, 0x68, 0x69 and 0x79-0x7B have no drawing of their own.
        DrawUnsupported(x, y, charSize);
        break;
    }
}

void ScreenCharRenderer::RenderExtendedGraphics(CDC* dc, char code, int x, int y, CSize charSize) {
    if (code >= 0x40 && code <= 0x5E)
        DrawUnsupported(x, y, charSize);
    else
        OutputByte(dc, x, y, code);
}

void ScreenCharRenderer::OutputChar(CDC* dc, int x, int y, WCHAR ch) {
    dc->TextOut(x, y, &ch, 1);
}

void ScreenCharRenderer::OutputByte(CDC* dc, int x, int y, char code) {
    // A byte is a character of the ANSI code page; below 0x80 it is itself.
    WCHAR ch = static_cast<WCHAR>(static_cast<unsigned char>(code));
    if (ch >= 0x80) {
        WCHAR wide = 0;
        if (MultiByteToWideChar(CP_ACP, 0, &code, 1, &wide, 1) == 1)
            ch = wide;
    }
    dc->TextOut(x, y, &ch, 1);
}
