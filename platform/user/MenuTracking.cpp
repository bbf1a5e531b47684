// Running an open menu. Each open level is a window of its own above
// everything else; while the menu is open its loop takes every mouse and key
// message itself, as a menu that has the mouse captured would: the pointer
// over an item makes it hot and opens the pop-up it leads to, a release on
// an item picks it, a press outside the menu closes it (the press goes no
// further), and the keys move through the items and the levels.
#include "MenuTracking.h"

#include "Keyboard.h"
#include "ModalLoop.h"
#include "WindowManager.h"

#include <platform/Automation.h>
#include <platform/MessagePump.h>

#include <algorithm>

namespace platform::user {

namespace {

constexpr const WCHAR* kPopupClass = u"#32768";
// The mouse messages of the client and the non-client area.
constexpr UINT kClientMouseFirst = 0x0200, kClientMouseLast = 0x020E;
constexpr UINT kNonClientMouseFirst = 0x00A0, kNonClientMouseLast = 0x00AD;
// A pop-up opened from an item overlaps its level's window by this much.
constexpr int kCascadeOverlap = 3;
// A pop-up's border and padding above its first item.
constexpr int kFirstItemInset = 3;

TrackedPopup*& Current() {
    static TrackedPopup* current = nullptr;
    return current;
}

const MenuItem* ItemOf(const MenuLevel& level, int index) {
    const Menu* menu = FindMenu(level.menu);
    if (!menu || index < 0 || static_cast<std::size_t>(index) >= menu->items.size())
        return nullptr;
    return &menu->items[static_cast<std::size_t>(index)];
}

bool Greyed(const MenuItem& item) {
    return (item.flags & (MF_GRAYED | MF_DISABLED)) != 0;
}

LRESULT LevelProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    const TrackedPopup* tracking = Current();
    const MenuLevel* level = nullptr;
    if (tracking)
        for (const MenuLevel& open : tracking->levels)
            if (open.window == hwnd)
                level = &open;
    switch (message) {
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT: {
        PAINTSTRUCT ps;
        HDC hdc = BeginPaint(hwnd, &ps);
        RECT client;
        GetClientRect(hwnd, &client);
        if (const Menu* menu = level ? FindMenu(level->menu) : nullptr)
            PaintPopup(hdc, *menu, level->itemRects, level->hot, client, tracking->cues);
        EndPaint(hwnd, &ps);
        return 0;
    }
    default:
        return DefWindowProc(hwnd, message, wParam, lParam);
    }
}

void RegisterLevelClass() {
    WNDCLASS wc{};
    if (GetClassInfo(nullptr, kPopupClass, &wc))
        return;
    wc.lpfnWndProc = LevelProc;
    wc.lpszClassName = kPopupClass;
    RegisterClass(&wc);
}

} // namespace

void SetHot(TrackedPopup& tracking, std::size_t level, int index) {
    MenuLevel& open = tracking.levels[level];
    if (open.hot == index)
        return;
    open.hot = index;
    InvalidateRect(open.window, nullptr, FALSE);
    if (const MenuItem* item = ItemOf(open, index))
        SendMessage(tracking.owner, WM_MENUSELECT,
                    MAKEWPARAM(item->popup ? static_cast<UINT>(index) : item->id, item->flags),
                    reinterpret_cast<LPARAM>(open.menu));
}

void MoveHot(TrackedPopup& tracking, int step) {
    const std::size_t last = tracking.levels.size() - 1;
    const Menu* menu = FindMenu(tracking.levels[last].menu);
    const int count = menu ? static_cast<int>(menu->items.size()) : 0;
    int index = tracking.levels[last].hot;
    for (int tries = 0; tries < count; ++tries) {
        index = index < 0 ? (step > 0 ? 0 : count - 1) : (index + step + count) % count;
        if (!(menu->items[static_cast<std::size_t>(index)].flags & MF_SEPARATOR)) {
            SetHot(tracking, last, index);
            return;
        }
    }
}

