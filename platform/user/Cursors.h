// The cursors inside the platform: which system cursor a handle is.
#pragma once

#include <windef.h>

namespace platform::user {

// The resource number of a system cursor (32512 for the arrow ...); 0 for a
// handle that is none.
WORD CursorId(HCURSOR cursor);

} // namespace platform::user
