// How a CWnd handles a message: the message map first, then the virtual
// handlers the framework calls directly, then the default processing.
// Commands and notifications from controls are reflected to the control
// before the parent's map sees them.
#include "WndProc.h"

#include <afxwin.h>

#include <vector>

namespace platform::afx {
extern HWND g_lockoutNotifyWindow;
} // namespace platform::afx

namespace {

// The messages being handled, innermost first: each call of a window's
// procedure links a node on its own stack frame, so Default() can pass the
// current message on. Initial-exec: the library is loaded with the program,
// and the general model would call into the loader for every message.
struct CurrentMessage;
[[gnu::tls_model("initial-exec")]] thread_local CurrentMessage* t_currentMessage = nullptr;

struct CurrentMessage {
    CurrentMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
        : msg{hwnd, message, wParam, lParam, 0, POINT{0, 0}}, outer(t_currentMessage) {
        t_currentMessage = this;
    }
    ~CurrentMessage() { t_currentMessage = outer; }
    CurrentMessage(const CurrentMessage&) = delete;
    CurrentMessage& operator=(const CurrentMessage&) = delete;

    MSG msg;
    CurrentMessage* outer;
};

} // namespace

const AFX_MSGMAP* CWnd::GetThisMessageMap() {
    static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, nullptr}};
    static const AFX_MSGMAP map = {&CCmdTarget::GetThisMessageMap, &entries[0]};
    return &map;
}

const AFX_MSGMAP* CWnd::GetMessageMap() const {
    return GetThisMessageMap();
}

LRESULT AfxCallWndProc(CWnd* wnd, HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    CurrentMessage current(hwnd, message, wParam, lParam);
    return wnd->WindowProc(message, wParam, lParam);
}

// Beside the routing below, so that the common path (the object found last,
// the handler cached, the default procedure) compiles into one function.
LRESULT platform::afx::FrameworkWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    CWnd* wnd =
        hwnd && hwnd == g_lastPermanent ? g_lastPermanentWnd : CWnd::FromHandlePermanent(hwnd);
    if (!wnd)
        return ::DefWindowProc(hwnd, message, wParam, lParam);
    return AfxCallWndProc(wnd, hwnd, message, wParam, lParam);
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (message != WM_NCDESTROY && OnWndMsg(message, wParam, lParam, &result))
        return result;
    // A control's own messages go straight on to its procedure.
    if (message < WM_USER)
        return HandleBuiltIn(message, wParam, lParam);
    return DefWindowProc(message, wParam, lParam);
}

// Out of line, so the common path above stays small.
[[gnu::noinline]] LRESULT CWnd::HandleBuiltIn(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        return OnCreate(reinterpret_cast<LPCREATESTRUCT>(lParam));
    case WM_DESTROY:
        OnDestroy();
        return 0;
    case WM_SIZE:
        OnSize(static_cast<UINT>(wParam), static_cast<short>(LOWORD(lParam)),
               static_cast<short>(HIWORD(lParam)));
        return 0;
    case WM_PAINT:
        OnPaint();
        return 0;
    case WM_ERASEBKGND:
        return OnEraseBkgnd(CDC::FromHandle(reinterpret_cast<HDC>(wParam)));
    case WM_NCDESTROY: {
        LRESULT result = DefWindowProc(message, wParam, lParam);
        m_pfnSuper = nullptr;
        Detach();
        PostNcDestroy();
        return result;
    }
    default:
        return DefWindowProc(message, wParam, lParam);
    }
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (m_pfnSuper)
        return m_pfnSuper(m_hWnd, message, wParam, lParam);
    return ::DefWindowProc(m_hWnd, message, wParam, lParam);
}

const MSG* CWnd::GetCurrentMessage() {
    return t_currentMessage ? &t_currentMessage->msg : nullptr;
}

