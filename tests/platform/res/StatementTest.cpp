// Each control statement's implied class and style, the dialog's own
// statements, menus, accelerators and string-named resources.
#include "ScriptFiles.h"

#include <commctrl.h>
#include <winuser.h>

#include <gtest/gtest.h>

using namespace res_test;

namespace {

platform::DialogItemTemplate OnlyControl(const std::string& statement) {
    const platform::ResourceScript s = Read(DialogWith(statement));
    EXPECT_EQ(s.dialogs.size(), 1u);
    EXPECT_EQ(s.dialogs.at(0).second.items.size(), 1u);
    return s.dialogs.at(0).second.items.at(0);
}

constexpr DWORD kChild = WS_CHILD | WS_VISIBLE;

} // namespace

TEST(ControlStatements, EachGivesItsClassAndDefaultStyle) {
    const struct {
        const char* statement;
        const char16_t* className;
        DWORD style;
    } cases[] = {
        {"LTEXT \"t\", 1, 1, 2, 3, 4", u"STATIC", SS_LEFT | WS_GROUP},
        {"CTEXT \"t\", 1, 1, 2, 3, 4", u"STATIC", SS_CENTER | WS_GROUP},
        {"RTEXT \"t\", 1, 1, 2, 3, 4", u"STATIC", SS_RIGHT | WS_GROUP},
        {"PUSHBUTTON \"t\", 1, 1, 2, 3, 4", u"BUTTON", BS_PUSHBUTTON | WS_TABSTOP},
        {"DEFPUSHBUTTON \"t\", 1, 1, 2, 3, 4", u"BUTTON", BS_DEFPUSHBUTTON | WS_TABSTOP},
        {"CHECKBOX \"t\", 1, 1, 2, 3, 4", u"BUTTON", BS_CHECKBOX | WS_TABSTOP},
        {"AUTOCHECKBOX \"t\", 1, 1, 2, 3, 4", u"BUTTON", BS_AUTOCHECKBOX | WS_TABSTOP},
        {"RADIOBUTTON \"t\", 1, 1, 2, 3, 4", u"BUTTON", BS_RADIOBUTTON | WS_TABSTOP},
        {"AUTORADIOBUTTON \"t\", 1, 1, 2, 3, 4", u"BUTTON", BS_AUTORADIOBUTTON | WS_TABSTOP},
        {"STATE3 \"t\", 1, 1, 2, 3, 4", u"BUTTON", BS_3STATE | WS_TABSTOP},
        {"AUTO3STATE \"t\", 1, 1, 2, 3, 4", u"BUTTON", BS_AUTO3STATE | WS_TABSTOP},
        {"GROUPBOX \"t\", 1, 1, 2, 3, 4", u"BUTTON", BS_GROUPBOX},
        {"EDITTEXT 1, 1, 2, 3, 4", u"EDIT", ES_LEFT | WS_BORDER | WS_TABSTOP},
        {"COMBOBOX 1, 1, 2, 3, 4", u"COMBOBOX", CBS_SIMPLE | WS_TABSTOP},
        {"LISTBOX 1, 1, 2, 3, 4", u"LISTBOX", LBS_NOTIFY | WS_BORDER},
        {"SCROLLBAR 1, 1, 2, 3, 4", u"SCROLLBAR", SBS_HORZ},
        {"ICON 128, 1, 1, 2, 3, 4", u"STATIC", SS_ICON},
        {"CONTROL \"t\", 1, \"SysListView32\", LVS_REPORT, 1, 2, 3, 4", u"SysListView32",
         LVS_REPORT},
        {"CONTROL \"t\", 1, button, BS_OWNERDRAW, 1, 2, 3, 4", u"BUTTON", BS_OWNERDRAW},
        {"CONTROL \"t\", 1, \"Static\", SS_ETCHEDHORZ, 1, 2, 3, 4", u"STATIC", SS_ETCHEDHORZ},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.statement);
        const platform::DialogItemTemplate item = OnlyControl(c.statement);
        EXPECT_EQ(item.className, c.className);
        EXPECT_EQ(item.style, kChild | c.style);
        EXPECT_EQ(item.id, 1u);
        EXPECT_EQ((std::vector<short>{item.x, item.y, item.cx, item.cy}),
                  (std::vector<short>{1, 2, 3, 4}));
    }
}

