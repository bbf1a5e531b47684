#!/usr/bin/env bash
# List sorting speed: a report list of 100,000 rows sorted in place by each of
# CListCtrlSorter's variants, from random and from sorted order, against
# reading every key once, std::sort and writing the rows back through the same
# control, in interleaved rounds pinned to one CPU. Writes
# <out>/listctrl.measures.json, and the comparisons each sort makes and their
# cost to <out>/listctrl.report.txt.
set -euo pipefail
build=${1:?build dir}
out=${2:?output dir}
mkdir -p "$out"
pin=()
command -v taskset >/dev/null && taskset -c 0 true 2>/dev/null && pin=(taskset -c 0)
"${pin[@]}" "$build/bench/listctrl/bench_list_sort" --rounds "${WIN_LIST_SORT_BENCH_ROUNDS:-5}" \
    --json "$out/listctrl.measures.json" | tee "$out/listctrl.report.txt"
