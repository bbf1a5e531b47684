// The print host: an MDI application whose documents show lists of
// deliveries. The simulated user opens two documents, sets up the printout's
// header line in the printout wizard (Next, Back, Next, Next, Finish, with
// a picture of each page), prints the active one's list through the
// library's list printing (the print dialog answered with the PDF printer
// and a file), previews it two pages at a time, then maximises a document,
// closes it and sees the next one maximised. The main window's placement is
// kept in the profile; a second run of the host (a new process sharing the
// profile) puts the window back where the user left it and opens its first
// document maximised, as the last one was.
//
//   print_host OUT            the first run; starts the second itself
//   print_host OUT --again    the second run
#include "DeliveryHost.h"
#include "resource.h"

#include <tchar.h>

#include <platform/Automation.h>
#include <platform/CodePage.h>
#include <platform/PrintPreview.h>
#include <platform/Printers.h>
#include <platform/WindowPictures.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

namespace automation = platform::automation;

constexpr const WCHAR* kPlacementSection = u"Print Host";
constexpr const WCHAR* kPlacementEntry = u"MainWindow";

std::string g_out;

std::string Utf8(const CString& text) {
    return platform::ToUtf8(std::u16string(text.GetString(), text.GetLength()));
}

std::string Utf8(HWND hwnd) {
    CString text;
    const int length = GetWindowTextLength(hwnd);
    GetWindowText(hwnd, text.GetBuffer(length + 1), length + 1);
    text.ReleaseBuffer();
    return Utf8(text);
}

void Save(const std::string& name) {
    const std::string path = g_out + "/" + name;
    if (platform::SaveDesktopAsPng(path))
        std::printf("wrote %s\n", path.c_str());
    else
        std::fprintf(stderr, "could not write %s\n", path.c_str());
}

int PdfPages(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    int pages = 0;
    for (std::size_t at = bytes.find("/Type /Page"); at != std::string::npos;
         at = bytes.find("/Type /Page", at + 1))
        if (at + 11 < bytes.size() && bytes[at + 11] != 's')
            ++pages;
    return pages;
}

CString TitleOf(CMDIChildWnd* frame) {
    CDocument* doc = frame ? frame->GetActiveDocument() : nullptr;
    return doc ? doc->GetTitle() : CString(u"(none)");
}

// Retypes the whole text of a field, as a user selecting it with the keyboard.
void TypeOver(UINT id, const std::u16string& text) {
    automation::Click(id);
    automation::Key(VK_END);
    automation::Key(VK_HOME, true);
    automation::Type(text);
}

// A control of the page the active wizard shows.
HWND PageItem(UINT id) {
    auto page =
        reinterpret_cast<HWND>(SendMessage(GetActiveWindow(), PSM_GETCURRENTPAGEHWND, 0, 0));
    return page ? GetDlgItem(page, static_cast<int>(id)) : nullptr;
}

// The wizard's page as the user sees it: its title bar, which of its
// buttons can be pressed and which one Enter presses; and its picture.
void ShowWizardPage(int page) {
    automation::Do([page] {
        HWND sheet = GetActiveWindow();
        auto state = [sheet](UINT id) {
            HWND button = GetDlgItem(sheet, static_cast<int>(id));
            if (!button || !IsWindowVisible(button))
                return "hidden";
            return IsWindowEnabled(button) ? "enabled" : "disabled";
        };
        const LRESULT answer = SendMessage(sheet, DM_GETDEFID, 0, 0);
        const UINT def = HIWORD(answer) == DC_HASDEFID ? LOWORD(answer) : 0;
        std::printf("wizard page %d, \"%s\": Back %s, Next %s, Finish %s, Cancel %s; "
                    "Enter presses %s\n",
                    page, Utf8(sheet).c_str(), state(ID_WIZBACK), state(ID_WIZNEXT),
                    state(ID_WIZFINISH), state(IDCANCEL),
                    def == ID_WIZNEXT     ? "Next"
                    : def == ID_WIZFINISH ? "Finish"
                    : def == 0            ? "nothing"
                                          : "another button");
        const std::string path = g_out + "/wizard-" + std::to_string(page) + ".png";
        if (platform::SaveWindowAsPng(sheet, path))
            std::printf("wrote %s\n", path.c_str());
        else
            std::fprintf(stderr, "could not write %s\n", path.c_str());
    });
}

