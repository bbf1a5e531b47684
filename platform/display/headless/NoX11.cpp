// A build without the X11 libraries: the desktop stays headless.
#include "display/Backend.h"

namespace platform::display {

std::unique_ptr<Backend> CreateX11Backend(const char*, std::string* error) {
    if (error)
        *error = "this build has no X11 support (xcb was not found when it was configured)";
    return nullptr;
}

} // namespace platform::display
