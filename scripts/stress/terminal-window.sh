#!/usr/bin/env bash
# The interactive terminal's reliability run: terminal_host --window running
# bash on a private Xvfb, driven for a while by a seeded random mix of typed
# commands (ls, seq, vim, less, top, escape sequences, long lines), special
# keys, Alt as meta, mouse drags, clicks, double and triple clicks and wheel
# turns, the shortcut menu and its Font pop-up, window
# resizes and clipboard traffic both ways. Every so often the shell is asked to answer
# (echo alive-N into a file). At the end the window is closed as a window
# manager closes it; the host must exit 0, the sanitizers must report
# nothing, and neither the host's X resources nor its windows, GDI objects
# and global memory blocks may have grown.
#
#   scripts/stress/terminal-window.sh [SECONDS] [SEED]
#
# SECONDS defaults to 600 (or $STRESS_SECONDS), SEED to 1 (or $STRESS_SEED).
# $STRESS_BUILD names the build directory (default build/asan; build it with
# `cmake --preset asan && cmake --build --preset asan -j2 --target terminal_host x11_wm_close`).
# $STRESS_WM names a window manager to run on the display (openbox, say);
# there is none by default.
# The ten-minute run:  scripts/stress/terminal-window.sh 600 1
# Needs Xvfb, xdotool, xclip and xrestop (scripts/deps.sh installs them).
# Exit status 0 when every check held; the summary says what failed otherwise.
set -uo pipefail

here=$(cd "$(dirname "$0")/../.." && pwd)
seconds=${1:-${STRESS_SECONDS:-600}}
seed=${2:-${STRESS_SEED:-1}}
build=${STRESS_BUILD:-$here/build/asan}
host=$build/examples/terminal/terminal_host
closer=$build/examples/terminal/x11_wm_close

for tool in Xvfb xdotool xclip; do
    command -v "$tool" >/dev/null || { echo "terminal-window: $tool is not installed" >&2; exit 77; }
done
for exe in "$host" "$closer"; do
    [ -x "$exe" ] || { echo "terminal-window: build $exe first" >&2; exit 77; }
done

dir=$(mktemp -d /tmp/terminal-stress.XXXXXX)
xvfb_pid=""
host_pid=""
wm_pid=""
cleanup() {
    [ -n "$host_pid" ] && kill "$host_pid" 2>/dev/null
    [ -n "$wm_pid" ] && kill "$wm_pid" 2>/dev/null
    [ -n "$xvfb_pid" ] && kill "$xvfb_pid" 2>/dev/null
    wait 2>/dev/null
}
trap cleanup EXIT

# --- The display and the host ---

exec 5>"$dir/displayfd"
Xvfb -displayfd 5 -screen 0 1920x1200x24 -nolisten tcp >"$dir/xvfb.log" 2>&1 &
xvfb_pid=$!
exec 5>&-
for _ in $(seq 100); do
    [ -s "$dir/displayfd" ] && break
    sleep 0.1
done
[ -s "$dir/displayfd" ] || { echo "terminal-window: Xvfb did not start" >&2; exit 1; }
export DISPLAY=":$(head -1 "$dir/displayfd")"
if [ -n "${STRESS_WM:-}" ]; then
    $STRESS_WM >"$dir/wm.log" 2>&1 &
    wm_pid=$!
    for _ in $(seq 100); do
        xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q "window id" && break
        sleep 0.1
    done
    # A manager may drop the windows mapped while it is still starting.
    sleep 1
fi

seq 1 3000 | sed 's/$/ the quick brown fox jumps over the lazy dog/' >"$dir/text.txt"
(
    cd "$dir" || exit 1
    exec env WIN_DISPLAY=x11 TERMINAL_HOST_COUNTS=1 PS1='$ ' HISTFILE=/dev/null \
        ASAN_OPTIONS=detect_leaks=1 LSAN_OPTIONS=suppressions=$here/scripts/lsan.supp \
        UBSAN_OPTIONS=print_stacktrace=1 \
        "$host" --window --pdf "$dir/screen.pdf" --run bash --norc
) >"$dir/host.out" 2>"$dir/host.err" &
host_pid=$!

window=$(xdotool search --sync --name '^Terminal: bash' | head -1)
[ -n "$window" ] || { echo "terminal-window: no terminal window" >&2; exit 1; }
xdotool windowfocus --sync "$window"

# --- Checks ---

