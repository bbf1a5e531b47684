// The export host's script as the resource editor keeps it, compiled into this
// test binary with win_add_resource_script() and read into the application's
// module at start-up.
#include <afxwin.h>
#include <commctrl.h>
#include <platform/ResourceChain.h>
#include <platform/ResourceModule.h>
#include <platform/ResourceScript.h>

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

using platform::MakeResourceName;

namespace {

const platform::ResourceModule& Application() {
    const platform::ResourceModule* module = platform::FindResources(GetModuleHandleW(nullptr));
    EXPECT_NE(module, nullptr);
    return *module;
}

} // namespace

TEST(HostScript, ExportDialogHasItsControlsWithTheirClassesAndStyles) {
    const platform::DialogTemplate* d = Application().FindDialog(MakeResourceName(234u));
    ASSERT_NE(d, nullptr);
    EXPECT_TRUE(d->extended);
    EXPECT_EQ(d->style,
              DWORD(DS_SETFONT | DS_MODALFRAME | DS_FIXEDSYS | WS_POPUP | WS_CAPTION | WS_SYSMENU));
    EXPECT_EQ(d->caption, u"Export Settings");
    EXPECT_EQ(d->faceName, u"MS Shell Dlg");
    EXPECT_EQ(d->pointSize, 8);
    EXPECT_EQ(d->weight, 400);
    EXPECT_EQ(d->charSet, 1);
    EXPECT_EQ((std::vector<short>{d->x, d->y, d->cx, d->cy}), (std::vector<short>{0, 0, 316, 183}));
    ASSERT_EQ(d->items.size(), 12u);

    const auto& label = d->items[0];
    EXPECT_EQ(label.className, u"STATIC");
    EXPECT_EQ(label.text, u"&Delimiter:");
    EXPECT_EQ(label.id, 0xFFFFu);
    EXPECT_EQ(label.style, DWORD(WS_CHILD | WS_VISIBLE | SS_LEFT | WS_GROUP));

    const auto& delimiter = d->items[1];
    EXPECT_EQ(delimiter.className, u"COMBOBOX");
    EXPECT_EQ(delimiter.id, 1247u);
    // CBS_SIMPLE is the statement's default only when no other kind is named.
    EXPECT_EQ(delimiter.style, DWORD(WS_CHILD | WS_VISIBLE | CBS_DROPDOWN |
                                     CBS_AUTOHSCROLL | WS_VSCROLL | WS_TABSTOP));
    EXPECT_EQ((std::vector<short>{delimiter.x, delimiter.y, delimiter.cx, delimiter.cy}),
              (std::vector<short>{57, 7, 80, 60}));

    const auto& file = d->items[5];
    EXPECT_EQ(file.className, u"EDIT");
    EXPECT_EQ(file.id, 1249u);
    EXPECT_EQ(file.style,
              DWORD(WS_CHILD | WS_VISIBLE | ES_LEFT | WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL));

    const auto& headings = d->items[7];
    EXPECT_EQ(headings.className, u"BUTTON"); // "Button" in the script
    EXPECT_EQ(headings.text, u"Write column &headings");
    EXPECT_EQ(headings.style, DWORD(WS_CHILD | WS_VISIBLE | BS_AUTOCHECKBOX | WS_TABSTOP));

    const auto& group = d->items[8];
    EXPECT_EQ(group.id, 1352u); // (IDC_PREVIEW + 100)
    EXPECT_EQ(group.style, DWORD(WS_CHILD | WS_VISIBLE | BS_GROUPBOX));

    const auto& preview = d->items[9];
    EXPECT_EQ(preview.style, DWORD(WS_CHILD | WS_VISIBLE | ES_LEFT | WS_BORDER | ES_MULTILINE |
                                   ES_READONLY | WS_VSCROLL));

    const auto& ok = d->items[10];
    EXPECT_EQ(ok.id, UINT(IDOK));
    EXPECT_EQ(ok.style, DWORD(WS_CHILD | WS_VISIBLE | BS_DEFPUSHBUTTON | WS_TABSTOP));
    EXPECT_EQ(d->items[11].id, UINT(IDCANCEL));
    EXPECT_EQ(d->items[11].style, DWORD(WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON | WS_TABSTOP));
}

