// A document that can report an identity, so that it can be found again
// among its template's documents (WinUtils::FindDocWithID).
#pragma once

#include <afxwin.h>

class CDocWithID : public CDocument {
public:
    CDocWithID();
    ~CDocWithID() override;

    // A pointer that identifies the document, compared by identity; null
    // unless a derived document says otherwise.
    virtual const void* GetID();
};
