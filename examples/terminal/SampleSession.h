// The built-in session: a byte stream that shows text in every video attribute,
// the UK set, a box drawn with the line-drawing set, tab stops, character
// insertion and deletion, and a scrolled region; and a selection to mark on it.
#pragma once

#include <Win/Win.h>

#include <string>

namespace sample {

std::string SessionBytes();
// One-based, inclusive: the selection the host marks after the session.
CursorPos SelectionStart();
CursorPos SelectionEnd();

} // namespace sample
