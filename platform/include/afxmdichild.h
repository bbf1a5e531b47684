// A document frame inside an MDI frame's client. Included from afxwin.h.
#pragma once

#include "afxmdiframe.h"

class CMDIChildWnd : public CFrameWnd {
    DECLARE_DYNCREATE(CMDIChildWnd)

public:
    CMDIChildWnd();

    // Created through the MDI client of parent (the application's main window
    // when null). With WS_VISIBLE in style it is shown (maximised with
    // WS_MAXIMIZE) and activated.
    virtual BOOL Create(LPCTSTR className, LPCTSTR windowName,
                        DWORD style = WS_CHILD | WS_VISIBLE | WS_OVERLAPPEDWINDOW,
                        const RECT& rect = rectDefault, CMDIFrameWnd* parent = nullptr,
                        CCreateContext* context = nullptr);
    // The title is the first part of string idResource; the menu and
    // accelerators are the document template's.
    BOOL LoadFrame(UINT idResource, DWORD style = WS_OVERLAPPEDWINDOW | FWS_ADDTOTITLE,
                   CWnd* parent = nullptr, CCreateContext* context = nullptr) override;
    // Destroyed through the MDI client, which activates the next document.
    BOOL DestroyWindow() override;
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    // Shown maximised when the active one is, and activated.
    void ActivateFrame(int cmdShow = -1) override;
    // Its accelerators are translated for the MDI frame.
    BOOL PreTranslateMessage(MSG* msg) override;
    void OnUpdateFrameTitle(BOOL addToTitle) override;

    CMDIFrameWnd* GetMDIFrame() const;
    void MDIDestroy();
    void MDIActivate();
    void MDIMaximize();
    void MDIRestore();

    // The menu bar and accelerators while this document is active.
    HMENU m_hMenuShared = nullptr;

protected:
    int OnCreate(LPCREATESTRUCT cs) override;
    void OnSize(UINT type, int cx, int cy) override;
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    // The MDI client changed the active document.
    void OnMDIActivate(BOOL activate, CWnd* activated, CWnd* deactivated);
    // Shows this document's menu on the frame while it is active, the frame's
    // own when the last document goes.
    virtual void OnUpdateFrameMenu(BOOL activate, CWnd* activated, HMENU menuAlt);

    DECLARE_MESSAGE_MAP()
};
