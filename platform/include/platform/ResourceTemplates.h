// The resources a host declares in its resource script, as the script reader
// leaves them in a module: dialog templates in dialog units, menus,
// accelerator tables and icons. The dialog manager, the menu code and the
// icon loader read these; nothing here knows the script's syntax.
#pragma once

#include "../windef.h"

#include <cstdint>
#include <string>
#include <vector>

namespace platform {

// A resource is named by a number (MAKEINTRESOURCE) or by a string; string
// names compare without regard to case (A to Z only), so they are kept
// upper-cased.
struct ResourceName {
    UINT id = 0;         // used when name is empty
    std::u16string name; // upper-cased; empty for a numbered resource

    bool operator==(const ResourceName& o) const { return id == o.id && name == o.name; }
};

// One control of a dialog template. Coordinates are dialog units.
struct DialogItemTemplate {
    // The window class: "BUTTON", "EDIT", "STATIC", "COMBOBOX", "LISTBOX",
    // "SCROLLBAR", or a registered class name such as "SysListView32",
    // as written in the script (predefined classes upper-cased).
    std::u16string className;
    std::u16string text;
    // Set when the text is a resource number (an ICON control's image).
    UINT textResourceId = 0;
    bool textIsResourceId = false;
    UINT id = 0;     // 0xFFFF for IDC_STATIC (-1)
    DWORD style = 0; // WS_CHILD | WS_VISIBLE and the statement's defaults included
    DWORD exStyle = 0;
    DWORD helpId = 0;
    short x = 0, y = 0, cx = 0, cy = 0;
};

// A DIALOG or DIALOGEX template.
struct DialogTemplate {
    bool extended = false; // DIALOGEX
    DWORD style = 0;
    DWORD exStyle = 0;
    DWORD helpId = 0;
    short x = 0, y = 0, cx = 0, cy = 0;
    std::u16string caption;
    std::u16string className; // empty for the dialog manager's own class
    ResourceName menu;        // id 0 and no name: none
    // The FONT statement; pointSize 0 when the template has none (the
    // system font is used then).
    WORD pointSize = 0;
    WORD weight = 0;
    BYTE italic = 0;
    BYTE charSet = 1;
    std::u16string faceName;
    std::vector<DialogItemTemplate> items;
};

// One entry of a dialog's initialisation data (DLGINIT): a message the
// framework sends to one of the dialog's controls once the controls exist,
// such as a list item of a combo box. message is as the script wrote it:
// 0x0403 adds a combo box item, 0x0401 a list box item.
struct DialogInitEntry {
    UINT controlId = 0;
    UINT message = 0;
    std::vector<std::uint8_t> data; // as written, in the script's code page
    std::u16string text;            // data up to its first NUL, decoded
};

// One MENUITEM or POPUP of a MENU. flags are MF_* bits: MF_POPUP for a
// popup with children, MF_SEPARATOR, MF_GRAYED, MF_DISABLED, MF_CHECKED,
// MF_MENUBARBREAK, MF_MENUBREAK, MF_HELP.
struct MenuItemTemplate {
    std::u16string text; // with its '&' mnemonics and '\t' accelerator text
    UINT id = 0;
    UINT flags = 0;
    std::vector<MenuItemTemplate> children;
};

struct MenuTemplate {
    std::vector<MenuItemTemplate> items;
};

// One entry of an ACCELERATORS table, as the original's ACCEL: fVirt holds
// FVIRTKEY, FNOINVERT, FSHIFT, FCONTROL, FALT.
struct AcceleratorTemplate {
    BYTE fVirt = 0;
    WORD key = 0;
    WORD cmd = 0;
};

// An ICON resource: the .ico file's bytes as the script named them.
struct IconTemplate {
    std::u16string fileName;
    std::vector<std::uint8_t> bytes;
};

} // namespace platform
