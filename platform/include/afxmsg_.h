// Message maps: each class that handles messages lists them in a table of
// entries; a message is looked up in the object's own table, then in its
// base classes' tables. An entry holds a small function that casts the
// target to the class that declared the entry and calls its handler with the
// message's parameters unpacked. Included from afxwin.h.
#pragma once

#include "windef.h"

class CCmdTarget;
class CCmdUI;

typedef LRESULT (*AFX_PMSG_THUNK)(CCmdTarget* target, WPARAM wParam, LPARAM lParam);

struct AFX_MSGMAP_ENTRY {
    UINT nMessage;      // the window message, WM_COMMAND or WM_NOTIFY
    UINT nCode;         // notification code, 0 for window messages and commands
    UINT nID;           // first control or command id
    UINT nLastID;       // last id of a range
    AFX_PMSG_THUNK pfn; // null ends the table
};

struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)(); // null for the root
    const AFX_MSGMAP_ENTRY* lpEntries;
};

// Reflected messages come back to the control that sent them with this base
// added to the message number.
#define WM_REFLECT_BASE 0xBC00

// Command codes the framework routes besides control notifications.
#define CN_COMMAND 0
#define CN_UPDATE_COMMAND_UI ((UINT)(-1))

#define DECLARE_MESSAGE_MAP()                                                                      \
protected:                                                                                         \
    static const AFX_MSGMAP* GetThisMessageMap();                                                  \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                     \
    const AFX_MSGMAP* theClass::GetMessageMap() const {                                            \
        return GetThisMessageMap();                                                                \
    }                                                                                              \
    const AFX_MSGMAP* theClass::GetThisMessageMap() {                                              \
        /* A map may have no entries. */                                                           \
        using ThisClass [[maybe_unused]] = theClass;                                               \
        typedef baseClass TheBaseClass;                                                            \
        static const AFX_MSGMAP_ENTRY _messageEntries[] = {

#define END_MESSAGE_MAP()                                                                          \
    { 0, 0, 0, 0, nullptr }                                                                        \
    }                                                                                              \
    ;                                                                                              \
    static const AFX_MSGMAP messageMap = {&TheBaseClass::GetThisMessageMap, &_messageEntries[0]};  \
    return &messageMap;                                                                            \
    }

// The thunk of an entry: t is the target, w and l the message parameters.
#define AFX_THUNK(body)                                                                            \
    [](CCmdTarget* t, WPARAM w, LPARAM l) -> LRESULT {                                             \
        (void)w;                                                                                   \
        (void)l;                                                                                   \
        ThisClass* self = static_cast<ThisClass*>(t);                                              \
        (void)self;                                                                                \
        body                                                                                       \
    }

// Commands and control notifications: void handler().
#define ON_COMMAND(id, memberFxn)                                                                  \
    { WM_COMMAND, CN_COMMAND, (UINT)(id), (UINT)(id), AFX_THUNK(self->memberFxn(); return 0;) }    \
    ,
#define ON_COMMAND_RANGE(id, idLast, memberFxn)                                                    \
    {                                                                                              \
        WM_COMMAND, CN_COMMAND, (UINT)(id), (UINT)(idLast),                                        \
            AFX_THUNK(self->memberFxn(static_cast<UINT>(w)); return 0;)                            \
    }                                                                                              \
    ,
#define ON_CONTROL(code, id, memberFxn)                                                            \
    { WM_COMMAND, (UINT)(code), (UINT)(id), (UINT)(id), AFX_THUNK(self->memberFxn(); return 0;) }  \
    ,
// void handler(CCmdUI*): asked before a menu command runs and when a menu
// opens; a handler that disables the command drops it.
#define ON_UPDATE_COMMAND_UI(id, memberFxn)                                                        \
    {                                                                                              \
        WM_COMMAND, CN_UPDATE_COMMAND_UI, (UINT)(id), (UINT)(id),                                  \
            AFX_THUNK(self->memberFxn(reinterpret_cast<CCmdUI*>(l)); return 0;)                    \
    }                                                                                              \
    ,

#define ON_BN_CLICKED(id, memberFxn) ON_CONTROL(BN_CLICKED, id, memberFxn)
#define ON_BN_DOUBLECLICKED(id, memberFxn) ON_CONTROL(BN_DOUBLECLICKED, id, memberFxn)
#define ON_BN_SETFOCUS(id, memberFxn) ON_CONTROL(BN_SETFOCUS, id, memberFxn)
#define ON_BN_KILLFOCUS(id, memberFxn) ON_CONTROL(BN_KILLFOCUS, id, memberFxn)
#define ON_EN_CHANGE(id, memberFxn) ON_CONTROL(EN_CHANGE, id, memberFxn)
#define ON_EN_UPDATE(id, memberFxn) ON_CONTROL(EN_UPDATE, id, memberFxn)
#define ON_EN_SETFOCUS(id, memberFxn) ON_CONTROL(EN_SETFOCUS, id, memberFxn)
#define ON_EN_KILLFOCUS(id, memberFxn) ON_CONTROL(EN_KILLFOCUS, id, memberFxn)
#define ON_CBN_SELCHANGE(id, memberFxn) ON_CONTROL(CBN_SELCHANGE, id, memberFxn)
#define ON_CBN_EDITCHANGE(id, memberFxn) ON_CONTROL(CBN_EDITCHANGE, id, memberFxn)
#define ON_CBN_EDITUPDATE(id, memberFxn) ON_CONTROL(CBN_EDITUPDATE, id, memberFxn)
#define ON_CBN_DROPDOWN(id, memberFxn) ON_CONTROL(CBN_DROPDOWN, id, memberFxn)
#define ON_CBN_CLOSEUP(id, memberFxn) ON_CONTROL(CBN_CLOSEUP, id, memberFxn)
#define ON_CBN_SELENDOK(id, memberFxn) ON_CONTROL(CBN_SELENDOK, id, memberFxn)

