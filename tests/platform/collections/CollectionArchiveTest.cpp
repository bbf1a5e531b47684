#include <afx.h>

#include "support/ArchiveImage.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using testing_support::Bytes;

template <class Fn> void Load(Bytes bytes, Fn fn) {
    CMemFile file(bytes.data(), static_cast<UINT>(bytes.size()));
    CArchive ar(&file, CArchive::load);
    fn(ar);
}

int LoadCause(const Bytes& bytes, CObject& into) {
    try {
        Load(bytes, [&](CArchive& ar) { into.Serialize(ar); });
    } catch (CArchiveException* e) {
        int cause = e->m_cause;
        e->Delete();
        return cause;
    }
    return 0;
}

TEST(CollectionArchive, CountTakesTheFrameworksThreeForms) {
    auto bytes = testing_support::StoreToBytes([](CArchive& ar) {
        ar.WriteCount(0xFFFE);
        ar.WriteCount(0xFFFF);
        ar.WriteCount(0x100000000ULL);
    });
    EXPECT_EQ(bytes, (Bytes{0xFE, 0xFF,                                        // a WORD
                            0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00,                // escape, DWORD
                            0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,                // escape, escape,
                            0x00, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00})); // QWORD
    Load(bytes, [](CArchive& ar) {
        EXPECT_EQ(ar.ReadCount(), 0xFFFEu);
        EXPECT_EQ(ar.ReadCount(), 0xFFFFu);
        EXPECT_EQ(ar.ReadCount(), 0x100000000ULL);
    });
}

TEST(CollectionArchive, ArrayStoresCountThenStrings) {
    CStringArray a;
    a.Add(u"ab");
    a.Add(u"");
    auto bytes = testing_support::StoreToBytes([&](CArchive& ar) { a.Serialize(ar); });
    EXPECT_EQ(bytes,
              (Bytes{0x02, 0x00, 0xFF, 0xFE, 0xFF, 0x02, 'a', 0, 'b', 0, 0xFF, 0xFE, 0xFF, 0x00}));
    CStringArray back;
    back.Add(u"replaced");
    Load(bytes, [&](CArchive& ar) { back.Serialize(ar); });
    ASSERT_EQ(back.GetSize(), 2);
    EXPECT_EQ(back[0], CString(u"ab"));
    EXPECT_TRUE(back[1].IsEmpty());
}

TEST(CollectionArchive, ListRoundTripsInOrder) {
    CStringList l;
    l.AddTail(u"first");
    l.AddTail(u"second");
    l.AddHead(u"zeroth");
    auto bytes = testing_support::StoreToBytes([&](CArchive& ar) { l.Serialize(ar); });
    CStringList back;
    Load(bytes, [&](CArchive& ar) { back.Serialize(ar); });
    ASSERT_EQ(back.GetCount(), 3);
    POSITION pos = back.GetHeadPosition();
    EXPECT_EQ(back.GetNext(pos), CString(u"zeroth"));
    EXPECT_EQ(back.GetNext(pos), CString(u"first"));
    EXPECT_EQ(back.GetNext(pos), CString(u"second"));
    EXPECT_EQ(pos, nullptr);
}

TEST(CollectionArchive, CountsTheDataDoesNotBackFailCleanly) {
    // A count of a billion strings with one string behind it: the load ends
    // at the end of the data without reserving room for the count.
    Bytes huge{0xFF, 0xFF, 0x00, 0xCA, 0x9A, 0x3B, 0xFF, 0xFE, 0xFF, 0x01, 'x', 0};
    CStringArray a;
    EXPECT_EQ(LoadCause(huge, a), CArchiveException::endOfFile);
    CStringList l;
    EXPECT_EQ(LoadCause(huge, l), CArchiveException::endOfFile);
    // Above INT_MAX the array refuses the count outright.
    Bytes tooMany{0xFF, 0xFF, 0x00, 0x00, 0x00, 0x80};
    EXPECT_EQ(LoadCause(tooMany, a), CArchiveException::genericException);
}

} // namespace
