// CWinThread's message loop: each message is offered to the window objects'
// PreTranslateMessage (accelerators, dialog keys) before it is dispatched.
#include <afxwin.h>

namespace platform::afx {
BOOL WalkPreTranslateTree(MSG* msg);
} // namespace platform::afx

int CWinThread::Run() {
    while (PumpMessage()) {
    }
    return ExitInstance();
}

BOOL CWinThread::PumpMessage() {
    MSG msg;
    if (!::GetMessage(&msg, nullptr, 0, 0))
        return FALSE;
    if (!PreTranslateMessage(&msg)) {
        ::TranslateMessage(&msg);
        ::DispatchMessage(&msg);
    }
    // A paint handler that left its window invalid would come back for ever.
    RECT update;
    if (msg.message == WM_PAINT && ::IsWindow(msg.hwnd) &&
        ::GetUpdateRect(msg.hwnd, &update, FALSE))
        ::ValidateRect(msg.hwnd, nullptr);
    return TRUE;
}

BOOL CWinThread::PreTranslateMessage(MSG* msg) {
    if (platform::afx::WalkPreTranslateTree(msg))
        return TRUE;
    // A message of a window outside the main window's tree (a modeless
    // dialog) still gets the main window's accelerators.
    CWnd* main = GetMainWnd();
    if (!main || !main->m_hWnd || !msg->hwnd)
        return FALSE;
    CWnd* target = CWnd::FromHandle(msg->hwnd);
    CWnd* top = target ? target->GetTopLevelParent() : nullptr;
    return top && top != main && main->PreTranslateMessage(msg);
}
