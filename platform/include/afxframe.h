// Frame windows: a top-level (or MDI document) window with a menu,
// accelerators and a view, through which commands are routed. Included from
// afxwin.h.
#pragma once

#include "afxmenu.h"
#include "afxres.h"
#include "afxwnd.h"

#include <vector>

// Frame styles: the title shows the active document's name, before the
// frame's own with FWS_PREFIXTITLE.
#define FWS_ADDTOTITLE 0x00008000L
#define FWS_PREFIXTITLE 0x00004000L
#define FWS_SNAPTOBARS 0x00002000L

// The framework's own messages: a frame asks its children for room
// (AFX_SIZEPARENTPARAMS in lParam), and a view's first update.
#define WM_SIZEPARENT 0x0361
#define WM_INITIALUPDATE 0x0364

// A view as a frame creates it: a child with a border (a sunken edge).
#define AFX_WS_DEFAULT_VIEW (WS_CHILD | WS_VISIBLE | WS_BORDER)

class CControlBar;
class CDocument;
class CDocTemplate;
class CView;

// What a new frame is made for: the document, the view class to create in
// it and the template that makes them.
struct CCreateContext {
    CRuntimeClass* m_pNewViewClass = nullptr;
    CDocument* m_pCurrentDoc = nullptr;
    CDocTemplate* m_pNewDocTemplate = nullptr;
    CView* m_pLastView = nullptr;
    CFrameWnd* m_pCurrentFrame = nullptr;
};

// WM_SIZEPARENT: a control bar takes its room from rect and moves itself.
struct AFX_SIZEPARENTPARAMS {
    HANDLE hDWP;
    RECT rect;
    SIZE sizeTotal;
    BOOL bStretch;
};

class CFrameWnd : public CWnd {
    DECLARE_DYNCREATE(CFrameWnd)

public:
    // A top-level frame at the system's default place and size.
    static const CRect rectDefault;

    CFrameWnd();
    ~CFrameWnd() override;

    // The menu named menuName is found through the module chain; a missing
    // one fails the creation.
    virtual BOOL Create(LPCTSTR className, LPCTSTR windowName, DWORD style = WS_OVERLAPPEDWINDOW,
                        const RECT& rect = rectDefault, CWnd* parent = nullptr,
                        LPCTSTR menuName = nullptr, DWORD exStyle = 0,
                        CCreateContext* context = nullptr);
    // The title is the first '\n'-separated part of string idResource, the
    // menu and accelerators are resource idResource. Without a context the
    // views get their initial update at once.
    virtual BOOL LoadFrame(UINT idResource, DWORD style = WS_OVERLAPPEDWINDOW | FWS_ADDTOTITLE,
                           CWnd* parent = nullptr, CCreateContext* context = nullptr);

    CView* GetActiveView() const { return m_pViewActive; }
    // notify tells the old view it lost the activation and the new one it has it.
    virtual void SetActiveView(CView* view, BOOL notify = TRUE);
    // The active view's document.
    virtual CDocument* GetActiveDocument();
    // The frame whose view is active: this one, or an MDI frame's active child.
    virtual CFrameWnd* GetActiveFrame();
    // Shows and raises the frame; -1 shows it normally unless it is shown already.
    virtual void ActivateFrame(int cmdShow = -1);
    // Makes the first pane the active view and, when makeVisible, sends the
    // views their initial update and shows the frame.
    void InitialUpdateFrame(CDocument* doc, BOOL makeVisible);
    // Lays out the control bars and gives the rest to the pane.
    virtual void RecalcLayout(BOOL notify = TRUE);

    // Makes dock bars along the edges named by the CBRS_ALIGN_ bits; they
    // take their room in the order top, bottom, left, right, after the bars
    // created before them (such as the status bar).
    void EnableDocking(DWORD dockStyle);
    // Docks bar in the dock bar with that id, or, for 0, at the first edge
    // the bar may dock at (top, bottom, left, right). rect (screen
    // coordinates) picks the row and the place in it; without one the bar
    // starts a row of its own. A bar that may not dock there, or a frame
    // without that dock bar, leaves the bar where it is.
    void DockControlBar(CControlBar* bar, UINT dockBarId = 0, LPCRECT rect = nullptr);
    // Floats bar in a small frame with a caption whose top-left corner is
    // point (screen coordinates); style's CBRS_ALIGN_ bits give the shape it
    // floats in (a top or bottom one lies wide). A bar without docking
    // enabled is left where it is.
    void FloatControlBar(CControlBar* bar, CPoint point, DWORD style = CBRS_ALIGN_TOP);
    // Shows or hides bar (a floating one with its small frame) and lays the
    // frame out again; the layout is done at once, whatever delay says.
    void ShowControlBar(CControlBar* bar, BOOL show, BOOL delay);
    // The frame's bar with this window id, or null.
    CControlBar* GetControlBar(UINT id);
    // Bars join the list of their frame when they are created.
    void AddControlBar(CControlBar* bar);
    void RemoveControlBar(CControlBar* bar);
    std::vector<CControlBar*> m_listControlBars;
    // The caption: the frame's title with the active document's name.
    virtual void OnUpdateFrameTitle(BOOL addToTitle);
    void UpdateFrameTitleForDocument(LPCTSTR docName);
    // Creates the context's view class as a child with this id.
    CWnd* CreateView(CCreateContext* context, UINT id = AFX_IDW_PANE_FIRST);
    // The accelerators translated for this frame's keys.
    virtual HACCEL GetDefaultAccelerator();
    BOOL LoadAccelTable(LPCTSTR name);
    void SetTitle(LPCTSTR title) { m_strTitle = title; }
    CString GetTitle() const { return m_strTitle; }

    // Commands go to the active view (and so its document and template), then
    // the frame's own map, then the application.
    BOOL OnCmdMsg(UINT id, int code, void* extra, void* handlerInfo) override;
    // Translates the frame's accelerators.
    BOOL PreTranslateMessage(MSG* msg) override;
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;

    HMENU m_hMenuDefault = nullptr;
    HACCEL m_hAccelTable = nullptr;
    // The frame's number among its document's frames (":2"), or -1.
    int m_nWindow = -1;
    UINT m_nIDHelp = 0;
    // Menu items without a handler are disabled when their menu opens.
    BOOL m_bAutoMenuEnable = TRUE;
    CString m_strTitle;

protected:
    virtual BOOL OnCreateClient(LPCREATESTRUCT cs, CCreateContext* context);
    int OnCreateHelper(LPCREATESTRUCT cs, CCreateContext* context);
    int OnCreate(LPCREATESTRUCT cs) override;
    void OnSize(UINT type, int cx, int cy) override;
    void OnDestroy() override;
    // A frame object goes with its window; the main window's end quits.
    void PostNcDestroy() override;
    // Asks the active document whether it may close (its last frame saves
    // first), then closes the document with its last frame or destroys this
    // frame; the main window closes every document first.
    void OnClose();
    void OnSetFocus(CWnd* oldWnd);
    // Updates the pop-up's items through the command routing.
    void OnInitMenuPopup(CMenu* popup, UINT index, BOOL sysMenu);
    // The frame's floating bars show its activation in their captions.
    LRESULT OnNcActivate(WPARAM wParam, LPARAM lParam);
    void BringToTop(int cmdShow);

    CView* m_pViewActive = nullptr;

    DECLARE_MESSAGE_MAP()
};
