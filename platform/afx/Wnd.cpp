// CWnd: window objects attached to handles, creation, subclassing, and the
// thin wrappers over the window system's functions.
#include <afxwin.h>

#include "WndProc.h"
#include "user/WindowManager.h"

#include <memory>
#include <unordered_map>

namespace {

constexpr const WCHAR* kFrameworkClass = u"AfxWnd";

std::unordered_map<HWND, CWnd*>& PermanentMap() {
    static auto* map = new std::unordered_map<HWND, CWnd*>();
    return *map;
}

// Wrappers for windows no object was created for, kept until the window dies.
std::unordered_map<HWND, std::unique_ptr<CWnd>>& TemporaryMap() {
    static auto* map = new std::unordered_map<HWND, std::unique_ptr<CWnd>>();
    return *map;
}

// The object whose window is being created: it is attached, and the window
// subclassed, before the window's first message, so that WM_NCCREATE and
// WM_CREATE already reach it.
CWnd* g_creating = nullptr;

void AttachCreatingObject(HWND hwnd) {
    CWnd* wnd = g_creating;
    if (!wnd)
        return;
    g_creating = nullptr;
    wnd->SubclassWindow(hwnd);
}

constexpr UINT kDoubleClicks = 0x0008; // CS_DBLCLKS

void RegisterFrameworkClass() {
    WNDCLASS wc{};
    if (::GetClassInfo(nullptr, kFrameworkClass, &wc))
        return;
    // The framework's windows get double clicks, as the original's do.
    wc.style = kDoubleClicks;
    wc.lpfnWndProc = ::DefWindowProc;
    wc.lpszClassName = kFrameworkClass;
    ::RegisterClass(&wc);
}

} // namespace

namespace platform::afx {

HWND g_lastPermanent = nullptr;
CWnd* g_lastPermanentWnd = nullptr;

// Makes the next window created belong to wnd; the previous value comes back
// for nesting.
CWnd* HookWindowCreate(CWnd* wnd) {
    platform::user::WindowManager::Instance().createHook = AttachCreatingObject;
    CWnd* previous = g_creating;
    g_creating = wnd;
    return previous;
}

void UnhookWindowCreate(CWnd* previous) {
    g_creating = previous;
}

bool CreationPending(const CWnd* wnd) {
    return g_creating == wnd;
}

} // namespace platform::afx

CWnd::~CWnd() {
    if (m_hWnd && ::IsWindow(m_hWnd))
        ::DestroyWindow(m_hWnd);
    if (m_hWnd)
        Detach();
}

CWnd* CWnd::FromHandlePermanent(HWND hwnd) {
    if (hwnd && hwnd == platform::afx::g_lastPermanent)
        return platform::afx::g_lastPermanentWnd;
    auto it = PermanentMap().find(hwnd);
    if (it == PermanentMap().end())
        return nullptr;
    platform::afx::g_lastPermanent = hwnd;
    platform::afx::g_lastPermanentWnd = it->second;
    return it->second;
}

CWnd* CWnd::FromHandle(HWND hwnd) {
    if (!hwnd || !::IsWindow(hwnd))
        return nullptr;
    if (CWnd* wnd = FromHandlePermanent(hwnd))
        return wnd;
    auto& temporary = TemporaryMap();
    for (auto it = temporary.begin(); it != temporary.end();)
        it = ::IsWindow(it->first) ? std::next(it) : temporary.erase(it);
    auto& slot = temporary[hwnd];
    if (!slot) {
        slot = std::make_unique<CWnd>();
        slot->m_hWnd = hwnd;
    }
    return slot.get();
}

BOOL CWnd::Attach(HWND hwnd) {
    if (!hwnd || m_hWnd || FromHandlePermanent(hwnd))
        return FALSE;
    m_hWnd = hwnd;
    platform::afx::g_lastPermanent = nullptr;
    PermanentMap()[hwnd] = this;
    return TRUE;
}

HWND CWnd::Detach() {
    HWND hwnd = m_hWnd;
    if (hwnd) {
        auto it = PermanentMap().find(hwnd);
        if (it != PermanentMap().end() && it->second == this) {
            platform::afx::g_lastPermanent = nullptr;
            PermanentMap().erase(it);
        }
    }
    m_hWnd = nullptr;
    return hwnd;
}

