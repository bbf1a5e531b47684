// Sorting a report list of 100,000 rows and 5 columns in place with each of
// CListCtrlSorter's variants (text, date, integer, double), from a random
// order and from the sorted order, against the fastest honest way to reach
// the same order through the same control: read every key once, std::sort
// the row indices, then write every row back (texts, image, item data and
// state) through the control's messages. Both sides start each run from
// the same contents, set up outside the timing.
//
// The sorter reads a cell back from the control and derives its key again at
// every comparison; a counting run of the same quicksort with a counting key
// gives the comparisons, and the list's messages the text fetches and the
// rows swapped, so the report shows what one comparison costs.
#include "Interleaved.h"
#include "SortBenchList.h"

#include <Win/listctrl/ListRowSort.h>
#include <Win/listctrl/ListSortKeys.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <numeric>
#include <string>
#include <vector>

namespace {

using namespace listbench;

SortBenchList& Bench() {
    static auto* bench = new SortBenchList();
    return *bench;
}

int HeaderColumns(CListCtrl& list) {
    return list.GetHeaderCtrl()->GetItemCount();
}

// The baseline: every key read once, the row indices sorted on the keys,
// then every row's texts and attributes read and written to its new place.
template <class Key> void SortThroughKeys(CListCtrl& list, int column, const Key& key) {
    const int rows = list.GetItemCount();
    const int columns = HeaderColumns(list);
    std::vector<typename Key::Value> keys;
    keys.reserve(static_cast<std::size_t>(rows));
    for (int r = 0; r < rows; ++r)
        keys.push_back(key.Of(list.GetItemText(r, column)));
    std::vector<int> order(static_cast<std::size_t>(rows));
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&](int a, int b) {
        return Key::Less(keys[static_cast<std::size_t>(a)], keys[static_cast<std::size_t>(b)]);
    });

    std::vector<CString> cells;
    cells.reserve(static_cast<std::size_t>(rows) * columns);
    std::vector<LVITEM> items(static_cast<std::size_t>(rows));
    for (int r = 0; r < rows; ++r) {
        for (int c = 0; c < columns; ++c)
            cells.push_back(list.GetItemText(r, c));
        LVITEM& item = items[static_cast<std::size_t>(r)];
        item.mask = LVIF_IMAGE | LVIF_PARAM | LVIF_STATE;
        item.iItem = r;
        item.stateMask = 0xFF0F;
        list.GetItem(&item);
    }
    for (int r = 0; r < rows; ++r) {
        const auto from = static_cast<std::size_t>(order[static_cast<std::size_t>(r)]);
        for (int c = 0; c < columns; ++c)
            list.SetItemText(r, c, cells[from * columns + static_cast<std::size_t>(c)]);
        LVITEM item = items[from];
        item.iItem = r;
        list.SetItem(&item);
    }
}

// A key that counts the comparisons made with it.
template <class Key> struct CountingKey {
    using Value = typename Key::Value;
    Key key;
    long* comparisons;
    Value Of(CString text) const { return key.Of(std::move(text)); }
    bool Less(const Value& a, const Value& b) const {
        ++*comparisons;
        return Key::Less(a, b);
    }
    bool Greater(const Value& a, const Value& b) const {
        ++*comparisons;
        return Key::Greater(a, b);
    }
};

struct Variant {
    const char* name;
    int column;
    bool (CListCtrlSorter::*sort)(CListCtrl&, int, bool, int, int);
    std::function<void(CListCtrl&)> baseline;
    std::function<long(CListCtrl&)> countComparisons;
};

template <class Key>
Variant MakeVariant(const char* name, int column,
                    bool (CListCtrlSorter::*sort)(CListCtrl&, int, bool, int, int)) {
    return Variant{
        name, column, sort, [column](CListCtrl& list) { SortThroughKeys(list, column, Key()); },
        [column](CListCtrl& list) {
            long comparisons = 0;
            listsort::SortRows(list, column, true, 0, -1, CountingKey<Key>{Key(), &comparisons});
            return comparisons;
        }};
}

// The keys of the column in the list's order never go down.
template <class Key> bool Ascending(const Cells& cells, int column) {
    const Key key;
    typename Key::Value previous = key.Of(cells[static_cast<std::size_t>(column)]);
    for (std::size_t r = 1; r < static_cast<std::size_t>(kRows); ++r) {
        typename Key::Value next = key.Of(cells[r * kColumns + static_cast<std::size_t>(column)]);
        if (Key::Less(next, previous))
            return false;
        previous = next;
    }
    return true;
}

