// Objects in archives: each class and each object stored gets the next
// number of one count (0 is null); a class is written by name the first time
// and by number after, an object stored twice is written as its number.
//
// Tags (WORD): 0 null; 0xFFFF a new class follows (WORD schema, WORD name
// length, the name's bytes); 0x8000 | n the class numbered n; n below 0x7FFF
// the object numbered n; 0x7FFF a DWORD follows with the number, its top bit
// set for a class.
#include "afx.h"

#include <cstring>
#include <memory>
#include <string>

namespace {

constexpr WORD kNullTag = 0;
constexpr WORD kNewClassTag = 0xFFFF;
constexpr WORD kClassTag = 0x8000;
constexpr WORD kBigObjectTag = 0x7FFF;
constexpr DWORD kBigClassTag = 0x80000000;
// A class name longer than this is no class of ours.
constexpr WORD kMaxClassName = 64;

} // namespace

void CRuntimeClass::Store(CArchive& ar) const {
    const auto length = static_cast<WORD>(std::strlen(m_lpszClassName));
    ar << static_cast<WORD>(m_wSchema) << length;
    ar.Write(m_lpszClassName, length);
}

CRuntimeClass* CRuntimeClass::Load(CArchive& ar, UINT* schema) {
    WORD stored = 0;
    WORD length = 0;
    ar >> stored >> length;
    if (length >= kMaxClassName)
        return nullptr;
    std::string name(length, '\0');
    if (ar.Read(name.data(), length) != length)
        AfxThrowArchiveException(CArchiveException::endOfFile);
    if (schema)
        *schema = stored;
    return FromName(name.c_str());
}

DWORD CArchive::StoredIndex(const void* item) const {
    auto it = m_storeMap.find(item);
    return it == m_storeMap.end() ? 0 : it->second;
}

void CArchive::WriteTag(DWORD index, bool isClass) {
    if (index < kBigObjectTag) {
        *this << static_cast<WORD>(isClass ? (kClassTag | index) : index);
    } else {
        *this << kBigObjectTag;
        *this << static_cast<UINT>(isClass ? (kBigClassTag | index) : index);
    }
}

void CArchive::WriteClass(const CRuntimeClass* runtimeClass) {
    CheckStoring();
    if (!runtimeClass)
        AfxThrowArchiveException(CArchiveException::badClass, m_strFileName);
    if (const DWORD index = StoredIndex(runtimeClass)) {
        WriteTag(index, true);
        return;
    }
    *this << kNewClassTag;
    runtimeClass->Store(*this);
    m_storeMap[runtimeClass] = m_nMapCount++;
}

void CArchive::WriteObject(const CObject* object) {
    CheckStoring();
    if (!object) {
        *this << kNullTag;
        return;
    }
    if (const DWORD index = StoredIndex(object)) {
        WriteTag(index, false);
        return;
    }
    WriteClass(object->GetRuntimeClass());
    m_storeMap[object] = m_nMapCount++;
    const_cast<CObject*>(object)->Serialize(*this);
}

CRuntimeClass* CArchive::ReadClass(const CRuntimeClass* requested, UINT* schema, DWORD* objectTag) {
    CheckLoading();
    WORD tag = 0;
    *this >> tag;
    DWORD full = 0;
    if (tag == kBigObjectTag) {
        UINT big = 0;
        *this >> big;
        full = big;
    } else {
        full = (static_cast<DWORD>(tag & kClassTag) << 16) | (tag & ~kClassTag);
    }
    if (!(full & kBigClassTag)) {
        if (objectTag)
            *objectTag = full;
        return nullptr;
    }
    CRuntimeClass* runtimeClass = nullptr;
    UINT stored = 0;
    if (tag == kNewClassTag) {
        runtimeClass = CRuntimeClass::Load(*this, &stored);
        if (!runtimeClass)
            AfxThrowArchiveException(CArchiveException::badClass, m_strFileName);
        const UINT own = runtimeClass->m_wSchema;
        if ((own & ~VERSIONABLE_SCHEMA) != stored && !(own & VERSIONABLE_SCHEMA))
            AfxThrowArchiveException(CArchiveException::badSchema, m_strFileName);
        m_loadArray.push_back(Loaded{true, runtimeClass, stored});
    } else {
        const DWORD index = full & ~kBigClassTag;
        if (index == 0 || index >= m_loadArray.size() || !m_loadArray[index].isClass)
            AfxThrowArchiveException(CArchiveException::badIndex, m_strFileName);
        runtimeClass = static_cast<CRuntimeClass*>(m_loadArray[index].item);
        stored = m_loadArray[index].schema;
    }
    if (requested && !runtimeClass->IsDerivedFrom(requested))
        AfxThrowArchiveException(CArchiveException::badClass, m_strFileName);
    if (schema)
        *schema = stored;
    if (objectTag)
        *objectTag = 0;
    return runtimeClass;
}

CObject* CArchive::ReadObject(const CRuntimeClass* requested) {
    UINT schema = 0;
    DWORD tag = 0;
    CRuntimeClass* runtimeClass = ReadClass(requested, &schema, &tag);
    if (!runtimeClass) {
        if (tag == kNullTag)
            return nullptr;
        if (tag >= m_loadArray.size() || m_loadArray[tag].isClass)
            AfxThrowArchiveException(CArchiveException::badIndex, m_strFileName);
        auto* object = static_cast<CObject*>(m_loadArray[tag].item);
        if (requested && !object->IsKindOf(requested))
            AfxThrowArchiveException(CArchiveException::badClass, m_strFileName);
        return object;
    }
    std::unique_ptr<CObject> object(runtimeClass->CreateObject());
    if (!object)
        AfxThrowArchiveException(CArchiveException::badClass, m_strFileName);
    // Numbered before it reads itself, so that it may refer to itself.
    const std::size_t slot = m_loadArray.size();
    m_loadArray.push_back(Loaded{false, object.get(), schema});
    m_nObjectSchema = schema;
    try {
        object->Serialize(*this);
    } catch (...) {
        // An object that could not be read is no object: the caller never
        // sees it.
        m_loadArray.resize(slot);
        m_nObjectSchema = static_cast<UINT>(-1);
        throw;
    }
    m_nObjectSchema = static_cast<UINT>(-1);
    return object.release();
}

UINT CArchive::GetObjectSchema() {
    const UINT schema = m_nObjectSchema;
    m_nObjectSchema = static_cast<UINT>(-1);
    return schema;
}

CArchive& operator<<(CArchive& ar, const CObject* object) {
    ar.WriteObject(object);
    return ar;
}

CArchive& operator>>(CArchive& ar, CObject*& object) {
    object = ar.ReadObject(nullptr);
    return ar;
}

CArchive& operator>>(CArchive& ar, const CObject*& object) {
    object = ar.ReadObject(nullptr);
    return ar;
}
