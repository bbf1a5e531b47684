// The list the sort benchmark works on: a report list control of 100,000
// rows on the headless desktop, with a column for each of the sorter's
// variants (a name, a date and time, an integer and an amount) and an
// identifier, filled from texts made up once from a fixed seed.
#pragma once

#include <Win/Win.h>

#include <vector>

namespace listbench {

constexpr int kRows = 100000;
enum Column { kName, kDate, kCount, kAmount, kId, kColumns };

// Cell texts, row-major.
using Cells = std::vector<CString>;

// Counts of the list's messages while counting is on.
struct MessageCounts {
    long textFetches = 0; // LVM_GETITEMTEXTW
    long itemSets = 0;    // LVM_SETITEMW: two for each pair of rows that trade places
};

class CountingListCtrl : public CListCtrl {
public:
    bool counting = false;
    MessageCounts counts;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

class SortBenchList {
public:
    SortBenchList();

    // The made-up rows in their first, random order.
    static Cells RandomCells();
    // Every cell set from cells, every row's item data its index there and
    // its state cleared but for the first row, which is selected and focused.
    void Load(const Cells& cells);
    Cells Read() const;

    CountingListCtrl list;

private:
    CWnd m_parent;
};

} // namespace listbench
