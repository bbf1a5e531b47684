// One character cell of the terminal screen.
#pragma once

#include <afx.h>

class FontStyle;

class ScreenChar {
public:
    ScreenChar() = default;
    ScreenChar(const ScreenChar& other) = default;
    ScreenChar& operator=(const ScreenChar& other) = default;

    // Keeps the selection flag.
    void Set(WCHAR value, int charSet, FontStyle* style, FontStyle* selStyle) {
        m_value = value;
        m_charSet = charSet;
        m_style = style;
        m_selStyle = selStyle;
    }
    void Select() { m_selected = true; }
    void Unselect() { m_selected = false; }
    bool IsSelected() const { return m_selected; }
    WCHAR GetValue() const { return m_value; }
    int GetCharSet() const { return m_charSet; }
    // The style to draw with now; null for a cell written before the layout had styles.
    FontStyle* GetStyle() const { return m_selected ? m_selStyle : m_style; }

private:
    WCHAR m_value = u' ';
    bool m_selected = false;
    int m_charSet = 0;
    FontStyle* m_style = nullptr;
    FontStyle* m_selStyle = nullptr;
};
