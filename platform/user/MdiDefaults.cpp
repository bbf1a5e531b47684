// The default procedures of an MDI frame and of its document windows, and the
// Window menu that lists the documents.
#include "MdiClient.h"

#include <algorithm>
#include <string>

using platform::user::MdiClientState;
using platform::user::Window;
using platform::user::WindowManager;

namespace {

WindowManager& Manager() {
    return WindowManager::Instance();
}

// The Window menu lists at most nine documents, as "&1 title".
constexpr int kListedChildren = 9;
constexpr UINT kChildIdRange = 0x100;

HWND ClientOf(HWND child) {
    Window* window = Manager().Find(child);
    if (!window || !window->parent || !platform::user::FindMdiClient(window->parent->handle))
        return nullptr;
    return window->parent->handle;
}

} // namespace

namespace platform::user {

void RefreshMdiWindowMenu(HWND hwnd) {
    MdiClientState* state = FindMdiClient(hwnd);
    Window* client = Manager().Find(hwnd);
    if (!state || !client)
        return;
    // Children are numbered in creation order without gaps.
    std::vector<Window*> children;
    for (Window* child : client->children)
        if (child->exStyle & WS_EX_MDICHILD)
            children.push_back(child);
    std::sort(children.begin(), children.end(),
              [](const Window* a, const Window* b) { return a->id < b->id; });
    for (std::size_t i = 0; i < children.size(); ++i)
        children[i]->id = state->idFirstChild + static_cast<UINT>(i);

    HMENU menu = state->windowMenu;
    if (!IsMenu(menu))
        return;
    for (int pos = GetMenuItemCount(menu) - 1; pos >= 0; --pos) {
        UINT id = GetMenuItemID(menu, pos);
        if (id >= state->idFirstChild && id < state->idFirstChild + kChildIdRange)
            RemoveMenu(menu, static_cast<UINT>(pos), MF_BYPOSITION);
    }
    int count = GetMenuItemCount(menu);
    if (count > 0 &&
        (GetMenuState(menu, static_cast<UINT>(count - 1), MF_BYPOSITION) & MF_SEPARATOR))
        RemoveMenu(menu, static_cast<UINT>(count - 1), MF_BYPOSITION);
    int listed = 0;
    for (Window* child : children) {
        if (!child->visible || listed == kListedChildren)
            continue;
        if (listed == 0 && GetMenuItemCount(menu) > 0)
            AppendMenu(menu, MF_SEPARATOR, 0, nullptr);
        ++listed;
        std::u16string text =
            u"&" + std::u16string(1, static_cast<char16_t>(u'0' + listed)) + u" " + child->text;
        UINT flags = MF_STRING | (child->handle == state->active ? MF_CHECKED : MF_UNCHECKED);
        AppendMenu(menu, flags, child->id, text.c_str());
    }
}

} // namespace platform::user

LRESULT DefFrameProcW(HWND hwnd, HWND client, UINT message, WPARAM wParam, LPARAM lParam) {
    MdiClientState* state = client ? platform::user::FindMdiClient(client) : nullptr;
    if (!state)
        return DefWindowProc(hwnd, message, wParam, lParam);
    switch (message) {
    case WM_SETTEXT:
        state->frameText = lParam ? reinterpret_cast<LPCWSTR>(lParam) : u"";
        platform::user::UpdateMdiFrameText(client);
        return TRUE;
    case WM_SETFOCUS:
        SetFocus(client);
        return 0;
    case WM_SIZE:
        if (wParam != SIZE_MINIMIZED)
            MoveWindow(client, 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
        return 0;
    case WM_COMMAND: {
        // A document picked from the Window menu.
        const UINT id = LOWORD(wParam);
        if (lParam == 0 && id >= state->idFirstChild && id < state->idFirstChild + kChildIdRange) {
            Window* clientWindow = Manager().Find(client);
            for (Window* child : clientWindow->children)
                if ((child->exStyle & WS_EX_MDICHILD) && child->id == id) {
                    if (IsIconic(child->handle))
                        ShowWindow(child->handle, SW_RESTORE);
                    platform::user::ActivateMdiChild(client, child);
                    break;
                }
            return 0;
        }
        return DefWindowProc(hwnd, message, wParam, lParam);
    }
    default:
        return DefWindowProc(hwnd, message, wParam, lParam);
    }
}

LRESULT DefMDIChildProcW(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    HWND client = ClientOf(hwnd);
    MdiClientState* state = client ? platform::user::FindMdiClient(client) : nullptr;
    if (!state)
        return DefWindowProc(hwnd, message, wParam, lParam);
    Window* window = Manager().Find(hwnd);
    switch (message) {
    case WM_CHILDACTIVATE:
        platform::user::ActivateMdiChild(client, window);
        return 0;
    case WM_SETFOCUS:
        if (state->active != hwnd)
            platform::user::ActivateMdiChild(client, window);
        return DefWindowProc(hwnd, message, wParam, lParam);
    case WM_SIZE:
        if (state->active == hwnd) {
            platform::user::UpdateMdiFrameText(client);
            // A minimised active child hands the activation to the next one
            // that is not minimised.
            if (wParam == SIZE_MINIMIZED) {
                for (Window* other : window->parent->children)
                    if (other != window && (other->exStyle & WS_EX_MDICHILD) && other->visible &&
                        other->placement != Window::Placement::Minimized) {
                        platform::user::ActivateMdiChild(client, other);
                        break;
                    }
            }
        }
        return DefWindowProc(hwnd, message, wParam, lParam);
    case WM_SETTEXT: {
        LRESULT result = DefWindowProc(hwnd, message, wParam, lParam);
        if (state->active == hwnd)
            platform::user::UpdateMdiFrameText(client);
        platform::user::RefreshMdiWindowMenu(client);
        return result;
    }
    case WM_CLOSE:
        SendMessage(client, WM_MDIDESTROY, reinterpret_cast<WPARAM>(hwnd), 0);
        return 0;
    default:
        return DefWindowProc(hwnd, message, wParam, lParam);
    }
}
