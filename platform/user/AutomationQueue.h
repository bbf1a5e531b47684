// The simulated user's queue and helpers, shared by the files that define
// its actions. Internal to the platform.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

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
// Puts actions at the head of the queue, in order, so that they run before
// anything queued already: the steps of an action found when it runs.
void QueueFirst(std::vector<std::function<void()>> actions);
// Posts the key presses that type ch to the focused window.
void TypeChar(char16_t ch);
// Clicks the control with this id in the active window now, or records why
// it cannot be clicked.
void ClickControl(UINT id);

} // namespace platform::automation::detail
