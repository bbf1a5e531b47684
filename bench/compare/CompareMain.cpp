// Feeds the same byte streams to our screen (through the host's parser) and to
// libvterm and libtsm in one run. The contenders take turns round after round,
// each on a fresh screen, so a change of the processor's speed state hits them
// alike; the figure reported is the median of the per-round ratios.
#include "Contenders.h"
#include "Corpus.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace {

const char* const kContenders[] = {"ours", "libvterm", "libtsm"};
constexpr int kCount = 3;

struct Options {
    std::size_t size = 4u << 20;
    int rounds = 11;
    std::size_t chunk = 4096;
    std::vector<corpus::Stream> streams = {corpus::Stream::Plain, corpus::Stream::Editor,
                                           corpus::Stream::Region};
    std::string json;
    std::string corpusDir;
    std::string input; // a recorded stream to dump instead of a generated one
    std::string dump;  // a peer whose screen is printed beside ours, row by row
};

// Feeds a whole stream in reads of chunk bytes, as a pty would deliver it;
// libvterm cannot take a stream of megabytes in one write.
void FeedAll(Contender& contender, const std::string& bytes, std::size_t chunk) {
    for (std::size_t at = 0; at < bytes.size(); at += chunk)
        contender.Feed(bytes.data() + at, std::min(chunk, bytes.size() - at));
}

void Dump(const std::string& bytes, const std::string& peer, std::size_t chunk) {
    auto ours = MakeContender("ours");
    auto other = MakeContender(peer);
    FeedAll(*ours, bytes, chunk);
    FeedAll(*other, bytes, chunk);
    for (int row = 0; row < 24; ++row) {
        std::string a, b;
        for (int col = 0; col < 80; ++col) {
            char32_t x = ours->CharAt(row, col), y = other->CharAt(row, col);
            a.push_back(x < 0x7F ? static_cast<char>(x) : '?');
            b.push_back(y < 0x7F ? static_cast<char>(y) : '?');
        }
        std::printf("%c ours %s\n  peer %s\n", a == b ? ' ' : '*', a.c_str(), b.c_str());
    }
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    std::size_t n = values.size();
    return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

// Seconds to feed the stream, in reads of chunk bytes as a pty would deliver them.
double TimeFeed(const std::string& name, const std::string& bytes, std::size_t chunk) {
    auto contender = MakeContender(name);
    auto start = std::chrono::steady_clock::now();
    FeedAll(*contender, bytes, chunk);
    auto end = std::chrono::steady_clock::now();
    return std::chrono::duration<double>(end - start).count();
}

// Cells on which our screen and a peer show the same ASCII character; the
// peers show line-drawing characters as Unicode, so those cells are left out.
std::string Agreement(const std::string& bytes, const std::string& peer, std::size_t chunk) {
    auto ours = MakeContender("ours");
    auto other = MakeContender(peer);
    FeedAll(*ours, bytes, chunk);
    FeedAll(*other, bytes, chunk);
    int same = 0, compared = 0;
    for (int row = 0; row < 24; ++row)
        for (int col = 0; col < 80; ++col) {
            char32_t a = ours->CharAt(row, col), b = other->CharAt(row, col);
            if (b > 0x7E)
                continue;
            ++compared;
            same += a == b;
        }
    return std::to_string(same) + "/" + std::to_string(compared);
}

struct Result {
    corpus::Stream stream;
    double mbps[kCount];    // median MB/s of each contender
    double ratio[kCount];   // median of ours / contender, per round
    double ratioFaster = 0; // median of ours / the faster peer, per round
};

bool Parse(int argc, char** argv, Options& options) {
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        const char* value = i + 1 < argc ? argv[i + 1] : nullptr;
        if (!value)
            return false;
        ++i;
        if (arg == "--size") {
            options.size = std::strtoull(value, nullptr, 10);
            if (options.size < 1024)
                return false;
        } else if (arg == "--rounds") {
            options.rounds = std::atoi(value);
            if (options.rounds < 1 || options.rounds > 1000)
                return false;
        } else if (arg == "--chunk") {
            options.chunk = std::strtoull(value, nullptr, 10);
            if (options.chunk < 1)
                return false;
        } else if (arg == "--streams") {
            options.streams.clear();
            std::stringstream list(value);
            std::string name;
            while (std::getline(list, name, ',')) {
                corpus::Stream stream;
                if (!corpus::FromName(name, stream))
                    return false;
                options.streams.push_back(stream);
            }
        } else if (arg == "--json") {
            options.json = value;
        } else if (arg == "--input") {
            options.input = value;
        } else if (arg == "--dump") {
            options.dump = value;
        } else if (arg == "--write-corpus") {
            options.corpusDir = value;
        } else {
            return false;
        }
    }
    return true;
}

