// Finding templates, documents and views by a template's resource
// identifier, creating views, closing every document with a save prompt the
// simulated user answers, and the templates that share menu 13.
#include "FrameworkHost.h"

#include "support/Shown.h"

#include <platform/Automation.h>

namespace framework_host {
namespace {

namespace automation = platform::automation;

using DocLookupTest = FrameworkHostTest;

TEST_F(DocLookupTest, ATemplateIsFoundByTheDocumentNameInItsString) {
    CDocTemplate* a = AddAlpha();
    CDocTemplate* b = AddBeta();
    EXPECT_EQ(WinUtils::FindDocTemplate(IDR_ALPHA), a);
    EXPECT_EQ(WinUtils::FindDocTemplate(IDR_BETA), b);
    // A name no template has, a missing string, and one without a second part.
    EXPECT_EQ(WinUtils::FindDocTemplate(IDR_GAMMA), nullptr);
    EXPECT_EQ(WinUtils::FindDocTemplate(IDR_MISSING), nullptr);
    EXPECT_EQ(WinUtils::FindDocTemplate(IDR_NO_LINE_FEED), nullptr);
    EXPECT_EQ(WinUtils::FindDocTemplate(IDR_EMPTY_NAME), nullptr);
}

TEST_F(DocLookupTest, TheTemplateRegisteredFirstWinsEveryLookup) {
    CDocTemplate* first = AddAlpha();
    CDocTemplate* second =
        AddTemplate(IDR_ALPHA_TOO, RUNTIME_CLASS(CItemDoc), RUNTIME_CLASS(CMDIChildWnd), false);
    EXPECT_EQ(WinUtils::FindDocTemplate(IDR_ALPHA_TOO), first);
    EXPECT_EQ(WinUtils::FindDocTemplate(IDR_ALPHA), first);
    // A document of the second template is not found through either id.
    CDocument* doc = second->OpenDocumentFile(nullptr);
    ASSERT_NE(doc, nullptr);
    EXPECT_EQ(WinUtils::FindView(IDR_ALPHA_TOO), nullptr);
    CView* created = WinUtils::CreateView(IDR_ALPHA_TOO, true);
    ASSERT_NE(created, nullptr);
    EXPECT_EQ(created->GetDocument()->GetDocTemplate(), first);
}

TEST_F(DocLookupTest, AnEmptyDocumentNameFindsATemplateWithoutStrings) {
    AddAlpha();
    CDocTemplate* nameless =
        AddTemplate(IDR_MISSING, RUNTIME_CLASS(CItemDoc), RUNTIME_CLASS(CMDIChildWnd), false);
    EXPECT_EQ(WinUtils::FindDocTemplate(IDR_EMPTY_NAME), nameless);
}

TEST_F(DocLookupTest, ATemplateWhoseStringIsMissingIsFoundByNoLookup) {
    CDocTemplate* nameless =
        AddTemplate(IDR_MISSING, RUNTIME_CLASS(CItemDoc), RUNTIME_CLASS(CMDIChildWnd), false);
    auto* doc = static_cast<CItemDoc*>(nameless->OpenDocumentFile(nullptr));
    ASSERT_NE(doc, nullptr);
    doc->SetPathName(u"/tmp/nameless.doc", FALSE);
    EXPECT_EQ(WinUtils::FindDocTemplate(IDR_MISSING), nullptr);
    EXPECT_EQ(WinUtils::FindView(IDR_MISSING), nullptr);
    EXPECT_EQ(WinUtils::FindDoc(IDR_MISSING, u"/tmp/nameless.doc"), nullptr);
    EXPECT_EQ(WinUtils::FindDocWithID(IDR_MISSING, nullptr), nullptr);
    EXPECT_EQ(WinUtils::CreateView(IDR_MISSING, true), nullptr);
    EXPECT_EQ(WinUtils::CreateNewView(IDR_MISSING, doc), nullptr);
    EXPECT_EQ(g_liveDocuments, 1);
}

TEST_F(DocLookupTest, TheFirstDocumentsFirstViewIsFound) {
    AddAlpha();
    EXPECT_EQ(WinUtils::FindView(IDR_ALPHA), nullptr);
    CItemDoc* first = OpenAlpha();
    OpenAlpha();
    CView* view = WinUtils::FindView(IDR_ALPHA);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->GetDocument(), first);
}

TEST_F(DocLookupTest, DocumentsAreFoundByTheirExactPath) {
    CItemDoc* a = OpenAlpha();
    CItemDoc* b = OpenAlpha();
    a->SetPathName(u"/data/Orders.alp", FALSE);
    b->SetPathName(u"/data/orders.alp", FALSE);
    EXPECT_EQ(WinUtils::FindDoc(IDR_ALPHA, u"/data/orders.alp"), b);
    EXPECT_EQ(WinUtils::FindDoc(IDR_ALPHA, u"/data/Orders.alp"), a);
    EXPECT_EQ(WinUtils::FindDoc(IDR_ALPHA, u"/data/ORDERS.alp"), nullptr);
    EXPECT_EQ(WinUtils::FindDoc(IDR_BETA, u"/data/orders.alp"), nullptr);
}

TEST_F(DocLookupTest, DocumentsAreFoundByTheIdentityTheyReport) {
    CItemDoc* a = OpenAlpha();
    CItemDoc* b = OpenAlpha();
    int first = 0, second = 0;
    a->m_id = &first;
    b->m_id = &second;
    EXPECT_EQ(WinUtils::FindDocWithID(IDR_ALPHA, &second), b);
    EXPECT_EQ(WinUtils::FindDocWithID(IDR_ALPHA, &first), a);
    int other = 0;
    EXPECT_EQ(WinUtils::FindDocWithID(IDR_ALPHA, &other), nullptr);
    // Documents that cannot report an identity are passed over.
    CDocTemplate* beta = AddBeta();
    ASSERT_NE(beta->OpenDocumentFile(nullptr), nullptr);
    EXPECT_EQ(WinUtils::FindDocWithID(IDR_BETA, nullptr), nullptr);
    b->m_id = nullptr;
    EXPECT_EQ(WinUtils::FindDocWithID(IDR_ALPHA, nullptr), b);
}

TEST_F(DocLookupTest, CreateViewOpensAnEmptyDocumentInAMaximisedFrame) {
    AddAlpha();
    CView* view = WinUtils::CreateView(IDR_ALPHA, true);
    ASSERT_NE(view, nullptr);
    CFrameWnd* frame = view->GetParentFrame();
    EXPECT_TRUE(frame->IsZoomed());
    EXPECT_TRUE(frame->IsWindowVisible());
    EXPECT_EQ(static_cast<CItemView*>(view)->m_initialUpdates, 1);
    EXPECT_EQ(view->GetDocument()->GetTitle(), u"Alpha1");
    EXPECT_EQ(WinUtils::FindView(IDR_ALPHA), view);
}

TEST_F(DocLookupTest, CreateViewShowsTheFrameMaximisedEvenWhenNotAskedToMakeItVisible) {
    AddAlpha();
    CView* view = WinUtils::CreateView(IDR_ALPHA, false);
    ASSERT_NE(view, nullptr);
    CFrameWnd* frame = view->GetParentFrame();
    EXPECT_TRUE(frame->IsWindowVisible());
    EXPECT_TRUE(frame->IsZoomed());
    // The framework gave it no initial update.
    EXPECT_EQ(static_cast<CItemView*>(view)->m_initialUpdates, 0);
}

TEST_F(DocLookupTest, ANewViewOfADocumentUnderAnotherTemplateListsItThereToo) {
    CItemDoc* doc = OpenAlpha();
    doc->SetPathName(u"/data/shared.alp", FALSE);
    CDocTemplate* beta = AddBeta();
    EXPECT_EQ(WinUtils::CreateNewView(IDR_BETA, nullptr), nullptr);

    CView* view = WinUtils::CreateNewView(IDR_BETA, doc);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->GetDocument(), doc);
    EXPECT_NE(view->GetParentFrame(), FrameOf(doc));
    EXPECT_FALSE(view->GetParentFrame()->IsKindOf(RUNTIME_CLASS(CMDIChildWndPlus)));
    EXPECT_EQ(Active(), view->GetParentFrame());
    EXPECT_EQ(doc->GetDocTemplate(), beta);
    EXPECT_EQ(WinUtils::FindDoc(IDR_BETA, u"/data/shared.alp"), doc);
    EXPECT_EQ(WinUtils::FindDoc(IDR_ALPHA, u"/data/shared.alp"), doc);

