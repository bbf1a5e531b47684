// An MDI document frame that remembers whether the last one closed was
// maximised, opens maximised again when it is the first one, and closes on
// the host's close-window command.
#pragma once

#include <afxwin.h>

class CMDIChildWndPlus : public CMDIChildWnd {
    DECLARE_DYNCREATE(CMDIChildWndPlus)

public:
    CMDIChildWndPlus();
    ~CMDIChildWndPlus() override;

    // When no other document frame is active, a "LastMdiPlacement" of 3
    // (SW_SHOWMAXIMIZED) in section "SYSTEM" makes this one open maximised.
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;

    // The host's close-window command.
    static constexpr UINT ID_WINDOW_CLOSE = 32785;

protected:
    // Posts WM_CLOSE to the frame.
    void OnWindowClose();
    // Writes the frame's show state to "LastMdiPlacement", then closes.
    void OnClose();

    DECLARE_MESSAGE_MAP()
};
