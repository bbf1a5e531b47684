// Runtime string helpers under their generic-text names.
#pragma once

#include "windef.h"

// A copy of text in memory from malloc (free it with free); null when text is
// null or memory runs out.
WCHAR* _wcsdup(const WCHAR* text);
#define _tcsdup _wcsdup
