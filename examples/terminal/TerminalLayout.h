// The host's layout: a grid of cells of the font's measured size, inset by a
// margin from the top-left corner of the view.
#pragma once

#include <Win/Win.h>

class TerminalLayout : public EmulatorLayout {
public:
    // Normal text, background, subdued, underlined, blinking, selection text and
    // selection background.
    static const COLORREF kColours[LayoutColorCount];

    explicit TerminalLayout(int margin = 8) : m_margin(margin) {}

    // Creates the fonts and styles; size is a font height as WinUtils takes it.
    void Apply(const CString& face, int size) {
        ChangeLayout(kColours, face, size, false, false);
        OnLayoutChanged();
    }

    void OnLayoutChanged() override { NotifyObservers(nullptr); }
    CSize GetCharSize() override { return m_charSize; }
    int RowToY(int row) override { return m_margin + row * m_charSize.cy; }
    int ColumnToX(int col) override { return m_margin + col * m_charSize.cx; }

    // The view that shows rows by columns of cells with the margin around them.
    CSize ViewSize(int rows, int columns) const {
        return CSize(2 * m_margin + columns * m_charSize.cx, 2 * m_margin + rows * m_charSize.cy);
    }

private:
    int m_margin;
};
