#!/usr/bin/env bash
# Installs what is missing, builds, and runs the example hosts on their built-in
# inputs; everything they produce goes to out/.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
cmake --preset release
cmake --build --preset release -j "${WIN_JOBS:-2}"
mkdir -p out
for demo in scripts/demos/*.sh; do
    echo "== $demo"
    bash "$demo" build/release out
done
ls -l out
