// A host built against the installed package: it includes the umbrella header
// and calls into both shared libraries, the library and the platform.
#include <Win/Win.h>

#include <cstdio>

int main() {
    CursorPos a(2, 5), b(3, 0);
    if (!(a < b)) {
        std::puts("ordering of CursorPos is wrong");
        return 1;
    }
    CExportFormat format;
    format.SetFilename(u"orders.csv");
    if (format.FormatData(u"a,b", false) != CString(u",\"a,b\"")) {
        std::puts("comma-separated field is wrong");
        return 1;
    }
    std::puts("consumer ok");
    return 0;
}
