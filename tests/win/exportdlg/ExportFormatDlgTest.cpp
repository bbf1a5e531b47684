// The export settings dialog on the export host's template: the preview as
// the user changes delimiter, qualifier and titles, the double exchange of
// the titles box, browsing for the file and the cancel path.
#include "support/Shown.h"
#include "support/TempDir.h"

#include <Win/Win.h>
#include <platform/Automation.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <fstream>

namespace {

namespace automation = platform::automation;
using testing_support::ShownText;

constexpr UINT kPreview = CExportFormatDlg::IDC_PREVIEW;
constexpr UINT kDelimiter = CExportFormatDlg::IDC_DELIMITER;
constexpr UINT kQuote = CExportFormatDlg::IDC_QUOTE;
constexpr UINT kFileName = CExportFormatDlg::IDC_FILENAME;
constexpr UINT kTitles = CExportFormatDlg::IDC_TITLES;

// The dialog with the box for titles disabled, as a caller that never writes
// titles would open it.
class NoTitlesDlg : public CExportFormatDlg {
public:
    NoTitlesDlg() { m_titlesEnabled = false; }
};

class ExportFormatDlgTest : public ::testing::Test {
protected:
    void SetUp() override { automation::Reset(); }
    void TearDown() override {
        automation::Reset();
        platform::PumpMessages();
    }
    // Queues a look at the preview; the lines are read when the step runs.
    void LookAtPreview(std::u16string& into) {
        automation::Do([&into] { into = ShownText(kPreview); });
    }
    // Selects the whole text of an edit (or a combo box's edit field) and
    // types over it, as a user does with the keyboard.
    static void TypeOver(UINT id, const std::u16string& text) {
        automation::Click(id);
        automation::Key(VK_END);
        automation::Key(VK_HOME, true);
        if (text.empty())
            automation::Key(VK_DELETE);
        else
            automation::Type(text);
    }
};

TEST_F(ExportFormatDlgTest, OpensWithTheFormatAndItsPreview) {
    CExportFormatDlg dialog;
    std::u16string preview, delimiter, quote;
    LookAtPreview(preview);
    automation::Do([&] {
        delimiter = ShownText(kDelimiter);
        quote = ShownText(kQuote);
    });
    automation::Click(IDOK);
    ASSERT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(delimiter, u",");
    EXPECT_EQ(quote, u"\"");
    EXPECT_EQ(preview, u"\"Column1\",\"Column2\",\"Column3\"\r\n"
                       u"\"Value1\",\"Value2\",\"Value3\"\r\n"
                       u"\"Value1\",\"Value2\",\"Value3\"\r\n");
}

TEST_F(ExportFormatDlgTest, PickingTheTabEntryShowsTabsAtOnce) {
    CExportFormatDlg dialog;
    std::u16string preview;
    automation::PickComboItem(kDelimiter, u"<Tab>");
    LookAtPreview(preview);
    automation::PickComboItem(kQuote, u"<None>");
    std::u16string unqualified;
    LookAtPreview(unqualified);
    automation::Click(IDOK);
    ASSERT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(preview, u"\"Column1\"\t\"Column2\"\t\"Column3\"\r\n"
                       u"\"Value1\"\t\"Value2\"\t\"Value3\"\r\n"
                       u"\"Value1\"\t\"Value2\"\t\"Value3\"\r\n");
    EXPECT_EQ(unqualified, u"Column1\tColumn2\tColumn3\r\nValue1\tValue2\tValue3\r\n"
                           u"Value1\tValue2\tValue3\r\n");
    EXPECT_EQ(dialog.m_format.GetDelimiter(), u"<Tab>");
    EXPECT_EQ(dialog.m_format.GetQuote(), u"<None>");
}

TEST_F(ExportFormatDlgTest, TheSpaceEntryAndASelectionOfTheSameItemAgain) {
    CExportFormatDlg dialog;
    std::u16string space, again;
    automation::PickComboItem(kDelimiter, u"<Space>");
    LookAtPreview(space);
    automation::PickComboItem(kDelimiter, u"<Space>");
    LookAtPreview(again);
    automation::Click(IDOK);
    ASSERT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(space.substr(0, 20), u"\"Column1\" \"Column2\" ");
    EXPECT_EQ(again, space);
}

TEST_F(ExportFormatDlgTest, TypingADelimiterUpdatesThePreviewAtEveryKey) {
    CExportFormatDlg dialog;
    dialog.m_format.m_titlesShown = 1;
    std::u16string afterFirst, afterSecond;
    TypeOver(kDelimiter, u";");
    LookAtPreview(afterFirst);
    automation::Type(u"-");
    LookAtPreview(afterSecond);
    automation::Click(IDOK);
    ASSERT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(afterFirst.substr(0, 22), u"\"Column1\";\"Column2\";\"C");
    EXPECT_EQ(afterSecond.substr(0, 24), u"\"Column1\";-\"Column2\";-\"C");
    EXPECT_EQ(dialog.m_format.GetDelimiter(), u";-");
}

TEST_F(ExportFormatDlgTest, ClearingTheQualifierShowsBareCells) {
    CExportFormatDlg dialog;
    dialog.m_format.m_titlesShown = 1;
    std::u16string preview;
    TypeOver(kQuote, u"");
    LookAtPreview(preview);
    automation::Click(IDOK);
    ASSERT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(preview,
              u"Column1,Column2,Column3\r\nValue1,Value2,Value3\r\nValue1,Value2,Value3\r\n");
    EXPECT_EQ(dialog.m_format.GetQuote(), u"");
}

TEST_F(ExportFormatDlgTest, CommaSeparatedModeQualifiesOnlyCellsWithCommas) {
    CExportFormatDlg dialog;
    dialog.m_format.SetFilename(u"/tmp/list.csv");
    std::u16string preview;
    LookAtPreview(preview);
    automation::Click(IDOK);
    ASSERT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(preview,
              u"Column1,Column2,Column3\r\nValue1,Value2,Value3\r\nValue1,Value2,Value3\r\n");
}

TEST_F(ExportFormatDlgTest, UntickingTitlesDropsTheTitlesLineAndClearsBothFields) {
    CExportFormatDlg dialog;
    dialog.m_format.m_titlesShown = 1;
    std::u16string preview;
    automation::SetCheck(kTitles, false);
    LookAtPreview(preview);
    automation::Click(IDOK);
    ASSERT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(preview, u"\"Value1\",\"Value2\",\"Value3\"\r\n\"Value1\",\"Value2\",\"Value3\"\r\n");
    EXPECT_EQ(dialog.m_format.GetTitles(), 0);
    EXPECT_EQ(dialog.m_format.m_titlesShown, 0);
}

TEST_F(ExportFormatDlgTest, TheBoxShowsTitlesShownWhileThePreviewFollowsTitles) {
    // m_titles 1 (the default) and m_titlesShown 0 (the default): the box
    // opens unticked, the preview still has its titles line.
    CExportFormatDlg dialog;
    std::u16string opened, ticked, unticked;
    LRESULT box = -1;
    automation::Do([&] {
        box = SendMessage(GetDlgItem(GetActiveWindow(), kTitles), BM_GETCHECK, 0, 0);
        opened = ShownText(kPreview);
    });
    automation::SetCheck(kTitles, true);
    LookAtPreview(ticked);
    automation::SetCheck(kTitles, false);
    LookAtPreview(unticked);
    automation::Click(IDOK);
    ASSERT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(box, BST_UNCHECKED);
    EXPECT_EQ(opened.substr(0, 9), u"\"Column1\"");
    EXPECT_EQ(ticked, opened);
    EXPECT_EQ(unticked.substr(0, 8), u"\"Value1\"");
    EXPECT_EQ(dialog.m_format.GetTitles(), 0);
    EXPECT_EQ(dialog.m_format.m_titlesShown, 0);
}

TEST_F(ExportFormatDlgTest, ADisabledTitlesBoxIsStillExchanged) {
    NoTitlesDlg dialog;
    dialog.m_format.m_titlesShown = 1;
    bool enabled = true;
    automation::Do([&] { enabled = IsWindowEnabled(GetDlgItem(GetActiveWindow(), kTitles)); });
    automation::Click(kTitles); // a click on a disabled box does nothing
    automation::Click(IDOK);
    ASSERT_EQ(dialog.DoModal(), IDOK);
    EXPECT_FALSE(enabled);
    EXPECT_EQ(dialog.m_format.GetTitles(), 1);
    EXPECT_EQ(dialog.m_format.m_titlesShown, 1);
}

TEST_F(ExportFormatDlgTest, TheOtherBoxesAndTheFileNameAreExchanged) {
    CExportFormatDlg dialog;
    automation::SetCheck(CExportFormatDlg::IDC_APPEND, true);
    automation::SetCheck(CExportFormatDlg::IDC_DATE_IN_NAME, true);
    TypeOver(kFileName, u"/tmp/typed.csv");
    automation::Click(IDOK);
    ASSERT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.m_format.m_append, 1);
    EXPECT_EQ(dialog.m_format.m_dateInFileName, 1);
    EXPECT_EQ(dialog.m_format.GetFilename(), u"/tmp/typed.csv");
    // Typing a ".csv" name does not switch comma-separated mode on.
    EXPECT_EQ(dialog.m_format.m_csv, 0);
}

