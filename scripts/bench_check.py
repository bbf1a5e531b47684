#!/usr/bin/env python3
"""Compares the ratios in bench.json with the goals file: prints each measure
against its goal and exits non-zero naming every measure below its goal, every
goal without a measure and every measure without a goal."""
import json
import sys

goals_path, bench_path = sys.argv[1], sys.argv[2]
goals = json.load(open(goals_path))
measures = {m["measure"]: m for m in json.load(open(bench_path))}
failures = []
for name, goal in goals.items():
    minimum = goal["min_ratio"]
    if name not in measures:
        failures.append(f"{name}: not measured (goal {minimum})")
        continue
    ratio = measures[name]["ratio"]
    verdict = "ok" if ratio >= minimum else "BELOW GOAL"
    print(f"{name:42s} ratio {ratio:8.3f}  goal {minimum:6.3f}  {verdict}")
    if ratio < minimum:
        failures.append(f"{name}: ratio {ratio} below its goal {minimum}")
for name in measures:
    if name not in goals:
        failures.append(f"{name}: no goal in {goals_path}")
if failures:
    print("\nbench check failed:", file=sys.stderr)
    for failure in failures:
        print("  " + failure, file=sys.stderr)
    sys.exit(1)
print("\nevery measure meets its goal")
