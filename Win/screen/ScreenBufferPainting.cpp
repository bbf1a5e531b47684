// Putting cells on a device: drawing one cell, repainting the screen or the
// scrolling region, invalidating the parent window, and printing.
#include "ScreenBuffer.h"

#include "Win/render/ScreenCharRenderer.h"

#include <algorithm>

void ScreenBuffer::Draw(CDC* dc, int row, int col) {
    if (!dc || !IsValid(row, col))
        return;
    CSize charSize = m_layout.GetCharSize();
    int y = m_layout.RowToY(row);
    int x = m_layout.ColumnToX(col);
    ScreenCharRenderer::Instance()->Draw(dc, &Cell(row, col), x, y, charSize);
}

void ScreenBuffer::Refresh(CDC* dc) {
    if (!dc)
        return;
    int visRows = VisRows();
    int visColumns = VisColumns();
    for (int row = 0; row < visRows; ++row)
        for (int col = 0; col < visColumns; ++col)
            Draw(dc, row, col);
}

void ScreenBuffer::PrintBuffer(CDC* dc, CSize charSize) {
    if (!dc)
        return;
    // A cell size beyond what a device can address is limited, so that the
    // cell positions below cannot overflow.
    constexpr LONG kMaxCell = 32767;
    charSize.cx = std::clamp(charSize.cx, -kMaxCell, kMaxCell);
    charSize.cy = std::clamp(charSize.cy, -kMaxCell, kMaxCell);
    ScreenCharRenderer* renderer = ScreenCharRenderer::Instance();
    int visRows = VisRows();
    int visColumns = VisColumns();
    for (int row = 0; row < visRows; ++row)
        for (int col = 0; col < visColumns; ++col)
            renderer->Print(dc, &Cell(row, col), col * charSize.cx, row * charSize.cy, charSize);
}

CSize ScreenBuffer::ScreenCharSize() const {
    return m_layout.GetCharSize();
}

COLORREF ScreenBuffer::GetBkColor() const {
    return m_layout.GetBkColor();
}

void ScreenBuffer::RedrawScrollingRegion() {
    if (m_pDC) {
        int visColumns = VisColumns();
        for (int row = m_topMargin; row <= m_bottomMargin; ++row)
            for (int col = 0; col < visColumns; ++col)
                Draw(m_pDC, row, col);
    } else if (m_pParent) {
        // Marks the window for one repaint however many scrolls come before it.
        m_pParent->Invalidate(FALSE);
    }
}
