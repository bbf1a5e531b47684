// Profile speed. Every write replaces the file durably (temporary file, fsync,
// rename, directory fsync), so the baseline is that same sequence done
// directly on the same bytes, in the same run: the cost no durable profile can
// avoid. Reads are set against reading the whole file.
//
//   BM_WriteDistinctKeys / BM_RawDistinctKeys: 10,000 writes of distinct keys
//     into one section, the file growing to 10,000 lines (about 220 KB).
//   BM_ReadDistinctKeys / BM_RawReads: 10,000 reads of those keys.
//   BM_WriteAtSize/N / BM_RawWriteAtSize/N: one write into a file of N keys.
//
// The files go to $WIN_PROFILE_BENCH_DIR (default $TMPDIR, else /tmp), so the
// same program measures a disk and a memory file system.
#include <afxwin.h>
#include <tchar.h>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace {

constexpr int kCalls = 10000;

std::string Dir() {
    for (const char* name : {"WIN_PROFILE_BENCH_DIR", "TMPDIR"})
        if (const char* dir = std::getenv(name); dir && *dir)
            return dir;
    return "/tmp";
}

std::string KeyName(int i) {
    char text[32];
    std::snprintf(text, sizeof text, "Key%05d", i);
    return text;
}

std::string Value(int i, char variant = '0') {
    char text[32];
    std::snprintf(text, sizeof text, "Value %05d%c", i, variant);
    return text;
}

std::string Line(int i) {
    return KeyName(i) + "=" + Value(i) + "\r\n";
}

// The file of keys 0..count-1 in section "Settings", as the profile writes it.
std::string FileOf(int count) {
    std::string bytes = "[Settings]\r\n";
    for (int i = 0; i < count; ++i)
        bytes += Line(i);
    return bytes;
}

// The durable replacement, done directly.
void RawReplace(const std::string& path, const std::string& bytes) {
    const std::string temp = path + ".raw";
    const int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (fd < 0 || ::write(fd, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()) ||
        ::fsync(fd) != 0 || ::close(fd) != 0 || ::rename(temp.c_str(), path.c_str()) != 0)
        std::abort();
    const int dir = ::open(Dir().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ::fsync(dir);
    ::close(dir);
}

std::string RawRead(const std::string& path) {
    std::string bytes;
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    char chunk[65536];
    for (ssize_t n; (n = ::read(fd, chunk, sizeof chunk)) > 0;)
        bytes.append(chunk, static_cast<std::size_t>(n));
    ::close(fd);
    return bytes;
}

void Remove(const std::string& path) {
    for (const char* suffix : {"", ".lock", ".tmp", ".raw"})
        ::unlink((path + suffix).c_str());
}

// An application whose profile is the given file.
class BenchApp : public CWinApp {
public:
    explicit BenchApp(const std::string& path) : CWinApp(u"bench") {
        m_pszProfileName = _tcsdup(platform::FromUtf8(path));
    }
};

struct Names {
    std::vector<CString> keys, values;
    Names() {
        for (int i = 0; i < kCalls; ++i) {
            keys.push_back(platform::FromUtf8(KeyName(i)));
            values.push_back(platform::FromUtf8(Value(i)));
        }
    }
};

const Names& AllNames() {
    static const Names names;
    return names;
}

void BM_WriteDistinctKeys(benchmark::State& state) {
    const std::string path = Dir() + "/bench-profile-ours.ini";
    const Names& names = AllNames();
    for (auto _ : state) {
        state.PauseTiming();
        Remove(path);
        BenchApp app(path);
        state.ResumeTiming();
        for (int i = 0; i < kCalls; ++i)
            if (!app.WriteProfileString(u"Settings", names.keys[i], names.values[i]))
                state.SkipWithError("write failed");
    }
    if (RawRead(path) != FileOf(kCalls))
        state.SkipWithError("the profile is not the expected file");
    state.counters["calls"] = kCalls;
    Remove(path);
}

void BM_RawDistinctKeys(benchmark::State& state) {
    const std::string path = Dir() + "/bench-profile-raw.ini";
    for (auto _ : state) {
        state.PauseTiming();
        Remove(path);
        std::string bytes = "[Settings]\r\n";
        state.ResumeTiming();
        for (int i = 0; i < kCalls; ++i) {
            bytes += Line(i);
            RawReplace(path, bytes);
        }
    }
    state.counters["calls"] = kCalls;
    Remove(path);
}

void BM_ReadDistinctKeys(benchmark::State& state) {
    const std::string path = Dir() + "/bench-profile-read.ini";
    RawReplace(path, FileOf(kCalls));
    const Names& names = AllNames();
    BenchApp app(path);
    for (auto _ : state)
        for (int i = 0; i < kCalls; ++i)
            if (app.GetProfileString(u"Settings", names.keys[i]) != names.values[i])
                state.SkipWithError("wrong value");
    state.counters["calls"] = kCalls;
    Remove(path);
}

void BM_RawReads(benchmark::State& state) {
    const std::string path = Dir() + "/bench-profile-read.ini";
    RawReplace(path, FileOf(kCalls));
    for (auto _ : state)
        for (int i = 0; i < kCalls; ++i)
            benchmark::DoNotOptimize(RawRead(path));
    state.counters["calls"] = kCalls;
    Remove(path);
}

void BM_WriteAtSize(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    const std::string path = Dir() + "/bench-profile-size.ini";
    Remove(path);
    RawReplace(path, FileOf(count));
    BenchApp app(path);
    const CString key = platform::FromUtf8(KeyName(count / 2));
    const CString values[2] = {platform::FromUtf8(Value(count / 2, 'A')),
                               platform::FromUtf8(Value(count / 2, 'B'))};
    int turn = 0;
    for (auto _ : state)
        if (!app.WriteProfileString(u"Settings", key, values[turn++ & 1]))
            state.SkipWithError("write failed");
    state.counters["bytes"] = static_cast<double>(RawRead(path).size());
    Remove(path);
}

void BM_RawWriteAtSize(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    const std::string path = Dir() + "/bench-profile-size-raw.ini";
    std::string bytes = FileOf(count);
    const std::size_t at = bytes.find(Line(count / 2)) + Line(count / 2).size() - 3;
    int turn = 0;
    for (auto _ : state) {
        bytes[at] = (turn++ & 1) ? 'B' : 'A';
        RawReplace(path, bytes);
    }
    state.counters["bytes"] = static_cast<double>(bytes.size());
    Remove(path);
}

} // namespace

BENCHMARK(BM_WriteDistinctKeys)->Iterations(1)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_RawDistinctKeys)->Iterations(1)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_ReadDistinctKeys)->Iterations(3)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_RawReads)->Iterations(3)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_WriteAtSize)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(3000)
    ->Arg(10000)
    ->Arg(30000)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();
BENCHMARK(BM_RawWriteAtSize)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(3000)
    ->Arg(10000)
    ->Arg(30000)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();

BENCHMARK_MAIN();
