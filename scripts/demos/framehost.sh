#!/usr/bin/env bash
# The frame host: a frame with a colour status bar and a docking toolbox; the
# toolbox's context menu floats it, docks it again and hides it, the host docks
# it at each edge, the user drags it by its title to the right edge and out of
# the frame and back by its small frame's caption, and every state is written
# as a picture.
set -euo pipefail
build=$1
out=$2
"$build/examples/framehost/frame_host" "$out"
