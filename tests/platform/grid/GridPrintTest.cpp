// Printing the grid onto a printer DC, page by page as a print job does, and
// reading the PDF back: page counts, the repeated title row, rows split
// across pages, column bands, margins and the print mapping.
#include "GridViewHost.h"

#include "support/PdfText.h"
#include "support/TempDir.h"

#include <platform/CodePage.h>
#include <platform/GdiJournal.h>

using grid_test::GridHost;
using namespace testing_support;

namespace {

// Prints every page the begin step counts into pdf; the page count.
UINT PrintToPdf(CGXGridView& grid, const std::filesystem::path& pdf) {
    HDC hdc = CreateDC(u"WINSPOOL", u"PDF", nullptr, nullptr);
    EXPECT_NE(hdc, nullptr);
    CDC dc;
    dc.Attach(hdc);
    CString output = platform::FromUtf8(pdf.string());
    DOCINFO info{sizeof(DOCINFO), u"Grid", output.GetString(), nullptr, 0};
    EXPECT_GT(StartDoc(hdc, &info), 0);
    CPrintInfo job;
    grid.OnGXBeginPrinting(&dc, &job);
    const UINT pages = job.GetMaxPage();
    for (UINT page = 1; page <= pages; ++page) {
        StartPage(hdc);
        job.m_nCurPage = page;
        grid.OnGXPrint(&dc, &job);
        EndPage(hdc);
    }
    EndDoc(hdc);
    grid.OnGXEndPrinting(&dc, &job);
    DeleteDC(dc.Detach());
    return pages;
}

std::string Cell(int row, int col) {
    return "r" + std::to_string(row) + "c" + std::to_string(col);
}

} // namespace

TEST_F(GridHost, PrintingSetsTheScreenSizedMappingAndCountsPages) {
    grid->Fill(200, 3, {u"Name", u"City", u"Total"});
    grid->HideCols(0, 0, TRUE);
    grid->GetParam()->GetProperties()->SetMargins(72, 36, 72, 36);
    HDC hdc = CreateDC(u"WINSPOOL", u"PDF", nullptr, nullptr);
    CDC dc;
    dc.Attach(hdc);
    CPrintInfo job;
    grid->OnGXBeginPrinting(&dc, &job);
    EXPECT_EQ(dc.GetMapMode(), MM_ANISOTROPIC);
    EXPECT_EQ(dc.GetWindowExt(), CSize(96, 96));
    EXPECT_EQ(dc.GetViewportExt(), CSize(600, 600));
    EXPECT_EQ(CGXView::GetPrintPageRect(&dc), CRect(0, 0, 816, 1056));
    // Letter less the margins leaves 912 units for the title row and rows.
    const int h = grid->GetRowHeight(0);
    const int perPage = (1056 - 144 - h) / h;
    const UINT expected = static_cast<UINT>((200 + perPage - 1) / perPage);
    EXPECT_EQ(job.GetMaxPage(), expected);
    EXPECT_EQ(grid->GetPrintPageCount(), expected);
    // Each page's drawing area is the page within its margins.
    job.m_nCurPage = 1;
    grid->OnGXPrint(&dc, &job);
    EXPECT_EQ(CRect(job.m_rectDraw), CRect(36, 72, 780, 984));
    grid->OnGXEndPrinting(&dc, &job);
    EXPECT_EQ(grid->GetPrintPageCount(), 0u);
    DeleteDC(dc.Detach());
}

