// The printout wizard run from a delivery list's menu by the simulated user:
// what Finish and Cancel leave behind, the dates page passed over when the
// header names no dates, the dates checked before the user may go on, and
// the settings reaching the printed header line.
#include "PrintHostTest.h"

#include "resource.h"
#include "support/MessageBoxLook.h"
#include "support/PdfText.h"

#include <platform/Automation.h>
#include <platform/CodePage.h>
#include <platform/Printers.h>

namespace {

namespace automation = platform::automation;

class PrintWizardTest : public PrintHostTest {
protected:
    void SetUp() override {
        PrintHostTest::SetUp();
        automation::PickMenuItem(ID_FILE_NEW);
        Run();
    }
    const PrintoutSettings& Settings() const { return host.app->m_printout; }
    // Notes the page the wizard shows now.
    void NotePage() {
        automation::Do([this] { pages.push_back(WizardPageIndex()); });
    }

    // What the user saw when Next refused a page: the message box, then where
    // the focus went and the field it should be on.
    struct Refusal {
        testing_support::MessageBoxLook box;
        HWND focus = nullptr;
        HWND field = nullptr;
    };
    // Clicks Next, answers the message box that refuses it and notes what
    // the user is shown; refusal is filled in as the queued actions run.
    void NextRefused(UINT field, Refusal& refusal) {
        automation::Click(ID_WIZNEXT);
        testing_support::LookAndConfirm(refusal.box);
        NotePage();
        automation::Do([&refusal, field] {
            refusal.focus = GetFocus();
            refusal.field = WizardPageItem(field);
        });
    }

