// Archives in memory: the bytes a store leaves behind, for byte-exact checks.
#pragma once

#include <afx.h>

#include <cstdlib>
#include <vector>

namespace testing_support {

using Bytes = std::vector<BYTE>;

// Stores through fn into a memory file and returns the archive's bytes.
template <class Fn> Bytes StoreToBytes(Fn fn) {
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store);
        fn(ar);
        ar.Close();
    }
    const auto size = static_cast<std::size_t>(file.GetLength());
    BYTE* data = file.Detach();
    Bytes out(data, data + size);
    std::free(data);
    return out;
}

} // namespace testing_support
