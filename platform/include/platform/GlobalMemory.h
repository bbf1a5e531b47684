// Live-block accounting for global memory, for tests and example hosts.
#pragma once

namespace platform {

// Global memory blocks allocated and not yet freed, those the clipboard holds
// included.
int LiveGlobalBlocks();

} // namespace platform
