// The framework's dock bars, internal to the platform: one along each edge a
// frame allows docking at, holding its docked bars in rows, and one filling
// the small frame of each floating bar.
#pragma once

#include <afxext.h>

#include <vector>

// The edges a frame docks bars at, in the order its layout gives them their
// room and a bar that may dock anywhere tries them.
struct DockEdge {
    DWORD align; // CBRS_ALIGN_ bit
    UINT id;     // the id of the dock bar along it
};
inline constexpr DockEdge kDockEdges[] = {{CBRS_ALIGN_TOP, AFX_IDW_DOCKBAR_TOP},
                                          {CBRS_ALIGN_BOTTOM, AFX_IDW_DOCKBAR_BOTTOM},
                                          {CBRS_ALIGN_LEFT, AFX_IDW_DOCKBAR_LEFT},
                                          {CBRS_ALIGN_RIGHT, AFX_IDW_DOCKBAR_RIGHT}};

class CDockBar : public CControlBar {
    DECLARE_DYNAMIC(CDockBar)

public:
    explicit CDockBar(BOOL floating = FALSE);
    ~CDockBar() override;

    BOOL Create(CWnd* parent, DWORD style, UINT id);
    BOOL IsDockBar() const override { return TRUE; }
    // Whether the bars lie along a top or bottom edge (a floating dock bar
    // follows the shape its bar floats in).
    BOOL IsHorizontal() const;

    // Takes bar into a row: the row and place that rect (screen coordinates)
    // points at, or a new last row. The bar becomes a child of this window.
    void DockControlBar(CControlBar* bar, LPCRECT rect = nullptr);
    // Lets go of bar; false when it is not here.
    bool RemoveControlBar(CControlBar* bar);
    bool HasBars() const;
    int GetDockedVisibleCount() const;
    // The first bar held, or null (a floating dock bar holds one).
    CControlBar* FirstBar() const;

    // Across its edge: the rows' thickness together; along it: all of it.
    CSize CalcFixedLayout(BOOL stretch, BOOL horz) override;
    // Places the bars in their rows inside the client area.
    void LayOutBars();

    BOOL m_bFloating;
    // The shape a floating dock bar's bar floats in (CBRS_ALIGN_ bits).
    DWORD m_dwFloatStyle = CBRS_ALIGN_TOP;
    // The bars, row by row; a row lies along the edge.
    std::vector<std::vector<CControlBar*>> m_rows;

protected:
    LRESULT OnSizeParent(WPARAM wParam, LPARAM lParam) override;
    void OnSize(UINT type, int cx, int cy) override;

    DECLARE_MESSAGE_MAP()
};

// The styles of the small frame a floating bar lies in.
inline constexpr DWORD kMiniFrameStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;
inline constexpr DWORD kMiniFrameExStyle = WS_EX_TOOLWINDOW;

// The small frame a floating bar lies in: a caption with the bar's title and
// a close box, and the floating dock bar filling the rest. Closing it hides
// the bar; it is destroyed with its frame.
class CMiniDockFrameWnd : public CFrameWnd {
    DECLARE_DYNAMIC(CMiniDockFrameWnd)

public:
    CMiniDockFrameWnd();
    ~CMiniDockFrameWnd() override;

    // The object is created with new and deletes itself with its window, or
    // at once when Create fails.
    BOOL Create(CFrameWnd* dockSite, DWORD floatStyle);
    // Sizes the frame so its client area fits the bar floating in it.
    void FitToBar();
    // The frame's own layout: the dock bar fills the client area.
    void RecalcLayout(BOOL notify = TRUE) override;

    CDockBar* m_pDockBar = nullptr;
    CFrameWnd* m_pDockSite = nullptr;

    // The caption looks active while its frame (or the small frame itself)
    // is the active window, whatever the activation message says.
    LRESULT OnNcActivate(WPARAM wParam, LPARAM lParam);
    // A press on the caption drags the bar: over an edge of its frame it
    // docks there, elsewhere the small frame moves.
    LRESULT OnNcLButtonDown(WPARAM hit, LPARAM lParam);

protected:
    void OnClose();
    void PostNcDestroy() override;

    DECLARE_MESSAGE_MAP()
};
