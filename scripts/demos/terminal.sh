#!/usr/bin/env bash
# The host terminal on its built-in sample session: the screen as a PNG, as a
# printed PDF page, and the selected text.
set -euo pipefail
build=${1:?build dir}
out=${2:?output dir}
mkdir -p "$out"
"$build/examples/terminal/terminal_host" --sample --png "$out/terminal.png" \
    --pdf "$out/terminal.pdf" --text "$out/terminal.txt"
