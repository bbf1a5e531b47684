// The window classes the system provides: registered once, before the first
// window is created.
#include "../WindowManager.h"

namespace platform::user {

void RegisterButtonClass();
void RegisterStaticClass();
void RegisterHeaderClass();
void RegisterListViewClass();
void RegisterEditClass();
void RegisterComboBoxClass();

void RegisterSystemClasses() {
    static bool registered = false;
    if (registered)
        return;
    registered = true;
    RegisterButtonClass();
    RegisterStaticClass();
    RegisterHeaderClass();
    RegisterListViewClass();
    RegisterEditClass();
    RegisterComboBoxClass();
}

} // namespace platform::user
