// The colours, font and attribute key in which terminal cells are drawn.
#pragma once

#include <afxwin.h>

class FontStyle {
public:
    // Video attribute bits of a style's mode, and the key bit of selection styles.
    enum : int {
        Bold = 0x0001,
        Subdued = 0x0002,
        Underlined = 0x0004,
        Blinking = 0x0008,
        Reverse = 0x0010,
        Selected = 0x1000,
    };

    FontStyle(int mode, COLORREF textColor, COLORREF backColor, CFont* font)
        : m_mode(mode), m_textColor(textColor), m_backColor(backColor), m_pFont(font) {}
    FontStyle& operator=(const FontStyle& other) = default;

    void SetStyle(COLORREF textColor, COLORREF backColor, CFont* font) {
        m_textColor = textColor;
        m_backColor = backColor;
        m_pFont = font;
    }
    void SetTextColor(COLORREF color) { m_textColor = color; }
    void SetBackColor(COLORREF color) { m_backColor = color; }
    void SetFont(CFont* font) { m_pFont = font; }

    int GetMode() const { return m_mode; }
    COLORREF GetTextColor() const { return m_textColor; }
    COLORREF GetBackColor() const { return m_backColor; }
    CFont* GetFont() const { return m_pFont; }

    // Text colour, background colour, then font; nothing previous is kept.
    void SetupText(CDC* dc) const;
    // The same with the two colours exchanged.
    void SetupTextReverse(CDC* dc) const;

private:
    int m_mode;
    COLORREF m_textColor;
    COLORREF m_backColor;
    CFont* m_pFont;
};
