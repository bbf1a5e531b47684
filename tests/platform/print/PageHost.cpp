#include "PageHost.h"

#include "support/TempDir.h"

#include <platform/Automation.h>
#include <platform/CodePage.h>
#include <platform/GlobalMemory.h>
#include <platform/MessagePump.h>
#include <platform/Printers.h>

#include <cstdio>
#include <regex>

namespace pages {

IMPLEMENT_DYNCREATE(CPageDoc, CDocument)
IMPLEMENT_DYNCREATE(CPageView, CView)

BEGIN_MESSAGE_MAP(CPageView, CView)
ON_COMMAND(ID_FILE_PRINT, OnFilePrint)
ON_COMMAND(ID_FILE_PRINT_DIRECT, OnFilePrint)
ON_COMMAND(ID_FILE_PRINT_PREVIEW, OnFilePrintPreview)
END_MESSAGE_MAP()

void CPageView::OnDraw(CDC* dc) {
    CRect client;
    GetClientRect(&client);
    dc->FillSolidRect(&client, 0xFFFFFF);
    dc->TextOut(10, 10, CString(u"Three pages"));
}

BOOL CPageView::OnPreparePrinting(CPrintInfo* info) {
    steps.push_back("prepare");
    info->SetMaxPage(pageCount);
    if (refuse)
        return FALSE;
    return askForPrinter ? DoPreparePrinting(info) : TRUE;
}

void CPageView::OnBeginPrinting(CDC* dc, CPrintInfo*) {
    steps.push_back(dc->IsPrinting() ? "begin" : "begin (not printing)");
}

void CPageView::OnPrepareDC(CDC* dc, CPrintInfo* info) {
    if (info)
        steps.push_back("dc " + std::to_string(info->m_nCurPage));
    CView::OnPrepareDC(dc, info);
}

// Each page: a frame half an inch inside the paper, the page's number in
// large letters, and a black block whose place tells the pages apart.
void CPageView::OnPrint(CDC* dc, CPrintInfo* info) {
    steps.push_back("print " + std::to_string(info->m_nCurPage));
    CWnd* main = AfxGetMainWnd();
    printed.push_back(Page{info->m_nCurPage, info->m_rectDraw,
                           main && main->IsWindowEnabled() != FALSE, dc->IsPrinting() != FALSE,
                           info->m_bPreview != FALSE});
    const int inch = dc->GetDeviceCaps(LOGPIXELSX);
    CRect paper = info->m_rectDraw;
    CRect margin(paper.left + inch / 2, paper.top + inch / 2, paper.right - inch / 2,
                 paper.bottom - inch / 2);
    CBrush black(0x000000);
    dc->FrameRect(&margin, &black);
    const int block = inch;
    const int x = margin.left + inch / 4 + static_cast<int>(info->m_nCurPage - 1) * 2 * block;
    dc->FillSolidRect(x, margin.top + 2 * inch, block, block, 0x000000);
    LOGFONT lf{};
    lf.lfHeight = -MulDiv(36, dc->GetDeviceCaps(LOGPIXELSY), 72);
    std::char_traits<char16_t>::copy(lf.lfFaceName, u"Liberation Sans", 15);
    CFont font;
    font.CreateFontIndirect(&lf);
    CFont* old = dc->SelectObject(&font);
    CString text;
    text.Format(u"Page %u", info->m_nCurPage);
    dc->SetBkMode(TRANSPARENT);
    dc->TextOut(margin.left + inch / 4, margin.top + inch / 4, text);
    dc->SelectObject(old);
}

void CPageView::OnEndPrinting(CDC*, CPrintInfo*) {
    steps.push_back("end");
}

void CPageView::OnEndPrintPreview(CDC* dc, CPrintInfo* info, POINT point, CPreviewView* preview) {
    steps.push_back("end preview");
    endedPreview = preview;
    endedInfo = info;
    endedWithDC = dc && dc->m_hDC;
    endedOnPage = info ? info->m_nCurPage : 0;
    CView::OnEndPrintPreview(dc, info, point, preview);
}

void PageHostTest::SetUp() {
    platform::automation::Reset();
    dir = testing_support::TestOutputDir("print");
    platform::SetPrinterOutput((dir / "default.pdf").string());
    ASSERT_TRUE(platform::SetDefaultPrinter(platform::kPdfPrinter));
    blocksAtStart = platform::LiveGlobalBlocks();
    app = std::make_unique<CWinApp>(u"Page Printer");
    frame = new CFrameWnd;
    auto* doc = new CPageDoc;
    doc->SetTitle(u"Three Pages");
    CCreateContext context;
    context.m_pNewViewClass = RUNTIME_CLASS(CPageView);
    context.m_pCurrentDoc = doc;
    ASSERT_TRUE(frame->Create(nullptr, u"Pages", WS_OVERLAPPEDWINDOW, CRect(40, 30, 760, 560),
                              nullptr, nullptr, 0, &context));
    app->m_pMainWnd = frame;
    frame->InitialUpdateFrame(doc, TRUE);
    view = static_cast<CPageView*>(frame->GetActiveView());
    ASSERT_NE(view, nullptr);
    platform::PumpMessages();
    // The system colours' brushes are made once, at their first use, and
    // kept; every drawing object made since must be gone at the end.
    for (int colour = 0; colour <= COLOR_MENUBAR; ++colour)
        ::GetSysColorBrush(colour);
    gdiAtStart = platform::LiveGdiObjects();
}

void PageHostTest::TearDown() {
    if (app->m_pMainWnd)
        app->m_pMainWnd->DestroyWindow();
    platform::PumpMessages();
    MSG msg;
    while (PeekMessage(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) && msg.message == WM_QUIT) {
    }
    app.reset();
    EXPECT_EQ(platform::automation::Pending(), 0u);
    platform::automation::Reset();
    EXPECT_EQ(platform::LiveGdiObjects(), gdiAtStart)
        << platform::ToString(platform::LiveGdiObjects()) << " against "
        << platform::ToString(gdiAtStart);
    EXPECT_EQ(platform::LiveGlobalBlocks(), blocksAtStart);
}

void PageHostTest::Command(UINT id) {
    frame->SendMessage(WM_COMMAND, id, 0);
}

CPreviewView* PageHostTest::Preview() const {
    CView* active = frame->GetActiveView();
    return active && active->IsKindOf(RUNTIME_CLASS(CPreviewView))
               ? static_cast<CPreviewView*>(active)
               : nullptr;
}

HWND PageHostTest::Pane() const {
    return ::GetDlgItem(frame->m_hWnd, AFX_IDW_PANE_FIRST);
}

namespace {

std::string Run(const std::string& command) {
    std::string output;
    if (FILE* pipe = popen(command.c_str(), "r")) {
        char buffer[512];
        while (size_t n = fread(buffer, 1, sizeof buffer, pipe))
            output.append(buffer, n);
        pclose(pipe);
    }
    return output;
}

} // namespace

int PdfPages(const std::filesystem::path& pdf) {
    std::smatch match;
    std::string info = Run("pdfinfo '" + pdf.string() + "' 2>/dev/null");
    if (!std::regex_search(info, match, std::regex("Pages:\\s+(\\d+)")))
        return -1;
    return std::stoi(match[1]);
}

std::string PdfText(const std::filesystem::path& pdf) {
    return Run("pdftotext '" + pdf.string() + "' - 2>/dev/null");
}

std::u16string Utf16(const std::string& text) {
    return platform::FromUtf8(text).GetString();
}

} // namespace pages
