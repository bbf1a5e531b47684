// Whole print jobs of the list print trio: the document's command posted by
// the view runs the framework's print, the PDF carries the header line and
// the title row on every page, and the frame closes and gives the focus back.
#include "ListPrintHost.h"

#include "support/PdfText.h"

using namespace listprint_host;
using namespace testing_support;

namespace {

const char* const kNow = "2024-03-05 14:07:09";

// The first line of a page that is not the header line: the title row.
std::string TitleRow(const std::vector<std::string>& lines) {
    for (const std::string& line : lines)
        if (line.find(kNow) == std::string::npos)
            return line;
    return std::string();
}

} // namespace

TEST_F(ListPrintHostTest, APrintJobPutsTheHeaderLineAndTitleRowOnEveryPage) {
    FillList(150, 4);
    listFrame->m_list.SetFocus();
    auto* doc =
        new CListPrintDoc(&listFrame->m_list, u"North Plant", ID_FILE_PRINT_DIRECT, 1,
                          COleDateTime(2024, 1, 2, 0, 0, 0), COleDateTime(2024, 2, 3, 0, 0, 0));
    ASSERT_NE(Open(doc), nullptr);
    EXPECT_FALSE(std::filesystem::exists(pdf)); // the command waits in the queue
    Pump();
    ASSERT_TRUE(std::filesystem::exists(pdf));
    const int pages = PdfPageCount(pdf);
    ASSERT_GE(pages, 3);
    for (int page = 1; page <= pages; ++page) {
        auto lines = PdfPageLines(pdf, page);
        ASSERT_FALSE(lines.empty());
        EXPECT_NE(lines[0].find(kNow), std::string::npos) << "page " << page << ": " << lines[0];
        EXPECT_NE(lines[0].find("North Plant, from 2024-01-02 to 2024-02-03"), std::string::npos)
            << lines[0];
        std::string title = TitleRow(lines);
        EXPECT_NE(title.find("Title 0"), std::string::npos) << "page " << page;
        EXPECT_NE(title.find("Title 3"), std::string::npos) << "page " << page;
    }
    EXPECT_TRUE(PageHas(PdfPageLines(pdf, 1), "R0 C0"));
    EXPECT_TRUE(PageHas(PdfPageLines(pdf, pages), "R149 C3"));
    // The job's end closed the frame and the document, and the list has the
    // focus again.
    EXPECT_EQ(OpenPrintDocuments(), 0);
    EXPECT_EQ(::GetFocus(), listFrame->m_list.m_hWnd);
}

TEST_F(ListPrintHostTest, TheHeaderLineIsCentredInTheViewAboveTheMargin) {
    FillList(3, 2);
    auto* doc = new CListPrintDoc(&listFrame->m_list, u"Centred", ID_FILE_PRINT_DIRECT, 0,
                                  COleDateTime(), COleDateTime());
    ASSERT_NE(Open(doc), nullptr);
    CRect client;
    ViewOf(doc)->GetClientRect(&client);
    Pump();
    auto words = PdfPageWords(pdf, 1);
    const PdfWord* first = FindWord(words, "2024-03-05");
    const PdfWord* last = FindWord(words, "Centred");
    ASSERT_NE(first, nullptr);
    ASSERT_NE(last, nullptr);
    // Print units are 1/96 inch: 0.75 points each.
    EXPECT_NEAR((first->xMin + last->xMax) / 2, client.Width() / 2 * 0.75, 3.0);
    EXPECT_LT(last->yMax, 72 * 0.75);
    const PdfWord* title = FindWord(words, "Title");
    ASSERT_NE(title, nullptr);
    EXPECT_GT(title->yMin, 72 * 0.75 - 1);
}

TEST_F(ListPrintHostTest, WithoutASystemNamePagesHaveNoHeaderLine) {
    FillList(80, 2);
    auto* doc = new CListPrintDoc(&listFrame->m_list, ID_FILE_PRINT_DIRECT);
    ASSERT_NE(Open(doc), nullptr);
    Pump();
    const int pages = PdfPageCount(pdf);
    ASSERT_GE(pages, 2);
    for (int page = 1; page <= pages; ++page) {
        auto lines = PdfPageLines(pdf, page);
        ASSERT_FALSE(lines.empty());
        EXPECT_NE(lines[0].find("Title 0"), std::string::npos) << lines[0];
        EXPECT_FALSE(PageHas(lines, kNow));
    }
}

TEST_F(ListPrintHostTest, AnEmptyListPrintsTheTitleRowOnly) {
    FillList(0, 3);
    auto* doc = new CListPrintDoc(&listFrame->m_list, u"Empty", ID_FILE_PRINT_DIRECT, 0,
                                  COleDateTime(), COleDateTime());
    ASSERT_NE(Open(doc), nullptr);
    Pump();
    ASSERT_EQ(PdfPageCount(pdf), 1);
    auto lines = PdfPageLines(pdf, 1);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_NE(lines[0].find("Empty"), std::string::npos);
    EXPECT_NE(lines[1].find("Title 0"), std::string::npos);
    EXPECT_NE(lines[1].find("Title 2"), std::string::npos);
}