// The printout wizard: the site typed on the first page, a look at the
// dates and back, the dates typed, the summary, and Finish.
void QueueWizard(PrintHost& host) {
    automation::PickMenuItem(ID_LIST_WIZARD);
    TypeOver(IDC_SYSTEM_NAME, u"Harbour depot");
    ShowWizardPage(1);
    automation::Click(ID_WIZNEXT);
    automation::Click(ID_WIZBACK);
    automation::Do([] {
        std::printf("back on the first page, the site typed is kept: %s\n",
                    Utf8(PageItem(IDC_SYSTEM_NAME)) == "Harbour depot" ? "yes" : "no");
    });
    automation::Click(ID_WIZNEXT);
    TypeOver(IDC_DATE_FROM, u"2024-02-01");
    TypeOver(IDC_DATE_TO, u"2024-03-31");
    ShowWizardPage(2);
    automation::Click(ID_WIZNEXT);
    ShowWizardPage(3);
    automation::Click(ID_WIZFINISH);
    automation::Do([&host] {
        const PrintoutSettings& settings = host.app->m_printout;
        std::printf("the wizard finished; printouts name %s, deliveries from %s to %s\n",
                    Utf8(settings.site).c_str(), Utf8(settings.from.Format(u"%Y-%m-%d")).c_str(),
                    Utf8(settings.to.Format(u"%Y-%m-%d")).c_str());
    });
}

void QueuePrinting(PrintHost& host) {
    const std::string pdf = g_out + "/list-print.pdf";
    std::filesystem::remove(pdf);
    // The print dialog: the PDF printer and the file its pages go to.
    automation::PickMenuItem(ID_LIST_PRINT);
    automation::ChoosePrinter(platform::kPdfPrinter);
    automation::SetPrintFile(platform::FromUtf8(pdf).GetString());
    automation::Click(IDOK);
    automation::Do([&host, pdf] {
        CMDIChildWnd* active = host.main->MDIGetActive();
        auto* view = active ? DYNAMIC_DOWNCAST(CDeliveryView, active->GetActiveView()) : nullptr;
        std::printf("printed the list of %s: %d pages to %s; printout closed: %s; "
                    "focus back on the list: %s\n",
                    Utf8(TitleOf(active)).c_str(), PdfPages(pdf), pdf.c_str(),
                    PrintHost::OpenPrintouts() == 0 ? "yes" : "no",
                    view && ::GetFocus() == view->m_list.m_hWnd ? "yes" : "no");
    });
}

void QueuePreview(PrintHost& host) {
    automation::PickMenuItem(ID_LIST_PREVIEW);
    automation::ClickPreviewButton(AFX_ID_PREVIEW_NUMPAGE);
    automation::Do([&host] {
        CMDIChildWnd* frame = host.main->MDIGetActive();
        for (int page = 0; page < 2; ++page) {
            const std::string path = g_out + "/list-preview-" + std::to_string(page + 1) + ".png";
            if (frame && platform::SavePreviewPage(frame->m_hWnd, page, path))
                std::printf("wrote %s, preview page %d\n", path.c_str(), page + 1);
            else
                std::fprintf(stderr, "preview page %d could not be saved\n", page + 1);
        }
        Save("list-preview-window.png");
    });
    automation::ClickPreviewButton(AFX_ID_PREVIEW_CLOSE);
    automation::Do([] {
        std::printf("preview closed, printout closed: %s\n",
                    PrintHost::OpenPrintouts() == 0 ? "yes" : "no");
    });
}

