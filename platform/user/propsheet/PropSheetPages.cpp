// Property sheet pages: the handles a caller makes, their templates and
// titles, their windows (made when a page is first shown) and the
// notifications the sheet sends them.
#include "PropSheet.h"

#include <platform/ResourceChain.h>
#include <platform/ResourceModule.h>

#include <algorithm>
#include <cstring>

namespace platform::user::propsheet {

namespace {

// A text parameter: the text itself, or a string resource number of module.
std::u16string TextOrResource(HINSTANCE module, LPCWSTR text) {
    if (!text)
        return {};
    if (!IS_INTRESOURCE(text))
        return text;
    WCHAR buffer[1024];
    int length = LoadStringW(module, static_cast<UINT>(reinterpret_cast<uintptr_t>(text)), buffer,
                             static_cast<int>(std::size(buffer)));
    return std::u16string(buffer, static_cast<std::size_t>(std::max(0, length)));
}

const platform::DialogTemplate* FindTemplate(const PROPSHEETPAGEW& psp) {
    if (psp.dwFlags & PSP_DLGINDIRECT)
        return psp.pResource;
    const platform::ResourceModule* module = platform::FindResources(psp.hInstance);
    return module && psp.pszTemplate
               ? module->FindDialog(platform::MakeResourceName(psp.pszTemplate))
               : nullptr;
}

// The page's window is a control of the sheet: no frame or caption of its
// own, hidden until it is shown, and its controls part of the sheet's tab
// order.
platform::DialogTemplate ChildTemplate(const platform::DialogTemplate& page) {
    platform::DialogTemplate child = page;
    constexpr DWORD kTopLevelStyles = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME |
                                      WS_MINIMIZEBOX | WS_MAXIMIZEBOX | DS_MODALFRAME | DS_CENTER |
                                      WS_VISIBLE | WS_DISABLED;
    child.style = (page.style & ~kTopLevelStyles) | WS_CHILD | DS_CONTROL;
    child.exStyle = (page.exStyle & ~static_cast<DWORD>(WS_EX_DLGMODALFRAME | WS_EX_CLIENTEDGE |
                                                        WS_EX_WINDOWEDGE)) |
                    WS_EX_CONTROLPARENT;
    child.x = 0;
    child.y = 0;
    return child;
}

} // namespace

bool ResolvePage(Page& page) {
    const PROPSHEETPAGEW& psp = *page.handle->Page();
    const platform::DialogTemplate* tmpl = FindTemplate(psp);
    if (!tmpl)
        return false;
    page.child = ChildTemplate(*tmpl);
    page.title =
        (psp.dwFlags & PSP_USETITLE) ? TextOrResource(psp.hInstance, psp.pszTitle) : tmpl->caption;
    return true;
}

bool EnsurePageWindow(Sheet& sheet, int index) {
    Page& page = sheet.pages[static_cast<std::size_t>(index)];
    if (page.hwnd)
        return true;
    PROPSHEETPAGEW* psp = page.handle->Page();
    if ((psp->dwFlags & PSP_USECALLBACK) && psp->pfnCallback &&
        !psp->pfnCallback(nullptr, PSPCB_CREATE, psp))
        return false;
    // The new page's dialog focuses its first control; a tab or button of
    // the sheet that had the focus keeps it.
    HWND focus = GetFocus();
    HWND hwnd = CreateDialogIndirectParam(psp->hInstance, &page.child, sheet.hwnd, psp->pfnDlgProc,
                                          reinterpret_cast<LPARAM>(psp));
    if (hwnd && focus && focus != GetFocus() && IsWindow(focus) && IsChild(sheet.hwnd, focus) &&
        IsChild(hwnd, GetFocus()))
        SetFocus(focus);
    // The page's initialisation may have removed it or closed the sheet.
    if (!hwnd || !IsWindow(sheet.hwnd) || SheetOf(sheet.hwnd) != &sheet ||
        index >= sheet.PageCount() ||
        sheet.pages[static_cast<std::size_t>(index)].handle != page.handle)
        return false;
    page.hwnd = hwnd;
    const RECT& area = sheet.pageRect;
    SetWindowPos(hwnd, HWND_TOP, area.left, area.top, area.right - area.left,
                 area.bottom - area.top, SWP_NOACTIVATE);
    return true;
}

LRESULT NotifyPage(Sheet& sheet, int index, UINT code, LPARAM lParam) {
    if (index < 0 || index >= sheet.PageCount())
        return 0;
    HWND page = sheet.pages[static_cast<std::size_t>(index)].hwnd;
    if (!page || !IsWindow(page))
        return 0;
    PSHNOTIFY notify{};
    notify.hdr.hwndFrom = sheet.hwnd;
    notify.hdr.idFrom = 0;
    notify.hdr.code = code;
    notify.lParam = lParam;
    return SendMessage(page, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notify));
}

