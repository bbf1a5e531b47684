#!/usr/bin/env bash
# Side by side with libvterm and libtsm on the plain, editor and region streams,
# pinned to one CPU; writes <out>/compare.measures.json (ratio: ours over the
# faster peer, the median of the per-round ratios).
set -euo pipefail
build=${1:?build dir}
out=${2:?output dir}
mkdir -p "$out"
exe="$build/bench/compare/compare_terminals"
if [ ! -x "$exe" ]; then
    echo "compare_terminals not built (libvterm-dev and libtsm-dev missing?)" >&2
    exit 1
fi
pin=()
command -v taskset >/dev/null && taskset -c 0 true 2>/dev/null && pin=(taskset -c 0)
"${pin[@]}" "$exe" --size "${WIN_COMPARE_BYTES:-4000000}" --rounds "${WIN_COMPARE_ROUNDS:-15}" \
    --json "$out/compare.measures.json"
cat "$out/compare.measures.json"
