#include "GridRange.h"

CGXRange& CGXRange::SetCells(int t, int l, int b, int r) {
    top = t;
    left = l;
    bottom = b;
    right = r;
    return *this;
}

CGXRange& CGXRange::SetCols(int first, int last) {
    return SetCells(0, first, kLast, last);
}

CGXRange& CGXRange::SetRows(int first, int last) {
    return SetCells(first, 0, last, kLast);
}

CGXRange& CGXRange::SetTable() {
    return SetCells(0, 0, kLast, kLast);
}
