// Documents in MDI frames: opening them through a template, their titles and
// the frame's caption and menu, activation order, and the maximised state
// passing from a closed document to the next one.
#include "NotesHost.h"

#include "support/Shown.h"

#include <platform/Automation.h>
#include <platform/MessagePump.h>

namespace notes {
namespace {

using MdiTest = NotesHostTest;

std::u16string MenuText(HMENU menu, UINT position) {
    WCHAR text[128] = {};
    GetMenuString(menu, position, text, 128, MF_BYPOSITION);
    return text;
}

TEST_F(MdiTest, OpensEachDocumentInItsOwnFrameWithTheTemplatesTitleAndMenu) {
    EXPECT_EQ(TextOf(main), u"Notes Host");
    EXPECT_EQ(GetMenu(main->m_hWnd), main->m_hMenuDefault);

    CNoteDoc* first = OpenNote();
    CNoteDoc* second = OpenNote();
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(first->GetTitle(), u"Note1");
    EXPECT_EQ(second->GetTitle(), u"Note2");
    EXPECT_EQ(first->GetDocTemplate(), noteTemplate);
    EXPECT_EQ(first->m_newDocumentCalls, 1);

    CFrameWnd* firstFrame = FrameOf(first);
    CFrameWnd* secondFrame = FrameOf(second);
    ASSERT_NE(firstFrame, nullptr);
    EXPECT_NE(firstFrame, secondFrame);
    EXPECT_TRUE(firstFrame->IsKindOf(RUNTIME_CLASS(CNoteFrame)));
    EXPECT_EQ(TextOf(firstFrame), u"Note1");
    EXPECT_EQ(TextOf(secondFrame), u"Note2");
    // The newest document is the active one, and its view has had its first
    // update and has the keyboard.
    EXPECT_EQ(Active(), secondFrame);
    auto* view = static_cast<CNoteView*>(secondFrame->GetActiveView());
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->m_initialUpdates, 1);
    EXPECT_EQ(GetFocus(), view->m_hWnd);
    EXPECT_EQ(view->GetDocument(), second);
    EXPECT_EQ(secondFrame->GetActiveDocument(), second);

