// Pictures of print preview's pages, for tests and example hosts.
#pragma once

#include "../windef.h"

#include <string>

namespace platform {

// Writes a page that a print preview shows as PNG, as it is drawn there:
// index 0 is the first page shown, 1 the second in the two-page view. hwnd is
// the preview view or a frame whose active view is one. False when there is
// no preview, no such page shows or the path cannot be written.
bool SavePreviewPage(HWND hwnd, int index, const std::string& path);

} // namespace platform