TEST_F(GridHost, RowsRunOnFromPageToPageUnderTheRepeatedTitleRow) {
    grid->Fill(150, 3, {u"Name", u"City", u"Total"});
    grid->HideCols(0, 0, TRUE);
    grid->GetParam()->GetProperties()->SetMargins(72, 36, 72, 36);
    auto pdf = TestOutputDir("grid-print") / "rows.pdf";
    const UINT pages = PrintToPdf(*grid, pdf);
    ASSERT_GE(pages, 3u);
    ASSERT_EQ(PdfPageCount(pdf), static_cast<int>(pages));
    const int h = grid->GetRowHeight(0);
    const int perPage = (1056 - 144 - h) / h;
    for (UINT page = 1; page <= pages; ++page) {
        auto lines = PdfPageLines(pdf, static_cast<int>(page));
        ASSERT_FALSE(lines.empty()) << "page " << page;
        // The title row comes first on every page.
        EXPECT_NE(lines.front().find("Name"), std::string::npos) << lines.front();
        EXPECT_NE(lines.front().find("Total"), std::string::npos) << lines.front();
        const int first = static_cast<int>(page - 1) * perPage + 1;
        const int last = std::min(150, first + perPage - 1);
        EXPECT_TRUE(PageHas(lines, Cell(first, 1))) << "page " << page;
        EXPECT_TRUE(PageHas(lines, Cell(last, 3))) << "page " << page;
        EXPECT_FALSE(PageHas(lines, Cell(last + 1, 1) + " ")) << "page " << page;
        if (first > 1) {
            EXPECT_FALSE(PageHas(lines, Cell(first - 1, 1) + " ")) << "page " << page;
        }
        // The hidden header column prints no row numbers: each line starts
        // with a cell of column 1.
        for (std::size_t i = 1; i < lines.size(); ++i)
            EXPECT_EQ(lines[i].find_first_not_of(' '), lines[i].find('r')) << lines[i];
    }
}

TEST_F(GridHost, TheTitleRowStandsAtTheTopAndLeftMargins) {
    grid->Fill(5, 2, {u"Alpha", u"Beta"});
    grid->HideCols(0, 0, TRUE);
    grid->GetParam()->GetProperties()->SetMargins(72, 36, 72, 36);
    auto pdf = TestOutputDir("grid-print") / "margins.pdf";
    ASSERT_EQ(PrintToPdf(*grid, pdf), 1u);
    auto words = PdfPageWords(pdf, 1);
    const PdfWord* cell = FindWord(words, "r1c1");
    ASSERT_NE(cell, nullptr);
    // 36 units of 1/96 inch are 27 points, and the text stands 3 units
    // further in; the first data row lies one row below the 72-unit margin.
    EXPECT_NEAR(cell->xMin, 27 + 3 * 0.75, 1.0);
    const int h = grid->GetRowHeight(0);
    EXPECT_GT(cell->yMin, (72 + h) * 0.75 - 1);
    EXPECT_LT(cell->yMax, (72 + 2 * h) * 0.75 + 1);
}

TEST_F(GridHost, ColumnsWiderThanThePageGoIntoBandsPrintedOneAfterTheOther) {
    grid->Fill(130, 10, {u"C1", u"C2", u"C3", u"C4", u"C5", u"C6", u"C7", u"C8", u"C9", u"C10"});
    grid->SetColWidth(1, 10, 200);
    grid->GetParam()->GetProperties()->SetMargins(72, 36, 72, 36);
    // The header column shows: 744 units less its 64 leave room for three
    // columns of 200 per band, so four bands.
    auto pdf = TestOutputDir("grid-print") / "bands.pdf";
    const UINT pages = PrintToPdf(*grid, pdf);
    const int h = grid->GetRowHeight(0);
    const int perPage = (1056 - 144 - h) / h;
    const int rowPages = (130 + perPage - 1) / perPage;
    ASSERT_EQ(pages, static_cast<UINT>(4 * rowPages));
    ASSERT_EQ(PdfPageCount(pdf), static_cast<int>(pages));
    const int bandFirst[4] = {1, 4, 7, 10};
    const int bandLast[4] = {3, 6, 9, 10};
    for (int band = 0; band < 4; ++band)
        for (int run = 0; run < rowPages; ++run) {
            const int page = band * rowPages + run + 1;
            auto lines = PdfPageLines(pdf, page);
            ASSERT_FALSE(lines.empty());
            const std::string& title = lines.front();
            for (int col = 1; col <= 10; ++col) {
                bool inBand = col >= bandFirst[band] && col <= bandLast[band];
                EXPECT_EQ(title.find("C" + std::to_string(col) + " ") != std::string::npos ||
                              title.ends_with("C" + std::to_string(col)),
                          inBand)
                    << "page " << page << ": " << title;
            }
            const int first = run * perPage + 1;
            EXPECT_TRUE(PageHas(lines, Cell(first, bandFirst[band]))) << "page " << page;
            // The row numbers of the header column print on every band.
            EXPECT_EQ(lines[1].find_first_not_of(' '), lines[1].find(std::to_string(first)))
                << lines[1];
        }
}

