#!/usr/bin/env bash
# Installs what is missing, builds the dev preset and runs every test through CTest.
# With WIN_PRESET=asan the same suite runs under the sanitizers.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
preset=${WIN_PRESET:-dev}
jobs=${WIN_JOBS:-2}
cmake --preset "$preset"
cmake --build --preset "$preset" -j "$jobs"
ctest --preset "$preset" -j "$jobs"
