#include <afx.h>

#include "support/ArchiveImage.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <initializer_list>
#include <vector>

namespace {

using testing_support::Bytes;

template <class Fn> Bytes Store(Fn fn) {
    return testing_support::StoreToBytes(fn);
}

// Loads from a copy of bytes; fn reads from the archive.
template <class Fn> void Load(Bytes bytes, Fn fn) {
    CMemFile file(bytes.data(), static_cast<UINT>(bytes.size()));
    CArchive ar(&file, CArchive::load);
    fn(ar);
}

int ArchiveCause(const Bytes& bytes, void (*read)(CArchive&)) {
    try {
        Load(bytes, read);
    } catch (CArchiveException* e) {
        const int cause = e->m_cause;
        const bool named = !e->m_strFileName.IsEmpty();
        e->Delete();
        return named ? -cause : cause;
    }
    return 0;
}

Bytes Prefix(ULONGLONG length) {
    return Store([&](CArchive& ar) { AfxWriteStringLength(ar, length, TRUE); });
}

} // namespace

TEST(CArchive, IntegersAreLittleEndianImages) {
    const Bytes bytes = Store([](CArchive& ar) {
        ar << static_cast<BYTE>(0x12) << static_cast<WORD>(0x3456) << -2 << 0xDEADABBAu
           << static_cast<LONGLONG>(-3) << true << 1.5;
    });
    const Bytes expected = {0x12, 0x56, 0x34, 0xFE, 0xFF, 0xFF, 0xFF, 0xBA, 0xAB, 0xAD,
                            0xDE, 0xFD, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x01,
                            0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xF8, 0x3F};
    EXPECT_EQ(bytes, expected);

    Load(bytes, [](CArchive& ar) {
        BYTE b;
        WORD w;
        int i;
        UINT u;
        LONGLONG ll;
        bool flag;
        double d;
        ar >> b >> w >> i >> u >> ll >> flag >> d;
        EXPECT_EQ(b, 0x12);
        EXPECT_EQ(w, 0x3456);
        EXPECT_EQ(i, -2);
        EXPECT_EQ(u, 0xDEADABBAu);
        EXPECT_EQ(ll, -3);
        EXPECT_TRUE(flag);
        EXPECT_EQ(d, 1.5);
    });
}

TEST(CArchive, UnicodeLengthPrefixes) {
    EXPECT_EQ(Prefix(0), (Bytes{0xFF, 0xFE, 0xFF, 0x00}));
    EXPECT_EQ(Prefix(254), (Bytes{0xFF, 0xFE, 0xFF, 0xFE}));
    EXPECT_EQ(Prefix(255), (Bytes{0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0x00}));
    EXPECT_EQ(Prefix(256), (Bytes{0xFF, 0xFE, 0xFF, 0xFF, 0x00, 0x01}));
    EXPECT_EQ(Prefix(65533), (Bytes{0xFF, 0xFE, 0xFF, 0xFF, 0xFD, 0xFF}));
    EXPECT_EQ(Prefix(65534), (Bytes{0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFE, 0xFF, 0x00, 0x00}));
    EXPECT_EQ(Prefix(65536), (Bytes{0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00, 0x01, 0x00}));
}

TEST(CArchive, StringsRoundTripAtEveryPrefixSize) {
    for (int n : {0, 1, 254, 255, 256, 65533, 65534, 70000}) {
        CString s;
        for (int i = 0; i < n; ++i)
            s += static_cast<WCHAR>(u'A' + i % 26 + (i % 7 == 0 ? 0x400 : 0));
        const Bytes bytes = Store([&](CArchive& ar) { ar << s; });
        Load(bytes, [&](CArchive& ar) {
            CString back(u"old");
            ar >> back;
            EXPECT_EQ(back, s) << n;
            EXPECT_EQ(ar.GetRemaining(), 0u);
        });
    }
}

TEST(CArchive, StringImageIsUtf16WithoutTerminator) {
    const Bytes bytes = Store([](CArchive& ar) { ar << CString(u"a\u00e9\u20ac"); });
    EXPECT_EQ(bytes, (Bytes{0xFF, 0xFE, 0xFF, 0x03, 0x61, 0x00, 0xE9, 0x00, 0xAC, 0x20}));
}

