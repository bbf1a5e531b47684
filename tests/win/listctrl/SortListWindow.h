// A report list on a top-level parent of the headless desktop, filled from
// rows of texts, with helpers that read a column back and a parent that
// notes which cursor showed while the list reported a state change.
#pragma once

#include <Win/Win.h>
#include <platform/Automation.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace listctrl_test {

using Row = std::vector<std::u16string>;

class Parent : public CWnd {
public:
    int stateChanges = 0;
    int changesUnderWaitCursor = 0;
    std::function<void(int)> onColumnClick; // the host's handler of heading clicks

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override {
        const UINT code = reinterpret_cast<NMHDR*>(lParam)->code;
        if (code == LVN_ITEMCHANGED) {
            ++stateChanges;
            if (::GetCursor() == ::LoadCursor(nullptr, IDC_WAIT))
                ++changesUnderWaitCursor;
        } else if (code == LVN_COLUMNCLICK && onColumnClick) {
            onColumnClick(reinterpret_cast<NMLISTVIEW*>(lParam)->iSubItem);
        }
        return CWnd::OnNotify(wParam, lParam, result);
    }
};

class SortTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(parent.CreateEx(0, nullptr, u"sort", WS_OVERLAPPED | WS_VISIBLE,
                                    CRect(0, 0, 480, 320), nullptr, 0));
    }
    void TearDown() override {
        platform::automation::Reset();
        if (list.m_hWnd)
            list.DestroyWindow();
        parent.DestroyWindow();
        platform::PumpMessages();
    }
    // A list of the given columns; each row's item data is its index.
    void Create(int columns, const std::vector<Row>& rows, DWORD extraStyle = 0) {
        ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | extraStyle,
                                CRect(10, 10, 470, 310), &parent, 100));
        for (int c = 0; c < columns; ++c)
            list.InsertColumn(c, (u"Column " + std::u16string(1, u'A' + c)).c_str(), LVCFMT_LEFT,
                              80);
        for (std::size_t r = 0; r < rows.size(); ++r)
            AddRow(rows[r]);
    }
    void AddRow(const Row& row) {
        const int r = list.GetItemCount();
        ASSERT_EQ(list.InsertItem(r, row.empty() ? u"" : row[0].c_str()), r);
        for (std::size_t c = 1; c < row.size(); ++c)
            list.SetItemText(r, static_cast<int>(c), row[c].c_str());
        list.SetItemData(r, static_cast<DWORD_PTR>(r));
    }
    // A one-column list of these texts, with a second column naming each
    // row by its first place ("r0", "r1", ...).
    void CreateLabelled(const std::vector<std::u16string>& keys) {
        std::vector<Row> rows;
        for (std::size_t i = 0; i < keys.size(); ++i)
            rows.push_back({keys[i], u"r" + std::u16string(Number(static_cast<int>(i)))});
        Create(2, rows);
    }
    // Runs the simulated user's actions, pumping after each.
    static void RunUser() {
        platform::PumpMessages();
        while (platform::automation::RunNext())
            platform::PumpMessages();
    }
    static std::u16string Number(int n) {
        std::string digits = std::to_string(n);
        return std::u16string(digits.begin(), digits.end());
    }
    std::vector<std::u16string> Column(int column) const {
        std::vector<std::u16string> out;
        for (int r = 0; r < list.GetItemCount(); ++r)
            out.emplace_back(list.GetItemText(r, column).GetString());
        return out;
    }
    std::vector<Row> Rows() const {
        std::vector<Row> out;
        const int columns = const_cast<CListCtrl&>(list).GetHeaderCtrl()->GetItemCount();
        for (int r = 0; r < list.GetItemCount(); ++r) {
            Row row;
            for (int c = 0; c < columns; ++c)
                row.emplace_back(list.GetItemText(r, c).GetString());
            out.push_back(row);
        }
        return out;
    }

    Parent parent;
    CListCtrl list;
    CListCtrlSorter sorter;
};

} // namespace listctrl_test