namespace {

// Opens the pop-up of the item at index of level beside the item, or on its
// left where the screen ends on the right; from the keyboard its first item
// is hot.
bool OpenFromItem(TrackedPopup& tracking, std::size_t level, int index, bool keyboard) {
    const MenuItem* item = ItemOf(tracking.levels[level], index);
    if (!item || !item->popup || Greyed(*item))
        return false;
    if (static_cast<std::size_t>(index) >= tracking.levels[level].itemRects.size())
        return false;
    const HMENU popup = item->popup;
    if (level + 1 < tracking.levels.size() && tracking.levels[level + 1].menu == popup)
        return true;
    CloseLevels(tracking, level + 1);
    RECT from{};
    GetWindowRect(tracking.levels[level].window, &from);
    const RECT itemRect = tracking.levels[level].itemRects[static_cast<std::size_t>(index)];
    // Its first item level with the item that opens it.
    const int top = from.top + itemRect.top - kFirstItemInset;
    const bool opened = OpenLevel(tracking, popup, index, [&](SIZE size) {
        const int screenWidth = GetSystemMetrics(SM_CXSCREEN);
        const int screenHeight = GetSystemMetrics(SM_CYSCREEN);
        int x = from.right - kCascadeOverlap;
        if (x + size.cx > screenWidth)
            x = from.left - size.cx + kCascadeOverlap;
        const int y = std::min(top, screenHeight - static_cast<int>(size.cy));
        return POINT{std::max(0, x), std::max(0, y)};
    });
    if (opened && keyboard)
        MoveHot(tracking, 1);
    return opened;
}

// An item picked (a release on it, Enter, its mnemonic): a command ends the
// menu with it; a pop-up opens.
void Activate(TrackedPopup& tracking, std::size_t level, int index, bool keyboard) {
    const MenuItem* item = ItemOf(tracking.levels[level], index);
    if (!item || (item->flags & MF_SEPARATOR) || Greyed(*item))
        return;
    if (item->popup) {
        OpenFromItem(tracking, level, index, keyboard);
        return;
    }
    tracking.chosen = item->id;
    tracking.done = true;
}

// Where the mouse is: over an item of an open level (item -1 between items),
// over an item of the menu bar being tracked, or elsewhere.
struct MenuHit {
    int level = -1;
    int item = -1;
    int barItem = -1;
};

MenuHit HitTest(const TrackedPopup& tracking, POINT screen) {
    MenuHit hit;
    for (std::size_t i = tracking.levels.size(); i-- > 0;) {
        const MenuLevel& level = tracking.levels[i];
        RECT r{};
        GetWindowRect(level.window, &r);
        if (screen.x < r.left || screen.x >= r.right || screen.y < r.top || screen.y >= r.bottom)
            continue;
        hit.level = static_cast<int>(i);
        const POINT client{screen.x - r.left, screen.y - r.top};
        for (std::size_t k = 0; k < level.itemRects.size(); ++k) {
            const RECT& item = level.itemRects[k];
            if (client.x >= item.left && client.x < item.right && client.y >= item.top &&
                client.y < item.bottom)
                hit.item = static_cast<int>(k);
        }
        return hit;
    }
    if (tracking.bar)
        hit.barItem = MenuBarItemAt(tracking.owner, screen);
    return hit;
}

void OnMouseMove(TrackedPopup& tracking, const MenuHit& hit) {
    if (tracking.levels.empty())
        return;
    const std::size_t last = tracking.levels.size() - 1;
    if (hit.level >= 0) {
        const auto level = static_cast<std::size_t>(hit.level);
        const MenuItem* item = ItemOf(tracking.levels[level], hit.item);
        if (!item) {
            if (level == last)
                SetHot(tracking, level, -1);
            return;
        }
        SetHot(tracking, level, hit.item);
        if (!OpenFromItem(tracking, level, hit.item, false))
            CloseLevels(tracking, level + 1);
    } else if (hit.barItem >= 0 && hit.barItem != tracking.barItem) {
        SwitchBarItem(tracking, hit.barItem, false);
    } else if (hit.barItem < 0) {
        SetHot(tracking, last, -1);
    }
}

// The bar item at index, chosen with none open: its drop-down opens, or a
// command of the bar itself is picked when pick.
void OpenBarItem(TrackedPopup& tracking, int index, bool pick, bool keyboard) {
    const Menu* bar = FindMenu(tracking.bar);
    if (!bar || index < 0 || static_cast<std::size_t>(index) >= bar->items.size())
        return;
    const MenuItem& item = bar->items[static_cast<std::size_t>(index)];
    if ((item.flags & MF_SEPARATOR) || Greyed(item))
        return;
    if (item.popup) {
        SwitchBarItem(tracking, index, keyboard);
    } else if (pick) {
        tracking.chosen = item.id;
        tracking.done = true;
    }
}

bool IsPress(UINT message) {
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK:
    case WM_XBUTTONDOWN:
    case WM_XBUTTONDBLCLK:
        return true;
    default:
        return false;
    }
}

