// Runtime string helpers under their generic-text names.
#pragma once

#include "windef.h"

// Both forms of the C library's header come first, so that the atof below
// renames only calls, never the library's own declarations.
#include <cstdlib>
#include <stdlib.h>

// A copy of text in memory from malloc (free it with free); null when text is
// null or memory runs out.
WCHAR* _wcsdup(const WCHAR* text);
#define _tcsdup _wcsdup

// Compares at most count characters of a and b without regard to case, as
// the runtime does in the "C" locale: only A to Z fold (to lower case), and
// the comparison stops at a NUL. Negative, 0 or positive as a is less than,
// equal to or greater than b; a count of 0 gives 0. A null string (with a
// count above 0) gives _NLSCMPERROR.
#define _NLSCMPERROR 0x7FFFFFFF
int _wcsnicmp(const WCHAR* a, const WCHAR* b, size_t count);
#define _tcsnicmp _wcsnicmp

// Numbers read as the runtime reads them in the "C" locale: leading white
// space, an optional sign, then digits up to the first other character.
// Nothing usable gives 0; nan, inf and hexadecimal forms are not numbers.
//
// An int; values beyond its range give INT_MAX or INT_MIN.
int _wtoi(const WCHAR* text);
#define _ttoi _wtoi
#define _tstoi _wtoi

namespace platform {
// A double: digits with an optional full stop and fraction, then an optional
// exponent ("e" or "E", a sign, digits). Too large gives an infinity.
double atof(const char* text);
} // namespace platform
// The C library's atof also reads nan, inf and hexadecimal numbers, which the
// runtime did not; code written against the runtime gets its behaviour.
#define atof platform::atof