// A notification the control handles itself: void handler(). The parent
// does not see it.
#define ON_CONTROL_REFLECT(code, memberFxn)                                                        \
    {                                                                                              \
        WM_REFLECT_BASE + WM_COMMAND, (UINT)(code), 0, 0,                                          \
            AFX_THUNK(self->memberFxn(); return TRUE;)                                             \
    }                                                                                              \
    ,
// BOOL handler(): FALSE lets the parent see the notification as well.
#define ON_CONTROL_REFLECT_EX(code, memberFxn)                                                     \
    { WM_REFLECT_BASE + WM_COMMAND, (UINT)(code), 0, 0, AFX_THUNK(return self->memberFxn();) }     \
    ,

// WM_NOTIFY: void handler(NMHDR*, LRESULT*).
#define ON_NOTIFY(code, id, memberFxn)                                                             \
    {                                                                                              \
        WM_NOTIFY, (UINT)(code), (UINT)(id), (UINT)(id),                                           \
            AFX_THUNK(self->memberFxn(reinterpret_cast<NMHDR*>(l), reinterpret_cast<LRESULT*>(w)); \
                      return 0;)                                                                   \
    }                                                                                              \
    ,
#define ON_NOTIFY_REFLECT(code, memberFxn)                                                         \
    {                                                                                              \
        WM_REFLECT_BASE + WM_NOTIFY, (UINT)(code), 0, 0,                                           \
            AFX_THUNK(self->memberFxn(reinterpret_cast<NMHDR*>(l), reinterpret_cast<LRESULT*>(w)); \
                      return TRUE;)                                                                \
    }                                                                                              \
    ,

// Any message: LRESULT handler(WPARAM, LPARAM).
#define ON_MESSAGE(message, memberFxn)                                                             \
    { (UINT)(message), 0, 0, 0, AFX_THUNK(return self->memberFxn(w, l);) }                         \
    ,

// Window messages with their parameters unpacked.
#define ON_WM_CREATE()                                                                             \
    { WM_CREATE, 0, 0, 0, AFX_THUNK(return self->OnCreate(reinterpret_cast<LPCREATESTRUCT>(l));) } \
    ,
#define ON_WM_DESTROY()                                                                            \
    { WM_DESTROY, 0, 0, 0, AFX_THUNK(self->OnDestroy(); return 0;) }                               \
    ,
#define ON_WM_CLOSE()                                                                              \
    { WM_CLOSE, 0, 0, 0, AFX_THUNK(self->OnClose(); return 0;) }                                   \
    ,
#define ON_WM_PAINT()                                                                              \
    { WM_PAINT, 0, 0, 0, AFX_THUNK(self->OnPaint(); return 0;) }                                   \
    ,
#define ON_WM_SIZE()                                                                               \
    {                                                                                              \
        WM_SIZE, 0, 0, 0,                                                                          \
            AFX_THUNK(self->OnSize(static_cast<UINT>(w), (short)LOWORD(l), (short)HIWORD(l));      \
                      return 0;)                                                                   \
    }                                                                                              \
    ,
#define ON_WM_ERASEBKGND()                                                                         \
    {                                                                                              \
        WM_ERASEBKGND, 0, 0, 0,                                                                    \
            AFX_THUNK(return self->OnEraseBkgnd(CDC::FromHandle(reinterpret_cast<HDC>(w)));)       \
    }                                                                                              \
    ,
#define ON_WM_SETFOCUS()                                                                           \
    {                                                                                              \
        WM_SETFOCUS, 0, 0, 0,                                                                      \
            AFX_THUNK(self->OnSetFocus(CWnd::FromHandle(reinterpret_cast<HWND>(w))); return 0;)    \
    }                                                                                              \
    ,
#define ON_WM_KILLFOCUS()                                                                          \
    {                                                                                              \
        WM_KILLFOCUS, 0, 0, 0,                                                                     \
            AFX_THUNK(self->OnKillFocus(CWnd::FromHandle(reinterpret_cast<HWND>(w))); return 0;)   \
    }                                                                                              \
    ,
#define ON_WM_TIMER()                                                                              \
    { WM_TIMER, 0, 0, 0, AFX_THUNK(self->OnTimer(static_cast<UINT_PTR>(w)); return 0;) }           \
    ,
