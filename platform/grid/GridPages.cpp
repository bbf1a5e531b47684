#include "GridPages.h"

#include <algorithm>

namespace platform::grid {

PrintPages Paginate(const CGXGridCore& grid, const CRect& area, int headerColWidth) {
    PrintPages pages;
    pages.area = area;
    pages.headerColWidth = headerColWidth;

    const int room = std::max(1, area.Width() - headerColWidth);
    std::vector<int> band;
    int used = 0;
    for (int col = 1; col <= grid.GetColCount(); ++col) {
        int width = grid.GetColWidth(col);
        if (width <= 0)
            continue; // hidden, or nothing to print
        if (!band.empty() && used + width > room) {
            pages.bands.push_back(std::move(band));
            band.clear();
            used = 0;
        }
        band.push_back(col);
        used += width;
    }
    if (!band.empty() || pages.bands.empty())
        pages.bands.push_back(std::move(band));

    const int rowHeight = std::max(1, grid.GetRowHeight(0));
    pages.rowsPerPage = std::max(1, (area.Height() - rowHeight) / rowHeight);
    // With nothing to show across, one (blank) page is all there is.
    const bool nothingAcross = pages.bands.front().empty() && headerColWidth == 0;
    const int rows = nothingAcross ? 0 : grid.GetRowCount();
    pages.rowPages = std::max(1, (rows + pages.rowsPerPage - 1) / pages.rowsPerPage);
    return pages;
}

} // namespace platform::grid
