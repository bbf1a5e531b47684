// The framework's print command on a three-page view: the order of the
// printing steps, the pages written, printing without a dialog, a cancelled
// dialog, an output that cannot be written, and the main window held
// disabled while the pages print.
#include "PageHost.h"

#include "support/MessageBoxLook.h"

#include <platform/Automation.h>
#include <platform/Printers.h>
#include <platform/WindowPictures.h>

#include <filesystem>

namespace pages {
namespace {

namespace automation = platform::automation;
using Steps = std::vector<std::string>;

class PrintCommandTest : public PageHostTest {
protected:
    // Answers the print dialog: the PDF printer writing to path, then OK.
    void PrintTo(const std::filesystem::path& path) {
        automation::SetPrintFile(Utf16(path.string()));
        automation::Click(IDOK);
    }
};

TEST_F(PrintCommandTest, EveryPageGoesThroughTheStepsInOrderOntoItsOwnPdfPage) {
    const auto pdf = dir / "three.pdf";
    PrintTo(pdf);
    Command(ID_FILE_PRINT);

    EXPECT_EQ(view->steps, (Steps{"prepare", "begin", "dc 1", "print 1", "dc 2", "print 2", "dc 3",
                                  "print 3", "end"}));
    ASSERT_EQ(view->printed.size(), 3u);
    for (const CPageView::Page& page : view->printed) {
        // Letter paper at 600 dots per inch, the whole of it.
        EXPECT_EQ(page.rectDraw, CRect(0, 0, 5100, 6600)) << page.number;
        EXPECT_TRUE(page.dcPrinting);
        EXPECT_FALSE(page.preview);
    }
    EXPECT_EQ(PdfPages(pdf), 3);
    const std::string text = PdfText(pdf);
    const auto first = text.find("Page 1");
    const auto third = text.find("Page 3");
    ASSERT_NE(first, std::string::npos) << text;
    ASSERT_NE(third, std::string::npos) << text;
    EXPECT_LT(first, third);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(PrintCommandTest, TheMainWindowIsDisabledWhilePagesPrintAndEnabledAfter) {
    PrintTo(dir / "held.pdf");
    Command(ID_FILE_PRINT);
    ASSERT_EQ(view->printed.size(), 3u);
    for (const CPageView::Page& page : view->printed)
        EXPECT_FALSE(page.mainEnabled) << "page " << page.number;
    EXPECT_TRUE(frame->IsWindowEnabled());
}

TEST_F(PrintCommandTest, ThePrintDialogOffersTheViewsPagesOnTheDefaultPrinter) {
    automation::PrintDialogView seen;
    bool shown = false;
    bool saved = false;
    automation::Do([&] {
        shown = automation::ReadPrintDialog(&seen);
        saved = platform::SaveWindowAsPng(GetActiveWindow(), (dir / "dialog.png").string());
    });
    automation::Click(IDCANCEL);
    Command(ID_FILE_PRINT);

    ASSERT_TRUE(shown);
    EXPECT_TRUE(saved);
    EXPECT_EQ(seen.title, u"Print");
    ASSERT_FALSE(seen.printers.empty());
    EXPECT_EQ(seen.printers.front(), platform::kPdfPrinter);
    EXPECT_EQ(seen.printer, platform::kPdfPrinter);
    EXPECT_EQ(seen.file, Utf16((dir / "default.pdf").string()));
    EXPECT_TRUE(seen.fileEnabled);
    EXPECT_TRUE(seen.allPages);
    EXPECT_TRUE(seen.pagesEnabled);
    EXPECT_EQ(seen.from, u"1");
    EXPECT_EQ(seen.to, u"3");
    // A file holds one copy.
    EXPECT_EQ(seen.copies, u"1");
    EXPECT_FALSE(seen.copiesEnabled);
}

TEST_F(PrintCommandTest, APageRangePrintsThosePagesOnly) {
    const auto pdf = dir / "range.pdf";
    automation::SetPrintRange(2, 3);
    PrintTo(pdf);
    Command(ID_FILE_PRINT);
    EXPECT_EQ(view->steps,
              (Steps{"prepare", "begin", "dc 2", "print 2", "dc 3", "print 3", "end"}));
    EXPECT_EQ(PdfPages(pdf), 2);
    EXPECT_EQ(PdfText(pdf).find("Page 1"), std::string::npos);
}

TEST_F(PrintCommandTest, APageOutsideTheDocumentIsRefusedUntilCorrected) {
    const auto pdf = dir / "corrected.pdf";
    testing_support::MessageBoxLook look;
    automation::SetPrintRange(2, 7);
    automation::Click(IDOK);
    testing_support::LookAndConfirm(look);
    automation::SetPrintRange(3, 3);
    PrintTo(pdf);
    Command(ID_FILE_PRINT);
    EXPECT_EQ(look.text, u"Enter a page number between 1 and 3.");
    EXPECT_EQ(view->steps, (Steps{"prepare", "begin", "dc 3", "print 3", "end"}));
    EXPECT_EQ(PdfPages(pdf), 1);
}

TEST_F(PrintCommandTest, PrintDirectGoesToTheDefaultPrinterWithoutADialog) {
    frame->SendMessage(WM_COMMAND, ID_FILE_PRINT_DIRECT, 0);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
    EXPECT_EQ(automation::Record().size(), 0u);
    EXPECT_EQ(view->steps.back(), "end");
    EXPECT_EQ(PdfPages(dir / "default.pdf"), 3);
}

TEST_F(PrintCommandTest, AViewThatAsksForNoPrinterPrintsOnTheDefaultOne) {
    view->askForPrinter = false;
    Command(ID_FILE_PRINT);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
    EXPECT_EQ(PdfPages(dir / "default.pdf"), 3);
}

TEST_F(PrintCommandTest, AViewThatDoesNotKnowItsLengthPrintsOnePage) {
    view->pageCount = 0xFFFF;
    frame->SendMessage(WM_COMMAND, ID_FILE_PRINT_DIRECT, 0);
    EXPECT_EQ(view->steps, (Steps{"prepare", "begin", "dc 1", "print 1", "dc 2", "end"}));
    EXPECT_EQ(PdfPages(dir / "default.pdf"), 1);
}

TEST_F(PrintCommandTest, ACancelledDialogEndsTheCommandWithNothingWritten) {
    automation::SetPrintFile(Utf16((dir / "never.pdf").string()));
    automation::Click(IDCANCEL);
    Command(ID_FILE_PRINT);
    EXPECT_EQ(view->steps, (Steps{"prepare"}));
    EXPECT_TRUE(std::filesystem::is_empty(dir));
    EXPECT_TRUE(frame->IsWindowEnabled());
    EXPECT_TRUE(view->IsWindowEnabled());
}

TEST_F(PrintCommandTest, ADisabledMainWindowIsNotEnabledByACancelledDialog) {
    // The dialog runs over the frame and leaves it as it found it.
    automation::Click(IDCANCEL);
    Command(ID_FILE_PRINT);
    EXPECT_TRUE(frame->IsWindowEnabled());
    frame->EnableWindow(FALSE);
    automation::Click(IDCANCEL);
    view->OnFilePrint();
    EXPECT_FALSE(frame->IsWindowEnabled());
    frame->EnableWindow(TRUE);
}

TEST_F(PrintCommandTest, AnOutputThatCannotBeWrittenShowsTheErrorAndLeavesNothing) {
    const auto missing = dir / "missing";
    const auto pdf = missing / "out.pdf";
    testing_support::MessageBoxLook look;
    PrintTo(pdf);
    testing_support::LookAndConfirm(look);
    Command(ID_FILE_PRINT);

    EXPECT_EQ(look.text, u"Could not start print job.");
    EXPECT_EQ(view->steps, (Steps{"prepare", "begin", "end"}));
    EXPECT_FALSE(std::filesystem::exists(missing));
    EXPECT_TRUE(std::filesystem::is_empty(dir));
    EXPECT_TRUE(frame->IsWindowEnabled());
}

TEST_F(PrintCommandTest, AnEmptyFileNameIsRefused) {
    testing_support::MessageBoxLook look;
    automation::SetPrintFile(u"");
    automation::Click(IDOK);
    testing_support::LookAndConfirm(look);
    automation::Click(IDCANCEL);
    Command(ID_FILE_PRINT);
    EXPECT_EQ(look.text, u"Enter the name of the file to print to.");
    EXPECT_EQ(view->steps, (Steps{"prepare"}));
}

} // namespace
} // namespace pages
