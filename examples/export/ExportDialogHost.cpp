// The export host with its user interface: a window with a list of 20 rows and
// 5 columns, exported through the library's settings dialog as a user would
// do it (the simulated user picks a delimiter, types a qualifier and a file
// name, ticks the titles box and confirms), then a warning the user switches
// off, which a second run of the host (a new process sharing the profile)
// skips. Every window the user sees is saved as a picture.
//
//   export_dialog_host OUT            the first run; starts the second itself
//   export_dialog_host OUT --again    the second run
#include <Win/Win.h>
#include <tchar.h>

#include <platform/Automation.h>
#include <platform/MessagePump.h>
#include <platform/WindowPictures.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

namespace automation = platform::automation;

constexpr UINT kListId = 100;
constexpr const char16_t* kWarningEntry = u"ExportLargeList";

struct Person {
    const char16_t* name;
    const char16_t* city;
    const char16_t* country;
    int orders;
    const char16_t* note;
};

const Person kPeople[] = {
    {u"Ada Lovelace", u"London", u"United Kingdom", 12, u"first order"},
    {u"Jos\u00e9 Silva", u"S\u00e3o Paulo", u"Brazil", 3, u"returned; refunded"},
    {u"Zo\u00eb Keller", u"Z\u00fcrich", u"Switzerland", 250, u"says \"urgent\""},
    {u"Li Wei", u"Beijing", u"China", 7, u""},
    {u"Amara Okafor", u"Lagos", u"Nigeria", 41, u"wholesale"},
    {u"Sven Lindqvist", u"G\u00f6teborg", u"Sweden", 5, u"invoice by post"},
    {u"Priya Raman", u"Chennai", u"India", 18, u""},
    {u"Mateo Rossi", u"Milano", u"Italy", 9, u"gift wrap"},
    {u"Hana Sato", u"Tokyo", u"Japan", 33, u"call first"},
    {u"Olivia Brown", u"Toronto", u"Canada", 2, u""},
    {u"Lukas M\u00fcller", u"M\u00fcnchen", u"Germany", 14, u"new address, see note"},
    {u"Fatima Zahra", u"Casablanca", u"Morocco", 6, u""},
    {u"Noah Williams", u"Sydney", u"Australia", 21, u"back order"},
    {u"Ingrid Berg", u"Bergen", u"Norway", 4, u""},
    {u"Carlos P\u00e9rez", u"M\u00e9xico", u"Mexico", 11, u"pays in cash"},
    {u"Elif Y\u0131lmaz", u"\u0130stanbul", u"T\u00fcrkiye", 8, u""},
    {u"Tom\u00e1\u0161 Nov\u00e1k", u"Praha", u"Czechia", 16, u"VAT number on file"},
    {u"Aisha Bello", u"Abuja", u"Nigeria", 1, u"sample only"},
    {u"Jean Dupont", u"Lyon", u"France", 27, u""},
    {u"Maya Cohen", u"Haifa", u"Israel", 10, u"repeat customer"},
};

// The application: its profile lies in the output folder, so the second run
// finds what the first one stored.
class ExportHostApp : public CWinApp {
public:
    explicit ExportHostApp(const std::string& profile) : CWinApp(u"Export Host") {
        free(const_cast<WCHAR*>(m_pszProfileName));
        m_pszProfileName = _wcsdup(platform::FromUtf8(profile).GetString());
    }
};

CString Number(int value) {
    CString text;
    text.Format(u"%d", value);
    return text;
}

void FillList(CListCtrl& list) {
    const char16_t* headings[] = {u"Name", u"City", u"Country", u"Orders", u"Note"};
    const int widths[] = {120, 90, 100, 50, 140};
    for (int c = 0; c < 5; ++c)
        list.InsertColumn(c, headings[c], c == 3 ? LVCFMT_RIGHT : LVCFMT_LEFT, widths[c]);
    int row = 0;
    for (const Person& p : kPeople) {
        list.InsertItem(row, p.name);
        list.SetItemText(row, 1, p.city);
        list.SetItemText(row, 2, p.country);
        list.SetItemText(row, 3, Number(p.orders));
        list.SetItemText(row, 4, p.note);
        ++row;
    }
}

