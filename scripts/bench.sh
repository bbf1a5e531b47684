#!/usr/bin/env bash
# Builds in release mode, runs the benchmarks and writes out/bench.json: one
# object per measure with our figure, the baseline's figure and the ratio
# (above 1 when we are faster), each ratio the median of per-round ratios
# timed in interleaved rounds. With --check, then exits non-zero naming each
# measure whose ratio is below its goal in bench/goals.json. Reports beside it
# (out/bench/*.report.txt) are printed after it.
set -euo pipefail
cd "$(dirname "$0")/.."
check=0
for arg in "$@"; do
    case $arg in
    --check) check=1 ;;
    *)
        echo "usage: scripts/bench.sh [--check]" >&2
        exit 2
        ;;
    esac
done
WIN_BENCH_PEERS=1 scripts/deps.sh
cmake --preset release
cmake --build --preset release -j "${WIN_JOBS:-2}"
rm -rf out/bench
mkdir -p out/bench
for b in scripts/benches/*.sh; do
    echo "== $b"
    bash "$b" build/release out/bench
done
python3 scripts/bench_merge.py out/bench out/bench.json
cat out/bench.json
# Reports beside bench.json: figures that are no ratio against a baseline.
for report in out/bench/*.report.txt; do
    if [ -e "$report" ]; then cat "$report"; fi
done
if [ "$check" = 1 ]; then
    python3 scripts/bench_check.py bench/goals.json out/bench.json
fi