TEST_F(GridHost, AnEmptyGridPrintsItsTitleRowOnOnePage) {
    grid->Fill(0, 2, {u"Empty", u"List"});
    grid->HideCols(0, 0, TRUE);
    auto pdf = TestOutputDir("grid-print") / "empty.pdf";
    EXPECT_EQ(PrintToPdf(*grid, pdf), 1u);
    ASSERT_EQ(PdfPageCount(pdf), 1);
    auto lines = PdfPageLines(pdf, 1);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_NE(lines[0].find("Empty"), std::string::npos);
}

TEST_F(GridHost, NothingToShowAcrossPrintsOneBlankPage) {
    grid->Fill(300, 0, {});
    grid->HideCols(0, 0, TRUE);
    auto pdf = TestOutputDir("grid-print") / "nothing.pdf";
    EXPECT_EQ(PrintToPdf(*grid, pdf), 1u);
    EXPECT_EQ(PdfPageCount(pdf), 1);
    EXPECT_TRUE(PdfPageLines(pdf, 1).empty());
}

TEST_F(GridHost, MarginsDecideHowManyRowsAPageHolds) {
    grid->Fill(100, 2, {u"A", u"B"});
    HDC hdc = CreateDC(u"WINSPOOL", u"PDF", nullptr, nullptr);
    CDC dc;
    dc.Attach(hdc);
    CPrintInfo narrow;
    grid->GetParam()->GetProperties()->SetMargins(20, 20, 20, 20);
    grid->OnGXBeginPrinting(&dc, &narrow);
    CPrintInfo wide;
    grid->GetParam()->GetProperties()->SetMargins(400, 20, 400, 20);
    grid->OnGXBeginPrinting(&dc, &wide);
    EXPECT_GT(wide.GetMaxPage(), narrow.GetMaxPage());
    // Margins that leave no room give way to the whole page.
    CPrintInfo whole;
    grid->GetParam()->GetProperties()->SetMargins(600, 0, 600, 0);
    grid->OnGXBeginPrinting(&dc, &whole);
    EXPECT_LE(whole.GetMaxPage(), narrow.GetMaxPage());
    grid->OnGXEndPrinting(&dc, &whole);
    DeleteDC(dc.Detach());
}

TEST_F(GridHost, PrintStepsWithoutADeviceOrJobOrBeyondTheLastPageDrawNothing) {
    grid->Fill(10, 2, {u"A", u"B"});
    CPrintInfo job;
    grid->OnGXBeginPrinting(nullptr, &job);
    EXPECT_EQ(job.GetMaxPage(), 0xFFFFu);
    HDC hdc = CreateDC(u"WINSPOOL", u"PDF", nullptr, nullptr);
    CDC dc;
    dc.Attach(hdc);
    grid->OnGXBeginPrinting(&dc, nullptr);
    grid->OnGXPrint(&dc, nullptr);
    EXPECT_EQ(grid->GetPrintPageCount(), 0u);
    platform::GdiJournal journal;
    platform::SetJournal(hdc, &journal);
    job.m_nCurPage = 5;
    grid->OnGXPrint(&dc, &job); // counts pages itself: there is one
    EXPECT_EQ(job.GetMaxPage(), 1u);
    EXPECT_EQ(journal.Count("TextOut"), 0u);
    job.m_nCurPage = 1;
    grid->OnGXPrint(&dc, &job);
    EXPECT_GT(journal.Count("TextOut"), 0u);
    platform::SetJournal(hdc, nullptr);
    grid->OnGXEndPrinting(&dc, &job);
    DeleteDC(dc.Detach());
}