alive_checked=0
alive_failed=0
failures=()

# Asks the shell to write alive-N to a file and waits for it. A full-screen
# program that kept a key of its own (a help page, a prompt) is left with
# the keys that end each of them, and the shell asked once more: that counts
# as a recovery, not an answer lost.
recovered=0
ask_alive() {
    rm -f "$dir/alive"
    xdotool key --delay 20 ctrl+c ctrl+e ctrl+u
    xdotool type --delay 3 "echo $1 > alive"
    xdotool key Return
    for _ in $(seq "$2"); do
        [ "$(cat "$dir/alive" 2>/dev/null)" = "$1" ] && return 0
        kill -0 "$host_pid" 2>/dev/null || return 1
        sleep 0.1
    done
    return 1
}
check_alive() {
    alive_checked=$((alive_checked + 1))
    local word="alive-$alive_checked"
    ask_alive "$word" 100 && return 0
    xwd -root -silent >"$dir/$word-stuck.xwd" 2>/dev/null
    xdotool key --delay 100 Escape q q Escape colon q exclam Return ctrl+c
    if ask_alive "$word" 300; then
        recovered=$((recovered + 1))
        return 0
    fi
    alive_failed=$((alive_failed + 1))
    failures+=("no answer to $word")
    # What the display showed, for the log.
    xwd -root -silent >"$dir/$word.xwd" 2>/dev/null
    xwininfo -root -tree >"$dir/$word.tree" 2>/dev/null
    return 1
}

# The host's own counts: SIGUSR1 asks for them at the next message. Another
# program takes the clipboard first and the host pastes from it, so the host
# holds no copied text of its own and one block of the other's, whatever the
# last clipboard action was. (xclip stays in the background serving the
# selection: its output must not hold the caller's pipe open.)
host_counts() {
    local before
    printf 'sample' | timeout 10 xclip -selection clipboard -i >/dev/null 2>&1
    sleep 0.3
    prompt
    xdotool key ctrl+shift+v
    sleep 0.3
    prompt
    before=$(grep -c 'counts now:' "$dir/host.err")
    kill -USR1 "$host_pid"
    for _ in $(seq 100); do
        xdotool mousemove --window "$window" 5 5
        [ "$(grep -c 'counts now:' "$dir/host.err")" -gt "$before" ] && break
        sleep 0.1
    done
    grep 'counts now:' "$dir/host.err" | tail -1 | sed 's/.*counts now: //'
}

# The host's X resources as the X-Resource extension counts them (xrestop):
# its client is the one whose resource base holds the window's id.
x_resources() {
    command -v xrestop >/dev/null || { echo "(xrestop not installed)"; return; }
    local base
    base=$(printf '0x%x' $((window & ~0x1fffff)))
    xrestop -b -m 1 | awk -v base="$base" '
        /res_base/ { mine = ($3 == base) }
        mine && /^\t(windows|GCs|fonts|pixmaps|pictures|cursors|colormaps|unknowns|passive grabs)/ {
            sub(/^\t/, ""); split($0, kv, /[ \t]*: /); printf "%s %s, ", kv[1], kv[2]
        }' | sed 's/, $//'
}

# --- Actions ---

declare -A done_count
count() { done_count[$1]=$((${done_count[$1]:-0} + 1)); }

geometry() {
    eval "$(xdotool getwindowgeometry --shell "$window")"
    win_w=$WIDTH
    win_h=$HEIGHT
}
# A random point inside the window's client area (below the caption).
random_point() {
    px=$((10 + RANDOM % (win_w > 30 ? win_w - 20 : 10)))
    py=$((40 + RANDOM % (win_h > 60 ? win_h - 50 : 10)))
}

prompt() { xdotool key --delay 10 ctrl+e ctrl+u; }
run() {
    prompt
    xdotool type --delay 2 "$1"
    xdotool key Return
}

commands=(
    "ls -la"
    "seq 1 5000"
    "printf '\\e[1;31mred\\e[0m \\e[4munder\\e[0m \\e[7mreverse\\e[0m \\e[5mblink\\e[0m\\n'"
    "printf '\\e[2J\\e[H\\e[10;20Hmoved\\e[r\\e[5;15r\\e[15;1H\\n\\n\\e[r'"
    "printf '\\e#8\\e[H\\e#3double\\n\\e#4double\\n\\e#6wide\\n'"
    "printf '\\e[?3h'; sleep 0.3; printf '\\e[?3l'"
    "printf '%0400d\\n' 7"
    "head -c 3000 /dev/urandom | od -c | head -60"
    "printf '\\e)0\\016lqqk\\017 \\e(0lqk\\e(B\\n'"
    "cat text.txt | head -400"
    "echo \$((RANDOM * RANDOM)) \$COLUMNS \$LINES"
    "printf '\\e[6n\\e[c'; echo"
)

