// The message box: a dialog of the platform's own with an icon, the text and
// the buttons its type asks for.
#include "DialogManager.h"
#include "WindowManager.h"
#include "controls/ControlPaint.h"

#include <platform/ResourceTemplates.h>

#include <vector>

namespace {

struct ButtonSpec {
    int id;
    const WCHAR* text;
};

std::vector<ButtonSpec> ButtonsFor(UINT type) {
    switch (type & MB_TYPEMASK) {
    case MB_OKCANCEL:
        return {{IDOK, u"OK"}, {IDCANCEL, u"Cancel"}};
    case MB_ABORTRETRYIGNORE:
        return {{IDABORT, u"&Abort"}, {IDRETRY, u"&Retry"}, {IDIGNORE, u"&Ignore"}};
    case MB_YESNOCANCEL:
        return {{IDYES, u"&Yes"}, {IDNO, u"&No"}, {IDCANCEL, u"Cancel"}};
    case MB_YESNO:
        return {{IDYES, u"&Yes"}, {IDNO, u"&No"}};
    case MB_RETRYCANCEL:
        return {{IDRETRY, u"&Retry"}, {IDCANCEL, u"Cancel"}};
    case MB_CANCELTRYCONTINUE:
        return {{IDCANCEL, u"Cancel"}, {IDTRYAGAIN, u"&Try Again"}, {IDCONTINUE, u"&Continue"}};
    default:
        return {{IDOK, u"OK"}};
    }
}

struct MessageBoxData {
    std::u16string text;
    UINT type = 0;
    std::vector<ButtonSpec> buttons;
    int messageAreaHeight = 0;
};

constexpr int kMargin = 11;
constexpr int kIcon = 32;
constexpr int kButtonWidth = 75;
constexpr int kButtonHeight = 23;
constexpr int kButtonGap = 6;
constexpr int kMaxTextWidth = 420;

// The icon: a disc or a triangle with a sign in it, drawn with the GDI so
// that every pixel is exact.
void DrawIcon(HDC hdc, UINT icon, int x, int y) {
    if (!icon)
        return;
    COLORREF fill = icon == MB_ICONERROR         ? 0x2E1CE8
                    : icon == MB_ICONEXCLAMATION ? 0x00D7FF
                                                 : 0xC77A1F;
    COLORREF ink = icon == MB_ICONEXCLAMATION ? 0x000000 : 0xFFFFFF;
    HPEN pen = CreatePen(PS_SOLID, 1, fill);
    HBRUSH brush = CreateSolidBrush(fill);
    HGDIOBJ oldPen = SelectObject(hdc, pen);
    HGDIOBJ oldBrush = SelectObject(hdc, brush);
    if (icon == MB_ICONEXCLAMATION) {
        POINT triangle[] = {{x + 16, y + 1}, {x + 31, y + 30}, {x + 1, y + 30}};
        Polygon(hdc, triangle, 3);
    } else {
        POINT disc[32];
        static const int kOffsets[8][2] = {{15, 0},  {21, 1},  {26, 4},  {29, 8},
                                           {31, 13}, {31, 18}, {29, 23}, {26, 27}};
        // Eight points per quarter, mirrored.
        for (int i = 0; i < 8; ++i) {
            disc[i] = POINT{x + kOffsets[i][0] + 1, y + kOffsets[i][1]};
            disc[15 - i] = POINT{x + kOffsets[i][0] + 1, y + 31 - kOffsets[i][1]};
            disc[16 + i] = POINT{x + 31 - kOffsets[i][0], y + 31 - kOffsets[i][1]};
            disc[31 - i] = POINT{x + 31 - kOffsets[i][0], y + kOffsets[i][1]};
        }
        Polygon(hdc, disc, 32);
    }
    SelectObject(hdc, oldPen);
    SelectObject(hdc, oldBrush);
    DeleteObject(pen);
    DeleteObject(brush);

    LOGFONT lf{};
    lf.lfHeight = -22;
    lf.lfWeight = FW_BOLD;
    const char16_t face[] = u"Arial";
    std::copy(face, face + 6, lf.lfFaceName);
    HFONT font = CreateFontIndirect(&lf);
    HGDIOBJ oldFont = SelectObject(hdc, font);
    SetBkMode(hdc, TRANSPARENT);
    SetTextColor(hdc, ink);
    const WCHAR* sign = icon == MB_ICONERROR         ? u"X"
                        : icon == MB_ICONEXCLAMATION ? u"!"
                        : icon == MB_ICONQUESTION    ? u"?"
                                                     : u"i";
    RECT box{x, y + (icon == MB_ICONEXCLAMATION ? 6 : 2), x + 33, y + 32};
    DrawText(hdc, sign, 1, &box, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    SelectObject(hdc, oldFont);
    DeleteObject(font);
}

UINT IconOf(UINT type) {
    UINT icon = type & MB_ICONMASK;
    return icon == MB_ICONERROR || icon == MB_ICONQUESTION || icon == MB_ICONEXCLAMATION ||
                   icon == MB_ICONINFORMATION
               ? icon
               : 0;
}

bool HasButton(const MessageBoxData& data, int id) {
    for (const ButtonSpec& b : data.buttons)
        if (b.id == id)
            return true;
    return false;
}

void Layout(HWND dialog, MessageBoxData& data) {
    HFONT font = reinterpret_cast<HFONT>(SendMessage(dialog, WM_GETFONT, 0, 0));
    HDC screen = GetDC(nullptr);
    HGDIOBJ old = SelectObject(screen, font);
    RECT text{0, 0, kMaxTextWidth, 0};
    DrawText(screen, data.text.c_str(), static_cast<int>(data.text.size()), &text,
             DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX | DT_EXPANDTABS);
    SelectObject(screen, old);
    ReleaseDC(nullptr, screen);

    UINT icon = IconOf(data.type);
    int textLeft = kMargin + (icon ? kIcon + 12 : 0);
    int textHeight = text.bottom - text.top;
    int areaHeight = std::max(textHeight, icon ? kIcon : 0) + 2 * (kMargin + 4);
    int textTop = kMargin + 4 + (icon && textHeight < kIcon ? (kIcon - textHeight) / 2 : 0);
    int buttonsWidth =
        static_cast<int>(data.buttons.size()) * (kButtonWidth + kButtonGap) - kButtonGap;
    int width =
        std::max(textLeft + (text.right - text.left) + 2 * kMargin, buttonsWidth + 2 * kMargin);
    width = std::max(width, 180);
    int height = areaHeight + kButtonHeight + 2 * kMargin;
    data.messageAreaHeight = areaHeight;

    HWND label = CreateWindowEx(0, u"STATIC", data.text.c_str(),
                                WS_CHILD | WS_VISIBLE | SS_LEFT | SS_NOPREFIX, textLeft, textTop,
                                text.right - text.left + 1, textHeight, dialog,
                                reinterpret_cast<HMENU>(uintptr_t{0xFFFF}), nullptr, nullptr);
    SendMessage(label, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    int x = width - kMargin - buttonsWidth;
    int y = areaHeight + kMargin;
    for (const ButtonSpec& b : data.buttons) {
        HWND button =
            CreateWindowEx(0, u"BUTTON", b.text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON,
                           x, y, kButtonWidth, kButtonHeight, dialog,
                           reinterpret_cast<HMENU>(static_cast<uintptr_t>(b.id)), nullptr, nullptr);
        SendMessage(button, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        x += kButtonWidth + kButtonGap;
    }
    HWND owner = GetWindow(dialog, GW_OWNER);
    RECT over{};
    GetWindowRect(owner ? owner : GetDesktopWindow(), &over);
    // width and height are the client area's; the window adds its frame.
    RECT frame{0, 0, width, height};
    AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongPtr(dialog, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtr(dialog, GWL_EXSTYLE)));
    width = frame.right - frame.left;
    height = frame.bottom - frame.top;
    int left = std::max<LONG>(0, over.left + (over.right - over.left - width) / 2);
    int top = std::max<LONG>(0, over.top + (over.bottom - over.top - height) / 2);
    SetWindowPos(dialog, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);

    std::size_t index = (data.type & MB_DEFMASK) >> 8;
    if (index >= data.buttons.size())
        index = 0;
    int defId = data.buttons[index].id;
    SendMessage(dialog, DM_SETDEFID, static_cast<WPARAM>(defId), 0);
    SetFocus(GetDlgItem(dialog, defId));
}

INT_PTR MessageBoxProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* data = reinterpret_cast<MessageBoxData*>(GetWindowLongPtr(hwnd, DWLP_USER));
    switch (message) {
    case WM_INITDIALOG:
        SetWindowLongPtr(hwnd, DWLP_USER, lParam);
        Layout(hwnd, *reinterpret_cast<MessageBoxData*>(lParam));
        return FALSE;
    case WM_CTLCOLORSTATIC:
        return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_WINDOW));
    case WM_PAINT: {
        if (!data)
            return FALSE;
        PAINTSTRUCT ps;
        HDC hdc = BeginPaint(hwnd, &ps);
        RECT client;
        GetClientRect(hwnd, &client);
        RECT area{0, 0, client.right, data->messageAreaHeight};
        platform::user::FillSolid(hdc, area, GetSysColor(COLOR_WINDOW));
        DrawIcon(hdc, IconOf(data->type), kMargin, kMargin + 4);
        EndPaint(hwnd, &ps);
        return TRUE;
    }
    case WM_COMMAND: {
        if (!data)
            return FALSE;
        int id = LOWORD(wParam);
        if (id == IDCANCEL && !HasButton(*data, IDCANCEL)) {
            // Escape answers a box with only OK; it does nothing otherwise.
            if (data->buttons.size() == 1)
                EndDialog(hwnd, IDOK);
            return TRUE;
        }
        if (HasButton(*data, id))
            EndDialog(hwnd, id);
        return TRUE;
    }
    default:
        return FALSE;
    }
}

} // namespace

int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type) {
    if (owner && !IsWindow(owner))
        return 0;
    MessageBoxData data;
    data.text = text ? text : u"";
    data.type = type;
    data.buttons = ButtonsFor(type);
    platform::DialogTemplate tmpl;
    tmpl.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT;
    tmpl.caption = caption ? caption : u"Error";
    tmpl.pointSize = 8;
    tmpl.faceName = u"MS Shell Dlg";
    tmpl.x = 1; // placed by the layout, not by the dialog manager
    INT_PTR result = DialogBoxIndirectParam(nullptr, &tmpl, owner, MessageBoxProc,
                                            reinterpret_cast<LPARAM>(&data));
    return result < 0 ? 0 : static_cast<int>(result);
}
