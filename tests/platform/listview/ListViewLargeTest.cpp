// A list of 100,000 rows by 10 columns loads and gives every text back, and
// the list as drawn: header, rows, grid lines and the selection.
#include "ListTestWindow.h"

#include <support/TempDir.h>

#include <platform/GdiObjects.h>

#include <cstdio>
#include <string_view>

namespace listview_test {
namespace {

void AppendNumber(std::u16string& out, int value) {
    char digits[16];
    int length = std::snprintf(digits, sizeof digits, "%d", value);
    out.append(digits, digits + length);
}

// Distinct texts of mixed lengths, some past the short-string size.
std::u16string Cell(int row, int column) {
    std::u16string text;
    AppendNumber(text, row);
    text += u':';
    AppendNumber(text, column);
    if (column % 3 == 0)
        text += u" a longer cell text";
    return text;
}

TEST_F(ListTest, AHundredThousandRowsOfTenColumnsComeBackWhole) {
    Create(0, 10, 0);
    constexpr int kRows = 100000;
    list.SendMessage(LVM_SETITEMCOUNT, kRows, 0);
    for (int r = 0; r < kRows; ++r) {
        ASSERT_EQ(list.InsertItem(r, Cell(r, 0).c_str()), r);
        for (int c = 1; c < 10; ++c)
            list.SetItemText(r, c, Cell(r, c).c_str());
    }
    ASSERT_EQ(list.GetItemCount(), kRows);
    WCHAR buffer[64];
    int mismatches = 0;
    for (int r = 0; r < kRows; ++r)
        for (int c = 0; c < 10; ++c) {
            int length = list.GetItemText(r, c, buffer, 64);
            if (std::u16string_view(buffer, static_cast<std::size_t>(length)) != Cell(r, c))
                ++mismatches;
        }
    EXPECT_EQ(mismatches, 0);
    list.EnsureVisible(kRows - 1, FALSE);
    EXPECT_GT(list.SendMessage(LVM_GETTOPINDEX), kRows - 100);
    platform::PumpMessages(); // paints only what shows
}

TEST_F(ListTest, DrawsHeaderRowsGridAndSelection) {
    Create(LVS_SHOWSELALWAYS, 0, 0);
    list.SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    list.InsertColumn(0, u"Name", LVCFMT_LEFT, 120);
    list.InsertColumn(1, u"Amount", LVCFMT_RIGHT, 80);
    list.InsertColumn(2, u"A heading much too long for its column", LVCFMT_LEFT, 90);
    for (int r = 0; r < 30; ++r) {
        list.InsertItem(r, CString(("Row number " + std::to_string(r)).c_str()));
        list.SetItemText(r, 1, CString(std::to_string(r * 125).c_str()));
        list.SetItemText(r, 2, u"text that will not fit in the cell");
    }
    list.SetFocus();
    list.SetItemState(2, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    list.SetItemState(4, LVIS_SELECTED, LVIS_SELECTED);
    platform::PumpMessages();

    CClientDC dc(&list);
    RECT rect{};
    rect.left = LVIR_BOUNDS;
    list.SendMessage(LVM_GETITEMRECT, 4, reinterpret_cast<LPARAM>(&rect));
    // A selected row is the highlight colour across all columns.
    EXPECT_EQ(dc.GetPixel(rect.right - 3, rect.top + 2), GetSysColor(COLOR_HIGHLIGHT));
    list.SendMessage(LVM_GETITEMRECT, 3, reinterpret_cast<LPARAM>(&rect));
    EXPECT_EQ(dc.GetPixel(rect.right - 30, rect.top + 2), GetSysColor(COLOR_WINDOW));
    // Rows end in a grid line; the header sits above the first row.
    EXPECT_NE(dc.GetPixel(rect.left + 60, rect.bottom - 1), GetSysColor(COLOR_WINDOW));
    list.SendMessage(LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&rect));
    EXPECT_GT(rect.top, 10);

    auto out = testing_support::TestOutputDir("listview") / "report-list.png";
    EXPECT_TRUE(platform::SaveDcAsPng(dc.m_hDC, out.string()));

    // Without the focus and LVS_SHOWSELALWAYS the selection still shows, lighter.
    parent.SetFocus();
    platform::PumpMessages();
    list.SendMessage(LVM_GETITEMRECT, 4, reinterpret_cast<LPARAM>(&rect));
    COLORREF unfocused = dc.GetPixel(rect.right - 3, rect.top + 2);
    EXPECT_NE(unfocused, GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_NE(unfocused, GetSysColor(COLOR_WINDOW));
}

} // namespace
} // namespace listview_test
