#!/usr/bin/env bash
# The host terminal running a real full-screen program under TERM=vt100: a
# dialog check list with its line-drawing frames, stopped after two seconds.
set -euo pipefail
build=${1:?build dir}
out=${2:?output dir}
mkdir -p "$out"
if ! command -v dialog >/dev/null; then
    echo "dialog is not installed; skipped" >&2
    exit 0
fi
"$build/examples/terminal/terminal_host" --png "$out/terminal-dialog.png" \
    --pdf "$out/terminal-dialog.pdf" --timeout 2 --run dialog --title "Host terminal" \
    --checklist "What the screen shows:" 14 60 5 attrs "Video attributes" on \
    box "Line drawing" on region "Scrolling region" off sel "Selection" on print "Printing" off
