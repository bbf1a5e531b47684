// Video attributes and their styles, character set designations with shift in
// and out, column mode, and the resets.
#include "ScreenTestSupport.h"

using AttributesTest = ScreenTest;

TEST_F(AttributesTest, BitsSelectTheLayoutStyles) {
    screen.SetVideoBold();
    screen.SetVideoReverse();
    EXPECT_EQ(probe.VideoMode(), 0x11);
    Write("a");
    ScreenChar cell = probe.Cell(0, 0);
    EXPECT_EQ(cell.GetStyle(), layout.GetStyle(0x11));
    cell.Select();
    EXPECT_EQ(cell.GetStyle(), layout.GetStyle(0x1011));
    screen.ResetVideoBold();
    EXPECT_EQ(probe.VideoMode(), 0x10);
    // Characters already written keep their style.
    EXPECT_EQ(probe.Cell(0, 0).GetStyle(), layout.GetStyle(0x11));
}

TEST_F(AttributesTest, SubduedWithBlinkingHasNoStyleOfItsOwn) {
    screen.SetVideoSubdued();
    screen.SetVideoBlinking();
    Write("a");
    EXPECT_EQ(probe.Cell(0, 0).GetStyle(), layout.GetStyle(0));
    screen.ResetVideoBlinking();
    Write("b");
    EXPECT_EQ(probe.Modes(0, 0, 1), ".2");
    screen.SetVideoUnderlined();
    Write("c");
    screen.ResetVideoSubdued();
    screen.ResetVideoUnderlined();
    Write("d");
    EXPECT_EQ(probe.Modes(0, 0, 3), ".26.");
}

TEST_F(AttributesTest, ShiftOutWritesTheSetOfG1) {
    screen.SetCharSetSpecialGraphics(1);
    screen.ShiftOut();
    Write("q");
    screen.ShiftIn();
    Write("q");
    screen.SetCharSetUK_National(0);
    Write("#");
    screen.SetCharSetSpecialGraphics(2);
    screen.SetCharSetExtendedGraphics(3);
    screen.SetCharSetExtendedGraphics(4);
    screen.SetCharSetExtendedGraphics(-1);
    Write("x");
    EXPECT_EQ(probe.Sets(0, 0, 3), "2011");
    EXPECT_EQ(probe.Text(0, 0, 3), "qq#x");
}

TEST_F(AttributesTest, ColumnModeClearsAndSwitchesWidth) {
    Write("hello");
    screen.SetScrollingRegion(3, 9);
    screen.SetVideoBold();
    screen.SetColumnMode(true);
    EXPECT_EQ(screen.NumColumns(), 132);
    EXPECT_EQ(screen.VisColumns(), 132);
    EXPECT_EQ(Line(0), "");
    EXPECT_EQ(Cursor(), CursorPos(0, 0));
    EXPECT_EQ(probe.TopMargin(), 0);
    EXPECT_EQ(probe.BottomMargin(), 23);
    // The attribute bits stay, but the style is the normal one until they change.
    EXPECT_EQ(probe.VideoMode(), 1);
    EXPECT_EQ(probe.CurrentStyle(), layout.GetStyle(0));
    // Columns 80..131 have no stops until a reset at 132 columns.
    EXPECT_FALSE(probe.TabStop(80));
    screen.SoftTerminalReset();
    EXPECT_EQ(screen.NumColumns(), 132);
    EXPECT_FALSE(probe.ColumnMode());
    for (int col = 80; col < 132; ++col)
        EXPECT_EQ(probe.TabStop(col), col % 8 == 0) << col;
    screen.SetColumnMode(false);
    EXPECT_EQ(screen.VisColumns(), 80);
}

TEST_F(AttributesTest, ResetBringsBackTheInitialState) {
    for (auto reset : {&ScreenBuffer::SoftTerminalReset, &ScreenBuffer::ResetToInitialState}) {
        screen.SetAutoWrapMode(true);
        screen.SetOriginMode(true);
        screen.SetInsertMode(true);
        screen.SetCursorKeyMode(true);
        screen.SetVideoUnderlined();
        screen.SetCharSetSpecialGraphics(0);
        screen.SetCharSetUK_National(3);
        screen.ShiftOut();
        screen.SetScrollingRegion(4, 8);
        screen.TabulationClear(3);
        screen.CursorPosition(3, 3);
        Write("text");
        screen.SaveCursor();
        screen.Select(CursorPos(1, 1), CursorPos(2, 2));
        (screen.*reset)();
        EXPECT_EQ(Cursor(), CursorPos(0, 0));
        EXPECT_EQ(probe.SavedCursor(), CursorPos(0, 0));
        EXPECT_EQ(probe.VideoMode(), 0);
        EXPECT_EQ(probe.Shift(), 0);
        for (int g = 0; g < 4; ++g)
            EXPECT_EQ(probe.CharSet(g), 0);
        EXPECT_FALSE(probe.AutoWrapMode());
        EXPECT_FALSE(probe.OriginMode());
        EXPECT_FALSE(probe.InsertMode());
        EXPECT_FALSE(screen.GetCursorKeyMode());
        EXPECT_EQ(probe.TopMargin(), 0);
        EXPECT_EQ(probe.BottomMargin(), 23);
        EXPECT_FALSE(screen.ActiveSelection());
        EXPECT_EQ(probe.Selected(0), std::string(80, '.'));
        EXPECT_EQ(Line(2), "");
        EXPECT_EQ(probe.Modes(2, 0, 3), "....");
        EXPECT_TRUE(probe.TabStop(8));
        EXPECT_EQ(probe.CurrentStyle(), layout.GetStyle(0));
    }
}
