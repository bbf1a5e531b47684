#!/usr/bin/env bash
# The screen model's operations against a literal implementation of each (block
# moves of whole rows, cell-by-cell writes into a plain array), in interleaved
# rounds pinned to one CPU. Writes <out>/screen.measures.json.
set -euo pipefail
build=${1:?build dir}
out=${2:?output dir}
mkdir -p "$out"
pin=()
command -v taskset >/dev/null && taskset -c 0 true 2>/dev/null && pin=(taskset -c 0)
"${pin[@]}" "$build/bench/screen/bench_screen" --rounds "${WIN_BENCH_ROUNDS:-15}" \
    --sample-ms 20 --json "$out/screen.measures.json"