LRESULT CWnd::Default() {
    if (!t_currentMessage)
        return 0;
    const MSG& msg = t_currentMessage->msg;
    return DefWindowProc(msg.message, msg.wParam, msg.lParam);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message == WM_COMMAND) {
        if (!OnCommand(wParam, lParam))
            return FALSE;
        *result = 1;
        return TRUE;
    }
    if (message == WM_NOTIFY) {
        auto* header = reinterpret_cast<NMHDR*>(lParam);
        LRESULT answer = 0;
        if (!header || !header->hwndFrom || !OnNotify(wParam, lParam, &answer))
            return FALSE;
        *result = answer;
        return TRUE;
    }
    const AFX_MSGMAP_ENTRY* entry = platform::afx::FindWindowMessageEntry(GetMessageMap(), message);
    if (!entry) {
        // An owner-drawn control's painting goes back to the control's own
        // object when the parent has no handler of its own.
        if (message == WM_DRAWITEM && lParam) {
            auto* item = reinterpret_cast<LPDRAWITEMSTRUCT>(lParam);
            if (item->CtlType != ODT_MENU &&
                ReflectLastMsg(item->hwndItem, message, wParam, lParam)) {
                *result = TRUE;
                return TRUE;
            }
        }
        return FALSE;
    }
    *result = entry->pfn(this, wParam, lParam);
    return TRUE;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
    UINT id = LOWORD(wParam);
    auto control = reinterpret_cast<HWND>(lParam);
    int code = HIWORD(wParam);
    if (!control) {
        // A menu command or an accelerator: its update handler may disable it.
        CCmdUI state;
        state.m_nID = id;
        OnCmdMsg(id, static_cast<int>(CN_UPDATE_COMMAND_UI), &state, nullptr);
        if (!state.m_bEnabled)
            return TRUE;
        code = CN_COMMAND;
    } else {
        if (ReflectLastMsg(control, WM_COMMAND, wParam, lParam))
            return TRUE;
        // Notifications caused by this window's own data exchange are not
        // the user's doing.
        if (platform::afx::g_lockoutNotifyWindow == m_hWnd)
            return TRUE;
    }
    return OnCmdMsg(id, code, nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM, LPARAM lParam, LRESULT* result) {
    auto* header = reinterpret_cast<NMHDR*>(lParam);
    if (ReflectLastMsg(header->hwndFrom, WM_NOTIFY, 0, lParam, result))
        return TRUE;
    UINT id = static_cast<UINT>(::GetDlgCtrlID(header->hwndFrom));
    const AFX_MSGMAP_ENTRY* entry =
        AfxFindMessageEntry(GetMessageMap(), WM_NOTIFY, header->code, id);
    if (!entry)
        return FALSE;
    entry->pfn(this, reinterpret_cast<WPARAM>(result), lParam);
    return TRUE;
}

BOOL CWnd::ReflectLastMsg(HWND child, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    CWnd* wnd = CWnd::FromHandlePermanent(child);
    LRESULT ignored = 0;
    return wnd && wnd->OnChildNotify(message, wParam, lParam, result ? result : &ignored);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    return ReflectChildNotify(message, wParam, lParam, result);
}

BOOL CWnd::ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    UINT code = 0;
    WPARAM thunkWParam = wParam;
    if (message == WM_COMMAND) {
        code = HIWORD(wParam);
    } else if (message == WM_NOTIFY) {
        code = reinterpret_cast<NMHDR*>(lParam)->code;
        thunkWParam = reinterpret_cast<WPARAM>(result);
    } else {
        return FALSE;
    }
    const AFX_MSGMAP_ENTRY* entry =
        AfxFindMessageEntry(GetMessageMap(), WM_REFLECT_BASE + message, code, 0);
    return entry && entry->pfn(this, thunkWParam, lParam) ? TRUE : FALSE;
}

int CWnd::OnCreate(LPCREATESTRUCT) {
    return static_cast<int>(Default());
}

void CWnd::OnDestroy() {
    Default();
}

void CWnd::OnSize(UINT, int, int) {
    Default();
}

void CWnd::OnPaint() {
    Default();
}

BOOL CWnd::OnEraseBkgnd(CDC*) {
    return static_cast<BOOL>(Default());
}

void CWnd::OnClose() {
    Default();
}

void CWnd::OnSetFocus(CWnd*) {
    Default();
}

void CWnd::OnKillFocus(CWnd*) {
    Default();
}

void CWnd::OnTimer(UINT_PTR) {
    Default();
}

void CWnd::OnShowWindow(BOOL, UINT) {
    Default();
}

void CWnd::OnLButtonDown(UINT, CPoint) {
    Default();
}

void CWnd::OnLButtonUp(UINT, CPoint) {
    Default();
}

void CWnd::OnLButtonDblClk(UINT, CPoint) {
    Default();
}

void CWnd::OnRButtonDown(UINT, CPoint) {
    Default();
}

void CWnd::OnRButtonUp(UINT, CPoint) {
    Default();
}

void CWnd::OnRButtonDblClk(UINT, CPoint) {
    Default();
}

BOOL CWnd::OnMouseWheel(UINT, short, CPoint) {
    return static_cast<BOOL>(Default());
}

void CWnd::OnMouseMove(UINT, CPoint) {
    Default();
}

void CWnd::OnKeyDown(UINT, UINT, UINT) {
    Default();
}

void CWnd::OnKeyUp(UINT, UINT, UINT) {
    Default();
}

void CWnd::OnChar(UINT, UINT, UINT) {
    Default();
}

UINT CWnd::OnGetDlgCode() {
    return static_cast<UINT>(Default());
}
