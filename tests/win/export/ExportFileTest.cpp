#include "ExportFixture.h"

#include "Win/utils/WinUtils.h"
#include "support/ReadOnlyDirectory.h"

namespace fs = std::filesystem;

using ExportFile = ExportTest;

namespace {

// Writes one titles row and one data row, as the list export does.
void WriteTable(CExportFile& file) {
    file.WriteField(CString(u"Name"));
    file.WriteField(CString(u"Size"));
    file.WriteNewline();
    file.WriteField(CString(u"report"));
    file.WriteField(12);
    file.WriteNewline();
}

std::string Utf16(const std::u16string& text) {
    std::string out;
    for (char16_t c : text) {
        out.push_back(static_cast<char>(c & 0xFF));
        out.push_back(static_cast<char>(c >> 8));
    }
    return out;
}

} // namespace

TEST_F(ExportFile, TextModeTableIsByteExact) {
    const fs::path path = testing_support::TestOutputDir("export-text") / "t.txt";
    {
        CExportFile file(Format(path, u",", u"\""));
        ASSERT_TRUE(file.Open(false));
        WriteTable(file);
    }
    EXPECT_EQ(ReadAll(path), "\"Name\",\"Size\"\r\n\"report\",\"12\"\r\n");
}

TEST_F(ExportFile, BinaryModeKeepsFieldsAsUtf8AndLineEndsAsUtf16) {
    const fs::path path = testing_support::TestOutputDir("export-binary") / "b.txt";
    {
        CExportFile file(Format(path, u"<Tab>", u"<None>"));
        ASSERT_TRUE(file.Open(true));
        file.WriteField(CString(u"a\nb"));
        file.WriteField(CString(u"\u00e9\u20ac"));
        file.WriteNewline();
        file.WriteStream(u"s");
        file.WriteLine(u"L");
    }
    EXPECT_EQ(ReadAll(path),
              std::string("a\nb\t\xC3\xA9\xE2\x82\xAC", 9) + Utf16(u"\ns") + Utf16(u"L\n"));
}

TEST_F(ExportFile, StringTableChangesShowInTheNextField) {
    const fs::path path = testing_support::TestOutputDir("export-names") / "n.txt";
    {
        CExportFile file(Format(path, u"<Tab>", u"<None>"));
        ASSERT_TRUE(file.Open(false));
        file.WriteField(CString(u"a"));
        file.WriteField(CString(u"b"));
        platform::Resources(AfxGetResourceHandle()).SetString(692, u"<Semicolon>");
        file.WriteField(CString(u"c"));
        file.WriteNewline();
        platform::Resources(AfxGetResourceHandle()).SetString(694, u"<Nothing>");
        file.WriteField(CString(u"d"));
        file.WriteField(CString(u"e"));
    }
    EXPECT_EQ(ReadAll(path), "a\tb<Tab>c\r\n<None>d<None><Tab><None>e<None>");
}

TEST_F(ExportFile, LongAndMixedRunsKeepTheirBytes) {
    // Enough rows to pass through many blocks, with fields that are not
    // plain ASCII, that hold a line feed or U+0000, between plain ones.
    const fs::path path = testing_support::TestOutputDir("export-mixed") / "m.csv";
    std::string expected;
    {
        CExportFile file(Format(path, u";", u"'"));
        ASSERT_TRUE(file.Open(false));
        for (int row = 0; row < 3000; ++row) {
            file.WriteField(CString(u"plain"));
            file.WriteField(CString(u"x,\u00e9"));
            file.WriteField(CString(u"l\nf"));
            file.WriteField(CString(std::u16string_view(u"cut\0here", 8)));
            file.WriteField(CString(u"\xD800"));
            file.WriteNewline();
            expected += "plain,\"x,\xC3\xA9\",l\r\nf,cut,\xEF\xBF\xBD\r\n";
        }
    }
    EXPECT_EQ(ReadAll(path), expected);
}

