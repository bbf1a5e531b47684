// Our terminal window against the peers Terminals() lists on a private X server
// (Xvfb), in interleaved rounds (each round starts every terminal once, the
// order turning from round to round):
//
// - throughput: the time from the start of writing a corpus of plain text
//   into the terminal's pty until the terminal has taken in its last byte:
//   the script in the terminal times `cat corpus` followed by a cursor
//   position request, whose answer the terminal can only send once it has
//   parsed everything before it; the same script in a bare pty reader
//   (--floor, pty_floor), which parses and draws nothing, shows what the
//   kernel's pty allows; and the same again with the terminal and the
//   script on one processor, where the scheduler cannot favour anyone;
// - keystroke latency: a key pressed through XTEST (as a keyboard does) until
//   the first pixel of the terminal's window changes (the echo of the key),
//   read back by polling GetImage on the rows the echo lands on; median and
//   99th percentile.
//
// Writes the ratios (the peer's time over ours, the median of the per-round
// ratios: above 1 when we are faster) as JSON and the absolute figures to a
// report. Skips, saying so, when Xvfb is missing; peers not installed are
// named and left out.
#include "Corpus.h"
#include "Interleaved.h"
#include "Terminals.h"
#include "XProbe.h"
#include "XvfbServer.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

// The processor the one-processor throughput runs on. On two or more, where
// the terminal and the program writing into it run is the scheduler's choice
// from run to run, and a run where both land on one processor takes about half
// as long again: one processor for all is the same condition for everyone.
constexpr int kOneCpu = 0;

struct Options {
    std::string ours;
    // The bare pty reader, timed for throughput beside the terminals.
    std::string floor;
    std::size_t bytes = 4000000;
    int rounds = 5;
    int keys = 40;
    bool wholeWindow = false;
    // Empty: every peer installed; else only those named (comma-separated).
    std::string peers;
    std::string json;
    std::string report;
};

bool ParseOptions(int argc, char** argv, Options& options) {
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string arg = argv[i];
        const char* value = argv[i + 1];
        if (arg == "--ours")
            options.ours = value;
        else if (arg == "--floor")
            options.floor = value;
        else if (arg == "--bytes")
            options.bytes = std::strtoul(value, nullptr, 10);
        else if (arg == "--rounds")
            options.rounds = std::atoi(value);
        else if (arg == "--keys")
            options.keys = std::atoi(value);
        else if (arg == "--poll" && (std::string(value) == "whole" || std::string(value) == "echo"))
            options.wholeWindow = std::string(value) == "whole";
        else if (arg == "--peers")
            options.peers = value;
        else if (arg == "--json")
            options.json = value;
        else if (arg == "--report")
            options.report = value;
        else
            return false;
    }
    // The timed keys echo on one text line of 80 columns, the line the first
    // key found.
    return argc % 2 == 1 && !options.ours.empty() && options.bytes > 0 && options.rounds > 0 &&
           options.keys > 0 && options.keys <= 70;
}

