#include "HandleMaps.h"

#include "gdi/GdiObject.h"

#include <cstddef>
#include <cstdint>
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

// What FindObject answered most recently, by handle: drawing code asks for the
// wrappers of the same DC, fonts and pens again and again. An entry goes when
// its handle's entries in the maps change.
struct Recent {
    void* handle = nullptr;
    CObject* object = nullptr;
};
constexpr std::size_t kRecentSlots = 64;
Recent g_recent[kRecentSlots];

Recent& RecentSlot(void* handle) {
    return g_recent[(reinterpret_cast<std::uintptr_t>(handle) >> 2) % kRecentSlots];
}

void Forget(void* handle) {
    if (Recent& recent = RecentSlot(handle); recent.handle == handle)
        recent = Recent{};
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
    Forget(handle);
}

void DetachPermanent(void* handle) {
    TheMaps().permanent.erase(handle);
    Forget(handle);
}

CObject* FindObject(void* handle) {
    Recent& recent = RecentSlot(handle);
    if (recent.handle == handle && handle)
        return recent.object;
    Maps& maps = TheMaps();
    CObject* found = nullptr;
    auto it = maps.permanent.find(handle);
    if (it != maps.permanent.end()) {
        found = it->second;
    } else {
        it = maps.temporary.find(handle);
        found = it != maps.temporary.end() ? it->second : nullptr;
    }
    if (found)
        recent = Recent{handle, found};
    return found;
}

void AddTemporary(void* handle, CObject* wrapper) {
    TheMaps().temporary[handle] = wrapper;
    Forget(handle);
}

} // namespace platform::afx

namespace platform::gdi {

void NotifyHandleGone(void* handle) {
    afx::Forget(handle);
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
