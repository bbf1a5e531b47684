#include "SheetTestSupport.h"

namespace sheet_test {

const platform::DialogTemplate* Template(UINT id) {
    return platform::FindDialogTemplate(platform::MakeResourceName(id)).resource;
}

std::string CodeName(UINT code) {
    switch (code) {
    case PSN_SETACTIVE:
        return "SETACTIVE";
    case PSN_KILLACTIVE:
        return "KILLACTIVE";
    case PSN_APPLY:
        return "APPLY";
    case PSN_RESET:
        return "RESET";
    case PSN_HELP:
        return "HELP";
    case PSN_WIZBACK:
        return "WIZBACK";
    case PSN_WIZNEXT:
        return "WIZNEXT";
    case PSN_WIZFINISH:
        return "WIZFINISH";
    case PSN_QUERYCANCEL:
        return "QUERYCANCEL";
    default:
        return "?";
    }
}

INT_PTR ScriptedPageProc(HWND hwnd, UINT message, WPARAM, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        auto* psp = reinterpret_cast<PROPSHEETPAGEW*>(lParam);
        auto* script = reinterpret_cast<PageScript*>(psp->lParam);
        SetWindowLongPtr(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(script));
        script->hwnd = hwnd;
        script->journal->push_back(script->name + " INIT");
        return TRUE;
    }
    auto* script = reinterpret_cast<PageScript*>(GetWindowLongPtr(hwnd, GWLP_USERDATA));
    if (message != WM_NOTIFY || !script)
        return FALSE;
    auto* notify = reinterpret_cast<const PSHNOTIFY*>(lParam);
    std::string entry = script->name + " " + CodeName(notify->hdr.code);
    if (notify->hdr.code == PSN_APPLY)
        entry += notify->lParam ? " ok" : " apply";
    script->journal->push_back(entry);
    auto it = script->answers.find(notify->hdr.code);
    SetWindowLongPtr(hwnd, DWLP_MSGRESULT, it == script->answers.end() ? 0 : it->second);
    return TRUE;
}

HPROPSHEETPAGE MakePage(UINT templateId, PageScript* script, LPCWSTR title) {
    PROPSHEETPAGEW psp{};
    psp.dwSize = sizeof(psp);
    psp.dwFlags = PSP_DLGINDIRECT | (title ? PSP_USETITLE : 0);
    psp.pResource = Template(templateId);
    psp.pszTitle = title;
    psp.pfnDlgProc = ScriptedPageProc;
    psp.lParam = reinterpret_cast<LPARAM>(script);
    return CreatePropertySheetPage(&psp);
}

std::u16string TextOf(HWND hwnd) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLength(hwnd)), u'\0');
    if (!text.empty())
        GetWindowText(hwnd, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

std::u16string TabText(HWND tab, int index) {
    WCHAR buffer[512] = {0};
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = buffer;
    item.cchTextMax = 512;
    SendMessage(tab, TCM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    return buffer;
}

RECT RectIn(HWND parent, HWND child) {
    RECT rect{};
    GetWindowRect(child, &rect);
    POINT topLeft{rect.left, rect.top};
    POINT bottomRight{rect.right, rect.bottom};
    ScreenToClient(parent, &topLeft);
    ScreenToClient(parent, &bottomRight);
    return RECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
}

} // namespace sheet_test
