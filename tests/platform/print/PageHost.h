// A host with one frame and a view of a three-page document that prints and
// previews through the framework, writing down each printing step it is
// given; and a fixture that starts it with the frame as the main window.
#pragma once

#include <afxpriv.h>
#include <afxwin.h>
#include <platform/GdiObjects.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace pages {

class CPageDoc : public CDocument {
    DECLARE_DYNCREATE(CPageDoc)
};

class CPageView : public CView {
    DECLARE_DYNCREATE(CPageView)

public:
    // Each step as it came: "prepare", "begin", "dc 2", "print 2", "end",
    // "end preview".
    std::vector<std::string> steps;
    // For each printed page: its number, m_rectDraw, whether the main
    // window was enabled and whether the DC said it was printing.
    struct Page {
        UINT number;
        CRect rectDraw;
        bool mainEnabled;
        bool dcPrinting;
        bool preview;
    };
    std::vector<Page> printed;
    UINT pageCount = 3;
    // Whether OnPreparePrinting asks for the printer (DoPreparePrinting),
    // and whether it refuses the job instead.
    bool askForPrinter = true;
    bool refuse = false;
    // What OnEndPrintPreview was given.
    CPreviewView* endedPreview = nullptr;
    CPrintInfo* endedInfo = nullptr;
    bool endedWithDC = false;
    UINT endedOnPage = 0;

    void OnDraw(CDC* dc) override;
    BOOL OnPreparePrinting(CPrintInfo* info) override;
    void OnBeginPrinting(CDC* dc, CPrintInfo* info) override;
    void OnPrepareDC(CDC* dc, CPrintInfo* info) override;
    void OnPrint(CDC* dc, CPrintInfo* info) override;
    void OnEndPrinting(CDC* dc, CPrintInfo* info) override;
    void OnEndPrintPreview(CDC* dc, CPrintInfo* info, POINT point, CPreviewView* view) override;

protected:
    CPageView() = default;

    DECLARE_MESSAGE_MAP()
};

// The frame shown as the application's main window, with the page view as
// its pane; the default printer is the PDF printer writing into the test's
// directory.
class PageHostTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Sends a command to the frame, as its menu would.
    void Command(UINT id);
    // The preview that is the frame's active view, or null.
    CPreviewView* Preview() const;
    // The frame's pane: the view, or the preview in its place.
    HWND Pane() const;

    std::filesystem::path dir;
    std::unique_ptr<CWinApp> app;
    CFrameWnd* frame = nullptr;
    CPageView* view = nullptr;
    platform::GdiCounts gdiAtStart;
    int blocksAtStart = 0;
};

// pdfinfo's page count of a PDF file, or -1.
int PdfPages(const std::filesystem::path& pdf);
// The text pdftotext finds in a PDF file.
std::string PdfText(const std::filesystem::path& pdf);
std::u16string Utf16(const std::string& text);

} // namespace pages
