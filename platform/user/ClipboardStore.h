// Where the clipboard's data lives. The clipboard above it keeps who has it
// open and who owns it, checks the handles and makes the stand-in text
// formats; the store only holds data. The headless desktop keeps the data in
// the process; a display back end can put its own store in place that also
// claims the display's selection and fetches other programs' data on demand.
#pragma once

#include <windef.h>

#include <memory>
#include <vector>

namespace platform::user {

struct ClipboardEntry {
    UINT format = 0;
    HANDLE data = nullptr; // owned by the store
    // Made by the clipboard from another format rather than set by a program.
    bool synthesized = false;
};

class ClipboardStore {
public:
    virtual ~ClipboardStore() = default;
    // Frees all data.
    virtual void Clear() = 0;
    // Takes data for format, freeing what the format held before.
    virtual void Put(const ClipboardEntry& entry) = 0;
    // Frees the data of format, if any.
    virtual void Remove(UINT format) = 0;
    // The entry of format, or null; the data stays the store's.
    virtual const ClipboardEntry* Find(UINT format) const = 0;
    // Every entry, in the order the formats were first put.
    virtual std::vector<ClipboardEntry> Entries() const = 0;
    // The clipboard was opened or closed. Data fetched from another program
    // while it is open stays the same until it is closed.
    virtual void Opened() {}
    virtual void Closed() {}
};

// The store of the headless desktop: the data stays in the process.
std::unique_ptr<ClipboardStore> MakeLocalClipboardStore();

// Frees data the clipboard owns: DeleteObject for CF_BITMAP, else GlobalFree.
void FreeClipboardData(UINT format, HANDLE data);

} // namespace platform::user