TEST(CArchive, ReadsTheOlderSingleByteFormThroughTheAnsiCodePage) {
    Bytes bytes = {0x04, 0x31, 0x2E, 0x31, 0x30, 0x02, 0x80, 0xE9, 0x00, 0xFF, 0x2C, 0x01};
    bytes.insert(bytes.end(), 300, 0x41); // the WORD form: 300 characters
    Load(bytes, [](CArchive& ar) {
        CString a(u"x"), b, c(u"x"), d;
        ar >> a >> b >> c >> d;
        EXPECT_EQ(a, CString(u"1.10"));
        EXPECT_EQ(b, CString(u"\u20ac\u00e9"));
        EXPECT_TRUE(c.IsEmpty());
        EXPECT_EQ(d, CString(u'A', 300));
    });
}

TEST(CArchive, LoadedStringEndsAtEmbeddedNul) {
    Load({0xFF, 0xFE, 0xFF, 0x03, 0x61, 0x00, 0x00, 0x00, 0x62, 0x00, 0x07}, [](CArchive& ar) {
        CString s;
        BYTE next;
        ar >> s >> next;
        EXPECT_EQ(s, CString(u"a"));
        EXPECT_EQ(next, 7); // the whole stored string was consumed
    });
}

void ReadInt(CArchive& ar) {
    int v;
    ar >> v;
}
void ReadString(CArchive& ar) {
    CString s;
    ar >> s;
}
void WriteInt(CArchive& ar) {
    ar << 1;
}

TEST(CArchive, TruncationRaisesEndOfFileWithoutName) {
    EXPECT_EQ(ArchiveCause({0x01, 0x02}, ReadInt), CArchiveException::endOfFile);
    EXPECT_EQ(ArchiveCause({}, ReadString), CArchiveException::endOfFile);
    EXPECT_EQ(ArchiveCause({0xFF, 0xFE, 0xFF, 0x03, 0x61, 0x00}, ReadString),
              CArchiveException::endOfFile);
    EXPECT_EQ(ArchiveCause({0xFF, 0xFE}, ReadString), CArchiveException::endOfFile);
}

TEST(CArchive, HugeLengthPrefixFailsBeforeAllocating) {
    // 0x7FFFFFF0 UTF-16 units claimed, four bytes present.
    EXPECT_EQ(ArchiveCause({0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xF0, 0xFF, 0xFF, 0x7F, 1, 2, 3, 4},
                           ReadString),
              CArchiveException::endOfFile);
    // A 64-bit length beyond what a string can hold.
    EXPECT_EQ(ArchiveCause({0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0, 1, 0, 0, 0},
                           ReadString),
              CArchiveException::genericException);
}

// Only the 64-bit form can claim more than a string holds; a 32-bit length
// that the data does not back is an ordinary truncation.
TEST(CArchive, LengthCausesFollowThePrefixForm) {
    const auto cause = [](std::initializer_list<BYTE> prefix) {
        Bytes bytes(prefix);
        bytes.insert(bytes.end(), {0x41, 0x00, 0x42, 0x00});
        return ArchiveCause(bytes, ReadString);
    };
    EXPECT_EQ(cause({0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00, 0x00, 0x80}),
              CArchiveException::endOfFile);
    EXPECT_EQ(cause({0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFE, 0xFF, 0xFF, 0xFF}),
              CArchiveException::endOfFile);
    EXPECT_EQ(cause({0xFF, 0xFF, 0xFF, 0xFE, 0xFF, 0xFF, 0xFF}), CArchiveException::endOfFile);
    EXPECT_EQ(cause({0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,
                     0x7F, 0, 0, 0, 0}),
              CArchiveException::endOfFile);
    EXPECT_EQ(cause({0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00, 0x00,
                     0x80, 0, 0, 0, 0}),
              CArchiveException::genericException);
}

