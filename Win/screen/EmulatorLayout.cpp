#include "EmulatorLayout.h"

#include "Win/render/ScreenCharRenderer.h"
#include "Win/utils/WinUtils.h"

namespace {

// A style key and the colours and font it takes from the seven layout colours.
struct StyleRule {
    int key;
    int text;
    int back;
    bool underlined;
};

// The order in which ChangeLayout updates the styles; each also sets its bold twin.
constexpr StyleRule kStyleRules[] = {
    {0x0000, EmulatorLayout::NormalTextColor, EmulatorLayout::BackgroundColor, false},
    {0x0002, EmulatorLayout::SubduedTextColor, EmulatorLayout::BackgroundColor, false},
    {0x0004, EmulatorLayout::UnderlinedTextColor, EmulatorLayout::BackgroundColor, true},
    {0x0008, EmulatorLayout::BlinkingTextColor, EmulatorLayout::BackgroundColor, false},
    {0x0006, EmulatorLayout::SubduedTextColor, EmulatorLayout::BackgroundColor, true},
    {0x000C, EmulatorLayout::BlinkingTextColor, EmulatorLayout::BackgroundColor, true},
    {0x0010, EmulatorLayout::BackgroundColor, EmulatorLayout::NormalTextColor, false},
    {0x0012, EmulatorLayout::BackgroundColor, EmulatorLayout::SubduedTextColor, false},
    {0x0014, EmulatorLayout::BackgroundColor, EmulatorLayout::UnderlinedTextColor, true},
    {0x0018, EmulatorLayout::BackgroundColor, EmulatorLayout::BlinkingTextColor, false},
    {0x0016, EmulatorLayout::BackgroundColor, EmulatorLayout::SubduedTextColor, true},
    {0x001C, EmulatorLayout::BackgroundColor, EmulatorLayout::BlinkingTextColor, true},
    {0x1000, EmulatorLayout::SelectionTextColor, EmulatorLayout::SelectionBackColor, false},
    {0x1004, EmulatorLayout::SelectionTextColor, EmulatorLayout::SelectionBackColor, true},
    {0x1010, EmulatorLayout::SelectionBackColor, EmulatorLayout::SelectionTextColor, false},
    {0x1014, EmulatorLayout::SelectionBackColor, EmulatorLayout::SelectionTextColor, true},
};

// The attribute bits that show in a selection: bold, underlined and reverse.
constexpr int kSelectionKeyMask =
    FontStyle::Selected | FontStyle::Bold | FontStyle::Underlined | FontStyle::Reverse;

} // namespace

EmulatorLayout::~EmulatorLayout() {
    POSITION pos = m_styles.GetStartPosition();
    while (pos) {
        int key;
        FontStyle* style;
        m_styles.GetNextAssoc(pos, key, style);
        delete style;
    }
    m_styles.RemoveAll();
}

FontStyle* EmulatorLayout::GetStyle(int key) {
    FontStyle* style = nullptr;
    if (m_styles.Lookup(key, style))
        return style;
    if (m_styles.Lookup(0, style))
        return style;
    return nullptr;
}

FontStyle* EmulatorLayout::GetSelStyle(int key) {
    FontStyle* style = nullptr;
    if (m_styles.Lookup((key | FontStyle::Selected) & kSelectionKeyMask, style))
        return style;
    if (m_styles.Lookup(0, style))
        return style;
    return nullptr;
}

void EmulatorLayout::ChangeLayout(const COLORREF* colours, const CString& faceName, int size,
                                  bool bold, bool italic) {
    m_bkColor = colours[BackgroundColor];
    for (const StyleRule& rule : kStyleRules)
        UpdateStyle(rule.key, colours[rule.text], colours[rule.back],
                    rule.underlined ? &m_underlineFont : &m_font);

    // The old handles leave the font objects without being destroyed: cells may
    // still be drawn with them until the next repaint.
    m_font.Detach();
    m_underlineFont.Detach();
    m_charSize = WinUtils::CreateFontW(&m_font, faceName, size, bold, false, italic);
    WinUtils::CreateFontW(&m_underlineFont, faceName, size, bold, true, italic);
    ScreenCharRenderer::Instance()->SetFontBounds(m_charSize);
}

void EmulatorLayout::UpdateStyle(int key, COLORREF textColor, COLORREF backColor, CFont* font) {
    for (int k : {key, key | FontStyle::Bold}) {
        FontStyle* style = nullptr;
        if (m_styles.Lookup(k, style))
            style->SetStyle(textColor, backColor, font);
        else
            m_styles.SetAt(k, new FontStyle(k, textColor, backColor, font));
    }
}
