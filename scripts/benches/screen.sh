#!/usr/bin/env bash
# Runs the screen model's micro-benchmarks and writes <out>/screen.measures.json.
# Each measure is compared with a baseline doing the same job the literal way
# (block moves of whole rows, cell-by-cell writes into a plain array).
set -euo pipefail
build=${1:?build dir}
out=${2:?output dir}
mkdir -p "$out"
raw="$out/screen.benchmark.json"
taskset -c 0 "$build/bench/screen/bench_screen" --benchmark_format=json \
    --benchmark_repetitions=3 --benchmark_report_aggregates_only=true >"$raw" ||
    "$build/bench/screen/bench_screen" --benchmark_format=json \
        --benchmark_repetitions=3 --benchmark_report_aggregates_only=true >"$raw"
python3 - "$raw" "$out/screen.measures.json" <<'PY'
import json, sys
runs = {b["run_name"]: b for b in json.load(open(sys.argv[1]))["benchmarks"]
        if b.get("aggregate_name") == "median"}
def ns(name):
    b = runs[name]
    scale = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}[b["time_unit"]]
    return b["cpu_time"] * scale
def rate(name):  # millions of items per second
    return runs[name]["items_per_second"] / 1e6
measures = []
def faster(measure, unit, ours, peer_name, peer):
    measures.append({"measure": measure, "unit": unit, "ours": round(ours, 3),
                     "peers": {peer_name: round(peer, 3)}, "ratio": round(peer / ours, 3)})
def throughput(measure, ours, peer_name, peer):
    measures.append({"measure": measure, "unit": "Mchar/s", "ours": round(ours, 2),
                     "peers": {peer_name: round(peer, 2)}, "ratio": round(ours / peer, 3)})
throughput("screen-putchar", rate("BM_PutChar"), "raw cell writes", rate("BM_PutChar_RawCells"))
faster("screen-scroll-bottom-margin", "ns", ns("BM_ScrollAtBottomMargin"),
       "block move of 24 rows", ns("BM_ScrollAtBottomMargin_BlockMove"))
faster("screen-insert-delete-line", "ns", ns("BM_InsertDeleteLine"),
       "block moves of 18 rows", ns("BM_InsertDeleteLine_BlockMove"))
faster("screen-erase-in-display", "ns", ns("BM_EraseInDisplay"),
       "cell-by-cell blanks", ns("BM_EraseInDisplay_CellByCell"))
# No peer: the baseline is the time a host has per mouse move at 60 Hz.
faster("screen-select-and-text", "ns", ns("BM_SelectAndText"),
       "frame budget at 60 Hz", 1e9 / 60)
throughput("screen-putchar-raster-dc", rate("BM_PutCharWithRasterDC"), "without a DC",
           rate("BM_PutChar"))
json.dump(measures, open(sys.argv[2], "w"), indent=1)
PY
cat "$out/screen.measures.json"
