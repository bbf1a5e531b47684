#include "ProfileReport.h"

#include <cstdio>
#include <fstream>
#include <utility>

namespace bench::profile {

namespace {

constexpr double kLimit = 1e-3; // seconds

std::string SizeText(double bytes, std::size_t smallest) {
    char text[64];
    if (bytes < 0)
        std::snprintf(text, sizeof text, "over %.0f KB", -bytes / 1000);
    else if (bytes == 0)
        std::snprintf(text, sizeof text, "none (%zu bytes take longer)", smallest);
    else
        std::snprintf(text, sizeof text, "about %.0f KB", bytes / 1000);
    return text;
}

// Sizes under the limit for ours and the baseline, from one timing of each point.
std::pair<double, double> Limits(const std::vector<SizePoint>& sizes, bool disk) {
    std::vector<std::pair<double, double>> ours, baseline;
    for (const SizePoint& p : sizes) {
        // Processor time on the memory file system (its writes wait for nothing),
        // elapsed time on the disk (its writes wait for the flush).
        const Timing& t = disk ? p.disk.wall : p.memory.cpu;
        ours.emplace_back(static_cast<double>(p.bytes), t.oursSeconds);
        baseline.emplace_back(static_cast<double>(p.bytes), t.baselineSeconds);
    }
    return {SizeAtTime(ours, kLimit), SizeAtTime(baseline, kLimit)};
}

void PrintRun(const char* what, const Result& r, int calls) {
    std::printf("%s\n", what);
    std::printf("  ours      %8.3f s in all, %8.2f us per call processor, %8.2f us elapsed\n",
                r.wall.oursSeconds, r.cpu.oursSeconds * 1e6 / calls,
                r.wall.oursSeconds * 1e6 / calls);
    std::printf("  baseline  %8.3f s in all, %8.2f us per call processor, %8.2f us elapsed\n",
                r.wall.baselineSeconds, r.cpu.baselineSeconds * 1e6 / calls,
                r.wall.baselineSeconds * 1e6 / calls);
}

void JsonRun(std::ofstream& out, const char* name, const Result& r, int calls) {
    char text[400];
    std::snprintf(text, sizeof text,
                  "  \"%s\": {\"calls\": %d, \"ours_seconds\": %.4f, \"baseline_seconds\": %.4f, "
                  "\"ours_us_per_call_cpu\": %.3f, \"baseline_us_per_call_cpu\": %.3f, "
                  "\"ratio_cpu\": %.3f, \"ratio_elapsed\": %.3f},\n",
                  name, calls, r.wall.oursSeconds, r.wall.baselineSeconds,
                  r.cpu.oursSeconds * 1e6 / calls, r.cpu.baselineSeconds * 1e6 / calls, r.cpu.ratio,
                  r.wall.ratio);
    out << text;
}

} // namespace

double SizeAtTime(const std::vector<std::pair<double, double>>& points, double limit) {
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (points[i].second < limit)
            continue;
        if (i == 0)
            return 0;
        const auto [b0, t0] = points[i - 1];
        const auto [b1, t1] = points[i];
        return b0 + (limit - t0) * (b1 - b0) / (t1 - t0);
    }
    return points.empty() ? 0 : -points.back().first;
}

void PrintReport(const Report& report, const std::string& path, int calls) {
    const bool disk = !report.sizes.empty() && report.sizes.front().disk.wall.oursSeconds > 0;
    std::printf("\nprofile report (measures on the %s file system)\n", report.measuredOn.c_str());
    PrintRun("10,000 WriteProfileString to distinct keys, against write+fsync+rename",
             report.writes, calls);
    PrintRun("10,000 GetProfileString, against reading and scanning the file", report.reads, calls);
    if (report.hasDiskWrites)
        PrintRun("10,000 WriteProfileString on the disk", report.diskWrites, calls);
    std::printf("one write by file size, us (%s: processor time%s)\n", report.measuredOn.c_str(),
                disk ? "; disk: elapsed, and what that adds to ours on memory, load included" : "");
    std::printf("  %6s %8s %10s %10s", "keys", "bytes", "ours", "baseline");
    if (disk)
        std::printf(" %10s %10s %14s", "disk ours", "disk base", "flush adds");
    std::printf("\n");
    for (const SizePoint& p : report.sizes) {
        std::printf("  %6d %8zu %10.1f %10.1f", p.keys, p.bytes, p.memory.cpu.oursSeconds * 1e6,
                    p.memory.cpu.baselineSeconds * 1e6);
        if (disk)
            std::printf(" %10.1f %10.1f %14.1f", p.disk.wall.oursSeconds * 1e6,
                        p.disk.wall.baselineSeconds * 1e6,
                        (p.disk.wall.oursSeconds - p.memory.cpu.oursSeconds) * 1e6);
        std::printf("\n");
    }
    const auto [ours, baseline] = Limits(report.sizes, false);
    const std::size_t smallest = report.sizes.empty() ? 0 : report.sizes.front().bytes;
    std::printf("largest file written in under 1 ms (%s): ours %s, baseline %s\n",
                report.measuredOn.c_str(), SizeText(ours, smallest).c_str(),
                SizeText(baseline, smallest).c_str());
    std::pair<double, double> diskLimits{0, 0};
    if (disk) {
        diskLimits = Limits(report.sizes, true);
        std::printf("largest file written in under 1 ms (disk): ours %s, baseline %s\n",
                    SizeText(diskLimits.first, smallest).c_str(),
                    SizeText(diskLimits.second, smallest).c_str());
    }
    if (path.empty())
        return;
    std::ofstream out(path);
    out << "{\n  \"measured_on\": \"" << report.measuredOn << "\",\n";
    JsonRun(out, "writes_10k", report.writes, calls);
    JsonRun(out, "reads_10k", report.reads, calls);
    if (report.hasDiskWrites)
        JsonRun(out, "disk_writes_10k", report.diskWrites, calls);
    out << "  \"write_by_size\": [\n";
    for (std::size_t i = 0; i < report.sizes.size(); ++i) {
        const SizePoint& p = report.sizes[i];
        char text[400];
        std::snprintf(
            text, sizeof text,
            "    {\"keys\": %d, \"bytes\": %zu, \"ours_us\": %.2f, \"baseline_us\": %.2f, "
            "\"disk_ours_us\": %.2f, \"disk_baseline_us\": %.2f}%s\n",
            p.keys, p.bytes, p.memory.cpu.oursSeconds * 1e6, p.memory.cpu.baselineSeconds * 1e6,
            p.disk.wall.oursSeconds * 1e6, p.disk.wall.baselineSeconds * 1e6,
            i + 1 < report.sizes.size() ? "," : "");
        out << text;
    }
    // Negative: every size measured was under the limit, up to that size.
    out << "  ],\n  \"bytes_under_1ms\": {\"ours\": " << ours << ", \"baseline\": " << baseline
        << ", \"disk_ours\": " << diskLimits.first << ", \"disk_baseline\": " << diskLimits.second
        << "}\n}\n";
}

} // namespace bench::profile
