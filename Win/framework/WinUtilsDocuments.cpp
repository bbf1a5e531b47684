// WinUtils: document templates, documents and views found by the resource
// identifier of their template, new views, and closing every document.
#include "Win/framework/CDocWithID.h"
#include "Win/utils/CResourceString.h"
#include "Win/utils/WinUtils.h"

#include <algorithm>
#include <vector>

namespace {

// The first document of a template, or null.
CDocument* FirstDocument(CDocTemplate* docTemplate) {
    POSITION pos = docTemplate->GetFirstDocPosition();
    return pos ? docTemplate->GetNextDoc(pos) : nullptr;
}

CView* FirstView(const CDocument* doc) {
    POSITION pos = doc ? doc->GetFirstViewPosition() : nullptr;
    return pos ? doc->GetNextView(pos) : nullptr;
}

} // namespace

CDocTemplate* WinUtils::FindDocTemplate(UINT nID) {
    // A template is known by its document name, the second line of its string.
    CResourceString strings(nID);
    CString name;
    if (!AfxExtractSubString(name, strings, 1, u'\n'))
        return nullptr;
    CWinApp* app = AfxGetApp();
    if (!app)
        return nullptr;
    for (POSITION pos = app->GetFirstDocTemplatePosition(); pos;) {
        CDocTemplate* docTemplate = app->GetNextDocTemplate(pos);
        if (!docTemplate)
            continue;
        CString docName;
        docTemplate->GetDocString(docName, CDocTemplate::docName);
        if (docName.Compare(name) == 0)
            return docTemplate;
    }
    return nullptr;
}

CView* WinUtils::FindView(UINT nID) {
    CDocTemplate* docTemplate = FindDocTemplate(nID);
    return docTemplate ? FirstView(FirstDocument(docTemplate)) : nullptr;
}

CDocument* WinUtils::FindDoc(UINT nID, const CString& strPathName) {
    CDocTemplate* docTemplate = FindDocTemplate(nID);
    if (!docTemplate)
        return nullptr;
    for (POSITION pos = docTemplate->GetFirstDocPosition(); pos;) {
        CDocument* doc = docTemplate->GetNextDoc(pos);
        if (doc && doc->GetPathName().Compare(strPathName) == 0)
            return doc;
    }
    return nullptr;
}

CDocument* WinUtils::FindDocWithID(UINT nID, void* pID) {
    CDocTemplate* docTemplate = FindDocTemplate(nID);
    if (!docTemplate)
        return nullptr;
    for (POSITION pos = docTemplate->GetFirstDocPosition(); pos;) {
        auto* doc = dynamic_cast<CDocWithID*>(docTemplate->GetNextDoc(pos));
        if (doc && doc->GetID() == pID)
            return doc;
    }
    return nullptr;
}

CView* WinUtils::CreateView(UINT nID, bool bMakeVisible) {
    CDocTemplate* docTemplate = FindDocTemplate(nID);
    if (!docTemplate)
        return nullptr;
    CDocument* doc = docTemplate->OpenDocumentFile(nullptr, bMakeVisible ? TRUE : FALSE);
    CView* view = FirstView(doc);
    if (!view)
        return nullptr;
    if (CWnd* parent = view->GetParent())
        parent->ShowWindow(SW_SHOWMAXIMIZED);
    return view;
}

CView* WinUtils::CreateNewView(UINT nID, CDocument* pDoc) {
    CWaitCursor wait;
    if (!pDoc)
        return nullptr;
    CDocTemplate* docTemplate = FindDocTemplate(nID);
    if (!docTemplate)
        return nullptr;
    Sleep(0);
    CFrameWnd* frame = docTemplate->CreateNewFrame(pDoc, nullptr);
    if (!frame)
        return nullptr;
    docTemplate->InitialUpdateFrame(frame, pDoc, TRUE);
    // The document is found through this template from now on too.
    docTemplate->AddDocument(pDoc);
    return frame->GetActiveView();
}

bool WinUtils::CloseAllDocuments() {
    CWinApp* app = AfxGetApp();
    if (!app)
        return true;
    for (POSITION pos = app->GetFirstDocTemplatePosition(); pos;) {
        CDocTemplate* docTemplate = app->GetNextDocTemplate(pos);
        if (!docTemplate)
            continue;
        // Closing a document takes it out of every list that holds it, so the
        // walk looks for the next one again after each close, passing over
        // those it has dealt with.
        std::vector<CDocument*> done;
        for (;;) {
            CDocument* next = nullptr;
            for (POSITION doc = docTemplate->GetFirstDocPosition(); doc && !next;) {
                CDocument* candidate = docTemplate->GetNextDoc(doc);
                if (candidate && std::find(done.begin(), done.end(), candidate) == done.end())
                    next = candidate;
            }
            if (!next)
                break;
            done.push_back(next);
            if (!next->SaveModified())
                return false;
            next->OnCloseDocument();
        }
    }
    return true;
}

bool WinUtils::ActivateDoc(const CDocument* pDoc) {
    CView* view = FirstView(pDoc);
    CFrameWnd* frame = view ? view->GetParentFrame() : nullptr;
    if (!frame)
        return false;
    frame->BringWindowToTop();
    if (frame->IsIconic())
        frame->ShowWindow(SW_SHOWNORMAL);
    return true;
}
