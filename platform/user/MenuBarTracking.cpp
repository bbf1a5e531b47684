// The menu bar at work: a press on one of its items opens that item's
// drop-down under it, and while a drop-down is open the pointer moving onto
// another item of the bar (or Left and Right) opens that one instead. Alt or
// F10 alone selects the bar's first item with none open: Left and Right move
// along the bar, Down, Enter or a letter open an item.
#include "MenuTracking.h"

#include "Keyboard.h"
#include "WindowManager.h"

#include <algorithm>

namespace platform::user {

namespace {

// The bar's items laid out in window coordinates.
std::vector<RECT> BarItemRects(const Window* window, const Menu& menu) {
    HDC screen = GetDC(nullptr);
    std::vector<RECT> rects = MenuBarItemRects(screen, menu, MenuBarRect(window));
    ReleaseDC(nullptr, screen);
    return rects;
}

void RedrawBar(HWND hwnd) {
    if (Window* window = WindowManager::Instance().Find(hwnd))
        RedrawFrame(window);
}

} // namespace

RECT MenuBarRect(const Window* window) {
    if (!window || (window->style & WS_CHILD) || !FindMenu(window->menu) || !window->HasFrame())
        return RECT{0, 0, 0, 0};
    const int edge = (window->exStyle & WS_EX_CLIENTEDGE) ? GetSystemMetrics(SM_CXEDGE) : 0;
    const int band = window->frame.left - edge;
    const int top = window->frame.top - edge;
    return RECT{band, top - GetSystemMetrics(SM_CYMENU), window->Width() - band, top};
}

int MenuBarItemAt(HWND hwnd, POINT screen) {
    const Window* window = WindowManager::Instance().Find(hwnd);
    const Menu* menu = window ? FindMenu(window->menu) : nullptr;
    if (!menu || (window->style & WS_CHILD))
        return -1;
    RECT outer{};
    GetWindowRect(hwnd, &outer);
    const POINT at{screen.x - outer.left, screen.y - outer.top};
    const std::vector<RECT> rects = BarItemRects(window, *menu);
    for (std::size_t i = 0; i < rects.size(); ++i)
        if (at.x >= rects[i].left && at.x < rects[i].right && at.y >= rects[i].top &&
            at.y < rects[i].bottom)
            return static_cast<int>(i);
    return -1;
}

int OpenMenuBarItem(HWND hwnd) {
    const TrackedPopup* tracking = CurrentPopup();
    return tracking && tracking->bar && tracking->owner == hwnd ? tracking->barItem : -1;
}

void SelectBarItem(TrackedPopup& tracking, int index) {
    const Menu* bar = FindMenu(tracking.bar);
    if (!bar || index < 0 || static_cast<std::size_t>(index) >= bar->items.size())
        return;
    CloseLevels(tracking, 0);
    tracking.barItem = index;
    RedrawBar(tracking.owner);
    const MenuItem& item = bar->items[static_cast<std::size_t>(index)];
    SendMessage(tracking.owner, WM_MENUSELECT,
                MAKEWPARAM(item.popup ? static_cast<UINT>(index) : item.id, item.flags),
                reinterpret_cast<LPARAM>(tracking.bar));
}

void SwitchBarItem(TrackedPopup& tracking, int index, bool keyboard) {
    const Window* window = WindowManager::Instance().Find(tracking.owner);
    const Menu* bar = FindMenu(tracking.bar);
    if (!window || !bar || index < 0 || static_cast<std::size_t>(index) >= bar->items.size())
        return;
    // Only an item with a drop-down opens.
    const MenuItem& item = bar->items[static_cast<std::size_t>(index)];
    if (!item.popup || (item.flags & (MF_GRAYED | MF_DISABLED)))
        return;
    CloseLevels(tracking, 0);
    tracking.barItem = index;
    RedrawBar(tracking.owner);
    RECT outer{};
    GetWindowRect(tracking.owner, &outer);
    const RECT under = BarItemRects(window, *bar)[static_cast<std::size_t>(index)];
    const bool opened = OpenLevel(tracking, item.popup, index, [&](SIZE size) {
        const int screenWidth = GetSystemMetrics(SM_CXSCREEN);
        const int screenHeight = GetSystemMetrics(SM_CYSCREEN);
        int x = std::min(static_cast<int>(outer.left + under.left), screenWidth - size.cx);
        int y = outer.top + under.bottom;
        // Above the bar when there is no room under it.
        if (y + size.cy > screenHeight)
            y = outer.top + under.top - size.cy;
        return POINT{std::max(0, x), std::max(0, y)};
    });
    if (opened && keyboard)
        MoveHot(tracking, 1);
}

namespace {

// Runs the bar of hwnd from its item at index: open (its drop-down shown) or
// only selected, as Alt and F10 leave it.
void RunMenuBar(HWND hwnd, int index, bool keyboard, bool open) {
    Window* window = WindowManager::Instance().Find(hwnd);
    if (!window || !FindMenu(window->menu) || CurrentPopup() || index < 0)
        return;
    const HMENU bar = window->menu;
    SendMessage(hwnd, WM_ENTERMENULOOP, FALSE, 0);
    SendMessage(hwnd, WM_INITMENU, reinterpret_cast<WPARAM>(bar), 0);
    TrackedPopup tracking;
    tracking.owner = hwnd;
    tracking.bar = bar;
    tracking.cues = keyboard;
    const Menu* menu = FindMenu(bar);
    if (IsWindow(hwnd) && menu && static_cast<std::size_t>(index) < menu->items.size()) {
        const MenuItem& item = menu->items[static_cast<std::size_t>(index)];
        if (!open) {
            SelectBarItem(tracking, index);
            RunMenuTracking(tracking);
        } else if (!item.popup) {
            // A command on the bar itself is picked at once.
            if (!(item.flags & (MF_GRAYED | MF_DISABLED | MF_SEPARATOR)))
                tracking.chosen = item.id;
        } else {
            SwitchBarItem(tracking, index, keyboard);
            RunMenuTracking(tracking);
        }
    }
    tracking.barItem = -1;
    if (!IsWindow(hwnd))
        return;
    RedrawBar(hwnd);
    SendMessage(hwnd, WM_EXITMENULOOP, FALSE, 0);
    if (tracking.chosen)
        PostMessage(hwnd, WM_COMMAND, MAKEWPARAM(tracking.chosen, 0), 0);
}

} // namespace

void TrackMenuBar(HWND hwnd, int index, bool keyboard) {
    RunMenuBar(hwnd, index, keyboard, true);
}

void KeyMenu(HWND hwnd, WCHAR ch) {
    WindowManager& manager = WindowManager::Instance();
    Window* window = manager.Find(hwnd);
    Window* top = window ? manager.TopLevel(window) : nullptr;
    const Menu* bar = top && !(top->style & WS_CHILD) ? FindMenu(top->menu) : nullptr;
    if (!bar)
        return;
    for (std::size_t i = 0; i < bar->items.size(); ++i) {
        const MenuItem& item = bar->items[i];
        if (item.flags & (MF_GRAYED | MF_DISABLED | MF_SEPARATOR))
            continue;
        // Alt or F10 alone selects the first item; a letter opens the item
        // it underlines.
        if (!ch) {
            RunMenuBar(top->handle, static_cast<int>(i), true, false);
            return;
        }
        if (SameMnemonic(MnemonicOf(item.text), ch)) {
            TrackMenuBar(top->handle, static_cast<int>(i), true);
            return;
        }
    }
}

} // namespace platform::user
