// The MDI client window: it creates, activates, maximises and destroys the
// document windows of a frame, and keeps the active one.
#include "MdiClient.h"

#include <algorithm>
#include <unordered_map>

using platform::user::MdiClientState;
using platform::user::Window;
using platform::user::WindowManager;

namespace {

using Placement = Window::Placement;

WindowManager& Manager() {
    return WindowManager::Instance();
}

std::unordered_map<HWND, MdiClientState>& Clients() {
    static auto* clients = new std::unordered_map<HWND, MdiClientState>();
    return *clients;
}

bool IsMdiChild(const Window* window) {
    return (window->exStyle & WS_EX_MDICHILD) != 0;
}

// The visible children in z-order, topmost first, without skip.
std::vector<Window*> ShownChildren(const Window* client, const Window* skip) {
    std::vector<Window*> shown;
    for (Window* child : client->children)
        if (child != skip && IsMdiChild(child) && child->visible)
            shown.push_back(child);
    return shown;
}

void Raise(Window* child) {
    auto& siblings = child->parent->children;
    auto it = std::find(siblings.begin(), siblings.end(), child);
    if (it == siblings.end() || it == siblings.begin())
        return;
    siblings.erase(it);
    siblings.insert(siblings.begin(), child);
    if (child->visible) {
        child->ncDirty = child->HasFrame();
        InvalidateRect(child->handle, nullptr, TRUE);
    }
}

void Lower(Window* child) {
    auto& siblings = child->parent->children;
    auto it = std::find(siblings.begin(), siblings.end(), child);
    if (it == siblings.end())
        return;
    siblings.erase(it);
    siblings.push_back(child);
    InvalidateRect(child->parent->handle, nullptr, TRUE);
}

int CountMdiChildren(const Window* client) {
    return static_cast<int>(std::count_if(client->children.begin(), client->children.end(),
                                          [](const Window* w) { return IsMdiChild(w); }));
}

HWND CreateChild(HWND hwnd, MdiClientState& state, const MDICREATESTRUCT* mcs) {
    Window* client = Manager().Find(hwnd);
    if (!client || !mcs)
        return nullptr;
    DWORD style = mcs->style | WS_CHILD;
    if (!(client->style & MDIS_ALLCHILDSTYLES))
        style |= WS_CLIPSIBLINGS | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX |
                 WS_MAXIMIZEBOX;
    const bool visible = (style & WS_VISIBLE) != 0;
    const DWORD stateBits = style & (WS_MINIMIZE | WS_MAXIMIZE);
    style &= ~static_cast<DWORD>(WS_VISIBLE | WS_MINIMIZE | WS_MAXIMIZE);

    // Unplaced children cascade down from the top left, three quarters of the
    // client's size.
    int x = mcs->x, y = mcs->y, cx = mcs->cx, cy = mcs->cy;
    const int width = client->ClientWidth(), height = client->ClientHeight();
    if (cx == CW_USEDEFAULT) {
        cx = width * 3 / 4;
        cy = height * 3 / 4;
    }
    if (x == CW_USEDEFAULT) {
        const int step = GetSystemMetrics(SM_CYCAPTION) + GetSystemMetrics(SM_CYFRAME);
        if ((state.cascade + 1) * step + cx > width || (state.cascade + 1) * step + cy > height)
            state.cascade = 0;
        x = y = state.cascade * step;
        ++state.cascade;
    }
    const UINT id = state.idFirstChild + static_cast<UINT>(CountMdiChildren(client));
    HWND child =
        CreateWindowEx(WS_EX_MDICHILD, mcs->szClass, mcs->szTitle, style, x, y, cx, cy, hwnd,
                       reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)),
                       static_cast<HINSTANCE>(mcs->hOwner), const_cast<MDICREATESTRUCT*>(mcs));
    if (!child)
        return nullptr;
    if (visible) {
        // A new child takes the maximised state of the active one.
        BOOL maximized = FALSE;
        platform::user::MdiClientProc(hwnd, WM_MDIGETACTIVE, 0,
                                      reinterpret_cast<LPARAM>(&maximized));
        const int command = (stateBits & WS_MINIMIZE)                  ? SW_SHOWMINIMIZED
                            : (maximized || (stateBits & WS_MAXIMIZE)) ? SW_SHOWMAXIMIZED
                                                                       : SW_SHOWNORMAL;
        ShowWindow(child, command);
    }
    if (IsWindow(child))
        platform::user::RefreshMdiWindowMenu(hwnd);
    return IsWindow(child) ? child : nullptr;
}

