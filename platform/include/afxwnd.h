// The class framework's window class and the device contexts tied to a window.
// Included from afxwin.h.
#pragma once

#include "afxwin.h"

// A window object attached to a window handle. Messages reach WindowProc, which
// hands the ones the framework knows to the virtual On... handlers and the rest
// to DefWindowProc.
class CWnd;
LRESULT AfxCallWndProc(CWnd* wnd, HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

class CWnd : public CObject {
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

    // A null class name uses the framework's own window class, whose background
    // is not erased. rect is in the parent's client coordinates.
    virtual BOOL Create(LPCTSTR className, LPCTSTR windowName, DWORD style, const RECT& rect,
                        CWnd* parent, UINT id);
    virtual BOOL CreateEx(DWORD exStyle, LPCTSTR className, LPCTSTR windowName, DWORD style,
                          const RECT& rect, CWnd* parent, UINT id);
    virtual BOOL DestroyWindow();

    CWnd* GetParent() const;
    int GetDlgCtrlID() const;
    void GetClientRect(LPRECT rect) const;
    void GetWindowRect(LPRECT rect) const;
    void ClientToScreen(LPPOINT point) const;
    void ScreenToClient(LPPOINT point) const;
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
    void MoveWindow(LPCRECT rect, BOOL repaint = TRUE);
    BOOL ShowWindow(int command);
    BOOL IsWindowVisible() const;
    void SetWindowText(LPCTSTR text);
    void GetWindowText(CString& text) const;

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

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    // Hands a message for hwnd to wnd's WindowProc.
    friend LRESULT AfxCallWndProc(CWnd* wnd, HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

protected:
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // Called after the window is destroyed, with the handle already gone.
    virtual void PostNcDestroy() {}

    virtual int OnCreate(LPCREATESTRUCT create);
    virtual void OnDestroy();
    virtual void OnSize(UINT type, int cx, int cy);
    // The default validates the update region without drawing.
    virtual void OnPaint();
    virtual BOOL OnEraseBkgnd(CDC* dc);

private:
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;
};

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
