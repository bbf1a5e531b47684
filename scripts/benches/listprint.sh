#!/usr/bin/env bash
# List printing speed: a report list of 10,000 rows x 8 columns printed to
# PDF through the list print document, frame and view (the list copied into
# the grid, columns fitted, the framework's page loop, the header line and
# the grid on every page) against Cairo drawing the same texts at the same
# positions onto a PDF surface, in interleaved rounds pinned to one CPU.
# Writes <out>/listprint.measures.json; then, in a fresh process for each
# size, the pages and the peak resident memory of one job, to
# <out>/listprint.report.txt.
set -euo pipefail
build=${1:?build dir}
out=${2:?output dir}
mkdir -p "$out"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
pin=()
command -v taskset >/dev/null && taskset -c 0 true 2>/dev/null && pin=(taskset -c 0)
program="$build/bench/listprint/bench_list_print"
{
    "${pin[@]}" "$program" --dir "$work" --rounds "${WIN_LIST_PRINT_BENCH_ROUNDS:-5}" \
        --json "$out/listprint.measures.json"
    echo "Peak memory of one print job by page count (8 columns):"
    for rows in 0 1000 2500 5000 10000 20000 40000; do
        "$program" --memory --rows "$rows" --dir "$work"
    done
} | tee "$out/listprint.report.txt"
