#!/usr/bin/env bash
# Profile speed: 10,000 WriteProfileString calls to distinct keys of one section
# and 10,000 GetProfileString reads, then one write into files of growing size,
# each against the same work done directly (write, fsync, rename, directory
# fsync; reading and scanning the file), in interleaved rounds pinned to one
# CPU. The measures run on a memory file system (/dev/shm), where the figures
# are the code's own; the writes by file size run on the disk under <out> too,
# for what its flush adds (the 10,000 writes there only with
# WIN_PROFILE_BENCH_DISK_ALL=1). Writes <out>/profile.measures.json and
# <out>/profile.report.json (the runs in full, the writes by size and the
# largest file written in under 1 ms), and prints the report, keeping a copy in
# <out>/profile.report.txt that bench.sh shows again at its end. The largest
# size is a report, not a measure: it is a threshold read off a few sizes, not
# the time of one piece of work done two ways, so a ratio of two thresholds
# would move with the sizes chosen and the machine and could carry no honest
# goal; the writes at each size it comes from are measures with goals.
set -euo pipefail
build=${1:?build dir}
out=${2:?output dir}
mkdir -p "$out"
out=$(cd "$out" && pwd)
pin=()
command -v taskset >/dev/null && taskset -c 0 true 2>/dev/null && pin=(taskset -c 0)

dirs=()
trap 'rm -rf "${dirs[@]}"' EXIT
dirs+=("$(mktemp -d "$out/profile-bench-XXXXXX")")
args=(--disk-dir "${dirs[0]}")
if [ -d /dev/shm ] && [ -w /dev/shm ]; then
    dirs+=("$(mktemp -d /dev/shm/profile-bench-XXXXXX)")
    args+=(--memory-dir "${dirs[1]}")
fi
[ -n "${WIN_PROFILE_BENCH_DISK_ALL:-}" ] && args+=(--disk-all)
"${pin[@]}" "$build/bench/profile/bench_profile" "${args[@]}" \
    --rounds "${WIN_BENCH_ROUNDS:-15}" --long-rounds "${WIN_PROFILE_BENCH_LONG_ROUNDS:-3}" \
    --json "$out/profile.measures.json" --report "$out/profile.report.json" |
    tee "$out/profile.report.txt"