TEST_F(ExportFile, FieldsFromABufferUseOnlyTheGivenUnits) {
    // The units after the given length are neither written nor looked at, so
    // a comma there does not quote the field.
    const fs::path path = testing_support::TestOutputDir("export-buffer") / "b.csv";
    {
        CExportFile file(Format(path, u";", u"'"));
        ASSERT_TRUE(file.Open(false));
        const WCHAR buffer[] = {u'a', u'b', u',', u'c'};
        file.WriteField(buffer, 2);
        file.WriteField(buffer, 4);
        const WCHAR wide[] = {u'\u00e9', u'x', u','};
        file.WriteField(wide, 2);
        file.WriteField(nullptr, 0);
        file.WriteField(buffer, -1);
        file.WriteNewline();
    }
    EXPECT_EQ(ReadAll(path), "ab,\"ab,c\",\xC3\xA9x,,\r\n");
}

TEST_F(ExportFile, LineStartIsKeptByWriteLineAndResetByNewline) {
    const fs::path path = testing_support::TestOutputDir("export-linestart") / "l.txt";
    {
        CExportFile file(Format(path, u",", u""));
        ASSERT_TRUE(file.Open(false));
        file.WriteField(CString(u"a"));
        file.WriteLine(u"note");
        file.WriteField(CString(u"b"));
        file.WriteNewline();
        file.WriteField(-42);
        file.WriteField(CString(u"x\ny"));
        file.WriteNewline();
        file.WriteNewline(); // a row without fields
        file.WriteField(CString(u"cut\u0000here", 8));
        file.WriteField(CString(u"\xD800")); // unpaired surrogate
        file.Close();
    }
    EXPECT_EQ(ReadAll(path), "anote\r\n,b\r\n-42,x\r\ny\r\n\r\ncut,\xEF\xBF\xBD");
}

TEST_F(ExportFile, ReplaceModeEmptiesALongerFile) {
    const fs::path path = testing_support::TestOutputDir("export-replace") / "r.txt";
    std::ofstream(path) << std::string(1000, 'z');
    CExportFile file(Format(path, u",", u""));
    ASSERT_TRUE(file.Open(false));
    file.WriteField(CString(u"new"));
    file.Close();
    EXPECT_EQ(ReadAll(path), "new");
}

TEST_F(ExportFile, AppendWritesADatedHeaderOnTheTwelveHourClock) {
    struct Case {
        int hour, minute;
        const char* time;
    };
    const Case cases[] = {{0, 5, "0:05 AM"}, {12, 30, "0:30 PM"}, {23, 7, "11:07 PM"}};
    const fs::path dir = testing_support::TestOutputDir("export-append");
    for (const Case& c : cases) {
        platform::PinLocalClock(2024, 3, 5, c.hour, c.minute);
        const fs::path path = dir / (std::to_string(c.hour) + ".txt");
        std::ofstream(path, std::ios::binary) << "old\r\n";
        CExportFormat format = Format(path, u",", u"");
        format.m_append = 1;
        {
            CExportFile file(format);
            ASSERT_TRUE(file.Open(false));
            file.WriteField(CString(u"v"));
            file.WriteNewline();
        }
        EXPECT_EQ(ReadAll(path), std::string("old\r\n\r\n2024-03-05  ") + c.time +
                                     "  -  Data Export\r\n\r\nv\r\n");
    }
}

TEST_F(ExportFile, EitherConstructorFlagAppendsAndCreatesAMissingFile) {
    platform::PinLocalClock(2024, 3, 5, 9, 41);
    const fs::path dir = testing_support::TestOutputDir("export-force");
    for (int which = 0; which < 2; ++which) {
        const fs::path path = dir / (std::to_string(which) + ".bin");
        {
            CExportFile file(Format(path, u",", u""), which == 0, which == 1);
            ASSERT_TRUE(file.Open(true));
        }
        EXPECT_EQ(ReadAll(path), Utf16(u"\n2024-03-05  9:41 AM  -  Data Export\n\n"));
    }
}

