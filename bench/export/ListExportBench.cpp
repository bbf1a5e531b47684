// The one-call list export: WinUtils::ExportListCtrlData on a report list of
// 100,000 rows and 10 columns, its settings dialog confirmed and its message
// answered by the simulated user, against the export writer alone writing the
// same cells from memory with the same settings, in interleaved rounds. What
// the list costs (fetching each cell's text through its messages) and the
// dialog's share come out as the ratio.
#include "Interleaved.h"

#include <Win/Win.h>

#include <platform/Automation.h>
#include <platform/MessagePump.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

namespace automation = platform::automation;

constexpr int kRows = 100000;
constexpr int kColumns = 10;

std::string OutputDir() {
    const char* dir = std::getenv("TMPDIR");
    return dir && *dir ? dir : "/tmp";
}

struct ListWindow {
    CWnd parent;
    CListCtrl list;
    std::vector<CString> cells; // row-major, the list's texts

    ListWindow() {
        if (!parent.CreateEx(0, nullptr, u"bench", WS_OVERLAPPED | WS_VISIBLE,
                             CRect(0, 0, 640, 480), nullptr, 0) ||
            !list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 0, 620, 460), &parent, 100)) {
            std::fprintf(stderr, "cannot create the list\n");
            std::exit(1);
        }
        for (int c = 0; c < kColumns; ++c) {
            CString heading;
            heading.Format(u"Column %d", c);
            list.InsertColumn(c, heading, LVCFMT_LEFT, 60);
        }
        cells.reserve(static_cast<std::size_t>(kRows) * kColumns);
        for (int r = 0; r < kRows; ++r) {
            for (int c = 0; c < kColumns; ++c) {
                CString text;
                if (c == 3)
                    text.Format(u"a,%d", r % 97);
                else
                    text.Format(u"f%dc%d", r % 1000, c);
                cells.push_back(text);
            }
            list.InsertItem(r, cells[static_cast<std::size_t>(r) * kColumns]);
            for (int c = 1; c < kColumns; ++c)
                list.SetItemText(r, c, cells[static_cast<std::size_t>(r) * kColumns + c]);
        }
    }
};

ListWindow& Window() {
    static ListWindow* window = new ListWindow();
    return *window;
}

// The default settings put the file in the documents folder.
std::string ListExportPath() {
    return OutputDir() + "/export.txt";
}

void ExportList() {
    automation::Click(IDOK);
    automation::AnswerMessageBox(IDOK);
    if (!WinUtils::ExportListCtrlData(Window().list) || automation::Pending() != 0) {
        std::fprintf(stderr, "the list export did not run as the user answered\n");
        std::exit(1);
    }
}

void WriterAlone() {
    const ListWindow& window = Window();
    CExportFormat format;
    format.SetFilename(platform::FromUtf8(OutputDir() + "/bench_list_writer.txt"));
    CExportFile file(format);
    if (!file.Open(false))
        std::exit(1);
    std::size_t i = 0;
    for (int r = 0; r < kRows; ++r) {
        for (int c = 0; c < kColumns; ++c)
            file.WriteField(window.cells[i++]);
        file.WriteNewline();
    }
    file.Close();
}

std::string ReadAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

} // namespace

int main(int argc, char** argv) {
    bench::Options options;
    if (!bench::ParseOptions(argc, argv, options))
        return 2;
    setenv("XDG_DOCUMENTS_DIR", OutputDir().c_str(), 1);
    Window();
    const bench::Result result = bench::Interleave(options, ExportList, WriterAlone);
    // Both wrote the same file, byte for byte.
    const std::string listed = ReadAll(ListExportPath());
    if (listed.empty() || listed != ReadAll(OutputDir() + "/bench_list_writer.txt")) {
        std::fprintf(stderr, "the list export and the writer wrote different files\n");
        return 1;
    }
    if (automation::CancelsForWantOfActions() != 0) {
        std::fprintf(stderr, "a dialog waited for the user\n");
        return 1;
    }
    bench::Report(options, {bench::MakeMeasure("list-export-100k-rows", "ms", 1e3,
                                               "the writer alone on the same cells", result.cpu),
                            bench::MakeMeasure("list-export-100k-rows-elapsed", "ms", 1e3,
                                               "the writer alone on the same cells", result.wall)});
    return 0;
}