TEST_F(ListPrintHostTest, ColumnsPrintInTheOrderTheUserArranged) {
    FillList(4, 3);
    int order[3] = {2, 0, 1};
    listFrame->m_list.SetColumnOrderArray(3, order);
    auto* doc = new CListPrintDoc(&listFrame->m_list, ID_FILE_PRINT_DIRECT);
    ASSERT_NE(Open(doc), nullptr);
    Pump();
    auto lines = PdfPageLines(pdf, 1);
    ASSERT_GE(lines.size(), 2u);
    const std::string& title = lines[0];
    EXPECT_LT(title.find("Title 2"), title.find("Title 0")) << title;
    EXPECT_LT(title.find("Title 0"), title.find("Title 1")) << title;
    EXPECT_LT(lines[1].find("R0 C2"), lines[1].find("R0 C0")) << lines[1];
}

TEST_F(ListPrintHostTest, AnotherCommandIsPostedButPrintsNothingAndTheFrameStays) {
    FillList(5, 2);
    auto* doc = new CListPrintDoc(&listFrame->m_list, u"Plant", ID_HOST_REFRESH, 0, COleDateTime(),
                                  COleDateTime());
    CFrameWnd* frame = Open(doc);
    ASSERT_NE(frame, nullptr);
    HWND hwnd = frame->m_hWnd;
    CView* view = ViewOf(doc);
    // The view posted the command to itself.
    MSG msg;
    ASSERT_TRUE(PeekMessage(&msg, view->m_hWnd, WM_COMMAND, WM_COMMAND, PM_NOREMOVE));
    EXPECT_EQ(LOWORD(msg.wParam), ID_HOST_REFRESH);
    Pump();
    EXPECT_FALSE(std::filesystem::exists(pdf));
    EXPECT_TRUE(::IsWindow(hwnd));
    EXPECT_TRUE(view->IsWindowVisible());
    EXPECT_EQ(OpenPrintDocuments(), 1);
}

TEST_F(ListPrintHostTest, AViewOutsideAPrintFramePrintsButItsFrameStaysOpen) {
    FillList(10, 2);
    CMultiDocTemplate* plain =
        AddTemplate(IDR_PLAINPRINT, RUNTIME_CLASS(CListPrintDoc), RUNTIME_CLASS(CMDIChildWnd),
                    RUNTIME_CLASS(CListPrintView));
    auto* doc = new CListPrintDoc(&listFrame->m_list, u"Plain", ID_FILE_PRINT_DIRECT, 0,
                                  COleDateTime(), COleDateTime());
    CFrameWnd* frame = Open(doc, plain);
    ASSERT_NE(frame, nullptr);
    HWND hwnd = frame->m_hWnd;
    Pump();
    ASSERT_EQ(PdfPageCount(pdf), 1);
    EXPECT_TRUE(PageHas(PdfPageLines(pdf, 1), "R9 C1"));
    EXPECT_TRUE(::IsWindow(hwnd));
    EXPECT_TRUE(ViewOf(doc)->IsWindowVisible());
}

TEST_F(ListPrintHostTest, TheEndOfPrintingRestoresTheWindowsTheFrameworkDisabled) {
    FillList(3, 2);
    // Another top-level window in front, disabled; the main window disabled
    // as well.
    auto* tool = new CFrameWnd;
    ASSERT_TRUE(tool->Create(nullptr, u"Tool", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                             CRect(100, 100, 300, 200)));
    tool->SetForegroundWindow();
    auto* doc = new CListPrintDoc(&listFrame->m_list, ID_FILE_PRINT_DIRECT);
    ASSERT_NE(Open(doc), nullptr);
    tool->SetForegroundWindow();
    ASSERT_EQ(::GetForegroundWindow(), tool->m_hWnd);
    tool->EnableWindow(FALSE);
    main->EnableWindow(FALSE);
    Pump();
    ASSERT_TRUE(std::filesystem::exists(pdf));
    // The main window is as it was; the foreground window is usable again.
    EXPECT_FALSE(main->IsWindowEnabled());
    EXPECT_TRUE(tool->IsWindowEnabled());
    main->EnableWindow(TRUE);
    tool->DestroyWindow();
}

TEST_F(ListPrintHostTest, AnEnabledMainWindowIsEnabledAfterPrinting) {
    FillList(3, 2);
    auto* doc = new CListPrintDoc(&listFrame->m_list, ID_FILE_PRINT_DIRECT);
    ASSERT_NE(Open(doc), nullptr);
    ASSERT_TRUE(main->IsWindowEnabled());
    Pump();
    ASSERT_TRUE(std::filesystem::exists(pdf));
    EXPECT_TRUE(main->IsWindowEnabled());
}
