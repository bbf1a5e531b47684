// The icon objects behind HICON handles. Internal to the platform.
#pragma once

#include "IconPicture.h"

namespace platform::user {

// The picture of a live icon, or null for an unknown or destroyed handle.
const IconPicture* FindIconPicture(HICON icon);
// A new icon of its own (DestroyIcon frees it) showing picture.
HICON CreateIconFromPicture(IconPicture picture);

} // namespace platform::user
