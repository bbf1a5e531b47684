// What the file dialog lists of a real folder, and moving between folders
// with the list, the Up button and the "Look in" box.
#include "FileDialogFixture.h"

#include <dlgs.h>

namespace {

using Names = std::vector<std::u16string>;

std::u16string SubItem(int item, int sub) {
    HWND list = GetDlgItem(GetActiveWindow(), lst1);
    WCHAR buffer[64]{};
    LVITEMW lv{};
    lv.iSubItem = sub;
    lv.pszText = buffer;
    lv.cchTextMax = 64;
    SendMessage(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&lv));
    return buffer;
}

} // namespace

TEST_F(FileDialogTest, ListsFoldersFirstThenMatchingFilesInNaturalOrder) {
    std::u16string initial = Root();
    CFileDialog dlg(TRUE, u"txt", nullptr, OFN_HIDEREADONLY, kTextFilter);
    dlg.m_ofn.lpstrInitialDir = initial.c_str();
    automation::FileDialogView view;
    Look(view);
    std::u16string size, emptySize, folderSize, date;
    automation::Do([&] {
        size = SubItem(5, 1);
        emptySize = SubItem(2, 1);
        folderSize = SubItem(0, 1);
        date = SubItem(5, 2);
    });
    automation::Key(VK_ESCAPE);

    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
    EXPECT_EQ(view.title, u"Open");
    EXPECT_EQ(view.folder, Root());
    EXPECT_EQ(view.fileType, u"Text files (*.txt)");
    EXPECT_EQ(view.fileName, u"");
    // Hidden names are left out; A to Z sort without regard to case and
    // numbers by their value.
    EXPECT_EQ(view.names, (Names{u"alpha", u"Beta", u"empty.txt", u"file2.txt", u"file10.txt",
                                 u"notes.txt", u"README.TXT"}));
    EXPECT_EQ(size, u"2 KB");
    EXPECT_EQ(emptySize, u"0 KB");
    EXPECT_EQ(folderSize, u"");
    // M/D/YYYY h:mm AM|PM
    ASSERT_GE(date.size(), 15u);
    EXPECT_TRUE(date.ends_with(u" AM") || date.ends_with(u" PM")) << platform::ToUtf8(date);
    EXPECT_EQ(dlg.GetPathName().Str(), u"");
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(FileDialogTest, TheChosenTypeFiltersTheFiles) {
    std::u16string initial = Root();
    CFileDialog dlg(TRUE, nullptr, nullptr, OFN_HIDEREADONLY,
                    u"Pictures|*.png;*.JPG|All files (*.*)|*.*||");
    dlg.m_ofn.lpstrInitialDir = initial.c_str();
    automation::FileDialogView pictures, all, typed;
    Look(pictures);
    automation::PickComboItem(cmb1, 1);
    Look(all);
    // Wild cards typed as the name list what matches them.
    automation::AnswerFileDialog(u"*2.txt; README*");
    Look(typed);
    automation::Key(VK_ESCAPE);

    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
    EXPECT_EQ(pictures.names, (Names{u"alpha", u"Beta", u"image.png"}));
    EXPECT_EQ(all.fileType, u"All files (*.*)");
    EXPECT_EQ(all.names, (Names{u"alpha", u"Beta", u"empty.txt", u"file2.txt", u"file10.txt",
                                u"image.png", u"notes.txt", u"README.TXT"}));
    EXPECT_EQ(typed.names, (Names{u"alpha", u"Beta", u"file2.txt", u"README.TXT"}));
}

TEST_F(FileDialogTest, FoldersAreEnteredAndLeft) {
    std::u16string initial = Root();
    CFileDialog dlg(TRUE, nullptr, nullptr, OFN_HIDEREADONLY, kTextFilter);
    dlg.m_ofn.lpstrInitialDir = initial.c_str();
    automation::FileDialogView beta, up, alpha, picked;
    automation::DoubleClickListItem(lst1, 1);
    Look(beta);
    automation::Click(psh1);
    Look(up);
    // Enter on a selected folder enters it.
    automation::ClickListItem(lst1, 0);
    automation::Key(VK_RETURN);
    Look(alpha);
    // The "Look in" box lists the folder's ancestors, root first.
    std::size_t depth = 0;
    for (const auto& part : root)
        depth += part.empty() ? 0 : 1;
    automation::PickComboItem(cmb2, static_cast<int>(depth) - 1);
    Look(picked);
    automation::Key(VK_ESCAPE);

    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
    EXPECT_EQ(beta.folder, In("Beta"));
    EXPECT_EQ(beta.names, (Names{u"inner.txt"}));
    EXPECT_EQ(up.folder, Root());
    EXPECT_EQ(alpha.folder, In("alpha"));
    EXPECT_TRUE(alpha.names.empty());
    EXPECT_EQ(picked.folder, Root());
}

TEST_F(FileDialogTest, TheUpButtonStopsAtTheRoot) {
    CFileDialog dlg(TRUE, nullptr, u"/", OFN_HIDEREADONLY);
    automation::FileDialogView top;
    automation::Click(psh1);
    Look(top);
    automation::Key(VK_ESCAPE);

    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
    EXPECT_EQ(top.folder, u"/");
    ASSERT_FALSE(automation::Record().empty());
    EXPECT_NE(automation::Record()[0].find("cannot be clicked"), std::string::npos)
        << automation::Record()[0];
}

TEST_F(FileDialogTest, AFileClickedInTheListBecomesTheNameAndADoubleClickPicksIt) {
    std::u16string initial = Root();
    CFileDialog dlg(TRUE, nullptr, nullptr, OFN_HIDEREADONLY | OFN_FILEMUSTEXIST, kTextFilter);
    dlg.m_ofn.lpstrInitialDir = initial.c_str();
    automation::FileDialogView clicked, folderClicked;
    automation::ClickListItem(lst1, 3);
    Look(clicked);
    automation::ClickListItem(lst1, 0);
    Look(folderClicked);
    automation::DoubleClickListItem(lst1, 5);

    EXPECT_EQ(dlg.DoModal(), IDOK);
    EXPECT_EQ(clicked.fileName, u"file2.txt");
    // A folder leaves the name as it was.
    EXPECT_EQ(folderClicked.fileName, u"file2.txt");
    EXPECT_EQ(dlg.GetPathName().Str(), In("notes.txt"));
}

TEST_F(FileDialogTest, TheInitialFolderComesFromTheNameThenTheInitialDirectory) {
    std::u16string name = In("Beta/inner.txt");
    CFileDialog fromName(TRUE, nullptr, name.c_str());
    automation::FileDialogView view;
    Look(view);
    automation::Key(VK_RETURN);
    EXPECT_EQ(fromName.DoModal(), IDOK);
    EXPECT_EQ(view.folder, In("Beta"));
    EXPECT_EQ(view.fileName, u"inner.txt");
    EXPECT_EQ(fromName.GetPathName().Str(), name);

    // A name in a missing folder falls back to the initial directory, and a
    // missing initial directory to the current one.
    automation::Reset();
    std::u16string missing = In("nowhere/x.txt");
    std::u16string initial = In("alpha");
    CFileDialog fallback(TRUE, nullptr, missing.c_str());
    fallback.m_ofn.lpstrInitialDir = initial.c_str();
    Look(view);
    automation::Key(VK_ESCAPE);
    EXPECT_EQ(fallback.DoModal(), IDCANCEL);
    EXPECT_EQ(view.folder, In("alpha"));
    EXPECT_EQ(view.fileName, u"x.txt");

    automation::Reset();
    std::u16string nowhere = In("nowhere");
    CFileDialog current(FALSE);
    current.m_ofn.lpstrInitialDir = nowhere.c_str();
    Look(view);
    automation::Key(VK_ESCAPE);
    EXPECT_EQ(current.DoModal(), IDCANCEL);
    EXPECT_EQ(view.folder, U16(std::filesystem::current_path()));
    EXPECT_EQ(view.title, u"Save As");
}
