// The process-wide archive schema numbers: the schema this program writes and
// the schema of the archive loaded last. The host serialises the manager at
// the head of its archives, before any object whose layout depends on it.
#pragma once

#include <afx.h>

class CSchemaManager {
public:
    static CSchemaManager& Instance();

    CSchemaManager(const CSchemaManager&) = delete;
    CSchemaManager& operator=(const CSchemaManager& other);

    int GetCurrentSchema() const { return m_nCurrentSchema; }
    void SetCurrentSchema(int nSchema) { m_nCurrentSchema = nSchema; }
    int GetArchiveSchema() const { return m_nArchiveSchema; }

    // Stores the magic number and the current schema, or loads them and
    // refuses (CArchiveException, badIndex) a wrong magic number or a schema
    // newer than the current one.
    void Serialize(CArchive& ar);

    static constexpr DWORD kMagic = 0xDEADABBA;

private:
    CSchemaManager();
    [[noreturn]] void ThrowSchemaException();

    int m_nCurrentSchema;
    int m_nArchiveSchema;
};
