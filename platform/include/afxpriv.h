// Print preview: the view that takes a view's place in its frame and shows
// the pages that view prints, on screen.
#pragma once

#include "afxwin.h"

#include <vector>

// While it shows, the preview is its frame's pane and active view; the view
// it previews is hidden (with the id AFX_IDW_PANE_SAVE). A tool bar along its
// top carries the commands AFX_ID_PREVIEW_PRINT, _NEXT, _PREV, _NUMPAGE
// (one or two pages), _ZOOMIN, _ZOOMOUT and _CLOSE; below it the pages are
// drawn on a grey ground, each with an outline and a shadow, by the previewed
// view's own printing steps (OnPrepareDC and OnPrint on a DC that has the
// printer's page size and resolution, scaled to the screen). Close, or
// Escape, ends the preview through the view's OnEndPrintPreview.
class CPreviewView : public CView {
    DECLARE_DYNCREATE(CPreviewView)

public:
    enum ZoomState { ZOOM_OUT = 0, ZOOM_MIDDLE = 1, ZOOM_IN = 2 };

    CPreviewView();

    // Starts previewing printView: its OnPreparePrinting (with m_bPreview
    // set; the default printer, no dialog) and OnBeginPrinting. FALSE when
    // the view refuses or there is no printer.
    BOOL SetPrintView(CView* printView);

    // Shows page (limited to the pages that exist) first.
    void SetCurrentPage(UINT page, BOOL clearRatios);
    UINT GetCurrentPage() const { return m_nCurrentPage; }
    // How many pages show side by side: 1 or 2.
    UINT GetPagesShown() const { return m_nPages; }
    int GetZoomState() const { return m_nZoomState; }
    CView* GetPrintView() const { return m_pPrintView; }
    CPrintInfo* GetPrintInfo() const { return m_pPreviewInfo; }
    CDC* GetPreviewDC() const { return m_pPreviewDC; }
    // Where a shown page lies in the client area (index 0 is the first shown);
    // an empty rectangle for no such page.
    CRect GetPageRect(UINT index) const;
    // The picture of a shown page as it is drawn, or null.
    HBITMAP GetPageBitmap(UINT index);

    // The tool bar's commands.
    void OnPreviewClose();
    void OnPreviewPrint();
    void OnNextPage();
    void OnPrevPage();
    void OnNumPageChange();
    void OnZoomIn();
    void OnZoomOut();

    void OnDraw(CDC* dc) override;

protected:
    ~CPreviewView() override;

    int OnCreate(LPCREATESTRUCT cs) override;
    void OnSize(UINT type, int cx, int cy) override;
    BOOL OnEraseBkgnd(CDC* dc) override;
    void OnKeyDown(UINT ch, UINT repeat, UINT flags);
    void OnLButtonDown(UINT flags, CPoint point);
    BOOL PreTranslateMessage(MSG* msg) override;

private:
    struct PageImage {
        UINT page = 0;
        CRect rect;
        HBITMAP bitmap = nullptr;
    };

    void CreateToolBar();
    void UpdateToolBar();
    // The area below the tool bar, where the pages go.
    CRect PageArea() const;
    // Places the shown pages for the zoom state and the scroll position.
    void LayOut();
    // Draws page into a new bitmap of size through the print view's steps;
    // false when the page does not exist (its OnPrepareDC ended the job).
    bool RenderPage(UINT page, CSize size, HBITMAP* bitmap);
    void ForgetPages();
    void Zoom(int state, CPoint anchor);
    void ScrollBy(int dx, int dy);
    // The last page there is: the view's maximum, or the last one found.
    UINT LastPage() const;

    CView* m_pPrintView = nullptr;
    CView* m_pOrigView = nullptr;
    CPrintInfo* m_pPreviewInfo = nullptr;
    CDC* m_pPreviewDC = nullptr;
    BOOL m_bBegun = FALSE; // OnBeginPrinting ran
    UINT m_nCurrentPage = 1;
    UINT m_nPages = 1;
    UINT m_nPagesChosen = 1; // what One/Two Page chose, kept while zoomed
    UINT m_nLastFound = 0xFFFF;
    int m_nZoomState = ZOOM_OUT;
    CPoint m_scroll;
    CSize m_pageSize; // one page's size in pixels at the zoom
    std::vector<PageImage> m_shown;

    friend class CView;

    DECLARE_MESSAGE_MAP()
};
