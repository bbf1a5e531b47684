#!/usr/bin/env bash
# Refreshing a whole screen through the cell renderer against Cairo's own text
# path and strokes drawing the same screen, in interleaved rounds pinned to one
# CPU. Writes <out>/render.measures.json.
set -euo pipefail
build=${1:?build dir}
out=${2:?output dir}
mkdir -p "$out"
pin=()
command -v taskset >/dev/null && taskset -c 0 true 2>/dev/null && pin=(taskset -c 0)
"${pin[@]}" "$build/bench/render/render_bench" --rounds "${WIN_BENCH_ROUNDS:-15}" \
    --json "$out/render.measures.json"
