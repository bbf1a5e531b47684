// The print dialog through its C interface and the framework's class: what a
// bad request gets, the default printer without a dialog, the printer's
// names and settings handed back, and the file chosen with the file dialog.
#include "PageHost.h"

#include "support/MessageBoxLook.h"

#include <platform/Automation.h>
#include <platform/CodePage.h>
#include <platform/GlobalMemory.h>
#include <platform/Printers.h>

#include <dlgs.h>

namespace pages {
namespace {

namespace automation = platform::automation;

class PrintDialogTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { ShowADialogOnce(); }
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
    void SetUp() override {
        automation::Reset();
        blocks = platform::LiveGlobalBlocks();
        gdi = platform::LiveGdiObjects();
        output = "/tmp/print-dialog-default.pdf";
        platform::SetPrinterOutput(output);
        pd.lStructSize = sizeof(pd);
        pd.nMinPage = 1;
        pd.nMaxPage = 9;
        pd.nFromPage = 1;
        pd.nToPage = 9;
        pd.nCopies = 1;
    }
    void TearDown() override {
        GlobalFree(pd.hDevNames);
        GlobalFree(pd.hDevMode);
        if (pd.hDC)
            DeleteDC(pd.hDC);
        EXPECT_EQ(automation::Pending(), 0u);
        automation::Reset();
        EXPECT_EQ(platform::LiveGlobalBlocks(), blocks);
        EXPECT_EQ(platform::LiveGdiObjects(), gdi);
    }
    // The device and output names of the record's DEVNAMES.
    std::pair<std::u16string, std::u16string> Names() const {
        auto* names = static_cast<const DEVNAMES*>(GlobalLock(pd.hDevNames));
        if (!names)
            return {};
        const auto* text = reinterpret_cast<const char16_t*>(names);
        std::pair<std::u16string, std::u16string> result{text + names->wDeviceOffset,
                                                         text + names->wOutputOffset};
        EXPECT_EQ(std::u16string(text + names->wDriverOffset), u"WINSPOOL");
        GlobalUnlock(pd.hDevNames);
        return result;
    }

