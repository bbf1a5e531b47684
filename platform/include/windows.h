// The platform's C interface: types, GDI and the window system.
#pragma once

#include "windef.h"
#include "winbase.h"
#include "wingdi.h"
#include "winuser.h"