#define AFX_MOUSE_ENTRY(message, memberFxn)                                                        \
    {                                                                                              \
        message, 0, 0, 0,                                                                          \
            AFX_THUNK(                                                                             \
                self->memberFxn(static_cast<UINT>(w), CPoint((short)LOWORD(l), (short)HIWORD(l))); \
                return 0;)                                                                         \
    }                                                                                              \
    ,
#define ON_WM_LBUTTONDOWN() AFX_MOUSE_ENTRY(WM_LBUTTONDOWN, OnLButtonDown)
#define ON_WM_LBUTTONUP() AFX_MOUSE_ENTRY(WM_LBUTTONUP, OnLButtonUp)
#define ON_WM_LBUTTONDBLCLK() AFX_MOUSE_ENTRY(WM_LBUTTONDBLCLK, OnLButtonDblClk)
#define ON_WM_RBUTTONDOWN() AFX_MOUSE_ENTRY(WM_RBUTTONDOWN, OnRButtonDown)
#define ON_WM_RBUTTONUP() AFX_MOUSE_ENTRY(WM_RBUTTONUP, OnRButtonUp)
#define ON_WM_RBUTTONDBLCLK() AFX_MOUSE_ENTRY(WM_RBUTTONDBLCLK, OnRButtonDblClk)
// BOOL handler(UINT keys, short delta, CPoint screenPoint): the wheel turned
// by delta (WHEEL_DELTA a notch, positive away from the user); true when the
// window scrolled.
#define ON_WM_MOUSEWHEEL()                                                                         \
    {                                                                                              \
        WM_MOUSEWHEEL, 0, 0, 0,                                                                    \
            AFX_THUNK(return self->OnMouseWheel(GET_KEYSTATE_WPARAM(w), GET_WHEEL_DELTA_WPARAM(w), \
                                                CPoint((short)LOWORD(l), (short)HIWORD(l)));)      \
    }                                                                                              \
    ,
#define ON_WM_MOUSEMOVE() AFX_MOUSE_ENTRY(WM_MOUSEMOVE, OnMouseMove)
#define AFX_KEY_ENTRY(message, memberFxn)                                                          \
    {                                                                                              \
        message, 0, 0, 0,                                                                          \
            AFX_THUNK(self->memberFxn(static_cast<UINT>(w), LOWORD(l), HIWORD(l)); return 0;)      \
    }                                                                                              \
    ,
#define ON_WM_KEYDOWN() AFX_KEY_ENTRY(WM_KEYDOWN, OnKeyDown)
#define ON_WM_KEYUP() AFX_KEY_ENTRY(WM_KEYUP, OnKeyUp)
#define ON_WM_CHAR() AFX_KEY_ENTRY(WM_CHAR, OnChar)
#define ON_WM_SHOWWINDOW()                                                                         \
    {                                                                                              \
        WM_SHOWWINDOW, 0, 0, 0,                                                                    \
            AFX_THUNK(self->OnShowWindow(static_cast<BOOL>(w), static_cast<UINT>(l)); return 0;)   \
    }                                                                                              \
    ,
#define ON_WM_GETDLGCODE()                                                                         \
    { WM_GETDLGCODE, 0, 0, 0, AFX_THUNK(return self->OnGetDlgCode();) }                            \
    ,

// A message whose handler takes nothing: void handler().
#define ON_MESSAGE_VOID(message, memberFxn)                                                        \
    { (UINT)(message), 0, 0, 0, AFX_THUNK(self->memberFxn(); return 0;) }                          \
    ,
// void handler(CMenu* popup, UINT index, BOOL sysMenu)
#define ON_WM_INITMENUPOPUP()                                                                      \
    {                                                                                              \
        WM_INITMENUPOPUP, 0, 0, 0,                                                                 \
            AFX_THUNK(self->OnInitMenuPopup(CMenu::FromHandle(reinterpret_cast<HMENU>(w)),         \
                                            LOWORD(l), HIWORD(l));                                 \
                      return 0;)                                                                   \
    }                                                                                              \
    ,
// void handler(CWnd* window, CPoint screenPoint): the window the user asked
// for a shortcut menu in, and where.
#define ON_WM_CONTEXTMENU()                                                                        \
    {                                                                                              \
        WM_CONTEXTMENU, 0, 0, 0,                                                                   \
            AFX_THUNK(self->OnContextMenu(CWnd::FromHandle(reinterpret_cast<HWND>(w)),             \
                                          CPoint((short)LOWORD(l), (short)HIWORD(l)));             \
                      return 0;)                                                                   \
    }                                                                                              \
    ,
// void handler(BOOL activate, CWnd* activated, CWnd* deactivated), for a
// document window of an MDI frame.
#define ON_WM_MDIACTIVATE()                                                                        \
    {                                                                                              \
        WM_MDIACTIVATE, 0, 0, 0,                                                                   \
            AFX_THUNK(self->OnMDIActivate(reinterpret_cast<HWND>(l) == self->m_hWnd,               \
                                          CWnd::FromHandle(reinterpret_cast<HWND>(l)),             \
                                          CWnd::FromHandle(reinterpret_cast<HWND>(w)));            \
                      return 0;)                                                                   \
    }                                                                                              \
    ,
