// The simulated user: a queue of actions run one per wait of the program.
#include "AutomationQueue.h"
#include "Keyboard.h"
#include "Menus.h"
#include "WindowManager.h"
#include "colordialog/ColorDialog.h"
#include "controls/Controls.h"
#include "filedialog/FileDialog.h"

#include <platform/Automation.h>

#include <commctrl.h>
#include <dlgs.h>

#include <algorithm>
#include <cstdio>
#include <deque>

namespace platform::automation {

namespace {

struct State {
    std::deque<std::function<void()>> actions;
    std::vector<std::string> record;
    int cancels = 0;
};

State& Current() {
    static auto* state = new State();
    return *state;
}

void PostKey(UINT vk, WCHAR ch) {
    HWND target = GetFocus();
    if (!target)
        target = GetActiveWindow();
    if (!target)
        return;
    PostMessage(target, WM_KEYDOWN, vk, platform::user::KeyDownParam(vk, ch));
    PostMessage(target, WM_KEYUP, vk, platform::user::KeyUpParam(vk, ch));
}

// The key and its modifiers, as the keyboard sends them: modifier down, key
// down and up, modifier up. The messages go to whatever has the focus when
// the action runs.
void PressKey(UINT vk, WCHAR ch, bool shift, bool control) {
    HWND target = GetFocus();
    if (!target)
        target = GetActiveWindow();
    if (!target)
        return;
    if (control)
        PostMessage(target, WM_KEYDOWN, VK_CONTROL, 1);
    if (shift)
        PostMessage(target, WM_KEYDOWN, VK_SHIFT, 1);
    PostKey(vk, ch);
    if (shift)
        PostMessage(target, WM_KEYUP, VK_SHIFT, static_cast<LPARAM>(0xC0000001u));
    if (control)
        PostMessage(target, WM_KEYUP, VK_CONTROL, static_cast<LPARAM>(0xC0000001u));
}

} // namespace

namespace detail {

std::string Narrow(const std::u16string& text) {
    std::string out;
    for (char16_t ch : text)
        out += ch < 0x80 ? static_cast<char>(ch) : '?';
    return out;
}

std::string Describe(HWND hwnd) {
    if (!hwnd)
        return "no window";
    std::u16string text(static_cast<std::size_t>(GetWindowTextLength(hwnd)), u'\0');
    if (!text.empty())
        GetWindowText(hwnd, text.data(), static_cast<int>(text.size()) + 1);
    return "'" + Narrow(text) + "'";
}

namespace {

HWND FindControlIn(HWND root, UINT id, bool shownOnly) {
    for (HWND child = GetWindow(root, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (shownOnly && !IsWindowVisible(child))
            continue;
        if (static_cast<UINT>(GetDlgCtrlID(child)) == id)
            return child;
        if (HWND found = FindControlIn(child, id, shownOnly))
            return found;
    }
    return nullptr;
}

} // namespace

HWND FindControl(HWND root, UINT id) {
    // What the user sees comes first: the pages of a property sheet that
    // are hidden may hold controls with the same id.
    if (HWND shown = FindControlIn(root, id, true))
        return shown;
    return FindControlIn(root, id, false);
}

void Note(std::string what) {
    Current().record.push_back(std::move(what));
}

void PostClick(HWND hwnd, POINT point) {
    POINT screen = point;
    ClientToScreen(hwnd, &screen);
    SetCursorPos(screen.x, screen.y);
    LPARAM where = MAKELPARAM(point.x, point.y);
    PostMessage(hwnd, WM_LBUTTONDOWN, MK_LBUTTON, where);
    PostMessage(hwnd, WM_LBUTTONUP, 0, where);
}

void Queue(std::function<void()> action) {
    Current().actions.push_back(std::move(action));
}

void QueueFirst(std::vector<std::function<void()>> actions) {
    auto& queue = Current().actions;
    queue.insert(queue.begin(), actions.begin(), actions.end());
}

void TypeChar(char16_t ch) {
    platform::user::KeyStroke stroke = platform::user::StrokeFor(ch);
    PressKey(stroke.vk, ch, stroke.shift, false);
}

} // namespace detail

using detail::Describe;
using detail::FindControl;
using detail::Narrow;
using detail::Note;
using detail::PostClick;
using detail::Queue;

namespace {

void ClickNow(UINT id) {
    HWND active = GetActiveWindow();
    HWND control = active ? FindControl(active, id) : nullptr;
    if (!control) {
        Note("click " + std::to_string(id) + ": no such control in " + Describe(active));
        return;
    }
    if (!IsWindowVisible(control) || !IsWindowEnabled(control)) {
        Note("click " + std::to_string(id) + ": control " + Describe(control) +
             " cannot be clicked");
        return;
    }
    RECT client;
    GetClientRect(control, &client);
    Note("click " + std::to_string(id) + " " + Describe(control));
    PostClick(control, POINT{client.right / 2, client.bottom / 2});
}

} // namespace

void Click(UINT id) {
    Queue([id] { ClickNow(id); });
}

void detail::ClickControl(UINT id) {
    ClickNow(id);
}

void ClickAt(HWND hwnd, POINT client) {
    Queue([hwnd, client] {
        if (!IsWindow(hwnd) || !IsWindowVisible(hwnd) || !IsWindowEnabled(hwnd)) {
            Note("click at a window that cannot be clicked");
            return;
        }
        Note("click at " + std::to_string(client.x) + "," + std::to_string(client.y) + " in " +
             Describe(hwnd));
        PostClick(hwnd, client);
    });
}

void Type(const std::u16string& text) {
    for (char16_t ch : text)
        Queue([ch] {
            platform::user::KeyStroke stroke = platform::user::StrokeFor(ch);
            PressKey(stroke.vk, ch, stroke.shift, false);
        });
    Queue([text] { Note("typed '" + Narrow(text) + "'"); });
}

void Key(UINT vk, bool shift, bool control) {
    Queue([vk, shift, control] {
        Note("key " + std::to_string(vk));
        PressKey(vk, 0, shift, control);
    });
}

namespace {

// The item's index: given, or the first whose text matches the whole text.
using ItemChooser = std::function<int(HWND combo)>;

void PickCombo(UINT id, ItemChooser choose, std::string what) {
    Queue([id, choose, what] {
        HWND active = GetActiveWindow();
        HWND combo = active ? FindControl(active, id) : nullptr;
        POINT arrow{};
        if (!combo || !platform::user::IsComboBox(combo)) {
            Note("pick " + what + " in " + std::to_string(id) + ": no such combo box");
            return;
        }
        if (!IsWindowVisible(combo) || !IsWindowEnabled(combo)) {
            Note("pick " + what + " in " + std::to_string(id) + ": combo box cannot be clicked");
            return;
        }
        int index = choose(combo);
        if (index < 0 || index >= static_cast<int>(SendMessage(combo, CB_GETCOUNT, 0, 0))) {
            Note("pick " + what + " in " + std::to_string(id) + ": no such item");
            return;
        }
        Note("pick " + what + " in " + std::to_string(id));
        // A simple combo box shows its list all the time.
        if (platform::user::ComboArrowPoint(combo, &arrow) &&
            !platform::user::IsComboDropped(combo))
            PostClick(combo, arrow);
        // The item is clicked as the next action, once the list is shown.
        Current().actions.push_front([combo, index, id] {
            HWND list = nullptr;
            POINT point{};
            if (!IsWindow(combo) || !platform::user::ComboItemPoint(combo, index, &list, &point)) {
                Note("pick in " + std::to_string(id) + ": the list did not drop");
                return;
            }
            PostMessage(list, WM_MOUSEMOVE, 0, MAKELPARAM(point.x, point.y));
            PostClick(list, point);
        });
    });
}

} // namespace

void PickComboItem(UINT id, int index) {
    PickCombo(
        id, [index](HWND) { return index; }, "item " + std::to_string(index));
}

void PickComboItem(UINT id, const std::u16string& text) {
    PickCombo(
        id,
        [text](HWND combo) {
            return static_cast<int>(SendMessage(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                                reinterpret_cast<LPARAM>(text.c_str())));
        },
        "'" + Narrow(text) + "'");
}

void SetCheck(UINT id, bool checked) {
    Queue([id, checked] {
        HWND active = GetActiveWindow();
        HWND box = active ? FindControl(active, id) : nullptr;
        if (!box) {
            Note("check " + std::to_string(id) + ": no such control");
            return;
        }
        bool isChecked = SendMessage(box, BM_GETCHECK, 0, 0) == 1;
        if (isChecked == checked)
            return;
        // The click runs as the next action, so it sees the box as it is then.
        Current().actions.push_front([id] {
            HWND active = GetActiveWindow();
            HWND box = active ? FindControl(active, id) : nullptr;
            if (!box || !IsWindowEnabled(box) || !IsWindowVisible(box)) {
                Note("check " + std::to_string(id) + ": cannot be clicked");
                return;
            }
            RECT client;
            GetClientRect(box, &client);
            Note("click " + std::to_string(id) + " " + Describe(box));
            PostClick(box, POINT{client.right / 2, client.bottom / 2});
        });
    });
}

void AnswerMessageBox(int result) {
    Click(static_cast<UINT>(result));
}

void PickMenuItem(UINT command) {
    Queue([command] {
        const std::string what = "menu " + std::to_string(command);
        HWND active = GetActiveWindow();
        HMENU bar = active ? GetMenu(active) : nullptr;
        std::vector<platform::user::MenuStep> path;
        if (!bar || !platform::user::FindMenuItemPath(bar, command, &path)) {
            Note(what + ": no such item in " + Describe(active));
            return;
        }
        SendMessage(active, WM_INITMENU, reinterpret_cast<WPARAM>(bar), 0);
        for (std::size_t i = 0; i + 1 < path.size() && IsWindow(active); ++i)
            SendMessage(active, WM_INITMENUPOPUP,
                        reinterpret_cast<WPARAM>(
                            GetSubMenu(path[i].menu, static_cast<int>(path[i].position))),
                        MAKELPARAM(path[i].position, 0));
        const platform::user::MenuStep& item = path.back();
        WCHAR text[256] = {};
        GetMenuString(item.menu, item.position, text, 256, MF_BYPOSITION);
        const UINT state = GetMenuState(item.menu, item.position, MF_BYPOSITION);
        if (!IsWindow(active) || state == static_cast<UINT>(-1) ||
            (state & (MF_GRAYED | MF_DISABLED))) {
            Note(what + " '" + Narrow(text) + "' is disabled");
            return;
        }
        Note(what + " '" + Narrow(text) + "'");
        PostMessage(active, WM_COMMAND, MAKEWPARAM(command, 0), 0);
    });
}

void Do(std::function<void()> step) {
    Queue(std::move(step));
}

bool RunNext() {
    State& state = Current();
    if (state.actions.empty())
        return false;
    std::function<void()> action = std::move(state.actions.front());
    state.actions.pop_front();
    action();
    return true;
}

std::size_t Pending() {
    return Current().actions.size();
}

void Reset() {
    State& state = Current();
    state.actions.clear();
    state.record.clear();
    state.cancels = 0;
}

const std::vector<std::string>& Record() {
    return Current().record;
}

int CancelsForWantOfActions() {
    return Current().cancels;
}

void NoteCancelled(HWND modal) {
    ++Current().cancels;
    Note("no action left: cancelled " + Describe(modal));
}

} // namespace platform::automation

// List view actions.
namespace platform::automation {

namespace {

HWND FindList(UINT listId, const char* action) {
    HWND active = GetActiveWindow();
    HWND list = active ? FindControl(active, listId) : nullptr;
    if (!list || !IsWindowVisible(list) || !IsWindowEnabled(list)) {
        Note(std::string(action) + " " + std::to_string(listId) + ": no list that can be used");
        return nullptr;
    }
    return list;
}

bool HeaderItemRect(HWND list, int column, HWND* header, RECT* rect) {
    *header = reinterpret_cast<HWND>(SendMessage(list, LVM_GETHEADER, 0, 0));
    return *header && IsWindowVisible(*header) &&
           SendMessage(*header, HDM_GETITEMRECT, static_cast<WPARAM>(column),
                       reinterpret_cast<LPARAM>(rect));
}

} // namespace

void ClickHeader(UINT listId, int column) {
    Queue([listId, column] {
        HWND list = FindList(listId, "header click");
        HWND header = nullptr;
        RECT rect{};
        if (!list)
            return;
        if (!HeaderItemRect(list, column, &header, &rect)) {
            Note("header click " + std::to_string(listId) + ": no column " +
                 std::to_string(column));
            return;
        }
        Note("header click " + std::to_string(listId) + " column " + std::to_string(column));
        PostClick(header, POINT{(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2});
    });
}

void DragHeaderDivider(UINT listId, int column, int dx) {
    Queue([listId, column, dx] {
        HWND list = FindList(listId, "header drag");
        HWND header = nullptr;
        RECT rect{};
        if (!list)
            return;
        if (!HeaderItemRect(list, column, &header, &rect)) {
            Note("header drag " + std::to_string(listId) + ": no column " + std::to_string(column));
            return;
        }
        Note("header drag " + std::to_string(listId) + " column " + std::to_string(column) +
             " by " + std::to_string(dx));
        int y = (rect.top + rect.bottom) / 2;
        PostMessage(header, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(rect.right, y));
        PostMessage(header, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(rect.right + dx / 2, y));
        PostMessage(header, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(rect.right + dx, y));
        PostMessage(header, WM_LBUTTONUP, 0, MAKELPARAM(rect.right + dx, y));
    });
}

void DoubleClickListItem(UINT listId, int item) {
    Queue([listId, item] {
        HWND list = FindList(listId, "list double-click");
        if (!list)
            return;
        SendMessage(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(item), FALSE);
        RECT rect{};
        rect.left = LVIR_LABEL;
        if (!SendMessage(list, LVM_GETITEMRECT, static_cast<WPARAM>(item),
                         reinterpret_cast<LPARAM>(&rect))) {
            Note("list double-click " + std::to_string(listId) + ": no item " +
                 std::to_string(item));
            return;
        }
        Note("list double-click " + std::to_string(listId) + " item " + std::to_string(item));
        LPARAM where = MAKELPARAM((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
        // The system's sequence: down, up, then the second press arrives as
        // a double click.
        PostClick(list, POINT{(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2});
        PostMessage(list, WM_LBUTTONDBLCLK, MK_LBUTTON, where);
        PostMessage(list, WM_LBUTTONUP, 0, where);
    });
}

void ClickListItem(UINT listId, int item, bool ctrl) {
    Queue([listId, item, ctrl] {
        HWND list = FindList(listId, "list click");
        if (!list)
            return;
        SendMessage(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(item), FALSE);
        RECT rect{};
        rect.left = LVIR_LABEL;
        if (!SendMessage(list, LVM_GETITEMRECT, static_cast<WPARAM>(item),
                         reinterpret_cast<LPARAM>(&rect))) {
            Note("list click " + std::to_string(listId) + ": no item " + std::to_string(item));
            return;
        }
        Note("list click " + std::to_string(listId) + " item " + std::to_string(item) +
             (ctrl ? " with ctrl" : ""));
        POINT screen{(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
        LPARAM where = MAKELPARAM(screen.x, screen.y);
        ClientToScreen(list, &screen);
        SetCursorPos(screen.x, screen.y);
        WPARAM keys = ctrl ? MK_CONTROL : 0;
        if (ctrl)
            PostMessage(list, WM_KEYDOWN, VK_CONTROL, 1);
        PostMessage(list, WM_LBUTTONDOWN, MK_LBUTTON | keys, where);
        PostMessage(list, WM_LBUTTONUP, keys, where);
        if (ctrl)
            PostMessage(list, WM_KEYUP, VK_CONTROL, static_cast<LPARAM>(0xC0000001u));
    });
}

} // namespace platform::automation

// The file dialog.
namespace platform::automation {

namespace {

std::u16string WindowTextOf(HWND hwnd) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLength(hwnd)), u'\0');
    if (!text.empty())
        GetWindowText(hwnd, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

std::u16string ListText(HWND list, int item) {
    WCHAR buffer[1024];
    LVITEMW lv{};
    lv.pszText = buffer;
    lv.cchTextMax = static_cast<int>(std::size(buffer));
    LRESULT copied = SendMessage(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(item),
                                 reinterpret_cast<LPARAM>(&lv));
    return std::u16string(buffer, static_cast<std::size_t>(copied));
}

} // namespace

void AnswerFileDialog(const std::u16string& path) {
    Queue([path] {
        HWND dialog = GetActiveWindow();
        if (!platform::user::filedialog::StateOf(dialog)) {
            Note("answer file dialog: " + Describe(dialog) + " is no file dialog");
            return;
        }
        Note("answer file dialog '" + Narrow(path) + "'");
        HWND field = GetDlgItem(dialog, edt1);
        SetFocus(field);
        SendMessage(field, EM_SETSEL, 0, -1);
        // The keys and the button press run as the next actions, in order.
        std::deque<std::function<void()>> steps;
        for (char16_t ch : path)
            steps.push_back([ch] {
                platform::user::KeyStroke stroke = platform::user::StrokeFor(ch);
                PressKey(stroke.vk, ch, stroke.shift, false);
            });
        steps.push_back([] { ClickNow(IDOK); });
        auto& actions = Current().actions;
        actions.insert(actions.begin(), steps.begin(), steps.end());
    });
}

bool ReadFileDialog(FileDialogView* view) {
    HWND dialog = GetActiveWindow();
    if (!view || !platform::user::filedialog::StateOf(dialog))
        return false;
    view->title = WindowTextOf(dialog);
    view->folder = WindowTextOf(GetDlgItem(dialog, cmb2));
    view->fileName = WindowTextOf(GetDlgItem(dialog, edt1));
    view->fileType = WindowTextOf(GetDlgItem(dialog, cmb1));
    view->names.clear();
    HWND list = GetDlgItem(dialog, lst1);
    int count = static_cast<int>(SendMessage(list, LVM_GETITEMCOUNT, 0, 0));
    for (int item = 0; item < count; ++item)
        view->names.push_back(ListText(list, item));
    return true;
}

} // namespace platform::automation

namespace platform::automation {

void PickColor(COLORREF colour) {
    colour &= 0xFFFFFF;
    Queue([colour] {
        namespace colordialog = platform::user::colordialog;
        HWND dialog = GetActiveWindow();
        if (!colordialog::StateOf(dialog)) {
            Note("pick colour: " + Describe(dialog) + " is no colour dialog");
            return;
        }
        char hex[16];
        std::snprintf(hex, sizeof hex, "%06X", static_cast<unsigned>(colour));
        Note(std::string("pick colour ") + hex);
        // The clicks and keys run as the next actions, in order.
        std::deque<std::function<void()>> steps;
        const auto& basic = colordialog::kBasicColours;
        auto swatch = std::find(basic.begin(), basic.end(), colour);
        if (swatch != basic.end()) {
            UINT id = static_cast<UINT>(colordialog::kFirstSwatch + (swatch - basic.begin()));
            steps.push_back([id] { ClickNow(id); });
        } else {
            const int fields[] = {COLOR_RED, COLOR_GREEN, COLOR_BLUE};
            for (int i = 0; i < 3; ++i) {
                HWND field = GetDlgItem(dialog, fields[i]);
                steps.push_back([field] {
                    SetFocus(field);
                    SendMessage(field, EM_SETSEL, 0, -1);
                });
                for (char ch : std::to_string((colour >> (8 * i)) & 0xFF))
                    steps.push_back([ch] {
                        platform::user::KeyStroke stroke =
                            platform::user::StrokeFor(static_cast<char16_t>(ch));
                        PressKey(stroke.vk, static_cast<char16_t>(ch), stroke.shift, false);
                    });
            }
        }
        steps.push_back([] { ClickNow(IDOK); });
        auto& actions = Current().actions;
        actions.insert(actions.begin(), steps.begin(), steps.end());
    });
}

bool ReadColorDialog(COLORREF* colour) {
    const auto* state = platform::user::colordialog::StateOf(GetActiveWindow());
    if (!colour || !state)
        return false;
    *colour = state->current;
    return true;
}

} // namespace platform::automation
