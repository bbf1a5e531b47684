#include "GridViewHost.h"

#include <platform/MessagePump.h>

namespace grid_test {

void TestGridView::Fill(int rows, int cols, std::initializer_list<const char16_t*> titles) {
    SetRowCount(rows);
    SetColCount(cols);
    int col = 1;
    for (const char16_t* title : titles) {
        CGXStyle style;
        style.SetValue(title);
        SetStyleRange(CGXRange(0, col++), style);
    }
    for (int r = 1; r <= rows; ++r)
        for (int c = 1; c <= cols; ++c) {
            CString text;
            text.Format(u"r%dc%d", r, c);
            CGXStyle style;
            style.SetValue(text);
            SetStyleRange(CGXRange(r, c), style);
        }
    if (cols > 0)
        ResizeColWidthsToFit(CGXRange().SetCols(1, cols));
}

void GridHost::SetUp() {
    frame = new CFrameWnd;
    ASSERT_TRUE(
        frame->Create(nullptr, u"Grid", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(20, 20, 520, 420)));
    grid = new TestGridView;
    CRect client;
    frame->GetClientRect(&client);
    ASSERT_TRUE(
        grid->Create(nullptr, nullptr, WS_CHILD | WS_VISIBLE, client, frame, AFX_IDW_PANE_FIRST));
    grid->OnInitialUpdate();
    platform::PumpMessages();
}

void GridHost::TearDown() {
    if (frame)
        frame->DestroyWindow();
    platform::PumpMessages();
}

} // namespace grid_test
