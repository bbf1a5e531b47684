// Export speed: 1,000,000 fields (100,000 rows of 10 short fields, one in
// ten holding a comma and so needing the qualifier) written in text mode
// through CExportFile, against writing the very same bytes raw in interleaved
// rounds: once field by field through the C library's buffered stream, once as
// one block in 64 KiB writes. Processor time includes the system's share of
// the writes; elapsed time is reported too.
#include "Interleaved.h"

#include <Win/Win.h>

#include "platform/ResourceModule.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kRows = 100000;
constexpr int kColumns = 10;

std::string OutputPath(const char* name) {
    const char* dir = std::getenv("TMPDIR");
    return std::string(dir && *dir ? dir : "/tmp") + "/" + name;
}

struct Table {
    std::vector<CString> cells;     // row-major
    std::vector<std::string> bytes; // each field as it lands in the file
    std::string image;              // the whole file
    Table() {
        cells.reserve(kRows * kColumns);
        for (int r = 0; r < kRows; ++r) {
            for (int c = 0; c < kColumns; ++c) {
                std::string text(c == 3 ? "a," : "f");
                text += std::to_string(c == 3 ? r % 97 : r % 1000);
                if (c != 3) {
                    text += 'c';
                    text += std::to_string(c);
                }
                const bool quoted = c == 3;
                std::string field;
                if (c > 0)
                    field += ',';
                if (quoted)
                    field += '"';
                field += text;
                if (quoted)
                    field += '"';
                cells.push_back(platform::FromUtf8(text));
                bytes.push_back(field);
                image += field;
            }
            image += "\r\n";
        }
    }
};

const Table& Data() {
    static Table table;
    return table;
}

void ExportText() {
    const Table& table = Data();
    CExportFormat format;
    format.SetFilename(platform::FromUtf8(OutputPath("bench_export.csv")));
    CExportFile file(format);
    if (!file.Open(false)) {
        std::fprintf(stderr, "cannot open the export file\n");
        std::exit(1);
    }
    std::size_t i = 0;
    for (int r = 0; r < kRows; ++r) {
        for (int c = 0; c < kColumns; ++c)
            file.WriteField(table.cells[i++]);
        file.WriteNewline();
    }
    file.Close();
}

void RawFieldWrites() {
    const Table& table = Data();
    static const std::string path = OutputPath("bench_export_raw.csv");
    std::FILE* f = std::fopen(path.c_str(), "wb");
    if (!f)
        std::exit(1);
    std::size_t i = 0;
    for (int r = 0; r < kRows; ++r) {
        for (int c = 0; c < kColumns; ++c, ++i)
            std::fwrite(table.bytes[i].data(), 1, table.bytes[i].size(), f);
        std::fwrite("\r\n", 1, 2, f);
    }
    std::fclose(f);
}

void RawBlockWrite() {
    const Table& table = Data();
    static const std::string path = OutputPath("bench_export_block.csv");
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (fd < 0)
        std::exit(1);
    for (std::size_t done = 0; done < table.image.size();) {
        const std::size_t n = std::min<std::size_t>(65536, table.image.size() - done);
        if (::write(fd, table.image.data() + done, n) <= 0)
            break;
        done += n;
    }
    ::close(fd);
}

// The export must produce exactly the bytes the raw writers write.
void CheckSameBytes() {
    const Table& table = Data();
    std::FILE* f = std::fopen(OutputPath("bench_export.csv").c_str(), "rb");
    if (!f) {
        std::fprintf(stderr, "the export file is missing\n");
        std::exit(1);
    }
    std::string got;
    char buf[65536];
    for (std::size_t n; (n = std::fread(buf, 1, sizeof buf, f)) > 0;)
        got.append(buf, n);
    std::fclose(f);
    if (got != table.image) {
        std::fprintf(stderr, "export output differs from the raw image (%zu vs %zu bytes)\n",
                     got.size(), table.image.size());
        std::exit(1);
    }
}

} // namespace

int main(int argc, char** argv) {
    bench::Options options;
    if (!bench::ParseOptions(argc, argv, options))
        return 2;
    platform::Resources(AfxGetResourceHandle()).SetString(692, u"<Tab>");
    platform::Resources(AfxGetResourceHandle()).SetString(693, u"<Space>");
    platform::Resources(AfxGetResourceHandle()).SetString(694, u"<None>");
    Data();
    const bench::Result fields = bench::Interleave(options, ExportText, RawFieldWrites);
    const bench::Result block = bench::Interleave(options, ExportText, RawBlockWrite);
    CheckSameBytes();
    bench::Report(options, {bench::MakeMeasure("export-text-1m-fields", "ms", 1e3,
                                               "raw write, field by field", fields.cpu),
                            bench::MakeMeasure("export-text-1m-fields-elapsed", "ms", 1e3,
                                               "raw write, field by field", fields.wall),
                            bench::MakeMeasure("export-text-1m-fields-vs-block-write", "ms", 1e3,
                                               "raw write, one block", block.cpu)});
    return 0;
}