TEST(HostScript, StringsMenuAcceleratorsAndIcon) {
    CString text;
    ASSERT_TRUE(text.LoadString(698));
    EXPECT_EQ(std::u16string(text.GetString()), u"The file could not be opened:\n%1");
    ASSERT_TRUE(text.LoadString(771));
    EXPECT_EQ(std::u16string(text.GetString()), u"The list was written to \"%1\".");

    const platform::MenuTemplate* menu = Application().FindMenu(MakeResourceName(128u));
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->items.size(), 2u);
    const auto& fileMenu = menu->items[0];
    EXPECT_EQ(fileMenu.text, u"&File");
    EXPECT_EQ(fileMenu.flags, UINT(MF_POPUP));
    ASSERT_EQ(fileMenu.children.size(), 5u);
    EXPECT_EQ(fileMenu.children[0].text, u"&Open...\tCtrl+O");
    EXPECT_EQ(fileMenu.children[0].id, 0xE101u);
    EXPECT_EQ(fileMenu.children[1].flags, UINT(MF_SEPARATOR));
    const auto& exportMenu = fileMenu.children[2];
    ASSERT_EQ(exportMenu.children.size(), 2u);
    EXPECT_EQ(exportMenu.children[1].id, 32772u);
    EXPECT_EQ(exportMenu.children[1].flags, UINT(MF_GRAYED));
    EXPECT_EQ(menu->items[1].flags, UINT(MF_POPUP | MF_HELP));
    EXPECT_EQ(menu->items[1].children[0].flags, UINT(MF_CHECKED));

    const auto* keys = Application().FindAccelerators(MakeResourceName(128u));
    ASSERT_NE(keys, nullptr);
    ASSERT_EQ(keys->size(), 6u);
    auto expect = [&](std::size_t i, BYTE fVirt, WORD key, WORD cmd) {
        SCOPED_TRACE(i);
        EXPECT_EQ((*keys)[i].fVirt, fVirt);
        EXPECT_EQ((*keys)[i].key, key);
        EXPECT_EQ((*keys)[i].cmd, cmd);
    };
    expect(0, FVIRTKEY | FCONTROL | FNOINVERT, 'O', 0xE101);
    expect(1, FVIRTKEY | FCONTROL | FNOINVERT, 'E', 32771);
    expect(2, FVIRTKEY | FNOINVERT, VK_F1, 0xE140);
    expect(3, FVIRTKEY | FSHIFT | FALT, VK_DELETE, 32772);
    expect(4, 0, 24, 0xE141); // "^X": control-X
    expect(5, 0, 'x', 32771);

    const platform::IconTemplate* icon = Application().FindIcon(MakeResourceName(128u));
    ASSERT_NE(icon, nullptr);
    EXPECT_EQ(icon->fileName, u"app.ico");
    std::ifstream in(WIN_RES_HOST_DIR "/app.ico", std::ios::binary);
    const std::vector<std::uint8_t> bytes((std::istreambuf_iterator<char>(in)),
                                          std::istreambuf_iterator<char>());
    EXPECT_EQ(icon->bytes, bytes);
}

TEST(HostScript, ResourcesTheEditorKeepsForItselfAreNotRead) {
    // TEXTINCLUDE sits in an APSTUDIO_INVOKED block, VERSIONINFO and
    // DESIGNINFO are passed over: nothing else named 1 or 2 exists.
    EXPECT_EQ(Application().FindDialog(MakeResourceName(1u)), nullptr);
    EXPECT_EQ(Application().FindMenu(MakeResourceName(u"GUIDELINES")), nullptr);
    EXPECT_EQ(Application().FindString(130), nullptr);
}

TEST(HostScript, ReadingTheSameScriptFromDiskGivesTheSameResources) {
    const platform::ResourceScript script =
        platform::ReadResourceScript(WIN_RES_HOST_DIR "/export.rc", platform::DiskFileReader());
    ASSERT_EQ(script.dialogs.size(), 1u);
    EXPECT_EQ(script.dialogs[0].second.items.size(), 12u);
    EXPECT_EQ(script.strings.size(), 3u);
    EXPECT_EQ(script.icons.size(), 1u);
}
