// The resources a module carries: what a resource compiler would have linked
// into it. A host fills the table of its module (AfxGetResourceHandle());
// lookups go through the framework's chain of modules.
#pragma once

#include "../afxstr.h"

#include <unordered_map>

namespace platform {

class ResourceModule {
public:
    void SetString(UINT id, const CString& text);
    void RemoveString(UINT id);
    // Null when the module has no string id.
    const CString* FindString(UINT id) const {
        auto it = m_strings.find(id);
        return it == m_strings.end() ? nullptr : &it->second;
    }

private:
    std::unordered_map<UINT, CString> m_strings;
};

// The resource table of module, created empty on first use.
ResourceModule& Resources(HINSTANCE module);
// Forgets a module's table (for a module that is gone).
void ReleaseResources(HINSTANCE module);

} // namespace platform
