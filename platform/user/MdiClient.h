// The MDI client's state, shared by its window procedure, the default
// procedures of frames and children, and its Window menu. Internal to the
// platform.
#pragma once

#include "WindowManager.h"

#include <string>

namespace platform::user {

struct MdiClientState {
    HWND active = nullptr;
    // The frame's pop-up that lists the children, and the command of the first.
    HMENU windowMenu = nullptr;
    UINT idFirstChild = 0;
    // The frame's own caption, before " - [child]" is added.
    std::u16string frameText;
    // Children placed at the default position so far, for the cascade.
    int cascade = 0;
};

// The state of an MDI client window, or null when hwnd is not one.
MdiClientState* FindMdiClient(HWND hwnd);
// Makes child the active one: the previous one is told it lost the
// activation, a maximised state passes to the new one, the new one comes to
// the top and takes the focus when its frame is active.
void ActivateMdiChild(HWND client, Window* child);
// The frame's caption: its own text, and " - [child]" while the active child
// is maximised.
void UpdateMdiFrameText(HWND client);
// Lists the children in the Window menu, the active one checked.
void RefreshMdiWindowMenu(HWND client);

} // namespace platform::user
