#include "Interleaved.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>

namespace bench {

namespace {

double ThreadSeconds() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

double WallSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t n = values.size();
    return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

struct Sample {
    double cpu;
    double wall;
};

// Seconds per run over a batch of runs; a preparation step before each run
// is left out of the time.
Sample Time(const std::function<void()>& work, int runs,
            const std::function<void()>& prepare = nullptr) {
    if (prepare) {
        Sample total{0, 0};
        for (int i = 0; i < runs; ++i) {
            prepare();
            const double cpu = ThreadSeconds(), wall = WallSeconds();
            work();
            total.cpu += ThreadSeconds() - cpu;
            total.wall += WallSeconds() - wall;
        }
        return {total.cpu / runs, total.wall / runs};
    }
    const double cpu = ThreadSeconds(), wall = WallSeconds();
    for (int i = 0; i < runs; ++i)
        work();
    return {(ThreadSeconds() - cpu) / runs, (WallSeconds() - wall) / runs};
}

// Enough runs for a batch to last about the sample time, measured once.
int RunsPerSample(const std::function<void()>& work, const Options& options) {
    if (options.fixedRuns > 0)
        return options.fixedRuns;
    const Sample one = Time(work, 1, options.prepare);
    const double seconds = options.batchOnWallClock ? one.wall : one.cpu;
    if (seconds <= 0 || seconds >= options.sampleSeconds)
        return 1;
    return std::max(1, static_cast<int>(options.sampleSeconds / seconds));
}

Timing Summarise(const std::vector<double>& ours, const std::vector<double>& baseline) {
    std::vector<double> ratios;
    for (std::size_t i = 0; i < ours.size(); ++i)
        ratios.push_back(ours[i] > 0 ? baseline[i] / ours[i] : 0);
    return {Median(ours), Median(baseline), Median(ratios)};
}

} // namespace

bool ParseOptions(int argc, char** argv, Options& options) {
    for (int i = 1; i < argc; i += 2) {
        const std::string arg = argv[i];
        const char* value = i + 1 < argc ? argv[i + 1] : nullptr;
        bool ok = value != nullptr;
        if (ok && arg == "--rounds") {
            options.rounds = std::atoi(value);
            ok = options.rounds >= 1 && options.rounds <= 1000;
        } else if (ok && arg == "--sample-ms") {
            options.sampleSeconds = std::atof(value) / 1000;
            ok = options.sampleSeconds > 0 && options.sampleSeconds < 60;
        } else if (ok && arg == "--json") {
            options.json = value;
        } else if (ok && arg == "--only") {
            options.only = value;
            ok = options.only == "ours" || options.only == "baseline";
        } else {
            ok = false;
        }
        if (!ok) {
            std::fprintf(
                stderr,
                "usage: %s [--rounds N] [--sample-ms MS] [--json PATH] [--only ours|baseline]\n",
                argv[0]);
            return false;
        }
    }
    return true;
}

Result Interleave(const Options& options, const std::function<void()>& ours,
                  const std::function<void()>& baseline) {
    if (!options.only.empty()) {
        const std::function<void()>& work = options.only == "ours" ? ours : baseline;
        Time(work, options.rounds * RunsPerSample(work, options), options.prepare);
        return {};
    }
    const int oursRuns = RunsPerSample(ours, options);
    const int baselineRuns = RunsPerSample(baseline, options);
    std::vector<double> oursCpu, oursWall, baseCpu, baseWall;
    for (int round = 0; round < options.rounds; ++round) {
        Sample a{}, b{};
        if (round % 2 == 0) {
            a = Time(ours, oursRuns, options.prepare);
            b = Time(baseline, baselineRuns, options.prepare);
        } else {
            b = Time(baseline, baselineRuns, options.prepare);
            a = Time(ours, oursRuns, options.prepare);
        }
        oursCpu.push_back(a.cpu);
        oursWall.push_back(a.wall);
        baseCpu.push_back(b.cpu);
        baseWall.push_back(b.wall);
    }
    return {Summarise(oursCpu, baseCpu), Summarise(oursWall, baseWall)};
}

Measure MakeMeasure(const std::string& name, const std::string& unit, double scale,
                    const std::string& baselineName, const Timing& timing) {
    return {
        name,        unit, timing.oursSeconds * scale, baselineName, timing.baselineSeconds * scale,
        timing.ratio};
}

namespace {
// JSON string contents: the names here are plain text without control characters.
std::string Quoted(const std::string& text) {
    std::string out = "\"";
    for (char c : text) {
        if (c == '"' || c == '\\')
            out += '\\';
        out += c;
    }
    return out + "\"";
}
} // namespace

void Report(const Options& options, const std::vector<Measure>& measures) {
    if (!options.only.empty())
        return; // a profiling run times nothing
    for (const Measure& m : measures)
        std::printf("%-40s ours %10.4f %-3s  %-28s %10.4f  ratio %.3f\n", m.name.c_str(), m.ours,
                    m.unit.c_str(), m.baselineName.c_str(), m.baseline, m.ratio);
    if (options.json.empty())
        return;
    std::ofstream out(options.json);
    out << "[\n";
    for (std::size_t i = 0; i < measures.size(); ++i) {
        const Measure& m = measures[i];
        char numbers[160];
        std::snprintf(numbers, sizeof numbers, "%.4g", m.ours);
        std::string ours = numbers;
        std::snprintf(numbers, sizeof numbers, "%.4g", m.baseline);
        std::string peer = numbers;
        std::snprintf(numbers, sizeof numbers, "%.3f", m.ratio);
        out << "  {\"measure\": " << Quoted(m.name) << ", \"unit\": " << Quoted(m.unit)
            << ", \"ours\": " << ours << ", \"peers\": {" << Quoted(m.baselineName) << ": " << peer
            << "}, \"ratio\": " << numbers << "}" << (i + 1 < measures.size() ? "," : "") << "\n";
    }
    out << "]\n";
}

} // namespace bench
