// A host built against the installed package: it includes the umbrella header
// and uses a class from it.
#include <Win/Win.h>

#include <cstdio>

int main() {
    CursorPos a(2, 5), b(3, 0);
    if (!(a < b)) {
        std::puts("ordering of CursorPos is wrong");
        return 1;
    }
    std::puts("consumer ok");
    return 0;
}
