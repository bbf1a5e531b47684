#include "NotesHost.h"

#include "support/TempDir.h"

#include <platform/Automation.h>
#include <platform/MessagePump.h>
#include <tchar.h>

namespace notes {

std::vector<std::string> g_handled;
int g_liveDocuments = 0;
int g_liveViews = 0;
int g_liveFrames = 0;

// The document.

IMPLEMENT_DYNCREATE(CNoteDoc, CDocument)

BEGIN_MESSAGE_MAP(CNoteDoc, CDocument)
ON_COMMAND(ID_EDIT_STAMP, OnStamp)
ON_COMMAND(ID_ROUTE_DOC, OnRouteDoc)
ON_COMMAND(ID_ROUTE_ALL, OnRouteAll)
END_MESSAGE_MAP()

CNoteDoc::CNoteDoc() {
    ++g_liveDocuments;
}

CNoteDoc::~CNoteDoc() {
    --g_liveDocuments;
}

void CNoteDoc::Serialize(CArchive& ar) {
    if (ar.IsStoring())
        ar << m_text;
    else
        ar >> m_text;
}

BOOL CNoteDoc::OnNewDocument() {
    ++m_newDocumentCalls;
    return CDocument::OnNewDocument();
}

void CNoteDoc::DeleteContents() {
    m_text.Empty();
}

void CNoteDoc::OnStamp() {
    g_handled.push_back("doc stamp");
    m_text += u"*";
    SetModifiedFlag();
    UpdateAllViews(nullptr);
}

void CNoteDoc::OnRouteDoc() {
    g_handled.push_back("doc");
}

void CNoteDoc::OnRouteAll() {
    g_handled.push_back("doc");
}

// The view.

IMPLEMENT_DYNCREATE(CNoteView, CView)

BEGIN_MESSAGE_MAP(CNoteView, CView)
ON_COMMAND(ID_ROUTE_VIEW, OnRouteView)
ON_COMMAND(ID_ROUTE_ALL, OnRouteAll)
ON_COMMAND(ID_ROUTE_DISABLED, OnRouteDisabled)
ON_UPDATE_COMMAND_UI(ID_ROUTE_DISABLED, OnUpdateRouteDisabled)
END_MESSAGE_MAP()

CNoteView::CNoteView() {
    ++g_liveViews;
}

CNoteView::~CNoteView() {
    --g_liveViews;
}

void CNoteView::OnInitialUpdate() {
    ++m_initialUpdates;
    CView::OnInitialUpdate();
}

void CNoteView::OnDraw(CDC* dc) {
    CNoteDoc* doc = GetDocument();
    CString line = doc ? doc->GetTitle() + u": " + doc->m_text : CString(u"(no document)");
    dc->SetBkMode(TRANSPARENT);
    dc->TextOut(8, 8, line);
}

void CNoteView::OnRouteView() {
    g_handled.push_back("view");
}

void CNoteView::OnRouteAll() {
    g_handled.push_back("view");
}

void CNoteView::OnRouteDisabled() {
    g_handled.push_back("disabled command ran");
}

void CNoteView::OnUpdateRouteDisabled(CCmdUI* state) {
    state->Enable(FALSE);
}

// The document frame.

IMPLEMENT_DYNCREATE(CNoteFrame, CMDIChildWnd)

BEGIN_MESSAGE_MAP(CNoteFrame, CMDIChildWnd)
ON_COMMAND(ID_ROUTE_CHILD, OnRouteChild)
ON_COMMAND(ID_ROUTE_ALL, OnRouteAll)
END_MESSAGE_MAP()

CNoteFrame::CNoteFrame() {
    ++g_liveFrames;
}

CNoteFrame::~CNoteFrame() {
    --g_liveFrames;
}

void CNoteFrame::OnRouteChild() {
    g_handled.push_back("child frame");
}

void CNoteFrame::OnRouteAll() {
    g_handled.push_back("child frame");
}

// The main frame.

BEGIN_MESSAGE_MAP(CMainFrame, CMDIFrameWnd)
ON_COMMAND(ID_ROUTE_MAIN, OnRouteMain)
ON_COMMAND(ID_ROUTE_ALL, OnRouteAll)
ON_COMMAND(ID_ROUTE_APP_MAIN, OnRouteAppMain)
END_MESSAGE_MAP()

CMainFrame::CMainFrame() {
    ++g_liveFrames;
}

CMainFrame::~CMainFrame() {
    --g_liveFrames;
}

void CMainFrame::OnRouteMain() {
    g_handled.push_back("main frame");
}

void CMainFrame::OnRouteAll() {
    g_handled.push_back("main frame");
}

void CMainFrame::OnRouteAppMain() {
    g_handled.push_back("main frame");
}

// The template.

BEGIN_MESSAGE_MAP(CNoteTemplate, CMultiDocTemplate)
ON_COMMAND(ID_ROUTE_TEMPLATE, OnRouteTemplate)
ON_COMMAND(ID_ROUTE_ALL, OnRouteAll)
END_MESSAGE_MAP()

CNoteTemplate::CNoteTemplate(UINT id, CRuntimeClass* doc, CRuntimeClass* frame, CRuntimeClass* view)
    : CMultiDocTemplate(id, doc, frame, view) {}

void CNoteTemplate::OnRouteTemplate() {
    g_handled.push_back("template");
}

void CNoteTemplate::OnRouteAll() {
    g_handled.push_back("template");
}

// The application.

BEGIN_MESSAGE_MAP(CNotesApp, CWinApp)
ON_COMMAND(ID_FILE_NEW, OnFileNew)
ON_COMMAND(ID_APP_EXIT, OnAppExit)
ON_COMMAND(ID_ROUTE_APP, OnRouteApp)
ON_COMMAND(ID_ROUTE_ALL, OnRouteAll)
ON_COMMAND(ID_ROUTE_APP_MAIN, OnRouteAppMain)
END_MESSAGE_MAP()

CNotesApp::CNotesApp(const std::filesystem::path& profile) : CWinApp(u"Notes Host") {
    m_pszProfileName = _wcsdup(profile.u16string().c_str());
}

void CNotesApp::OnFileNew() {
    g_handled.push_back("app new");
    POSITION pos = GetFirstDocTemplatePosition();
    if (pos)
        GetNextDocTemplate(pos)->OpenDocumentFile(nullptr);
}

void CNotesApp::OnRouteApp() {
    g_handled.push_back("app");
}

void CNotesApp::OnRouteAll() {
    g_handled.push_back("app");
}

void CNotesApp::OnRouteAppMain() {
    g_handled.push_back("app");
}

void CNotesApp::OnAppExit() {
    if (m_pMainWnd)
        m_pMainWnd->SendMessage(WM_CLOSE);
}

// The fixture.

void NotesHostTest::SetUp() {
    platform::automation::Reset();
    g_handled.clear();
    dir = testing_support::TestOutputDir("docview");
    app = std::make_unique<CNotesApp>(dir / "notes.ini");
    noteTemplate = new CNoteTemplate(IDR_NOTETYPE, RUNTIME_CLASS(CNoteDoc),
                                     RUNTIME_CLASS(CNoteFrame), RUNTIME_CLASS(CNoteView));
    app->AddDocTemplate(noteTemplate);
    main = new CMainFrame;
    ASSERT_TRUE(main->LoadFrame(IDR_MAINFRAME));
    app->m_pMainWnd = main;
    main->MoveWindow(40, 30, 760, 520);
    main->ShowWindow(SW_SHOWNORMAL);
    main->UpdateWindow();
}

void NotesHostTest::TearDown() {
    if (app->m_pMainWnd) {
        app->CloseAllDocuments(TRUE);
        app->m_pMainWnd->DestroyWindow();
    }
    platform::PumpMessages();
    // The main window's end posted WM_QUIT; the next test starts without it.
    MSG msg;
    while (PeekMessage(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) && msg.message == WM_QUIT) {
    }
    app.reset();
    platform::automation::Reset();
    EXPECT_EQ(g_liveDocuments, 0);
    EXPECT_EQ(g_liveViews, 0);
    EXPECT_EQ(g_liveFrames, 0);
}

CNoteDoc* NotesHostTest::OpenNote() {
    return static_cast<CNoteDoc*>(noteTemplate->OpenDocumentFile(nullptr));
}

CFrameWnd* NotesHostTest::FrameOf(CDocument* doc) {
    POSITION pos = doc ? doc->GetFirstViewPosition() : nullptr;
    return pos ? doc->GetNextView(pos)->GetParentFrame() : nullptr;
}

void NotesHostTest::Run() {
    app->Run();
}

std::u16string TextOf(HWND hwnd) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLength(hwnd)), u'\0');
    GetWindowText(hwnd, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

std::u16string TextOf(const CWnd* wnd) {
    return wnd ? TextOf(wnd->m_hWnd) : std::u16string();
}

} // namespace notes
