// PrintDlg: check the request, run the dialog modally (or take the default
// printer), and hand back the printer's names, its settings, the page range
// and, when asked, its DC.
#include "PrintDialog.h"

#include "../CommonDialogError.h"

#include <platform/CodePage.h>
#include <platform/GdiObjects.h>
#include <platform/ResourceTemplates.h>

#include <algorithm>
#include <cstring>

namespace {

using platform::user::printdialog::DialogState;

BOOL Fail(DWORD error) {
    CommDlgLastError() = error;
    return FALSE;
}

// The three names of a DEVNAMES block; false when the block is unusable.
bool ReadDevNames(HGLOBAL block, std::u16string* device, std::u16string* output) {
    auto* names = static_cast<const DEVNAMES*>(GlobalLock(block));
    if (!names)
        return false;
    const std::size_t units = GlobalSize(block) / sizeof(WCHAR);
    const auto* text = reinterpret_cast<const WCHAR*>(names);
    auto read = [&](WORD offset, std::u16string* out) {
        if (offset < sizeof(DEVNAMES) / sizeof(WCHAR) || offset >= units)
            return false;
        std::size_t end = offset;
        while (end < units && text[end])
            ++end;
        if (end == units)
            return false;
        out->assign(text + offset, text + end);
        return true;
    };
    std::u16string driver;
    bool ok = read(names->wDriverOffset, &driver) && read(names->wDeviceOffset, device) &&
              read(names->wOutputOffset, output);
    GlobalUnlock(block);
    return ok;
}

HGLOBAL MakeDevNames(const std::u16string& device, const std::u16string& output, bool isDefault) {
    const std::u16string driver = u"WINSPOOL";
    const std::size_t head = sizeof(DEVNAMES) / sizeof(WCHAR);
    const std::size_t units = head + driver.size() + 1 + device.size() + 1 + output.size() + 1;
    if (units > 0xFFFF)
        return nullptr;
    HGLOBAL block = GlobalAlloc(GHND, units * sizeof(WCHAR));
    auto* names = static_cast<DEVNAMES*>(GlobalLock(block));
    if (!names)
        return GlobalFree(block);
    auto* text = reinterpret_cast<WCHAR*>(names);
    std::size_t at = head;
    auto put = [&](const std::u16string& value) {
        WORD offset = static_cast<WORD>(at);
        std::memcpy(text + at, value.data(), value.size() * sizeof(WCHAR));
        at += value.size() + 1;
        return offset;
    };
    names->wDriverOffset = put(driver);
    names->wDeviceOffset = put(device);
    names->wOutputOffset = put(output);
    names->wDefault = isDefault ? DN_DEFAULTPRN : 0;
    GlobalUnlock(block);
    return block;
}

HGLOBAL MakeDevMode(const std::u16string& device, int copies, bool collate) {
    HGLOBAL block = GlobalAlloc(GHND, sizeof(DEVMODEW));
    auto* mode = static_cast<DEVMODEW*>(GlobalLock(block));
    if (!mode)
        return GlobalFree(block);
    std::size_t count = std::min<std::size_t>(device.size(), CCHDEVICENAME - 1);
    std::memcpy(mode->dmDeviceName, device.data(), count * sizeof(WCHAR));
    mode->dmSize = sizeof(DEVMODEW);
    mode->dmFields = DM_ORIENTATION | DM_COPIES | DM_COLLATE;
    mode->dmOrientation = DMORIENT_PORTRAIT;
    mode->dmCopies = static_cast<short>(copies);
    mode->dmCollate = collate ? DMCOLLATE_TRUE : DMCOLLATE_FALSE;
    GlobalUnlock(block);
    return block;
}

// The chosen printer's names, settings, range and DC into the caller's
// record; the blocks it held are replaced.
BOOL Deliver(PRINTDLGW& pd, const DialogState& state) {
    const platform::PrinterInfo& printer = state.printers[state.printer];
    const bool devModeCopies = (pd.Flags & PD_USEDEVMODECOPIES) != 0;
    HGLOBAL names = MakeDevNames(printer.name, printer.toFile ? state.file : u"",
                                 printer.name == platform::DefaultPrinter());
    HGLOBAL mode = MakeDevMode(printer.name, devModeCopies ? state.copies : 1, state.collate);
    if (!names || !mode) {
        GlobalFree(names);
        GlobalFree(mode);
        return Fail(CDERR_INITIALIZATION);
    }
    GlobalFree(pd.hDevNames);
    GlobalFree(pd.hDevMode);
    pd.hDevNames = names;
    pd.hDevMode = mode;
    if (!(pd.Flags & PD_PRINTSETUP)) {
        pd.Flags &= ~static_cast<DWORD>(PD_PAGENUMS | PD_SELECTION | PD_COLLATE);
        if (state.pages) {
            pd.Flags |= PD_PAGENUMS;
            pd.nFromPage = static_cast<WORD>(state.from);
            pd.nToPage = static_cast<WORD>(state.to);
        }
        if (state.collate)
            pd.Flags |= PD_COLLATE;
        pd.nCopies = static_cast<WORD>(devModeCopies ? 1 : state.copies);
    }
    if (pd.Flags & (PD_RETURNDC | PD_RETURNIC)) {
        const auto* file = printer.toFile ? state.file.c_str() : u"";
        void* locked = GlobalLock(mode);
        pd.hDC = CreateDC(u"WINSPOOL", printer.name.c_str(), file, locked);
        GlobalUnlock(mode);
        if (!pd.hDC)
            return Fail(PDERR_CREATEICFAILURE);
    }
    return TRUE;
}

} // namespace

