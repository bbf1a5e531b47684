// A view: the child window of a frame that shows a document. Included from
// afxwin.h.
#pragma once

#include "afxframe.h"

struct CPrintInfo;
class CPreviewView;

class CView : public CWnd {
    DECLARE_DYNAMIC(CView)

public:
    CDocument* GetDocument() const { return m_pDocument; }

    // Called once, before the frame is first shown; the default is OnUpdate.
    virtual void OnInitialUpdate();
    // The document changed; the default repaints the view.
    virtual void OnUpdate(CView* sender, LPARAM hint, CObject* hintObject);
    // Draws the document; called from the paint handler after OnPrepareDC.
    virtual void OnDraw(CDC* dc) = 0;
    virtual void OnPrepareDC(CDC* dc, CPrintInfo* info = nullptr);
    // The frame made this view active (activate) or another one; an active
    // view of an active frame takes the focus.
    virtual void OnActivateView(BOOL activate, CView* activateView, CView* deactiveView);
    virtual void OnActivateFrame(UINT state, CFrameWnd* frame);
    virtual BOOL IsSelected(const CObject* object) const;

    // Printing and print preview. A print job runs OnPreparePrinting (which
    // derived views answer with DoPreparePrinting), OnBeginPrinting, then for
    // each page OnPrepareDC and OnPrint, and last OnEndPrinting. Preview runs
    // the same steps onto screen pages.
    //
    // The default does nothing and lets the job go on.
    virtual BOOL OnPreparePrinting(CPrintInfo* info);
    // Once the printer DC exists, before the first page.
    virtual void OnBeginPrinting(CDC* dc, CPrintInfo* info);
    // One page into info->m_rectDraw; the default draws the view with OnDraw.
    virtual void OnPrint(CDC* dc, CPrintInfo* info);
    // After the last page (also after a failed or cancelled job).
    virtual void OnEndPrinting(CDC* dc, CPrintInfo* info);
    // Preview is closing: the default ends the printing steps, puts this
    // view back in its frame and destroys the preview.
    virtual void OnEndPrintPreview(CDC* dc, CPrintInfo* info, POINT point, CPreviewView* view);

    // The handlers of ID_FILE_PRINT, ID_FILE_PRINT_DIRECT and
    // ID_FILE_PRINT_PREVIEW; a derived view maps those commands to them.
    void OnFilePrint();
    void OnFilePrintPreview();

    // Commands go to the view's own map, then to its document.
    BOOL OnCmdMsg(UINT id, int code, void* extra, void* handlerInfo) override;
    // A border becomes a sunken client edge; the class has a window-coloured
    // background.
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;

protected:
    CView();

    // Asks the user for a printer and page range with the print dialog, or
    // takes the default printer when info->m_bDirect (or info->m_bPreview);
    // FALSE when the user cancels or there is no printer.
    BOOL DoPreparePrinting(CPrintInfo* info);
    ~CView() override;

    // Joins the creation context's document.
    int OnCreate(LPCREATESTRUCT cs) override;
    void OnDestroy() override;
    void OnPaint() override;
    // A view object goes with its window.
    void PostNcDestroy() override;

    CDocument* m_pDocument = nullptr;
    friend class CDocument;
    friend class CPreviewView;

    DECLARE_MESSAGE_MAP()
};
