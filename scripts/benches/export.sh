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
pin=()
command -v taskset >/dev/null && taskset -c 0 true 2>/dev/null && pin=(taskset -c 0)
"${pin[@]}" "$build/bench/export/bench_export" --benchmark_format=json --benchmark_repetitions=7 \
    --benchmark_report_aggregates_only=true >"$raw"
python3 - "$raw" "$out/export.measures.json" <<'PY'
import json, sys
runs = {b["run_name"].split("/")[0]: b for b in json.load(open(sys.argv[1]))["benchmarks"]
        if b.get("aggregate_name") == "median"}
def rate(name, clock):  # millions of fields per second of CPU or elapsed time
    b = runs[name]
    scale = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1}[b["time_unit"]]
    return 1.0 / (b[clock] * scale)  # 1,000,000 fields per run
measures = []
def add(measure, clock, peer_name, peer):
    ours = rate("BM_ExportText", clock)
    theirs = rate(peer, clock)
    measures.append({"measure": measure, "unit": "Mfield/s", "ours": round(ours, 2),
                     "peers": {peer_name: round(theirs, 2)}, "ratio": round(ours / theirs, 3)})
# CPU time is the steadier figure on a shared machine; elapsed time is shown too.
add("export-text-1m-fields", "cpu_time", "raw write, field by field", "BM_RawFieldWrites")
add("export-text-1m-fields-elapsed", "real_time", "raw write, field by field", "BM_RawFieldWrites")
add("export-text-1m-fields-vs-block-write", "cpu_time", "raw write, one block", "BM_RawBlockWrite")
json.dump(measures, open(sys.argv[2], "w"), indent=1)
PY
cat "$out/export.measures.json"
