// Export speed: 1,000,000 fields (100,000 rows of 10 short fields, one in
// ten holding a comma and so needing the qualifier) written in text mode
// through CExportFile, against writing the very same bytes raw in the same
// run: once field by field through the C library's buffered stream, once as
// one block in 64 KiB writes. Rates are per second of elapsed time: the
// writes include the system's share.
#include <Win/Win.h>

#include "platform/ResourceModule.h"

#include <benchmark/benchmark.h>

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

void BM_ExportText(benchmark::State& state) {
    const Table& table = Data();
    platform::Resources(AfxGetResourceHandle()).SetString(692, u"<Tab>");
    platform::Resources(AfxGetResourceHandle()).SetString(693, u"<Space>");
    platform::Resources(AfxGetResourceHandle()).SetString(694, u"<None>");
    CExportFormat format;
    format.SetFilename(platform::FromUtf8(OutputPath("bench_export.csv")));
    for (auto _ : state) {
        CExportFile file(format);
        if (!file.Open(false)) {
            state.SkipWithError("cannot open the export file");
            break;
        }
        std::size_t i = 0;
        for (int r = 0; r < kRows; ++r) {
            for (int c = 0; c < kColumns; ++c)
                file.WriteField(table.cells[i++]);
            file.WriteNewline();
        }
        file.Close();
    }
    state.SetItemsProcessed(state.iterations() * kRows * kColumns);
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(table.image.size()));
}
BENCHMARK(BM_ExportText)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_RawFieldWrites(benchmark::State& state) {
    const Table& table = Data();
    const std::string path = OutputPath("bench_export_raw.csv");
    for (auto _ : state) {
        std::FILE* f = std::fopen(path.c_str(), "wb");
        std::size_t i = 0;
        for (int r = 0; r < kRows; ++r) {
            for (int c = 0; c < kColumns; ++c, ++i)
                std::fwrite(table.bytes[i].data(), 1, table.bytes[i].size(), f);
            std::fwrite("\r\n", 1, 2, f);
        }
        std::fclose(f);
    }
    state.SetItemsProcessed(state.iterations() * kRows * kColumns);
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(table.image.size()));
}
BENCHMARK(BM_RawFieldWrites)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_RawBlockWrite(benchmark::State& state) {
    const Table& table = Data();
    const std::string path = OutputPath("bench_export_block.csv");
    for (auto _ : state) {
        const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
        for (std::size_t done = 0; done < table.image.size();) {
            const std::size_t n = std::min<std::size_t>(65536, table.image.size() - done);
            if (::write(fd, table.image.data() + done, n) <= 0)
                break;
            done += n;
        }
        ::close(fd);
    }
    state.SetItemsProcessed(state.iterations() * kRows * kColumns);
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(table.image.size()));
}
BENCHMARK(BM_RawBlockWrite)->Unit(benchmark::kMillisecond)->UseRealTime();

// The export must produce exactly the bytes the raw writers write.
void CheckSameBytes() {
    const Table& table = Data();
    std::FILE* f = std::fopen(OutputPath("bench_export.csv").c_str(), "rb");
    if (!f)
        return;
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
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    CheckSameBytes();
    benchmark::Shutdown();
    return 0;
}
