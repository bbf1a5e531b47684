// An MDI document frame that hosts a view only while the view prints or
// shows print preview: it opens maximised, closes itself (and its document)
// when the job ends, and gives the keyboard focus back to the window that
// had it when the frame was created.
#pragma once

#include <afxwin.h>

class CPrintFrame : public CMDIChildWnd {
    DECLARE_DYNCREATE(CPrintFrame)

public:
    CPrintFrame();
    ~CPrintFrame() override;

    // Records the MDI frame's active child; shows and activates nothing (the
    // frame was shown maximised and activated when it was created).
    void ActivateFrame(int nCmdShow = -1) override;
    // Creates the frame visible and maximised in the MDI client of the
    // application's main window, with an empty restored rectangle at the
    // bottom-right corner of the main window's client area; rect is ignored.
    BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                CMDIFrameWnd* pParentWnd, CCreateContext* pContext) override;

    // A print job or preview starts: the child recorded by ActivateFrame
    // becomes the active one.
    void SetPrintStart();
    // The job is over: the frame closes once the posted WM_CLOSE arrives,
    // after its view is hidden and the frame itself activated.
    void SetPrintEnd();

protected:
    // Remembers the window that has the keyboard focus.
    int OnCreate(LPCREATESTRUCT lpcs) override;
    // Closes the frame (and its document), then gives the focus back.
    void OnClose();

    DECLARE_MESSAGE_MAP()

    CMDIChildWnd* m_pActiveChild = nullptr; // not owned
    HWND m_hFocusWnd = nullptr;
    bool m_bPrinting = false;
    bool m_bCreated = false;
};
