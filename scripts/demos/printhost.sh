#!/usr/bin/env bash
# The print host: two delivery documents, the printout wizard setting up the
# header line, the active one's list (500 rows of 6 columns, two columns
# moved by the user) printed to PDF through the print
# dialog and previewed two pages at a time, a maximised document closed and
# the next shown maximised, and in a second process the main window put back
# where the user left it. Then the printout read back: its pages, and the
# header line and title row of the first and last page.
set -euo pipefail
build=$1
out=$2
"$build/examples/printhost/print_host" "$out"
if command -v pdfinfo >/dev/null && command -v pdftotext >/dev/null; then
    pages=$(pdfinfo "$out/list-print.pdf" | awk '/^Pages:/ {print $2}')
    echo "list-print.pdf: $pages pages"
    for page in 1 "$pages"; do
        echo "-- page $page begins:"
        pdftotext -layout -f "$page" -l "$page" "$out/list-print.pdf" - | awk 'NF && shown++ < 3'
    done
fi
