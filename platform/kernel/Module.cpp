// Module handles: a shared library's handle is its load address, as on the
// original platform; the application has a handle of its own.
#include "winbase.h"

#include <dlfcn.h>

namespace {
// The application's module handle; nothing is loaded at this address.
char g_applicationModule;
} // namespace

BOOL GetModuleHandleExW(DWORD flags, LPCWSTR name, HMODULE* module) {
    if (!module) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    *module = nullptr;
    if (flags & GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS) {
        Dl_info info{};
        if (!name || dladdr(reinterpret_cast<const void*>(name), &info) == 0 || !info.dli_fbase) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return FALSE;
        }
        *module = static_cast<HMODULE>(info.dli_fbase);
        return TRUE;
    }
    if (!name) {
        *module = reinterpret_cast<HMODULE>(&g_applicationModule);
        return TRUE;
    }
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

HMODULE GetModuleHandleW(LPCWSTR name) {
    HMODULE module = nullptr;
    GetModuleHandleExW(0, name, &module);
    return module;
}
