// A rectangular range of grid cells: rows top to bottom and columns left to
// right, both ends included. Row 0 is the header row, column 0 the
// row-header column. Whole rows, whole columns and the whole table reach to
// the grid's last row or column, whatever the counts are when the range is
// used; the grid clips every range to its cells.
#pragma once

#include <climits>

class CGXRange {
public:
    // No cells.
    CGXRange() = default;
    // One cell.
    CGXRange(int row, int col) : top(row), left(col), bottom(row), right(col) {}
    CGXRange(int top, int left, int bottom, int right)
        : top(top), left(left), bottom(bottom), right(right) {}

    CGXRange& SetCells(int top, int left, int bottom, int right);
    // Every row of columns first to last.
    CGXRange& SetCols(int first, int last);
    CGXRange& SetCols(int col) { return SetCols(col, col); }
    // Every column of rows first to last.
    CGXRange& SetRows(int first, int last);
    CGXRange& SetRows(int row) { return SetRows(row, row); }
    CGXRange& SetTable();

    // True when top > bottom or left > right: the range has no cells.
    bool IsEmpty() const { return top > bottom || left > right; }
    bool IsCellInRange(int row, int col) const {
        return row >= top && row <= bottom && col >= left && col <= right;
    }

    int top = 0;
    int left = 0;
    int bottom = -1;
    int right = -1;

    // The open end of whole rows and columns.
    static constexpr int kLast = INT_MAX;
};
