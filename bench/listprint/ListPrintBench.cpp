// Printing a report list to PDF through the list print document, frame and
// view (the list copied into the grid, columns fitted, the framework's page
// loop, the header line and the grid on every page) against Cairo drawing the
// same texts at the same positions directly onto a PDF surface, in
// interleaved rounds.
//
//   bench_list_print [--rows N] [--cols N] [--dir DIR] [bench options]
//   bench_list_print --memory [--rows N] [--cols N] [--dir DIR]
//
// --memory prints once and reports the pages and the process's resident
// memory before the job and at its peak, for a table of memory by page count.
#include "CairoListPages.h"
#include "Interleaved.h"
#include "PrintBenchHost.h"

#include <platform/CodePage.h>
#include <platform/GdiObjects.h>

#include <sys/resource.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

namespace {

struct Settings {
    int rows = 10000;
    int cols = 8;
    bool memory = false;
    std::filesystem::path dir = std::filesystem::temp_directory_path() / "bench-list-print";
};

// Takes this program's own options out of argv; the rest are the
// interleaving's.
bool TakeOwnOptions(int& argc, char** argv, Settings& settings) {
    int kept = 1;
    for (int i = 1; i < argc; ++i) {
        const char* arg = argv[i];
        const char* value = i + 1 < argc ? argv[i + 1] : nullptr;
        if (std::strcmp(arg, "--memory") == 0) {
            settings.memory = true;
        } else if (std::strcmp(arg, "--rows") == 0 && value) {
            settings.rows = std::atoi(value);
            ++i;
        } else if (std::strcmp(arg, "--cols") == 0 && value) {
            settings.cols = std::atoi(value);
            ++i;
        } else if (std::strcmp(arg, "--dir") == 0 && value) {
            settings.dir = value;
            ++i;
        } else {
            argv[kept++] = argv[i];
        }
    }
    argc = kept;
    if (settings.rows < 0 || settings.cols < 1 || settings.cols > 64) {
        std::fprintf(stderr, "rows must be 0 or more and columns 1 to 64\n");
        return false;
    }
    return true;
}

std::string Utf8(const CString& text) {
    return platform::ToUtf8(std::u16string(text.GetString(), text.GetLength()));
}

// Pages of a PDF that Cairo wrote: its page objects.
int PdfPages(const std::filesystem::path& pdf) {
    std::ifstream in(pdf, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    static const std::regex page("/Type /Page[^s]");
    return static_cast<int>(
        std::distance(std::sregex_iterator(bytes.begin(), bytes.end(), page), {}));
}

long ResidentKilobytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmRSS:", 0) == 0)
            return std::atol(line.c_str() + 6);
    return -1;
}

long PeakKilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

// What the view prints, laid out as the view lays it out: the column widths
// fitted to the same texts in the same grid font and widened alike.
ListPageLayout LayoutOf(PrintBenchHost& host, int rows, int cols) {
    ListPageLayout layout;
    CGXGridCore grid;
    grid.SetRowCount(rows);
    grid.SetColCount(cols);
    for (int c = 0; c < cols; ++c) {
        const CString title = PrintBenchHost::TitleText(c);
        layout.titles.push_back(Utf8(title));
        grid.SetStyleRange(CGXRange(0, c + 1), CGXStyle().SetValue(title));
    }
    for (int r = 0; r < rows; ++r) {
        std::vector<std::string> row;
        for (int c = 0; c < cols; ++c) {
            const CString text = PrintBenchHost::CellText(r, c);
            row.push_back(Utf8(text));
            grid.SetStyleRange(CGXRange(r + 1, c + 1), CGXStyle().SetValue(text));
        }
        layout.cells.push_back(std::move(row));
    }
    for (int c = 1; c <= cols; ++c) {
        grid.ResizeColWidthsToFit(CGXRange().SetCols(c));
        layout.widths.push_back(CListPrintView::WidenedWidth(grid.GetColWidth(c)));
    }
    layout.rowHeight = grid.GetRowHeight(0);
    layout.header = Utf8(host.HeaderText());
    layout.headerCentre = host.ViewWidth() / 2;

    LOGFONT cellFont = grid.GetGridFont();
    CFont font;
    font.CreateFontIndirect(&cellFont);
    layout.cellFont = platform::ResolvedFontFile(font);
    layout.cellPoints = std::abs(cellFont.lfHeight) * 0.75;
    LOGFONT headerFont{};
    headerFont.lfHeight = -11;
    headerFont.lfWeight = FW_BOLD;
    std::char_traits<WCHAR>::copy(headerFont.lfFaceName, u"MS Sans Serif", 13);
    CFont bold;
    bold.CreateFontIndirect(&headerFont);
    layout.headerFont = platform::ResolvedFontFile(bold);
    layout.headerPoints = 11 * 0.75;
    return layout;
}

int Memory(const Settings& settings) {
    const auto pdf = settings.dir / "memory.pdf";
    PrintBenchHost host(settings.rows, settings.cols, pdf.string());
    const long before = ResidentKilobytes();
    host.Print();
    std::printf("rows %d  pages %d  resident before %ld KB  peak %ld KB  PDF %ld KB\n",
                settings.rows, PdfPages(pdf), before, PeakKilobytes(),
                static_cast<long>(std::filesystem::file_size(pdf) / 1024));
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    Settings settings;
    if (!TakeOwnOptions(argc, argv, settings))
        return 2;
    bench::Options options;
    options.rounds = 5;
    options.fixedRuns = 1;
    if (!bench::ParseOptions(argc, argv, options))
        return 2;
    std::filesystem::create_directories(settings.dir);
    if (settings.memory)
        return Memory(settings);

    const auto ourPdf = settings.dir / "ours.pdf";
    const auto cairoPdf = settings.dir / "cairo.pdf";
    PrintBenchHost host(settings.rows, settings.cols, ourPdf.string());
    host.Print(); // learns the view's width, which centres the header line
    const ListPageLayout layout = LayoutOf(host, settings.rows, settings.cols);

    auto ours = [&] { host.Print(); };
    int cairoPages = 0;
    auto baseline = [&] { cairoPages = DrawListPages(layout, cairoPdf.string()); };
    const bench::Result result = bench::Interleave(options, ours, baseline);

    const int ourPages = PdfPages(ourPdf);
    std::printf("%d rows x %d columns: our PDF %d pages, %ld KB; Cairo's %d pages, %ld KB\n",
                settings.rows, settings.cols, ourPages,
                static_cast<long>(std::filesystem::file_size(ourPdf) / 1024), cairoPages,
                static_cast<long>(std::filesystem::file_size(cairoPdf) / 1024));
    if (ourPages != cairoPages) {
        std::fprintf(stderr, "the two PDFs have different page counts\n");
        return 1;
    }
    const std::string size = std::to_string(settings.rows / 1000) + "k";
    std::vector<bench::Measure> measures = {
        bench::MakeMeasure("list-print-" + size + "-rows", "ms", 1e3, "Cairo onto a PDF surface",
                           result.cpu),
        bench::MakeMeasure("list-print-" + size + "-rows-elapsed", "ms", 1e3,
                           "Cairo onto a PDF surface", result.wall)};
    bench::Report(options, measures);
    return 0;
}
