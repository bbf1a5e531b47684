// The window classes the system provides: registered once, before the first
// window is created.
#include "../WindowManager.h"

namespace platform::user {

void RegisterButtonClass();
void RegisterStaticClass();
void RegisterEditClass();
void RegisterComboBoxClass();

void RegisterSystemClasses() {
    static bool registered = false;
    if (registered)
        return;
    registered = true;
    RegisterButtonClass();
    RegisterStaticClass();
    RegisterEditClass();
    RegisterComboBoxClass();
}

} // namespace platform::user