act_command() { run "${commands[RANDOM % ${#commands[@]}]}"; count commands; }

# A few notches of the wheel down and up over the window: cursor keys to a
# full-screen program, nothing at the shell's prompt.
wheel() {
    geometry
    random_point
    xdotool mousemove --window "$window" "$px" "$py" \
        click --repeat $((1 + RANDOM % 4)) --delay 20 5 click --repeat $((1 + RANDOM % 3)) --delay 20 4
}

act_wheel() {
    wheel
    prompt
    count wheel
}

act_vim() {
    run "vim -u NONE text.txt"
    sleep 1.5
    xdotool key --delay 30 G g g Next Next Prior
    wheel
    xdotool key --delay 30 o
    xdotool type --delay 5 "inserted line $RANDOM"
    xdotool key --delay 30 Escape Escape
    xdotool type --delay 20 ":q!"
    xdotool key Return
    count vim
}

act_less() {
    run "less text.txt"
    sleep 1.2
    xdotool key --delay 40 space space b G g Down Down Up slash 5 0 0 Return n
    wheel
    xdotool key q
    sleep 0.3
    xdotool key q
    count less
}

act_top() {
    run "top -d 0.5"
    sleep 1.5
    xdotool key q
    count top
}

act_keys() {
    local keys=(Up Down Left Right Home End Prior Next F1 F2 F3 F4 F5 F6 F7 F8 F9 F10 F11 F12
                BackSpace Tab Delete Insert Escape ctrl+a ctrl+e ctrl+l ctrl+c KP_Enter)
    local picked=()
    for _ in $(seq $((1 + RANDOM % 8))); do picked+=("${keys[RANDOM % ${#keys[@]}]}"); done
    xdotool key --delay 15 "${picked[@]}"
    prompt
    count keys
}

act_suspend() {
    run "sleep 30"
    sleep 0.2
    xdotool key ctrl+z
    sleep 0.2
    run "fg"
    sleep 0.2
    xdotool key ctrl+c
    count suspend
}

act_drag() {
    geometry
    random_point
    local x0=$px y0=$py
    random_point
    xdotool mousemove --window "$window" "$x0" "$y0" mousedown 1 \
        mousemove --window "$window" $(((x0 + px) / 2)) $(((y0 + py) / 2)) \
        mousemove --window "$window" "$px" "$py" mouseup 1
    count drags
}

act_click() {
    geometry
    random_point
    xdotool mousemove --window "$window" "$px" "$py" click 1
    count clicks
}

act_menu() {
    geometry
    random_point
    xdotool mousemove --window "$window" "$px" "$py" click 3
    sleep 0.3
    # Half the time into the Font pop-up (the last item) and out again.
    if ((RANDOM % 2)); then
        xdotool key --delay 50 Up Right
        sleep 0.2
        xdotool key Escape
    fi
    xdotool key Escape
    sleep 0.1
    xdotool windowfocus "$window" 2>/dev/null
    count menus
}

# A double click (a word) or a triple one (a row), sometimes dragged on.
act_double() {
    geometry
    random_point
    local x0=$px y0=$py
    random_point
    if ((RANDOM % 2)); then
        xdotool mousemove --window "$window" "$x0" "$y0" click --repeat 2 --delay 40 1
    else
        xdotool mousemove --window "$window" "$x0" "$y0" click --repeat 2 --delay 40 1 \
            mousedown 1 mousemove --window "$window" "$px" "$py" mouseup 1
    fi
    count double-clicks
}

# Alt as a meta key at the shell's prompt: word moves and the last argument.
act_meta() {
    prompt
    xdotool type --delay 10 "echo one two three"
    xdotool key --delay 20 alt+b alt+b alt+f alt+period
    prompt
    count meta-keys
}

act_resize() {
    local w=$((200 + RANDOM % 1400)) h=$((100 + RANDOM % 900))
    xdotool windowsize "$window" "$w" "$h"
    count resizes
}

