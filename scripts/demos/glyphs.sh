#!/usr/bin/env bash
# The glyph sheet: every code in every character set and style, at two cell sizes.
set -euo pipefail
build=$1
out=$2
"$build/examples/glyphs/glyph_sheet" "$out/glyphs.png"
