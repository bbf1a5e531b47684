// The one-call export of a report list: the settings dialog answered as a
// user would, the file it writes, the messages it shows, and the paths that
// write nothing.
#include "support/ReadOnlyDirectory.h"
#include "support/Shown.h"
#include "support/TempDir.h"

#include <Win/Win.h>
#include <platform/Automation.h>
#include <platform/Clock.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

namespace automation = platform::automation;
namespace fs = std::filesystem;
using testing_support::MessageBoxText;

class ListExportTest : public ::testing::Test {
protected:
    void SetUp() override {
        automation::Reset();
        platform::PinLocalClock(2024, 3, 5, 14, 30);
        dir = testing_support::TestOutputDir("list-export");
        ASSERT_TRUE(parent.CreateEx(0, nullptr, u"list", WS_OVERLAPPED | WS_VISIBLE,
                                    CRect(0, 0, 420, 300), nullptr, 0));
        ASSERT_TRUE(
            list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(10, 10, 410, 290), &parent, 100));
    }
    void TearDown() override {
        automation::Reset();
        list.DestroyWindow();
        parent.DestroyWindow();
        platform::PumpMessages();
        platform::UnpinClock();
    }
    void Fill(int columns, int rows) {
        for (int c = 0; c < columns; ++c)
            list.InsertColumn(c, (u"Head " + std::u16string(1, u'A' + c)).c_str(), LVCFMT_LEFT, 80);
        for (int r = 0; r < rows; ++r) {
            list.InsertItem(r, (u"r" + std::u16string(1, u'0' + r)).c_str());
            for (int c = 1; c < columns; ++c)
                list.SetItemText(r, c, (u"c" + std::u16string(1, u'0' + c)).c_str());
        }
    }
    // The user's answers in the settings dialog: the file name typed over
    // the default one, the titles box, then OK.
    void AnswerDialog(const fs::path& file, bool titles, bool dated = false) {
        automation::Click(CExportFormatDlg::IDC_FILENAME);
        automation::Key(VK_END);
        automation::Key(VK_HOME, true);
        automation::Type(platform::FromUtf8(file.string()).GetString());
        automation::SetCheck(CExportFormatDlg::IDC_TITLES, titles);
        automation::SetCheck(CExportFormatDlg::IDC_DATE_IN_NAME, dated);
        automation::Click(IDOK);
    }
    // Reads the message box's text, then closes it.
    void ReadMessage() {
        automation::Do([this] { message = MessageBoxText(); });
        automation::AnswerMessageBox(IDOK);
    }
    static std::string ReadAll(const fs::path& path) {
        std::ifstream in(path, std::ios::binary);
        return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    }

    fs::path dir;
    CWnd parent;
    CListCtrl list;
    std::u16string message;
};

TEST_F(ListExportTest, WritesHeadingsAndRowsAndSaysWhere) {
    Fill(3, 2);
    const fs::path file = dir / "list.txt";
    AnswerDialog(file, true);
    ReadMessage();
    EXPECT_TRUE(WinUtils::ExportListCtrlData(list));
    EXPECT_EQ(ReadAll(file), "\"Head A\",\"Head B\",\"Head C\"\r\n"
                             "\"r0\",\"c1\",\"c2\"\r\n"
                             "\"r1\",\"c1\",\"c2\"\r\n");
    EXPECT_EQ(message, u"The list was written to " + file.u16string() + u".");
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(ListExportTest, AnEmptyListWritesOnlyItsHeadingsOrNothing) {
    Fill(2, 0);
    const fs::path titled = dir / "titled.txt";
    AnswerDialog(titled, true);
    ReadMessage();
    EXPECT_TRUE(WinUtils::ExportListCtrlData(list));
    EXPECT_EQ(ReadAll(titled), "\"Head A\",\"Head B\"\r\n");

    const fs::path bare = dir / "bare.txt";
    AnswerDialog(bare, false);
    ReadMessage();
    EXPECT_TRUE(WinUtils::ExportListCtrlData(list));
    EXPECT_TRUE(fs::exists(bare));
    EXPECT_EQ(fs::file_size(bare), 0u);
}

TEST_F(ListExportTest, LongHeadingsAreCutAndCellsAreWrittenWhole) {
    const std::u16string heading(300, u'h');
    const std::u16string cell(1000, u'c');
    list.InsertColumn(0, heading.c_str(), LVCFMT_LEFT, 80);
    list.InsertItem(0, cell.c_str());
    const fs::path file = dir / "long.txt";
    AnswerDialog(file, true);
    ReadMessage();
    EXPECT_TRUE(WinUtils::ExportListCtrlData(list));
    EXPECT_EQ(ReadAll(file),
              "\"" + std::string(255, 'h') + "\"\r\n\"" + std::string(1000, 'c') + "\"\r\n");
}

TEST_F(ListExportTest, ADatedNameIsTheOneTheMessageGives) {
    Fill(1, 1);
    AnswerDialog(dir / "dated.txt", false, true);
    ReadMessage();
    EXPECT_TRUE(WinUtils::ExportListCtrlData(list));
    const fs::path written = dir / "dated_2024-03-05.txt";
    EXPECT_EQ(ReadAll(written), "\"r0\"\r\n");
    EXPECT_FALSE(fs::exists(dir / "dated.txt"));
    EXPECT_EQ(message, u"The list was written to " + written.u16string() + u".");
}

TEST_F(ListExportTest, CancelTouchesNoFileAndSaysNothing) {
    Fill(2, 2);
    automation::Key(VK_ESCAPE);
    EXPECT_FALSE(WinUtils::ExportListCtrlData(list));
    EXPECT_TRUE(fs::is_empty(dir));
    EXPECT_EQ(automation::Pending(), 0u);
    // Running out of actions cancels the dialog too.
    EXPECT_FALSE(WinUtils::ExportListCtrlData(list));
    EXPECT_EQ(automation::CancelsForWantOfActions(), 1);
    EXPECT_TRUE(fs::is_empty(dir));
}

TEST_F(ListExportTest, AFileThatCannotBeOpenedIsReportedWithTheReason) {
    Fill(2, 2);
    AnswerDialog(dir / "missing" / "list.txt", true);
    ReadMessage();
    EXPECT_FALSE(WinUtils::ExportListCtrlData(list));
    EXPECT_EQ(message.rfind(u"The file could not be opened:\n", 0), 0u);
    EXPECT_GT(message.size(), 31u); // the writer's reason follows
    EXPECT_TRUE(fs::is_empty(dir));
}

TEST_F(ListExportTest, AnUnwritableFolderIsReportedAndNothingIsWritten) {
    Fill(2, 2);
    const testing_support::ReadOnlyDirectory locked("list-export");
    locked.RunRefused([&] {
        AnswerDialog(locked.Path() / "list.txt", true);
        ReadMessage();
        EXPECT_FALSE(WinUtils::ExportListCtrlData(list));
        EXPECT_EQ(message.rfind(u"The file could not be opened:\n", 0), 0u);
        EXPECT_TRUE(std::filesystem::is_empty(locked.Path()));
    });
}

} // namespace
