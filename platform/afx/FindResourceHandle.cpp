// AfxFindResourceHandle: which module of the chain holds a resource.
#include <afxwin.h>
#include <platform/ResourceChain.h>
#include <platform/ResourceModule.h>

namespace {

bool Holds(HINSTANCE module, const platform::ResourceName& name, UINT type) {
    const platform::ResourceModule* table = platform::FindResources(module);
    if (!table)
        return false;
    switch (type) {
    case 4: // RT_MENU
        return table->FindMenu(name) != nullptr;
    case 9: // RT_ACCELERATOR
        return table->FindAccelerators(name) != nullptr;
    case 5: // RT_DIALOG
        return table->FindDialog(name) != nullptr;
    case 3:  // RT_ICON
    case 14: // RT_GROUP_ICON
        return table->FindIcon(name) != nullptr;
    case 6: // RT_STRING: the block of sixteen strings that holds the id
        if (name.id == 0 || !name.name.empty())
            return false;
        for (UINT id = (name.id - 1) * 16; id < name.id * 16; ++id)
            if (table->FindString(id))
                return true;
        return false;
    default:
        return false;
    }
}

} // namespace

HINSTANCE AfxFindResourceHandle(LPCTSTR name, LPCTSTR type) {
    AFX_MODULE_STATE* state = AfxGetModuleState();
    const platform::ResourceName resource = platform::MakeResourceName(name);
    const auto kind = static_cast<UINT>(reinterpret_cast<uintptr_t>(type));
    if (Holds(state->m_hCurrentResourceHandle, resource, kind))
        return state->m_hCurrentResourceHandle;
    for (CDynLinkLibrary* dll = state->m_libraryList; dll; dll = dll->m_pNextDLL)
        if (Holds(dll->m_hResource, resource, kind))
            return dll->m_hResource;
    return AfxGetResourceHandle();
}
