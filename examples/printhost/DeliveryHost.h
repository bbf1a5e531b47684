// The print host's application: an MDI frame whose documents show lists of
// deliveries (500 rows of 6 columns, two of the columns moved by the user),
// printed and previewed through the library's list printing with the
// header line that the printout wizard sets up.
#pragma once

#include "PrintoutSettings.h"

#include <Win/Win.h>

#include <memory>
#include <string>

constexpr int kDeliveryRows = 500;
constexpr int kDeliveryColumns = 6;

class CPrintHostApp : public CWinApp {
public:
    // The profile is the file at this path.
    explicit CPrintHostApp(const std::string& profile);

    // The header line of every printout and preview.
    PrintoutSettings m_printout;

protected:
    void OnFileNew();
    void OnAppExit();

    DECLARE_MESSAGE_MAP()
};

// A list of deliveries: each new document is the next in number.
class CDeliveryDoc : public CDocument {
    DECLARE_DYNCREATE(CDeliveryDoc)

public:
    BOOL OnNewDocument() override;
    int m_number = 0;
};

// The document's deliveries in a report list that fills the view; the
// host's print commands hand the list to the library's list printing.
class CDeliveryView : public CView {
    DECLARE_DYNCREATE(CDeliveryView)

public:
    CListCtrl m_list;

    void OnInitialUpdate() override;
    void OnDraw(CDC*) override {}

protected:
    int OnCreate(LPCREATESTRUCT cs) override;
    void OnSize(UINT type, int cx, int cy) override;
    void OnSetFocus(CWnd*);
    void OnListPrint();
    void OnListPreview();
    void OnListWizard();
    // Opens a printout of the list through the print template: its view
    // prints or previews it, and its frame closes when that is done.
    void PrintList(UINT command);

    DECLARE_MESSAGE_MAP()
};

// The application with its two templates and its main frame shown.
struct PrintHost {
    std::unique_ptr<CPrintHostApp> app;
    CMDIFrameWnd* main = nullptr;

    // False, with a message, when the main frame cannot be made.
    bool Start(const std::string& profile);
    // The printouts open now: each is one job printing or previewing.
    static int OpenPrintouts();
};

// A delivery's cell: each document has rows of its own.
CString DeliveryCell(int document, int row, int column);
