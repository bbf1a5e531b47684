// The profile benchmark's report beside bench.json: the 10,000-call runs in
// full, one write by file size on the memory file system and on the disk, and
// the largest file a write replaces in under 1 ms.
#pragma once

#include "Interleaved.h"

#include <cstddef>
#include <string>
#include <vector>

namespace bench::profile {

struct SizePoint {
    int keys = 0;
    std::size_t bytes = 0;
    Result memory; // where the measures run (the disk when there is no memory file system)
    Result disk;   // zero when the disk was not measured
};

struct Report {
    std::string measuredOn; // "memory" or "disk"
    Result writes, reads;   // the 10,000-call runs
    Result diskWrites;      // the 10,000 writes on the disk, when asked for
    bool hasDiskWrites = false;
    std::vector<SizePoint> sizes; // by growing size
};

// The file size at which a write takes limit seconds, interpolated linearly
// between the two measured sizes around it (a write's time grows about
// linearly with the file). 0 when even the smallest file takes longer; a
// negative value, the largest size negated, when every size measured is faster.
double SizeAtTime(const std::vector<std::pair<double, double>>& bytesAndSeconds, double limit);

// Prints the report and, when path is not empty, writes it there as JSON.
void PrintReport(const Report& report, const std::string& path, int calls);

} // namespace bench::profile
