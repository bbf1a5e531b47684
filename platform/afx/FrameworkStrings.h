// The framework's own texts, which a host may replace with string resources
// of the same identifiers. Internal to the platform.
#pragma once

#include <afxwin.h>

namespace platform::afx {

// The host's string id when a module of the chain has it, else the
// framework's built-in text (empty for an id it has none for).
CString FrameworkString(UINT id);

} // namespace platform::afx
