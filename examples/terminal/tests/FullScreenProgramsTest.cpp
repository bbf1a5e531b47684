// Full-screen programs in the terminal window: they draw through cursor
// addressing, attributes and line-drawing characters and read single keys.
#include "TerminalWindowSupport.h"
#include "support/TempDir.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace {

bool Installed(const std::string& program) {
    return std::system(("command -v " + program + " >/dev/null 2>&1").c_str()) == 0;
}

TEST_F(TerminalWindowTest, DialogDrawsItsBoxAndTakesEnter) {
    if (!Installed("dialog"))
        GTEST_SKIP() << "dialog is not installed";
    ASSERT_TRUE(Open({"dialog", "--msgbox", "Hello from the box", "8", "40"}));
    ASSERT_TRUE(WaitFor("Hello from the box")) << ScreenText();
    ASSERT_TRUE(WaitFor("OK")) << ScreenText();
    // The message sits inside the box, whose frame is drawn in the rows above.
    ScreenBufferProbe probe(window->Screen());
    int messageRow = -1;
    for (int row = 0; row < 24; ++row)
        if (probe.Line(row).find("Hello from the box") != std::string::npos)
            messageRow = row;
    ASSERT_GT(messageRow, 0);
    const int col = static_cast<int>(probe.Line(messageRow).find("Hello"));
    bool frameAbove = false;
    for (int row = 0; row < messageRow; ++row)
        for (int c = 0; c < col; ++c)
            frameAbove |= probe.Cell(row, c).GetValue() != u' ';
    EXPECT_TRUE(frameAbove) << ScreenText();
    Type(u"\r");
    ASSERT_TRUE(WaitForEnd()) << ScreenText();
    EXPECT_EQ(window->ExitCode(), 0);
}

TEST_F(TerminalWindowTest, LessPagesForwardAndBackAndQuits) {
    if (!Installed("less"))
        GTEST_SKIP() << "less is not installed";
    const auto dir = testing_support::TestOutputDir("terminal-window");
    const auto file = dir / "lines.txt";
    {
        std::ofstream out(file);
        for (int i = 1; i <= 200; ++i)
            out << "line number " << i << "\n";
    }
    ASSERT_TRUE(Open({"less", file.string()}));
    ScreenBufferProbe probe(window->Screen());
    ASSERT_TRUE(RunUntil([&] { return probe.Line(0) == "line number 1"; })) << ScreenText();
    EXPECT_EQ(probe.Line(22), "line number 23");
    Type(u" "); // a page forward: 23 lines on
    ASSERT_TRUE(RunUntil([&] { return probe.Line(0) == "line number 24"; })) << ScreenText();
    PressKey(VK_DOWN); // one line on, by the cursor key
    ASSERT_TRUE(RunUntil([&] { return probe.Line(0) == "line number 25"; })) << ScreenText();
    Type(u"b"); // a page back
    ASSERT_TRUE(RunUntil([&] { return probe.Line(0) == "line number 2"; })) << ScreenText();
    Type(u"q");
    ASSERT_TRUE(WaitForEnd()) << ScreenText();
    EXPECT_EQ(window->ExitCode(), 0);
}

TEST_F(TerminalWindowTest, VimEditsAndWritesAFile) {
    if (!Installed("vim"))
        GTEST_SKIP() << "vim is not installed";
    const auto dir = testing_support::TestOutputDir("terminal-window");
    const auto file = dir / "edited.txt";
    {
        std::ofstream out(file);
        out << "first line\nsecond line\n";
    }
    ASSERT_TRUE(Open({"vim", "-u", "NONE", "-N", "-n", file.string()}));
    ASSERT_TRUE(WaitFor("second line")) << ScreenText();
    // Down a line by the cursor key, then insert at its start.
    PressKey(VK_DOWN);
    Type(u"Iinserted \x1b");
    ASSERT_TRUE(WaitFor("inserted second line")) << ScreenText();
    Type(u":wq\r");
    ASSERT_TRUE(WaitForEnd()) << ScreenText();
    EXPECT_EQ(window->ExitCode(), 0);
    std::ifstream in(file);
    std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_EQ(text, "first line\ninserted second line\n");
}

TEST_F(TerminalWindowTest, TopDrawsItsHeaderAndQuitsOnItsKey) {
    if (!Installed("top"))
        GTEST_SKIP() << "top is not installed";
    ASSERT_TRUE(Open({"top", "-d", "0.5"}));
    ASSERT_TRUE(WaitFor("load average")) << ScreenText();
    ASSERT_TRUE(WaitFor("PID")) << ScreenText();
    Type(u"q");
    ASSERT_TRUE(WaitForEnd()) << ScreenText();
    EXPECT_EQ(window->ExitCode(), 0);
}

} // namespace
