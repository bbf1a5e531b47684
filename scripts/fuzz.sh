#!/usr/bin/env bash
# Builds the libFuzzer targets with AddressSanitizer and UndefinedBehaviorSanitizer
# and runs each for a number of inputs (default one million), starting from its
# checked-in corpus; new inputs go to build/fuzz/corpus/<target>, not the sources.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
runs=${WIN_FUZZ_RUNS:-1000000}
cmake --preset fuzz
cmake --build --preset fuzz -j "${WIN_JOBS:-2}"
targets=("$@")
[ ${#targets[@]} -eq 0 ] && targets=(screen archive rcscript profile dates columns)
for name in "${targets[@]}"; do
    work="build/fuzz/corpus/$name"
    mkdir -p "$work" build/fuzz/artifacts
    echo "== fuzz_$name: $runs inputs"
    UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1 \
        LSAN_OPTIONS="suppressions=$PWD/scripts/lsan.supp" \
        "build/fuzz/fuzz/$name/fuzz_$name" -runs="$runs" -rss_limit_mb=2048 \
        -max_len=4096 -print_final_stats=1 -artifact_prefix="build/fuzz/artifacts/$name-" \
        "$work" "fuzz/$name/corpus"
done