TEST_F(ExportFile, DateGoesIntoTheOpenedNameOnly) {
    platform::PinLocalClock(2024, 3, 5, 10, 0);
    const fs::path dir = testing_support::TestOutputDir("export-dated");
    CExportFormat format = Format(dir / "report.csv", u"<Tab>", u"'");
    format.m_dateInFileName = 1;
    {
        CExportFile file(format);
        ASSERT_TRUE(file.Open(false));
        file.WriteField(CString(u"a,b"));
        file.WriteField(CString(u"c"));
    }
    EXPECT_EQ(format.GetFilename(), Name(dir / "report.csv"));
    EXPECT_FALSE(fs::exists(dir / "report.csv"));
    // Still comma-separated although the dated name ends in .txt.
    EXPECT_EQ(ReadAll(dir / "report_2024-03-05.txt"), "\"a,b\",c");
}

TEST_F(ExportFile, AppendDateToFileNameCutsAtTheLastDot) {
    platform::PinLocalClock(2024, 3, 5, 10, 0);
    CString name(u"/home/u/report.csv");
    WinUtils::AppendDateToFileName(name);
    EXPECT_EQ(name, CString(u"/home/u/report_2024-03-05.txt"));
    name = u"/home/u/notes";
    WinUtils::AppendDateToFileName(name);
    EXPECT_EQ(name, CString(u"/home/u/notes"));
    name = u"/home/u.v/notes";
    WinUtils::AppendDateToFileName(name);
    EXPECT_EQ(name, CString(u"/home/u_2024-03-05.txt"));
}

TEST_F(ExportFile, OpenFailureGivesTheFrameworkDescription) {
    const fs::path missing = testing_support::TestOutputDir("export-missing") / "none" / "x.txt";
    CExportFile file(Format(missing, u",", u""));
    EXPECT_FALSE(file.Open(false));
    CFileException expected(CFileException::badPath, 0, Name(missing));
    EXPECT_EQ(file.GetError(), expected.GetErrorText());
    EXPECT_FALSE(fs::exists(missing.parent_path()));

    const testing_support::ReadOnlyDirectory readOnly("export-readonly");
    readOnly.RunRefused([&] {
        CExportFile denied(Format(readOnly.Path() / "x.txt", u",", u""));
        EXPECT_FALSE(denied.Open(false));
        EXPECT_EQ(denied.GetError(),
                  u"Access to " + Name(readOnly.Path() / "x.txt") + u" was denied.");
    });
}

TEST_F(ExportFile, LongErrorsAreCutTo255Characters) {
    const std::string deep = std::string(200, 'd') + "/" + std::string(50, 'e') + "/x.txt";
    const fs::path path = testing_support::TestOutputDir("export-long") / deep;
    CExportFile file(Format(path, u",", u""));
    EXPECT_FALSE(file.Open(false));
    EXPECT_EQ(file.GetError().GetLength(), 255);
}

TEST_F(ExportFile, WriteFailuresRaiseTheFileException) {
    if (!fs::exists("/dev/full"))
        GTEST_SKIP() << "no /dev/full";
    CExportFormat format;
    format.SetFilename(u"/dev/full");
    CExportFile file(format);
    ASSERT_TRUE(file.Open(false));
    std::u16string cell(3000, u'x');
    try {
        for (int i = 0; i < 10; ++i)
            file.WriteField(CString(std::u16string_view(cell)));
        file.Close();
        FAIL() << "no exception";
    } catch (CFileException* e) {
        EXPECT_EQ(e->m_strFileName, CString(u"/dev/full"));
        e->Delete();
    }

    // Text above Latin-1 cannot go through the narrow stream.
    const fs::path path = testing_support::TestOutputDir("export-narrow") / "n.txt";
    CExportFile narrow(Format(path, u",", u""));
    ASSERT_TRUE(narrow.Open(false));
    try {
        narrow.WriteLine(u"ok\u4e2d");
        FAIL() << "no exception";
    } catch (CFileException* e) {
        EXPECT_EQ(e->m_cause, CFileException::diskFull);
        e->Delete();
    }
    narrow.Close();
    EXPECT_EQ(ReadAll(path), "ok");
}
