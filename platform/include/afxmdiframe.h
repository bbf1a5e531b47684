// The MDI frame: a frame whose client area is an MDI client holding the
// document frames. Included from afxwin.h.
#pragma once

#include "afxframe.h"

class CMDIChildWnd;

class CMDIFrameWnd : public CFrameWnd {
    DECLARE_DYNCREATE(CMDIFrameWnd)

public:
    CMDIFrameWnd();

    // The default menu (shown while no document is active) is the frame's own.
    BOOL LoadFrame(UINT idResource, DWORD style = WS_OVERLAPPEDWINDOW | FWS_ADDTOTITLE,
                   CWnd* parent = nullptr, CCreateContext* context = nullptr) override;
    // Creates the MDI client, which lists the documents in windowMenu.
    virtual BOOL CreateClient(LPCREATESTRUCT cs, CMenu* windowMenu);
    // The Window pop-up of a menu bar: the one holding the Window commands.
    virtual HMENU GetWindowMenuPopup(HMENU menuBar);

    // The active document frame, or null; maximized tells whether it is maximised.
    CMDIChildWnd* MDIGetActive(BOOL* maximized = nullptr) const;
    void MDIActivate(CWnd* wnd);
    void MDIMaximize(CWnd* wnd);
    void MDIRestore(CWnd* wnd);
    void MDINext();
    // Shows frameMenu as the menu bar (and windowMenu as the Window pop-up);
    // the menu shown before comes back.
    CMenu* MDISetMenu(CMenu* frameMenu, CMenu* windowMenu);

    CFrameWnd* GetActiveFrame() override;
    // The active document frame's routing first, then the frame's own.
    BOOL OnCmdMsg(UINT id, int code, void* extra, void* handlerInfo) override;
    // The active document frame translates first, then the frame's accelerators.
    BOOL PreTranslateMessage(MSG* msg) override;
    void OnUpdateFrameTitle(BOOL addToTitle) override;

    HWND m_hWndMDIClient = nullptr;

protected:
    BOOL OnCreateClient(LPCREATESTRUCT cs, CCreateContext* context) override;
    // A command is offered to the active document frame before this frame.
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnDestroy() override;
};
