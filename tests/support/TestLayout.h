// A host layout for tests: cells of the layout's measured size laid out from (0, 0).
#pragma once

#include <Win/Win.h>

namespace testing_support {

class TestLayout : public EmulatorLayout {
public:
    // Colours that tell the seven roles apart in pixels and journals.
    static constexpr COLORREF kColours[LayoutColorCount] = {
        RGB(0xC0, 0xC0, 0xC0), // normal text
        RGB(0x00, 0x00, 0x40), // background
        RGB(0x80, 0x80, 0x80), // subdued
        RGB(0x00, 0xC0, 0xC0), // underlined
        RGB(0xC0, 0xC0, 0x00), // blinking
        RGB(0x00, 0x00, 0x00), // selection text
        RGB(0xFF, 0xFF, 0xFF), // selection background
    };

    TestLayout() = default;
    // Creates the fonts and styles from kColours.
    explicit TestLayout(const CString& face, int size = -16) { Apply(face, size); }

    void Apply(const CString& face, int size, bool bold = false, bool italic = false) {
        ChangeLayout(kColours, face, size, bold, italic);
    }

    void OnLayoutChanged() override {}
    CSize GetCharSize() override { return m_charSize; }
    int RowToY(int row) override { return row * m_charSize.cy; }
    int ColumnToX(int col) override { return col * m_charSize.cx; }

    CFont& NormalFont() { return m_font; }
    CFont& UnderlineFont() { return m_underlineFont; }
    int StyleCount() const { return m_styles.GetCount(); }
};

} // namespace testing_support
