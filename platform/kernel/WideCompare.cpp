// The runtime's case-insensitive comparison of wide strings in the "C" locale.
#include "tchar.h"

namespace {

// Only A to Z fold; every other character compares as it is.
int Folded(WCHAR c) {
    return c >= u'A' && c <= u'Z' ? c - u'A' + u'a' : c;
}

} // namespace

int _wcsnicmp(const WCHAR* a, const WCHAR* b, size_t count) {
    if (count == 0)
        return 0;
    if (!a || !b)
        return _NLSCMPERROR;
    for (size_t i = 0; i < count; ++i) {
        const int x = Folded(a[i]);
        const int y = Folded(b[i]);
        if (x != y)
            return x - y;
        if (x == 0)
            return 0;
    }
    return 0;
}
