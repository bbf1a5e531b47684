// The headless desktop's clipboard data: a short list of entries in the order
// their formats were put, each owning its handle.
#include "ClipboardStore.h"

#include <winbase.h>
#include <wingdi.h>
#include <winuser.h>

#include <algorithm>

namespace platform::user {

void FreeClipboardData(UINT format, HANDLE data) {
    if (format == CF_BITMAP)
        DeleteObject(data);
    else
        GlobalFree(data);
}

namespace {

class LocalClipboardStore final : public ClipboardStore {
public:
    ~LocalClipboardStore() override { Clear(); }

    void Clear() override {
        // Detach the list first: freeing a bitmap calls back into the
        // framework's handle maps, which must see a consistent store.
        std::vector<ClipboardEntry> entries;
        entries.swap(m_entries);
        for (const ClipboardEntry& entry : entries)
            FreeClipboardData(entry.format, entry.data);
    }

    void Put(const ClipboardEntry& entry) override {
        auto found = Position(entry.format);
        if (found == m_entries.end()) {
            m_entries.push_back(entry);
            return;
        }
        const ClipboardEntry old = *found;
        *found = entry;
        if (old.data != entry.data)
            FreeClipboardData(old.format, old.data);
    }

    void Remove(UINT format) override {
        auto found = Position(format);
        if (found == m_entries.end())
            return;
        const ClipboardEntry old = *found;
        m_entries.erase(found);
        FreeClipboardData(old.format, old.data);
    }

    const ClipboardEntry* Find(UINT format) const override {
        auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                  [format](const ClipboardEntry& e) { return e.format == format; });
        return found == m_entries.end() ? nullptr : &*found;
    }

    std::vector<ClipboardEntry> Entries() const override { return m_entries; }

private:
    std::vector<ClipboardEntry>::iterator Position(UINT format) {
        return std::find_if(m_entries.begin(), m_entries.end(),
                            [format](const ClipboardEntry& e) { return e.format == format; });
    }

    std::vector<ClipboardEntry> m_entries;
};

} // namespace

std::unique_ptr<ClipboardStore> MakeLocalClipboardStore() {
    return std::make_unique<LocalClipboardStore>();
}

} // namespace platform::user
