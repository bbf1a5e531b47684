// Choosing the ANSI code page that the narrow-text conversions use.
#pragma once

#include "../windef.h"

namespace platform {
// 1252 by default; CP_ACP goes back to it.
void SetAnsiCodePage(UINT codePage);
} // namespace platform
