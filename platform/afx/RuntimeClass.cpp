#include "afxwin.h"

#include <cstring>

CRuntimeClass CObject::classCObject = {"CObject", sizeof(CObject), 0xFFFF,
                                       nullptr,   nullptr,         nullptr};

CRuntimeClass* CObject::GetThisClass() {
    return &classCObject;
}

CRuntimeClass* CObject::GetRuntimeClass() const {
    return &classCObject;
}

BOOL CObject::IsKindOf(const CRuntimeClass* runtimeClass) const {
    return GetRuntimeClass()->IsDerivedFrom(runtimeClass);
}

void CObject::Serialize(CArchive&) {}

CObject* CRuntimeClass::CreateObject() {
    if (!m_pfnCreateObject)
        return nullptr;
    try {
        return m_pfnCreateObject();
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    }
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const {
    for (const CRuntimeClass* c = this; c;
         c = c->m_pfnGetBaseClass ? c->m_pfnGetBaseClass() : nullptr)
        if (c == base)
            return TRUE;
    return FALSE;
}

namespace {
CRuntimeClass* FindIn(CRuntimeClass* list, LPCSTR name) {
    for (CRuntimeClass* c = list; c; c = c->m_pNextClass)
        if (std::strcmp(c->m_lpszClassName, name) == 0)
            return c;
    return nullptr;
}
} // namespace

CRuntimeClass* CRuntimeClass::FromName(LPCSTR className) {
    if (!className)
        return nullptr;
    AFX_MODULE_STATE* state = AfxGetModuleState();
    if (CRuntimeClass* c = FindIn(state->m_classList, className))
        return c;
    for (CDynLinkLibrary* dll = state->m_libraryList; dll; dll = dll->m_pNextDLL)
        if (CRuntimeClass* c = FindIn(dll->m_classList, className))
            return c;
    return nullptr;
}

CRuntimeClass* CRuntimeClass::FromName(LPCWSTR className) {
    if (!className)
        return nullptr;
    return FromName(platform::ToUtf8(className).c_str());
}

CObject* CRuntimeClass::CreateObject(LPCSTR className) {
    CRuntimeClass* c = FromName(className);
    return c ? c->CreateObject() : nullptr;
}

CObject* CRuntimeClass::CreateObject(LPCWSTR className) {
    CRuntimeClass* c = FromName(className);
    return c ? c->CreateObject() : nullptr;
}

AFX_CLASSINIT::AFX_CLASSINIT(CRuntimeClass* newClass) {
    AFX_MODULE_STATE* state = AfxGetModuleState();
    // A module's static constructors may run after its entry joined the chain
    // (the order inside one source file is the compiler's): such a class goes
    // straight to its module's list.
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                           GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(newClass), &module);
    for (CDynLinkLibrary* dll = state->m_libraryList; dll; dll = dll->m_pNextDLL) {
        if (module && dll->m_hModule == module) {
            newClass->m_pNextClass = dll->m_classList;
            dll->m_classList = newClass;
            return;
        }
    }
    newClass->m_pNextClass = state->m_classList;
    state->m_classList = newClass;
}

CObject* AfxDynamicDownCast(CRuntimeClass* runtimeClass, CObject* object) {
    return object && object->IsKindOf(runtimeClass) ? object : nullptr;
}
