// Printing to a print queue of a CUPS service of the test's own: the queue
// is offered beside the PDF printer, a document printed there arrives as one
// job with its copies, and a job the service cannot take leaves no spool
// file behind.
#include "CupsServer.h"

#include <platform/Automation.h>
#include <platform/CodePage.h>
#include <platform/GdiObjects.h>
#include <platform/GlobalMemory.h>
#include <platform/Printers.h>
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <regex>

namespace {

namespace automation = platform::automation;
namespace fs = std::filesystem;

int PdfPages(const fs::path& pdf) {
    std::string info;
    if (FILE* pipe = popen(("pdfinfo '" + pdf.string() + "' 2>/dev/null").c_str(), "r")) {
        char buffer[512];
        while (size_t n = fread(buffer, 1, sizeof buffer, pipe))
            info.append(buffer, n);
        pclose(pipe);
    }
    std::smatch match;
    return std::regex_search(info, match, std::regex("Pages:\\s+(\\d+)")) ? std::stoi(match[1])
                                                                          : -1;
}

std::string Contents(const fs::path& path) {
    std::ifstream in(path);
    std::string text;
    std::getline(in, text);
    return text;
}

class CupsPrintTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        // A folder of this process's own: tests run side by side.
        std::string pattern = (fs::temp_directory_path() / "cups-spool-XXXXXX").string();
        if (mkdtemp(pattern.data()))
            spool = pattern;
        setenv("TMPDIR", spool.c_str(), 1);
        server = new testing_support::CupsServer;
        ShowADialogOnce();
    }
    // The window system makes some drawing objects at their first use and
    // keeps them (the system colours' brushes, the caption font): a print
    // dialog shown and cancelled first makes them before anything is counted.
    static void ShowADialogOnce() {
        PRINTDLG once{};
        once.lStructSize = sizeof(once);
        once.nMinPage = once.nMaxPage = once.nFromPage = once.nToPage = 1;
        automation::Click(IDCANCEL);
        PrintDlg(&once);
        automation::Reset();
    }
    static void TearDownTestSuite() {
        delete server;
        unsetenv("TMPDIR");
        if (!spool.empty())
            fs::remove_all(spool);
    }
    void SetUp() override {
        ASSERT_FALSE(spool.empty());
        if (!server->Problem().empty())
            GTEST_SKIP() << server->Problem();
        automation::Reset();
        blocks = platform::LiveGlobalBlocks();
        gdi = platform::LiveGdiObjects();
        pd.lStructSize = sizeof(pd);
        pd.Flags = PD_RETURNDC | PD_USEDEVMODECOPIES;
        pd.nMinPage = 1;
        pd.nMaxPage = 2;
        pd.nFromPage = 1;
        pd.nToPage = 2;
        pd.nCopies = 1;
    }
    void TearDown() override {
        GlobalFree(pd.hDevNames);
        GlobalFree(pd.hDevMode);
        if (pd.hDC)
            DeleteDC(pd.hDC);
        platform::SetDefaultPrinter(platform::kPdfPrinter);
        EXPECT_EQ(automation::Pending(), 0u);
        automation::Reset();
        EXPECT_EQ(platform::LiveGlobalBlocks(), blocks);
        EXPECT_EQ(platform::LiveGdiObjects(), gdi);
    }
    // Two pages of text onto the record's printer DC; the result of EndDoc.
    int PrintTwoPages(const std::function<void()>& beforeEnd = {}) {
        DOCINFO info{sizeof(DOCINFO), u"Queued", nullptr, nullptr, 0};
        if (StartDoc(pd.hDC, &info) <= 0)
            return SP_ERROR;
        for (const char16_t* text : {u"first queued page", u"second queued page"}) {
            StartPage(pd.hDC);
            TextOutW(pd.hDC, 600, 600, text,
                     static_cast<int>(std::char_traits<char16_t>::length(text)));
            EndPage(pd.hDC);
        }
        if (beforeEnd)
            beforeEnd();
        return EndDoc(pd.hDC);
    }

    static testing_support::CupsServer* server;
    static fs::path spool;
    PRINTDLG pd{};
    int blocks = 0;
    platform::GdiCounts gdi;
};

testing_support::CupsServer* CupsPrintTest::server = nullptr;
fs::path CupsPrintTest::spool;

TEST_F(CupsPrintTest, TheQueueIsOfferedAfterThePdfPrinter) {
    const auto printers = platform::Printers();
    ASSERT_EQ(printers.size(), 2u);
    EXPECT_EQ(printers[0].name, platform::kPdfPrinter);
    EXPECT_EQ(printers[1].name, u"testq");
    EXPECT_EQ(printers[1].where, u"Test queue");
    EXPECT_FALSE(printers[1].toFile);
}

TEST_F(CupsPrintTest, ADocumentPrintedToTheQueueArrivesAsOneJobWithItsCopies) {
    automation::PrintDialogView seen;
    automation::ChoosePrinter(u"testq");
    automation::Do([&] { automation::ReadPrintDialog(&seen); });
    automation::SetPrintCopies(2);
    automation::Click(IDOK);
    ASSERT_TRUE(PrintDlg(&pd));
    EXPECT_EQ(seen.printer, u"testq");
    EXPECT_EQ(seen.where, u"Test queue");
    EXPECT_FALSE(seen.fileEnabled);
    EXPECT_TRUE(seen.copiesEnabled);
    ASSERT_NE(pd.hDC, nullptr);
    // The copies are the printer's to make.
    EXPECT_EQ(pd.nCopies, 1);

    const int before = server->JobCount();
    EXPECT_GT(PrintTwoPages(), 0);
    const fs::path job = server->WaitForJob(before);
    ASSERT_FALSE(job.empty());
    EXPECT_EQ(PdfPages(job), 2);
    EXPECT_EQ(Contents(fs::path(job).replace_extension(".copies")), "2");
    EXPECT_TRUE(fs::is_empty(spool));
}

TEST_F(CupsPrintTest, TheQueueCanBeTheDefaultPrinter) {
    ASSERT_TRUE(platform::SetDefaultPrinter(u"testq"));
    EXPECT_EQ(platform::DefaultPrinter(), u"testq");
    pd.Flags |= PD_RETURNDEFAULT;
    ASSERT_TRUE(PrintDlg(&pd));
    const int before = server->JobCount();
    EXPECT_GT(PrintTwoPages(), 0);
    const fs::path job = server->WaitForJob(before);
    ASSERT_FALSE(job.empty());
    EXPECT_EQ(Contents(fs::path(job).replace_extension(".copies")), "1");
}

// Last: it stops the service.
TEST_F(CupsPrintTest, AJobTheServiceCannotTakeFailsAndLeavesNoSpoolFile) {
    ASSERT_TRUE(platform::SetDefaultPrinter(u"testq"));
    pd.Flags |= PD_RETURNDEFAULT;
    ASSERT_TRUE(PrintDlg(&pd));
    EXPECT_EQ(PrintTwoPages([] { server->Stop(); }), SP_ERROR);
    EXPECT_TRUE(fs::is_empty(spool));
    // Without the service the queue is gone.
    EXPECT_EQ(CreateDC(u"WINSPOOL", u"testq", nullptr, nullptr), nullptr);
    EXPECT_EQ(platform::DefaultPrinter(), platform::kPdfPrinter);
    EXPECT_EQ(platform::Printers().size(), 1u);
}

} // namespace