// A read cut short raises end of file and leaves the variable as it was.
TEST(CArchive, TruncatedValueLeavesItsTargetUntouched) {
    const auto check = [](Bytes bytes, auto before) {
        auto value = before;
        const int cause = [&] {
            try {
                Load(bytes, [&](CArchive& ar) { ar >> value; });
            } catch (CArchiveException* e) {
                const int c = e->m_cause;
                e->Delete();
                return c;
            }
            return 0;
        }();
        EXPECT_EQ(cause, CArchiveException::endOfFile) << bytes.size() << " bytes";
        EXPECT_EQ(value, before) << bytes.size() << " bytes";
    };
    check({0x10}, static_cast<WORD>(0x1234));
    check({0x10, 0x20, 0x30}, 0x12345678u);
    check({0x10, 0x20}, -5);
    check({1, 2, 3, 4, 5}, static_cast<LONGLONG>(0x1122334455667788));
    check({1, 2, 3, 4, 5, 6, 7}, 2.5);
    check({1}, 0.5f);

    // The header case: magic read whole, the schema cut after its first byte.
    Load({0xBA, 0xAB, 0xAD, 0xDE, 0x10}, [](CArchive& ar) {
        UINT magic = 0, schema = 0x12345678;
        ar >> magic;
        try {
            ar >> schema;
            ADD_FAILURE() << "no exception";
        } catch (CArchiveException* e) {
            e->Delete();
        }
        EXPECT_EQ(schema, 0x12345678u);
    });
}

TEST(CArchive, WrongDirectionRaisesWithTheFileName) {
    CMemFile file;
    CArchive storing(&file, CArchive::store);
    storing.m_strFileName = u"doc.bin";
    try {
        ReadInt(storing);
        FAIL();
    } catch (CArchiveException* e) {
        EXPECT_EQ(e->m_cause, CArchiveException::writeOnly);
        EXPECT_EQ(e->m_strFileName, CString(u"doc.bin"));
        e->Delete();
    }
    EXPECT_EQ(ArchiveCause({0}, WriteInt), CArchiveException::readOnly);
}

TEST(CArchive, LargeWritesGoThroughTheBuffer) {
    Bytes big(10000);
    for (std::size_t i = 0; i < big.size(); ++i)
        big[i] = static_cast<BYTE>(i * 7);
    const Bytes bytes = Store([&](CArchive& ar) {
        ar << 5;
        ar.Write(big.data(), static_cast<UINT>(big.size()));
    });
    ASSERT_EQ(bytes.size(), 10004u);
    Load(bytes, [&](CArchive& ar) {
        int five;
        ar >> five;
        Bytes back(10000);
        EXPECT_EQ(ar.Read(back.data(), 20000), 10000u);
        EXPECT_EQ(back, big);
    });
}

TEST(CArchiveException, MessagesNameTheFile) {
    CArchiveException e(CArchiveException::badIndex, u"/tmp/a.doc");
    WCHAR text[16];
    EXPECT_TRUE(e.GetErrorMessage(text, 16));
    EXPECT_EQ(CString(text).GetLength(), 15);
    EXPECT_GE(e.GetErrorText().Find(u"/tmp/a.doc"), 0);
    EXPECT_GE(
        CArchiveException(CArchiveException::endOfFile).GetErrorText().Find(u"an unnamed file"), 0);
}

TEST(CArchive, WorksOverARealFile) {
    const std::string path = (testing_support::TestOutputDir("archive-file") / "doc.bin").string();
    const CString name = platform::FromUtf8(path);
    {
        CFile file(name, CFile::modeCreate | CFile::modeWrite);
        CArchive ar(&file, CArchive::store);
        EXPECT_EQ(ar.m_strFileName, name);
        ar << CString(u"title") << 7;
        // A prefix claiming more characters than the file will hold.
        AfxWriteStringLength(ar, 5000, TRUE);
        ar << static_cast<WORD>(0x41);
        ar.Close();
    }
    CFile file(name, CFile::modeRead);
    CArchive ar(&file, CArchive::load, 512);
    CString title;
    int seven = 0;
    ar >> title >> seven;
    EXPECT_EQ(title, CString(u"title"));
    EXPECT_EQ(seven, 7);
    EXPECT_EQ(ar.GetRemaining(), 8u);
    try {
        CString tooLong;
        ar >> tooLong;
        FAIL() << "no exception";
    } catch (CArchiveException* e) {
        EXPECT_EQ(e->m_cause, CArchiveException::endOfFile);
        EXPECT_TRUE(e->m_strFileName.IsEmpty());
        e->Delete();
    }
}
