// The line-drawing glyphs: corners, tees, crossings, the vertical line, the five
// scan lines and the diamond, drawn from the cell's corner and size.
#include "ScreenCharRenderer.h"

namespace {

// Deletes a pen or brush made for one glyph on every way out of the routine.
template <typename T> struct ObjectGuard {
    T& object;
    ~ObjectGuard() { object.DeleteObject(); }
};

} // namespace

void ScreenCharRenderer::InitLinePen(CPen& pen, CSize charSize) {
    if (m_lineWidth == 0)
        m_lineWidth = charSize.cx / 6;
    LOGBRUSH brush = {BS_SOLID, m_color, 0};
    pen.CreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_FLAT | PS_JOIN_ROUND, m_lineWidth, &brush);
}

void ScreenCharRenderer::InitPolyPen(CPen& pen, CSize charSize) {
    if (m_lineWidth == 0)
        m_lineWidth = charSize.cx / 6;
    LOGBRUSH brush = {BS_SOLID, m_color, 0};
    pen.CreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_FLAT | PS_JOIN_BEVEL, 1, &brush);
}

void ScreenCharRenderer::InitPolyBrush(CBrush& brush) {
    brush.CreateSolidBrush(m_color);
}

void ScreenCharRenderer::DrawLines(int x, int y, CSize charSize, const POINT* first, int firstCount,
                                   const POINT* second, int secondCount) {
    CPen pen;
    ObjectGuard<CPen> penGuard{pen};
    InitLinePen(pen, charSize);
    CPen* oldPen = m_pDC->SelectObject(&pen);
    OutputChar(m_pDC, x, y, u' ');
    m_pDC->Polyline(first, firstCount);
    if (second)
        m_pDC->Polyline(second, secondCount);
    m_pDC->SelectObject(oldPen);
}

void ScreenCharRenderer::DrawDiamond(int x, int y, CSize charSize) {
    CPen pen;
    ObjectGuard<CPen> penGuard{pen};
    CBrush brush;
    ObjectGuard<CBrush> brushGuard{brush};
    InitPolyPen(pen, charSize);
    InitPolyBrush(brush);
    // Sized from the width alone, so the diamond stays square in a tall cell.
    int d = charSize.cx / 2 - m_lineWidth;
    int xm = x + charSize.cx / 2, ym = y + charSize.cy / 2;
    POINT points[] = {{xm - d, ym}, {xm, ym - d}, {xm + d, ym}, {xm, ym + d}};
    CPen* oldPen = m_pDC->SelectObject(&pen);
    CBrush* oldBrush = m_pDC->SelectObject(&brush);
    OutputChar(m_pDC, x, y, u' ');
    m_pDC->Polygon(points, 4);
    m_pDC->SelectObject(oldPen);
    m_pDC->SelectObject(oldBrush);
    // The guards delete the brush, then the pen.
}

void ScreenCharRenderer::DrawUnsupported(int x, int y, CSize) {
    OutputChar(m_pDC, x, y, u'\u0001');
}

void ScreenCharRenderer::DrawDownLeft(int x, int y, CSize s) {
    int xm = x + s.cx / 2, ym = y + s.cy / 2;
    POINT p[] = {{x, ym}, {xm, ym}, {xm, y}};
    DrawLines(x, y, s, p, 3);
}

void ScreenCharRenderer::DrawUpLeft(int x, int y, CSize s) {
    int xm = x + s.cx / 2, ym = y + s.cy / 2;
    POINT p[] = {{x, ym}, {xm, ym}, {xm, y + s.cy}};
    DrawLines(x, y, s, p, 3);
}

void ScreenCharRenderer::DrawUpRight(int x, int y, CSize s) {
    int xm = x + s.cx / 2, ym = y + s.cy / 2;
    POINT p[] = {{xm, y + s.cy}, {xm, ym}, {x + s.cx, ym}};
    DrawLines(x, y, s, p, 3);
}

void ScreenCharRenderer::DrawDownRight(int x, int y, CSize s) {
    int xm = x + s.cx / 2, ym = y + s.cy / 2;
    POINT p[] = {{xm, y}, {xm, ym}, {x + s.cx, ym}};
    DrawLines(x, y, s, p, 3);
}

void ScreenCharRenderer::DrawVerticalHorizontal(int x, int y, CSize s) {
    int xm = x + s.cx / 2, ym = y + s.cy / 2;
    POINT v[] = {{xm, y}, {xm, y + s.cy}};
    POINT h[] = {{x, ym}, {x + s.cx, ym}};
    DrawLines(x, y, s, v, 2, h, 2);
}

void ScreenCharRenderer::DrawVerticalRight(int x, int y, CSize s) {
    int xm = x + s.cx / 2, ym = y + s.cy / 2;
    POINT v[] = {{xm, y}, {xm, y + s.cy}};
    POINT h[] = {{xm, ym}, {x + s.cx, ym}};
    DrawLines(x, y, s, v, 2, h, 2);
}

void ScreenCharRenderer::DrawVerticalLeft(int x, int y, CSize s) {
    int xm = x + s.cx / 2, ym = y + s.cy / 2;
    POINT v[] = {{xm, y}, {xm, y + s.cy}};
    POINT h[] = {{x, ym}, {xm, ym}};
    DrawLines(x, y, s, v, 2, h, 2);
}

void ScreenCharRenderer::DrawUpHorizontal(int x, int y, CSize s) {
    int xm = x + s.cx / 2, ym = y + s.cy / 2;
    POINT v[] = {{xm, y}, {xm, ym}};
    POINT h[] = {{x, ym}, {x + s.cx, ym}};
    DrawLines(x, y, s, v, 2, h, 2);
}

void ScreenCharRenderer::DrawDownHorizontal(int x, int y, CSize s) {
    int xm = x + s.cx / 2, ym = y + s.cy / 2;
    POINT v[] = {{xm, ym}, {xm, y + s.cy}};
    POINT h[] = {{x, ym}, {x + s.cx, ym}};
    DrawLines(x, y, s, v, 2, h, 2);
}

void ScreenCharRenderer::DrawVertical(int x, int y, CSize s) {
    int xm = x + s.cx / 2;
    POINT v[] = {{xm, y}, {xm, y + s.cy}};
    DrawLines(x, y, s, v, 2);
}

void ScreenCharRenderer::DrawHorizontalAt(int x, int y, int lineY, CSize s) {
    POINT h[] = {{x, lineY}, {x + s.cx, lineY}};
    DrawLines(x, y, s, h, 2);
}

// Each quotient is truncated on its own: y + H/4 + L/4 is not y + (H + L)/4.
void ScreenCharRenderer::DrawHorizontal1(int x, int y, CSize s) {
    DrawHorizontalAt(x, y, y + m_lineWidth / 2, s);
}

void ScreenCharRenderer::DrawHorizontal3(int x, int y, CSize s) {
    DrawHorizontalAt(x, y, y + s.cy / 4 + m_lineWidth / 4, s);
}

void ScreenCharRenderer::DrawHorizontal5(int x, int y, CSize s) {
    DrawHorizontalAt(x, y, y + s.cy / 2, s);
}

void ScreenCharRenderer::DrawHorizontal7(int x, int y, CSize s) {
    DrawHorizontalAt(x, y, y + (3 * s.cy) / 4 - m_lineWidth / 4, s);
}

void ScreenCharRenderer::DrawHorizontal9(int x, int y, CSize s) {
    DrawHorizontalAt(x, y, y + s.cy - (m_lineWidth + 1) / 2, s);
}
