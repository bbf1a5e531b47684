// The file dialog's edges: filters without their closing "||" or with no
// patterns, numbered names, big files, links that lead nowhere, files the
// user may not write, and actions that miss.
#include "FileDialogFixture.h"

#include "support/ReadOnlyDirectory.h"

#include <dlgs.h>

#include <sys/stat.h>

namespace {

using Names = std::vector<std::u16string>;

TEST_F(FileDialogTest, FiltersWithoutTheirEndOrPatternsStillWork) {
    std::u16string initial = Root();
    // The closing "||" left out; a description without patterns dropped.
    CFileDialog dlg(TRUE, nullptr, nullptr, OFN_HIDEREADONLY, u"Empty| ;|Images|*.pn?");
    dlg.m_ofn.lpstrInitialDir = initial.c_str();
    automation::FileDialogView view;
    Look(view);
    automation::Key(VK_ESCAPE);
    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
    EXPECT_EQ(view.fileType, u"Images");
    EXPECT_EQ(view.names, (Names{u"alpha", u"Beta", u"image.png"}));

    // No filter at all lists every file.
    automation::Reset();
    CFileDialog all(TRUE);
    all.m_ofn.lpstrInitialDir = initial.c_str();
    Look(view);
    automation::Key(VK_ESCAPE);
    EXPECT_EQ(all.DoModal(), IDCANCEL);
    EXPECT_EQ(view.fileType, u"All files (*.*)");
    EXPECT_EQ(view.names.size(), 8u);
    // Nothing chosen: every part of the path is empty.
    EXPECT_EQ(all.GetPathName().Str(), u"");
    EXPECT_EQ(all.GetFileName().Str(), u"");
    EXPECT_EQ(all.GetFileExt().Str(), u"");
    EXPECT_EQ(all.GetFileTitle().Str(), u"");
    EXPECT_EQ(all.GetFolderPath().Str(), u"");
}

TEST_F(FileDialogTest, NumbersSortByValueAndBigSizesAreGrouped) {
    Write(root / "a01.txt", 1);
    Write(root / "a1.txt", 1);
    Write(root / "a001b.txt", 1);
    Write(root / "a10.txt", 1);
    std::filesystem::resize_file(root / "a10.txt", 1264000);
    std::filesystem::create_symlink(root / "gone.txt", root / "dangling.txt");
    std::filesystem::create_symlink(root / "Beta", root / "link-to-beta");
    std::u16string initial = Root();
    CFileDialog dlg(TRUE, nullptr, nullptr, OFN_HIDEREADONLY, u"Text|*.txt||");
    dlg.m_ofn.lpstrInitialDir = initial.c_str();
    automation::FileDialogView view;
    Look(view);
    std::u16string big;
    automation::Do([&big] {
        HWND list = GetDlgItem(GetActiveWindow(), lst1);
        WCHAR buffer[32]{};
        LVITEMW lv{};
        lv.iSubItem = 1;
        lv.pszText = buffer;
        lv.cchTextMax = 32;
        SendMessage(list, LVM_GETITEMTEXTW, 6, reinterpret_cast<LPARAM>(&lv));
        big = buffer;
    });
    automation::Key(VK_ESCAPE);
    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
    // A link to a folder is a folder; a link to nothing is left out.
    EXPECT_EQ(view.names, (Names{u"alpha", u"Beta", u"link-to-beta", u"a01.txt", u"a1.txt",
                                 u"a001b.txt", u"a10.txt", u"empty.txt", u"file2.txt",
                                 u"file10.txt", u"notes.txt", u"README.TXT"}));
    EXPECT_EQ(big, u"1,235 KB");
}

TEST_F(FileDialogTest, MissedActionsAreRecorded) {
    std::u16string initial = Root();
    CFileDialog dlg(TRUE, nullptr, nullptr, OFN_HIDEREADONLY, kTextFilter);
    dlg.m_ofn.lpstrInitialDir = initial.c_str();
    automation::FileDialogView view;
    automation::DoubleClickListItem(lst1, 99);
    automation::DoubleClickListItem(0x9999, 0);
    // A name that ends in '/' but names no folder chooses nothing.
    automation::AnswerFileDialog(u"nodir/");
    Look(view);
    automation::Key(VK_ESCAPE);
    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
    EXPECT_EQ(view.folder, Root());
    const auto& record = automation::Record();
    ASSERT_GE(record.size(), 2u);
    EXPECT_NE(record[0].find("no item 99"), std::string::npos) << record[0];
    EXPECT_NE(record[1].find("no list"), std::string::npos) << record[1];
    EXPECT_FALSE(automation::ReadFileDialog(nullptr));
}

TEST_F(FileDialogTest, AReadOnlyFileIsRefusedWhenAskedTo) {
    testing_support::ReadOnlyDirectory folder("filedialog-readonly");
    Write(folder.Path() / "fixed.txt", 3);
    ::chmod((folder.Path() / "fixed.txt").c_str(), 0444);
    folder.RunRefused([&] {
        std::u16string initial = U16(folder.Path());
        CFileDialog dlg(FALSE, u"txt", nullptr, OFN_NOREADONLYRETURN, kTextFilter);
        dlg.m_ofn.lpstrInitialDir = initial.c_str();
        std::u16string caption, text;
        automation::AnswerFileDialog(u"fixed");
        ReadMessageBox(caption, text);
        automation::AnswerMessageBox(IDOK);
        automation::Key(VK_ESCAPE);
        EXPECT_EQ(dlg.DoModal(), IDCANCEL);
        EXPECT_EQ(text, u"fixed.txt\nThis file is set to read-only.\nTry again with a different "
                        u"file name.");
    });
}

} // namespace
