// Profile speed. Every WriteProfileString replaces the file durably (temporary
// file, fsync, rename, directory fsync), so a write's baseline is that same
// sequence done directly with POSIX calls on the same bytes; a read's baseline
// reads the file and scans it for the key. Both run in the same interleaved
// rounds.
//
//   10,000 writes of distinct keys into one section, from an empty file to
//     one of 10,000 lines (about 230 KB): each round runs all 10,000 on both
//     sides, so the figure is the whole sequence, per call.
//   10,000 reads of those keys from the finished file.
//   One write into files of 10 to 30,000 keys, from which the report finds
//     the largest file a write replaces in under 1 ms.
//
// The measures run on a memory file system, where the figures are the code's
// own; the writes into files of each size run on the disk too, for what its
// flush adds (the 10,000 writes there only with --disk-all: each flush takes
// milliseconds).
#include "Interleaved.h"
#include "ProfileFiles.h"
#include "ProfileReport.h"

#include <afxwin.h>
#include <tchar.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

using namespace bench::profile;

constexpr int kCalls = 10000;
constexpr int kSizes[] = {10, 100, 1000, 3000, 10000, 30000}; // keys in the file

// The one application object; each measure points its profile at a file.
class BenchApp : public CWinApp {
public:
    BenchApp() : CWinApp(u"bench") {}
    void UseProfile(const std::string& path) {
        std::free(const_cast<WCHAR*>(m_pszProfileName));
        m_pszProfileName = _tcsdup(platform::FromUtf8(path));
    }
};

struct Names {
    std::vector<CString> keys, values;
    std::vector<std::string> rawKeys, rawValues;
    Names() {
        for (int i = 0; i < kCalls; ++i) {
            rawKeys.push_back(KeyName(i));
            rawValues.push_back(Value(i));
            keys.push_back(platform::FromUtf8(rawKeys.back()));
            values.push_back(platform::FromUtf8(rawValues.back()));
        }
    }
};

[[noreturn]] void Fail(const std::string& what) {
    std::fprintf(stderr, "profile bench: %s\n", what.c_str());
    std::exit(1);
}

// 10,000 writes of distinct keys, from no file to the whole one.
bench::Result WriteDistinctKeys(const bench::Options& options, BenchApp& app, const Names& names,
                                const std::string& dir) {
    const std::string ours = dir + "/write-ours.ini", raw = dir + "/write-raw.ini";
    app.UseProfile(ours);
    const bench::Result result = bench::Interleave(
        options,
        [&] {
            Remove(ours);
            for (int i = 0; i < kCalls; ++i)
                if (!app.WriteProfileString(u"Settings", names.keys[i], names.values[i]))
                    Fail("WriteProfileString failed");
        },
        [&] {
            Remove(raw);
            std::string bytes = "[Settings]\r\n";
            for (int i = 0; i < kCalls; ++i) {
                bytes += Line(i);
                RawReplace(raw, bytes);
            }
        });
    std::string bytes;
    if (options.only.empty()) {
        RawRead(ours, bytes);
        if (bytes != FileOf(kCalls))
            Fail("the profile written is not the expected file");
    }
    Remove(ours);
    Remove(raw);
    return result;
}

// 10,000 reads of distinct keys from a file of 10,000.
bench::Result ReadDistinctKeys(const bench::Options& options, BenchApp& app, const Names& names,
                               const std::string& dir) {
    const std::string path = dir + "/read.ini";
    Remove(path);
    RawReplace(path, FileOf(kCalls));
    app.UseProfile(path);
    int wrong = 0;
    std::string buffer;
    const bench::Result result = bench::Interleave(
        options,
        [&] {
            for (int i = 0; i < kCalls; ++i)
                wrong += app.GetProfileString(u"Settings", names.keys[i]) != names.values[i];
        },
        [&] {
            for (int i = 0; i < kCalls; ++i)
                wrong +=
                    RawLookup(path, "Settings", names.rawKeys[i], buffer) != names.rawValues[i];
        });
    if (wrong)
        Fail(std::to_string(wrong) + " reads gave a wrong value");
    Remove(path);
    return result;
}

