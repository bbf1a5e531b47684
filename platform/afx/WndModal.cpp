// The framework's modal loop, message pre-translation and data exchange.
#include <afxwin.h>

#include "user/ModalLoop.h"

BOOL CWnd::PreTranslateMessage(MSG*) {
    return FALSE;
}

namespace platform::afx {

// Offers the message to each window object from its target up through the
// parents and owners; TRUE when one consumed it.
BOOL WalkPreTranslateTree(MSG* msg) {
    for (HWND hwnd = msg->hwnd; hwnd; hwnd = ::GetParent(hwnd)) {
        CWnd* wnd = CWnd::FromHandlePermanent(hwnd);
        if (wnd && wnd->PreTranslateMessage(msg))
            return TRUE;
    }
    return FALSE;
}

} // namespace platform::afx

DWORD CWnd::ModalLoopFlags() const {
    DWORD flags = MLF_SHOWONIDLE;
    if (GetStyle() & DS_NOIDLEMSG)
        flags |= MLF_NOIDLEMSG;
    return flags;
}

void CWnd::EndModalWindow(HWND owner, bool enableOwner) {
    // The owner is enabled before the window hides, so that the activation
    // the hiding hands on can go to the owner and not be lost.
    if (enableOwner)
        ::EnableWindow(owner, TRUE);
    const bool wasActive = m_hWnd && ::GetActiveWindow() == m_hWnd;
    if (m_hWnd)
        SetWindowPos(nullptr, 0, 0, 0, 0,
                     SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
    if (owner && wasActive && ::IsWindow(owner) && ::GetActiveWindow() != owner)
        ::SetActiveWindow(owner);
    DestroyWindow();
}

int CWnd::RunModalLoop(DWORD flags) {
    HWND hwnd = m_hWnd;
    m_nFlags |= WF_MODALLOOP;
    auto alive = [this, hwnd] {
        return ::IsWindow(hwnd) && CWnd::FromHandlePermanent(hwnd) == this;
    };
    platform::user::ModalLoop loop;
    loop.window = hwnd;
    loop.keepGoing = [this, alive] { return alive() && ContinueModal(); };
    loop.preTranslate = [](MSG& msg) { return platform::afx::WalkPreTranslateTree(&msg) != FALSE; };
    loop.firstIdle = [this, alive, flags] {
        if (!alive())
            return;
        if ((flags & MLF_SHOWONIDLE) && !(GetStyle() & WS_VISIBLE)) {
            ShowWindow(SW_SHOWNORMAL);
            UpdateWindow();
        }
        if (!(flags & MLF_NOIDLEMSG)) {
            HWND owner = ::GetParent(m_hWnd);
            if (owner)
                ::SendMessage(owner, WM_ENTERIDLE, 0, reinterpret_cast<LPARAM>(m_hWnd));
        }
    };
    loop.forceCancel = [this, alive] {
        if (alive())
            EndModalLoop(IDCANCEL);
    };
    bool ended = platform::user::RunModal(loop);
    if (!alive())
        return ended ? m_nModalResult : -1;
    m_nFlags &= ~static_cast<UINT>(WF_MODALLOOP);
    return ended ? m_nModalResult : -1;
}

BOOL CWnd::ContinueModal() {
    return (m_nFlags & WF_CONTINUEMODAL) ? TRUE : FALSE;
}

void CWnd::EndModalLoop(int result) {
    m_nModalResult = result;
    m_nFlags &= ~static_cast<UINT>(WF_CONTINUEMODAL);
}

void CWnd::DoDataExchange(CDataExchange*) {}

namespace platform::afx {
// The window whose control notifications are ignored while its data
// exchange runs, so that setting a control's text does not call handlers.
HWND g_lockoutNotifyWindow = nullptr;
} // namespace platform::afx

BOOL CWnd::UpdateData(BOOL saveAndValidate) {
    CDataExchange dx(this, saveAndValidate);
    HWND oldLockout = platform::afx::g_lockoutNotifyWindow;
    platform::afx::g_lockoutNotifyWindow = m_hWnd;
    BOOL ok = FALSE;
    try {
        DoDataExchange(&dx);
        ok = TRUE;
    } catch (CUserException* e) {
        // The user was told already.
        e->Delete();
    } catch (CException* e) {
        e->ReportError(MB_ICONEXCLAMATION);
        e->Delete();
    }
    platform::afx::g_lockoutNotifyWindow = oldLockout;
    return ok;
}