act_paste_in() {
    local word="pasted-$RANDOM"
    prompt
    printf 'echo %s' "$word" | timeout 10 xclip -selection clipboard -i >/dev/null 2>&1
    sleep 0.1
    if ((RANDOM % 2)); then
        xdotool key ctrl+shift+v
    else
        geometry
        random_point
        xdotool mousemove --window "$window" "$px" "$py" click 2
    fi
    xdotool key Return
    count clipboard-in
}

act_copy_out() {
    act_drag
    xdotool key ctrl+shift+c
    timeout 10 xclip -selection clipboard -o >/dev/null 2>&1
    count clipboard-out
}

actions=(act_command act_command act_command act_keys act_keys act_drag act_drag act_click
         act_menu act_resize act_resize act_paste_in act_copy_out act_vim act_less act_top
         act_suspend act_wheel act_double act_meta)

# --- The run ---

RANDOM=$seed
start=$SECONDS
check_alive
# Every kind of action once, so that what the platform makes once per process
# (the menu's font, the clipboard's window) exists before the first sample.
for action in $(printf '%s\n' "${actions[@]}" | sort -u); do
    $action
done
actions_done=$(printf '%s\n' "${actions[@]}" | sort -u | wc -l)
xdotool windowsize "$window" 800 500
check_alive
early_counts=$(host_counts)
early_x=$(x_resources)
late_counts=""
late_x=""
next_alive=$((SECONDS + 15))
while [ $((SECONDS - start)) -lt "$seconds" ]; do
    kill -0 "$host_pid" 2>/dev/null || { failures+=("the host ended during the run"); break; }
    ${actions[RANDOM % ${#actions[@]}]}
    actions_done=$((actions_done + 1))
    if [ "$SECONDS" -ge "$next_alive" ]; then
        check_alive
        next_alive=$((SECONDS + 15))
    fi
done
kill -0 "$host_pid" 2>/dev/null && check_alive
if kill -0 "$host_pid" 2>/dev/null; then
    xdotool windowsize "$window" 800 500
    check_alive
    late_counts=$(host_counts)
    late_x=$(x_resources)
    # Closed as a window manager closes it; the shell is hung up.
    "$closer" "$window"
    for _ in $(seq 600); do
        kill -0 "$host_pid" 2>/dev/null || break
        sleep 0.1
    done
fi
if kill -0 "$host_pid" 2>/dev/null; then
    failures+=("the host did not end within a minute of the close")
    kill -ABRT "$host_pid"
fi
wait "$host_pid"
host_status=$?
host_pid=""

# --- Verdict ---

[ "$host_status" -eq 0 ] || failures+=("the host exited with status $host_status")
if grep -qE 'ERROR: (AddressSanitizer|LeakSanitizer)|runtime error:' "$dir/host.err"; then
    failures+=("the sanitizers reported an error (see $dir/host.err)")
fi
[ "$early_counts" = "$late_counts" ] || failures+=("the host's objects grew")
[ "$early_x" = "$late_x" ] || failures+=("the host's X resources grew")
after=$(grep 'counts after:' "$dir/host.err" | sed 's/.*counts after: //')
# The platform keeps one caption font and one menu font for the process.
if ! [[ "$after" =~ ^windows\ 0,\ pens\ 0,\ brushes\ 0,\ fonts\ [0-2],\ bitmaps\ 0,\ DCs\ 0,\ global\ blocks\ 0$ ]]; then
    failures+=("objects left after the window went: $after")
fi

echo "terminal-window: $seconds s, seed $seed, display $DISPLAY${STRESS_WM:+ under $STRESS_WM}, log $dir"
kinds=""
for k in $(printf '%s\n' "${!done_count[@]}" | sort); do kinds+="$k ${done_count[$k]}, "; done
echo "actions: $actions_done (${kinds%, })"
echo "answers: $((alive_checked - alive_failed)) of $alive_checked ($recovered after ending a stuck program)"
echo "host objects early: $early_counts"
echo "host objects late:  $late_counts"
echo "host objects after: $after"
echo "X resources early:  $early_x"
echo "X resources late:   $late_x"
echo "host exit status:   $host_status"
if [ ${#failures[@]} -gt 0 ]; then
    printf 'FAILED: %s\n' "${failures[@]}"
    tail -30 "$dir/host.err"
    exit 1
fi
echo "PASSED"
# The pictures of programs that needed ending are kept for a look.
[ "$recovered" -eq 0 ] && rm -rf "$dir"
exit 0
