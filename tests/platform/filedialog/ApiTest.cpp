// The C interface under CFileDialog: bad requests, the caller's buffers, the
// owner; a folder that cannot be read; and a picture of the dialog.
#include "FileDialogFixture.h"

#include "support/ReadOnlyDirectory.h"

#include <dlgs.h>
#include <platform/WindowPictures.h>

#include <sys/stat.h>

namespace {

OPENFILENAME Request(WCHAR* file, DWORD size, const std::u16string& folder) {
    OPENFILENAME ofn{};
    ofn.lStructSize = sizeof ofn;
    ofn.lpstrFile = file;
    ofn.nMaxFile = size;
    ofn.lpstrInitialDir = folder.c_str();
    ofn.lpstrFilter = u"Text\0*.txt\0\0";
    return ofn;
}

TEST_F(FileDialogTest, BadRequestsFailWithTheirReason) {
    EXPECT_FALSE(GetOpenFileName(nullptr));
    EXPECT_EQ(CommDlgExtendedError(), static_cast<DWORD>(CDERR_STRUCTSIZE));
    WCHAR file[64] = u"";
    std::u16string folder = Root();
    OPENFILENAME ofn = Request(file, 64, folder);
    ofn.lStructSize = 12;
    EXPECT_FALSE(GetSaveFileName(&ofn));
    EXPECT_EQ(CommDlgExtendedError(), static_cast<DWORD>(CDERR_STRUCTSIZE));
    ofn = Request(nullptr, 64, folder);
    EXPECT_FALSE(GetOpenFileName(&ofn));
    EXPECT_EQ(CommDlgExtendedError(), static_cast<DWORD>(CDERR_INITIALIZATION));
    ofn = Request(file, 64, folder);
    ofn.hwndOwner = reinterpret_cast<HWND>(uintptr_t{0x1234});
    EXPECT_FALSE(GetOpenFileName(&ofn));
    EXPECT_EQ(CommDlgExtendedError(), static_cast<DWORD>(CDERR_INITIALIZATION));
    EXPECT_EQ(automation::Record().size(), 0u);
}

TEST_F(FileDialogTest, TheCallersBuffersGetThePathNameAndOffsets) {
    WCHAR file[512] = u"";
    WCHAR title[6] = u"";
    std::u16string folder = Root();
    OPENFILENAME ofn = Request(file, 512, folder);
    ofn.lpstrFileTitle = title;
    ofn.nMaxFileTitle = 6;
    automation::AnswerFileDialog(u"notes.txt");
    ASSERT_TRUE(GetOpenFileName(&ofn));
    EXPECT_EQ(CommDlgExtendedError(), 0u);
    std::u16string path = file;
    EXPECT_EQ(path, In("notes.txt"));
    EXPECT_EQ(path.substr(ofn.nFileOffset), u"notes.txt");
    EXPECT_EQ(path.substr(ofn.nFileExtension), u"txt");
    // The title is cut to its buffer.
    EXPECT_EQ(std::u16string(title), u"notes");
    EXPECT_EQ(ofn.nFilterIndex, 1u);

    // A name without an extension: the offset is that of the terminator.
    automation::Reset();
    automation::AnswerFileDialog(u"plain");
    ASSERT_TRUE(GetSaveFileName(&ofn));
    path = file;
    EXPECT_EQ(ofn.nFileExtension, path.size());
}

TEST_F(FileDialogTest, ABufferTooSmallGetsTheSizeItNeeds) {
    WCHAR file[8] = u"";
    std::u16string folder = Root();
    OPENFILENAME ofn = Request(file, 8, folder);
    automation::AnswerFileDialog(u"notes.txt");
    EXPECT_FALSE(GetOpenFileName(&ofn));
    EXPECT_EQ(CommDlgExtendedError(), static_cast<DWORD>(FNERR_BUFFERTOOSMALL));
    EXPECT_EQ(static_cast<std::size_t>(file[0]), In("notes.txt").size() + 1);
}

TEST_F(FileDialogTest, TheOwnerIsDisabledWhileTheDialogRuns) {
    HWND owner = CreateWindowEx(0, u"STATIC", u"Owner", WS_POPUP | WS_VISIBLE, 10, 10, 300, 200,
                                nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(owner, nullptr);
    WCHAR file[512] = u"";
    std::u16string folder = Root();
    OPENFILENAME ofn = Request(file, 512, folder);
    ofn.hwndOwner = owner;
    BOOL ownerEnabled = TRUE;
    HWND dialogOwner = nullptr;
    automation::Do([&] {
        ownerEnabled = IsWindowEnabled(owner);
        dialogOwner = GetWindow(GetActiveWindow(), GW_OWNER);
    });
    automation::Key(VK_ESCAPE);
    EXPECT_FALSE(GetOpenFileName(&ofn));
    EXPECT_EQ(CommDlgExtendedError(), 0u);
    EXPECT_FALSE(ownerEnabled);
    EXPECT_EQ(dialogOwner, owner);
    EXPECT_TRUE(IsWindowEnabled(owner));
    DestroyWindow(owner);
}

TEST_F(FileDialogTest, AFolderThatCannotBeReadListsNothing) {
    testing_support::ReadOnlyDirectory outer("filedialog-locked");
    std::filesystem::path locked = outer.Path() / "locked";
    std::filesystem::create_directories(locked / "sub");
    Write(locked / "secret.txt", 5);
    ::chmod(locked.c_str(), 0);
    outer.RunRefused([&] {
        std::u16string folder = U16(locked);
        CFileDialog dlg(TRUE, u"txt", nullptr, OFN_HIDEREADONLY | OFN_FILEMUSTEXIST, kTextFilter);
        dlg.m_ofn.lpstrInitialDir = folder.c_str();
        automation::FileDialogView view;
        Look(view);
        automation::AnswerFileDialog(u"secret");
        automation::AnswerMessageBox(IDOK);
        automation::Click(psh1);
        automation::FileDialogView up;
        Look(up);
        automation::Key(VK_ESCAPE);
        EXPECT_EQ(dlg.DoModal(), IDCANCEL);
        EXPECT_EQ(view.folder, folder);
        EXPECT_TRUE(view.names.empty());
        EXPECT_EQ(up.folder, U16(outer.Path()));
        EXPECT_EQ(up.names, std::vector<std::u16string>{u"locked"});
    });
    ::chmod(locked.c_str(), 0755);
}

TEST_F(FileDialogTest, PictureOfTheDialog) {
    std::u16string initial = Root();
    CFileDialog dlg(FALSE, u"txt", u"report", OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, kTextFilter);
    dlg.m_ofn.lpstrInitialDir = initial.c_str();
    std::filesystem::path png = root.parent_path() / "file-dialog.png";
    bool saved = false;
    COLORREF listBackground = CLR_INVALID;
    automation::ClickListItem(lst1, 3);
    automation::Do([&] {
        platform::PumpMessages();
        HWND dialog = GetActiveWindow();
        saved = platform::SaveWindowAsPng(dialog, png.string());
        HWND list = GetDlgItem(dialog, lst1);
        RECT rect;
        GetClientRect(list, &rect);
        HDC dc = GetDC(list);
        listBackground = GetPixel(dc, rect.right - 5, rect.bottom - 5);
        ReleaseDC(list, dc);
    });
    automation::Key(VK_ESCAPE);
    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
    EXPECT_TRUE(saved);
    EXPECT_TRUE(std::filesystem::file_size(png) > 0);
    EXPECT_EQ(listBackground, GetSysColor(COLOR_WINDOW));
}

} // namespace
