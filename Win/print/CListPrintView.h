// The view of list printing: a grid view holding a copy of the document's
// list control (its columns in the order the user arranged them), printed
// or previewed with a header line above the grid on every page. On its
// initial update it posts the document's command to itself; at the end of
// the job it tells its print frame to close.
#pragma once

#include "CListPrintDoc.h"

#include <GridView.h>

class CPrintFrame;

class CListPrintView : public CGXGridView {
    DECLARE_DYNCREATE(CListPrintView)

public:
    ~CListPrintView() override;

    // The view's document; null when it is not a CListPrintDoc.
    CListPrintDoc* GetDocument();

    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    // Copies the list into the grid, sizes the columns, sets the margins and
    // posts the document's command.
    void OnInitialUpdate() override;
    void OnDraw(CDC* pDC) override;
    BOOL OnPreparePrinting(CPrintInfo* pInfo) override;
    // Notes the main window's enable state and the foreground window, which
    // the framework's printing disables, so that the end can restore them.
    void OnBeginPrinting(CDC* pDC, CPrintInfo* pInfo) override;
    // The header line (when the document names a system), then the grid's page.
    void OnPrint(CDC* pDC, CPrintInfo* pInfo) override;
    void OnEndPrinting(CDC* pDC, CPrintInfo* pInfo) override;
    void OnEndPrintPreview(CDC* pDC, CPrintInfo* pInfo, POINT point, CPreviewView* pView) override;

    // The text of the header line for the current time now: empty when the
    // document names no system.
    static CString HeaderText(CListPrintDoc& doc, const CString& now);
    // A fitted column width made 15% wider, cut to whole units.
    static int WidenedWidth(int fittedWidth);

    // The host's strings between the parts of the header line: after the
    // time, after the system name, and between the two dates.
    static constexpr UINT IDS_HEADER_AFTER_TIME = 619;
    static constexpr UINT IDS_HEADER_FROM = 1811;
    static constexpr UINT IDS_HEADER_TO = 1812;

protected:
    CListPrintView();

    // ID_FILE_PRINT and ID_FILE_PRINT_DIRECT: the framework's print command
    // between the print frame's start and end.
    void OnFilePrint();
    // ID_FILE_PRINT_PREVIEW: the framework's preview, its end arriving in
    // OnEndPrintPreview.
    void OnFilePrintPreview();

    DECLARE_MESSAGE_MAP()

private:
    // Copies the list's titles and cells into the grid.
    void CopyList(CListCtrl& list);
    // The parent as a print frame; null when it is another kind of window.
    CPrintFrame* PrintFrame();

    int m_bMainWndEnabled = 0;
    HWND m_hForegroundWnd = nullptr;
};
