// Printing and preview from a view in a maximised document window of an MDI
// frame: the MDI frame is the main window held disabled, and the preview
// fills the document window only.
#include "PageHost.h"

#include "support/TempDir.h"

#include <platform/Automation.h>
#include <platform/GlobalMemory.h>
#include <platform/MessagePump.h>
#include <platform/Printers.h>

namespace pages {
namespace {

namespace automation = platform::automation;
using Steps = std::vector<std::string>;

class MdiPrintTest : public ::testing::Test {
protected:
    void SetUp() override {
        automation::Reset();
        dir = testing_support::TestOutputDir("print-mdi");
        platform::SetPrinterOutput((dir / "default.pdf").string());
        app = std::make_unique<CWinApp>(u"Page Printer");
        main = new CMDIFrameWnd;
        ASSERT_TRUE(main->Create(nullptr, u"Main", WS_OVERLAPPEDWINDOW, CRect(20, 20, 780, 580)));
        app->m_pMainWnd = main;
        main->ShowWindow(SW_SHOWNORMAL);
        auto* doc = new CPageDoc;
        CCreateContext context;
        context.m_pNewViewClass = RUNTIME_CLASS(CPageView);
        context.m_pCurrentDoc = doc;
        child = new CMDIChildWnd;
        ASSERT_TRUE(child->Create(nullptr, u"Pages",
                                  WS_CHILD | WS_VISIBLE | WS_OVERLAPPEDWINDOW | WS_MAXIMIZE,
                                  CFrameWnd::rectDefault, main, &context));
        child->InitialUpdateFrame(doc, TRUE);
        view = static_cast<CPageView*>(child->GetActiveView());
        ASSERT_NE(view, nullptr);
        platform::PumpMessages();
    }
    void TearDown() override {
        if (app->m_pMainWnd)
            app->m_pMainWnd->DestroyWindow();
        platform::PumpMessages();
        MSG msg;
        while (PeekMessage(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) && msg.message == WM_QUIT) {
        }
        app.reset();
        EXPECT_EQ(automation::Pending(), 0u);
        automation::Reset();
    }

    std::filesystem::path dir;
    std::unique_ptr<CWinApp> app;
    CMDIFrameWnd* main = nullptr;
    CMDIChildWnd* child = nullptr;
    CPageView* view = nullptr;
};

TEST_F(MdiPrintTest, TheMdiFrameIsHeldWhilePrintingFromADocumentWindow) {
    main->SendMessage(WM_COMMAND, ID_FILE_PRINT_DIRECT, 0);
    ASSERT_EQ(view->printed.size(), 3u);
    for (const CPageView::Page& page : view->printed)
        EXPECT_FALSE(page.mainEnabled);
    EXPECT_TRUE(main->IsWindowEnabled());
    EXPECT_EQ(PdfPages(dir / "default.pdf"), 3);
}

TEST_F(MdiPrintTest, ThePreviewFillsTheDocumentWindowAndLeavesIt) {
    main->SendMessage(WM_COMMAND, ID_FILE_PRINT_PREVIEW, 0);
    CView* active = child->GetActiveView();
    ASSERT_NE(active, nullptr);
    ASSERT_TRUE(active->IsKindOf(RUNTIME_CLASS(CPreviewView)));
    EXPECT_EQ(active->GetParent(), child);
    CRect client, pane;
    child->GetClientRect(&client);
    active->GetWindowRect(&pane);
    EXPECT_EQ(pane.Size(), client.Size());
    // Commands from the MDI frame reach the preview through the document
    // window.
    main->SendMessage(WM_COMMAND, AFX_ID_PREVIEW_NEXT, 0);
    EXPECT_EQ(static_cast<CPreviewView*>(active)->GetCurrentPage(), 2u);
    main->SendMessage(WM_COMMAND, AFX_ID_PREVIEW_CLOSE, 0);
    EXPECT_EQ(child->GetActiveView(), view);
    EXPECT_TRUE(view->IsWindowVisible());
    EXPECT_EQ(view->steps, (Steps{"prepare", "begin", "dc 1", "print 1", "dc 2", "print 2",
                                  "end preview", "end"}));
}

} // namespace
} // namespace pages