TEST(ControlStatements, StylesAddToTheDefaultsAndNotTakesBitsAway) {
    EXPECT_EQ(OnlyControl("EDITTEXT 1, 0, 0, 9, 9, ES_MULTILINE | NOT WS_BORDER").style,
              kChild | ES_LEFT | WS_TABSTOP | ES_MULTILINE);
    EXPECT_EQ(OnlyControl("LTEXT \"a\", 1, 0, 0, 9, 9, NOT WS_GROUP | SS_NOPREFIX").style,
              kChild | SS_LEFT | SS_NOPREFIX);
    // NOT applies in order: what a later term sets stays set.
    EXPECT_EQ(OnlyControl("PUSHBUTTON \"a\", 1, 0, 0, 9, 9, NOT WS_TABSTOP | WS_TABSTOP").style,
              kChild | WS_TABSTOP);
    EXPECT_EQ(
        OnlyControl("CONTROL \"\", 1, \"Button\", NOT WS_VISIBLE | BS_AUTOCHECKBOX, 0, 0, 9, 9")
            .style,
        DWORD(WS_CHILD | BS_AUTOCHECKBOX));
    const auto item = OnlyControl(
        "EDITTEXT 7, 0, 0, 9, 9, ES_AUTOHSCROLL, WS_EX_CLIENTEDGE | WS_EX_STATICEDGE, 55");
    EXPECT_EQ(item.exStyle, DWORD(WS_EX_CLIENTEDGE | WS_EX_STATICEDGE));
    EXPECT_EQ(item.helpId, 55u);
}

TEST(ControlStatements, TextsIdsAndIcons) {
    const auto icon = OnlyControl("ICON 128, IDC_STATIC, 4, 5");
    EXPECT_TRUE(icon.textIsResourceId);
    EXPECT_EQ(icon.textResourceId, 128u);
    EXPECT_EQ(icon.id, 0xFFFFu);
    EXPECT_EQ(icon.cx, 0);
    const auto named = OnlyControl("ICON AppIcon, -1, 4, 5, 20, 20");
    EXPECT_FALSE(named.textIsResourceId);
    EXPECT_EQ(named.text, u"APPICON");
    EXPECT_EQ(named.cx, 20);
    // Negative coordinates stay negative.
    const auto moved = OnlyControl("LTEXT \"x\", 3, -4, -(2 + 3), 10, 8");
    EXPECT_EQ(moved.x, -4);
    EXPECT_EQ(moved.y, -5);
}

TEST(DialogStatements, DefaultsCaptionFontMenuAndClass) {
    // Without STYLE: a popup with a border and system menu; CAPTION adds the
    // caption bits and FONT the set-font bit.
    auto s = Read("1 DIALOG 10, 20, 30, 40\nCAPTION \"Hi\"\nFONT 9, \"Tahoma\"\nMENU 300\n"
                  "CLASS \"MyClass\"\nBEGIN\nEND\n");
    ASSERT_EQ(s.dialogs.size(), 1u);
    const platform::DialogTemplate& d = s.dialogs[0].second;
    EXPECT_FALSE(d.extended);
    EXPECT_EQ(d.style, DWORD(WS_POPUP | WS_BORDER | WS_SYSMENU | WS_CAPTION | DS_SETFONT));
    EXPECT_EQ(d.caption, u"Hi");
    EXPECT_EQ(d.pointSize, 9);
    EXPECT_EQ(d.faceName, u"Tahoma");
    EXPECT_EQ(d.menu.id, 300u);
    EXPECT_EQ(d.className, u"MyClass");
    EXPECT_EQ((std::vector<short>{d.x, d.y, d.cx, d.cy}), (std::vector<short>{10, 20, 30, 40}));

    s = Read("2 DIALOGEX 0, 0, 50, 50, 77\nSTYLE WS_CHILD\nEXSTYLE WS_EX_TOOLWINDOW\n"
             "FONT 8, \"MS Shell Dlg\", 700, 1, 0\nMENU MainMenu\nBEGIN\nEND\n");
    const platform::DialogTemplate& e = s.dialogs[0].second;
    EXPECT_TRUE(e.extended);
    EXPECT_EQ(e.style, DWORD(WS_CHILD | DS_SETFONT));
    EXPECT_EQ(e.exStyle, DWORD(WS_EX_TOOLWINDOW));
    EXPECT_EQ(e.helpId, 77u);
    EXPECT_EQ(e.weight, 700);
    EXPECT_EQ(e.italic, 1);
    EXPECT_EQ(e.charSet, 0);
    EXPECT_EQ(e.menu.name, u"MAINMENU");
}

TEST(Resources, NamedByStringsOrUndefinedNamesUpperCased) {
    const auto s = Read("Settings DIALOGEX 0, 0, 10, 10\nBEGIN\nEND\n"
                        "\"Other Menu\" MENU\nBEGIN\nMENUITEM \"a\", 5\nEND\n"
                        "#define NUMBERED 42\nNUMBERED ACCELERATORS\nBEGIN\n\"a\", 1\nEND\n");
    ASSERT_EQ(s.dialogs.size(), 1u);
    EXPECT_EQ(s.dialogs[0].first.name, u"SETTINGS");
    ASSERT_EQ(s.menus.size(), 1u);
    EXPECT_EQ(s.menus[0].first.name, u"OTHER MENU");
    ASSERT_EQ(s.accelerators.size(), 1u);
    EXPECT_TRUE(s.accelerators[0].first.name.empty());
    EXPECT_EQ(s.accelerators[0].first.id, 42u);
}

