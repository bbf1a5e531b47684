#include "ForeignWindows.h"

namespace platform::user {
namespace {

ForeignWindows* g_foreign = nullptr;

} // namespace

ForeignWindows* Foreign() {
    return g_foreign;
}

void SetForeign(ForeignWindows* windows) {
    g_foreign = windows;
}

} // namespace platform::user