void OnMouse(TrackedPopup& tracking, const MSG& msg) {
    const bool nonClient =
        msg.message >= kNonClientMouseFirst && msg.message <= kNonClientMouseLast;
    // Non-client messages carry the screen point, the others the client one.
    POINT screen{static_cast<short>(LOWORD(msg.lParam)), static_cast<short>(HIWORD(msg.lParam))};
    if (!nonClient)
        ClientToScreen(msg.hwnd, &screen);
    // The non-client messages follow the client ones at 0x160 below.
    const UINT message = nonClient ? msg.message + (WM_MOUSEMOVE - WM_NCMOUSEMOVE) : msg.message;
    const MenuHit hit = HitTest(tracking, screen);
    if (message == WM_MOUSEMOVE) {
        OnMouseMove(tracking, hit);
    } else if (IsPress(message)) {
        if (hit.level >= 0)
            return;
        if (hit.barItem >= 0 && tracking.levels.empty())
            OpenBarItem(tracking, hit.barItem, true, false);
        else if (hit.barItem >= 0 && hit.barItem != tracking.barItem)
            SwitchBarItem(tracking, hit.barItem, false);
        else
            tracking.done = true;
    } else if ((message == WM_LBUTTONUP || message == WM_RBUTTONUP) && hit.level >= 0) {
        Activate(tracking, static_cast<std::size_t>(hit.level), hit.item, false);
    }
}

// The items of the last level whose mnemonic is ch.
std::vector<int> MnemonicMatches(const TrackedPopup& tracking, WCHAR ch) {
    std::vector<int> matches;
    const Menu* menu = FindMenu(tracking.levels.back().menu);
    for (std::size_t i = 0; menu && i < menu->items.size(); ++i)
        if (SameMnemonic(MnemonicOf(menu->items[i].text), ch))
            matches.push_back(static_cast<int>(i));
    return matches;
}

void OnChar(TrackedPopup& tracking, WCHAR ch) {
    const std::vector<int> matches = MnemonicMatches(tracking, ch);
    const std::size_t last = tracking.levels.size() - 1;
    if (matches.size() == 1) {
        SetHot(tracking, last, matches[0]);
        Activate(tracking, last, matches[0], true);
    } else if (!matches.empty()) {
        // Several items share the letter: each press moves to the next.
        auto next = std::upper_bound(matches.begin(), matches.end(), tracking.levels[last].hot);
        SetHot(tracking, last, next == matches.end() ? matches[0] : *next);
    }
}

// The next item of the bar left or right, wrapping round: with a drop-down
// open, the next that has a drop-down to open; with none, the next of all.
int NextBarItem(const TrackedPopup& tracking, int step) {
    const Menu* bar = FindMenu(tracking.bar);
    const int count = bar ? static_cast<int>(bar->items.size()) : 0;
    const bool opening = !tracking.levels.empty();
    int index = tracking.barItem;
    for (int tries = 0; tries < count; ++tries) {
        index = (index + step + count) % count;
        const MenuItem& item = bar->items[static_cast<std::size_t>(index)];
        if (opening ? item.popup && !Greyed(item) : !(item.flags & MF_SEPARATOR))
            return index;
    }
    return tracking.barItem;
}

// A key while the bar has an item selected and none open; ch is the
// character the key types, for the items' mnemonics.
void OnBarKey(TrackedPopup& tracking, UINT vk, WCHAR ch) {
    switch (vk) {
    case VK_ESCAPE:
    case VK_MENU:
    case VK_F10:
        tracking.done = true;
        return;
    case VK_LEFT:
    case VK_RIGHT:
        SelectBarItem(tracking, NextBarItem(tracking, vk == VK_RIGHT ? 1 : -1));
        return;
    case VK_DOWN:
    case VK_UP:
    case VK_RETURN:
        OpenBarItem(tracking, tracking.barItem, vk == VK_RETURN, true);
        return;
    default:
        break;
    }
    const Menu* bar = FindMenu(tracking.bar);
    for (std::size_t i = 0; bar && ch && i < bar->items.size(); ++i)
        if (SameMnemonic(MnemonicOf(bar->items[i].text), ch)) {
            OpenBarItem(tracking, static_cast<int>(i), true, true);
            return;
        }
}

void OnKey(TrackedPopup& tracking, UINT vk) {
    const std::size_t last = tracking.levels.size() - 1;
    const int barCount = tracking.bar ? GetMenuItemCount(tracking.bar) : 0;
    switch (vk) {
    case VK_ESCAPE:
        // From the bar's drop-down back to the bar, its item still selected.
        if (last > 0)
            CloseLevels(tracking, last);
        else if (tracking.bar)
            SelectBarItem(tracking, tracking.barItem);
        else
            tracking.done = true;
        break;
    case VK_DOWN:
        MoveHot(tracking, 1);
        break;
    case VK_UP:
        MoveHot(tracking, -1);
        break;
    case VK_RIGHT:
        if (!OpenFromItem(tracking, last, tracking.levels[last].hot, true) && barCount > 0)
            SwitchBarItem(tracking, NextBarItem(tracking, 1), true);
        break;
    case VK_LEFT:
        if (last > 0)
            CloseLevels(tracking, last);
        else if (barCount > 0)
            SwitchBarItem(tracking, NextBarItem(tracking, -1), true);
        break;
    case VK_RETURN:
        Activate(tracking, last, tracking.levels[last].hot, true);
        break;
    case VK_MENU:
    case VK_F10:
        tracking.done = true;
        break;
    default:
        break;
    }
}

