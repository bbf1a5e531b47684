// The device-context journal as a test reads it: entries in order with the state
// they ran with, filtering and counting by operation, and the one-line-per-entry
// dump that failure messages print.
#include <afxwin.h>
#include <platform/GdiJournal.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "support/Pixels.h"

namespace {

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

} // namespace

TEST(GdiJournal, DumpWritesOneLinePerEntryWithItsArgumentsAndState) {
    testing_support::Canvas canvas(30, 30, RGB(255, 255, 255));
    CDC& dc = canvas.dc();
    platform::GdiJournal journal;
    platform::SetJournal(dc, &journal);
    dc.SetTextColor(RGB(0x12, 0x34, 0x56));
    CPen pen;
    pen.CreatePen(PS_DASH, 1, RGB(0xAB, 0, 0));
    CPen* old = dc.SelectObject(&pen);
    dc.MoveTo(2, 3);
    dc.LineTo(7, 3);
    dc.SelectObject(old);
    dc.TextOut(1, 2, CString(u"a\u00E9\u0001z"));
    platform::SetJournal(dc, nullptr);

    const std::vector<std::string> lines = Lines(journal.Dump());
    ASSERT_EQ(lines.size(), journal.entries.size());
    ASSERT_EQ(lines.size(), 5u) << journal.Dump();
    EXPECT_EQ(lines[0].rfind("SetTextColor(5649426, 0, 0, 0) text=563412 bk=ffffff ", 0), 0u)
        << lines[0];
    EXPECT_EQ(lines[1].rfind("SelectObject(1, 0, 0, 0) ", 0), 0u) << lines[1]; // OBJ_PEN
    // The line names its points and the dashed pen it was drawn with.
    EXPECT_EQ(lines[2].rfind("LineTo(2, 0, 0, 0) (2,3) (7,3) text=563412 ", 0), 0u) << lines[2];
    EXPECT_NE(lines[2].find(" pen=1/1/ab brush="), std::string::npos) << lines[2];
    // Text outside printable ASCII shows as '?', one per code unit.
    EXPECT_EQ(lines[4].rfind("TextOut(1, 2, 4, 0) \"a??z\" text=563412 ", 0), 0u) << lines[4];
    EXPECT_NE(lines[4].find(" mode=2 "), std::string::npos) << lines[4]; // OPAQUE
}

TEST(GdiJournal, OpsAndCountSelectOneOperationInOrder) {
    testing_support::Canvas canvas(30, 30, RGB(0, 0, 0));
    CDC& dc = canvas.dc();
    platform::GdiJournal journal;
    platform::SetJournal(dc, &journal);
    dc.TextOut(1, 0, CString(u"x"));
    dc.SetBkMode(TRANSPARENT);
    dc.TextOut(2, 0, CString(u"y"));
    dc.FillSolidRect(0, 0, 3, 3, RGB(9, 9, 9));
    dc.TextOut(3, 0, CString(u"z"));

    const auto texts = journal.Ops("TextOut");
    ASSERT_EQ(texts.size(), 3u);
    EXPECT_EQ(texts[0].text, u"x");
    EXPECT_EQ(texts[0].bkMode, OPAQUE);
    EXPECT_EQ(texts[1].text, u"y");
    EXPECT_EQ(texts[1].bkMode, TRANSPARENT);
    EXPECT_EQ(texts[2].args[0], 3);
    EXPECT_EQ(journal.Count("TextOut"), 3u);
    EXPECT_EQ(journal.Count("SetBkMode"), 1u);
    EXPECT_EQ(journal.Count("Ellipse"), 0u);
    EXPECT_TRUE(journal.Ops("Ellipse").empty());

    // Clearing starts afresh while recording goes on.
    journal.Clear();
    EXPECT_TRUE(journal.Dump().empty());
    dc.TextOut(4, 0, CString(u"w"));
    EXPECT_EQ(journal.Count("TextOut"), 1u);
    platform::SetJournal(dc, nullptr);
    dc.TextOut(5, 0, CString(u"v"));
    EXPECT_EQ(journal.entries.size(), 1u);
}

TEST(GdiJournal, AWindowDcRecordsInClientCoordinates) {
    WNDCLASS wc{};
    wc.lpfnWndProc = DefWindowProc;
    wc.lpszClassName = u"JournalTestWindow";
    RegisterClass(&wc);
    HWND hwnd = CreateWindowEx(0, u"JournalTestWindow", u"j", WS_VISIBLE, 25, 15, 60, 40, nullptr,
                               nullptr, nullptr, nullptr);
    ASSERT_NE(hwnd, nullptr);
    HDC hdc = ::GetDC(hwnd);
    platform::GdiJournal journal;
    platform::SetJournal(hdc, &journal);
    POINT points[] = {{1, 2}, {10, 2}};
    Polyline(hdc, points, 2);
    ::ReleaseDC(hwnd, hdc);
    const auto lines = journal.Ops("Polyline");
    ASSERT_EQ(lines.size(), 1u) << journal.Dump();
    ASSERT_EQ(lines[0].points.size(), 2u);
    EXPECT_EQ(lines[0].points[0].x, 1);
    EXPECT_EQ(lines[0].points[1].x, 10);
    // A handle that names no DC is ignored.
    platform::SetJournal(nullptr, &journal);
    DestroyWindow(hwnd);
}