void WriteJson(const std::vector<Result>& results, const std::string& path) {
    std::ofstream out(path);
    out << "[\n";
    for (std::size_t i = 0; i < results.size(); ++i) {
        const Result& r = results[i];
        char line[512];
        std::snprintf(line, sizeof line,
                      "  {\"measure\": \"compare-%s-stream\", \"unit\": \"MB/s\", \"ours\": %.2f, "
                      "\"peers\": {\"libvterm\": %.2f, \"libtsm\": %.2f}, \"ratio\": %.3f}%s\n",
                      corpus::Name(r.stream), r.mbps[0], r.mbps[1], r.mbps[2], r.ratioFaster,
                      i + 1 < results.size() ? "," : "");
        out << line;
    }
    out << "]\n";
}

} // namespace

int main(int argc, char** argv) {
    Options options;
    if (!Parse(argc, argv, options)) {
        std::fprintf(stderr,
                     "usage: compare_terminals [--size BYTES] [--rounds N] [--chunk BYTES]\n"
                     "  [--streams plain,editor,region] [--json PATH] [--write-corpus DIR]\n");
        return 2;
    }
    std::vector<Result> results;
    for (corpus::Stream stream : options.streams) {
        std::string bytes = corpus::Make(stream, options.size);
        if (!options.corpusDir.empty()) {
            std::ofstream(options.corpusDir + "/" + corpus::Name(stream) + ".vt", std::ios::binary)
                << bytes;
        }
        if (!options.dump.empty()) {
            if (!options.input.empty()) {
                std::ifstream in(options.input, std::ios::binary);
                bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
            }
            Dump(bytes, options.dump, options.chunk);
            continue;
        }
        std::vector<double> seconds[kCount];
        std::vector<double> ratios[kCount];
        std::vector<double> ratiosFaster;
        TimeFeed("ours", bytes, options.chunk); // warm caches and the layout's fonts
        for (int round = 0; round < options.rounds; ++round) {
            double t[kCount];
            for (int k = 0; k < kCount; ++k) {
                int who = (round + k) % kCount;
                t[who] = TimeFeed(kContenders[who], bytes, options.chunk);
            }
            for (int k = 0; k < kCount; ++k) {
                seconds[k].push_back(t[k]);
                ratios[k].push_back(t[k] / t[0]);
            }
            ratiosFaster.push_back(std::min(t[1], t[2]) / t[0]);
        }
        Result result{stream, {}, {}, Median(ratiosFaster)};
        double mb = static_cast<double>(bytes.size()) / 1e6;
        std::printf("%-7s %6.2f MB, %d rounds:", corpus::Name(stream), mb, options.rounds);
        for (int k = 0; k < kCount; ++k) {
            result.mbps[k] = mb / Median(seconds[k]);
            result.ratio[k] = Median(ratios[k]);
            std::printf("  %s %.1f MB/s", kContenders[k], result.mbps[k]);
        }
        std::printf("\n        ours/libvterm %.2fx  ours/libtsm %.2fx  ours/faster peer %.2fx"
                    "  (same ASCII cells: libvterm %s, libtsm %s)\n",
                    result.ratio[1], result.ratio[2], result.ratioFaster,
                    Agreement(bytes, "libvterm", options.chunk).c_str(),
                    Agreement(bytes, "libtsm", options.chunk).c_str());
        results.push_back(result);
    }
    if (!options.json.empty())
        WriteJson(results, options.json);
    return 0;
}
