#!/usr/bin/env bash
# Export speed: 1,000,000 fields written in text mode through CExportFile,
# against writing the same bytes raw, in interleaved rounds pinned to one CPU
# (field by field through the C library's buffered stream, and as one block).
# Writes <out>/export.measures.json; the program itself checks that the
# exported file holds exactly the raw bytes.
set -euo pipefail
build=${1:?build dir}
out=${2:?output dir}
mkdir -p "$out"
pin=()
command -v taskset >/dev/null && taskset -c 0 true 2>/dev/null && pin=(taskset -c 0)
"${pin[@]}" "$build/bench/export/bench_export" --rounds "${WIN_BENCH_ROUNDS:-15}" \
    --json "$out/export.measures.json"
# The one-call list export of 100,000 rows by 10 columns, its dialog answered
# by the simulated user, against the writer alone on the same cells.
"${pin[@]}" "$build/bench/export/bench_list_export" --rounds "${WIN_BENCH_ROUNDS:-15}" \
    --json "$out/list-export.measures.json"
