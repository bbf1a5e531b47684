#!/usr/bin/env bash
# Builds the coverage preset, runs every test and reports the line coverage of the
# library and the platform: a per-file table on the terminal and in
# out/coverage/summary.txt, per-folder totals, and an annotated HTML copy of every
# source in out/coverage/html/.
set -euo pipefail
cd "$(dirname "$0")/.."
WIN_COVERAGE=1 scripts/deps.sh
jobs=${WIN_JOBS:-2}
build=build/coverage
out=out/coverage
cmake --preset coverage
# Counts from an earlier run would add to this one, and counts of objects that
# have since been rebuilt cannot be merged at all. The build itself runs the test
# programs to list their tests, so clear again before the measured run.
[ -d "$build" ] && find "$build" -name '*.gcda' -delete
cmake --build --preset coverage -j "$jobs"
find "$build" -name '*.gcda' -delete
status=0
ctest --preset coverage -j "$jobs" || status=$?
rm -rf "$out"
mkdir -p "$out/html"
# One pass over the counters; every report below reads its JSON.
gcovr --root . --object-directory "$build" --filter 'Win/' --filter 'platform/' \
      --json "$out/coverage.json" >/dev/null
gcovr --root . --add-tracefile "$out/coverage.json" --txt "$out/summary.txt" \
      --html-details "$out/html/index.html"
cat "$out/summary.txt"
for folder in Win platform; do
    gcovr --root . --add-tracefile "$out/coverage.json" --filter "$folder/" --json-summary \
          "$out/$folder.json"
    python3 -c 'import json, sys
s = json.load(open(sys.argv[1]))
print("%-10s %6d of %6d lines %6.1f%%" % (sys.argv[2], s["line_covered"], s["line_total"], s["line_percent"]))' \
        "$out/$folder.json" "$folder/" | tee -a "$out/folders.txt"
done
exit $status
