// The platform's C interface: types, GDI and the window system.
#pragma once

#include "commdlg.h"
#include "winbase.h"
#include "windef.h"
#include "wingdi.h"
#include "winuser.h"
