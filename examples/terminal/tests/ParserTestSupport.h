// A screen on the host's layout with the parser in front of it, and dumps of
// its rows through the screen probe.
#pragma once

#include "TerminalLayout.h"
#include "Vt100Parser.h"
#include "support/ScreenBufferProbe.h"

#include <gtest/gtest.h>

#include <string>

// The layout holds its styles before the screen is built on it.
struct AppliedLayout : TerminalLayout {
    AppliedLayout() { Apply(u"Courier New", 16); }
};

class ParserTest : public ::testing::Test {
protected:
    ParserTest() { screen.SetAutoWrapMode(true); }

    void Feed(const std::string& bytes) { parser.Feed(bytes); }
    // The cursor, one-based as the host sees it: "row,col".
    std::string Cursor() const {
        return std::to_string(screen.GetRow()) + "," + std::to_string(screen.GetCol());
    }
    std::string Line(int row) const { return probe.Line(row); }
    std::string Text(int row, int first, int last) const { return probe.Text(row, first, last); }
    // Writes "row<n>" at the start of the 24 rows, leaving the cursor home.
    void LabelRows() {
        for (int row = 1; row <= 24; ++row)
            Feed("\x1b[" + std::to_string(row) + "Hrow" + std::to_string(row - 1));
        Feed("\x1b[H");
    }

    AppliedLayout layout;
    ScreenBuffer screen{layout};
    Vt100Parser parser{screen};
    ScreenBufferProbe probe{screen};
};
