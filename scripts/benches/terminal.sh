#!/usr/bin/env bash
# Our terminal window (terminal_host --window) against the peer terminals installed
# (xterm, urxvt, st, mlterm, lxterminal, Eterm, qterminal, alacritty, kitty, zutty) on a
# private Xvfb, in interleaved rounds: the time to take in a plain-text corpus
# written into the terminal's pty (until the terminal answers the cursor
# position request that follows it), and the keystroke latency from an XTEST
# key press to the first changed pixel of the window. The throughput is also set
# beside a bare reader of the same pty (pty_floor), which parses and draws
# nothing: what the kernel allows; and all of it again with each terminal and its
# program on one processor. Writes
# <out>/terminal.measures.json and <out>/terminal.report.txt (absolute times,
# latency medians and 99th percentiles). Skips, saying so, without Xvfb or
# without any peer terminal.
set -euo pipefail
build=${1:?build dir}
out=${2:?output dir}
mkdir -p "$out"
exe="$build/bench/terminal/terminal_speed"
if [ ! -x "$exe" ]; then
    echo "terminal_speed not built (xcb or xcb-xtest missing?); terminal window bench skipped" >&2
    exit 0
fi
"$exe" --ours "$build/examples/terminal/terminal_host" --floor "$build/bench/terminal/pty_floor" --bytes "${WIN_TERMINAL_BENCH_BYTES:-4000000}" \
    --rounds "${WIN_TERMINAL_BENCH_ROUNDS:-5}" --keys "${WIN_TERMINAL_BENCH_KEYS:-40}" \
    --json "$out/terminal.measures.json" --report "$out/terminal.report.txt"
