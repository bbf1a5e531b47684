// Draws every code from 0x20 to 0x7E in each of the four character sets, in the
// normal, bold, reverse, underlined and selected styles, at two cell sizes, and
// writes the sheet as a PNG: the line-drawing characters must join seamlessly.
#include <Win/Win.h>
#include <platform/GdiObjects.h>

#include <cstdio>
#include <string>

namespace {

// The host's layout: cells laid out from an origin, left to right, top to bottom.
class SheetLayout : public EmulatorLayout {
public:
    SheetLayout(int originX, int originY) : m_originX(originX), m_originY(originY) {}
    void OnLayoutChanged() override {}
    CSize GetCharSize() override { return m_charSize; }
    int RowToY(int row) override { return m_originY + row * m_charSize.cy; }
    int ColumnToX(int col) override { return m_originX + col * m_charSize.cx; }

private:
    int m_originX;
    int m_originY;
};

constexpr COLORREF kColours[7] = {
    RGB(0xD0, 0xD0, 0xD0), RGB(0x10, 0x18, 0x30), RGB(0x80, 0x88, 0x90), RGB(0x60, 0xD0, 0xFF),
    RGB(0xFF, 0xC0, 0x40), RGB(0x10, 0x10, 0x10), RGB(0x90, 0xC0, 0xFF),
};

struct StyleRow {
    const char16_t* name;
    int mode;
    bool selected;
};

constexpr StyleRow kStyles[] = {
    {u"normal", 0, false},
    {u"bold", FontStyle::Bold, false},
    {u"reverse", FontStyle::Reverse, false},
    {u"underlined", FontStyle::Underlined, false},
    {u"selected", 0, true},
};

constexpr const char16_t* kSets[] = {u"US ASCII", u"UK", u"special graphics", u"extended graphics"};

// Draws one block: 4 sets x 5 styles rows of the 95 codes, with a label column.
int DrawBlock(CDC& dc, const CString& face, int size, int top, CFont& labelFont) {
    const int labelWidth = 200;
    SheetLayout layout(labelWidth, top);
    layout.ChangeLayout(kColours, face, size, false, false);
    CSize cell = layout.GetCharSize();
    int row = 0;
    for (int set = 0; set < 4; ++set) {
        for (const StyleRow& style : kStyles) {
            CString label;
            label.Format(u"%s %s (%dx%d)", kSets[set], style.name, cell.cx, cell.cy);
            CFont* old = dc.SelectObject(&labelFont);
            dc.SetTextColor(RGB(0xFF, 0xFF, 0xFF));
            dc.SetBkColor(RGB(0x30, 0x30, 0x30));
            dc.TextOut(4, layout.RowToY(row) + (cell.cy - 14) / 2, label);
            dc.SelectObject(old);
            for (int code = 0x20; code <= 0x7E; ++code) {
                ScreenChar ch;
                ch.Set(static_cast<WCHAR>(code), set, layout.GetStyle(style.mode),
                       layout.GetSelStyle(style.mode));
                if (style.selected)
                    ch.Select();
                int col = code - 0x20;
                ScreenCharRenderer::Instance()->Draw(&dc, &ch, layout.ColumnToX(col),
                                                     layout.RowToY(row), cell);
            }
            ++row;
        }
    }
    // A box drawn from line-drawing cells, to see the joins at a glance.
    const char* box[] = {"lqqqwqqqk", "x   x   x", "tqqqnqqqu", "x   x   x", "mqqqvqqqj"};
    for (int r = 0; r < 5; ++r)
        for (int c = 0; box[r][c]; ++c) {
            ScreenChar ch;
            ch.Set(static_cast<WCHAR>(box[r][c]), 2, layout.GetStyle(0), layout.GetSelStyle(0));
            ScreenCharRenderer::Instance()->Draw(&dc, &ch, layout.ColumnToX(c),
                                                 layout.RowToY(row + r), cell);
        }
    dc.SelectStockObject(SYSTEM_FONT);
    return layout.RowToY(row + 5) + cell.cy;
}

} // namespace

int main(int argc, char** argv) {
    std::string path = argc > 1 ? argv[1] : "out/glyphs.png";
    const int width = 200 + 95 * 20, height = 2000;

    HDC screen = ::GetDC(nullptr);
    CDC dc;
    dc.CreateCompatibleDC(CDC::FromHandle(screen));
    CBitmap bitmap;
    bitmap.CreateCompatibleBitmap(CDC::FromHandle(screen), width, height);
    ::ReleaseDC(nullptr, screen);
    CBitmap* oldBitmap = dc.SelectObject(&bitmap);
    dc.FillSolidRect(0, 0, width, height, RGB(0x30, 0x30, 0x30));

    CFont labelFont;
    WinUtils::CreateFontW(&labelFont, u"MS Sans Serif", -12, false, false, false);
    int bottom = DrawBlock(dc, u"Courier New", 16, 8, labelFont);
    bottom = DrawBlock(dc, u"Lucida Console", -32, bottom + 16, labelFont);

    // Keep only the part that was drawn.
    CDC sheet;
    sheet.CreateCompatibleDC(&dc);
    CBitmap sheetBitmap;
    sheetBitmap.CreateCompatibleBitmap(&dc, width, bottom + 8);
    CBitmap* oldSheet = sheet.SelectObject(&sheetBitmap);
    sheet.BitBlt(0, 0, width, bottom + 8, &dc, 0, 0, SRCCOPY);
    bool ok = platform::SaveDcAsPng(sheet, path);
    sheet.SelectObject(oldSheet);
    dc.SelectObject(oldBitmap);
    if (!ok) {
        std::fprintf(stderr, "glyph_sheet: cannot write %s\n", path.c_str());
        return 1;
    }
    std::printf("glyph_sheet: wrote %s (%dx%d)\n", path.c_str(), width, bottom + 8);
    return 0;
}