bool Ascending(const Variant& variant, const Cells& cells) {
    switch (variant.column) {
    case kName:
        return Ascending<listsort::TextKey>(cells, kName);
    case kDate:
        return Ascending<listsort::DateTimeKey>(cells, kDate);
    case kCount:
        return Ascending<listsort::IntegerKey>(cells, kCount);
    default:
        return Ascending<listsort::DoubleKey>(cells, kAmount);
    }
}

// Every row of before is in after, whole.
bool SameRows(Cells before, Cells after) {
    auto rows = [](const Cells& cells) {
        std::vector<std::u16string> out;
        for (std::size_t r = 0; r < static_cast<std::size_t>(kRows); ++r) {
            std::u16string row;
            for (int c = 0; c < kColumns; ++c) {
                row.append(cells[r * kColumns + static_cast<std::size_t>(c)].Str());
                row.push_back(u'\t');
            }
            out.push_back(row);
        }
        std::sort(out.begin(), out.end());
        return out;
    };
    return rows(before) == rows(after);
}

struct Counted {
    long comparisons = 0;
    MessageCounts messages;
};

Counted Count(const Variant& variant, const Cells& start) {
    SortBenchList& bench = Bench();
    bench.Load(start);
    bench.list.counts = MessageCounts();
    bench.list.counting = true;
    Counted counted;
    counted.comparisons = variant.countComparisons(bench.list);
    bench.list.counting = false;
    counted.messages = bench.list.counts;
    return counted;
}

void Fail(const std::string& what) {
    std::fprintf(stderr, "%s\n", what.c_str());
    std::exit(1);
}

} // namespace

int main(int argc, char** argv) {
    bench::Options options;
    options.rounds = 5;
    options.fixedRuns = 1;
    if (!bench::ParseOptions(argc, argv, options))
        return 2;
    SortBenchList& bench = Bench();
    const Cells random = SortBenchList::RandomCells();

    const Variant variants[] = {
        MakeVariant<listsort::TextKey>("text", kName, &CListCtrlSorter::SortListCtrl),
        MakeVariant<listsort::DateTimeKey>("date", kDate, &CListCtrlSorter::SortListCtrlByDateTime),
        MakeVariant<listsort::IntegerKey>("integer", kCount,
                                          &CListCtrlSorter::SortListCtrlByInteger),
        MakeVariant<listsort::DoubleKey>("double", kAmount, &CListCtrlSorter::SortListCtrlByDouble),
    };

    std::vector<bench::Measure> measures;
    std::vector<std::string> report;
    for (const Variant& variant : variants) {
        CListCtrlSorter sorter;
        auto ours = [&] { (sorter.*variant.sort)(bench.list, variant.column, true, 0, -1); };
        auto baseline = [&] { variant.baseline(bench.list); };

        // Both sides reach an ascending order of the keys with every row
        // whole; the sorter's result is the sorted start of the second case.
        bench.Load(random);
        ours();
        const Cells sorted = bench.Read();
        if (!Ascending(variant, sorted) || !SameRows(random, sorted))
            Fail(std::string("the sorter did not sort the ") + variant.name + " column");
        bench.Load(random);
        baseline();
        if (!Ascending(variant, bench.Read()))
            Fail(std::string("the baseline did not sort the ") + variant.name + " column");

        for (const Cells* start : {&random, &sorted}) {
            const std::string order = start == &random ? "random" : "sorted";
            const std::string name = std::string("list-sort-") + variant.name + "-100k-" + order;
            const Counted counted = Count(variant, *start);
            bench::Options run = options;
            run.prepare = [&] { bench.Load(*start); };
            const bench::Result result = bench::Interleave(run, ours, baseline);
            measures.push_back(bench::MakeMeasure(
                name, "ms", 1e3, "read keys once, std::sort, write rows back", result.cpu));
            char line[400];
            std::snprintf(line, sizeof line,
                          "%-34s %9ld comparisons %9ld text fetches %7ld rows swapped  "
                          "%6.0f ns per comparison (whole sort / comparisons)",
                          name.c_str(), counted.comparisons, counted.messages.textFetches,
                          counted.messages.itemSets / 2,
                          counted.comparisons ? result.cpu.oursSeconds * 1e9 /
                                                    static_cast<double>(counted.comparisons)
                                              : 0.0);
            report.emplace_back(line);
        }
    }
    bench::Report(options, measures);
    if (options.only.empty()) {
        std::printf("\nThe sorter's work per sort of 100,000 rows (5 columns):\n");
        for (const std::string& line : report)
            std::printf("%s\n", line.c_str());
    }
    return 0;
}