// Activates the child after (or, with previous, before) child in z-order; a
// step forward sends the one left to the bottom, so steps go round them all.
void Next(HWND hwnd, MdiClientState& state, HWND from, bool previous) {
    Window* client = Manager().Find(hwnd);
    Window* current = Manager().Find(from ? from : state.active);
    if (!client || !current || current->parent != client)
        return;
    std::vector<Window*> shown = ShownChildren(client, nullptr);
    if (shown.size() < 2)
        return;
    auto it = std::find(shown.begin(), shown.end(), current);
    if (it == shown.end())
        return;
    Window* target = previous ? shown.back() : (it + 1 == shown.end() ? shown.front() : *(it + 1));
    platform::user::ActivateMdiChild(hwnd, target);
    if (!previous && Manager().Find(from ? from : current->handle))
        Lower(current);
}

} // namespace

namespace platform::user {

MdiClientState* FindMdiClient(HWND hwnd) {
    auto it = Clients().find(hwnd);
    return it == Clients().end() ? nullptr : &it->second;
}

void ActivateMdiChild(HWND hwnd, Window* child) {
    MdiClientState* state = FindMdiClient(hwnd);
    if (!state || !child || child->parent != Manager().Find(hwnd) || !child->visible)
        return;
    HWND old = state->active;
    if (old == child->handle) {
        Raise(child);
        return;
    }
    state->active = child->handle;
    if (Window* previous = Manager().Find(old)) {
        if (previous->placement == Placement::Maximized) {
            SetShowState(child, Placement::Maximized);
            if (Manager().Find(old))
                SetShowState(previous, Placement::Normal);
        }
        SendMessage(old, WM_NCACTIVATE, FALSE, 0);
        SendMessage(old, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(old),
                    reinterpret_cast<LPARAM>(child->handle));
    }
    if (state->active != child->handle || !Manager().Find(child->handle))
        return;
    Raise(child);
    SendMessage(child->handle, WM_NCACTIVATE, TRUE, 0);
    SendMessage(child->handle, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(old),
                reinterpret_cast<LPARAM>(child->handle));
    Window* top = Manager().TopLevel(child);
    if (top && Manager().active == top->handle && state->active == child->handle) {
        HWND focus = Manager().focus;
        if (focus != child->handle && !(focus && IsChild(child->handle, focus)))
            SetFocus(child->handle);
    }
    UpdateMdiFrameText(hwnd);
    RefreshMdiWindowMenu(hwnd);
}

void MdiChildGoing(Window* child) {
    if (!child->parent)
        return;
    HWND hwnd = child->parent->handle;
    MdiClientState* state = FindMdiClient(hwnd);
    if (!state || state->active != child->handle)
        return;
    std::vector<Window*> others = ShownChildren(child->parent, child);
    if (!others.empty()) {
        ActivateMdiChild(hwnd, others.front());
        return;
    }
    state->active = nullptr;
    HWND going = child->handle;
    SendMessage(going, WM_NCACTIVATE, FALSE, 0);
    SendMessage(going, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(going), 0);
    UpdateMdiFrameText(hwnd);
}

Window* MaximizedMdiChild(const Window* frame) {
    for (Window* child : frame->children) {
        MdiClientState* state = FindMdiClient(child->handle);
        if (!state)
            continue;
        Window* active = Manager().Find(state->active);
        return active && active->placement == Placement::Maximized ? active : nullptr;
    }
    return nullptr;
}

void UpdateMdiFrameText(HWND hwnd) {
    MdiClientState* state = FindMdiClient(hwnd);
    Window* client = Manager().Find(hwnd);
    if (!state || !client || !client->parent || client->parent == Manager().Desktop())
        return;
    std::u16string text = state->frameText;
    Window* active = Manager().Find(state->active);
    if (active && active->placement == Placement::Maximized)
        text += u" - [" + active->text + u"]";
    Window* frame = client->parent;
    if (frame->text != text)
        DefWindowProc(frame->handle, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

LRESULT MdiClientProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CREATE) {
        MdiClientState state;
        auto* create = reinterpret_cast<const CREATESTRUCT*>(lParam);
        if (auto* ccs =
                create ? static_cast<const CLIENTCREATESTRUCT*>(create->lpCreateParams) : nullptr) {
            state.windowMenu = static_cast<HMENU>(ccs->hWindowMenu);
            state.idFirstChild = ccs->idFirstChild;
        }
        if (Window* client = Manager().Find(hwnd); client && client->parent)
            state.frameText = client->parent->text;
        Clients()[hwnd] = state;
        return 0;
    }
    MdiClientState* state = FindMdiClient(hwnd);
    if (!state)
        return DefWindowProc(hwnd, message, wParam, lParam);
    Window* target = Manager().Find(reinterpret_cast<HWND>(wParam));
    Window* client = Manager().Find(hwnd);
    const bool ownChild = target && target->parent == client && IsMdiChild(target);
    switch (message) {
    case WM_MDICREATE:
        return reinterpret_cast<LRESULT>(
            CreateChild(hwnd, *state, reinterpret_cast<const MDICREATESTRUCT*>(lParam)));
    case WM_MDIDESTROY:
        if (ownChild) {
            MdiChildGoing(target);
            DestroyWindow(target->handle);
            RefreshMdiWindowMenu(hwnd);
        }
        return 0;
    case WM_MDIACTIVATE:
        if (ownChild)
            ActivateMdiChild(hwnd, target);
        return 0;
    case WM_MDIGETACTIVE:
        if (lParam) {
            Window* active = Manager().Find(state->active);
            *reinterpret_cast<BOOL*>(lParam) =
                active && active->placement == Placement::Maximized ? TRUE : FALSE;
        }
        return reinterpret_cast<LRESULT>(state->active);
    case WM_MDIMAXIMIZE:
        if (ownChild)
            ShowWindow(target->handle, SW_SHOWMAXIMIZED);
        return 0;
    case WM_MDIRESTORE:
        if (ownChild)
            ShowWindow(target->handle, SW_RESTORE);
        return 0;
    case WM_MDINEXT:
        Next(hwnd, *state, reinterpret_cast<HWND>(wParam), lParam != 0);
        return 0;
    case WM_MDISETMENU: {
        HWND frame = client->parent ? client->parent->handle : nullptr;
        HMENU old = frame ? GetMenu(frame) : nullptr;
        if (wParam && frame)
            SetMenu(frame, reinterpret_cast<HMENU>(wParam));
        if (lParam)
            state->windowMenu = reinterpret_cast<HMENU>(lParam);
        RefreshMdiWindowMenu(hwnd);
        return reinterpret_cast<LRESULT>(old);
    }
    case WM_MDIREFRESHMENU:
        RefreshMdiWindowMenu(hwnd);
        return reinterpret_cast<LRESULT>(client->parent ? GetMenu(client->parent->handle)
                                                        : nullptr);
    case WM_SETFOCUS:
        if (state->active && IsWindow(state->active))
            SetFocus(state->active);
        return 0;
    case WM_SIZE:
        // A maximised child keeps filling the client area.
        for (Window* child : std::vector<Window*>(client->children))
            if (child->placement == Placement::Maximized) {
                RECT r = MaximizedRectOf(child);
                MoveWindow(child->handle, r.left, r.top, r.right - r.left, r.bottom - r.top, TRUE);
            }
        return 0;
    case WM_NCDESTROY:
        Clients().erase(hwnd);
        return DefWindowProc(hwnd, message, wParam, lParam);
    default:
        return DefWindowProc(hwnd, message, wParam, lParam);
    }
}

} // namespace platform::user
