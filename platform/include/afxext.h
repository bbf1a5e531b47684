// Control bars: windows that a frame lays out along its edges before its view
// gets the rest of the client area. The status bar lies along the bottom;
// dockable bars dock at the edges the frame allows, in rows, or float in a
// small frame window of their own.
#pragma once

#include "afxwin.h"
#include "commctrl.h"

#include <vector>

// Status bar pane styles.
#define SBPS_NORMAL 0x0000
#define SBPS_NOBORDERS SBT_NOBORDERS
#define SBPS_POPOUT SBT_POPOUT
#define SBPS_STRETCH 0x08000000

class CDockBar;
class CDockContext;

class CControlBar : public CWnd {
    DECLARE_DYNAMIC(CControlBar)

public:
    CControlBar();
    // Leaves the frame's list of bars and the row it is docked in.
    ~CControlBar() override;

    // The size the bar asks for: with stretch the whole length of its edge,
    // horz telling whether it lies along the top or bottom edge.
    virtual CSize CalcFixedLayout(BOOL stretch, BOOL horz);
    DWORD GetBarStyle() const { return m_dwStyle; }
    // A change of the CBRS_ bits (docking somewhere else, floating) is
    // told to OnBarStyleChange.
    void SetBarStyle(DWORD style);
    // Lets the bar dock at the edges named by the CBRS_ALIGN_ bits of
    // dockStyle and gives it a dock context; 0 takes docking away again.
    void EnableDocking(DWORD dockStyle);
    // Whether the bar lies in a small frame of its own.
    BOOL IsFloating() const;
    // Whether the bar is shown (its window's own visible bit).
    BOOL IsVisible() const;
    // The frame the bar belongs to, whether docked or floating.
    CFrameWnd* GetDockingFrame() const { return m_pDockSite; }
    virtual BOOL IsDockBar() const { return FALSE; }

    // The object is deleted when its window goes.
    BOOL m_bAutoDelete = FALSE;
    DWORD m_dwStyle = 0;     // CBRS_ bits
    DWORD m_dwDockStyle = 0; // the edges it may dock at
    CFrameWnd* m_pDockSite = nullptr;
    CDockBar* m_pDockBar = nullptr; // the dock bar holding it, or null
    CDockContext* m_pDockContext = nullptr;

protected:
    virtual void OnBarStyleChange(DWORD oldStyle, DWORD newStyle);
    // Creates the bar's window; the CBRS_ bits of style become m_dwStyle and
    // the rest the window's style, with controlStyle (the control's own
    // style bits, which share their places with CBRS_ bits) added.
    BOOL CreateBar(LPCTSTR className, LPCTSTR title, DWORD style, CWnd* parent, UINT id,
                   DWORD controlStyle = 0);
    // WM_SIZEPARENT: a visible bar that lies along an edge of its frame
    // takes its room from that side of the rectangle left and moves there.
    virtual LRESULT OnSizeParent(WPARAM wParam, LPARAM lParam);
    // Joins the list of bars of the frame it is created in.
    int OnCreate(LPCREATESTRUCT cs) override;
    void OnDestroy() override;
    void PostNcDestroy() override;

    DECLARE_MESSAGE_MAP()
};

// The status bar: panes along the bottom of a frame, each with a text. The
// first pane, when it shows no indicator, takes what the others leave and
// has no border; the others are as wide as their indicator's text.
class CStatusBar : public CControlBar {
    DECLARE_DYNAMIC(CStatusBar)

public:
    CStatusBar();
    ~CStatusBar() override;

    // A status bar window in parent; it gets a size grip when parent has a
    // sizing border.
    virtual BOOL Create(CWnd* parent, DWORD style = WS_CHILD | WS_VISIBLE | CBRS_BOTTOM,
                        UINT id = AFX_IDW_STATUS_BAR);
    // One pane per id: ID_SEPARATOR gives an empty pane, any other id a pane
    // showing the string resource of that id (empty when there is none).
    // FALSE for a null array with a count, a count below 0 or above 256, or
    // a bar without a window.
    BOOL SetIndicators(const UINT* ids, int count);
    int GetCount() const { return static_cast<int>(m_panes.size()); }
    // The pane's id, or 0 for an index out of range.
    UINT GetItemID(int index) const;
    // The index of the pane with id, or -1.
    int CommandToIndex(UINT id) const;
    // The pane's rectangle in the bar's client area; empty out of range.
    void GetItemRect(int index, LPRECT rect) const;
    // A pane's id, SBPS_ style and width of its text area. Out of range,
    // Get gives zeros and Set does nothing.
    void GetPaneInfo(int index, UINT& id, UINT& style, int& width) const;
    void SetPaneInfo(int index, UINT id, UINT style, int width);
    // FALSE for an index out of range. update redraws the pane at once.
    BOOL SetPaneText(int index, LPCTSTR text, BOOL update = TRUE);
    // Empty for an index out of range.
    CString GetPaneText(int index) const;
    void GetPaneText(int index, CString& text) const;

    // The width asked for, and the height of the bar's font with the room
    // for the borders above and below the text.
    CSize CalcFixedLayout(BOOL stretch, BOOL horz) override;

protected:
    struct Pane {
        UINT id;
        UINT style;
        int width;
    };
    // Gives the control the panes' right edges for the bar's width.
    void UpdateParts();
    void OnSize(UINT type, int cx, int cy) override;
    LRESULT OnSetFont(WPARAM wParam, LPARAM lParam);

    std::vector<Pane> m_panes;

    DECLARE_MESSAGE_MAP()
};

// What a bar knows of where it docked and floated last, so that it can go
// back there.
class CDockContext {
public:
    explicit CDockContext(CControlBar* bar);
    virtual ~CDockContext() = default;
    CDockContext(const CDockContext&) = delete;
    CDockContext& operator=(const CDockContext&) = delete;

    // A floating bar docks again at the edge and place it last docked at (the
    // first edge it may dock at if it never docked); a docked bar floats
    // where it last floated, or where it lies now if it never floated.
    virtual void ToggleDocking();

    CControlBar* m_pBar;
    CFrameWnd* m_pDockSite;
    // The dock bar it docked in last, and its rectangle there (screen
    // coordinates).
    UINT m_uMRUDockID = 0;
    CRect m_rectMRUDockPos;
    // Where its small frame stood last (screen coordinates), (-1, -1) when
    // it never floated, and the orientation it floated in.
    CPoint m_ptMRUFloatPos{-1, -1};
    DWORD m_dwMRUFloatStyle = CBRS_ALIGN_TOP;
};
