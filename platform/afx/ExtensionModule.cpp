// The module state, the chain of extension modules and string resources.
#include "afxwin.h"

#include "platform/ResourceModule.h"

#include <algorithm>
#include <atomic>
#include <unordered_map>

namespace platform::detail {
// Bumped by every change to a string table, the chain or the resource
// handle; string lookups cached under an older value are stale.
std::atomic<unsigned> g_resourceGeneration{1};
} // namespace platform::detail

namespace {
using platform::detail::g_resourceGeneration;
void ResourcesChanged() {
    if (++g_resourceGeneration == 0) // 0 stays free to mean "never looked up"
        ++g_resourceGeneration;
}
} // namespace

namespace {
// Reached directly from this file, without the exported entry point.
AFX_MODULE_STATE& State() {
    static AFX_MODULE_STATE state = [] {
        AFX_MODULE_STATE s;
        s.m_hCurrentInstanceHandle = GetModuleHandleW(nullptr);
        s.m_hCurrentResourceHandle = s.m_hCurrentInstanceHandle;
        return s;
    }();
    return state;
}
} // namespace

AFX_MODULE_STATE* AfxGetModuleState() {
    return &State();
}

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module) {
    AFX_MODULE_STATE* moduleState = AfxGetModuleState();
    if (state.bInitialized)
        return TRUE;
    CRuntimeClass* own = moduleState->m_classList;
    moduleState->m_classList = moduleState->m_pClassInit;
    moduleState->m_pClassInit = nullptr;
    if (!module)
        return FALSE;
    state.hModule = module;
    state.hResource = module;
    state.pFirstSharedClass = own;
    state.bInitialized = TRUE;
    return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL all) {
    AFX_MODULE_STATE* moduleState = AfxGetModuleState();
    CDynLinkLibrary* dll = moduleState->m_libraryList;
    while (dll) {
        CDynLinkLibrary* next = dll->m_pNextDLL;
        if (all || dll->m_hModule == state.hModule)
            delete dll; // unlinks itself
        dll = next;
    }
    state.bInitialized = FALSE;
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL system)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_classList(state.pFirstSharedClass),
      m_bSystem(system) {
    CDynLinkLibrary** tail = &AfxGetModuleState()->m_libraryList;
    while (*tail)
        tail = &(*tail)->m_pNextDLL;
    *tail = this;
    ResourcesChanged();
}

CDynLinkLibrary::~CDynLinkLibrary() {
    for (CDynLinkLibrary** p = &AfxGetModuleState()->m_libraryList; *p; p = &(*p)->m_pNextDLL) {
        if (*p == this) {
            *p = m_pNextDLL;
            break;
        }
    }
    ResourcesChanged();
}

HINSTANCE AfxGetInstanceHandle() {
    return AfxGetModuleState()->m_hCurrentInstanceHandle;
}

HINSTANCE AfxGetResourceHandle() {
    return AfxGetModuleState()->m_hCurrentResourceHandle;
}

void AfxSetResourceHandle(HINSTANCE resource) {
    AfxGetModuleState()->m_hCurrentResourceHandle = resource;
    ResourcesChanged();
}

namespace {

std::unordered_map<HINSTANCE, platform::ResourceModule>& Tables() {
    static std::unordered_map<HINSTANCE, platform::ResourceModule> tables;
    return tables;
}

const CString* FindString(HINSTANCE module, UINT id) {
    auto& tables = Tables();
    auto it = tables.find(module);
    return it == tables.end() ? nullptr : it->second.FindString(id);
}

// The chain: the application's resource module, then each extension module.
const CString* SearchChain(UINT id, HINSTANCE* found) {
    AFX_MODULE_STATE* state = AfxGetModuleState();
    if (const CString* s = FindString(state->m_hCurrentResourceHandle, id)) {
        if (found)
            *found = state->m_hCurrentResourceHandle;
        return s;
    }
    for (CDynLinkLibrary* dll = state->m_libraryList; dll; dll = dll->m_pNextDLL) {
        if (const CString* s = FindString(dll->m_hResource, id)) {
            if (found)
                *found = dll->m_hResource;
            return s;
        }
    }
    return nullptr;
}

// Strings are loaded for every exported field, so recent lookups are kept in a
// small direct-mapped table per thread, valid for one resource generation.
// The table is small enough for the initial-exec model, which spares a call
// to the dynamic TLS resolver on every lookup.
const CString* FindInChain(UINT id, HINSTANCE* found) {
    struct Entry {
        unsigned generation = 0;
        UINT id = 0;
        HINSTANCE module = nullptr;
        const CString* text = nullptr;
        HINSTANCE found = nullptr;
    };
    [[gnu::tls_model("initial-exec")]] thread_local Entry cache[16];
    Entry& e = cache[id % 16];
    const unsigned generation = g_resourceGeneration.load(std::memory_order_relaxed);
    const HINSTANCE resource = State().m_hCurrentResourceHandle;
    if (e.generation != generation || e.id != id || e.module != resource) {
        HINSTANCE where = nullptr;
        e.text = SearchChain(id, &where);
        e.generation = generation;
        e.id = id;
        e.module = resource;
        e.found = where;
    }
    if (found)
        *found = e.found;
    return e.text;
}

} // namespace

namespace platform {
void ResourceModule::SetString(UINT id, const CString& text) {
    m_strings[id] = text;
    ResourcesChanged();
}
void ResourceModule::RemoveString(UINT id) {
    m_strings.erase(id);
    ResourcesChanged();
}
ResourceModule& Resources(HINSTANCE module) {
    return Tables()[module];
}
const ResourceModule* FindResources(HINSTANCE module) {
    auto it = Tables().find(module);
    return it == Tables().end() ? nullptr : &it->second;
}
void ReleaseResources(HINSTANCE module) {
    Tables().erase(module);
    ResourcesChanged();
}
} // namespace platform

HINSTANCE AfxFindStringResourceHandle(UINT id) {
    HINSTANCE found = nullptr;
    FindInChain(id, &found);
    return found;
}

int LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int size) {
    const CString* s = FindString(module, id);
    if (!s || !buffer || size <= 0)
        return 0;
    const int n = std::min(s->GetLength(), size - 1);
    std::copy_n(s->GetString(), n, buffer);
    buffer[n] = u'\0';
    return n;
}

BOOL CString::LoadString(UINT id) {
    const CString* s = FindInChain(id, nullptr);
    if (!s)
        return FALSE;
    *this = *s;
    return TRUE;
}
