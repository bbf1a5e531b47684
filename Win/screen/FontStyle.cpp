#include "FontStyle.h"

void FontStyle::SetupText(CDC* dc) const {
    dc->SetTextColor(m_textColor);
    dc->SetBkColor(m_backColor);
    dc->SelectObject(m_pFont);
}

void FontStyle::SetupTextReverse(CDC* dc) const {
    dc->SetTextColor(m_backColor);
    dc->SetBkColor(m_textColor);
    dc->SelectObject(m_pFont);
}
