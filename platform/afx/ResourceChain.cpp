// The chain search for templates, in the order the string lookups use: the
// current resource module, then the extension modules.
#include "platform/ResourceChain.h"

#include "afxwin.h"
#include "platform/ResourceModule.h"

namespace platform {

ResourceName MakeResourceName(UINT id) {
    ResourceName n;
    n.id = id;
    return n;
}

ResourceName MakeResourceName(LPCWSTR name) {
    const auto value = reinterpret_cast<std::uintptr_t>(name);
    if (value < 0x10000)
        return MakeResourceName(static_cast<UINT>(value));
    ResourceName n;
    for (const WCHAR* p = name; *p; ++p)
        n.name += (*p >= u'a' && *p <= u'z') ? static_cast<WCHAR>(*p - u'a' + u'A') : *p;
    return n;
}

namespace {

template <class T, class Lookup> FoundResource<T> SearchChain(Lookup lookup) {
    AFX_MODULE_STATE* state = AfxGetModuleState();
    auto tryModule = [&](HINSTANCE module, FoundResource<T>& found) {
        const ResourceModule* table = FindResources(module);
        if (const T* r = table ? lookup(*table) : nullptr) {
            found.resource = r;
            found.module = module;
            return true;
        }
        return false;
    };
    FoundResource<T> found;
    if (tryModule(state->m_hCurrentResourceHandle, found))
        return found;
    for (CDynLinkLibrary* dll = state->m_libraryList; dll; dll = dll->m_pNextDLL)
        if (tryModule(dll->m_hResource, found))
            return found;
    return found;
}

} // namespace

FoundResource<DialogTemplate> FindDialogTemplate(const ResourceName& name) {
    return SearchChain<DialogTemplate>([&](const ResourceModule& m) { return m.FindDialog(name); });
}

FoundResource<std::vector<DialogInitEntry>> FindDialogInit(const ResourceName& name) {
    return SearchChain<std::vector<DialogInitEntry>>(
        [&](const ResourceModule& m) { return m.FindDialogInit(name); });
}

FoundResource<MenuTemplate> FindMenuTemplate(const ResourceName& name) {
    return SearchChain<MenuTemplate>([&](const ResourceModule& m) { return m.FindMenu(name); });
}

FoundResource<std::vector<AcceleratorTemplate>> FindAcceleratorTable(const ResourceName& name) {
    return SearchChain<std::vector<AcceleratorTemplate>>(
        [&](const ResourceModule& m) { return m.FindAccelerators(name); });
}

FoundResource<IconTemplate> FindIconTemplate(const ResourceName& name) {
    return SearchChain<IconTemplate>([&](const ResourceModule& m) { return m.FindIcon(name); });
}

} // namespace platform