BOOL CWnd::SubclassWindow(HWND hwnd) {
    if (!::IsWindow(hwnd) || !Attach(hwnd))
        return FALSE;
    PreSubclassWindow();
    auto previous = reinterpret_cast<WNDPROC>(::GetWindowLongPtr(hwnd, GWLP_WNDPROC));
    if (previous != platform::afx::FrameworkWndProc) {
        m_pfnSuper = previous;
        ::SetWindowLongPtr(hwnd, GWLP_WNDPROC,
                           reinterpret_cast<LONG_PTR>(platform::afx::FrameworkWndProc));
    }
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT id, CWnd* parent) {
    HWND control = parent ? ::GetDlgItem(parent->m_hWnd, static_cast<int>(id)) : nullptr;
    return control ? SubclassWindow(control) : FALSE;
}

HWND CWnd::UnsubclassWindow() {
    if (m_pfnSuper)
        ::SetWindowLongPtr(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pfnSuper));
    m_pfnSuper = nullptr;
    return Detach();
}

IMPLEMENT_DYNAMIC(CWnd, CCmdTarget)

BOOL CWnd::Create(LPCTSTR className, LPCTSTR windowName, DWORD style, const RECT& rect,
                  CWnd* parent, UINT id, CCreateContext* context) {
    return CreateEx(0, className, windowName, style, rect, parent, id, context);
}

BOOL CWnd::CreateEx(DWORD exStyle, LPCTSTR className, LPCTSTR windowName, DWORD style,
                    const RECT& rect, CWnd* parent, UINT id, LPVOID param) {
    // Sizes wrap as the original's int arithmetic does, so that a default
    // rectangle (CW_USEDEFAULT, CW_USEDEFAULT, 0, 0) asks for a default size.
    auto extent = [](LONG from, LONG to) {
        return static_cast<int>(static_cast<uint32_t>(to) - static_cast<uint32_t>(from));
    };
    return CreateEx(exStyle, className, windowName, style, rect.left, rect.top,
                    extent(rect.left, rect.right), extent(rect.top, rect.bottom),
                    parent ? parent->m_hWnd : nullptr,
                    reinterpret_cast<HMENU>(static_cast<uintptr_t>(id)), param);
}

BOOL CWnd::CreateEx(DWORD exStyle, LPCTSTR className, LPCTSTR windowName, DWORD style, int x, int y,
                    int cx, int cy, HWND parent, HMENU idOrMenu, LPVOID param) {
    if (m_hWnd)
        return FALSE;
    CREATESTRUCT cs{param,      nullptr,   idOrMenu, parent, cy, cx, y, x, static_cast<LONG>(style),
                    windowName, className, exStyle};
    if (!PreCreateWindow(cs)) {
        PostNcDestroy();
        return FALSE;
    }
    if (!cs.lpszClass) {
        RegisterFrameworkClass();
        cs.lpszClass = kFrameworkClass;
    }
    CWnd* previous = platform::afx::HookWindowCreate(this);
    HWND hwnd = ::CreateWindowEx(cs.dwExStyle, cs.lpszClass, cs.lpszName,
                                 static_cast<DWORD>(cs.style), cs.x, cs.y, cs.cx, cs.cy,
                                 cs.hwndParent, cs.hMenu, cs.hInstance, cs.lpCreateParams);
    // The window never reached the object: no WM_NCDESTROY will clean up.
    const bool neverAttached = platform::afx::CreationPending(this);
    platform::afx::UnhookWindowCreate(previous);
    if (neverAttached)
        PostNcDestroy();
    return hwnd ? TRUE : FALSE;
}

BOOL CWnd::PreCreateWindow(CREATESTRUCT&) {
    return TRUE;
}

BOOL CWnd::DestroyWindow() {
    if (!m_hWnd)
        return FALSE;
    return ::DestroyWindow(m_hWnd);
}

CWnd* CWnd::GetParent() const {
    return CWnd::FromHandle(::GetParent(m_hWnd));
}

CWnd* CWnd::GetOwner() const {
    HWND owner = ::GetWindow(m_hWnd, GW_OWNER);
    return CWnd::FromHandle(owner ? owner : ::GetParent(m_hWnd));
}