TEST_F(ExportFormatDlgTest, CancelLeavesTheFormatAsItWas) {
    CExportFormatDlg dialog;
    dialog.m_format.SetFilename(u"/tmp/kept.txt");
    TypeOver(kFileName, u"/tmp/other.txt");
    automation::SetCheck(CExportFormatDlg::IDC_APPEND, true);
    automation::Key(VK_ESCAPE);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.m_format.GetFilename(), u"/tmp/kept.txt");
    EXPECT_EQ(dialog.m_format.m_append, 0);
}

TEST_F(ExportFormatDlgTest, BrowsingPutsTheChosenPathInTheNameField) {
    const auto dir = testing_support::TestOutputDir("export-dialog");
    std::ofstream(dir / "existing.txt") << "x";
    CExportFormatDlg dialog;
    dialog.m_format.SetFilename(platform::FromUtf8((dir / "start.txt").string()));
    std::u16string shown, preview, previewAfter;
    LookAtPreview(preview);
    automation::Click(CExportFormatDlg::IDC_BROWSE);
    automation::AnswerFileDialog(u"chosen");
    automation::Do([&] {
        shown = ShownText(kFileName);
        previewAfter = ShownText(kPreview);
    });
    automation::Click(IDOK);
    ASSERT_EQ(dialog.DoModal(), IDOK);
    // The dialog opened in the initial name's folder and added "txt".
    const std::u16string expected = platform::FromUtf8((dir / "chosen.txt").string()).GetString();
    EXPECT_EQ(shown, expected);
    EXPECT_EQ(previewAfter, preview);
    EXPECT_EQ(std::u16string(dialog.m_format.GetFilename().GetString()), expected);
}

TEST_F(ExportFormatDlgTest, CancellingTheFileDialogKeepsTheName) {
    CExportFormatDlg dialog;
    dialog.m_format.SetFilename(u"/tmp/kept.txt");
    std::u16string shown;
    automation::Click(CExportFormatDlg::IDC_BROWSE);
    automation::Key(VK_ESCAPE);
    automation::Do([&] { shown = ShownText(kFileName); });
    automation::Click(IDOK);
    ASSERT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(shown, u"/tmp/kept.txt");
    EXPECT_EQ(dialog.m_format.GetFilename(), u"/tmp/kept.txt");
}

} // namespace
