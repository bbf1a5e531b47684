// The template tables of a resource module.
#include "platform/ResourceModule.h"

#include <utility>

namespace platform {

void ResourceModule::SetDialog(const ResourceName& name, DialogTemplate dialog) {
    m_dialogs[name] = std::move(dialog);
}

void ResourceModule::SetDialogInit(const ResourceName& name,
                                   std::vector<DialogInitEntry> entries) {
    m_dialogInits[name] = std::move(entries);
}

void ResourceModule::SetMenu(const ResourceName& name, MenuTemplate menu) {
    m_menus[name] = std::move(menu);
}

void ResourceModule::SetAccelerators(const ResourceName& name,
                                     std::vector<AcceleratorTemplate> table) {
    m_accelerators[name] = std::move(table);
}

void ResourceModule::SetIcon(const ResourceName& name, IconTemplate icon) {
    m_icons[name] = std::move(icon);
}

} // namespace platform
