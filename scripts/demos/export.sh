#!/usr/bin/env bash
# The export host: a small table written comma-separated with qualifiers and
# tab-separated, each replaced and then appended to under a dated header.
set -euo pipefail
build=$1
out=$2
"$build/examples/export/export_host" "$out"
# The same host with its user interface: the settings dialog answered by the
# simulated user, the list written, the warning switched off and, in a second
# process, skipped.
"$build/examples/export/export_dialog_host" "$out"