    std::vector<int> pages;
};

TEST_F(PrintWizardTest, FinishKeepsWhatThePagesSetAndTheNextPrintoutShowsIt) {
    automation::PickMenuItem(ID_LIST_WIZARD);
    TypeOver(IDC_SYSTEM_NAME, u"Depot 7");
    automation::Click(ID_WIZNEXT);
    TypeOver(IDC_DATE_FROM, u"2024-03-01");
    TypeOver(IDC_DATE_TO, u"2024-03-15");
    automation::Click(ID_WIZNEXT);
    std::u16string summary;
    automation::Do([&summary] { summary = TextOf(WizardPageItem(IDC_SUMMARY)); });
    automation::Click(ID_WIZFINISH);
    Run();
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
    EXPECT_EQ(CString(Settings().site), CString(u"Depot 7"));
    EXPECT_TRUE(Settings().includeDates);
    EXPECT_EQ(Settings().from, COleDateTime(2024, 3, 1, 0, 0, 0));
    EXPECT_EQ(Settings().to, COleDateTime(2024, 3, 15, 0, 0, 0));
    // The summary showed the line as it prints, after the time.
    EXPECT_NE(summary.find(u"   Depot 7 - deliveries from 2024-03-01 to 2024-03-15"),
              std::u16string::npos)
        << platform::ToUtf8(summary);

    // The first page printed to a file carries the new header line.
    const std::filesystem::path pdf = dir / "list.pdf";
    automation::PickMenuItem(ID_LIST_PRINT);
    automation::ChoosePrinter(platform::kPdfPrinter);
    automation::SetPrintRange(1, 1);
    automation::SetPrintFile(platform::FromUtf8(pdf.string()).GetString());
    automation::Click(IDOK);
    Run();
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
    ASSERT_EQ(testing_support::PdfPageCount(pdf), 1);
    EXPECT_TRUE(testing_support::PageHas(testing_support::PdfPageLines(pdf, 1),
                                         "Depot 7 - deliveries from 2024-03-01 to 2024-03-15"));
    EXPECT_EQ(PrintHost::OpenPrintouts(), 0);
}

TEST_F(PrintWizardTest, CancelLeavesTheSettingsAsTheyWere) {
    automation::PickMenuItem(ID_LIST_WIZARD);
    TypeOver(IDC_SYSTEM_NAME, u"Somewhere else");
    automation::SetCheck(IDC_INCLUDE_DATES, false);
    automation::Click(ID_WIZNEXT);
    automation::Click(IDCANCEL);
    Run();
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
    EXPECT_EQ(CString(Settings().site), CString(u"North Plant"));
    EXPECT_TRUE(Settings().includeDates);
    // The main window is back in the user's hands.
    EXPECT_TRUE(IsWindowEnabled(host.main->m_hWnd));
    EXPECT_EQ(GetActiveWindow(), host.main->m_hWnd);
}

TEST_F(PrintWizardTest, WithoutDatesNextAndBackPassTheDatesPageOver) {
    automation::PickMenuItem(ID_LIST_WIZARD);
    automation::SetCheck(IDC_INCLUDE_DATES, false);
    automation::Click(ID_WIZNEXT);
    NotePage();
    std::u16string summary;
    automation::Do([&summary] { summary = TextOf(WizardPageItem(IDC_SUMMARY)); });
    automation::Click(ID_WIZBACK);
    NotePage();
    // Dates named again: the dates page is on the way once more.
    automation::SetCheck(IDC_INCLUDE_DATES, true);
    automation::Click(ID_WIZNEXT);
    NotePage();
    automation::Click(ID_WIZBACK);
    automation::SetCheck(IDC_INCLUDE_DATES, false);
    automation::Click(ID_WIZNEXT);
    automation::Click(ID_WIZFINISH);
    Run();
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
    EXPECT_EQ(pages, (std::vector<int>{2, 0, 1}));
    EXPECT_NE(summary.find(u"North Plant"), std::u16string::npos);
    EXPECT_EQ(summary.find(u"deliveries from"), std::u16string::npos);
    EXPECT_FALSE(Settings().includeDates);
}

TEST_F(PrintWizardTest, AnEmptySiteShowsThatNoHeaderLinePrints) {
    automation::PickMenuItem(ID_LIST_WIZARD);
    // The site selected and deleted.
    TypeOver(IDC_SYSTEM_NAME, u"");
    automation::Key(VK_DELETE);
    automation::Click(ID_WIZNEXT);
    automation::Click(ID_WIZNEXT);
    std::u16string summary;
    automation::Do([&summary] { summary = TextOf(WizardPageItem(IDC_SUMMARY)); });
    automation::Click(ID_WIZFINISH);
    Run();
    EXPECT_EQ(summary, u"(no header line)");
    EXPECT_TRUE(Settings().site.IsEmpty());
}

TEST_F(PrintWizardTest, DatesThatDoNotReadOrRunBackwardsKeepTheUserOnThePage) {
    automation::PickMenuItem(ID_LIST_WIZARD);
    automation::Click(ID_WIZNEXT);
    TypeOver(IDC_DATE_FROM, u"someday");
    Refusal unreadable;
    NextRefused(IDC_DATE_FROM, unreadable);

    TypeOver(IDC_DATE_FROM, u"2024-05-01");
    TypeOver(IDC_DATE_TO, u"2024-04-01");
    Refusal backwards;
    NextRefused(IDC_DATE_TO, backwards);

    // A range of one day is a range.
    TypeOver(IDC_DATE_TO, u"2024-05-01");
    automation::Click(ID_WIZNEXT);
    NotePage();
    automation::Click(ID_WIZFINISH);
    Run();
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
    EXPECT_EQ(unreadable.box.text, u"Type the date as year-month-day, for example 2024-01-31.");
    EXPECT_EQ(backwards.box.text, u"The first date comes after the last one.");
    EXPECT_EQ(pages, (std::vector<int>{1, 1, 2}));
    EXPECT_EQ(unreadable.focus, unreadable.field);
    EXPECT_NE(unreadable.field, nullptr);
    EXPECT_EQ(backwards.focus, backwards.field);
    EXPECT_EQ(Settings().from, COleDateTime(2024, 5, 1, 0, 0, 0));
    EXPECT_EQ(Settings().to, COleDateTime(2024, 5, 1, 0, 0, 0));
}

} // namespace
