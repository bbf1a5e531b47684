#!/usr/bin/env bash
# Export speed: 1,000,000 fields written in text mode through CExportFile,
# against writing the same bytes raw in the same run (field by field through
# the C library's buffered stream, and as one block). Writes
# <out>/export.measures.json; the program itself checks that the exported
# file holds exactly the raw bytes.
set -euo pipefail
build=${1:?build dir}
out=${2:?output dir}
mkdir -p "$out"
raw="$out/export.benchmark.json"
args=(--benchmark_format=json --benchmark_repetitions=5 --benchmark_report_aggregates_only=true)
taskset -c 0 "$build/bench/export/bench_export" "${args[@]}" >"$raw" ||
    "$build/bench/export/bench_export" "${args[@]}" >"$raw"
python3 - "$raw" "$out/export.measures.json" <<'PY'
import json, sys
runs = {b["run_name"]: b for b in json.load(open(sys.argv[1]))["benchmarks"]
        if b.get("aggregate_name") == "median"}
def rate(name):  # millions of fields per second
    return runs[name]["items_per_second"] / 1e6
ours = rate("BM_ExportText")
raw = rate("BM_RawFieldWrites")
block = rate("BM_RawBlockWrite")
measures = [
    {"measure": "export-text-1m-fields", "unit": "Mfield/s", "ours": round(ours, 2),
     "peers": {"raw write, field by field": round(raw, 2)}, "ratio": round(ours / raw, 3)},
    {"measure": "export-text-1m-fields-vs-block-write", "unit": "Mfield/s", "ours": round(ours, 2),
     "peers": {"raw write, one block": round(block, 2)}, "ratio": round(ours / block, 3)},
]
json.dump(measures, open(sys.argv[2], "w"), indent=1)
PY
cat "$out/export.measures.json"
