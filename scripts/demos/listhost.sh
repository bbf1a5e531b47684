#!/usr/bin/env bash
# The list host: a report list of 30 deliveries sorted by each column through
# clicks on its headings, a column widened, a row copied and pasted back
# through the clipboard, a picture of the list taken from the clipboard, and
# in a second process the layout the user left, read back from the profile.
set -euo pipefail
build=$1
out=$2
"$build/examples/listhost/list_host" "$out"