CWnd* CWnd::GetTopLevelParent() const {
    HWND hwnd = m_hWnd;
    while (hwnd && (::GetWindowLongPtr(hwnd, GWL_STYLE) & WS_CHILD))
        hwnd = ::GetParent(hwnd);
    return CWnd::FromHandle(hwnd);
}

CWnd* CWnd::GetDlgItem(int id) const {
    return CWnd::FromHandle(::GetDlgItem(m_hWnd, id));
}

int CWnd::GetDlgCtrlID() const {
    return ::GetDlgCtrlID(m_hWnd);
}

void CWnd::SetDlgItemText(int id, LPCTSTR text) {
    ::SetWindowText(::GetDlgItem(m_hWnd, id), text);
}

int CWnd::GetDlgItemText(int id, CString& text) const {
    text.Empty();
    CWnd* item = GetDlgItem(id);
    if (item)
        item->GetWindowText(text);
    return text.GetLength();
}

CWnd* CWnd::GetWindow(UINT command) const {
    return CWnd::FromHandle(::GetWindow(m_hWnd, command));
}

DWORD CWnd::GetStyle() const {
    return static_cast<DWORD>(::GetWindowLongPtr(m_hWnd, GWL_STYLE));
}

DWORD CWnd::GetExStyle() const {
    return static_cast<DWORD>(::GetWindowLongPtr(m_hWnd, GWL_EXSTYLE));
}

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add, UINT flags) {
    DWORD style = GetStyle();
    DWORD changed = (style & ~remove) | add;
    if (changed == style)
        return FALSE;
    ::SetWindowLongPtr(m_hWnd, GWL_STYLE, static_cast<LONG_PTR>(changed));
    if (flags)
        ::SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0,
                       SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | flags);
    return TRUE;
}

void CWnd::GetClientRect(LPRECT rect) const {
    ::GetClientRect(m_hWnd, rect);
}

void CWnd::GetWindowRect(LPRECT rect) const {
    ::GetWindowRect(m_hWnd, rect);
}

void CWnd::ClientToScreen(LPPOINT point) const {
    ::ClientToScreen(m_hWnd, point);
}

void CWnd::ClientToScreen(LPRECT rect) const {
    ::ClientToScreen(m_hWnd, reinterpret_cast<LPPOINT>(&rect->left));
    ::ClientToScreen(m_hWnd, reinterpret_cast<LPPOINT>(&rect->right));
}

void CWnd::ScreenToClient(LPPOINT point) const {
    ::ScreenToClient(m_hWnd, point);
}

void CWnd::ScreenToClient(LPRECT rect) const {
    ::ScreenToClient(m_hWnd, reinterpret_cast<LPPOINT>(&rect->left));
    ::ScreenToClient(m_hWnd, reinterpret_cast<LPPOINT>(&rect->right));
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL repaint) {
    ::MoveWindow(m_hWnd, x, y, width, height, repaint);
}

void CWnd::MoveWindow(LPCRECT rect, BOOL repaint) {
    ::MoveWindow(m_hWnd, rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top,
                 repaint);
}

// Its handle is HWND_TOP (null); it is never a window of its own.
const CWnd CWnd::wndTop{};

BOOL CWnd::SetWindowPos(const CWnd* insertAfter, int x, int y, int cx, int cy, UINT flags) {
    return ::SetWindowPos(m_hWnd, insertAfter ? insertAfter->m_hWnd : nullptr, x, y, cx, cy, flags);
}

