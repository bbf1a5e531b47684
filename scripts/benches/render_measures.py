#!/usr/bin/env python3
"""Turns the renderer's Google Benchmark output into measures for bench.json.

A full-screen refresh has no peer library; its baseline is the goal set for it
(2 ms for text, 6 ms for line glyphs on a 132x50 screen), so the ratio says how
many times faster than the goal we are."""
import json
import sys

src, dst = sys.argv[1], sys.argv[2]
runs = {b["run_name"]: b for b in json.load(open(src))["benchmarks"]
        if b.get("aggregate_name") == "median"}
goals = {"BM_RefreshText/132/50": ("refresh-text-132x50", 2.0),
         "BM_RefreshLines/132/50": ("refresh-lines-132x50", 6.0),
         "BM_RefreshText/80/24": ("refresh-text-80x24", 2.0 * 1920 / 6600),
         "BM_RefreshLines/80/24": ("refresh-lines-80x24", 6.0 * 1920 / 6600)}
measures = []
for run, (name, goal) in goals.items():
    if run not in runs:
        continue
    ms = runs[run]["real_time"]  # reported in milliseconds
    measures.append({"measure": name, "unit": "ms", "ours": round(ms, 3),
                     "peers": {"goal": round(goal, 3)}, "ratio": round(goal / ms, 2)})
json.dump(measures, open(dst, "w"), indent=2)
