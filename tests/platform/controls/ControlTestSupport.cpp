#include "ControlTestSupport.h"

#include <platform/MessagePump.h>

namespace controls_test {

namespace {

std::vector<std::string>& HostLog() {
    static std::vector<std::string> log;
    return log;
}

LRESULT HostProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND && lParam) {
        auto control = reinterpret_cast<HWND>(lParam);
        HostLog().push_back(CodeName(HIWORD(wParam), LOWORD(wParam)) + ":" +
                            Narrow(TextOf(control)));
        return 0;
    }
    return DefWindowProc(hwnd, message, wParam, lParam);
}

} // namespace

std::u16string TextOf(HWND hwnd) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLength(hwnd)), u'\0');
    if (!text.empty())
        GetWindowText(hwnd, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

std::string Narrow(const std::u16string& text) {
    std::string out;
    for (char16_t ch : text)
        out += ch == u'\r' ? '|' : ch == u'\n' ? '/' : ch < 0x80 ? static_cast<char>(ch) : '?';
    return out;
}

void RunUser() {
    for (int guard = 0; guard < 100000; ++guard) {
        MSG msg;
        bool any = false;
        while (PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE) && msg.message != WM_QUIT) {
            any = true;
            TranslateMessage(&msg);
            DispatchMessage(&msg);
            if (msg.message == WM_PAINT)
                ValidateRect(msg.hwnd, nullptr);
        }
        if (!any && !platform::automation::RunNext())
            return;
    }
}

Host::Host(int x, int y, int width, int height) {
    static bool registered = false;
    if (!registered) {
        WNDCLASS wc{};
        wc.lpfnWndProc = HostProc;
        wc.lpszClassName = u"ControlTestHost";
        wc.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
        RegisterClass(&wc);
        registered = true;
    }
    m_hwnd = CreateWindowEx(0, u"ControlTestHost", u"Host", WS_POPUP | WS_VISIBLE, x, y, width,
                            height, nullptr, nullptr, nullptr, nullptr);
    HostLog().clear();
}

Host::~Host() {
    DestroyWindow(m_hwnd);
    platform::PumpMessages();
    HostLog().clear();
}

HWND Host::Add(const char16_t* cls, DWORD style, int x, int y, int width, int height, UINT id,
               const char16_t* text) {
    HWND control =
        CreateWindowEx(0, cls, text, WS_CHILD | WS_VISIBLE | style, x, y, width, height, m_hwnd,
                       reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), nullptr, nullptr);
    SendMessage(control, WM_SETFONT, static_cast<WPARAM>(SendMessage(m_hwnd, WM_GETFONT, 0, 0)),
                FALSE);
    return control;
}

std::vector<std::string>& Host::Log() {
    return HostLog();
}

std::string CodeName(UINT code, UINT id) {
    if (IsButtonId(id))
        return code == BN_CLICKED ? "clicked" : "bn" + std::to_string(code);
    if (IsComboId(id)) {
        switch (code) {
        case CBN_SELCHANGE:
            return "selchange";
        case CBN_SETFOCUS:
            return "setfocus";
        case CBN_KILLFOCUS:
            return "killfocus";
        case CBN_EDITCHANGE:
            return "editchange";
        case CBN_EDITUPDATE:
            return "editupdate";
        case CBN_DROPDOWN:
            return "dropdown";
        case CBN_CLOSEUP:
            return "closeup";
        case CBN_SELENDOK:
            return "selendok";
        case CBN_SELENDCANCEL:
            return "selendcancel";
        default:
            return "cbn" + std::to_string(code);
        }
    }
    switch (code) {
    case EN_SETFOCUS:
        return "setfocus";
    case EN_KILLFOCUS:
        return "killfocus";
    case EN_UPDATE:
        return "update";
    case EN_CHANGE:
        return "change";
    case EN_MAXTEXT:
        return "maxtext";
    default:
        return "en" + std::to_string(code);
    }
}

std::vector<std::pair<int, int>> InkBands(HWND hwnd) {
    RECT client;
    GetClientRect(hwnd, &client);
    HDC hdc = GetDC(hwnd);
    std::vector<std::pair<int, int>> bands;
    for (int y = 0; y < client.bottom; ++y) {
        bool ink = false;
        for (int x = 2; x < client.right - 2 && !ink; ++x) {
            COLORREF c = GetPixel(hdc, x, y);
            ink = GetRValue(c) < 0x60 && GetGValue(c) < 0x60 && GetBValue(c) < 0x60;
        }
        if (!ink)
            continue;
        if (!bands.empty() && bands.back().second == y)
            bands.back().second = y + 1;
        else
            bands.emplace_back(y, y + 1);
    }
    ReleaseDC(hwnd, hdc);
    return bands;
}

} // namespace controls_test
