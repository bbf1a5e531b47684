// Objects in archives: the class tag written once by name and then by
// number, references to objects stored before, null, and the errors of an
// archive that names an unknown class, another version, a class of the wrong
// kind or an object it never held.
#include <afx.h>

#include "support/ArchiveImage.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

namespace {

using testing_support::Bytes;

// A record of schema 2 holding one number.
class CRecord : public CObject {
    DECLARE_SERIAL(CRecord)

public:
    CRecord() = default;
    explicit CRecord(int value) : m_value(value) {}
    void Serialize(CArchive& ar) override {
        if (ar.IsStoring())
            ar << m_value;
        else
            ar >> m_value;
    }
    int m_value = 0;
};
IMPLEMENT_SERIAL(CRecord, CObject, 2)

// A record that refers to another object, or to itself.
class CLink : public CObject {
    DECLARE_SERIAL(CLink)

public:
    void Serialize(CArchive& ar) override {
        if (ar.IsStoring())
            ar << m_next;
        else
            ar >> m_next;
    }
    CObject* m_next = nullptr;
};
IMPLEMENT_SERIAL(CLink, CObject, 1)

// A class whose later versions read what earlier ones wrote.
class CVersioned : public CObject {
    DECLARE_SERIAL(CVersioned)

public:
    void Serialize(CArchive& ar) override {
        if (ar.IsStoring()) {
            ar << m_value;
            return;
        }
        m_schemaSeen = ar.GetObjectSchema();
        ar >> m_value;
    }
    int m_value = 0;
    UINT m_schemaSeen = 0;
};
IMPLEMENT_SERIAL(CVersioned, CObject, VERSIONABLE_SCHEMA | 3)

template <class Fn> void Load(Bytes bytes, Fn fn) {
    CMemFile file(bytes.data(), static_cast<UINT>(bytes.size()));
    CArchive ar(&file, CArchive::load);
    fn(ar);
}

int LoadCause(const Bytes& bytes) {
    try {
        Load(bytes, [](CArchive& ar) {
            CObject* object = nullptr;
            ar >> object;
            delete object;
        });
    } catch (CArchiveException* e) {
        const int cause = e->m_cause;
        e->Delete();
        return cause;
    }
    return 0;
}

Bytes ClassTag(WORD schema, const char* name) {
    Bytes bytes{0xFF,
                0xFF,
                static_cast<BYTE>(schema),
                static_cast<BYTE>(schema >> 8),
                static_cast<BYTE>(std::strlen(name)),
                0};
    // One at a time: GCC 12 at -O3 misreads a range insert here as overflowing.
    for (const char* c = name; *c; ++c)
        bytes.push_back(static_cast<BYTE>(*c));
    return bytes;
}

TEST(ArchiveObjectsTest, ClassesAreNamedOnceAndObjectsStoredTwiceAreReferences) {
    CRecord first(7);
    CRecord second(9);
    const Bytes bytes = testing_support::StoreToBytes([&](CArchive& ar) {
        ar << &first << &second << &first << static_cast<const CObject*>(nullptr);
    });
    Bytes expected = ClassTag(2, "CRecord");
    // Class 1, object 2 holds 7; class 1 again by number, object 3 holds 9;
    // object 2 by number; null.
    expected.insert(expected.end(), {7, 0, 0, 0, 0x01, 0x80, 9, 0, 0, 0, 0x02, 0x00, 0x00, 0x00});
    EXPECT_EQ(bytes, expected);

    Load(bytes, [](CArchive& ar) {
        CRecord* a = nullptr;
        CRecord* b = nullptr;
        CRecord* again = nullptr;
        CObject* none = reinterpret_cast<CObject*>(1);
        ar >> a >> b >> again >> none;
        std::unique_ptr<CRecord> ownA(a), ownB(b);
        ASSERT_NE(a, nullptr);
        ASSERT_NE(b, nullptr);
        EXPECT_EQ(a->m_value, 7);
        EXPECT_EQ(b->m_value, 9);
        EXPECT_EQ(again, a);
        EXPECT_EQ(none, nullptr);
        EXPECT_TRUE(a->IsKindOf(RUNTIME_CLASS(CRecord)));
    });
}

TEST(ArchiveObjectsTest, AnObjectMayReferToItself) {
    CLink link;
    link.m_next = &link;
    const Bytes bytes = testing_support::StoreToBytes([&](CArchive& ar) { ar << &link; });
    Load(bytes, [](CArchive& ar) {
        CLink* loaded = nullptr;
        ar >> loaded;
        std::unique_ptr<CLink> own(loaded);
        ASSERT_NE(loaded, nullptr);
        EXPECT_EQ(loaded->m_next, loaded);
    });
}

TEST(ArchiveObjectsTest, ArchivesNamingWhatCannotBeLoadedAreRefused) {
    // A class nobody knows, and a name too long to be a class.
    EXPECT_EQ(LoadCause(ClassTag(2, "CNoSuchClass")), CArchiveException::badClass);
    EXPECT_EQ(LoadCause(ClassTag(2, std::string(70, 'C').c_str())), CArchiveException::badClass);
    // Another version of a class that reads only its own.
    Bytes other = ClassTag(1, "CRecord");
    other.insert(other.end(), {7, 0, 0, 0});
    EXPECT_EQ(LoadCause(other), CArchiveException::badSchema);
    // References to nothing read so far: an object and a class.
    EXPECT_EQ(LoadCause(Bytes{0x05, 0x00}), CArchiveException::badIndex);
    EXPECT_EQ(LoadCause(Bytes{0x03, 0x80}), CArchiveException::badIndex);
    EXPECT_EQ(LoadCause(Bytes{0xFF, 0x7F, 0x09, 0x00, 0x00, 0x80}), CArchiveException::badIndex);
    // Cut short inside the name and inside the object.
    Bytes cut = ClassTag(2, "CRecord");
    cut.resize(cut.size() - 2);
    EXPECT_EQ(LoadCause(cut), CArchiveException::endOfFile);
    Bytes shortObject = ClassTag(2, "CRecord");
    shortObject.insert(shortObject.end(), {7, 0});
    EXPECT_EQ(LoadCause(shortObject), CArchiveException::endOfFile);
    // A class that cannot be created from an archive.
    EXPECT_EQ(LoadCause(ClassTag(0xFFFF, "CObject")), CArchiveException::badClass);
}

TEST(ArchiveObjectsTest, AnObjectOfAnotherKindThanAskedForIsRefused) {
    CRecord record(1);
    const Bytes bytes = testing_support::StoreToBytes([&](CArchive& ar) { ar << &record; });
    int cause = 0;
    try {
        Load(bytes, [](CArchive& ar) {
            CLink* wrong = nullptr;
            ar >> wrong;
            delete wrong;
        });
    } catch (CArchiveException* e) {
        cause = e->m_cause;
        e->Delete();
    }
    EXPECT_EQ(cause, CArchiveException::badClass);
}

TEST(ArchiveObjectsTest, AVersionableClassReadsOlderSchemasAndLearnsWhichOne) {
    Bytes older = ClassTag(1, "CVersioned");
    older.insert(older.end(), {42, 0, 0, 0});
    Load(older, [](CArchive& ar) {
        CVersioned* loaded = nullptr;
        ar >> loaded;
        std::unique_ptr<CVersioned> own(loaded);
        ASSERT_NE(loaded, nullptr);
        EXPECT_EQ(loaded->m_schemaSeen, 1u);
        EXPECT_EQ(loaded->m_value, 42);
        // Asked again outside an object, there is no schema.
        EXPECT_EQ(ar.GetObjectSchema(), static_cast<UINT>(-1));
    });
}

TEST(ArchiveObjectsTest, ObjectsGoOnlyOneWay) {
    CRecord record(1);
    int cause = 0;
    try {
        Load(Bytes{0, 0}, [&](CArchive& ar) { ar << &record; });
    } catch (CArchiveException* e) {
        cause = e->m_cause;
        e->Delete();
    }
    EXPECT_EQ(cause, CArchiveException::readOnly);
}

} // namespace