int FindPageByResId(const Sheet& sheet, LRESULT id) {
    for (int i = 0; i < sheet.PageCount(); ++i) {
        const PROPSHEETPAGEW& psp = *sheet.pages[static_cast<std::size_t>(i)].handle->Page();
        LRESULT named = (psp.dwFlags & PSP_DLGINDIRECT)
                            ? reinterpret_cast<LRESULT>(psp.pResource)
                            : reinterpret_cast<LRESULT>(psp.pszTemplate);
        if (named == id)
            return i;
    }
    return -1;
}

int FindPageByHandle(const Sheet& sheet, HPROPSHEETPAGE handle) {
    for (int i = 0; i < sheet.PageCount(); ++i)
        if (sheet.pages[static_cast<std::size_t>(i)].handle == handle)
            return i;
    return -1;
}

int FindPageByWindow(const Sheet& sheet, HWND hwnd) {
    for (int i = 0; i < sheet.PageCount(); ++i)
        if (hwnd && sheet.pages[static_cast<std::size_t>(i)].hwnd == hwnd)
            return i;
    return -1;
}

bool AddPage(Sheet& sheet, HPROPSHEETPAGE handle) {
    Page page;
    page.handle = handle;
    if (!ResolvePage(page)) {
        DestroyPropertySheetPage(handle);
        return false;
    }
    sheet.pages.push_back(std::move(page));
    if (sheet.tab) {
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = sheet.pages.back().title.data();
        SendMessage(sheet.tab, TCM_INSERTITEMW, sheet.pages.size() - 1,
                    reinterpret_cast<LPARAM>(&item));
    }
    return true;
}

void RemovePage(Sheet& sheet, int index) {
    if (index < 0 || index >= sheet.PageCount())
        return;
    if (index == sheet.active) {
        // Another page takes its place first, as the user would see it.
        int next = index + 1 < sheet.PageCount() ? index + 1 : index - 1;
        if (next < 0 || !SetCurSel(sheet, next, next > index ? 1 : -1))
            sheet.active = -1;
    }
    Page page = std::move(sheet.pages[static_cast<std::size_t>(index)]);
    sheet.pages.erase(sheet.pages.begin() + index);
    if (sheet.active > index)
        --sheet.active;
    if (sheet.tab) {
        SendMessage(sheet.tab, TCM_DELETEITEM, static_cast<WPARAM>(index), 0);
        if (sheet.active >= 0)
            SendMessage(sheet.tab, TCM_SETCURSEL, static_cast<WPARAM>(sheet.active), 0);
    }
    if (page.hwnd && IsWindow(page.hwnd))
        DestroyWindow(page.hwnd);
    DestroyPropertySheetPage(page.handle);
}

std::u16string TabText(const Sheet& sheet, int index) {
    if (!sheet.tab)
        return {};
    WCHAR buffer[1024];
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = buffer;
    item.cchTextMax = static_cast<int>(std::size(buffer));
    buffer[0] = u'\0';
    if (!SendMessage(sheet.tab, TCM_GETITEMW, static_cast<WPARAM>(index),
                     reinterpret_cast<LPARAM>(&item)))
        return {};
    return buffer;
}

} // namespace platform::user::propsheet

HPROPSHEETPAGE CreatePropertySheetPageW(LPCPROPSHEETPAGEW page) {
    if (!page || page->dwSize < PROPSHEETPAGEW_V1_SIZE)
        return nullptr;
    auto* handle = new _PSP;
    // Room for the whole structure even when the caller's is an earlier,
    // shorter version: the fields it lacks stay zero.
    std::size_t bytes = std::max<std::size_t>(page->dwSize, sizeof(PROPSHEETPAGEW));
    handle->storage.resize((bytes + sizeof(std::max_align_t) - 1) / sizeof(std::max_align_t));
    std::memcpy(handle->storage.data(), page, page->dwSize);
    PROPSHEETPAGEW* copy = handle->Page();
    if ((copy->dwFlags & PSP_USECALLBACK) && copy->pfnCallback)
        copy->pfnCallback(nullptr, PSPCB_ADDREF, copy);
    return handle;
}

BOOL DestroyPropertySheetPage(HPROPSHEETPAGE handle) {
    if (!handle)
        return FALSE;
    PROPSHEETPAGEW* page = handle->Page();
    if ((page->dwFlags & PSP_USECALLBACK) && page->pfnCallback)
        page->pfnCallback(nullptr, PSPCB_RELEASE, page);
    delete handle;
    return TRUE;
}
