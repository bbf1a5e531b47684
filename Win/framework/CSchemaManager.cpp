#include "Win/framework/CSchemaManager.h"

CSchemaManager& CSchemaManager::Instance() {
    static CSchemaManager instance;
    return instance;
}

CSchemaManager::CSchemaManager() : m_nCurrentSchema(-1), m_nArchiveSchema(-1) {}

CSchemaManager& CSchemaManager::operator=(const CSchemaManager& other) {
    m_nCurrentSchema = other.m_nCurrentSchema;
    m_nArchiveSchema = other.m_nArchiveSchema;
    return *this;
}

void CSchemaManager::Serialize(CArchive& ar) {
    if (ar.IsStoring()) {
        ar << static_cast<DWORD>(kMagic);
        ar << m_nCurrentSchema;
        return;
    }
    DWORD magic = 0;
    ar >> magic;
    if (magic != kMagic)
        ThrowSchemaException();
    ar >> m_nArchiveSchema;
    // An archive from a newer writer is refused; its number stays recorded.
    if (m_nArchiveSchema > m_nCurrentSchema)
        ThrowSchemaException();
}

void CSchemaManager::ThrowSchemaException() {
    AfxThrowArchiveException(CArchiveException::badIndex);
}
