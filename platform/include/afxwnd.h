// The class framework's window class and the device contexts tied to a window.
// Included from afxwin.h.
#pragma once

#include "afxmsg_.h"
#include "afxwin.h"

// An object that receives commands: its message map names the handlers of
// the commands and messages it takes; OnCmdMsg looks a command up there.
class CCmdTarget : public CObject {
    DECLARE_DYNAMIC(CCmdTarget)

public:
    // Calls the handler of command nID with notification code nCode (CN_COMMAND
    // for menu commands, CN_UPDATE_COMMAND_UI with a CCmdUI* in extra) and
    // returns TRUE, or returns FALSE when the map has none. With handlerInfo
    // set, only reports whether a handler exists.
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* extra, void* handlerInfo);

    // The wait cursor, through the application's DoWaitCursor (a count kept
    // by the platform when there is no application object): Begin shows it,
    // End takes one level away, Restore shows it again after something
    // changed the cursor while it should still show.
    void BeginWaitCursor();
    void EndWaitCursor();
    void RestoreWaitCursor();

protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;
};

// The entry for message, code and id in map or its bases; null when none.
const AFX_MSGMAP_ENTRY* AfxFindMessageEntry(const AFX_MSGMAP* map, UINT message, UINT code,
                                            UINT id);

// The state of a command's user interface (a menu item or a button) while
// its update handler runs.
class CMenu;
class CWnd;
class CCmdUI {
public:
    UINT m_nID = 0;
    UINT m_nIndex = 0;
    // The menu whose item is being updated (its m_nIndex-th), and the pop-up
    // that item opens; the window (a button) instead, when it is not a menu.
    CMenu* m_pMenu = nullptr;
    CMenu* m_pSubMenu = nullptr;
    CWnd* m_pOther = nullptr;
    UINT m_nIndexMax = 0;
    BOOL m_bEnabled = TRUE;
    BOOL m_bEnableChanged = FALSE;
    int m_nCheck = 0;
    BOOL m_bContinueRouting = FALSE;

    virtual ~CCmdUI() = default;
    virtual void Enable(BOOL on = TRUE);
    virtual void SetCheck(int check = 1);
    virtual void SetText(LPCTSTR text);
    void ContinueRouting() { m_bContinueRouting = TRUE; }
    // Asks target's update handler; a command without one is disabled when
    // disableIfNoHandler is set and it has no command handler either.
    BOOL DoUpdate(CCmdTarget* target, BOOL disableIfNoHandler);
};

