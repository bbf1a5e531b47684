// A small layout with a fixed cell grid, and a fixture holding a screen on it.
#pragma once

#include "support/ScreenBufferProbe.h"

#include <Win/Win.h>

#include <gtest/gtest.h>

#include <string>

// Cells of 8 by 16 device units with an origin of (4, 2): what the screen hands
// to the renderer can be told apart from the printing grid, which starts at 0.
class TestLayout : public EmulatorLayout {
public:
    static constexpr COLORREF kColours[7] = {
        RGB(200, 200, 200), RGB(0, 0, 0),       RGB(120, 120, 120), RGB(0, 200, 0),
        RGB(200, 200, 0),   RGB(255, 255, 255), RGB(0, 0, 160)};
    static constexpr int kCellWidth = 8;
    static constexpr int kCellHeight = 16;
    static constexpr int kOriginX = 4;
    static constexpr int kOriginY = 2;

    TestLayout() { ChangeLayout(kColours, u"DejaVu Sans Mono", 16, false, false); }

    void OnLayoutChanged() override {}
    CSize GetCharSize() override { return CSize(kCellWidth, kCellHeight); }
    int RowToY(int row) override { return kOriginY + row * kCellHeight; }
    int ColumnToX(int col) override { return kOriginX + col * kCellWidth; }
};

class ScreenTest : public ::testing::Test {
protected:
    TestLayout layout;
    ScreenBuffer screen{layout};
    ScreenBufferProbe probe{screen};

    void Write(const std::string& text) {
        for (char ch : text)
            screen.PutChar(static_cast<WCHAR>(static_cast<unsigned char>(ch)));
    }
    // Writes "row<n>" at the start of rows 0..last, leaving the cursor home.
    // Rows below the terminal's 24 (in a taller window) are reached by index.
    void LabelRows(int last) {
        for (int row = 0; row <= last; ++row) {
            if (row < 24)
                screen.CursorPosition(row + 1, 1);
            else
                screen.NextLine();
            Write("row" + std::to_string(row));
            screen.CarriageReturn();
        }
        screen.CursorPosition(1, 1);
    }
    CursorPos Cursor() const { return probe.Cursor(); }
    std::string Line(int row) const { return probe.Line(row); }
};