BOOL PrintDlgW(LPPRINTDLGW pd) {
    CommDlgLastError() = 0;
    if (!pd || pd->lStructSize != sizeof(PRINTDLGW))
        return Fail(CDERR_STRUCTSIZE);
    if (pd->hwndOwner && !IsWindow(pd->hwndOwner))
        return Fail(CDERR_INITIALIZATION);
    DialogState state;
    state.pd = pd;
    state.printers = platform::Printers();
    state.collate = (pd->Flags & PD_COLLATE) != 0;
    const std::u16string defaultName = platform::DefaultPrinter();
    std::u16string wanted = defaultName;
    std::u16string file;
    if (pd->Flags & PD_RETURNDEFAULT) {
        // The default printer, with nothing to start from.
        if (pd->hDevNames || pd->hDevMode)
            return Fail(PDERR_RETDEFFAILURE);
    } else if (pd->hDevNames) {
        if (!ReadDevNames(pd->hDevNames, &wanted, &file))
            return Fail(PDERR_PARSEFAILURE);
    }
    bool found = false;
    for (std::size_t i = 0; i < state.printers.size(); ++i)
        if (state.printers[i].name == wanted) {
            state.initialPrinter = state.printer = i;
            found = true;
        }
    if (!found)
        return Fail(PDERR_PRINTERNOTFOUND);
    state.initialFile = state.file =
        !file.empty() ? file
                      : std::u16string(platform::FromUtf8(platform::PrinterOutput()).GetString());
    if (pd->Flags & PD_RETURNDEFAULT)
        return Deliver(*pd, state);

    if (!(pd->Flags & PD_PRINTSETUP)) {
        if (pd->nMinPage > pd->nMaxPage)
            return Fail(PDERR_INITFAILURE);
        if ((pd->Flags & PD_PAGENUMS) &&
            (pd->nFromPage < pd->nMinPage || pd->nFromPage > pd->nMaxPage ||
             pd->nToPage < pd->nMinPage || pd->nToPage > pd->nMaxPage))
            return Fail(PDERR_INITFAILURE);
    }
    platform::DialogTemplate tmpl;
    tmpl.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT;
    tmpl.caption = (pd->Flags & PD_PRINTSETUP) ? u"Print Setup" : u"Print";
    tmpl.pointSize = 8;
    tmpl.faceName = u"MS Shell Dlg";
    tmpl.x = 1; // placed by the dialog itself
    INT_PTR result = DialogBoxIndirectParam(nullptr, &tmpl, pd->hwndOwner,
                                            platform::user::printdialog::PrintDialogProc,
                                            reinterpret_cast<LPARAM>(&state));
    if (result < 0)
        return Fail(CDERR_INITIALIZATION);
    if (result != IDOK)
        return FALSE;
    return Deliver(*pd, state);
}
