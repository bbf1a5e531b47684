// The desktop's clipboard: who has it open, who owns it, the checks on what
// comes in and the stand-in text formats, over a store that holds the data.
// Internal to the platform; the public interface is in winuser.h.
#pragma once

#include "ClipboardStore.h"

#include <functional>
#include <memory>
#include <vector>

namespace platform::user {

class Clipboard {
public:
    static Clipboard& Instance();

    bool Open(HWND window);
    bool Close();
    bool Empty();
    HANDLE Set(UINT format, HANDLE data);
    HANDLE Get(UINT format);
    bool IsAvailable(UINT format) const;
    // The formats on offer: those set, in order, then the stand-in text formats.
    std::vector<UINT> Formats() const;

    bool IsOpen() const { return m_open; }
    HWND Opener() const { return m_opener; }
    HWND Owner() const { return m_owner; }

    // A destroyed window neither has the clipboard open nor owns it any more;
    // the data stays.
    void ForgetWindow(HWND window);
    // The clipboard if it has been used, else null.
    static Clipboard* IfUsed();
    // Frees all data: the process is ending.
    void Discard();
    // Puts the store that replace makes from the current one in its place: a
    // display back end wraps the store while it is connected and unwraps it
    // when it goes.
    using StoreReplacer =
        std::function<std::unique_ptr<ClipboardStore>(std::unique_ptr<ClipboardStore>)>;
    void ReplaceStore(const StoreReplacer& replace);

private:
    Clipboard();

    // The text format that can stand in for format when only the other one
    // was set, or 0.
    UINT SourceFor(UINT format) const;
    HANDLE Synthesize(UINT format, UINT source);
    // Whether data is already held under a format other than format.
    bool HeldElsewhere(UINT format, HANDLE data) const;

    std::unique_ptr<ClipboardStore> m_store;
    bool m_open = false;
    HWND m_opener = nullptr;
    HWND m_owner = nullptr;
    // The ANSI code page when text was last set: the stand-in formats convert
    // through it, as the original does through the locale saved with the text.
    UINT m_textCodePage = 0;
};

// Tells the clipboard, if it has been used, that a window is gone.
void ClipboardWindowGone(HWND window);

// Converts a text block of one clipboard text format into a new moveable block
// of the other, through codePage; null if the block cannot be read or the
// memory cannot be had.
HGLOBAL ConvertClipboardText(HGLOBAL source, UINT sourceFormat, UINT codePage);

} // namespace platform::user
