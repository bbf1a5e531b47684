#include "HandleMaps.h"

#include "gdi/GdiObject.h"

#include <unordered_map>

namespace platform::afx {
namespace {

struct Maps {
    std::unordered_map<void*, CObject*> permanent;
    std::unordered_map<void*, CObject*> temporary;
};

Maps& TheMaps() {
    static auto* maps = new Maps();
    return *maps;
}

// Clears the handle inside a wrapper so that destroying it leaves the handle
// alone.
void Disown(CObject* object) {
    if (auto* gdi = dynamic_cast<CGdiObject*>(object))
        gdi->m_hObject = nullptr;
    else if (auto* dc = dynamic_cast<CDC*>(object))
        dc->m_hDC = dc->m_hAttribDC = nullptr;
}

} // namespace

void AttachPermanent(void* handle, CObject* object) {
    TheMaps().permanent[handle] = object;
}

void DetachPermanent(void* handle) {
    TheMaps().permanent.erase(handle);
}

CObject* FindObject(void* handle) {
    Maps& maps = TheMaps();
    auto it = maps.permanent.find(handle);
    if (it != maps.permanent.end())
        return it->second;
    it = maps.temporary.find(handle);
    return it != maps.temporary.end() ? it->second : nullptr;
}

void AddTemporary(void* handle, CObject* wrapper) {
    TheMaps().temporary[handle] = wrapper;
}

} // namespace platform::afx

namespace platform::gdi {

void NotifyHandleGone(void* handle) {
    auto& maps = afx::TheMaps();
    auto it = maps.temporary.find(handle);
    if (it != maps.temporary.end()) {
        CObject* wrapper = it->second;
        maps.temporary.erase(it);
        afx::Disown(wrapper);
        delete wrapper;
    }
    // An owner whose handle was destroyed behind its back forgets it.
    auto owner = maps.permanent.find(handle);
    if (owner != maps.permanent.end()) {
        afx::Disown(owner->second);
        maps.permanent.erase(owner);
    }
}

} // namespace platform::gdi