double Median(std::vector<double> values) {
    if (values.empty())
        return NAN;
    std::sort(values.begin(), values.end());
    const std::size_t n = values.size();
    return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

double Percentile(std::vector<double> values, double p) {
    if (values.empty())
        return NAN;
    std::sort(values.begin(), values.end());
    const auto index = static_cast<std::size_t>(std::ceil(p * values.size())) - 1;
    return values[std::min(index, values.size() - 1)];
}

class Bench {
public:
    Bench(const Options& options, const std::string& display, const std::string& dir)
        : m_options(options), m_display(display), m_dir(dir), m_probe(display) {}

    // Seconds from the start of cat until the terminal answered; NAN on
    // failure. With cpu 0 or more, the terminal and the script share that
    // processor.
    double Throughput(const Terminal& terminal, const std::string& corpus, int cpu) {
        const std::string result = m_dir + "/result-" + terminal.name;
        std::filesystem::remove(result);
        const std::string script = "stty -echo -icanon; s=$EPOCHREALTIME; cat \"$BENCH_CORPUS\"; "
                                   "printf '\\033[6n'; IFS= read -r -d R reply; e=$EPOCHREALTIME; "
                                   "echo \"$s $e\" > \"$BENCH_RESULT\"";
        const pid_t pid =
            Launch(terminal, terminal.Command("bench-throughput-" + terminal.name, script),
                   m_display, {"BENCH_CORPUS=" + corpus, "BENCH_RESULT=" + result}, cpu);
        if (pid < 0 || !WaitOrKill(pid, 300))
            return NAN;
        std::ifstream in(result);
        double start = 0, end = 0;
        if (!(in >> start >> end))
            return NAN;
        return end - start;
    }

    // Milliseconds from each key press to the window's first changed pixel.
    std::vector<double> Latency(const Terminal& terminal) {
        std::vector<double> samples;
        const std::string title = "bench-latency-" + terminal.name;
        const pid_t pid =
            Launch(terminal, terminal.Command(title, "exec cat >/dev/null"), m_display, {});
        if (pid < 0)
            return samples;
        xcb_window_t window = 0;
        const auto found = Clock::now() + std::chrono::seconds(20);
        while (!(window = m_probe.FindWindow(title)) && Clock::now() < found)
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        if (window) {
            // Let the terminal finish starting and drawing.
            std::this_thread::sleep_for(std::chrono::milliseconds(700));
            m_probe.Focus(window);
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
            const XProbe::Band band = PollBand(window);
            for (int i = 0; i < m_options.keys && band.height > 0; ++i) {
                const std::vector<uint8_t> before = m_probe.Pixels(window, band);
                const auto pressed = Clock::now();
                if (before.empty() || !m_probe.TypeKey(static_cast<char>('a' + i % 26)))
                    break;
                const auto limit = pressed + std::chrono::seconds(1);
                while (Clock::now() < limit && m_probe.Pixels(window, band) == before) {
                }
                const auto seen = Clock::now();
                if (seen < limit)
                    samples.push_back(
                        std::chrono::duration<double, std::milli>(seen - pressed).count());
                std::this_thread::sleep_for(std::chrono::milliseconds(15));
            }
        }
        kill(pid, SIGTERM);
        WaitOrKill(pid, 5);
        return samples;
    }

    bool Connected() const { return m_probe.Connected(); }

private:
    // The rows the timed keys are watched on. A grab of the whole window takes
    // the X server time in proportion to the window's area (0.15-0.25 ms for
    // these terminals), and that time would count in every sample, more for a
    // bigger window. So one key pressed first shows the rows its echo lands
    // on (the next keys echo on the same text line), and only those rows, with
    // a margin, are grabbed while timing. --poll whole grabs the whole window.
    XProbe::Band PollBand(xcb_window_t window) {
        const XProbe::Band whole = m_probe.Whole(window);
        if (m_options.wholeWindow || whole.height == 0)
            return whole;
        const std::vector<uint8_t> before = m_probe.Pixels(window, whole);
        if (before.empty() || !m_probe.TypeKey('z'))
            return {};
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        const XProbe::Band echo =
            XProbe::ChangedRows(before, m_probe.Pixels(window, whole), whole, 4);
        return echo.height > 0 ? echo : whole;
    }

    const Options& m_options;
    std::string m_display;
    std::string m_dir;
    XProbe m_probe;
};

} // namespace

