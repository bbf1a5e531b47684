#include "Win/framework/CSchemaManager.h"
#include "support/ArchiveImage.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

namespace {

using testing_support::Bytes;

Bytes StoreHeader(int schema) {
    CSchemaManager::Instance().SetCurrentSchema(schema);
    return testing_support::StoreToBytes(
        [](CArchive& ar) { CSchemaManager::Instance().Serialize(ar); });
}

// Loads bytes with the given current schema; the cause of the archive
// exception raised, or 0. remaining gets what was left unread.
int LoadHeader(Bytes bytes, int current, ULONGLONG* remaining = nullptr) {
    CSchemaManager::Instance().SetCurrentSchema(current);
    CMemFile file(bytes.data(), static_cast<UINT>(bytes.size()));
    CArchive ar(&file, CArchive::load);
    int cause = 0;
    try {
        CSchemaManager::Instance().Serialize(ar);
    } catch (CArchiveException* e) {
        cause = e->m_cause;
        EXPECT_TRUE(e->m_strFileName.IsEmpty());
        e->Delete();
    }
    if (remaining)
        *remaining = ar.GetRemaining();
    return cause;
}

} // namespace

TEST(CSchemaManager, StoresMagicAndCurrentSchema) {
    EXPECT_EQ(StoreHeader(0x210), (Bytes{0xBA, 0xAB, 0xAD, 0xDE, 0x10, 0x02, 0x00, 0x00}));
    EXPECT_EQ(StoreHeader(-1), (Bytes{0xBA, 0xAB, 0xAD, 0xDE, 0xFF, 0xFF, 0xFF, 0xFF}));
}

TEST(CSchemaManager, AcceptsSameOrOlderSchemas) {
    const Bytes header = {0xBA, 0xAB, 0xAD, 0xDE, 0x10, 0x02, 0x00, 0x00};
    EXPECT_EQ(LoadHeader(header, 0x210), 0);
    EXPECT_EQ(CSchemaManager::Instance().GetArchiveSchema(), 0x210);
    EXPECT_EQ(LoadHeader({0xBA, 0xAB, 0xAD, 0xDE, 0x09, 0x01, 0x00, 0x00}, 0x210), 0);
    EXPECT_EQ(CSchemaManager::Instance().GetArchiveSchema(), 0x109);
    EXPECT_EQ(CSchemaManager::Instance().GetCurrentSchema(), 0x210);
}

TEST(CSchemaManager, RefusesNewerSchemaAfterRecordingIt) {
    EXPECT_EQ(LoadHeader({0xBA, 0xAB, 0xAD, 0xDE, 0x10, 0x02, 0x00, 0x00}, 0x200),
              CArchiveException::badIndex);
    EXPECT_EQ(CSchemaManager::Instance().GetArchiveSchema(), 0x210);
    // Before the host sets a schema, every archive of schema 0 or more is newer.
    EXPECT_EQ(LoadHeader({0xBA, 0xAB, 0xAD, 0xDE, 0x00, 0x00, 0x00, 0x00}, -1),
              CArchiveException::badIndex);
}

TEST(CSchemaManager, RefusesWrongMagicWithoutReadingFurther) {
    LoadHeader({0xBA, 0xAB, 0xAD, 0xDE, 0x05, 0x00, 0x00, 0x00}, 0x210);
    ULONGLONG remaining = 0;
    EXPECT_EQ(LoadHeader({0xBA, 0xAB, 0xAD, 0xDF, 0x10, 0x02, 0x00, 0x00}, 0x210, &remaining),
              CArchiveException::badIndex);
    EXPECT_EQ(remaining, 4u);
    EXPECT_EQ(CSchemaManager::Instance().GetArchiveSchema(), 5);
}

TEST(CSchemaManager, TruncatedHeaderIsEndOfFile) {
    EXPECT_EQ(LoadHeader({0xBA, 0xAB, 0xAD}, 0x210), CArchiveException::endOfFile);
    EXPECT_EQ(LoadHeader({0xBA, 0xAB, 0xAD, 0xDE, 0x10, 0x02}, 0x210),
              CArchiveException::endOfFile);
}
