// How a grid divides into printed pages: bands of columns that fit across
// the page, and runs of rows that fit below the repeated header row.
#pragma once

#include "GridCore.h"
#include "atltypes.h"

#include <vector>

namespace platform::grid {

struct PrintPages {
    CRect area;                          // the page within its margins, in print units
    int headerColWidth = 0;              // 0 when the header column is hidden
    std::vector<std::vector<int>> bands; // the data columns of each band
    int rowsPerPage = 1;
    int rowPages = 1; // pages per band

    UINT Count() const { return static_cast<UINT>(bands.size()) * static_cast<UINT>(rowPages); }
};

// Divides grid into pages that fit area. Columns go into a band while they
// fit beside the header column; a column wider than the page has a band of
// its own. Without any column to show there is one band with none (and,
// with the header column hidden too, one blank page), and a grid without
// rows still has one page for its header row.
PrintPages Paginate(const CGXGridCore& grid, const CRect& area, int headerColWidth);

} // namespace platform::grid