int main(int argc, char** argv) {
    Options options;
    if (!ParseOptions(argc, argv, options)) {
        std::fprintf(stderr,
                     "usage: %s --ours TERMINAL_HOST [--bytes N] [--rounds N] [--keys N] "
                     "[--poll echo|whole] [--peers a,b] [--json PATH] [--report PATH]\n",
                     argv[0]);
        return 2;
    }
    if (!testing_support::XvfbServer::Installed()) {
        std::printf("terminal window bench skipped: Xvfb is not installed\n");
        return 0;
    }
    std::vector<std::string> missing;
    std::vector<Terminal> terminals = Terminals(options.ours, options.floor, &missing);
    if (!options.peers.empty())
        std::erase_if(terminals, [&](const Terminal& t) {
            return !t.ours && !t.floor &&
                   ("," + options.peers + ",").find("," + t.name + ",") == std::string::npos;
        });
    for (const std::string& peer : missing)
        std::printf("terminal window bench: %s is not installed; left out\n", peer.c_str());
    if (access(options.ours.c_str(), X_OK) != 0) {
        std::fprintf(stderr, "terminal window bench: %s not found\n", options.ours.c_str());
        return 1;
    }
    if (terminals.size() < 2) {
        std::printf("terminal window bench skipped: no peer terminal is installed\n");
        return 0;
    }
    testing_support::XvfbServer server;
    if (server.Name().empty()) {
        std::printf("terminal window bench skipped: Xvfb did not start\n");
        return 0;
    }
    const std::string dir =
        (std::filesystem::temp_directory_path() / ("terminal-bench-" + std::to_string(getpid())))
            .string();
    std::filesystem::create_directories(dir);
    const std::string corpus = dir + "/corpus.txt";
    {
        std::ofstream out(corpus, std::ios::binary);
        out << corpus::Make(corpus::Stream::Plain, options.bytes);
    }
    Bench bench(options, server.Name(), dir);
    if (!bench.Connected()) {
        std::fprintf(stderr, "terminal window bench: cannot connect to %s\n",
                     server.Name().c_str());
        return 1;
    }

    std::map<std::string, std::vector<double>> seconds, oneCpuSeconds, latencyRounds, latencies;
    for (int round = 0; round < options.rounds; ++round) {
        // Every terminal free, then every terminal on one processor.
        for (const int cpu : {-1, kOneCpu})
            for (std::size_t k = 0; k < terminals.size(); ++k) {
                const Terminal& t =
                    terminals[(k + static_cast<std::size_t>(round)) % terminals.size()];
                const double s = bench.Throughput(t, corpus, cpu);
                (cpu < 0 ? seconds : oneCpuSeconds)[t.name].push_back(s);
                std::printf("round %d  %-6s throughput%s %8.1f ms\n", round, t.name.c_str(),
                            cpu < 0 ? "" : " on one processor", s * 1000);
            }
        for (std::size_t k = 0; k < terminals.size(); ++k) {
            const Terminal& t = terminals[(k + static_cast<std::size_t>(round)) % terminals.size()];
            if (t.floor)
                continue;
            const std::vector<double> samples = bench.Latency(t);
            latencies[t.name].insert(latencies[t.name].end(), samples.begin(), samples.end());
            latencyRounds[t.name].push_back(Median(samples));
            std::printf("round %d  %-6s key latency median %6.2f ms (%zu keys)\n", round,
                        t.name.c_str(), Median(samples), samples.size());
        }
        std::fflush(stdout);
    }
    std::filesystem::remove_all(dir);

    std::vector<bench::Measure> measures;
    std::string report = "Terminal window on Xvfb (" + std::to_string(options.bytes) +
                         " bytes of plain text; " + std::to_string(options.rounds) +
                         " rounds; keys per round " + std::to_string(options.keys) + "):\n";
    auto roundRatios = [&](const std::map<std::string, std::vector<double>>& table,
                           const std::string& peer) {
        std::vector<double> ratios;
        for (std::size_t r = 0; r < table.at("ours").size(); ++r) {
            const double ours = table.at("ours")[r], theirs = table.at(peer)[r];
            if (std::isfinite(ours) && std::isfinite(theirs) && ours > 0)
                ratios.push_back(theirs / ours);
        }
        return Median(ratios);
    };
    for (const Terminal& t : terminals) {
        char line[256];
        if (t.floor) {
            // How near ours comes to what the kernel's pty allows: above 1
            // would be faster than reading and dropping the bytes.
            std::snprintf(line, sizeof line,
                          "  %s throughput median %8.1f ms, on one processor %8.1f ms\n",
                          t.name.c_str(), Median(seconds[t.name]) * 1000,
                          Median(oneCpuSeconds[t.name]) * 1000);
            report += line;
        } else {
            std::snprintf(line, sizeof line,
                          "  %-6s throughput median %8.1f ms, on one processor %8.1f ms; key "
                          "latency median %6.2f ms, p99 %6.2f ms (%zu keys)\n",
                          t.name.c_str(), Median(seconds[t.name]) * 1000,
                          Median(oneCpuSeconds[t.name]) * 1000, Median(latencies[t.name]),
                          Percentile(latencies[t.name], 0.99), latencies[t.name].size());
            report += line;
        }
        if (t.ours)
            continue;
        measures.push_back({"terminal-window-plain-throughput-vs-" + t.name, "ms",
                            Median(seconds["ours"]) * 1000, t.name, Median(seconds[t.name]) * 1000,
                            roundRatios(seconds, t.name)});
        measures.push_back({"terminal-window-plain-throughput-one-cpu-vs-" + t.name, "ms",
                            Median(oneCpuSeconds["ours"]) * 1000, t.name,
                            Median(oneCpuSeconds[t.name]) * 1000,
                            roundRatios(oneCpuSeconds, t.name)});
        if (t.floor)
            continue;
        measures.push_back({"terminal-window-key-latency-vs-" + t.name, "ms",
                            Median(latencies["ours"]), t.name, Median(latencies[t.name]),
                            roundRatios(latencyRounds, t.name)});
    }
    bench::Options reportOptions;
    reportOptions.json = options.json;
    bench::Report(reportOptions, measures);
    std::printf("%s", report.c_str());
    if (!options.report.empty())
        std::ofstream(options.report) << report;
    return 0;
}
