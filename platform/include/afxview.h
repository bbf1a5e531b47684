// A view: the child window of a frame that shows a document. Included from
// afxwin.h.
#pragma once

#include "afxframe.h"

struct CPrintInfo;

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

    // Commands go to the view's own map, then to its document.
    BOOL OnCmdMsg(UINT id, int code, void* extra, void* handlerInfo) override;
    // A border becomes a sunken client edge; the class has a window-coloured
    // background.
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;

protected:
    CView();
    ~CView() override;

    // Joins the creation context's document.
    int OnCreate(LPCREATESTRUCT cs) override;
    void OnDestroy() override;
    void OnPaint() override;
    // A view object goes with its window.
    void PostNcDestroy() override;

    CDocument* m_pDocument = nullptr;
    friend class CDocument;

    DECLARE_MESSAGE_MAP()
};
