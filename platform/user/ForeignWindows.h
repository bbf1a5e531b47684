// Other programs' top-level windows, as a display back end shared with them
// sees them. The headless desktop has none; a back end registers its view
// while it is connected. Each such window has a handle of its own that
// never equals one of ours; a call on a window that has gone fails.
#pragma once

#include <windef.h>

#include <string>
#include <vector>

namespace platform::user {

class ForeignWindows {
public:
    virtual ~ForeignWindows() = default;
    // Their top-level windows with a title, topmost first.
    virtual std::vector<HWND> TopLevel() = 0;
    // Whether hwnd is one of theirs that still exists.
    virtual bool Exists(HWND hwnd) = 0;
    // The window's title; false when hwnd is not one of theirs or is gone.
    virtual bool Title(HWND hwnd, std::u16string* title) = 0;
    // Asks for the window to become the active one, above the others.
    virtual bool Activate(HWND hwnd) = 0;
    virtual bool Iconic(HWND hwnd) = 0;
};

// The view in use, or null.
ForeignWindows* Foreign();
void SetForeign(ForeignWindows* windows);

} // namespace platform::user