    PRINTDLG pd{};
    std::string output;
    int blocks = 0;
    platform::GdiCounts gdi;
};

TEST_F(PrintDialogTest, ABadRequestSaysWhyAndShowsNothing) {
    pd.lStructSize = sizeof(pd) - 4;
    EXPECT_FALSE(PrintDlg(&pd));
    EXPECT_EQ(CommDlgExtendedError(), static_cast<DWORD>(CDERR_STRUCTSIZE));
    EXPECT_FALSE(PrintDlg(nullptr));
    EXPECT_EQ(CommDlgExtendedError(), static_cast<DWORD>(CDERR_STRUCTSIZE));

    pd.lStructSize = sizeof(pd);
    pd.nMinPage = 5;
    pd.nMaxPage = 2;
    EXPECT_FALSE(PrintDlg(&pd));
    EXPECT_EQ(CommDlgExtendedError(), static_cast<DWORD>(PDERR_INITFAILURE));

    pd.nMinPage = 1;
    pd.nMaxPage = 9;
    pd.Flags = PD_PAGENUMS;
    pd.nFromPage = 10;
    EXPECT_FALSE(PrintDlg(&pd));
    EXPECT_EQ(CommDlgExtendedError(), static_cast<DWORD>(PDERR_INITFAILURE));
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(PrintDialogTest, TheDefaultPrinterComesWithoutADialog) {
    pd.Flags = PD_RETURNDEFAULT | PD_RETURNDC;
    ASSERT_TRUE(PrintDlg(&pd));
    EXPECT_EQ(Names(), std::make_pair(std::u16string(platform::kPdfPrinter), Utf16(output)));
    ASSERT_NE(pd.hDC, nullptr);
    EXPECT_EQ(GetDeviceCaps(pd.hDC, LOGPIXELSY), 600);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);

    // It only fills an empty record.
    EXPECT_FALSE(PrintDlg(&pd));
    EXPECT_EQ(CommDlgExtendedError(), static_cast<DWORD>(PDERR_RETDEFFAILURE));
}

TEST_F(PrintDialogTest, APrinterThatIsGoneIsNotFound) {
    const std::u16string text = std::u16string(u"WINSPOOL") + u'\0' + u"Gone" + u'\0' + u'\0';
    pd.hDevNames = GlobalAlloc(GHND, sizeof(DEVNAMES) + text.size() * 2);
    auto* names = static_cast<DEVNAMES*>(GlobalLock(pd.hDevNames));
    names->wDriverOffset = 4;
    names->wDeviceOffset = 4 + 9;
    names->wOutputOffset = 4 + 9 + 5;
    std::copy(text.begin(), text.end(), reinterpret_cast<char16_t*>(names) + 4);
    GlobalUnlock(pd.hDevNames);
    EXPECT_FALSE(PrintDlg(&pd));
    EXPECT_EQ(CommDlgExtendedError(), static_cast<DWORD>(PDERR_PRINTERNOTFOUND));

    // Offsets that point outside the block are refused, not followed.
    names = static_cast<DEVNAMES*>(GlobalLock(pd.hDevNames));
    names->wDeviceOffset = 4000;
    GlobalUnlock(pd.hDevNames);
    EXPECT_FALSE(PrintDlg(&pd));
    EXPECT_EQ(CommDlgExtendedError(), static_cast<DWORD>(PDERR_PARSEFAILURE));
}

TEST_F(PrintDialogTest, TheChoiceComesBackInTheRecord) {
    pd.Flags = PD_USEDEVMODECOPIES | PD_COLLATE;
    automation::SetPrintRange(3, 4);
    automation::SetPrintFile(u"/tmp/chosen.pdf");
    automation::Click(IDOK);
    ASSERT_TRUE(PrintDlg(&pd));
    EXPECT_EQ(Names(), std::make_pair(std::u16string(platform::kPdfPrinter),
                                      std::u16string(u"/tmp/chosen.pdf")));
    EXPECT_TRUE(pd.Flags & PD_PAGENUMS);
    EXPECT_EQ(pd.nFromPage, 3);
    EXPECT_EQ(pd.nToPage, 4);
    // The PDF printer makes one copy; the record's copies live in its
    // settings.
    EXPECT_EQ(pd.nCopies, 1);
    auto* mode = static_cast<const DEVMODE*>(GlobalLock(pd.hDevMode));
    ASSERT_NE(mode, nullptr);
    EXPECT_EQ(mode->dmCopies, 1);
    EXPECT_TRUE(mode->dmFields & DM_COPIES);
    EXPECT_EQ(std::u16string(mode->dmDeviceName), platform::kPdfPrinter);
    GlobalUnlock(pd.hDevMode);
    EXPECT_EQ(pd.hDC, nullptr); // not asked for

    // Opened again on the same record, it starts on what was chosen.
    automation::PrintDialogView seen;
    automation::Do([&] { automation::ReadPrintDialog(&seen); });
    automation::Click(IDCANCEL);
    EXPECT_FALSE(PrintDlg(&pd));
    EXPECT_EQ(CommDlgExtendedError(), 0u);
    EXPECT_EQ(seen.file, u"/tmp/chosen.pdf");
    EXPECT_FALSE(seen.allPages);
    EXPECT_EQ(seen.from, u"3");
    EXPECT_EQ(seen.to, u"4");
}

TEST_F(PrintDialogTest, TypingAPageNumberChoosesPages) {
    automation::PrintDialogView seen;
    automation::SetPrintFile(u"/tmp/typed.pdf");
    // Only the first field is typed in: "Pages" is chosen by the typing.
    automation::Do([] {
        HWND from = GetDlgItem(GetActiveWindow(), edt1);
        SetFocus(from);
        SendMessage(from, EM_SETSEL, 0, -1);
    });
    automation::Type(u"2");
    automation::Do([&] { automation::ReadPrintDialog(&seen); });
    automation::Click(IDOK);
    ASSERT_TRUE(PrintDlg(&pd));
    EXPECT_FALSE(seen.allPages);
    EXPECT_EQ(pd.nFromPage, 2);
    EXPECT_EQ(pd.nToPage, 9);
}

TEST_F(PrintDialogTest, BrowseChoosesTheFileWithTheFileDialog) {
    const auto dir = std::filesystem::temp_directory_path();
    const std::u16string chosen = Utf16((dir / "browsed.pdf").string());
    std::filesystem::remove(dir / "browsed.pdf");
    automation::Click(psh2);
    automation::AnswerFileDialog(Utf16((dir / "browsed").string()));
    automation::PrintDialogView seen;
    automation::Do([&] { automation::ReadPrintDialog(&seen); });
    automation::Click(IDOK);
    ASSERT_TRUE(PrintDlg(&pd));
    // The file dialog added the PDF extension.
    EXPECT_EQ(seen.file, chosen);
    EXPECT_EQ(Names().second, chosen);
}

TEST_F(PrintDialogTest, PrintSetupChoosesOnlyThePrinter) {
    pd.Flags = PD_PRINTSETUP;
    automation::PrintDialogView seen;
    automation::Do([&] { automation::ReadPrintDialog(&seen); });
    automation::Click(IDOK);
    ASSERT_TRUE(PrintDlg(&pd));
    EXPECT_EQ(seen.title, u"Print Setup");
    EXPECT_FALSE(seen.pagesEnabled);
    EXPECT_FALSE(seen.copiesEnabled);
    EXPECT_TRUE(seen.fileEnabled);
    EXPECT_EQ(Names().first, platform::kPdfPrinter);
}

TEST_F(PrintDialogTest, WithoutAPrintDialogTheStepsAreRecordedAndSkipped) {
    automation::ChoosePrinter(platform::kPdfPrinter);
    automation::SetPrintRange(1, 2);
    automation::RunNext();
    automation::RunNext();
    automation::RunNext();
    automation::RunNext();
    automation::RunNext();
    const auto& record = automation::Record();
    ASSERT_GE(record.size(), 2u);
    EXPECT_NE(record.front().find("is no print dialog"), std::string::npos) << record.front();
    automation::Reset();
}

TEST(Printers, ThePdfPrinterComesFirstAndIsTheDefault) {
    const auto printers = platform::Printers();
    ASSERT_FALSE(printers.empty());
    EXPECT_EQ(printers.front().name, platform::kPdfPrinter);
    EXPECT_TRUE(printers.front().toFile);
    for (std::size_t i = 1; i < printers.size(); ++i)
        EXPECT_FALSE(printers[i].toFile);
    EXPECT_EQ(platform::DefaultPrinter(), platform::kPdfPrinter);
    EXPECT_FALSE(platform::SetDefaultPrinter(u"No Such Printer"));
    EXPECT_EQ(platform::DefaultPrinter(), platform::kPdfPrinter);
}

// The framework's class over the same dialog.
class CPrintDialogTest : public PrintDialogTest {};

TEST_F(CPrintDialogTest, GetDefaultsNamesTheDefaultPrinterAndMakesItsDc) {
    CPrintDialog dialog(FALSE);
    EXPECT_EQ(dialog.GetDeviceName(), CString());
    ASSERT_TRUE(dialog.GetDefaults());
    EXPECT_EQ(dialog.GetDeviceName(), CString(platform::kPdfPrinter));
    EXPECT_EQ(dialog.GetDriverName(), CString(u"WINSPOOL"));
    EXPECT_EQ(dialog.GetPortName(), platform::FromUtf8(output));
    EXPECT_EQ(dialog.GetCopies(), 1);
    ASSERT_NE(dialog.GetPrinterDC(), nullptr);
    // A second DC replaces the first.
    HDC first = dialog.GetPrinterDC();
    HDC second = dialog.CreatePrinterDC();
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(GetObjectType(first), 0u);
    DeleteDC(second);
}

TEST_F(CPrintDialogTest, DoModalReportsTheRange) {
    CPrintDialog dialog(FALSE, PD_ALLPAGES | PD_USEDEVMODECOPIES | PD_NOSELECTION);
    dialog.m_pd.nMaxPage = 5;
    dialog.m_pd.nToPage = 5;
    automation::SetPrintRange(2, 5);
    automation::Click(IDOK);
    ASSERT_EQ(dialog.DoModal(), IDOK);
    EXPECT_TRUE(dialog.PrintRange());
    EXPECT_FALSE(dialog.PrintAll());
    EXPECT_EQ(dialog.GetFromPage(), 2);
    EXPECT_EQ(dialog.GetToPage(), 5);
    ASSERT_NE(dialog.GetPrinterDC(), nullptr);
    DeleteDC(dialog.GetPrinterDC());

    automation::Click(IDCANCEL);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(CPrintDialogTest, APrintJobsInformationOwnsItsDialogAndDc) {
    {
        CPrintInfo info;
        ASSERT_NE(info.m_pPD, nullptr);
        EXPECT_EQ(info.GetMinPage(), 1u);
        EXPECT_EQ(info.GetMaxPage(), 0xFFFFu);
        info.SetMaxPage(4);
        EXPECT_EQ(info.m_pPD->m_pd.nMaxPage, 4);
        ASSERT_TRUE(info.m_pPD->GetDefaults());
        EXPECT_NE(info.m_pPD->m_pd.hDC, nullptr);
    }
    // TearDown finds the DC and the dialog's blocks gone.
}

} // namespace
} // namespace pages