// One write changing a value in the middle of a file of count keys.
bench::Result WriteAtSize(const bench::Options& options, BenchApp& app, int count,
                          const std::string& dir, std::size_t& bytesOut) {
    const std::string ours = dir + "/size-ours.ini", raw = dir + "/size-raw.ini";
    Remove(ours);
    RawReplace(ours, FileOf(count));
    app.UseProfile(ours);
    const int middle = count / 2;
    const CString key = platform::FromUtf8(KeyName(middle));
    const CString values[2] = {platform::FromUtf8(Value(middle, 'A')),
                               platform::FromUtf8(Value(middle, 'B'))};
    std::string bytes = FileOf(count);
    const std::size_t at = bytes.find(Line(middle)) + Line(middle).size() - 3; // the variant
    int oursTurn = 0, rawTurn = 0;
    const bench::Result result = bench::Interleave(
        options,
        [&] {
            if (!app.WriteProfileString(u"Settings", key, values[oursTurn++ & 1]))
                Fail("WriteProfileString failed");
        },
        [&] {
            bytes[at] = (rawTurn++ & 1) ? 'B' : 'A';
            RawReplace(raw, bytes);
        });
    std::string written;
    RawRead(ours, written);
    if (options.only.empty() && written.size() != bytes.size())
        Fail("the profile written has not the expected size");
    bytesOut = bytes.size();
    Remove(ours);
    Remove(raw);
    return result;
}

struct Arguments {
    std::string memoryDir, diskDir, report;
    int longRounds = 3; // rounds of the 10,000-call runs
    bool diskAll = false;
};

// Takes this program's own arguments out of argv; the rest are the shared ones.
bool TakeArguments(int& argc, char** argv, Arguments& args) {
    int kept = 1;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        const bool hasValue = i + 1 < argc;
        if (arg == "--memory-dir" && hasValue)
            args.memoryDir = argv[++i];
        else if (arg == "--disk-dir" && hasValue)
            args.diskDir = argv[++i];
        else if (arg == "--report" && hasValue)
            args.report = argv[++i];
        else if (arg == "--long-rounds" && hasValue)
            args.longRounds = std::atoi(argv[++i]);
        else if (arg == "--disk-all")
            args.diskAll = true;
        else
            argv[kept++] = argv[i];
    }
    argc = kept;
    return args.longRounds >= 1 && (!args.memoryDir.empty() || !args.diskDir.empty());
}

} // namespace

int main(int argc, char** argv) {
    Arguments args;
    bench::Options options;
    if (!TakeArguments(argc, argv, args) || !bench::ParseOptions(argc, argv, options)) {
        std::fprintf(stderr,
                     "usage: %s --memory-dir DIR | --disk-dir DIR [--report PATH] "
                     "[--long-rounds N] [--disk-all] [shared options]\n",
                     argv[0]);
        return 2;
    }
    // The measures need a memory file system; without one they fall back on the disk.
    const bool memory = !args.memoryDir.empty();
    const std::string measureDir = memory ? args.memoryDir : args.diskDir;
    BenchApp app;
    const Names names;
    bench::Options longOptions = options;
    longOptions.rounds = args.longRounds;
    longOptions.fixedRuns = 1;
    bench::Options diskOptions = options;
    diskOptions.batchOnWallClock = true;

    Report report;
    report.measuredOn = memory ? "memory" : "disk";
    report.writes = WriteDistinctKeys(longOptions, app, names, measureDir);
    report.reads = ReadDistinctKeys(longOptions, app, names, measureDir);
    for (int count : kSizes) {
        SizePoint point;
        point.keys = count;
        point.memory =
            WriteAtSize(memory ? options : diskOptions, app, count, measureDir, point.bytes);
        if (memory && !args.diskDir.empty())
            point.disk = WriteAtSize(diskOptions, app, count, args.diskDir, point.bytes);
        report.sizes.push_back(point);
    }
    if (!args.diskDir.empty() && args.diskAll) {
        bench::Options diskLong = diskOptions;
        diskLong.rounds = 1;
        diskLong.fixedRuns = 1;
        report.diskWrites = WriteDistinctKeys(diskLong, app, names, args.diskDir);
        report.hasDiskWrites = true;
    }

    std::vector<bench::Measure> measures = {
        bench::MakeMeasure("profile-write-10k-distinct-keys", "us/call", 1e6 / kCalls,
                           "write+fsync+rename", report.writes.cpu),
        bench::MakeMeasure("profile-read-10k-distinct-keys", "us/call", 1e6 / kCalls,
                           "read and scan the file", report.reads.cpu)};
    for (const SizePoint& point : report.sizes)
        measures.push_back(bench::MakeMeasure(
            "profile-write-at-" + std::to_string(point.keys) + "-keys", "us/write", 1e6,
            "write+fsync+rename", memory ? point.memory.cpu : point.memory.wall));
    bench::Report(options, measures);
    if (options.only.empty())
        PrintReport(report, args.report, kCalls);
    return 0;
}
