#!/usr/bin/env bash
# The control host: a label editor resized by dragging its corner (larger,
# below its designed size, larger again) with its controls following the
# right and bottom edges; its colour button released, pressed, focused and
# disabled, and a colour picked through the colour dialog.
set -euo pipefail
build=$1
out=$2
"$build/examples/controlhost/control_host" "$out"
