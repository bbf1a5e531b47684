#!/usr/bin/env bash
# Profile speed: 10,000 WriteProfileString calls to distinct keys of one section
# and 10,000 reads, then one write into files of growing size, each against the
# same durable replacement (write, fsync, rename, directory fsync) or whole-file
# read done directly, interleaved in the same run. Runs on a memory file
# system (/dev/shm: what the profile itself costs) and on the disk under <out>
# (what the disk's flush adds; the 10,000-call runs there only with
# WIN_PROFILE_BENCH_DISK_ALL=1, as each flush takes milliseconds). Writes
# <out>/profile.report.json, including the largest file size whose write
# stays under 1 ms. It is a report beside bench.json, not part of it: its
# runs come from Google Benchmark's repetitions, not from rounds that take
# turns with the baseline, so its ratios carry no goal.
set -euo pipefail
build=${1:?build dir}
out=${2:?output dir}
mkdir -p "$out"
out=$(cd "$out" && pwd)
program="$build/bench/profile/bench_profile"
pin=()
command -v taskset >/dev/null && taskset -c 0 true 2>/dev/null && pin=(taskset -c 0)
common=(--benchmark_format=json --benchmark_repetitions=3 --benchmark_enable_random_interleaving=true
        --benchmark_report_aggregates_only=true)

dirs=()
trap 'rm -rf "${dirs[@]}"' EXIT
run() { # name directory [filter]
    local dir
    dir=$(mktemp -d "$2/profile-bench-XXXXXX")
    dirs+=("$dir")
    WIN_PROFILE_BENCH_DIR=$dir "${pin[@]}" "$program" "${common[@]}" \
        ${3:+--benchmark_filter="$3"} >"$out/profile.$1.benchmark.json"
}
memory=""
if [ -d /dev/shm ] && [ -w /dev/shm ]; then
    run memory /dev/shm
    memory="$out/profile.memory.benchmark.json"
fi
if [ -n "${WIN_PROFILE_BENCH_DISK_ALL:-}" ]; then
    run disk "$out"
else
    run disk "$out" AtSize
fi

python3 - "$out/profile.report.json" "$out/profile.disk.benchmark.json" $memory <<'PY'
import json, re, sys

def load(path):
    runs = {}
    for b in json.load(open(path))["benchmarks"]:
        if b.get("aggregate_name") != "median":
            continue
        name = re.sub(r"/(real_time|iterations:\d+)", "", b["run_name"])
        runs[name] = b
    return runs

def micros(b):
    return b["real_time"] * {"ns": 1e-3, "us": 1, "ms": 1e3, "s": 1e6}[b["time_unit"]]

measures = []
def add(measure, unit, ours, peer_name, peer, better_when_lower=True):
    ratio = (peer / ours if better_when_lower else ours / peer) if ours and peer else 0
    measures.append({"measure": measure, "unit": unit, "ours": round(ours, 3),
                     "peers": {peer_name: round(peer, 3)}, "ratio": round(ratio, 3)})

def under_1ms(points):  # largest file size whose write takes under 1000 us
    fits = [size for size, us in points if us < 1000]
    return max(fits) if fits else 0

baseline = "write+fsync+rename"
for fs, path in (("disk", sys.argv[2]),) + tuple(("tmpfs", p) for p in sys.argv[3:]):
    runs = load(path)
    for ours, raw, measure, peer in (("BM_WriteDistinctKeys", "BM_RawDistinctKeys", "write", baseline),
                                      ("BM_ReadDistinctKeys", "BM_RawReads", "read", "read whole file")):
        if ours in runs and raw in runs:
            calls = runs[ours]["calls"]
            add(f"profile-{measure}-10k-distinct-keys-{fs}", "us/call", micros(runs[ours]) / calls,
                peer, micros(runs[raw]) / calls)
    ours_points, raw_points = [], []
    for name in sorted((n for n in runs if n.startswith("BM_WriteAtSize/")),
                       key=lambda n: int(n.split("/")[1])):
        raw = runs[name.replace("BM_Write", "BM_RawWrite")]
        size = int(runs[name]["bytes"])
        ours_points.append((size, micros(runs[name])))
        raw_points.append((size, micros(raw)))
        add(f"profile-write-{size}-bytes-{fs}", "us/write", micros(runs[name]), baseline, micros(raw))
    add(f"profile-file-size-written-under-1ms-{fs}", "bytes", under_1ms(ours_points), baseline,
        under_1ms(raw_points), better_when_lower=False)
json.dump(measures, open(sys.argv[1], "w"), indent=1)
PY
cat "$out/profile.report.json"