TEST(Menus, ExtendedMenusTakeTypesAndStates) {
    const auto s = Read("1 MENUEX\nBEGIN\n"
                        "  POPUP \"&File\", 10, MFT_STRING, MFS_ENABLED, 0\n  BEGIN\n"
                        "    MENUITEM \"&Open\", 20, MFT_RADIOCHECK, MFS_CHECKED | MFS_DEFAULT\n"
                        "    MENUITEM \"\", , MFT_SEPARATOR\n"
                        "    MENUITEM SEPARATOR\n"
                        "    MENUITEM \"Gone\", 21,, MFS_GRAYED\n"
                        "  END\nEND\n");
    ASSERT_EQ(s.menus.size(), 1u);
    const auto& popup = s.menus[0].second.items.at(0);
    EXPECT_EQ(popup.id, 10u);
    EXPECT_EQ(popup.flags, UINT(MF_POPUP));
    ASSERT_EQ(popup.children.size(), 4u);
    EXPECT_EQ(popup.children[0].flags, UINT(MFT_RADIOCHECK | MFS_CHECKED | MFS_DEFAULT));
    EXPECT_EQ(popup.children[1].flags, UINT(MFT_SEPARATOR));
    EXPECT_EQ(popup.children[2].flags, UINT(MF_SEPARATOR));
    EXPECT_EQ(popup.children[3].flags, UINT(MFS_GRAYED));
    EXPECT_EQ(popup.children[3].id, 21u);
}

TEST(Menus, OptionsWithOrWithoutCommas) {
    const auto s = Read("1 MENU\nBEGIN\n"
                        "  MENUITEM \"a\", 1, CHECKED GRAYED\n"
                        "  MENUITEM \"b\", 2, INACTIVE, MENUBREAK\n"
                        "  MENUITEM \"c\", 3, MENUBARBREAK\n"
                        "END\n");
    const auto& items = s.menus.at(0).second.items;
    ASSERT_EQ(items.size(), 3u);
    EXPECT_EQ(items[0].flags, UINT(MF_CHECKED | MF_GRAYED));
    EXPECT_EQ(items[1].flags, UINT(MF_DISABLED | MF_MENUBREAK));
    EXPECT_EQ(items[2].flags, UINT(MF_MENUBARBREAK));
}

TEST(Accelerators, KeysFromStringsNumbersAndControlCharacters) {
    const auto s = Read("1 ACCELERATORS\nBEGIN\n"
                        "  \"a\", 1, VIRTKEY\n" // a virtual key is the upper-case letter
                        "  \"^c\", 2\n"         // control-C
                        "  65, 3, ASCII, ALT\n"
                        "  0x70, 4, VIRTKEY, SHIFT, CONTROL, ALT, NOINVERT\n"
                        "END\n");
    const auto& keys = s.accelerators.at(0).second;
    ASSERT_EQ(keys.size(), 4u);
    EXPECT_EQ(keys[0].key, 'A');
    EXPECT_EQ(keys[0].fVirt, FVIRTKEY);
    EXPECT_EQ(keys[1].key, 3);
    EXPECT_EQ(keys[1].fVirt, 0);
    EXPECT_EQ(keys[2].key, 65);
    EXPECT_EQ(keys[2].fVirt, FALT);
    EXPECT_EQ(keys[3].key, VK_F1);
    EXPECT_EQ(keys[3].fVirt, FVIRTKEY | FSHIFT | FCONTROL | FALT | FNOINVERT);
}

TEST(Resources, OtherTypesArePassedOver) {
    const auto s = Read("IDB_LOGO BITMAP \"res\\\\logo.bmp\"\n"
                        "IDB_UNQUOTED BITMAP DISCARDABLE res\\logo2.bmp\n"
                        "IDR_TOOLBAR TOOLBAR 16, 15\nBEGIN\n BUTTON 100\n SEPARATOR\nEND\n"
                        "1 24 \"app.manifest\"\n"
                        "IDR_DATA RCDATA\n{\n 1, 2, \"three\"\n}\n"
                        "IDR_HTML \"CUSTOM\" \"page.html\"\n"
                        "IDD_X DLGINIT\nBEGIN\n 1000, 0x403, 3, 0\n0x6f46, \"\\000\"\n 0\nEND\n"
                        "STRINGTABLE\nBEGIN\n 1 \"after them\"\nEND\n");
    ASSERT_EQ(s.strings.size(), 1u);
    EXPECT_EQ(s.strings[0].second, u"after them");
}

TEST(ControlStatements, AComboBoxIsSimpleOnlyWhenNoOtherKindIsNamed) {
    EXPECT_EQ(OnlyControl("COMBOBOX 1, 1, 2, 3, 4, CBS_DROPDOWN").style & 0x3,
              DWORD(CBS_DROPDOWN));
    EXPECT_EQ(OnlyControl("COMBOBOX 1, 1, 2, 3, 4, CBS_DROPDOWNLIST | WS_VSCROLL").style & 0x3,
              DWORD(CBS_DROPDOWNLIST));
    EXPECT_EQ(OnlyControl("COMBOBOX 1, 1, 2, 3, 4, WS_VSCROLL").style & 0x3, DWORD(CBS_SIMPLE));
}
