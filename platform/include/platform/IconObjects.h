// Live-object accounting for icons and image lists, for tests and example
// hosts, beside platform::LiveGdiObjects().
#pragma once

namespace platform {

// Icons of their own (DestroyIcon frees them) not yet destroyed; a module's
// shared icons do not count.
int LiveIcons();
// Image lists not yet destroyed.
int LiveImageLists();

} // namespace platform
