// The dialog manager's keyboard interface: Tab and the arrow keys move the
// focus, Enter presses the default button and Escape the Cancel button, and
// the letter a control's text underlines (with Alt, or alone where the focus
// takes no characters) goes to that control.
#include "DialogManager.h"
#include "Keyboard.h"
#include "WindowManager.h"

#include <algorithm>
#include <vector>

namespace {

// The control's own state: a dialog that is still hidden has tab stops too.
bool CanTakeFocus(HWND control) {
    auto style = static_cast<DWORD>(GetWindowLongPtr(control, GWL_STYLE));
    return (style & WS_VISIBLE) && !(style & WS_DISABLED);
}

DWORD Style(HWND hwnd) {
    return static_cast<DWORD>(GetWindowLongPtr(hwnd, GWL_STYLE));
}

// The dialog's direct child that contains control.
HWND DirectChild(HWND dialog, HWND control) {
    while (control && GetParent(control) != dialog)
        control = GetParent(control);
    return control;
}

LRESULT DialogCode(HWND control, const MSG* msg) {
    return SendMessage(control, WM_GETDLGCODE, msg ? msg->wParam : 0,
                       reinterpret_cast<LPARAM>(msg));
}

void PressButton(HWND dialog, int id) {
    HWND button = GetDlgItem(dialog, id);
    if (button && !IsWindowEnabled(button))
        return;
    SendMessage(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
}

} // namespace

namespace {

bool IsControlParent(HWND hwnd) {
    return (static_cast<DWORD>(GetWindowLongPtr(hwnd, GWL_EXSTYLE)) & WS_EX_CONTROLPARENT) != 0;
}

// The tab stops in tab order. A child that is a control parent (a property
// sheet's page) is no stop itself: its own stops take its place.
void CollectTabStops(HWND parent, std::vector<HWND>& stops) {
    for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (IsControlParent(child)) {
            if (CanTakeFocus(child))
                CollectTabStops(child, stops);
        } else if ((Style(child) & WS_TABSTOP) && CanTakeFocus(child)) {
            stops.push_back(child);
        }
    }
}

// The window whose controls form control's group: the nearest control
// parent above it, or the dialog.
HWND GroupContainer(HWND dialog, HWND control) {
    HWND container = control ? GetParent(control) : nullptr;
    while (container && container != dialog && !IsControlParent(container))
        container = GetParent(container);
    return container ? container : dialog;
}

// Every control of the dialog in tab order, those inside control parents
// (a property sheet's page) in their place.
void CollectControls(HWND parent, std::vector<HWND>& controls) {
    for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (!CanTakeFocus(child))
            continue;
        if (IsControlParent(child))
            CollectControls(child, controls);
        else
            controls.push_back(child);
    }
}

// The control after focus whose text underlines ch, wrapping round: a button
// is pressed (a check box or radio button takes the focus too), a label or
// group box sends the focus to the next control that takes it, any other
// control takes the focus. False when no control has the mnemonic.
bool GoToMnemonic(HWND dialog, HWND focus, WCHAR ch) {
    std::vector<HWND> controls;
    CollectControls(dialog, controls);
    const auto count = controls.size();
    auto start = std::find(controls.begin(), controls.end(), focus);
    const std::size_t first = start == controls.end() ? 0 : (start - controls.begin() + 1) % count;
    for (std::size_t k = 0; k < count; ++k) {
        const std::size_t i = (first + k) % count;
        WCHAR text[256] = {};
        GetWindowText(controls[i], text, 256);
        if (!platform::user::SameMnemonic(platform::user::MnemonicOf(text), ch))
            continue;
        const LRESULT code = DialogCode(controls[i], nullptr);
        if (code & DLGC_STATIC) {
            for (std::size_t n = 1; n < count; ++n) {
                HWND next = controls[(i + n) % count];
                if (!(DialogCode(next, nullptr) & DLGC_STATIC) && (Style(next) & WS_TABSTOP)) {
                    platform::user::FocusDialogControl(dialog, next, true);
                    return true;
                }
            }
            return true;
        }
        if (code & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) {
            SendMessage(controls[i], BM_CLICK, 0, 0);
            return true;
        }
        platform::user::FocusDialogControl(dialog, controls[i], true);
        if (code & DLGC_BUTTON)
            SendMessage(controls[i], BM_CLICK, 0, 0);
        return true;
    }
    return false;
}

} // namespace

HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous) {
    if (!IsWindow(dialog))
        return nullptr;
    std::vector<HWND> stops;
    CollectTabStops(dialog, stops);
    if (stops.empty())
        return nullptr;
    auto it = stops.end();
    for (HWND h = control; h && h != dialog && it == stops.end(); h = GetParent(h))
        it = std::find(stops.begin(), stops.end(), h);
    if (it == stops.end())
        return previous ? stops.back() : stops.front();
    if (previous)
        return it == stops.begin() ? stops.back() : *(it - 1);
    return it + 1 == stops.end() ? stops.front() : *(it + 1);
}

HWND GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous) {
    if (!IsWindow(dialog))
        return nullptr;
    control = DirectChild(dialog, control);
    if (!control)
        return nullptr;
    // The group runs from a control with WS_GROUP up to the next one.
    std::vector<HWND> all;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        all.push_back(child);
    auto at = std::find(all.begin(), all.end(), control);
    // A pop-up the dialog owns has the dialog as its parent but is none of its controls.
    if (at == all.end())
        return nullptr;
    auto first = at;
    while (first != all.begin() && !(Style(*first) & WS_GROUP))
        --first;
    auto last = at + 1;
    while (last != all.end() && !(Style(*last) & WS_GROUP))
        ++last;
    std::vector<HWND> group;
    for (auto it = first; it != last; ++it)
        if (*it == control || CanTakeFocus(*it))
            group.push_back(*it);
    auto it = std::find(group.begin(), group.end(), control);
    if (previous)
        return it == group.begin() ? group.back() : *(it - 1);
    return it + 1 == group.end() ? group.front() : *(it + 1);
}

BOOL IsDialogMessage(HWND dialog, LPMSG msg) {
    if (!msg || !IsWindow(dialog) || (msg->hwnd != dialog && !IsChild(dialog, msg->hwnd)))
        return FALSE;
    if (msg->message == WM_KEYDOWN) {
        HWND focus = msg->hwnd;
        LRESULT code = DialogCode(focus, msg);
        if (!(code & DLGC_WANTMESSAGE)) {
            switch (msg->wParam) {
            case VK_TAB:
                if (code & DLGC_WANTTAB)
                    break;
                if (HWND next = GetNextDlgTabItem(dialog, focus, GetKeyState(VK_SHIFT) < 0))
                    platform::user::FocusDialogControl(dialog, next, true);
                return TRUE;
            case VK_RETURN: {
                int id = IDOK;
                if (DialogCode(focus, nullptr) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) {
                    id = GetDlgCtrlID(focus);
                } else {
                    LRESULT def = SendMessage(dialog, DM_GETDEFID, 0, 0);
                    if (HIWORD(def) == DC_HASDEFID)
                        id = LOWORD(def);
                }
                PressButton(dialog, id);
                return TRUE;
            }
            case VK_ESCAPE:
                PressButton(dialog, IDCANCEL);
                return TRUE;
            case VK_LEFT:
            case VK_UP:
            case VK_RIGHT:
            case VK_DOWN: {
                if (code & DLGC_WANTARROWS)
                    break;
                bool back = msg->wParam == VK_LEFT || msg->wParam == VK_UP;
                HWND container = GroupContainer(dialog, focus);
                HWND next = GetNextDlgGroupItem(container, focus, back ? TRUE : FALSE);
                if (next && next != DirectChild(container, focus)) {
                    platform::user::FocusDialogControl(dialog, next, true);
                    if (DialogCode(next, nullptr) & DLGC_RADIOBUTTON)
                        SendMessage(next, BM_CLICK, 0, 0);
                }
                return TRUE;
            }
            default:
                break;
            }
        }
    }
    if (msg->message == WM_SYSCHAR || msg->message == WM_CHAR) {
        const auto ch = static_cast<WCHAR>(msg->wParam);
        const bool takesChars =
            msg->message == WM_CHAR &&
            (DialogCode(msg->hwnd, msg) & (DLGC_WANTCHARS | DLGC_WANTMESSAGE | DLGC_HASSETSEL));
        if (ch > u' ' && !takesChars && GoToMnemonic(dialog, msg->hwnd, ch))
            return TRUE;
    }
    TranslateMessage(msg);
    DispatchMessage(msg);
    return TRUE;
}