void CWnd::CenterWindow(CWnd* alternateOwner) {
    CRect area;
    HWND over = alternateOwner ? alternateOwner->m_hWnd : ::GetWindow(m_hWnd, GW_OWNER);
    if (!over && (GetStyle() & WS_CHILD))
        over = ::GetParent(m_hWnd);
    ::GetWindowRect(over ? over : ::GetDesktopWindow(), &area);
    CRect mine;
    GetWindowRect(&mine);
    int x = area.left + (area.Width() - mine.Width()) / 2;
    int y = area.top + (area.Height() - mine.Height()) / 2;
    if (GetStyle() & WS_CHILD) {
        CPoint topLeft(x, y);
        ::ScreenToClient(::GetParent(m_hWnd), &topLeft);
        x = topLeft.x;
        y = topLeft.y;
    } else {
        x = std::max(0, x);
        y = std::max(0, y);
    }
    ::SetWindowPos(m_hWnd, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL CWnd::ShowWindow(int command) {
    return ::ShowWindow(m_hWnd, command);
}

BOOL CWnd::IsWindowVisible() const {
    return ::IsWindowVisible(m_hWnd);
}

BOOL CWnd::EnableWindow(BOOL enable) {
    return ::EnableWindow(m_hWnd, enable);
}

BOOL CWnd::IsWindowEnabled() const {
    return ::IsWindowEnabled(m_hWnd);
}

CWnd* CWnd::SetFocus() {
    return CWnd::FromHandle(::SetFocus(m_hWnd));
}

CWnd* CWnd::GetFocus() {
    return CWnd::FromHandle(::GetFocus());
}

CWnd* CWnd::SetActiveWindow() {
    return CWnd::FromHandle(::SetActiveWindow(m_hWnd));
}

CWnd* CWnd::GetActiveWindow() {
    return CWnd::FromHandle(::GetActiveWindow());
}

CWnd* CWnd::GetForegroundWindow() {
    return CWnd::FromHandle(::GetForegroundWindow());
}

BOOL CWnd::SetForegroundWindow() {
    return ::SetForegroundWindow(m_hWnd);
}

void CWnd::BringWindowToTop() {
    ::BringWindowToTop(m_hWnd);
}

void CWnd::SetWindowText(LPCTSTR text) {
    ::SetWindowText(m_hWnd, text);
}

void CWnd::GetWindowText(CString& text) const {
    int length = ::GetWindowTextLength(m_hWnd);
    LPWSTR buffer = text.GetBufferSetLength(length);
    ::GetWindowText(m_hWnd, buffer, length + 1);
    text.ReleaseBuffer(length);
}

int CWnd::GetWindowTextLength() const {
    return ::GetWindowTextLength(m_hWnd);
}

void CWnd::SetFont(CFont* font, BOOL redraw) {
    ::SendMessage(m_hWnd, WM_SETFONT, reinterpret_cast<WPARAM>(font ? font->m_hObject : nullptr),
                  redraw);
}

CFont* CWnd::GetFont() const {
    return CFont::FromHandle(reinterpret_cast<HFONT>(::SendMessage(m_hWnd, WM_GETFONT, 0, 0)));
}

void CWnd::Invalidate(BOOL erase) {
    ::InvalidateRect(m_hWnd, nullptr, erase);
}

void CWnd::InvalidateRect(LPCRECT rect, BOOL erase) {
    ::InvalidateRect(m_hWnd, rect, erase);
}

void CWnd::ValidateRect(LPCRECT rect) {
    ::ValidateRect(m_hWnd, rect);
}

BOOL CWnd::GetUpdateRect(LPRECT rect, BOOL erase) {
    return ::GetUpdateRect(m_hWnd, rect, erase);
}

void CWnd::UpdateWindow() {
    ::UpdateWindow(m_hWnd);
}

CDC* CWnd::GetDC() {
    return CDC::FromHandle(::GetDC(m_hWnd));
}

int CWnd::ReleaseDC(CDC* dc) {
    return dc ? ::ReleaseDC(m_hWnd, dc->m_hDC) : 0;
}

BOOL CWnd::OpenClipboard() {
    return ::OpenClipboard(m_hWnd);
}

CDC* CWnd::BeginPaint(LPPAINTSTRUCT paint) {
    return CDC::FromHandle(::BeginPaint(m_hWnd, paint));
}

void CWnd::EndPaint(LPPAINTSTRUCT paint) {
    ::EndPaint(m_hWnd, paint);
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return ::SendMessage(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return ::PostMessage(m_hWnd, message, wParam, lParam);
}

void CWnd::SendMessageToDescendants(UINT message, WPARAM wParam, LPARAM lParam, BOOL deep,
                                    BOOL onlyPermanent) {
    for (HWND child = ::GetWindow(m_hWnd, GW_CHILD); child;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        if (!onlyPermanent || CWnd::FromHandlePermanent(child))
            ::SendMessage(child, message, wParam, lParam);
        if (deep && ::IsWindow(child))
            CWnd::FromHandle(child)->SendMessageToDescendants(message, wParam, lParam, TRUE,
                                                              onlyPermanent);
    }
}
