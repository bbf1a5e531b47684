// Stand-in for the docking toolkit's dockable bar: a bar with a title that
// docks at the edges of its frame or floats in a small frame of its own,
// holds one child window (the host's content) inside its borders, and shows
// a context menu that derived classes fill.
#pragma once

#include "afxext.h"

class SECControlBar : public CControlBar {
    DECLARE_DYNAMIC(SECControlBar)

public:
    SECControlBar();
    ~SECControlBar() override;

    // The bar's window in parent (its frame). title shows in the bar's title
    // strip while docked and in the caption of its small frame while
    // floating; the CBRS_ bits of style name the edge it lies along.
    virtual BOOL Create(LPCTSTR title, CWnd* parent, DWORD style = WS_CHILD | WS_VISIBLE | CBRS_TOP,
                        UINT id = AFX_IDW_CONTROLBAR_FIRST + 0x20);

    // The size asked for: docked along the top or bottom m_szHorz (its width
    // is how far it reaches along its row), along a side m_szVert, floating
    // m_szFloat (the client area of its small frame).
    CSize CalcFixedLayout(BOOL stretch, BOOL horz) override;
    // Hides the bar: a docked bar's row closes up, a floating bar's small
    // frame goes as well. The frame's ShowControlBar shows it again, where
    // it was.
    void Hide();
    // Where the child window lies: inside the border and below the title
    // strip while docked, the whole client area while floating.
    void GetInsideRect(CRect& rect) const;
    // The three sizes, as six 32-bit integers; loading keeps sizes from 0
    // up and lays the frame out again.
    void Serialize(CArchive& ar) override;

    CSize m_szHorz{200, 100};
    CSize m_szVert{180, 200};
    CSize m_szFloat{200, 160};

protected:
    // Fills the bar's context menu, which is empty at first; nothing is
    // shown when it stays empty. The default adds nothing.
    virtual void BuildContextMenu(CMenu& menu);
    // A right click on the bar (or on its child, which passes it on) shows
    // the context menu at the mouse; the command picked comes to the bar.
    void OnContextMenu(CWnd* wnd, CPoint point);
    // A press on the title strip of the docked bar drags it: to another
    // edge or place, or out of the frame to float.
    void OnLButtonDown(UINT flags, CPoint point);
    // A double click on the title strip docks or floats the bar.
    void OnLButtonDblClk(UINT flags, CPoint point);
    // A command the bar has no handler for goes on to its frame, so that a
    // host's items in the bar's menu reach the frame's handlers.
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    void OnPaint() override;
    BOOL OnEraseBkgnd(CDC* dc) override;
    // The child window follows the inside rectangle, which changes with
    // the size and with docking or floating.
    void OnSize(UINT type, int cx, int cy) override;
    void OnBarStyleChange(DWORD oldStyle, DWORD newStyle) override;
    void PlaceChild();

    DECLARE_MESSAGE_MAP()
};
