// Run-time class information: class names, base classes and creation by name
// for CObject-derived classes.
#pragma once

#include "windef.h"

class CArchive;
class CObject;

struct CRuntimeClass {
    LPCSTR m_lpszClassName;
    int m_nObjectSize;
    UINT m_wSchema;
    CObject* (*m_pfnCreateObject)();
    CRuntimeClass* (*m_pfnGetBaseClass)();
    // Next class of the same module's list.
    CRuntimeClass* m_pNextClass;

    // A new object, or null when the class is not dynamically creatable.
    CObject* CreateObject();
    BOOL IsDerivedFrom(const CRuntimeClass* base) const;

    // Searches the application's classes, then every extension module's.
    static CRuntimeClass* FromName(LPCSTR className);
    static CRuntimeClass* FromName(LPCWSTR className);
    static CObject* CreateObject(LPCSTR className);
    static CObject* CreateObject(LPCWSTR className);

    // The class's tag in an archive: its schema, the length of its name and
    // the name's characters. Load gives null for a class it does not know.
    void Store(CArchive& ar) const;
    static CRuntimeClass* Load(CArchive& ar, UINT* schema);
};

// Adds a class to the list of the module being loaded (or the application's).
struct AFX_CLASSINIT {
    explicit AFX_CLASSINIT(CRuntimeClass* newClass);
};

#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())

#define DECLARE_DYNAMIC(class_name)                                                                \
public:                                                                                            \
    static CRuntimeClass class##class_name;                                                        \
    static CRuntimeClass* GetThisClass();                                                          \
    CRuntimeClass* GetRuntimeClass() const override;

#define DECLARE_DYNCREATE(class_name)                                                              \
    DECLARE_DYNAMIC(class_name)                                                                    \
    static CObject* CreateObject();

// A serializable class is created from an archive by the class it names there.
#define DECLARE_SERIAL(class_name)                                                                 \
    DECLARE_DYNCREATE(class_name)                                                                  \
    friend CArchive& operator>>(CArchive& ar, class_name*& object);

#define IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, wSchema, pfnNew)                       \
    CRuntimeClass class_name::class##class_name = {                                                \
        #class_name, sizeof(class class_name),       wSchema,                                      \
        pfnNew,      &base_class_name::GetThisClass, nullptr};                                     \
    CRuntimeClass* class_name::GetThisClass() {                                                    \
        return &class_name::class##class_name;                                                     \
    }                                                                                              \
    CRuntimeClass* class_name::GetRuntimeClass() const {                                           \
        return &class_name::class##class_name;                                                     \
    }

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                             \
    IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xFFFF, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                                           \
    CObject* class_name::CreateObject() {                                                          \
        return new class_name;                                                                     \
    }                                                                                              \
    IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xFFFF, class_name::CreateObject)          \
    static const AFX_CLASSINIT _init_##class_name(RUNTIME_CLASS(class_name));

#define IMPLEMENT_SERIAL(class_name, base_class_name, wSchema)                                     \
    CObject* class_name::CreateObject() {                                                          \
        return new class_name;                                                                     \
    }                                                                                              \
    IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, wSchema, class_name::CreateObject)         \
    static const AFX_CLASSINIT _init_##class_name(RUNTIME_CLASS(class_name));                      \
    CArchive& operator>>(CArchive& ar, class_name*& object) {                                      \
        object = static_cast<class_name*>(ar.ReadObject(RUNTIME_CLASS(class_name)));               \
        return ar;                                                                                 \
    }

// The object as a pointer to class when it is one (IsKindOf), else null.
CObject* AfxDynamicDownCast(CRuntimeClass* runtimeClass, CObject* object);
#define DYNAMIC_DOWNCAST(class_name, object)                                                       \
    (static_cast<class_name*>(AfxDynamicDownCast(RUNTIME_CLASS(class_name), object)))
#define STATIC_DOWNCAST(class_name, object) (static_cast<class_name*>(object))