std::u16string TextOf(HWND hwnd) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLength(hwnd)), u'\0');
    GetWindowText(hwnd, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

// The active window as a picture, and what it shows printed.
void Save(const std::string& path) {
    if (platform::SaveWindowAsPng(GetActiveWindow(), path))
        std::printf("wrote %s\n", path.c_str());
    else
        std::fprintf(stderr, "could not write %s\n", path.c_str());
}

// Retypes the whole text of a field, as a user selecting it with the keyboard.
void TypeOver(UINT id, const std::u16string& text) {
    automation::Click(id);
    automation::Key(VK_END);
    automation::Key(VK_HOME, true);
    automation::Type(text);
}

// The user's part of the export, queued before the library asks for it.
void QueueExport(const std::string& out) {
    automation::PickComboItem(CExportFormatDlg::IDC_DELIMITER, u";");
    TypeOver(CExportFormatDlg::IDC_QUOTE, u"'");
    automation::SetCheck(CExportFormatDlg::IDC_TITLES, true);
    TypeOver(CExportFormatDlg::IDC_FILENAME,
             platform::FromUtf8(out + "/list-export.csv").GetString());
    automation::Do([out] {
        const std::u16string preview =
            TextOf(GetDlgItem(GetActiveWindow(), CExportFormatDlg::IDC_PREVIEW));
        std::printf("the preview shows:\n%s", platform::ToUtf8(preview).c_str());
        Save(out + "/export-dialog.png");
    });
    automation::Click(IDOK);
    // The success message.
    automation::Do([out] {
        std::printf("the message box says: %s\n",
                    platform::ToUtf8(TextOf(GetDlgItem(GetActiveWindow(), 0xFFFF))).c_str());
        Save(out + "/export-done.png");
    });
    automation::AnswerMessageBox(IDOK);
}

// The first run: the export, then the warning switched off.
int FirstRun(const std::string& out, const char* self) {
    CWnd frame;
    CListCtrl list;
    if (!frame.CreateEx(0, nullptr, u"Export Host - Customers", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                        CRect(40, 40, 700, 520), nullptr, 0) ||
        !list.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | LVS_REPORT, CRect(8, 8, 640, 430), &frame,
                     kListId)) {
        std::fprintf(stderr, "the host's window could not be created\n");
        return 1;
    }
    list.SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)));
    FillList(list);
    frame.SetActiveWindow();
    platform::PumpMessages();
    Save(out + "/export-list.png");

    QueueExport(out);
    if (!WinUtils::ExportListCtrlData(list)) {
        std::fprintf(stderr, "the export did not happen\n");
        return 1;
    }
    std::printf("wrote %s/list-export.csv\n", out.c_str());

    automation::Do([out] { Save(out + "/warning.png"); });
    automation::SetCheck(CWarningDlg::IDC_DISABLE, true);
    automation::Do([out] { Save(out + "/warning-ticked.png"); });
    automation::Click(IDOK);
    CWarningDlg warning(u"The list is long: exporting it may take a while.", kWarningEntry);
    warning.DoModal();
    std::printf("the warning was shown and switched off\n");

    list.DestroyWindow();
    frame.DestroyWindow();
    platform::PumpMessages();
    if (automation::CancelsForWantOfActions() != 0) {
        std::fprintf(stderr, "a dialog waited for an answer the user never gave\n");
        return 1;
    }
    // The second run: a new process reading the same profile.
    std::fflush(stdout);
    const std::string again = std::string("\"") + self + "\" \"" + out + "\" --again";
    return std::system(again.c_str()) == 0 ? 0 : 1;
}

// The second run: the warning the user switched off closes by itself.
int SecondRun() {
    CWarningDlg warning(u"The list is long: exporting it may take a while.", kWarningEntry);
    const INT_PTR result = warning.DoModal();
    const bool skipped = result == IDOK && automation::CancelsForWantOfActions() == 0;
    std::printf("second run: the warning %s\n",
                skipped ? "was skipped, as the profile says" : "was shown again");
    return skipped ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    // An absolute profile path: a relative one names a file in the Windows
    // directory, which the first run would not find to remove.
    const std::string out = std::filesystem::absolute(argc > 1 ? argv[1] : "out").string();
    const bool again = argc > 2 && std::string(argv[2]) == "--again";
    ExportHostApp app(out + "/export-host.ini");
    if (!again)
        std::remove((out + "/export-host.ini").c_str());
    return again ? SecondRun() : FirstRun(out, argv[0]);
}
