// The preview DC: a printer's page drawn small onto a bitmap, with the
// printer's page size, resolution and text measures, its thin rules kept.
#include <platform/GdiObjects.h>
#include <platform/Printers.h>
#include <windows.h>

#include <gtest/gtest.h>

namespace {

class PreviewDcTest : public ::testing::Test {
protected:
    void SetUp() override {
        before = platform::LiveGdiObjects();
        printer = CreateDC(u"WINSPOOL", platform::kPdfPrinter, nullptr, nullptr);
        ASSERT_NE(printer, nullptr);
        HDC screen = GetDC(nullptr);
        // Letter at a twentieth of 600 dots per inch: 255 x 330 pixels.
        page = CreateCompatibleBitmap(screen, 255, 330);
        ReleaseDC(nullptr, screen);
        preview = platform::CreatePreviewDC(printer, page);
        ASSERT_NE(preview, nullptr);
        memory = CreateCompatibleDC(nullptr);
    }
    void TearDown() override {
        DeleteDC(memory);
        DeleteDC(preview);
        DeleteObject(page);
        DeleteDC(printer);
        EXPECT_EQ(platform::LiveGdiObjects(), before);
    }
    COLORREF PixelOfPage(int x, int y) {
        HGDIOBJ old = SelectObject(memory, page);
        COLORREF colour = GetPixel(memory, x, y);
        SelectObject(memory, old);
        return colour;
    }

    platform::GdiCounts before;
    HDC printer = nullptr;
    HBITMAP page = nullptr;
    HDC preview = nullptr;
    HDC memory = nullptr;
};

TEST_F(PreviewDcTest, ItMeasuresAsThePrinterDoes) {
    for (int index : {HORZRES, VERTRES, LOGPIXELSX, LOGPIXELSY})
        EXPECT_EQ(GetDeviceCaps(preview, index), GetDeviceCaps(printer, index)) << index;
    LOGFONT lf{};
    lf.lfHeight = -100;
    std::char_traits<char16_t>::copy(lf.lfFaceName, u"Courier New", 11);
    HFONT font = CreateFontIndirect(&lf);
    HGDIOBJ oldPrinter = SelectObject(printer, font);
    HGDIOBJ oldPreview = SelectObject(preview, font);
    SIZE onPaper{}, onPreview{};
    GetTextExtentPoint32W(printer, u"Preview", 7, &onPaper);
    GetTextExtentPoint32W(preview, u"Preview", 7, &onPreview);
    EXPECT_EQ(onPreview.cx, onPaper.cx);
    EXPECT_EQ(onPreview.cy, onPaper.cy);
    SelectObject(printer, oldPrinter);
    SelectObject(preview, oldPreview);
    DeleteObject(font);
}

TEST_F(PreviewDcTest, DotsAreScaledToThePicture) {
    RECT whole{0, 0, 5100, 6600};
    FillRect(preview, &whole, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    // A block from the middle of the paper to its right and bottom edges.
    RECT quarter{2550, 3300, 5100, 6600};
    FillRect(preview, &quarter, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    EXPECT_EQ(PixelOfPage(127, 164), 0xFFFFFFu);
    EXPECT_EQ(PixelOfPage(128, 165), 0x000000u);
    EXPECT_EQ(PixelOfPage(254, 329), 0x000000u);
}

TEST_F(PreviewDcTest, ThinRulesKeepAPixel) {
    RECT whole{0, 0, 5100, 6600};
    FillRect(preview, &whole, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    // A one-dot line is a twentieth of a pixel; it still shows as one.
    MoveToEx(preview, 0, 1000, nullptr);
    LineTo(preview, 5100, 1000);
    HPEN wide = CreatePen(PS_SOLID, 2, RGB(0, 0, 0));
    HGDIOBJ old = SelectObject(preview, wide);
    MoveToEx(preview, 3000, 0, nullptr);
    LineTo(preview, 3000, 6600);
    SelectObject(preview, old);
    DeleteObject(wide);
    EXPECT_EQ(PixelOfPage(100, 50), 0x000000u);
    EXPECT_EQ(PixelOfPage(100, 49), 0xFFFFFFu);
    EXPECT_EQ(PixelOfPage(100, 51), 0xFFFFFFu);
    EXPECT_EQ(PixelOfPage(150, 200), 0x000000u);
}

TEST_F(PreviewDcTest, ItStartsNoDocument) {
    DOCINFO info{sizeof(DOCINFO), u"Preview", nullptr, nullptr, 0};
    EXPECT_EQ(StartDoc(preview, &info), SP_ERROR);
    EXPECT_EQ(StartPage(preview), SP_ERROR);
}

TEST(PreviewDc, NeedsAPrinterAndABitmap) {
    HDC screen = GetDC(nullptr);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, 10, 10);
    HDC printer = CreateDC(u"WINSPOOL", platform::kPdfPrinter, nullptr, nullptr);
    EXPECT_EQ(platform::CreatePreviewDC(screen, bitmap), nullptr);
    EXPECT_EQ(platform::CreatePreviewDC(printer, nullptr), nullptr);
    EXPECT_EQ(platform::CreatePreviewDC(nullptr, bitmap), nullptr);
    HDC preview = platform::CreatePreviewDC(printer, bitmap);
    ASSERT_NE(preview, nullptr);
    // A preview of a preview is not made.
    EXPECT_EQ(platform::CreatePreviewDC(preview, bitmap), nullptr);
    // The bitmap may go first: the DC keeps its pixels.
    DeleteObject(bitmap);
    RECT r{0, 0, 5100, 6600};
    EXPECT_TRUE(FillRect(preview, &r, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH))));
    DeleteDC(preview);
    DeleteDC(printer);
    ReleaseDC(nullptr, screen);
}

TEST(PrinterDc, AnUnknownPrinterHasNoDc) {
    EXPECT_EQ(CreateDC(u"WINSPOOL", u"No Such Printer", nullptr, nullptr), nullptr);
    EXPECT_EQ(CreateDC(nullptr, nullptr, nullptr, nullptr), nullptr);
}

TEST(PrinterDc, LandscapeTurnsThePaper) {
    DEVMODE mode{};
    mode.dmSize = sizeof(mode);
    mode.dmFields = DM_ORIENTATION;
    mode.dmOrientation = DMORIENT_LANDSCAPE;
    HDC dc = CreateDC(u"WINSPOOL", platform::kPdfPrinter, nullptr, &mode);
    ASSERT_NE(dc, nullptr);
    EXPECT_GT(GetDeviceCaps(dc, HORZRES), GetDeviceCaps(dc, VERTRES));
    DeleteDC(dc);
}

} // namespace
