// The resources a module carries: what a resource compiler would have linked
// into it. A host fills the table of its module (AfxGetResourceHandle());
// lookups go through the framework's chain of modules.
#pragma once

#include "../atlstr.h"
#include "ResourceTemplates.h"

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

namespace platform {

struct ResourceNameHash {
    std::size_t operator()(const ResourceName& n) const {
        return n.name.empty() ? std::hash<UINT>()(n.id) : std::hash<std::u16string>()(n.name);
    }
};

class ResourceModule {
public:
    void SetString(UINT id, const CString& text);
    void RemoveString(UINT id);
    // Null when the module has no string id.
    const CString* FindString(UINT id) const {
        auto it = m_strings.find(id);
        return it == m_strings.end() ? nullptr : &it->second;
    }

    // Templates by name; Set replaces one of the same name, Find gives null
    // when the module has none.
    void SetDialog(const ResourceName& name, DialogTemplate dialog);
    const DialogTemplate* FindDialog(const ResourceName& name) const {
        return Find(m_dialogs, name);
    }
    // A dialog's initialisation data, under the dialog's name.
    void SetDialogInit(const ResourceName& name, std::vector<DialogInitEntry> entries);
    const std::vector<DialogInitEntry>* FindDialogInit(const ResourceName& name) const {
        return Find(m_dialogInits, name);
    }
    void SetMenu(const ResourceName& name, MenuTemplate menu);
    const MenuTemplate* FindMenu(const ResourceName& name) const { return Find(m_menus, name); }
    void SetAccelerators(const ResourceName& name, std::vector<AcceleratorTemplate> table);
    const std::vector<AcceleratorTemplate>* FindAccelerators(const ResourceName& name) const {
        return Find(m_accelerators, name);
    }
    void SetIcon(const ResourceName& name, IconTemplate icon);
    const IconTemplate* FindIcon(const ResourceName& name) const { return Find(m_icons, name); }

private:
    template <class T> using ByName = std::unordered_map<ResourceName, T, ResourceNameHash>;
    template <class T> static const T* Find(const ByName<T>& table, const ResourceName& name) {
        auto it = table.find(name);
        return it == table.end() ? nullptr : &it->second;
    }

    std::unordered_map<UINT, CString> m_strings;
    ByName<DialogTemplate> m_dialogs;
    ByName<std::vector<DialogInitEntry>> m_dialogInits;
    ByName<MenuTemplate> m_menus;
    ByName<std::vector<AcceleratorTemplate>> m_accelerators;
    ByName<IconTemplate> m_icons;
};

// The resource table of module, created empty on first use.
ResourceModule& Resources(HINSTANCE module);
// The table of module, or null when it has none (nothing is created).
const ResourceModule* FindResources(HINSTANCE module);
// Forgets a module's table (for a module that is gone).
void ReleaseResources(HINSTANCE module);

} // namespace platform
