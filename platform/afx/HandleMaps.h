// The framework's maps from handles to C++ objects: permanent entries for
// objects that own their handle, and temporary wrappers made by FromHandle that
// live until the handle is destroyed.
#pragma once

#include <afxwin.h>

namespace platform::afx {

void AttachPermanent(void* handle, CObject* object);
void DetachPermanent(void* handle);
CObject* FindObject(void* handle);
// Keeps a wrapper made for a handle nobody owns.
void AddTemporary(void* handle, CObject* wrapper);

} // namespace platform::afx
