// A string loaded from the host's string table when it is constructed; empty
// when no resource module has the identifier.
#pragma once

#include <afxwin.h>

class CResourceString : public CString {
public:
    explicit CResourceString(UINT id) { LoadString(id); }
    virtual ~CResourceString() = default;
};