// A window object attached to a window handle. Messages reach WindowProc, which
// hands the ones the framework knows to the virtual On... handlers and the rest
// to DefWindowProc.
LRESULT AfxCallWndProc(CWnd* wnd, HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
class CFrameWnd;
struct CCreateContext;

class CWnd : public CCmdTarget {
    DECLARE_DYNAMIC(CWnd)

public:
    HWND m_hWnd = nullptr;

    CWnd() = default;
    // Destroys the window if it still exists.
    ~CWnd() override;

    HWND GetSafeHwnd() const { return m_hWnd; }
    operator HWND() const { return m_hWnd; }
    // The window object attached to hwnd, or a temporary one the framework keeps
    // until the window is destroyed. Null for a null or dead handle.
    static CWnd* FromHandle(HWND hwnd);
    // The window object attached to hwnd by Create or Attach, else null.
    static CWnd* FromHandlePermanent(HWND hwnd);
    BOOL Attach(HWND hwnd);
    HWND Detach();
    // Routes an existing window's messages through this object; what the
    // object does not handle goes on to the window's own procedure.
    BOOL SubclassWindow(HWND hwnd);
    BOOL SubclassDlgItem(UINT id, CWnd* parent);
    HWND UnsubclassWindow();

    // A null class name uses the framework's own window class, whose background
    // is not erased. rect is in the parent's client coordinates. Any other
    // class routes its messages through the object as well. PreCreateWindow
    // may change the parameters first; when it refuses, or the window never
    // reached the object, PostNcDestroy runs and FALSE comes back. context
    // (a frame's creation context) and param reach WM_CREATE as
    // lpCreateParams.
    virtual BOOL Create(LPCTSTR className, LPCTSTR windowName, DWORD style, const RECT& rect,
                        CWnd* parent, UINT id, CCreateContext* context = nullptr);
    virtual BOOL CreateEx(DWORD exStyle, LPCTSTR className, LPCTSTR windowName, DWORD style,
                          const RECT& rect, CWnd* parent, UINT id, LPVOID param = nullptr);
    virtual BOOL CreateEx(DWORD exStyle, LPCTSTR className, LPCTSTR windowName, DWORD style, int x,
                          int y, int cx, int cy, HWND parent, HMENU idOrMenu,
                          LPVOID param = nullptr);
    virtual BOOL PreCreateWindow(CREATESTRUCT& cs);
    virtual BOOL DestroyWindow();

    CWnd* GetParent() const;
    CWnd* GetOwner() const;
    CWnd* GetTopLevelParent() const;
    // The nearest ancestor that is a frame window, or null.
    CFrameWnd* GetParentFrame() const;
    // The descendant with this id, searched among the children first, then
    // deeper; with onlyPermanent, only one that has a window object.
    CWnd* GetDescendantWindow(int id, BOOL onlyPermanent = FALSE) const;
    CWnd* GetDlgItem(int id) const;
    int GetDlgCtrlID() const;
    void SetDlgItemText(int id, LPCTSTR text);
    int GetDlgItemText(int id, CString& text) const;
    CWnd* GetWindow(UINT command) const;
    DWORD GetStyle() const;
    DWORD GetExStyle() const;
    BOOL ModifyStyle(DWORD remove, DWORD add, UINT flags = 0);
    void GetClientRect(LPRECT rect) const;
    void GetWindowRect(LPRECT rect) const;
    void ClientToScreen(LPPOINT point) const;
    void ClientToScreen(LPRECT rect) const;
    void ScreenToClient(LPPOINT point) const;
    void ScreenToClient(LPRECT rect) const;
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
    void MoveWindow(LPCRECT rect, BOOL repaint = TRUE);
    BOOL SetWindowPos(const CWnd* insertAfter, int x, int y, int cx, int cy, UINT flags);
    // The top of the z-order, as SetWindowPos's insertAfter.
    static const CWnd wndTop;
    void CenterWindow(CWnd* alternateOwner = nullptr);
    BOOL ShowWindow(int command);
    BOOL IsIconic() const;
    BOOL IsZoomed() const;
    BOOL GetWindowPlacement(WINDOWPLACEMENT* placement) const;
    BOOL SetWindowPlacement(const WINDOWPLACEMENT* placement);
    // The menu bar of a top-level window.
    CMenu* GetMenu() const;
    BOOL SetMenu(CMenu* menu);
    void DrawMenuBar();
    BOOL IsWindowVisible() const;
    BOOL EnableWindow(BOOL enable = TRUE);
    BOOL IsWindowEnabled() const;
    CWnd* SetFocus();
    static CWnd* GetFocus();
    CWnd* SetActiveWindow();
    static CWnd* GetActiveWindow();
    static CWnd* GetForegroundWindow();
    BOOL SetForegroundWindow();
    void BringWindowToTop();
    void SetWindowText(LPCTSTR text);
    void GetWindowText(CString& text) const;
    int GetWindowTextLength() const;
    void SetFont(CFont* font, BOOL redraw = TRUE);
    CFont* GetFont() const;

    void Invalidate(BOOL erase = TRUE);
    void InvalidateRect(LPCRECT rect, BOOL erase = TRUE);
    void ValidateRect(LPCRECT rect);
    BOOL GetUpdateRect(LPRECT rect, BOOL erase = FALSE);
    void UpdateWindow();

    // The client area's device context; give it back with ReleaseDC.
    CDC* GetDC();
    int ReleaseDC(CDC* dc);
    CDC* BeginPaint(LPPAINTSTRUCT paint);
    void EndPaint(LPPAINTSTRUCT paint);

    // Opens the clipboard on behalf of this window.
    BOOL OpenClipboard();

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    void SendMessageToDescendants(UINT message, WPARAM wParam = 0, LPARAM lParam = 0,
                                  BOOL deep = TRUE, BOOL onlyPermanent = FALSE);

    // Data exchange between the window's controls and the object's members:
    // saveAndValidate TRUE reads the controls. FALSE when a validation failed.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);
    // Sends the controls the initialisation data (DLGINIT) stored under the
    // dialog resource's name, such as combo box list items. TRUE when there
    // is none; FALSE when a control refused an item.
    BOOL ExecuteDlgInit(LPCTSTR resourceName);

    // Runs messages until EndModalLoop; returns its result. A loop that runs
    // out of messages asks the platform's idle handler (the simulated user)
    // for more; when it has none the loop cancels as the user would.
    virtual int RunModalLoop(DWORD flags = 0);
    virtual BOOL ContinueModal();
    virtual void EndModalLoop(int result);
    // The end of a modal window: hidden, its owner enabled again (when it was
    // disabled for it) and active again, then destroyed.
    void EndModalWindow(HWND owner, bool enableOwner);
    // The loop flags for a modal window: shown once idle, and without idle
    // messages when its style asks for none.
    DWORD ModalLoopFlags() const;

    // Called for each message before it is dispatched, from the target window
    // up to the window running the loop; TRUE consumes the message.
    virtual BOOL PreTranslateMessage(MSG* msg);
    // Hands a message for hwnd to wnd's WindowProc.
    friend LRESULT AfxCallWndProc(CWnd* wnd, HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

    // The message the innermost window procedure is handling, or null outside
    // one; a command handler reads its id from it.
    static const MSG* GetCurrentMessage();

    // The framework's window state flags.
    UINT m_nFlags = 0;
    int m_nModalResult = 0;

protected:
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // Looks the message up in the message map; TRUE with the result when a
    // handler took it.
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    // The messages WindowProc hands to virtual handlers of the class itself
    // (creation, size, painting, destruction), and DefWindowProc for the rest.
    LRESULT HandleBuiltIn(UINT message, WPARAM wParam, LPARAM lParam);
    // WM_COMMAND: a control's notification is first reflected to the control;
    // a menu command is dropped when its update handler disables it.
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    // A notification this control sent to its parent, reflected back to it.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    BOOL ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    static BOOL ReflectLastMsg(HWND child, UINT message, WPARAM wParam, LPARAM lParam,
                               LRESULT* result = nullptr);
    // The default processing of the message being handled.
    LRESULT Default();
    virtual void DoDataExchange(class CDataExchange* dx);
    virtual void PreSubclassWindow() {}
    // Called after the window is destroyed, with the handle already gone.
    virtual void PostNcDestroy() {}

    virtual int OnCreate(LPCREATESTRUCT create);
    virtual void OnDestroy();
    virtual void OnSize(UINT type, int cx, int cy);
    // The default validates the update region without drawing.
    virtual void OnPaint();
    virtual BOOL OnEraseBkgnd(CDC* dc);
    void OnClose();
    void OnSetFocus(CWnd* oldWnd);
    void OnKillFocus(CWnd* newWnd);
    void OnTimer(UINT_PTR id);
    void OnShowWindow(BOOL show, UINT status);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnRButtonDown(UINT flags, CPoint point);
    void OnRButtonUp(UINT flags, CPoint point);
    void OnRButtonDblClk(UINT flags, CPoint point);
    // The default passes the wheel on to the parent.
    BOOL OnMouseWheel(UINT flags, short delta, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    void OnKeyDown(UINT ch, UINT repeat, UINT flags);
    void OnKeyUp(UINT ch, UINT repeat, UINT flags);
    void OnChar(UINT ch, UINT repeat, UINT flags);
    UINT OnGetDlgCode();

    static const AFX_MSGMAP* GetThisMessageMap();
    const AFX_MSGMAP* GetMessageMap() const override;

    // The procedure the window had before the object subclassed it.
    WNDPROC m_pfnSuper = nullptr;

private:
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;
};

// m_nFlags bits.
#define WF_CONTINUEMODAL 0x0001
#define WF_MODALLOOP 0x0002

// The device context of a paint handler: BeginPaint on construction, EndPaint
// on destruction.
class CPaintDC : public CDC {
public:
    explicit CPaintDC(CWnd* wnd);
    ~CPaintDC() override;

    PAINTSTRUCT m_ps;

protected:
    HWND m_hWnd;
};

// The device context of a window's client area: GetDC on construction,
// ReleaseDC on destruction.
class CClientDC : public CDC {
public:
    explicit CClientDC(CWnd* wnd);
    ~CClientDC() override;

protected:
    HWND m_hWnd;
};

// The device context of a whole window, frame and caption included, with
// (0, 0) at the window's top-left corner: GetWindowDC on construction,
// ReleaseDC on destruction. A null window gives the screen's.
class CWindowDC : public CDC {
public:
    explicit CWindowDC(CWnd* wnd);
    ~CWindowDC() override;

protected:
    HWND m_hWnd;
};
