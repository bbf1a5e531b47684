// A grid view in a frame window on the headless desktop, for the view's
// drawing, scrolling and printing tests.
#pragma once

#include <GridView.h>

#include <gtest/gtest.h>

#include <initializer_list>

namespace grid_test {

// The grid view as a program derives from it: created on the heap, gone
// with its window.
class TestGridView : public CGXGridView {
public:
    TestGridView() = default;

    // rows x cols data cells valued "r<row>c<col>", titles in row 0 (as
    // many as given), each column fitted to its contents.
    void Fill(int rows, int cols, std::initializer_list<const char16_t*> titles);

    using CGXGridView::DrawCells;
};

class GridHost : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    CFrameWnd* frame = nullptr;
    TestGridView* grid = nullptr;
};

} // namespace grid_test
