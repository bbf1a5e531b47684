// The window classes the system provides: registered once, before the first
// window is created.
#include "../WindowManager.h"

namespace platform::user {

void RegisterButtonClass();
void RegisterStaticClass();
void RegisterHeaderClass();
void RegisterListViewClass();

void RegisterSystemClasses() {
    static bool registered = false;
    if (registered)
        return;
    registered = true;
    RegisterButtonClass();
    RegisterStaticClass();
    RegisterHeaderClass();
    RegisterListViewClass();
}

} // namespace platform::user
