#include "SortBenchList.h"

#include <cstdio>
#include <cstdlib>
#include <random>

namespace listbench {

LRESULT CountingListCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (counting) {
        if (message == LVM_GETITEMTEXTW)
            ++counts.textFetches;
        else if (message == LVM_SETITEMW)
            ++counts.itemSets;
    }
    return CListCtrl::WindowProc(message, wParam, lParam);
}

SortBenchList::SortBenchList() {
    if (!m_parent.CreateEx(0, nullptr, u"sort bench", WS_OVERLAPPED | WS_VISIBLE,
                           CRect(0, 0, 640, 480), nullptr, 0) ||
        !list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 0, 620, 460), &m_parent, 100)) {
        std::fprintf(stderr, "cannot create the list\n");
        std::exit(1);
    }
    const char16_t* headings[kColumns] = {u"Name", u"Date", u"Count", u"Amount", u"Id"};
    for (int c = 0; c < kColumns; ++c)
        list.InsertColumn(c, headings[c], LVCFMT_LEFT, 100);
    list.SendMessage(LVM_SETITEMCOUNT, kRows, 0);
    for (int r = 0; r < kRows; ++r)
        list.InsertItem(r, u"");
}

Cells SortBenchList::RandomCells() {
    static const char16_t* const syllables[] = {u"ka", u"Lo",    u"ri", u"ma",  u"Ne",  u"so",
                                                u"tu", u"Vi",    u"ha", u"de",  u"bel", u"Mor",
                                                u"an", u"quist", u"el", u"Tor", u"pa",  u"ing"};
    static const char16_t* const months[] = {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun",
                                             u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};
    std::mt19937 random(20240305);
    auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    Cells cells;
    cells.reserve(static_cast<std::size_t>(kRows) * kColumns);
    for (int r = 0; r < kRows; ++r) {
        CString word, name;
        for (int s = 2 + below(3); s > 0; --s)
            word += syllables[below(18)];
        name.Format(u"%s %d", word.GetString(), below(100));

        // Dates from 1950 to 2029 in the three forms people type.
        const int year = 1950 + below(80), month = 1 + below(12), day = 1 + below(28);
        const int hour = below(24), minute = below(60), second = below(60);
        CString date;
        switch (below(4)) {
        case 0:
            date.Format(u"%s %d, %d", months[month - 1], day, year);
            break;
        case 1:
            date.Format(u"%d-%02d-%02d %02d:%02d:%02d", year, month, day, hour, minute, second);
            break;
        default:
            date.Format(u"%d/%d/%d %d:%02d:%02d %s", month, day, year, hour % 12 + 1, minute,
                        second, hour < 12 ? u"AM" : u"PM");
        }

        // One count and one amount in a hundred left empty.
        CString count, amount;
        if (below(100))
            count.Format(u"%d", below(2000001) - 1000000);
        if (below(100)) {
            const double value = (below(2000001) - 1000000) / 97.0;
            if (below(8))
                amount.Format(u"%.2f", value);
            else
                amount.Format(u"%.3e", value);
        }
        CString id;
        id.Format(u"#%06d", r);
        for (const CString& cell : {name, date, count, amount, id})
            cells.push_back(cell);
    }
    return cells;
}

void SortBenchList::Load(const Cells& cells) {
    for (int r = 0; r < kRows; ++r) {
        for (int c = 0; c < kColumns; ++c)
            list.SetItemText(r, c, cells[static_cast<std::size_t>(r) * kColumns + c]);
        const UINT state = r == 0 ? LVIS_SELECTED | LVIS_FOCUSED : 0;
        list.SetItem(r, 0, LVIF_PARAM | LVIF_STATE | LVIF_IMAGE, nullptr, r % 4, state, 0xFF0F, r);
    }
}

Cells SortBenchList::Read() const {
    Cells cells;
    cells.reserve(static_cast<std::size_t>(kRows) * kColumns);
    for (int r = 0; r < kRows; ++r)
        for (int c = 0; c < kColumns; ++c)
            cells.push_back(list.GetItemText(r, c));
    return cells;
}

} // namespace listbench
