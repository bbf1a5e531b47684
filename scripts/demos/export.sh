#!/usr/bin/env bash
# The export host: a small table written comma-separated with qualifiers and
# tab-separated, each replaced and then appended to under a dated header.
set -euo pipefail
build=$1
out=$2
"$build/examples/export/export_host" "$out"
