// The notes host: an MDI application with a note document type, built from
// the classes and resources a host of the framework brings, and a fixture
// that starts it with its main frame shown.
#pragma once

#include "resource.h"

#include <afxwin.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace notes {

// Which object handled each routed command, in order, and how many of each
// kind of object are alive.
extern std::vector<std::string> g_handled;
extern int g_liveDocuments;
extern int g_liveViews;
extern int g_liveFrames;

class CNoteDoc : public CDocument {
    DECLARE_DYNCREATE(CNoteDoc)

public:
    CNoteDoc();
    ~CNoteDoc() override;
    void Serialize(CArchive& ar) override;
    BOOL OnNewDocument() override;
    void DeleteContents() override;

    CString m_text;
    int m_newDocumentCalls = 0;

protected:
    void OnStamp();
    void OnRouteDoc();
    void OnRouteAll();

    DECLARE_MESSAGE_MAP()
};

class CNoteView : public CView {
    DECLARE_DYNCREATE(CNoteView)

public:
    ~CNoteView() override;
    CNoteDoc* GetDocument() const { return static_cast<CNoteDoc*>(m_pDocument); }
    void OnInitialUpdate() override;
    void OnDraw(CDC* dc) override;

    int m_initialUpdates = 0;

protected:
    CNoteView();
    void OnRouteView();
    void OnRouteAll();
    void OnRouteDisabled();
    void OnUpdateRouteDisabled(CCmdUI* state);

    DECLARE_MESSAGE_MAP()
};

class CNoteFrame : public CMDIChildWnd {
    DECLARE_DYNCREATE(CNoteFrame)

public:
    CNoteFrame();
    ~CNoteFrame() override;

protected:
    void OnRouteChild();
    void OnRouteAll();

    DECLARE_MESSAGE_MAP()
};

class CMainFrame : public CMDIFrameWnd {
public:
    CMainFrame();
    ~CMainFrame() override;

protected:
    void OnRouteMain();
    void OnRouteAll();
    void OnRouteAppMain();

    DECLARE_MESSAGE_MAP()
};

class CNoteTemplate : public CMultiDocTemplate {
public:
    CNoteTemplate(UINT id, CRuntimeClass* doc, CRuntimeClass* frame, CRuntimeClass* view);

protected:
    void OnRouteTemplate();
    void OnRouteAll();

    DECLARE_MESSAGE_MAP()
};

class CNotesApp : public CWinApp {
public:
    // The profile is a file of its own, so no test touches the user's.
    explicit CNotesApp(const std::filesystem::path& profile);

    void OnFileNew();

protected:
    void OnRouteApp();
    void OnRouteAll();
    void OnRouteAppMain();
    void OnAppExit();

    DECLARE_MESSAGE_MAP()
};

// An application with the note template and its main frame shown.
class NotesHostTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    CNoteDoc* OpenNote();
    // The frame of a document's first view.
    static CFrameWnd* FrameOf(CDocument* doc);
    CMDIChildWnd* Active(BOOL* maximized = nullptr) const { return main->MDIGetActive(maximized); }
    // Runs the application's message loop until nothing is left to do.
    void Run();

    std::filesystem::path dir;
    std::unique_ptr<CNotesApp> app;
    CNoteTemplate* noteTemplate = nullptr;
    CMainFrame* main = nullptr;
};

std::u16string TextOf(HWND hwnd);
std::u16string TextOf(const CWnd* wnd);

} // namespace notes
