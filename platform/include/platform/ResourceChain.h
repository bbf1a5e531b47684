// Finding a template through the framework's chain of resource modules: the
// current resource module first, then each extension module in the order it
// joined, as strings are found.
#pragma once

#include "ResourceTemplates.h"

#include <vector>

namespace platform {

// A name as the original's resource functions take it: a MAKEINTRESOURCE
// number (a pointer value below 0x10000) or a string.
ResourceName MakeResourceName(LPCWSTR name);
ResourceName MakeResourceName(UINT id);

// A resource and the module whose table holds it; both null when no module
// of the chain has it.
template <class T> struct FoundResource {
    const T* resource = nullptr;
    HINSTANCE module = nullptr;
    explicit operator bool() const { return resource != nullptr; }
};

FoundResource<DialogTemplate> FindDialogTemplate(const ResourceName& name);
FoundResource<std::vector<DialogInitEntry>> FindDialogInit(const ResourceName& name);
FoundResource<MenuTemplate> FindMenuTemplate(const ResourceName& name);
FoundResource<std::vector<AcceleratorTemplate>> FindAcceleratorTable(const ResourceName& name);
FoundResource<IconTemplate> FindIconTemplate(const ResourceName& name);

} // namespace platform
