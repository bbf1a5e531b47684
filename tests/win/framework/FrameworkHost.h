// The framework host: an MDI application whose templates the tests choose,
// with documents that report an identity, and a profile of its own.
#pragma once

#include "resource.h"

#include <Win/Win.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

namespace framework_host {

extern int g_liveDocuments;

class CItemDoc : public CDocWithID {
    DECLARE_DYNCREATE(CItemDoc)

public:
    CItemDoc();
    ~CItemDoc() override;
    const void* GetID() override { return m_id; }

    const void* m_id = nullptr;
};

// A document that cannot report an identity.
class CPlainDoc : public CDocument {
    DECLARE_DYNCREATE(CPlainDoc)

public:
    CPlainDoc();
    ~CPlainDoc() override;
};

class CItemView : public CView {
    DECLARE_DYNCREATE(CItemView)

public:
    void OnInitialUpdate() override;
    void OnDraw(CDC* dc) override;

    int m_initialUpdates = 0;
};

class CHostApp : public CWinApp {
public:
    explicit CHostApp(const std::filesystem::path& profile);
};

class FrameworkHostTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // A new application object on the same profile, with its main frame.
    void StartApplication();
    void StopApplication();
    // Alpha: a CMultiDocTemplatePlus of CItemDoc in CMDIChildWndPlus frames.
    CDocTemplate* AddAlpha();
    // Beta: a plain template of CPlainDoc in plain document frames.
    CDocTemplate* AddBeta();
    CDocTemplate* AddTemplate(UINT id, CRuntimeClass* doc, CRuntimeClass* frame, bool plus);
    CItemDoc* OpenAlpha();
    static CFrameWnd* FrameOf(const CDocument* doc);
    CMDIChildWnd* Active(BOOL* maximized = nullptr) const { return main->MDIGetActive(maximized); }
    // The profile's "LastMdiPlacement", or 77 when it has none.
    UINT StoredPlacement() const;
    void Run() { app->Run(); }

    std::filesystem::path dir, profile;
    std::unique_ptr<CHostApp> app;
    CMDIFrameWnd* main = nullptr;
    CDocTemplate* alpha = nullptr;
};

} // namespace framework_host