    EXPECT_EQ(TextOf(main), u"Notes Host - Note2");
    // The frame shows the template's menu while one of its documents is
    // active, with the documents listed in the Window menu.
    HMENU bar = GetMenu(main->m_hWnd);
    EXPECT_EQ(bar, noteTemplate->m_hMenuShared);
    HMENU window = GetSubMenu(bar, 2);
    const int count = GetMenuItemCount(window);
    ASSERT_EQ(count, 4);
    EXPECT_EQ(MenuText(window, 2), u"&1 Note1");
    EXPECT_EQ(MenuText(window, 3), u"&2 Note2");
    EXPECT_EQ(GetMenuState(window, 3, MF_BYPOSITION) & MF_CHECKED, static_cast<UINT>(MF_CHECKED));
    EXPECT_EQ(GetMenuState(window, 2, MF_BYPOSITION) & MF_CHECKED, 0u);
}

TEST_F(MdiTest, ActivatingADocumentRaisesItAndClosingTheActiveOneGoesBackToTheOneBefore) {
    CNoteDoc* a = OpenNote();
    CNoteDoc* b = OpenNote();
    CNoteDoc* c = OpenNote();
    CFrameWnd* fa = FrameOf(a);
    CFrameWnd* fb = FrameOf(b);
    CFrameWnd* fc = FrameOf(c);
    EXPECT_EQ(Active(), fc);

    main->MDIActivate(fa);
    EXPECT_EQ(Active(), fa);
    EXPECT_EQ(GetWindow(main->m_hWndMDIClient, GW_CHILD), fa->m_hWnd);
    EXPECT_EQ(TextOf(main), u"Notes Host - Note1");
    EXPECT_EQ(GetFocus(), fa->GetActiveView()->m_hWnd);

    // Closing the active document activates the one active before it.
    fa->SendMessage(WM_CLOSE);
    EXPECT_EQ(g_liveDocuments, 2);
    EXPECT_EQ(Active(), fc);
    fc->SendMessage(WM_CLOSE);
    EXPECT_EQ(Active(), fb);
    // The last one closing leaves no active document and the frame's own
    // menu and caption.
    fb->SendMessage(WM_CLOSE);
    EXPECT_EQ(Active(), nullptr);
    EXPECT_EQ(g_liveDocuments, 0);
    EXPECT_EQ(GetMenu(main->m_hWnd), main->m_hMenuDefault);
    EXPECT_EQ(TextOf(main), u"Notes Host");
}

TEST_F(MdiTest, AClickInADocumentsViewActivatesIt) {
    CFrameWnd* fa = FrameOf(OpenNote());
    CFrameWnd* fb = FrameOf(OpenNote());
    EXPECT_EQ(Active(), fb);
    // The first document's view shows to the left of the second's frame.
    platform::automation::ClickAt(fa->GetActiveView()->m_hWnd, POINT{5, 60});
    Run();
    EXPECT_EQ(Active(), fa);
    EXPECT_EQ(GetFocus(), fa->GetActiveView()->m_hWnd);
}

TEST_F(MdiTest, NextGoesRoundTheDocuments) {
    CFrameWnd* fa = FrameOf(OpenNote());
    CFrameWnd* fb = FrameOf(OpenNote());
    CFrameWnd* fc = FrameOf(OpenNote());
    main->MDINext();
    EXPECT_EQ(Active(), fb);
    main->MDINext();
    EXPECT_EQ(Active(), fa);
    main->MDINext();
    EXPECT_EQ(Active(), fc);
}

TEST_F(MdiTest, ClosingAMaximisedDocumentShowsTheNextOneMaximised) {
    CNoteDoc* a = OpenNote();
    CNoteDoc* b = OpenNote();
    CFrameWnd* fa = FrameOf(a);
    CFrameWnd* fb = FrameOf(b);
    main->MDIMaximize(fb);
    BOOL maximized = FALSE;
    EXPECT_EQ(Active(&maximized), fb);
    EXPECT_TRUE(maximized);
    EXPECT_TRUE(fb->IsZoomed());
    // The caption shows the maximised document in brackets.
    EXPECT_EQ(TextOf(main), u"Notes Host - [Note2]");
    // Its client area fills the MDI client.
    CRect client, childClient;
    ::GetClientRect(main->m_hWndMDIClient, &client);
    fb->GetClientRect(&childClient);
    EXPECT_EQ(childClient.Size(), client.Size());

    fb->SendMessage(WM_CLOSE);
    EXPECT_EQ(Active(&maximized), fa);
    EXPECT_TRUE(maximized);
    EXPECT_TRUE(fa->IsZoomed());
    EXPECT_EQ(TextOf(main), u"Notes Host - [Note1]");

    main->MDIRestore(fa);
    EXPECT_FALSE(fa->IsZoomed());
    EXPECT_EQ(TextOf(main), u"Notes Host - Note1");
}

TEST_F(MdiTest, ANewDocumentOpensMaximisedWhileTheActiveOneIsAndActivationPassesTheState) {
    CFrameWnd* fa = FrameOf(OpenNote());
    main->MDIMaximize(fa);
    CFrameWnd* fb = FrameOf(OpenNote());
    EXPECT_EQ(Active(), fb);
    EXPECT_TRUE(fb->IsZoomed());
    EXPECT_FALSE(fa->IsZoomed());
    EXPECT_TRUE(fa->IsWindowVisible());

    main->MDIActivate(fa);
    EXPECT_TRUE(fa->IsZoomed());
    EXPECT_FALSE(fb->IsZoomed());
}

TEST_F(MdiTest, MinimisingTheActiveDocumentActivatesAnotherAndPlacementsReportIt) {
    CFrameWnd* fa = FrameOf(OpenNote());
    CFrameWnd* fb = FrameOf(OpenNote());
    CRect before;
    fb->GetWindowRect(&before);
    fb->ShowWindow(SW_MINIMIZE);
    EXPECT_TRUE(fb->IsIconic());
    EXPECT_EQ(Active(), fa);

    WINDOWPLACEMENT wp{};
    wp.length = sizeof wp;
    ASSERT_TRUE(fb->GetWindowPlacement(&wp));
    EXPECT_EQ(wp.showCmd, static_cast<UINT>(SW_SHOWMINIMIZED));
    EXPECT_EQ(wp.ptMinPosition.x, 0);
    CRect normal(wp.rcNormalPosition);
    POINT origin{0, 0};
    ::ClientToScreen(main->m_hWndMDIClient, &origin);
    normal.OffsetRect(origin.x, origin.y);
    EXPECT_EQ(normal, before);

    wp.showCmd = SW_SHOWNORMAL;
    ASSERT_TRUE(fb->SetWindowPlacement(&wp));
    EXPECT_FALSE(fb->IsIconic());
    EXPECT_EQ(Active(), fb);
}

TEST_F(MdiTest, OpeningAFileReadsItAndOpeningItAgainBringsTheOpenDocumentForward) {
    const std::filesystem::path path = dir / "shopping.note";
    CNoteDoc* written = OpenNote();
    written->m_text = u"milk, bread";
    ASSERT_TRUE(written->OnSaveDocument(path.u16string().c_str()));
    written->OnCloseDocument();

    CDocument* opened = app->OpenDocumentFile(path.u16string().c_str());
    ASSERT_NE(opened, nullptr);
    auto* note = static_cast<CNoteDoc*>(opened);
    EXPECT_EQ(note->m_text, u"milk, bread");
    EXPECT_EQ(note->GetTitle(), u"shopping.note");
    EXPECT_EQ(note->GetPathName(), path.u16string().c_str());
    EXPECT_FALSE(note->IsModified());

    CFrameWnd* other = FrameOf(OpenNote());
    EXPECT_EQ(Active(), other);
    EXPECT_EQ(app->OpenDocumentFile(path.u16string().c_str()), opened);
    EXPECT_EQ(Active(), FrameOf(opened));
    EXPECT_EQ(g_liveDocuments, 2);
}

TEST_F(MdiTest, AFileThatCannotBeOpenedIsReportedAndLeavesNoDocument) {
    platform::automation::AnswerMessageBox(IDOK);
    EXPECT_EQ(app->OpenDocumentFile((dir / "missing.note").u16string().c_str()), nullptr);
    EXPECT_EQ(g_liveDocuments, 0);
    EXPECT_EQ(g_liveFrames, 1);
    EXPECT_EQ(platform::automation::CancelsForWantOfActions(), 0);
    EXPECT_EQ(platform::automation::Pending(), 0u);
}

TEST_F(MdiTest, ATemplateWithoutItsStringsMakesUntitledDocumentsWithTheFramesMenu) {
    auto* ghost = new CMultiDocTemplate(IDR_GHOSTTYPE, RUNTIME_CLASS(CNoteDoc),
                                        RUNTIME_CLASS(CNoteFrame), RUNTIME_CLASS(CNoteView));
    app->AddDocTemplate(ghost);
    CString name;
    EXPECT_FALSE(ghost->GetDocString(name, CDocTemplate::docName));
    EXPECT_TRUE(name.IsEmpty());
    EXPECT_EQ(ghost->m_hMenuShared, nullptr);

    CDocument* doc = ghost->OpenDocumentFile(nullptr);
    ASSERT_NE(doc, nullptr);
    EXPECT_EQ(doc->GetTitle(), u"Untitled");
    EXPECT_EQ(TextOf(FrameOf(doc)), u"Untitled");
    // Without a menu of its own the document leaves the frame's menu up.
    EXPECT_EQ(GetMenu(main->m_hWnd), main->m_hMenuDefault);
}

TEST_F(MdiTest, ATemplateWhoseFrameCannotBeMadeSaysSoAndLeavesNothingBehind) {
    auto* broken = new CMultiDocTemplate(IDR_SKETCHTYPE, RUNTIME_CLASS(CNoteDoc),
                                         RUNTIME_CLASS(CNoteDoc), RUNTIME_CLASS(CNoteView));
    app->AddDocTemplate(broken);
    std::u16string told;
    platform::automation::Do([&told] { told = testing_support::MessageBoxText(); });
    platform::automation::AnswerMessageBox(IDOK);
    EXPECT_EQ(broken->OpenDocumentFile(nullptr), nullptr);
    EXPECT_EQ(told, u"Failed to create empty document.");
    EXPECT_EQ(g_liveDocuments, 0);
    EXPECT_EQ(broken->GetFirstDocPosition(), nullptr);
}

TEST_F(MdiTest, ASecondFrameOnADocumentNumbersBothFrames) {
    CNoteDoc* doc = OpenNote();
    CFrameWnd* first = FrameOf(doc);
    CFrameWnd* second = noteTemplate->CreateNewFrame(doc, nullptr);
    ASSERT_NE(second, nullptr);
    noteTemplate->InitialUpdateFrame(second, doc);
    EXPECT_EQ(TextOf(first), u"Note1:1");
    EXPECT_EQ(TextOf(second), u"Note1:2");
    EXPECT_EQ(Active(), second);

    // Closing one frame keeps the document, which still has the other.
    second->SendMessage(WM_CLOSE);
    EXPECT_EQ(g_liveDocuments, 1);
    EXPECT_EQ(TextOf(first), u"Note1");
}

TEST_F(MdiTest, ClosingTheMainFrameClosesEveryDocumentAndQuits) {
    OpenNote();
    OpenNote();
    main->SendMessage(WM_CLOSE);
    EXPECT_EQ(app->m_pMainWnd, nullptr);
    EXPECT_EQ(g_liveDocuments, 0);
    EXPECT_EQ(g_liveFrames, 0);
    MSG msg;
    EXPECT_TRUE(PeekMessage(&msg, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_QUIT));
}

} // namespace
} // namespace notes
