#include "WindowManager.h"

#include "Clipboard.h"
#include "Keyboard.h"
#include "gdi/DeviceContext.h"

#include <algorithm>

namespace platform::user {

WindowManager& WindowManager::Instance() {
    static WindowManager* manager = new WindowManager();
    return *manager;
}

WindowManager::WindowManager() {
    m_desktop.handle = reinterpret_cast<HWND>(uintptr_t{0x10010});
    m_nextHandle += 4;
    m_desktop.rect = RECT{0, 0, gdi::kHeadlessDesktopWidth, gdi::kHeadlessDesktopHeight};
    m_desktop.visible = true;
    m_desktop.style = WS_VISIBLE;
}

void WindowManager::ResizeDesktop(int width, int height) {
    if (width == m_desktop.rect.right && height == m_desktop.rect.bottom)
        return;
    m_desktop.rect = RECT{0, 0, width, height};
    gdi::ResizeDesktopSurface(width, height);
    std::vector<Window*> pending(m_desktop.children.begin(), m_desktop.children.end());
    while (!pending.empty()) {
        Window* window = pending.back();
        pending.pop_back();
        window->ncDirty = true;
        InvalidateRect(window->handle, nullptr, TRUE);
        pending.insert(pending.end(), window->children.begin(), window->children.end());
    }
    // A maximised window fills the new desktop, as it does when the screen's
    // resolution changes.
    for (Window* window : std::vector<Window*>(m_desktop.children))
        if (window->placement == Window::Placement::Maximized) {
            const RECT r = MaximizedRectOf(window);
            MoveWindow(window->handle, r.left, r.top, r.right - r.left, r.bottom - r.top, TRUE);
        }
}

std::u16string WindowManager::Fold(const std::u16string& name) {
    std::u16string folded = name;
    for (char16_t& ch : folded)
        if (ch >= u'a' && ch <= u'z')
            ch = static_cast<char16_t>(ch - u'a' + u'A');
    return folded;
}

const WindowClass* WindowManager::FindClass(const std::u16string& name) const {
    auto it = m_classes.find(Fold(name));
    return it == m_classes.end() ? nullptr : it->second.get();
}

bool WindowManager::AddClass(const WNDCLASS& wc) {
    if (!wc.lpszClassName || !*wc.lpszClassName || !wc.lpfnWndProc)
        return false;
    std::u16string name(wc.lpszClassName);
    std::u16string key = Fold(name);
    if (m_classes.count(key))
        return false;
    auto entry = std::make_unique<WindowClass>();
    entry->name = name;
    entry->wc = wc;
    entry->wc.lpszClassName = entry->name.c_str();
    entry->wc.lpszMenuName = nullptr;
    m_classes.emplace(key, std::move(entry));
    return true;
}

bool WindowManager::RemoveClass(const std::u16string& name) {
    auto it = m_classes.find(Fold(name));
    if (it == m_classes.end())
        return false;
    // A class with live windows stays registered.
    for (const auto& [handle, window] : m_windows)
        if (window->windowClass == it->second.get())
            return false;
    m_classes.erase(it);
    return true;
}

Window* WindowManager::FindAndRemember(HWND hwnd) const {
    if (!hwnd)
        return nullptr;
    if (hwnd == m_desktop.handle)
        return const_cast<Window*>(&m_desktop);
    auto it = m_windows.find(hwnd);
    if (it == m_windows.end())
        return nullptr;
    m_lastFound = hwnd;
    m_lastFoundWindow = it->second.get();
    return m_lastFoundWindow;
}

Window* WindowManager::CreateWindowRecord(const WindowClass* windowClass, Window* parent) {
    auto window = std::make_unique<Window>();
    // Handles are never reused, so a stale handle never names a new window.
    window->handle = reinterpret_cast<HWND>(m_nextHandle);
    m_nextHandle += 4;
    window->windowClass = windowClass;
    window->proc = windowClass->wc.lpfnWndProc;
    window->parent = parent;
    // A new top-level window comes up on top; a new child goes below its
    // siblings, so that children keep their creation (tab) order.
    if (parent == &m_desktop)
        parent->children.insert(parent->children.begin(), window.get());
    else
        parent->children.push_back(window.get());
    Window* result = window.get();
    m_windows.emplace(result->handle, std::move(window));
    return result;
}

void WindowManager::Forget(Window* window) {
    if (window->parent) {
        auto& siblings = window->parent->children;
        siblings.erase(std::remove(siblings.begin(), siblings.end(), window), siblings.end());
    }
    HWND handle = window->handle;
    for (auto& [other, record] : m_windows)
        if (record->owner == window)
            record->owner = nullptr;
    if (focus == handle)
        focus = nullptr;
    if (active == handle)
        active = nullptr;
    if (capture == handle)
        capture = nullptr;
    ClipboardWindowGone(handle);
    // Keys pressed and released still change the keyboard's state when the
    // window they were meant for is gone.
    for (const MSG& msg : m_queue)
        if (msg.hwnd == handle)
            NoteKeyMessage(msg);
    m_queue.erase(std::remove_if(m_queue.begin(), m_queue.end(),
                                 [handle](const MSG& msg) { return msg.hwnd == handle; }),
                  m_queue.end());
    if (m_lastFound == handle)
        m_lastFound = nullptr;
    m_windows.erase(handle);
}

bool WindowManager::IsShown(const Window* window) const {
    for (; window; window = window->parent)
        if (!window->visible)
            return false;
    return true;
}

bool WindowManager::IsEnabled(const Window* window) const {
    for (; window && window != &m_desktop; window = window->parent)
        if (window->style & WS_DISABLED)
            return false;
    return true;
}

Window* WindowManager::TopLevel(Window* window) const {
    while (window && window->parent && window->parent != &m_desktop)
        window = window->parent;
    return window == &m_desktop ? nullptr : window;
}

POINT WindowManager::WindowOrigin(const Window* window) const {
    if (!window || window == &m_desktop)
        return POINT{0, 0};
    POINT origin = ClientOrigin(window->parent);
    origin.x += window->rect.left;
    origin.y += window->rect.top;
    return origin;
}

POINT WindowManager::ClientOrigin(const Window* window) const {
    POINT origin = WindowOrigin(window);
    if (window) {
        origin.x += window->frame.left;
        origin.y += window->frame.top;
    }
    return origin;
}

RECT WindowManager::VisibleRect(const Window* window, bool whole, const Window* stop) const {
    POINT origin = whole ? WindowOrigin(window) : ClientOrigin(window);
    RECT visible =
        whole ? RECT{origin.x, origin.y, origin.x + window->Width(), origin.y + window->Height()}
              : RECT{origin.x, origin.y, origin.x + window->ClientWidth(),
                     origin.y + window->ClientHeight()};
    if (window == stop)
        return visible;
    for (const Window* ancestor = window->parent; ancestor; ancestor = ancestor->parent) {
        POINT o = ClientOrigin(ancestor);
        visible = Intersect(
            visible, RECT{o.x, o.y, o.x + ancestor->ClientWidth(), o.y + ancestor->ClientHeight()});
        if (ancestor == stop)
            break;
    }
    return visible;
}

bool IsEmpty(const RECT& rect) {
    return rect.right <= rect.left || rect.bottom <= rect.top;
}

RECT Intersect(const RECT& a, const RECT& b) {
    RECT r{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
           std::min(a.bottom, b.bottom)};
    if (IsEmpty(r))
        return RECT{0, 0, 0, 0};
    return r;
}

RECT Union(const RECT& a, const RECT& b) {
    if (IsEmpty(a))
        return b;
    if (IsEmpty(b))
        return a;
    return RECT{std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
                std::max(a.bottom, b.bottom)};
}

} // namespace platform::user
