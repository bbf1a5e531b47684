// Times our code against a baseline doing the same work, in the same rounds:
// each round runs both, taking turns at going first, so a change of the
// processor's speed or of the machine's load falls on both alike. The figure
// that counts is the median of the per-round ratios.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace bench {

struct Options {
    int rounds = 15;
    double sampleSeconds = 0.05; // each timing repeats the work at least this long
    std::string json;            // where the measures go; nothing written when empty
    std::string only;            // "ours" or "baseline": runs just that side, for a profiler
    // Sizes the batches by elapsed time rather than processor time: for work
    // that mostly waits (a disk's flush), whose processor time says nothing of
    // how long a batch lasts.
    bool batchOnWallClock = false;
    // Runs per batch, without the warm-up run that sizes batches when 0: for
    // work that lasts seconds, where one more run of each side is only cost.
    int fixedRuns = 0;
    // Runs before every run of either side, outside the timing: for work that
    // consumes its input (a sort in place), to set the input up again.
    std::function<void()> prepare;
};

// Reads --rounds N, --sample-ms MS, --json PATH and --only ours|baseline;
// false, after printing the usage, for anything else.
bool ParseOptions(int argc, char** argv, Options& options);

struct Timing {
    double oursSeconds = 0;     // median seconds per run of the work
    double baselineSeconds = 0; // the same for the baseline
    double ratio = 0;           // median of baseline / ours: above 1 when we are faster
};

struct Result {
    Timing cpu;  // the thread's processor time: steadiest on a shared machine
    Timing wall; // elapsed time
};

// Runs each once to warm up (unless options.fixedRuns is set), then rounds of
// both, alternating which goes first.
Result Interleave(const Options& options, const std::function<void()>& ours,
                  const std::function<void()>& baseline);

// One entry of bench.json: our figure and the baseline's, in unit, and the ratio.
struct Measure {
    std::string name;
    std::string unit;
    double ours;
    std::string baselineName;
    double baseline;
    double ratio;
};

// A measure from a timing, its times scaled to unit (seconds times scale).
Measure MakeMeasure(const std::string& name, const std::string& unit, double scale,
                    const std::string& baselineName, const Timing& timing);

// Prints the measures as a table and writes them to options.json.
void Report(const Options& options, const std::vector<Measure>& measures);

} // namespace bench
