// PropertySheet: checks the request, builds the sheet's dialog and its first
// page, then runs it modally or hands the window back.
#include "../ModalLoop.h"
#include "PropSheet.h"

#include <memory>

namespace platform::user::propsheet {

namespace {

std::u16string Caption(const PROPSHEETHEADERW& header) {
    LPCWSTR text = header.pszCaption;
    if (!text)
        return {};
    if (!IS_INTRESOURCE(text))
        return text;
    WCHAR buffer[1024];
    int length = LoadStringW(header.hInstance, static_cast<UINT>(reinterpret_cast<uintptr_t>(text)),
                             buffer, static_cast<int>(std::size(buffer)));
    return std::u16string(buffer, static_cast<std::size_t>(length > 0 ? length : 0));
}

// The sheet's pages from the header; false when one has no template. The
// sheet owns every handle either way.
bool CollectPages(const PROPSHEETHEADERW& header, Sheet& sheet) {
    std::vector<HPROPSHEETPAGE> handles;
    // Structures follow each other, each as long as its own dwSize says.
    auto* entry = reinterpret_cast<const std::uint8_t*>(header.ppsp);
    for (UINT i = 0; i < header.nPages; ++i) {
        if (!(header.dwFlags & PSH_PROPSHEETPAGE)) {
            handles.push_back(header.phpage[i]);
            continue;
        }
        auto* page = reinterpret_cast<LPCPROPSHEETPAGEW>(entry);
        HPROPSHEETPAGE handle = CreatePropertySheetPageW(page);
        handles.push_back(handle);
        if (!handle)
            break;
        entry += page->dwSize;
    }
    bool ok = true;
    for (HPROPSHEETPAGE handle : handles) {
        Page page;
        page.handle = handle;
        if (!handle || !ResolvePage(page))
            ok = false;
        if (handle)
            sheet.pages.push_back(std::move(page));
    }
    return ok;
}

int StartPage(const PROPSHEETHEADERW& header, const Sheet& sheet) {
    if (!(header.dwFlags & PSH_USEPSTARTPAGE))
        return header.nStartPage < sheet.pages.size() ? static_cast<int>(header.nStartPage) : 0;
    for (int i = 0; i < sheet.PageCount(); ++i)
        if (sheet.pages[static_cast<std::size_t>(i)].title ==
            (header.pStartPage ? header.pStartPage : u""))
            return i;
    return 0;
}

void DestroyPages(Sheet& sheet) {
    for (Page& page : sheet.pages)
        DestroyPropertySheetPage(page.handle);
    sheet.pages.clear();
}

INT_PTR RunModal(HWND hwnd, HWND owner) {
    bool enableOwner = owner && IsWindowEnabled(owner);
    if (enableOwner)
        EnableWindow(owner, FALSE);
    auto sheet = [hwnd] { return SheetOf(hwnd); };
    ModalLoop loop;
    loop.window = hwnd;
    loop.keepGoing = [&] { return sheet() && !sheet()->ended; };
    loop.preTranslate = [hwnd](MSG& msg) {
        return SendMessage(hwnd, PSM_ISDIALOGMESSAGE, 0, reinterpret_cast<LPARAM>(&msg)) != 0;
    };
    loop.firstIdle = [hwnd] {
        if (IsWindow(hwnd) && !IsWindowVisible(hwnd))
            ShowWindow(hwnd, SW_SHOWNORMAL);
    };
    loop.forceCancel = [&] {
        if (sheet())
            EndSheet(*sheet(), 0);
    };
    platform::user::RunModal(loop);
    INT_PTR result = sheet() ? sheet()->result : 0;
    if (enableOwner)
        EnableWindow(owner, TRUE);
    if (owner && GetActiveWindow() == hwnd)
        SetActiveWindow(owner);
    if (IsWindow(hwnd))
        DestroyWindow(hwnd);
    return result;
}

} // namespace

} // namespace platform::user::propsheet

INT_PTR PropertySheetW(LPCPROPSHEETHEADERW header) {
    using namespace platform::user::propsheet;
    if (!header || header->dwSize < offsetof(PROPSHEETHEADERW, pfnCallback) ||
        (header->hwndParent && !IsWindow(header->hwndParent)))
        return -1;
    const bool modeless = (header->dwFlags & PSH_MODELESS) != 0;
    const INT_PTR failure = modeless ? 0 : -1;
    if (header->nPages == 0 || (!header->ppsp && !header->phpage))
        return failure;
    auto sheet = std::make_unique<Sheet>();
    sheet->flags = header->dwFlags;
    sheet->instance = header->hInstance;
    sheet->caption = Caption(*header);
    if (header->dwSize >= offsetof(PROPSHEETHEADERW, hbmWatermark) &&
        (header->dwFlags & PSH_USECALLBACK))
        sheet->callback = header->pfnCallback;
    if (!CollectPages(*header, *sheet)) {
        DestroyPages(*sheet);
        return failure;
    }
    sheet->startPage = StartPage(*header, *sheet);

    platform::DialogTemplate tmpl;
    tmpl.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT;
    tmpl.caption = sheet->caption;
    tmpl.pointSize = 8;
    tmpl.faceName = u"MS Shell Dlg";
    tmpl.x = 1; // placed by the sheet itself
    InitParams params;
    params.sheet = sheet.get();
    HWND hwnd = CreateDialogIndirectParam(header->hInstance, &tmpl, header->hwndParent, SheetProc,
                                          reinterpret_cast<LPARAM>(&params));
    if (params.adopted)
        static_cast<void>(sheet.release());
    else
        DestroyPages(*sheet);
    if (!hwnd)
        return failure;
    if (modeless) {
        ShowWindow(hwnd, SW_SHOWNORMAL);
        return reinterpret_cast<INT_PTR>(hwnd);
    }
    return RunModal(hwnd, header->hwndParent);
}
