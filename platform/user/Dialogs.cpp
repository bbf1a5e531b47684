// The dialog manager: dialogs built from templates, their default window
// procedure, and EndDialog.
#include "DialogManager.h"
#include "WindowManager.h"

#include <platform/DialogUnits.h>
#include <platform/ResourceTemplates.h>
#include <wingdi.h>

#include <algorithm>
#include <memory>
#include <unordered_map>

using platform::user::DialogInfo;

namespace {

constexpr const WCHAR* kDialogClass = u"#32770";

std::unordered_map<HWND, std::unique_ptr<DialogInfo>>& Dialogs() {
    static auto* dialogs = new std::unordered_map<HWND, std::unique_ptr<DialogInfo>>();
    return *dialogs;
}

void RegisterDialogClass() {
    WNDCLASS wc{};
    if (GetClassInfo(nullptr, kDialogClass, &wc))
        return;
    wc.lpfnWndProc = DefDlgProc;
    wc.lpszClassName = kDialogClass;
    RegisterClass(&wc);
}

// The dialog's font: the template's face and size at 96 pixels per inch, or
// the system font when the template names none.
HFONT CreateDialogFont(const platform::DialogTemplate& tmpl, bool& owned) {
    owned = false;
    if (tmpl.pointSize == 0 || tmpl.faceName.empty())
        return static_cast<HFONT>(GetStockObject(SYSTEM_FONT));
    LOGFONT lf{};
    lf.lfHeight = -MulDiv(tmpl.pointSize, 96, 72);
    lf.lfWeight = tmpl.weight;
    lf.lfItalic = tmpl.italic;
    lf.lfCharSet = tmpl.charSet;
    std::size_t n = std::min<std::size_t>(tmpl.faceName.size(), LF_FACESIZE - 1);
    std::copy_n(tmpl.faceName.data(), n, lf.lfFaceName);
    HFONT font = CreateFontIndirect(&lf);
    owned = font != nullptr;
    return font ? font : static_cast<HFONT>(GetStockObject(SYSTEM_FONT));
}

// Does a control report itself as a push button that is the default?
bool IsDefaultButton(HWND control) {
    return (SendMessage(control, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0;
}

bool IsPushButton(HWND control) {
    return (SendMessage(control, WM_GETDLGCODE, 0, 0) &
            (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
}

LRESULT DefaultDialogMessage(HWND hwnd, DialogInfo* info, UINT message, WPARAM wParam,
                             LPARAM lParam) {
    switch (message) {
    case WM_ERASEBKGND: {
        RECT client;
        GetClientRect(hwnd, &client);
        FillRect(reinterpret_cast<HDC>(wParam), &client, GetSysColorBrush(COLOR_BTNFACE));
        return 1;
    }
    case WM_CLOSE: {
        HWND cancel = GetDlgItem(hwnd, IDCANCEL);
        if (cancel && !IsWindowEnabled(cancel))
            return 0;
        PostMessage(hwnd, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED),
                    reinterpret_cast<LPARAM>(cancel));
        return 0;
    }
    case DM_GETDEFID: {
        if (info->defId)
            return MAKELRESULT(info->defId, DC_HASDEFID);
        for (HWND child = GetWindow(hwnd, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            if (IsDefaultButton(child))
                return MAKELRESULT(GetDlgCtrlID(child), DC_HASDEFID);
        return 0;
    }
    case DM_SETDEFID: {
        // The old default button loses its look, or a later search would
        // still find it.
        UINT old = info->defId;
        if (!old)
            if (LRESULT found = DefaultDialogMessage(hwnd, info, DM_GETDEFID, 0, 0))
                old = LOWORD(found);
        info->defId = static_cast<UINT>(wParam);
        HWND oldButton = old ? GetDlgItem(hwnd, static_cast<int>(old)) : nullptr;
        if (oldButton && old != wParam && IsDefaultButton(oldButton))
            SendMessage(oldButton, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
        HWND newButton = wParam ? GetDlgItem(hwnd, static_cast<int>(wParam)) : nullptr;
        if (newButton && IsPushButton(newButton))
            SendMessage(newButton, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
        return TRUE;
    }
    case WM_SETFONT:
        info->font = reinterpret_cast<HFONT>(wParam);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(info->font);
    case WM_NEXTDLGCTL: {
        HWND target = nullptr;
        if (LOWORD(lParam))
            target = reinterpret_cast<HWND>(wParam);
        else
            target = GetNextDlgTabItem(hwnd, GetFocus(), wParam ? TRUE : FALSE);
        if (target)
            platform::user::FocusDialogControl(hwnd, target, true);
        return 0;
    }
    case WM_ACTIVATE:
        if (LOWORD(wParam) == WA_INACTIVE) {
            HWND focus = GetFocus();
            if (focus && IsChild(hwnd, focus))
                info->lastFocus = focus;
        }
        return 0;
    case WM_SETFOCUS: {
        HWND target = info->lastFocus && IsWindow(info->lastFocus) && IsChild(hwnd, info->lastFocus)
                          ? info->lastFocus
                          : GetNextDlgTabItem(hwnd, nullptr, FALSE);
        if (target)
            platform::user::FocusDialogControl(hwnd, target, false);
        return 0;
    }
    case WM_NCDESTROY: {
        LRESULT result = DefWindowProc(hwnd, message, wParam, lParam);
        if (info->ownsFont)
            DeleteObject(info->font);
        Dialogs().erase(hwnd);
        return result;
    }
    default:
        return DefWindowProc(hwnd, message, wParam, lParam);
    }
}

// Messages whose answer is the dialog procedure's own return value rather
// than DWLP_MSGRESULT.
bool AnswersDirectly(UINT message) {
    return message == WM_INITDIALOG || (message >= 0x0132 && message <= 0x0138) ||
           message == 0x0039 /* WM_COMPAREITEM */ || message == 0x002E /* WM_VKEYTOITEM */ ||
           message == 0x002F /* WM_CHARTOITEM */ || message == 0x0037 /* WM_QUERYDRAGICON */;
}

} // namespace

namespace platform::user {

DialogInfo* FindDialogInfo(HWND hwnd) {
    auto it = Dialogs().find(hwnd);
    return it == Dialogs().end() ? nullptr : it->second.get();
}

void FocusDialogControl(HWND, HWND control, bool selectAll) {
    SetFocus(control);
    if (selectAll && (SendMessage(control, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL))
        SendMessage(control, EM_SETSEL, 0, -1);
}

} // namespace platform::user

LRESULT DefDlgProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    DialogInfo* info = platform::user::FindDialogInfo(hwnd);
    if (!info)
        return DefWindowProc(hwnd, message, wParam, lParam);
    auto proc = reinterpret_cast<DLGPROC>(GetWindowLongPtr(hwnd, DWLP_DLGPROC));
    if (proc) {
        SetWindowLongPtr(hwnd, DWLP_MSGRESULT, 0);
        INT_PTR handled = proc(hwnd, message, wParam, lParam);
        if (handled)
            return AnswersDirectly(message) ? handled : GetWindowLongPtr(hwnd, DWLP_MSGRESULT);
        if (!platform::user::FindDialogInfo(hwnd))
            return 0;
    }
    return DefaultDialogMessage(hwnd, info, message, wParam, lParam);
}

HWND CreateDialogIndirectParam(HINSTANCE instance, LPCDLGTEMPLATE tmpl, HWND owner, DLGPROC proc,
                               LPARAM init) {
    if (!tmpl)
        return nullptr;
    RegisterDialogClass();
    auto info = std::make_unique<DialogInfo>();
    info->font = CreateDialogFont(*tmpl, info->ownsFont);
    platform::DialogBaseUnits base = platform::FontBaseUnits(info->font);
    info->baseX = base.cx;
    info->baseY = base.cy;
    const int baseX = info->baseX, baseY = info->baseY;
    auto toX = [baseX](int v) { return MulDiv(v, baseX, 4); };
    auto toY = [baseY](int v) { return MulDiv(v, baseY, 8); };

    DWORD style = tmpl->style;
    // The template gives the client area; the window is that plus the frame
    // its styles ask for. A modal frame is the extended style's.
    DWORD exStyle = tmpl->exStyle | ((style & DS_MODALFRAME) ? WS_EX_DLGMODALFRAME : 0);
    RECT frame{toX(tmpl->x), toY(tmpl->y), toX(tmpl->x) + toX(tmpl->cx),
               toY(tmpl->y) + toY(tmpl->cy)};
    AdjustWindowRectEx(&frame, style, FALSE, exStyle);
    int width = frame.right - frame.left, height = frame.bottom - frame.top;
    int x = frame.left, y = frame.top;
    if (!(style & WS_CHILD)) {
        // A pop-up's position is relative to its owner's client area; a
        // centred one sits in the middle of its owner, or of the desktop.
        RECT area{};
        HWND over = owner ? owner : GetDesktopWindow();
        GetWindowRect(over, &area);
        if ((style & DS_CENTER) || (tmpl->x == 0 && tmpl->y == 0)) {
            x = area.left + (area.right - area.left - width) / 2;
            y = area.top + (area.bottom - area.top - height) / 2;
        } else if (owner) {
            POINT origin{0, 0};
            ClientToScreen(owner, &origin);
            x += origin.x;
            y += origin.y;
        }
        x = std::max(0, x);
        y = std::max(0, y);
    }
    const WCHAR* className = tmpl->className.empty() ? kDialogClass : tmpl->className.c_str();
    HWND hwnd = CreateWindowEx(exStyle, className, tmpl->caption.c_str(),
                               style & ~static_cast<DWORD>(WS_VISIBLE), x, y, width, height, owner,
                               nullptr, instance, nullptr);
    if (!hwnd) {
        if (info->ownsFont)
            DeleteObject(info->font);
        return nullptr;
    }
    // The dialog procedure sees the dialog from its font on, as on the
    // original: creation messages go to the default procedure alone.
    DialogInfo* live = info.get();
    Dialogs()[hwnd] = std::move(info);
    SetWindowLongPtr(hwnd, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(proc));
    SendMessage(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(live->font), FALSE);
    if (!IsWindow(hwnd))
        return nullptr;
    (void)live;
    for (const platform::DialogItemTemplate& item : tmpl->items) {
        if (!IsWindow(hwnd))
            return nullptr;
        RECT at = platform::DialogItemRect(base, item);
        // An icon control's resource number goes as the original's ordinal
        // form: 0xFFFF, then the number.
        const bool icon = item.className == u"STATIC" && (item.style & SS_TYPEMASK) == SS_ICON;
        const std::u16string text =
            icon && item.textIsResourceId
                ? std::u16string{u'\xFFFF', static_cast<char16_t>(item.textResourceId)}
                : item.text;
        HWND control = CreateWindowEx(
            item.exStyle, item.className.c_str(), text.c_str(), item.style, at.left, at.top,
            at.right - at.left, at.bottom - at.top, hwnd,
            reinterpret_cast<HMENU>(static_cast<uintptr_t>(item.id)), instance, nullptr);
        if (!control) {
            DestroyWindow(hwnd);
            return nullptr;
        }
        if (DialogInfo* current = platform::user::FindDialogInfo(hwnd))
            SendMessage(control, WM_SETFONT, reinterpret_cast<WPARAM>(current->font), FALSE);
    }
    if (!IsWindow(hwnd))
        return nullptr;
    HWND first = GetNextDlgTabItem(hwnd, nullptr, FALSE);
    if (SendMessage(hwnd, WM_INITDIALOG, reinterpret_cast<WPARAM>(first), init) && IsWindow(hwnd)) {
        HWND focus = GetNextDlgTabItem(hwnd, nullptr, FALSE);
        if (focus)
            platform::user::FocusDialogControl(hwnd, focus, true);
    }
    if (IsWindow(hwnd) && (style & WS_VISIBLE))
        ShowWindow(hwnd, SW_SHOWNORMAL);
    return IsWindow(hwnd) ? hwnd : nullptr;
}

BOOL EndDialog(HWND hwnd, INT_PTR result) {
    DialogInfo* info = platform::user::FindDialogInfo(hwnd);
    if (!info)
        return FALSE;
    info->ended = true;
    info->result = result;
    return TRUE;
}
