// CMDIChildWndPlus: every frame that closes writes its show state to
// "LastMdiPlacement" in section "SYSTEM", and the first frame to open while
// no other is active opens maximised when the last one closed was; the
// host's close-window command closes the frame once its posted WM_CLOSE runs.
#include "FrameworkHost.h"

#include <platform/Automation.h>

namespace framework_host {
namespace {

namespace automation = platform::automation;

using MdiPlacementTest = FrameworkHostTest;

TEST_F(MdiPlacementTest, TheFrameIsDynamicallyCreatable) {
    CRuntimeClass* runtimeClass = RUNTIME_CLASS(CMDIChildWndPlus);
    EXPECT_STREQ(runtimeClass->m_lpszClassName, "CMDIChildWndPlus");
    EXPECT_EQ(runtimeClass->m_wSchema, 0xFFFFu);
    EXPECT_TRUE(runtimeClass->IsDerivedFrom(RUNTIME_CLASS(CMDIChildWnd)));
    EXPECT_EQ(CRuntimeClass::FromName("CMDIChildWndPlus"), runtimeClass);
}

TEST_F(MdiPlacementTest, AfterAMaximisedFrameClosesTheNextFirstFrameOpensMaximised) {
    CItemDoc* doc = OpenAlpha();
    EXPECT_FALSE(FrameOf(doc)->IsZoomed());
    FrameOf(doc)->ShowWindow(SW_SHOWMAXIMIZED);
    FrameOf(doc)->SendMessage(WM_CLOSE);
    EXPECT_EQ(StoredPlacement(), static_cast<UINT>(SW_SHOWMAXIMIZED));
    EXPECT_EQ(app->GetProfileInt(u"SYSTEM", u"LastMdiPlacement", 9), 3u);

    CItemDoc* next = OpenAlpha();
    BOOL maximized = FALSE;
    EXPECT_EQ(Active(&maximized), FrameOf(next));
    EXPECT_TRUE(maximized);
    EXPECT_TRUE(FrameOf(next)->IsWindowVisible());
}

TEST_F(MdiPlacementTest, TheFrameClosedLastDecidesNotTheOnesBefore) {
    CItemDoc* a = OpenAlpha();
    CItemDoc* b = OpenAlpha();
    FrameOf(b)->ShowWindow(SW_SHOWMAXIMIZED);
    FrameOf(b)->SendMessage(WM_CLOSE);
    EXPECT_EQ(StoredPlacement(), 3u);
    // a took the maximised state over; restored, it closes as a normal frame.
    FrameOf(a)->ShowWindow(SW_RESTORE);
    FrameOf(a)->SendMessage(WM_CLOSE);
    EXPECT_EQ(StoredPlacement(), static_cast<UINT>(SW_SHOWNORMAL));

    CItemDoc* next = OpenAlpha();
    EXPECT_FALSE(FrameOf(next)->IsZoomed());
}

TEST_F(MdiPlacementTest, AMinimisedFrameClosingWritesTwo) {
    CItemDoc* doc = OpenAlpha();
    FrameOf(doc)->ShowWindow(SW_MINIMIZE);
    FrameOf(doc)->SendMessage(WM_CLOSE);
    EXPECT_EQ(StoredPlacement(), static_cast<UINT>(SW_SHOWMINIMIZED));
    EXPECT_FALSE(FrameOf(OpenAlpha())->IsZoomed());
}

TEST_F(MdiPlacementTest, ASecondFrameFollowsTheActiveOneNotTheStoredValue) {
    app->WriteProfileInt(u"SYSTEM", u"LastMdiPlacement", SW_SHOWMAXIMIZED);
    CItemDoc* first = OpenAlpha();
    EXPECT_TRUE(FrameOf(first)->IsZoomed());
    FrameOf(first)->ShowWindow(SW_RESTORE);
    CItemDoc* second = OpenAlpha();
    EXPECT_FALSE(FrameOf(second)->IsZoomed());
    EXPECT_EQ(Active(), FrameOf(second));
}

TEST_F(MdiPlacementTest, WithoutAStoredValueTheFirstFrameOpensNormally) {
    EXPECT_EQ(StoredPlacement(), 77u);
    EXPECT_FALSE(FrameOf(OpenAlpha())->IsZoomed());
    app->WriteProfileString(u"SYSTEM", u"LastMdiPlacement", u"maximised");
    EXPECT_FALSE(FrameOf(OpenAlpha())->IsZoomed());
}

TEST_F(MdiPlacementTest, TheValueOutlivesTheApplication) {
    CItemDoc* doc = OpenAlpha();
    FrameOf(doc)->ShowWindow(SW_SHOWMAXIMIZED);
    FrameOf(doc)->SendMessage(WM_CLOSE);
    StopApplication();
    StartApplication();
    EXPECT_TRUE(FrameOf(OpenAlpha())->IsZoomed());
}

TEST_F(MdiPlacementTest, AFrameWhoseCloseIsCancelledHasWrittenItsStateAll) {
    CItemDoc* doc = OpenAlpha();
    FrameOf(doc)->ShowWindow(SW_SHOWMAXIMIZED);
    doc->SetModifiedFlag();
    automation::AnswerMessageBox(IDCANCEL);
    FrameOf(doc)->SendMessage(WM_CLOSE);
    EXPECT_EQ(g_liveDocuments, 1);
    EXPECT_EQ(StoredPlacement(), 3u);
}

TEST_F(MdiPlacementTest, TheCloseWindowCommandClosesTheFrameOnceItsMessageIsHandled) {
    CItemDoc* a = OpenAlpha();
    CItemDoc* b = OpenAlpha();
    main->SendMessage(WM_COMMAND, MAKEWPARAM(ID_CLOSE_WINDOW, 0), 0);
    // The close was posted, not done.
    EXPECT_EQ(g_liveDocuments, 2);
    MSG msg;
    ASSERT_TRUE(PeekMessage(&msg, FrameOf(b)->m_hWnd, WM_CLOSE, WM_CLOSE, PM_NOREMOVE));
    EXPECT_EQ(msg.wParam, 0u);
    EXPECT_EQ(msg.lParam, 0);
    Run();
    EXPECT_EQ(g_liveDocuments, 1);
    EXPECT_EQ(Active(), FrameOf(a));
    EXPECT_EQ(StoredPlacement(), static_cast<UINT>(SW_SHOWNORMAL));

    automation::PickMenuItem(ID_CLOSE_WINDOW);
    Run();
    EXPECT_EQ(g_liveDocuments, 0);
}

} // namespace
} // namespace framework_host
