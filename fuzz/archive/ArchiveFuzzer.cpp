// Loads arbitrary bytes as a host's archive: the schema header, then export
// settings. Only the framework's exceptions may come out.
#include "Win/export/CExportFormat.h"
#include "Win/framework/CSchemaManager.h"

#include <cstddef>
#include <cstdint>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    // Every schema number is accepted, so every branch of the loader is reached.
    CSchemaManager::Instance().SetCurrentSchema(0x7FFFFFFF);
    std::vector<BYTE> bytes(data, data + size);
    CMemFile file(bytes.data(), static_cast<UINT>(bytes.size()));
    try {
        CArchive ar(&file, CArchive::load);
        CSchemaManager::Instance().Serialize(ar);
        CExportFormat format;
        format.Serialize(ar);
        // A loaded format must still format fields.
        (void)format.FormatData(format.GetFilename(), false);
        CExportFormat second;
        second.Serialize(ar);
    } catch (CException* e) {
        e->Delete();
    }
    file.Detach();
    return 0;
}
