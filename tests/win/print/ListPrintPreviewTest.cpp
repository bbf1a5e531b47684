// The list print view's other two commands: print preview (every previewed
// page with the header line exactly when the document names a system, the
// frame closing when the preview closes) and printing through the print
// dialog, answered or cancelled by the simulated user.
#include "ListPrintHost.h"

#include "support/PdfText.h"

#include <afxpriv.h>
#include <platform/Automation.h>
#include <platform/CodePage.h>
#include <platform/Printers.h>

using namespace listprint_host;
using namespace testing_support;
namespace automation = platform::automation;

namespace {

// Dark pixels in the band of a preview page's bitmap above the title row:
// where the header line is drawn.
int InkAboveTheGrid(HBITMAP page) {
    BITMAP info{};
    if (!page || !::GetObject(page, sizeof info, &info))
        return -1;
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CBitmap* old = dc.SelectObject(CBitmap::FromHandle(page));
    // The title row starts 72 of the page's 1056 units down.
    const int band = info.bmHeight * 60 / 1056;
    int ink = 0;
    for (int y = 0; y < band; ++y)
        for (int x = 0; x < info.bmWidth; ++x) {
            COLORREF c = dc.GetPixel(x, y);
            if (GetRValue(c) + GetGValue(c) + GetBValue(c) < 3 * 128)
                ++ink;
        }
    dc.SelectObject(old);
    return ink;
}

} // namespace

TEST_F(ListPrintHostTest, PreviewShowsTheHeaderOnEveryPageAndClosingItClosesTheFrame) {
    FillList(150, 3);
    listFrame->m_list.SetFocus();
    for (const char16_t* system : {u"North Plant", u""}) {
        auto* doc = new CListPrintDoc(&listFrame->m_list, system, ID_FILE_PRINT_PREVIEW, 0,
                                      COleDateTime(), COleDateTime());
        CFrameWnd* frame = Open(doc);
        ASSERT_NE(frame, nullptr);
        Pump();
        auto* preview = DYNAMIC_DOWNCAST(CPreviewView, frame->GetActiveView());
        ASSERT_NE(preview, nullptr) << "no preview for \"" << platform::ToUtf8(system) << "\"";
        EXPECT_EQ(OpenPrintDocuments(), 1);
        const UINT pages = preview->GetPrintInfo()->GetMaxPage();
        EXPECT_GE(pages, 3u);
        for (UINT page = 1; page <= pages; ++page) {
            preview->SetCurrentPage(page, TRUE);
            preview->UpdateWindow();
            const int ink = InkAboveTheGrid(preview->GetPageBitmap(0));
            ASSERT_GE(ink, 0) << "page " << page;
            if (*system)
                EXPECT_GT(ink, 10) << "page " << page;
            else
                EXPECT_EQ(ink, 0) << "page " << page;
        }
        HWND hwnd = frame->m_hWnd;
        preview->OnPreviewClose();
        EXPECT_TRUE(::IsWindow(hwnd)); // the close is posted
        Pump();
        EXPECT_FALSE(::IsWindow(hwnd));
        EXPECT_EQ(OpenPrintDocuments(), 0);
        EXPECT_EQ(::GetFocus(), listFrame->m_list.m_hWnd);
    }
}

TEST_F(ListPrintHostTest, ThePrintCommandAsksForThePrinterAndPrintsWhereTheUserSays) {
    FillList(100, 3);
    const auto chosen = dir / "chosen.pdf";
    auto* doc = new CListPrintDoc(&listFrame->m_list, u"Plant", ID_FILE_PRINT, 0, COleDateTime(),
                                  COleDateTime());
    ASSERT_NE(Open(doc), nullptr);
    automation::ChoosePrinter(platform::kPdfPrinter);
    automation::SetPrintFile(platform::FromUtf8(chosen.string()).GetString());
    automation::Click(IDOK);
    Pump();
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
    ASSERT_GE(PdfPageCount(chosen), 2);
    EXPECT_FALSE(std::filesystem::exists(pdf));
    EXPECT_TRUE(PageHas(PdfPageLines(chosen, 1), "Plant"));
    EXPECT_EQ(OpenPrintDocuments(), 0);
}

TEST_F(ListPrintHostTest, ACancelledPrintDialogPrintsNothingAndStillClosesTheFrame) {
    FillList(10, 2);
    listFrame->m_list.SetFocus();
    auto* doc = new CListPrintDoc(&listFrame->m_list, u"Plant", ID_FILE_PRINT, 0, COleDateTime(),
                                  COleDateTime());
    ASSERT_NE(Open(doc), nullptr);
    automation::Click(IDCANCEL);
    Pump();
    EXPECT_FALSE(std::filesystem::exists(pdf));
    EXPECT_EQ(OpenPrintDocuments(), 0);
    EXPECT_EQ(::GetFocus(), listFrame->m_list.m_hWnd);
}
