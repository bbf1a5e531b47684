#include "FrameworkHost.h"

#include "support/TempDir.h"

#include <platform/Automation.h>
#include <platform/MessagePump.h>
#include <tchar.h>

namespace framework_host {

int g_liveDocuments = 0;

IMPLEMENT_DYNCREATE(CItemDoc, CDocWithID)

CItemDoc::CItemDoc() {
    ++g_liveDocuments;
}

CItemDoc::~CItemDoc() {
    --g_liveDocuments;
}

IMPLEMENT_DYNCREATE(CPlainDoc, CDocument)

CPlainDoc::CPlainDoc() {
    ++g_liveDocuments;
}

CPlainDoc::~CPlainDoc() {
    --g_liveDocuments;
}

IMPLEMENT_DYNCREATE(CItemView, CView)

void CItemView::OnInitialUpdate() {
    ++m_initialUpdates;
    CView::OnInitialUpdate();
}

void CItemView::OnDraw(CDC* dc) {
    if (CDocument* doc = GetDocument())
        dc->TextOut(4, 4, doc->GetTitle());
}

CHostApp::CHostApp(const std::filesystem::path& profile) : CWinApp(u"Framework Host") {
    m_pszProfileName = _wcsdup(profile.u16string().c_str());
}

void FrameworkHostTest::SetUp() {
    platform::automation::Reset();
    dir = testing_support::TestOutputDir("framework");
    profile = dir / "host.ini";
    StartApplication();
}

void FrameworkHostTest::TearDown() {
    StopApplication();
    platform::automation::Reset();
    EXPECT_EQ(g_liveDocuments, 0);
}

void FrameworkHostTest::StartApplication() {
    app = std::make_unique<CHostApp>(profile);
    main = new CMDIFrameWnd;
    ASSERT_TRUE(main->LoadFrame(IDR_MAINFRAME));
    app->m_pMainWnd = main;
    main->MoveWindow(0, 0, 800, 600);
    main->ShowWindow(SW_SHOWNORMAL);
}

void FrameworkHostTest::StopApplication() {
    if (!app)
        return;
    if (app->m_pMainWnd) {
        app->CloseAllDocuments(TRUE);
        app->m_pMainWnd->DestroyWindow();
    }
    platform::PumpMessages();
    MSG msg;
    while (PeekMessage(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) && msg.message == WM_QUIT) {
    }
    app.reset();
    main = nullptr;
    alpha = nullptr;
}

CDocTemplate* FrameworkHostTest::AddTemplate(UINT id, CRuntimeClass* doc, CRuntimeClass* frame,
                                             bool plus) {
    CDocTemplate* docTemplate =
        plus ? static_cast<CDocTemplate*>(
                   new CMultiDocTemplatePlus(id, doc, frame, RUNTIME_CLASS(CItemView)))
             : new CMultiDocTemplate(id, doc, frame, RUNTIME_CLASS(CItemView));
    app->AddDocTemplate(docTemplate);
    return docTemplate;
}

CDocTemplate* FrameworkHostTest::AddAlpha() {
    alpha = AddTemplate(IDR_ALPHA, RUNTIME_CLASS(CItemDoc), RUNTIME_CLASS(CMDIChildWndPlus), true);
    return alpha;
}

CDocTemplate* FrameworkHostTest::AddBeta() {
    return AddTemplate(IDR_BETA, RUNTIME_CLASS(CPlainDoc), RUNTIME_CLASS(CMDIChildWnd), false);
}

CItemDoc* FrameworkHostTest::OpenAlpha() {
    if (!alpha)
        AddAlpha();
    return static_cast<CItemDoc*>(alpha->OpenDocumentFile(nullptr));
}

CFrameWnd* FrameworkHostTest::FrameOf(const CDocument* doc) {
    POSITION pos = doc ? doc->GetFirstViewPosition() : nullptr;
    return pos ? doc->GetNextView(pos)->GetParentFrame() : nullptr;
}

UINT FrameworkHostTest::StoredPlacement() const {
    return GetPrivateProfileIntW(u"SYSTEM", u"LastMdiPlacement", 77, profile.u16string().c_str());
}

} // namespace framework_host
