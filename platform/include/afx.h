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

class CObject {
public:
    virtual ~CObject() = default;

protected:
    CObject() = default;

private:
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
};
