#include <afx.h>

#include "support/ReadOnlyDirectory.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace fs = std::filesystem;

namespace {

std::string ReadAll(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

void WriteAll(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

CString Name(const fs::path& path) {
    return platform::FromUtf8(path.string());
}

constexpr UINT kCreate = CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive;

} // namespace

TEST(CStdioFile, TextModeExpandsEveryLineFeed) {
    const fs::path path = testing_support::TestOutputDir("stdio-text") / "t.txt";
    CStdioFile file;
    ASSERT_TRUE(file.Open(Name(path), kCreate | CFile::typeText));
    file.Write("a\nb\r\n", 5);
    file.WriteString(u"x\u00e9\n");
    file.Close();
    EXPECT_EQ(ReadAll(path), std::string("a\r\nb\r\r\nx\xE9\r\n"));
}

TEST(CStdioFile, BinaryModeKeepsBytesAndWritesUtf16) {
    const fs::path path = testing_support::TestOutputDir("stdio-binary") / "b.bin";
    CStdioFile file;
    ASSERT_TRUE(file.Open(Name(path), kCreate | CFile::typeBinary));
    file.Write("a\nb", 3);
    file.WriteString(u"\u20ac\n");
    file.Close();
    EXPECT_EQ(ReadAll(path), std::string("a\nb\xAC\x20\x0A\x00", 7));
}

TEST(CStdioFile, WideTextAboveLatin1FailsWithDiskFullAfterEarlierCharacters) {
    const fs::path path = testing_support::TestOutputDir("stdio-narrow") / "n.txt";
    CStdioFile file;
    ASSERT_TRUE(file.Open(Name(path), kCreate | CFile::typeText));
    try {
        file.WriteString(u"ab\u0100cd");
        FAIL() << "no exception";
    } catch (CFileException* e) {
        EXPECT_EQ(e->m_cause, CFileException::diskFull);
        EXPECT_EQ(e->m_strFileName, Name(fs::absolute(path)));
        e->Delete();
    }
    file.Close();
    EXPECT_EQ(ReadAll(path), "ab");
}

TEST(CStdioFile, CreateTruncatesAndNoTruncateAppends) {
    const fs::path path = testing_support::TestOutputDir("stdio-modes") / "m.txt";
    WriteAll(path, "0123456789");
    {
        CStdioFile file(Name(path), kCreate | CFile::modeNoTruncate | CFile::typeText);
        file.SeekToEnd();
        file.WriteString(u"A");
    }
    EXPECT_EQ(ReadAll(path), "0123456789A");
    {
        CStdioFile file(Name(path), kCreate | CFile::typeText);
        file.WriteString(u"B");
    }
    EXPECT_EQ(ReadAll(path), "B");
}

TEST(CStdioFile, LargeOutputCrossesTheBuffer) {
    const fs::path path = testing_support::TestOutputDir("stdio-large") / "l.txt";
    std::string line(99, 'x');
    line += '\n';
    {
        CStdioFile file(Name(path), kCreate | CFile::typeText);
        for (int i = 0; i < 1000; ++i)
            file.Write(line.data(), static_cast<UINT>(line.size()));
        EXPECT_EQ(file.GetPosition(), 101000u);
    }
    const std::string bytes = ReadAll(path);
    ASSERT_EQ(bytes.size(), 101000u);
    EXPECT_EQ(bytes.substr(95, 10), "xxxx\r\nxxxx");

    std::string raw(150000, '\n');
    for (std::size_t i = 0; i < raw.size(); i += 3)
        raw[i] = static_cast<char>('a' + i % 26);
    {
        CStdioFile file(Name(path), kCreate | CFile::typeBinary);
        file.Write(raw.data(), 7);
        file.Write(raw.data() + 7, static_cast<UINT>(raw.size() - 7));
    }
    EXPECT_EQ(ReadAll(path), raw);
}

TEST(CStdioFile, FullDiskRaisesOnFlushAndClose) {
    if (!fs::exists("/dev/full"))
        GTEST_SKIP() << "no /dev/full";
    CStdioFile file;
    ASSERT_TRUE(file.Open(u"/dev/full", kCreate | CFile::typeText));
    file.WriteString(u"small");
    try {
        file.Close();
        FAIL() << "no exception";
    } catch (CFileException* e) {
        EXPECT_EQ(e->m_cause, CFileException::diskFull);
        EXPECT_EQ(e->m_strFileName, CString(u"/dev/full"));
        e->Delete();
    }
    EXPECT_FALSE(file.IsOpen());

    // A byte write that overflows the buffer raises the generic cause.
    ASSERT_TRUE(file.Open(u"/dev/full", kCreate | CFile::typeBinary));
    std::string big(200000, 'x');
    try {
        file.Write(big.data(), static_cast<UINT>(big.size()));
        FAIL() << "no exception";
    } catch (CFileException* e) {
        EXPECT_EQ(e->m_cause, CFileException::genericException);
        e->Delete();
    }
    file.Abort();
}

// Opening a file object that is still open writes out what the first file
// holds and closes it before the second opens, in either stream mode.
TEST(CStdioFile, SecondOpenWritesOutTheFirstFile) {
    const fs::path dir = testing_support::TestOutputDir("stdio-reopen");
    for (const UINT type : {UINT(CFile::typeText), UINT(CFile::typeBinary)}) {
        const bool text = type == CFile::typeText;
        const fs::path first = dir / (text ? "first.txt" : "first.bin");
        const fs::path second = dir / (text ? "second.txt" : "second.bin");
        CStdioFile file;
        ASSERT_TRUE(file.Open(Name(first), kCreate | type));
        file.Write("a\nb", 3);
        file.WriteString(u"c\n");
        ASSERT_TRUE(file.Open(Name(second), kCreate | type));
        EXPECT_EQ(ReadAll(first),
                  text ? std::string("a\r\nbc\r\n") : std::string("a\nbc\0\n\0", 7));
        file.Write("z", 1);
        // The same file again: its exclusive share was released by the close.
        ASSERT_TRUE(file.Open(Name(first), kCreate | CFile::modeNoTruncate | type));
        EXPECT_EQ(ReadAll(second), "z");
        file.Write("!", 1);
        file.Close();
        EXPECT_EQ(ReadAll(first).back(), '!');
    }

    // Bytes the first file cannot take are reported, not dropped in silence.
    if (!fs::exists("/dev/full"))
        GTEST_SKIP() << "no /dev/full";
    for (const UINT type : {UINT(CFile::typeText), UINT(CFile::typeBinary)}) {
        CStdioFile file;
        ASSERT_TRUE(file.Open(u"/dev/full", kCreate | type));
        file.WriteString(u"lost");
        try {
            file.Open(Name(dir / "after.txt"), kCreate | type);
            ADD_FAILURE() << "no exception";
        } catch (CFileException* e) {
            EXPECT_EQ(e->m_cause, CFileException::diskFull);
            EXPECT_EQ(e->m_strFileName, CString(u"/dev/full"));
            e->Delete();
        }
        EXPECT_FALSE(file.IsOpen());
    }
}

TEST(CFile, OpenFailuresReportCauseAndTheNameAsPassed) {
    const fs::path dir = testing_support::TestOutputDir("file-errors");
    CFile file;
    CFileException error;

    const CString missingDir = Name(dir / "no-such-dir" / "x.txt");
    EXPECT_FALSE(file.Open(missingDir, kCreate, &error));
    EXPECT_EQ(error.m_cause, CFileException::badPath);
    EXPECT_EQ(error.m_strFileName, missingDir);

    const CString missingFile = Name(dir / "absent.txt");
    EXPECT_FALSE(file.Open(missingFile, CFile::modeRead, &error));
    EXPECT_EQ(error.m_cause, CFileException::fileNotFound);

    EXPECT_FALSE(file.Open(Name(dir), kCreate, &error));
    EXPECT_EQ(error.m_cause, CFileException::accessDenied);

    EXPECT_FALSE(file.Open(CString(u'a', 300), kCreate, &error));
    EXPECT_EQ(error.m_cause, CFileException::badPath);

    WCHAR text[256];
    EXPECT_FALSE(file.Open(u"relative/missing/x.txt", kCreate, &error));
    error.GetErrorMessage(text, 256);
    EXPECT_GE(CString(text).Find(u"relative/missing/x.txt"), 0);
}

TEST(CFile, ReadOnlyDirectoryDeniesAccess) {
    const testing_support::ReadOnlyDirectory dir("file-readonly");
    dir.RunRefused([&] {
        CFile file;
        CFileException error;
        const CString name = Name(dir.Path() / "export.txt");
        EXPECT_FALSE(file.Open(name, kCreate, &error));
        EXPECT_EQ(error.m_cause, CFileException::accessDenied);
        WCHAR text[256];
        error.GetErrorMessage(text, 256);
        EXPECT_EQ(CString(text), u"Access to " + name + u" was denied.");
    });
}

TEST(CFile, ExclusiveShareRefusesASecondOpen) {
    const fs::path path = testing_support::TestOutputDir("file-share") / "s.txt";
    CFile first;
    ASSERT_TRUE(first.Open(Name(path), kCreate));
    first.Write("keep", 4);
    CFile second;
    CFileException error;
    EXPECT_FALSE(second.Open(Name(path), kCreate, &error));
    EXPECT_EQ(error.m_cause, CFileException::sharingViolation);
    first.Close();
    EXPECT_EQ(ReadAll(path), "keep"); // the refused open truncated nothing
    EXPECT_TRUE(second.Open(Name(path), CFile::modeRead | CFile::shareDenyNone, &error));
    char buf[8] = {};
    EXPECT_EQ(second.Read(buf, 8), 4u);
    EXPECT_EQ(second.GetLength(), 4u);
}

TEST(CMemFile, FixedBlockCannotGrow) {
    BYTE block[4] = {1, 2, 3, 4};
    CMemFile file(block, 4);
    BYTE out[8];
    EXPECT_EQ(file.Read(out, 8), 4u);
    file.SeekToBegin();
    file.Write("ab", 2);
    EXPECT_EQ(block[0], 'a');
    try {
        file.Write("xyz", 3);
        FAIL() << "no exception";
    } catch (CMemoryException* e) {
        e->Delete();
    }
    file.Detach();
}
