// What the file dialog does with a typed name: relative and absolute paths,
// folders, the default extension, and the checks with their message boxes.
#include "FileDialogFixture.h"

#include <dlgs.h>

namespace {

class TypedNameTest : public FileDialogTest {
protected:
    void SetUp() override {
        FileDialogTest::SetUp();
        initial = Root();
    }
    // A dialog starting in the tree's root.
    void StartInRoot(CFileDialog& dlg) { dlg.m_ofn.lpstrInitialDir = initial.c_str(); }
    std::u16string initial;
};

TEST_F(TypedNameTest, ARelativeNameGetsTheDefaultExtensionInTheShownFolder) {
    CFileDialog dlg(TRUE, u"txt", nullptr, OFN_HIDEREADONLY, kTextFilter);
    StartInRoot(dlg);
    automation::AnswerFileDialog(u"notes");

    ASSERT_EQ(dlg.DoModal(), IDOK);
    EXPECT_EQ(dlg.GetPathName().Str(), In("notes.txt"));
    EXPECT_EQ(dlg.GetFileName().Str(), u"notes.txt");
    EXPECT_EQ(dlg.GetFileExt().Str(), u"txt");
    EXPECT_EQ(dlg.GetFileTitle().Str(), u"notes");
    EXPECT_EQ(dlg.GetFolderPath().Str(), Root());
    EXPECT_EQ(dlg.m_ofn.nFilterIndex, 1u);
}

TEST_F(TypedNameTest, AbsoluteAndDottedPathsResolveAndAFolderPathIsEntered) {
    CFileDialog dlg(FALSE, nullptr, nullptr, OFN_HIDEREADONLY, kTextFilter);
    StartInRoot(dlg);
    automation::FileDialogView entered;
    automation::AnswerFileDialog(In("Beta"));
    Look(entered);
    automation::AnswerFileDialog(u"../alpha/./new.log");

    ASSERT_EQ(dlg.DoModal(), IDOK);
    EXPECT_EQ(entered.folder, In("Beta"));
    EXPECT_EQ(entered.fileName, u"");
    // No default extension was asked for.
    EXPECT_EQ(dlg.GetPathName().Str(), In("alpha/new.log"));
    EXPECT_EQ(dlg.GetFileExt().Str(), u"log");
    EXPECT_EQ(dlg.GetFolderPath().Str(), In("alpha"));
}

TEST_F(TypedNameTest, TheChosenFiltersExtensionComesBeforeTheDefaultOne) {
    CFileDialog png(FALSE, u".txt", nullptr, OFN_HIDEREADONLY,
                    u"Pictures (*.png)|*.png|All files (*.*)|*.*||");
    StartInRoot(png);
    automation::AnswerFileDialog(u"picture");
    ASSERT_EQ(png.DoModal(), IDOK);
    EXPECT_EQ(png.GetPathName().Str(), In("picture.png"));

    automation::Reset();
    CFileDialog all(FALSE, u".txt", nullptr, OFN_HIDEREADONLY,
                    u"Pictures (*.png)|*.png|All files (*.*)|*.*||");
    StartInRoot(all);
    automation::PickComboItem(cmb1, 1);
    automation::AnswerFileDialog(u"picture");
    ASSERT_EQ(all.DoModal(), IDOK);
    EXPECT_EQ(all.GetPathName().Str(), In("picture.txt"));
    EXPECT_EQ(all.m_ofn.nFilterIndex, 2u);

    // A name with an extension keeps it; a name in quotes keeps its spaces.
    automation::Reset();
    CFileDialog kept(FALSE, u"txt", nullptr, OFN_HIDEREADONLY, kTextFilter);
    StartInRoot(kept);
    automation::AnswerFileDialog(u"\" two words.csv \"");
    ASSERT_EQ(kept.DoModal(), IDOK);
    EXPECT_EQ(kept.GetFileName().Str(), u" two words.csv ");
    EXPECT_EQ(kept.GetFileTitle().Str(), u" two words");
}

TEST_F(TypedNameTest, AMissingFileIsRefusedWhileTheDialogStaysOpen) {
    CFileDialog dlg(TRUE, u"txt", nullptr, OFN_HIDEREADONLY | OFN_FILEMUSTEXIST, kTextFilter);
    StartInRoot(dlg);
    std::u16string caption, text;
    automation::FileDialogView after;
    automation::AnswerFileDialog(u"missing");
    ReadMessageBox(caption, text);
    automation::AnswerMessageBox(IDOK);
    Look(after);
    automation::AnswerFileDialog(u"file2");

    ASSERT_EQ(dlg.DoModal(), IDOK);
    EXPECT_EQ(caption, u"Open");
    EXPECT_EQ(text, In("missing.txt") + u"\nFile not found.\nCheck the file name and try again.");
    EXPECT_EQ(after.fileName, u"missing");
    EXPECT_EQ(dlg.GetPathName().Str(), In("file2.txt"));
}

TEST_F(TypedNameTest, AMissingFolderIsRefusedWhenThePathMustExist) {
    CFileDialog dlg(FALSE, nullptr, nullptr, OFN_PATHMUSTEXIST, kTextFilter);
    StartInRoot(dlg);
    dlg.m_ofn.lpstrTitle = u"Export to";
    std::u16string caption, text;
    automation::AnswerFileDialog(u"nodir/out.txt");
    ReadMessageBox(caption, text);
    automation::AnswerMessageBox(IDOK);
    automation::Key(VK_ESCAPE);

    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
    EXPECT_EQ(caption, u"Export to");
    EXPECT_EQ(text, In("nodir/out.txt") + u"\nPath does not exist.\nCheck the path and try again.");
    EXPECT_EQ(dlg.GetPathName().Str(), u"");

    // Without the flag the dialog hands the path back for the caller to judge.
    automation::Reset();
    CFileDialog lax(FALSE, nullptr, nullptr, 0, kTextFilter);
    StartInRoot(lax);
    automation::AnswerFileDialog(u"nodir/out.txt");
    EXPECT_EQ(lax.DoModal(), IDOK);
    EXPECT_EQ(lax.GetPathName().Str(), In("nodir/out.txt"));
}

TEST_F(TypedNameTest, SavingOverAFileAsksFirst) {
    CFileDialog dlg(FALSE, u"txt", nullptr, OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, kTextFilter);
    StartInRoot(dlg);
    std::u16string caption, text;
    automation::AnswerFileDialog(u"notes");
    ReadMessageBox(caption, text);
    automation::AnswerMessageBox(IDNO);
    automation::FileDialogView after;
    Look(after);
    automation::AnswerFileDialog(u"notes.txt");
    automation::AnswerMessageBox(IDYES);

    ASSERT_EQ(dlg.DoModal(), IDOK);
    EXPECT_EQ(caption, u"Confirm Save As");
    EXPECT_EQ(text, u"notes.txt already exists.\nDo you want to replace it?");
    EXPECT_EQ(after.title, u"Save As");
    EXPECT_EQ(dlg.GetPathName().Str(), In("notes.txt"));
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(TypedNameTest, TheOpenFormIgnoresTheOverwriteQuestion) {
    // The flags the export settings pass: hide read-only, overwrite prompt,
    // path must exist.
    CFileDialog dlg(TRUE, u"txt", nullptr, 0x806, kTextFilter, nullptr);
    StartInRoot(dlg);
    automation::AnswerFileDialog(u"notes");
    ASSERT_EQ(dlg.DoModal(), IDOK);
    EXPECT_EQ(dlg.GetPathName().Str(), In("notes.txt"));
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(TypedNameTest, TheCreatePromptAsksForAMissingFile) {
    CFileDialog dlg(TRUE, u"txt", nullptr, OFN_FILEMUSTEXIST | OFN_CREATEPROMPT, kTextFilter);
    StartInRoot(dlg);
    std::u16string caption, text;
    automation::AnswerFileDialog(u"fresh");
    ReadMessageBox(caption, text);
    automation::AnswerMessageBox(IDNO);
    automation::AnswerFileDialog(u"fresh");
    automation::AnswerMessageBox(IDYES);

    ASSERT_EQ(dlg.DoModal(), IDOK);
    EXPECT_EQ(text, u"fresh.txt\nThis file does not exist.\nDo you want to create it?");
    EXPECT_EQ(dlg.GetPathName().Str(), In("fresh.txt"));
}

TEST_F(TypedNameTest, AnEmptyNameDoesNothing) {
    CFileDialog dlg(TRUE, u"txt", nullptr, OFN_HIDEREADONLY, kTextFilter);
    StartInRoot(dlg);
    automation::FileDialogView after;
    automation::AnswerFileDialog(u"   ");
    Look(after);
    automation::Key(VK_ESCAPE);
    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
    EXPECT_EQ(after.folder, Root());
}

TEST_F(TypedNameTest, RunningOutOfActionsCancels) {
    CFileDialog dlg(TRUE, u"txt", nullptr, OFN_HIDEREADONLY, kTextFilter);
    StartInRoot(dlg);
    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
    EXPECT_EQ(dlg.GetPathName().Str(), u"");
    EXPECT_EQ(automation::CancelsForWantOfActions(), 1);
}

TEST_F(TypedNameTest, AnsweringWithoutAFileDialogIsRecorded) {
    automation::AnswerFileDialog(u"x");
    EXPECT_TRUE(automation::RunNext());
    ASSERT_EQ(automation::Record().size(), 1u);
    EXPECT_NE(automation::Record()[0].find("is no file dialog"), std::string::npos);
    automation::FileDialogView view;
    EXPECT_FALSE(automation::ReadFileDialog(&view));
}

} // namespace
