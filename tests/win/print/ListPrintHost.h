// The list print host: an MDI application with a document frame showing a
// list control, and a template that prints lists through the library's
// document, frame and view. Print jobs write PDF files into the test's
// directory; the clock is pinned, so header lines are known in advance.
#pragma once

#include "resource.h"

#include <Win/Win.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

namespace listprint_host {

class CListApp : public CWinApp {
public:
    explicit CListApp(const std::filesystem::path& profile);
};

// A document frame of the host holding its list control.
class CListFrame : public CMDIChildWnd {
public:
    CListCtrl m_list;

protected:
    int OnCreate(LPCREATESTRUCT cs) override;
    void OnSize(UINT type, int cx, int cy) override;
};

// A print frame whose state a test may read.
class CWatchedPrintFrame : public CPrintFrame {
    DECLARE_DYNCREATE(CWatchedPrintFrame)

public:
    CMDIChildWnd* ActiveChild() const { return m_pActiveChild; }
    HWND FocusWnd() const { return m_hFocusWnd; }
    bool Printing() const { return m_bPrinting; }
    bool Created() const { return m_bCreated; }
};

// A view that only shows its document's title: for frames tested alone.
class CIdleView : public CView {
    DECLARE_DYNCREATE(CIdleView)

public:
    void OnDraw(CDC* dc) override;
};

class ListPrintHostTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Fills the host's list with rows x cols cells "Rr Cc", titled "Title c".
    void FillList(int rows, int cols);
    // Opens doc through tmpl (the list print template when null): its frame
    // is created and the initial update runs; the posted command waits.
    CFrameWnd* Open(CDocument* doc, CDocTemplate* tmpl = nullptr);
    // A template of doc, frame and view classes, added to the application.
    CMultiDocTemplate* AddTemplate(UINT id, CRuntimeClass* doc, CRuntimeClass* frame,
                                   CRuntimeClass* view);
    // Runs the posted messages (the print command, the frame's close).
    static void Pump();
    // The view of a document's first view position, or null.
    static CView* ViewOf(CDocument* doc);
    // How many documents the list print template holds.
    int OpenPrintDocuments() const;

    std::filesystem::path dir;
    std::filesystem::path pdf; // where print jobs go
    std::unique_ptr<CListApp> app;
    CMDIFrameWnd* main = nullptr;
    CListFrame* listFrame = nullptr;
    CMultiDocTemplate* printTemplate = nullptr;
};

} // namespace listprint_host
