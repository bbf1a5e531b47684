// CDocTemplate: the template strings, and making documents and frames from
// the template's classes.
#include <afxwin.h>

#include <algorithm>
#include <vector>

IMPLEMENT_DYNAMIC(CDocTemplate, CCmdTarget)

CDocTemplate::CDocTemplate(UINT idResource, CRuntimeClass* docClass, CRuntimeClass* frameClass,
                           CRuntimeClass* viewClass)
    : m_nIDResource(idResource), m_pDocClass(docClass), m_pFrameClass(frameClass),
      m_pViewClass(viewClass) {}

CDocTemplate::~CDocTemplate() = default;

void CDocTemplate::LoadTemplate() {
    // A template without strings still works; its documents are untitled.
    if (m_strDocStrings.IsEmpty())
        m_strDocStrings.LoadString(m_nIDResource);
}

void CDocTemplate::AddDocument(CDocument* doc) {
    doc->m_pDocTemplate = this;
}

void CDocTemplate::RemoveDocument(CDocument* doc) {
    // A document listed by two templates belongs to the one that added it last.
    if (doc->m_pDocTemplate == this)
        doc->m_pDocTemplate = nullptr;
}

BOOL CDocTemplate::GetDocString(CString& string, DocStringIndex index) const {
    return AfxExtractSubString(string, m_strDocStrings, static_cast<int>(index));
}

CDocTemplate::Confidence CDocTemplate::MatchDocType(LPCTSTR pathName, CDocument*& match) {
    match = nullptr;
    const CString path = pathName;
    for (POSITION pos = GetFirstDocPosition(); pos;) {
        CDocument* doc = GetNextDoc(pos);
        // Paths name files exactly on this system.
        if (!path.IsEmpty() && doc->GetPathName() == path) {
            match = doc;
            return yesAlreadyOpen;
        }
    }
    CString extension;
    if (GetDocString(extension, filterExt) && !extension.IsEmpty() &&
        path.GetLength() >= extension.GetLength() &&
        path.Right(extension.GetLength()).CompareNoCase(extension) == 0)
        return yesAttemptNative;
    return yesAttemptForeign;
}

CDocument* CDocTemplate::CreateNewDocument() {
    CObject* object = m_pDocClass ? m_pDocClass->CreateObject() : nullptr;
    if (!object)
        return nullptr;
    if (!object->IsKindOf(RUNTIME_CLASS(CDocument))) {
        delete object;
        return nullptr;
    }
    auto* doc = static_cast<CDocument*>(object);
    AddDocument(doc);
    return doc;
}

CFrameWnd* CDocTemplate::CreateNewFrame(CDocument* doc, CFrameWnd* other) {
    CCreateContext context;
    context.m_pCurrentFrame = other;
    context.m_pCurrentDoc = doc;
    context.m_pNewViewClass = m_pViewClass;
    context.m_pNewDocTemplate = this;
    CObject* object = m_pFrameClass ? m_pFrameClass->CreateObject() : nullptr;
    if (!object)
        return nullptr;
    if (!object->IsKindOf(RUNTIME_CLASS(CFrameWnd))) {
        delete object;
        return nullptr;
    }
    auto* frame = static_cast<CFrameWnd*>(object);
    // A frame that fails deletes itself.
    if (!frame->LoadFrame(m_nIDResource, WS_OVERLAPPEDWINDOW | FWS_ADDTOTITLE, nullptr, &context))
        return nullptr;
    return frame;
}

void CDocTemplate::InitialUpdateFrame(CFrameWnd* frame, CDocument* doc, BOOL makeVisible) {
    frame->InitialUpdateFrame(doc, makeVisible);
}

BOOL CDocTemplate::SaveAllModified() {
    for (POSITION pos = GetFirstDocPosition(); pos;)
        if (!GetNextDoc(pos)->SaveModified())
            return FALSE;
    return TRUE;
}

void CDocTemplate::CloseAllDocuments(BOOL) {
    // Each close may take documents out of the list (a document can stand
    // in it twice), so the walk starts again after every close and skips the
    // documents it has closed or found unwilling to go.
    std::vector<CDocument*> done;
    for (;;) {
        CDocument* next = nullptr;
        for (POSITION pos = GetFirstDocPosition(); pos && !next;) {
            CDocument* doc = GetNextDoc(pos);
            if (std::find(done.begin(), done.end(), doc) == done.end())
                next = doc;
        }
        if (!next)
            return;
        done.push_back(next);
        next->OnCloseDocument();
    }
}
