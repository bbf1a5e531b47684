// Draws one terminal cell into a device context, for the screen or a printer.
// One renderer serves every screen; it keeps the DC and colour of the cell being
// drawn, so rendering is not re-entrant.
#pragma once

#include "Win/screen/ScreenChar.h"

#include <afxwin.h>

class ScreenCharRenderer {
public:
    static ScreenCharRenderer* Instance();

    // Line glyphs are stroked one sixth of the cell width wide.
    void SetFontBounds(CSize charSize);
    // Paints the cell at (x, y) in its style's colours and font.
    void Draw(CDC* dc, ScreenChar* cell, int x, int y, CSize charSize);
    // Prints the cell in the DC's own font and colours, swapping them for reverse cells.
    void Print(CDC* dc, ScreenChar* cell, int x, int y, CSize charSize);

protected:
    ScreenCharRenderer() = default;

    void Render(CDC* dc, ScreenChar* cell, int x, int y, CSize charSize);
    void RenderSpecialGraphics(CDC* dc, char code, int x, int y, CSize charSize);
    void RenderExtendedGraphics(CDC* dc, char code, int x, int y, CSize charSize);

    void InitLinePen(CPen& pen, CSize charSize);
    void InitPolyPen(CPen& pen, CSize charSize);
    void InitPolyBrush(CBrush& brush);

    void DrawDiamond(int x, int y, CSize charSize);
    void DrawDownLeft(int x, int y, CSize charSize);
    void DrawUpLeft(int x, int y, CSize charSize);
    void DrawUpRight(int x, int y, CSize charSize);
    void DrawDownRight(int x, int y, CSize charSize);
    void DrawVerticalHorizontal(int x, int y, CSize charSize);
    void DrawHorizontal1(int x, int y, CSize charSize);
    void DrawHorizontal3(int x, int y, CSize charSize);
    void DrawHorizontal5(int x, int y, CSize charSize);
    void DrawHorizontal7(int x, int y, CSize charSize);
    void DrawHorizontal9(int x, int y, CSize charSize);
    void DrawVerticalRight(int x, int y, CSize charSize);
    void DrawVerticalLeft(int x, int y, CSize charSize);
    void DrawUpHorizontal(int x, int y, CSize charSize);
    void DrawDownHorizontal(int x, int y, CSize charSize);
    void DrawVertical(int x, int y, CSize charSize);
    void DrawUnsupported(int x, int y, CSize charSize);

    CDC* m_pDC = nullptr;
    COLORREF m_color = 0;
    int m_lineWidth = 0;

private:
    // Blanks the cell with a space and strokes the given polylines with the line pen.
    void DrawLines(int x, int y, CSize charSize, const POINT* first, int firstCount,
                   const POINT* second = nullptr, int secondCount = 0);
    void DrawHorizontalAt(int x, int y, int lineY, CSize charSize);
    void OutputChar(CDC* dc, int x, int y, WCHAR ch);
    void OutputByte(CDC* dc, int x, int y, char code);
};
