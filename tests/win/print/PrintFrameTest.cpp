// The print frame: created maximised with an empty restored rectangle in the
// bottom-right corner, the child it records and activates, closing only
// once its posted WM_CLOSE arrives, and the focus it gives back.
#include "ListPrintHost.h"

using namespace listprint_host;

namespace {

class PrintFrameTest : public ListPrintHostTest {
protected:
    void SetUp() override {
        ListPrintHostTest::SetUp();
        watched = AddTemplate(IDR_PLAINPRINT, RUNTIME_CLASS(CListPrintDoc),
                              RUNTIME_CLASS(CWatchedPrintFrame), RUNTIME_CLASS(CIdleView));
    }

    CWatchedPrintFrame* OpenWatched() {
        doc = new CListPrintDoc(&listFrame->m_list, ID_HOST_REFRESH);
        return static_cast<CWatchedPrintFrame*>(Open(doc, watched));
    }

    int OpenWatchedDocuments() const {
        int count = 0;
        for (POSITION pos = watched->GetFirstDocPosition(); pos; watched->GetNextDoc(pos))
            ++count;
        return count;
    }

    CMultiDocTemplate* watched = nullptr;
    CListPrintDoc* doc = nullptr;
};

} // namespace

TEST_F(PrintFrameTest, OpensMaximisedWithAnEmptyRestoredRectangleInTheBottomRightCorner) {
    CWatchedPrintFrame* frame = OpenWatched();
    ASSERT_NE(frame, nullptr);
    EXPECT_TRUE(frame->IsZoomed());
    EXPECT_TRUE(frame->IsWindowVisible());
    EXPECT_EQ(main->MDIGetActive(), frame);
    EXPECT_TRUE(frame->Created());
    EXPECT_FALSE(frame->Printing());
    CRect client;
    main->GetClientRect(&client);
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    ASSERT_TRUE(frame->GetWindowPlacement(&placement));
    EXPECT_EQ(CRect(placement.rcNormalPosition),
              CRect(client.right, client.bottom, client.right, client.bottom));
    EXPECT_EQ(placement.showCmd, static_cast<UINT>(SW_SHOWMAXIMIZED));
}

TEST_F(PrintFrameTest, ThePrintStartActivatesTheChildRecordedAtActivation) {
    CWatchedPrintFrame* frame = OpenWatched();
    ASSERT_NE(frame, nullptr);
    // The framework's initial update ran ActivateFrame once the frame was
    // already the active child.
    EXPECT_EQ(frame->ActiveChild(), frame);
    main->MDIActivate(listFrame);
    ASSERT_EQ(main->MDIGetActive(), listFrame);
    frame->SetPrintStart();
    EXPECT_TRUE(frame->Printing());
    EXPECT_EQ(main->MDIGetActive(), frame);
}

TEST_F(PrintFrameTest, TheEndClosesTheFrameOnlyOnceThePostedCloseArrives) {
    CWatchedPrintFrame* frame = OpenWatched();
    ASSERT_NE(frame, nullptr);
    HWND hwnd = frame->m_hWnd;
    CView* view = frame->GetActiveView();
    ASSERT_NE(view, nullptr);
    main->MDIActivate(listFrame);
    frame->SetPrintStart();
    frame->SetPrintEnd();
    // Still there: the view hidden, the frame active again, not printing.
    ASSERT_TRUE(::IsWindow(hwnd));
    EXPECT_FALSE(frame->Printing());
    EXPECT_FALSE(view->IsWindowVisible());
    EXPECT_EQ(main->MDIGetActive(), frame);
    EXPECT_EQ(OpenWatchedDocuments(), 1);
    Pump();
    EXPECT_FALSE(::IsWindow(hwnd));
    EXPECT_EQ(OpenWatchedDocuments(), 0);
}

TEST_F(PrintFrameTest, AFrameItCreatedItselfClosesEvenWhilePrinting) {
    CWatchedPrintFrame* frame = OpenWatched();
    ASSERT_NE(frame, nullptr);
    HWND hwnd = frame->m_hWnd;
    frame->SetPrintStart();
    ::SendMessage(hwnd, WM_CLOSE, 0, 0);
    EXPECT_FALSE(::IsWindow(hwnd));
    EXPECT_EQ(OpenWatchedDocuments(), 0);
}

TEST_F(PrintFrameTest, ClosingGivesTheFocusBackToTheWindowThatHadIt) {
    listFrame->m_list.SetFocus();
    ASSERT_EQ(::GetFocus(), listFrame->m_list.m_hWnd);
    CWatchedPrintFrame* frame = OpenWatched();
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->FocusWnd(), listFrame->m_list.m_hWnd);
    EXPECT_NE(::GetFocus(), listFrame->m_list.m_hWnd);
    frame->SetPrintEnd();
    Pump();
    EXPECT_EQ(::GetFocus(), listFrame->m_list.m_hWnd);
}

TEST_F(PrintFrameTest, WithNoFocusAtCreationClosingLeavesNoWindowFocused) {
    ::SetFocus(nullptr);
    ASSERT_EQ(::GetFocus(), nullptr);
    CWatchedPrintFrame* frame = OpenWatched();
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->FocusWnd(), nullptr);
    frame->SetPrintEnd();
    Pump();
    EXPECT_EQ(::GetFocus(), nullptr);
}

TEST_F(PrintFrameTest, ARecordedChildThatIsGoneOrMissingIsNotActivated) {
    // Recorded while the list's frame is active, which then closes.
    auto* early =
        static_cast<CWatchedPrintFrame*>(RUNTIME_CLASS(CWatchedPrintFrame)->CreateObject());
    ASSERT_NE(early, nullptr);
    main->MDIActivate(listFrame);
    early->ActivateFrame(SW_SHOW);
    EXPECT_EQ(early->ActiveChild(), listFrame);
    listFrame->DestroyWindow();
    listFrame = nullptr;
    Pump();
    early->SetPrintStart();
    EXPECT_TRUE(early->Printing());
    // No child at all: nothing is recorded.
    early->ActivateFrame(SW_SHOW);
    EXPECT_EQ(early->ActiveChild(), nullptr);
    early->SetPrintStart();
    delete early; // it never had a window
}