    // Once closed, no template keeps it.
    doc->OnCloseDocument();
    EXPECT_EQ(g_liveDocuments, 0);
    EXPECT_EQ(WinUtils::FindView(IDR_ALPHA), nullptr);
    EXPECT_EQ(WinUtils::FindView(IDR_BETA), nullptr);
    EXPECT_EQ(WinUtils::FindDoc(IDR_BETA, u"/data/shared.alp"), nullptr);
}

TEST_F(DocLookupTest, ADocumentListedTwiceByItsTemplateClosesOnce) {
    CItemDoc* doc = OpenAlpha();
    ASSERT_NE(WinUtils::CreateNewView(IDR_ALPHA, doc), nullptr);
    int listed = 0;
    for (POSITION pos = alpha->GetFirstDocPosition(); pos; alpha->GetNextDoc(pos))
        ++listed;
    EXPECT_EQ(listed, 2);
    EXPECT_TRUE(WinUtils::CloseAllDocuments());
    EXPECT_EQ(g_liveDocuments, 0);
    EXPECT_EQ(alpha->GetFirstDocPosition(), nullptr);
}

TEST_F(DocLookupTest, CloseAllDocumentsStopsAtACancelledSavePromptLeavingTheRestOpen) {
    CItemDoc* first = OpenAlpha();
    CItemDoc* second = OpenAlpha();
    CItemDoc* third = OpenAlpha();
    (void)first;
    second->SetModifiedFlag();
    std::u16string asked;
    automation::Do([&asked] { asked = testing_support::MessageBoxText(); });
    automation::AnswerMessageBox(IDCANCEL);
    EXPECT_FALSE(WinUtils::CloseAllDocuments());
    EXPECT_EQ(asked, u"Save changes to Alpha2?");
    EXPECT_EQ(g_liveDocuments, 2);
    EXPECT_EQ(WinUtils::FindView(IDR_ALPHA)->GetDocument(), second);
    EXPECT_NE(FrameOf(third), nullptr);

    automation::AnswerMessageBox(IDNO);
    EXPECT_TRUE(WinUtils::CloseAllDocuments());
    EXPECT_EQ(g_liveDocuments, 0);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(DocLookupTest, CloseAllDocumentsGoesThroughEveryTemplate) {
    OpenAlpha();
    CDocTemplate* beta = AddBeta();
    beta->OpenDocumentFile(nullptr);
    beta->OpenDocumentFile(nullptr);
    EXPECT_TRUE(WinUtils::CloseAllDocuments());
    EXPECT_EQ(g_liveDocuments, 0);
    EXPECT_EQ(Active(), nullptr);
}

TEST_F(DocLookupTest, ActivateDocRestoresAMinimisedFrameAndRaisesOthers) {
    EXPECT_FALSE(WinUtils::ActivateDoc(nullptr));
    CItemDoc* a = OpenAlpha();
    CItemDoc* b = OpenAlpha();
    EXPECT_EQ(Active(), FrameOf(b));
    EXPECT_TRUE(WinUtils::ActivateDoc(a));
    EXPECT_EQ(Active(), FrameOf(a));
    EXPECT_FALSE(FrameOf(a)->IsIconic());

    FrameOf(b)->ShowWindow(SW_MINIMIZE);
    EXPECT_TRUE(WinUtils::ActivateDoc(b));
    EXPECT_FALSE(FrameOf(b)->IsIconic());
    EXPECT_FALSE(FrameOf(b)->IsZoomed());
    EXPECT_EQ(Active(), FrameOf(b));

    // Raised over a maximised frame, it takes the maximised state over.
    FrameOf(a)->ShowWindow(SW_SHOWMAXIMIZED);
    EXPECT_TRUE(WinUtils::ActivateDoc(b));
    EXPECT_EQ(Active(), FrameOf(b));
    EXPECT_TRUE(FrameOf(b)->IsZoomed());
}

TEST_F(DocLookupTest, ADocumentWithoutViewsCannotBeActivated) {
    AddAlpha();
    CDocument* doc = alpha->CreateNewDocument();
    ASSERT_NE(doc, nullptr);
    EXPECT_FALSE(WinUtils::ActivateDoc(doc));
    delete doc;
    EXPECT_EQ(alpha->GetFirstDocPosition(), nullptr);
}

TEST_F(DocLookupTest, TemplatesPlusShareMenuThirteenAndItsKeys) {
    AddAlpha();
    CDocTemplate* second =
        AddTemplate(IDR_BETA, RUNTIME_CLASS(CItemDoc), RUNTIME_CLASS(CMDIChildWndPlus), true);
    auto* a = static_cast<CMultiDocTemplate*>(alpha);
    auto* b = static_cast<CMultiDocTemplate*>(second);
    ASSERT_NE(a->m_hMenuShared, nullptr);
    ASSERT_NE(b->m_hMenuShared, nullptr);
    // Each has a copy of menu 13, not the menu of its own identifier.
    EXPECT_NE(a->m_hMenuShared, b->m_hMenuShared);
    WCHAR text[64] = {};
    GetMenuString(a->m_hMenuShared, ID_CLOSE_WINDOW, text, 64, MF_BYCOMMAND);
    EXPECT_EQ(std::u16string(text), u"&Close Window\tCtrl+F4");
    EXPECT_EQ(GetMenuState(a->m_hMenuShared, ID_OWN_COMMAND, MF_BYCOMMAND), static_cast<UINT>(-1));
    EXPECT_EQ(a->m_hAccelTable, LoadAccelerators(AfxGetResourceHandle(), MAKEINTRESOURCE(13)));
    EXPECT_EQ(a->m_hAccelTable, b->m_hAccelTable);

    CItemDoc* doc = OpenAlpha();
    EXPECT_EQ(GetMenu(main->m_hWnd), a->m_hMenuShared);
    // Its key closes the active document frame through the close command.
    automation::Key(VK_F4, false, true);
    Run();
    (void)doc;
    EXPECT_EQ(g_liveDocuments, 0);
}

} // namespace
} // namespace framework_host
