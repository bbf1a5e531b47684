// The list's text store under a long run of edits: short and long texts
// replaced over and over (so replaced texts pile up and get squeezed out),
// rows inserted and deleted, columns removed, rows sorted. After every batch
// each cell reads back what a plain model of the list holds.
#include "ListTestWindow.h"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace listview_test {
namespace {

using Model = std::vector<std::vector<std::u16string>>; // rows of sub-item texts

std::u16string RandomText(std::mt19937& random) {
    // Lengths around the size a cell holds in place, and far past it.
    static const int kLengths[] = {0, 1, 5, 6, 7, 8, 40, 300};
    const int length = kLengths[random() % std::size(kLengths)];
    std::u16string text;
    for (int i = 0; i < length; ++i)
        text += static_cast<char16_t>(u'a' + random() % 26);
    return text;
}

int ByDataDescending(LPARAM a, LPARAM b, LPARAM) {
    return a < b ? 1 : a > b ? -1 : 0;
}

class TextStoreTest : public ListTest {
protected:
    void ExpectMatches(const Model& model, int columns) {
        ASSERT_EQ(list.GetItemCount(), static_cast<int>(model.size()));
        for (std::size_t r = 0; r < model.size(); ++r)
            for (int c = 0; c < columns; ++c)
                ASSERT_EQ(list.GetItemText(static_cast<int>(r), c),
                          CString(model[r][static_cast<std::size_t>(c)].c_str()))
                    << "row " << r << " column " << c;
    }
};

TEST_F(TextStoreTest, EditsDeletesSortsAndColumnRemovalKeepEveryText) {
    int columns = 5;
    Create(0, columns, 0);
    std::mt19937 random(20261124);
    Model model;
    std::vector<LPARAM> data; // each row's item data, for sorting the model alike
    LPARAM nextData = 0;
    for (int batch = 0; batch < 40; ++batch) {
        for (int step = 0; step < 400; ++step) {
            const unsigned action = random() % 10;
            if (action < 2 || model.empty()) {
                const int at = model.empty() ? 0 : static_cast<int>(random() % (model.size() + 1));
                const std::u16string text = RandomText(random);
                ASSERT_EQ(list.InsertItem(at, text.c_str()), at);
                list.SetItemData(at, static_cast<DWORD_PTR>(nextData));
                std::vector<std::u16string> row(static_cast<std::size_t>(columns));
                row[0] = text;
                model.insert(model.begin() + at, row);
                data.insert(data.begin() + at, nextData++);
            } else if (action < 9) {
                const int row = static_cast<int>(random() % model.size());
                const int column = static_cast<int>(random() % static_cast<unsigned>(columns));
                const std::u16string text = RandomText(random);
                ASSERT_TRUE(list.SetItemText(row, column, text.c_str()));
                model[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = text;
            } else {
                const int row = static_cast<int>(random() % model.size());
                ASSERT_TRUE(list.DeleteItem(row));
                model.erase(model.begin() + row);
                data.erase(data.begin() + row);
            }
        }
        if (batch % 10 == 9 && columns > 2) {
            // Dropping a middle column moves the later sub-items down.
            ASSERT_TRUE(list.DeleteColumn(1));
            for (auto& row : model)
                row.erase(row.begin() + 1);
            --columns;
        }
        if (batch % 7 == 3) {
            ASSERT_TRUE(list.SortItems(ByDataDescending, 0));
            std::vector<std::size_t> order(model.size());
            for (std::size_t i = 0; i < order.size(); ++i)
                order[i] = i;
            std::stable_sort(order.begin(), order.end(),
                             [&](std::size_t a, std::size_t b) { return data[a] > data[b]; });
            Model sorted;
            std::vector<LPARAM> sortedData;
            for (std::size_t i : order) {
                sorted.push_back(model[i]);
                sortedData.push_back(data[i]);
            }
            model = std::move(sorted);
            data = std::move(sortedData);
        }
        ExpectMatches(model, columns);
    }
    EXPECT_TRUE(list.DeleteAllItems());
    EXPECT_EQ(list.GetItemCount(), 0);
    ASSERT_EQ(list.InsertItem(0, u"after clearing"), 0);
    EXPECT_EQ(list.GetItemText(0, 0), CString(u"after clearing"));
    EXPECT_EQ(list.GetItemText(0, 1), CString(u""));
}

} // namespace
} // namespace listview_test
