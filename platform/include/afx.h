// The class framework's core: objects, strings and value types.
#pragma once

#include "windows.h"

#include "afxstr.h"
#include "atltypes.h"

#ifndef ASSERT
#define ASSERT(f) ((void)0)
#endif
#ifndef VERIFY
#define VERIFY(f) ((void)(f))
#endif

struct CRuntimeClass;
class CArchive;

// Names an element of a framework collection.
struct __POSITION {};
typedef __POSITION* POSITION;

class CObject {
public:
    virtual ~CObject() = default;
    virtual CRuntimeClass* GetRuntimeClass() const;
    BOOL IsKindOf(const CRuntimeClass* runtimeClass) const;
    virtual void Serialize(CArchive& ar);

    static CRuntimeClass classCObject;
    static CRuntimeClass* GetThisClass();

protected:
    CObject() = default;

private:
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
};

#include "afxarchive.h"
#include "afxcoll.h"
#include "afxexcept.h"
#include "afxfile.h"
#include "afxruntime.h"
#include "atltime.h"
