// Printer DCs write real PDF pages at the printer's resolution.
#include "support/TempDir.h"

#include <afxstr.h>
#include <platform/GdiObjects.h>
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

namespace {

std::string RunCommand(const std::string& command) {
    std::string output;
    if (FILE* pipe = popen(command.c_str(), "r")) {
        char buffer[512];
        while (size_t n = fread(buffer, 1, sizeof buffer, pipe))
            output.append(buffer, n);
        pclose(pipe);
    }
    return output;
}

void PrintPage(HDC dc, const char16_t* text) {
    LOGFONT lf{};
    lf.lfHeight = -MulDiv(10, GetDeviceCaps(dc, LOGPIXELSY), 72);
    std::char_traits<char16_t>::copy(lf.lfFaceName, u"Courier New", 11);
    HFONT font = CreateFontIndirect(&lf);
    HGDIOBJ old = SelectObject(dc, font);
    ASSERT_GT(StartPage(dc), 0);
    TextOutW(dc, 600, 600, text, static_cast<int>(std::char_traits<char16_t>::length(text)));
    HPEN pen = CreatePen(PS_SOLID, 10, RGB(0, 0, 0));
    HGDIOBJ oldPen = SelectObject(dc, pen);
    MoveToEx(dc, 600, 800, nullptr);
    LineTo(dc, 3000, 800);
    SelectObject(dc, oldPen);
    DeleteObject(pen);
    ASSERT_GT(EndPage(dc), 0);
    SelectObject(dc, old);
    DeleteObject(font);
}

} // namespace

TEST(Printer, WritesOnePdfPagePerPrintedPage) {
    auto dir = testing_support::TestOutputDir("printer-pages");
    std::string path = (dir / "report.pdf").string();
    std::u16string output = platform::FromUtf8(path).GetString();
    HDC dc = CreateDC(u"WINSPOOL", u"PDF", nullptr, nullptr);
    ASSERT_NE(dc, nullptr);
    EXPECT_EQ(GetDeviceCaps(dc, LOGPIXELSY), 600);
    EXPECT_EQ(GetDeviceCaps(dc, HORZRES), 5100);
    EXPECT_EQ(StartPage(dc), SP_ERROR); // no document yet
    DOCINFO info{sizeof(DOCINFO), u"Report", output.c_str(), nullptr, 0};
    ASSERT_GT(StartDoc(dc, &info), 0);
    PrintPage(dc, u"first page text");
    PrintPage(dc, u"second page \u00A3");
    ASSERT_GT(EndDoc(dc), 0);
    EXPECT_TRUE(DeleteDC(dc));

    ASSERT_TRUE(std::filesystem::exists(path));
    std::string pdfInfo = RunCommand("pdfinfo '" + path + "'");
    EXPECT_TRUE(std::regex_search(pdfInfo, std::regex("Pages:\\s+2\\n"))) << pdfInfo;
    EXPECT_NE(pdfInfo.find("612 x 792"), std::string::npos) << pdfInfo;
    std::string text = RunCommand("pdftotext -layout '" + path + "' -");
    EXPECT_NE(text.find("first page text"), std::string::npos) << text;
    EXPECT_NE(text.find("second page \xC2\xA3"), std::string::npos) << text;
    std::string fonts = RunCommand("pdffonts '" + path + "'");
    EXPECT_NE(fonts.find("LiberationMono"), std::string::npos) << fonts;
}

TEST(Printer, AnAbortedDocumentLeavesNoFileAndAnUnwritablePathFails) {
    auto dir = testing_support::TestOutputDir("printer-abort");
    std::string path = (dir / "aborted.pdf").string();
    std::u16string output = platform::FromUtf8(path).GetString();
    HDC dc = CreateDC(u"WINSPOOL", u"PDF", nullptr, nullptr);
    DOCINFO info{sizeof(DOCINFO), u"Aborted", output.c_str(), nullptr, 0};
    ASSERT_GT(StartDoc(dc, &info), 0);
    PrintPage(dc, u"never kept");
    EXPECT_GT(AbortDoc(dc), 0);
    EXPECT_FALSE(std::filesystem::exists(path));

    std::u16string bad = platform::FromUtf8((dir / "missing/dir/x.pdf").string()).GetString();
    DOCINFO badInfo{sizeof(DOCINFO), u"Bad", bad.c_str(), nullptr, 0};
    EXPECT_EQ(StartDoc(dc, &badInfo), SP_ERROR);
    DeleteDC(dc);
}
