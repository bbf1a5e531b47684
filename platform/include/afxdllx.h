// Included by exactly one source file of an extension module, which defines
// DllMain. Supplies the module's entry: the raw entry runs before the module's
// static constructors and puts the classes registered so far aside, so the
// module's own classes collect in a fresh list; DllMain then runs once the
// module's constructors have run (the file must come last in the link) and
// again when the module is unloaded.
#pragma once

#include "afxdll_.h"

extern "C" __attribute__((visibility("hidden"))) BOOL DllMain(HINSTANCE instance, DWORD reason,
                                                              LPVOID reserved);

namespace {

HINSTANCE AfxThisModule() {
    HMODULE module = nullptr;
    static const char marker = 0;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                           GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&marker), &module);
    return module;
}

__attribute__((constructor(101))) void ExtRawDllMain() {
    AFX_MODULE_STATE* state = AfxGetModuleState();
    state->m_pClassInit = state->m_classList;
    state->m_classList = nullptr;
}

__attribute__((constructor)) void AfxDllProcessAttach() {
    // A failed attach leaves the module out of the chain; the loader of this
    // platform cannot refuse a library once its constructors run.
    DllMain(AfxThisModule(), DLL_PROCESS_ATTACH, nullptr);
}

__attribute__((destructor)) void AfxDllProcessDetach() {
    DllMain(AfxThisModule(), DLL_PROCESS_DETACH, nullptr);
}

} // namespace
