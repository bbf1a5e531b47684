// The simulated user's queue and helpers, shared by the files that define
// its actions. Internal to the platform.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace platform::automation::detail {

// Adds an action at the end of the queue.
void Queue(std::function<void()> action);
// Adds a line to the record.
void Note(std::string what);
// The control with the id under root, depth first, a shown one before a
// hidden one.
HWND FindControl(HWND root, UINT id);
// The window's text in quotes, for the record.
std::string Describe(HWND hwnd);
std::string Narrow(const std::u16string& text);
// Moves the cursor to the point and posts a left button press and release.
void PostClick(HWND hwnd, POINT point);

} // namespace platform::automation::detail
