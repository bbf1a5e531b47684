// The in-process desktop: registered window classes, the window tree with its
// handles, update regions and the thread's message queue. Internal to the
// platform; the public interface is winwindows.h.
#pragma once

#include <winuser.h>

#include <algorithm>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace platform::user {

struct WindowClass {
    std::u16string name;
    WNDCLASS wc{};
};

struct Window {
    HWND handle = nullptr;
    Window* parent = nullptr;
    // The z-order, topmost first: child windows in creation order (which is
    // also the dialog's tab order), top-level windows with the newest on top.
    std::vector<Window*> children;
    // A top-level window's owner (a dialog's or message box's parent window).
    Window* owner = nullptr;
    const WindowClass* windowClass = nullptr;
    WNDPROC proc = nullptr;
    DWORD style = 0;
    DWORD exStyle = 0;
    UINT id = 0;
    // The window rectangle in the parent's client coordinates (the desktop's
    // for top-level windows), and the widths of the non-client area on each
    // side: the client area is rect less frame.
    RECT rect{};
    RECT frame{};
    // Whether the caption shows the active look.
    bool ncActive = false;
    std::u16string text;
    LONG_PTR userData = 0;
    // A dialog's slots: DWLP_MSGRESULT, DWLP_DLGPROC, DWLP_USER.
    LONG_PTR dialogSlots[3] = {0, 0, 0};
    bool visible = false;
    bool destroying = false;
    // The update region, kept as its bounding box, and whether it asks for
    // erasing.
    bool hasUpdate = false;
    RECT update{};
    bool erase = false;
    // Whether the frame needs drawing again: BeginPaint then sends WM_NCPAINT.
    bool ncDirty = false;
    // The show state, the rectangle a restored window goes back to (in the
    // parent's client coordinates), and the positions of its minimised and
    // maximised forms as its placement reports them.
    enum class Placement : unsigned char { Normal, Minimized, Maximized };
    Placement placement = Placement::Normal;
    RECT normalRect{};
    POINT minPosition{-1, -1};
    POINT maxPosition{-1, -1};
    // The minimised position was given (WPF_SETMINPOSITION) and is kept.
    bool minPositionSet = false;
    // A minimised window that was maximised goes back to maximised.
    bool restoreMaximized = false;
    // A top-level window's menu bar.
    HMENU menu = nullptr;

    int Width() const { return rect.right - rect.left; }
    int Height() const { return rect.bottom - rect.top; }
    int ClientWidth() const { return std::max(0, Width() - frame.left - frame.right); }
    int ClientHeight() const { return std::max(0, Height() - frame.top - frame.bottom); }
    bool HasFrame() const { return frame.left || frame.top || frame.right || frame.bottom; }
};

class WindowManager {
public:
    static WindowManager& Instance();

    // Class names compare without regard to case (A to Z only).
    const WindowClass* FindClass(const std::u16string& name) const;
    bool AddClass(const WNDCLASS& wc);
    bool RemoveClass(const std::u16string& name);

    // The window with this handle, or null. The one found last is kept at
    // hand, so a run of messages to one window skips the hash.
    Window* Find(HWND hwnd) const {
        if (hwnd && hwnd == m_lastFound)
            return m_lastFoundWindow;
        return FindAndRemember(hwnd);
    }
    Window* CreateWindowRecord(const WindowClass* windowClass, Window* parent);
    void Forget(Window* window);
    Window* Desktop() { return &m_desktop; }
    // Gives the desktop (the screen) a new size, its surface with it, and has
    // every window drawn again.
    void ResizeDesktop(int width, int height);
    // Top-level windows in z-order, topmost first.
    const std::vector<Window*>& TopLevel() const { return m_desktop.children; }

    // True when the window and all its ancestors are visible.
    bool IsShown(const Window* window) const;
    // True when the window and all its ancestors are enabled.
    bool IsEnabled(const Window* window) const;
    // The top-level window a window belongs to (itself for a top-level one).
    Window* TopLevel(Window* window) const;
    // The client origin and the window's top-left corner in desktop
    // coordinates.
    POINT ClientOrigin(const Window* window) const;
    POINT WindowOrigin(const Window* window) const;
    // The client rectangle (or, with whole, the window rectangle) in desktop
    // coordinates, clipped by the client area of every ancestor below stop.
    RECT VisibleRect(const Window* window, bool whole, const Window* stop = nullptr) const;

    std::deque<MSG>& Queue() { return m_queue; }
    // The window with the keyboard focus, the active top-level window and the
    // window that captured the mouse; null when none.
    HWND focus = nullptr;
    HWND active = nullptr;
    HWND capture = nullptr;
    // Called for every new window before its first message, so the class
    // framework can attach the object that is creating it.
    void (*createHook)(HWND) = nullptr;
    bool quitPosted = false;
    int quitCode = 0;

private:
    WindowManager();

    static std::u16string Fold(const std::u16string& name);

    std::map<std::u16string, std::unique_ptr<WindowClass>> m_classes;
    std::unordered_map<HWND, std::unique_ptr<Window>> m_windows;
    Window* FindAndRemember(HWND hwnd) const;
    // Handles are never reused, so the remembered window only has to be
    // forgotten when it goes.
    mutable HWND m_lastFound = nullptr;
    mutable Window* m_lastFoundWindow = nullptr;
    Window m_desktop;
    uintptr_t m_nextHandle = 0x10010;
    std::deque<MSG> m_queue;
};

// A device context for the window's client area on the desktop surface: its
// origin is the client's top-left corner and its output is clipped to the
// visible client area and, when given, to clip (client coordinates).
HDC GetClientDC(HWND hwnd, const RECT* clip);
// The same for the whole window, frame included, with its origin at the
// window's top-left corner.
HDC GetWholeWindowDC(HWND hwnd);

// The non-client widths of a window with these styles, at 96 dpi.
RECT FrameInsets(DWORD style, DWORD exStyle, bool menu);
// Recomputes the frame from the current styles.
void UpdateFrame(Window* window);
// Sends WM_NCPAINT to a shown window that has a non-client area.
void RedrawFrame(Window* window);
// The default procedure's WM_NCPAINT: the frame and the caption.
void PaintNonClient(Window* window);

// Registers BUTTON, STATIC and the other classes of the system once.
void RegisterSystemClasses();

// The WM_SIZE type of the window's show state (SIZE_RESTORED, SIZE_MINIMIZED,
// SIZE_MAXIMIZED).
WPARAM SizeType(const Window* window);
// Puts the window into a show state without showing, hiding or activating
// it: it moves to its minimised, maximised or normal rectangle, its
// WS_MINIMIZE and WS_MAXIMIZE bits follow, and it gets WM_SIZE.
void SetShowState(Window* window, Window::Placement placement);
// The rectangle a maximised window takes in its parent.
RECT MaximizedRectOf(const Window* window);

// The MDI client's part in its children's lives (MdiClient.cpp): a child
// that is about to be destroyed or hidden hands the activation on.
void MdiChildGoing(Window* child);
// The maximised active child of the MDI client in a frame, or null.
Window* MaximizedMdiChild(const Window* frame);
LRESULT MdiClientProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

// Activates the owner of a window that went away, or else the topmost
// visible enabled top-level window.
void ActivateNext(Window* owner);

// Rectangle helpers.
bool IsEmpty(const RECT& rect);
RECT Intersect(const RECT& a, const RECT& b);
RECT Union(const RECT& a, const RECT& b);

} // namespace platform::user
