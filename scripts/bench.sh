#!/usr/bin/env bash
# Builds in release mode, runs the benchmarks and writes out/bench.json: one
# object per measure with our figure, the peers' figures and the ratio (above 1
# when we are better).
set -euo pipefail
cd "$(dirname "$0")/.."
WIN_BENCH_PEERS=1 scripts/deps.sh
cmake --preset release
cmake --build --preset release -j "${WIN_JOBS:-2}"
mkdir -p out/bench
for b in scripts/benches/*.sh; do
    echo "== $b"
    bash "$b" build/release out/bench
done
python3 scripts/bench_merge.py out/bench out/bench.json
cat out/bench.json