void QueueMaximised(PrintHost& host) {
    automation::Do([&host] {
        CMDIChildWnd* active = host.main->MDIGetActive();
        host.main->MDIMaximize(active);
        BOOL maximised = FALSE;
        host.main->MDIGetActive(&maximised);
        std::printf("%s maximised: %s\n", Utf8(TitleOf(active)).c_str(), maximised ? "yes" : "no");
        Save("mdi-maximised.png");
    });
    automation::PickMenuItem(ID_CLOSE_WINDOW);
    automation::Do([&host] {
        BOOL maximised = FALSE;
        CMDIChildWnd* next = host.main->MDIGetActive(&maximised);
        std::printf("after closing it, %s shows maximised: %s\n", Utf8(TitleOf(next)).c_str(),
                    maximised ? "yes" : "no");
        Save("mdi-next-maximised.png");
        // Where the user leaves the main window.
        host.main->MoveWindow(70, 50, 900, 700);
        WinUtils::SaveWindowPlacement(kPlacementSection, kPlacementEntry, host.main);
        std::printf("main window left at 70,50 900x700\n");
    });
    automation::PickMenuItem(ID_APP_EXIT);
}

int FirstRun(const char* self) {
    PrintHost host;
    if (!host.Start(g_out + "/print-host.ini"))
        return 1;
    automation::PickMenuItem(ID_FILE_NEW);
    automation::PickMenuItem(ID_FILE_NEW);
    automation::Do([&host] {
        CMDIChildWnd* active = host.main->MDIGetActive();
        std::printf("opened two documents, %s active\n", Utf8(TitleOf(active)).c_str());
        Save("mdi-two-documents.png");
    });
    QueueWizard(host);
    QueuePrinting(host);
    QueuePreview(host);
    QueueMaximised(host);
    host.app->Run();
    if (automation::CancelsForWantOfActions() != 0) {
        std::fprintf(stderr, "a dialog was left waiting for the user\n");
        return 1;
    }
    std::fflush(stdout);
    const std::string again = std::string("\"") + self + "\" \"" + g_out + "\" --again";
    return std::system(again.c_str()) == 0 ? 0 : 1;
}

int SecondRun() {
    PrintHost host;
    if (!host.Start(g_out + "/print-host.ini"))
        return 1;
    bool ok = false;
    automation::Do([&host, &ok] {
        WinUtils::RestoreWindowPlacement(kPlacementSection, kPlacementEntry, host.main);
        CRect rect;
        host.main->GetWindowRect(&rect);
        ok = rect == CRect(70, 50, 970, 750);
        std::printf("second run: main window at %d,%d %dx%d, %s\n", static_cast<int>(rect.left),
                    static_cast<int>(rect.top), rect.Width(), rect.Height(),
                    ok ? "where the user left it" : "not restored");
    });
    automation::PickMenuItem(ID_FILE_NEW);
    automation::Do([&host, &ok] {
        BOOL maximised = FALSE;
        CMDIChildWnd* active = host.main->MDIGetActive(&maximised);
        std::printf("second run: %s opens maximised, as the last one closed: %s\n",
                    Utf8(TitleOf(active)).c_str(), maximised ? "yes" : "no");
        ok = ok && maximised;
        Save("mdi-restored.png");
    });
    automation::PickMenuItem(ID_APP_EXIT);
    host.app->Run();
    return ok ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    // An absolute profile path: a relative one names a file in the Windows
    // directory, which the first run would not find to remove.
    g_out = std::filesystem::absolute(argc > 1 ? argv[1] : "out").string();
    const bool again = argc > 2 && std::string(argv[2]) == "--again";
    std::filesystem::create_directories(g_out);
    if (!again)
        std::filesystem::remove(g_out + "/print-host.ini");
    return again ? SecondRun() : FirstRun(argv[0]);
}
