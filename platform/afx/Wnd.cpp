// CWnd: window objects attached to handles, creation through the framework's
// window class, and message routing to the virtual handlers.
#include <afxwin.h>

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

// The object whose window is being created: it is attached at the window's
// first message, so that WM_NCCREATE and WM_CREATE already reach it.
CWnd* g_creating = nullptr;

LRESULT FrameworkWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

LRESULT FrameworkWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    CWnd* wnd = CWnd::FromHandlePermanent(hwnd);
    if (!wnd && g_creating) {
        wnd = g_creating;
        g_creating = nullptr;
        wnd->Attach(hwnd);
    }
    if (!wnd)
        return ::DefWindowProc(hwnd, message, wParam, lParam);
    return AfxCallWndProc(wnd, hwnd, message, wParam, lParam);
}

void RegisterFrameworkClass() {
    WNDCLASS wc{};
    if (::GetClassInfo(nullptr, kFrameworkClass, &wc))
        return;
    wc.lpfnWndProc = FrameworkWndProc;
    wc.lpszClassName = kFrameworkClass;
    ::RegisterClass(&wc);
}

} // namespace

LRESULT AfxCallWndProc(CWnd* wnd, HWND, UINT message, WPARAM wParam, LPARAM lParam) {
    return wnd->WindowProc(message, wParam, lParam);
}

CWnd::~CWnd() {
    if (m_hWnd && ::IsWindow(m_hWnd))
        ::DestroyWindow(m_hWnd);
    if (m_hWnd)
        Detach();
}

CWnd* CWnd::FromHandlePermanent(HWND hwnd) {
    auto it = PermanentMap().find(hwnd);
    return it == PermanentMap().end() ? nullptr : it->second;
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
    PermanentMap()[hwnd] = this;
    return TRUE;
}

HWND CWnd::Detach() {
    HWND hwnd = m_hWnd;
    if (hwnd) {
        auto it = PermanentMap().find(hwnd);
        if (it != PermanentMap().end() && it->second == this)
            PermanentMap().erase(it);
    }
    m_hWnd = nullptr;
    return hwnd;
}

BOOL CWnd::Create(LPCTSTR className, LPCTSTR windowName, DWORD style, const RECT& rect,
                  CWnd* parent, UINT id) {
    return CreateEx(0, className, windowName, style, rect, parent, id);
}

BOOL CWnd::CreateEx(DWORD exStyle, LPCTSTR className, LPCTSTR windowName, DWORD style,
                    const RECT& rect, CWnd* parent, UINT id) {
    if (m_hWnd)
        return FALSE;
    if (!className) {
        RegisterFrameworkClass();
        className = kFrameworkClass;
    }
    // A class of the host's own routes to the object too, through the framework's
    // procedure: the object is attached at the first message it receives.
    WNDCLASS wc{};
    bool framework = ::GetClassInfo(nullptr, className, &wc) && wc.lpfnWndProc == FrameworkWndProc;
    CWnd* previous = g_creating;
    if (framework)
        g_creating = this;
    HWND hwnd = ::CreateWindowEx(
        exStyle, className, windowName, style, rect.left, rect.top, rect.right - rect.left,
        rect.bottom - rect.top, parent ? parent->m_hWnd : nullptr,
        reinterpret_cast<HMENU>(static_cast<uintptr_t>(id)), nullptr, nullptr);
    g_creating = previous;
    if (hwnd && !m_hWnd)
        Attach(hwnd);
    return hwnd ? TRUE : FALSE;
}

BOOL CWnd::DestroyWindow() {
    if (!m_hWnd)
        return FALSE;
    return ::DestroyWindow(m_hWnd);
}

CWnd* CWnd::GetParent() const {
    return CWnd::FromHandle(::GetParent(m_hWnd));
}

int CWnd::GetDlgCtrlID() const {
    return ::GetDlgCtrlID(m_hWnd);
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

void CWnd::ScreenToClient(LPPOINT point) const {
    ::ScreenToClient(m_hWnd, point);
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL repaint) {
    ::MoveWindow(m_hWnd, x, y, width, height, repaint);
}

void CWnd::MoveWindow(LPCRECT rect, BOOL repaint) {
    ::MoveWindow(m_hWnd, rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top,
                 repaint);
}

BOOL CWnd::ShowWindow(int command) {
    return ::ShowWindow(m_hWnd, command);
}

BOOL CWnd::IsWindowVisible() const {
    return ::IsWindowVisible(m_hWnd);
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

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        return OnCreate(reinterpret_cast<LPCREATESTRUCT>(lParam));
    case WM_DESTROY:
        OnDestroy();
        return 0;
    case WM_SIZE:
        OnSize(static_cast<UINT>(wParam), LOWORD(lParam), HIWORD(lParam));
        return 0;
    case WM_PAINT:
        OnPaint();
        return 0;
    case WM_ERASEBKGND:
        return OnEraseBkgnd(CDC::FromHandle(reinterpret_cast<HDC>(wParam)));
    case WM_NCDESTROY: {
        LRESULT result = DefWindowProc(message, wParam, lParam);
        Detach();
        PostNcDestroy();
        return result;
    }
    default:
        return DefWindowProc(message, wParam, lParam);
    }
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    return ::DefWindowProc(m_hWnd, message, wParam, lParam);
}

int CWnd::OnCreate(LPCREATESTRUCT) {
    return 0;
}

void CWnd::OnDestroy() {}

void CWnd::OnSize(UINT, int, int) {}

void CWnd::OnPaint() {
    DefWindowProc(WM_PAINT, 0, 0);
}

BOOL CWnd::OnEraseBkgnd(CDC* dc) {
    return static_cast<BOOL>(
        DefWindowProc(WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc ? dc->m_hDC : nullptr), 0));
}
