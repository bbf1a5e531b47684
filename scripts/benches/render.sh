#!/usr/bin/env bash
# Refreshing a whole screen through the cell renderer, pinned to one CPU.
set -euo pipefail
build=$1
out=$2
taskset -c 0 "$build/bench/render/render_bench" --benchmark_repetitions=7 \
    --benchmark_report_aggregates_only=true --benchmark_format=json \
    --benchmark_out="$out/render.gbench.json" --benchmark_out_format=json >/dev/null
python3 "$(dirname "$0")/render_measures.py" "$out/render.gbench.json" "$out/render.measures.json"