bool Gone(const TrackedPopup& tracking) {
    if (!IsWindow(tracking.owner))
        return true;
    for (const MenuLevel& level : tracking.levels)
        if (!IsWindow(level.window))
            return true;
    return false;
}

} // namespace

const TrackedPopup* CurrentPopup() {
    return Current();
}

void EndMenuTracking() {
    if (TrackedPopup* tracking = Current())
        tracking->done = true;
}

bool OpenLevel(TrackedPopup& tracking, HMENU menu, int index,
               const std::function<POINT(SIZE)>& where) {
    SendMessage(tracking.owner, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu),
                MAKELPARAM(index, FALSE));
    const Menu* items = FindMenu(menu);
    if (!items || items->items.empty() || !IsWindow(tracking.owner))
        return false;
    RegisterLevelClass();
    MenuLevel level;
    level.menu = menu;
    HDC screen = GetDC(nullptr);
    const SIZE size = LayOutPopup(screen, *items, &level.itemRects);
    ReleaseDC(nullptr, screen);
    const POINT at = where(size);
    level.window =
        CreateWindowEx(WS_EX_TOOLWINDOW | WS_EX_TOPMOST, kPopupClass, u"", WS_POPUP, at.x, at.y,
                       size.cx, size.cy, tracking.owner, nullptr, nullptr, nullptr);
    if (!level.window)
        return false;
    tracking.levels.push_back(std::move(level));
    ShowWindow(tracking.levels.back().window, SW_SHOWNA);
    return true;
}

void CloseLevels(TrackedPopup& tracking, std::size_t keep) {
    while (tracking.levels.size() > keep) {
        const HWND window = tracking.levels.back().window;
        tracking.levels.pop_back();
        if (IsWindow(window))
            DestroyWindow(window);
    }
}

bool OpenPopupLevel(std::size_t level, int index) {
    TrackedPopup* tracking = Current();
    if (!tracking || level >= tracking->levels.size())
        return false;
    SetHot(*tracking, level, index);
    return OpenFromItem(*tracking, level, index, false);
}

bool RunMenuTracking(TrackedPopup& tracking) {
    struct Open {
        explicit Open(TrackedPopup* tracking) { Current() = tracking; }
        ~Open() { Current() = nullptr; }
        Open(const Open&) = delete;
        Open& operator=(const Open&) = delete;
    } open(&tracking);
    // The bar shows which of its items is open.
    if (Window* owner = tracking.bar ? WindowManager::Instance().Find(tracking.owner) : nullptr)
        RedrawFrame(owner);
    bool quit = false;
    // A menu bar stays in the loop with an item selected and none open.
    while (!tracking.done && (!tracking.levels.empty() || tracking.bar) && !Gone(tracking)) {
        MSG msg;
        if (!PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE)) {
            if (platform::RunIdle())
                continue;
            // Nobody is left to act: the menu goes as Escape would take it.
            platform::automation::NoteCancelled(
                tracking.levels.empty() ? tracking.owner : tracking.levels.back().window);
            break;
        }
        if (msg.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(msg.wParam));
            quit = true;
            break;
        }
        if (msg.message >= WM_KEYFIRST && msg.message <= WM_KEYLAST) {
            const bool down = msg.message == WM_KEYDOWN || msg.message == WM_SYSKEYDOWN;
            const auto vk = static_cast<UINT>(msg.wParam);
            if (tracking.levels.empty()) {
                // The bar alone has no window to take characters: the key's
                // own letter is the mnemonic.
                if (down)
                    OnBarKey(tracking, vk, CharacterFor(vk, false, false));
                continue;
            }
            // The characters the keys make go to the menu's window too, and
            // go with it: none reaches the window that had the focus.
            msg.hwnd = tracking.levels.back().window;
            if (down) {
                TranslateMessage(&msg);
                OnKey(tracking, vk);
            } else if (msg.message == WM_CHAR || msg.message == WM_SYSCHAR) {
                OnChar(tracking, static_cast<WCHAR>(msg.wParam));
            }
            continue;
        }
        if ((msg.message >= kClientMouseFirst && msg.message <= kClientMouseLast) ||
            (msg.message >= kNonClientMouseFirst && msg.message <= kNonClientMouseLast)) {
            if (IsWindow(msg.hwnd))
                OnMouse(tracking, msg);
            continue;
        }
        TranslateMessage(&msg);
        DispatchMessage(&msg);
        SettlePaint(msg);
    }
    CloseLevels(tracking, 0);
    if (IsWindow(tracking.owner))
        SendMessage(tracking.owner, WM_MENUSELECT, MAKEWPARAM(0, 0xFFFF), 0);
    return !quit;
}

} // namespace platform::user
