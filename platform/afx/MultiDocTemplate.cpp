// CMultiDocTemplate: any number of documents, each in its own MDI document
// frame, sharing the template's menu and accelerators.
#include <afxwin.h>

#include "FrameworkStrings.h"

IMPLEMENT_DYNAMIC(CMultiDocTemplate, CDocTemplate)

CMultiDocTemplate::CMultiDocTemplate(UINT idResource, CRuntimeClass* docClass,
                                     CRuntimeClass* frameClass, CRuntimeClass* viewClass)
    : CDocTemplate(idResource, docClass, frameClass, viewClass) {}

CMultiDocTemplate::~CMultiDocTemplate() {
    // Documents still open no longer have this template.
    for (POSITION pos = m_docList.GetHeadPosition(); pos;) {
        auto* doc = static_cast<CDocument*>(m_docList.GetNext(pos));
        CDocTemplate::RemoveDocument(doc);
    }
    if (m_hMenuShared)
        ::DestroyMenu(m_hMenuShared);
}

void CMultiDocTemplate::LoadTemplate() {
    CDocTemplate::LoadTemplate();
    if (m_nIDResource && !m_hMenuShared) {
        LPCTSTR name = MAKEINTRESOURCE(m_nIDResource);
        HINSTANCE module = AfxFindResourceHandle(name, RT_MENU);
        m_hMenuShared = ::LoadMenu(module, name);
        m_hAccelTable = ::LoadAccelerators(module, name);
    }
}

void CMultiDocTemplate::AddDocument(CDocument* doc) {
    CDocTemplate::AddDocument(doc);
    m_docList.AddTail(doc);
}

void CMultiDocTemplate::RemoveDocument(CDocument* doc) {
    CDocTemplate::RemoveDocument(doc);
    if (POSITION pos = m_docList.Find(doc))
        m_docList.RemoveAt(pos);
}

CDocument* CMultiDocTemplate::GetNextDoc(POSITION& pos) const {
    return static_cast<CDocument*>(m_docList.GetNext(pos));
}

void CMultiDocTemplate::SetDefaultTitle(CDocument* doc) {
    CString title;
    if (GetDocString(title, docName) && !title.IsEmpty()) {
        CString number;
        number.Format(u"%u", m_nUntitledCount + 1);
        title += number;
    } else {
        title = platform::afx::FrameworkString(AFX_IDS_UNTITLED);
    }
    doc->SetTitle(title);
}

CDocument* CMultiDocTemplate::OpenDocumentFile(LPCTSTR pathName, BOOL makeVisible) {
    CDocument* doc = CreateNewDocument();
    if (!doc) {
        AfxMessageBox(platform::afx::FrameworkString(AFX_IDP_FAILED_TO_CREATE_DOC));
        return nullptr;
    }
    // The document must outlive a frame that fails on the way.
    const BOOL autoDelete = doc->m_bAutoDelete;
    doc->m_bAutoDelete = FALSE;
    CFrameWnd* frame = CreateNewFrame(doc, nullptr);
    doc->m_bAutoDelete = autoDelete;
    if (!frame) {
        AfxMessageBox(platform::afx::FrameworkString(AFX_IDP_FAILED_TO_CREATE_DOC));
        delete doc;
        return nullptr;
    }
    if (!pathName) {
        SetDefaultTitle(doc);
        if (!makeVisible)
            doc->m_bEmbedded = TRUE;
        if (!doc->OnNewDocument()) {
            // Destroying the frame closes the document with its last view.
            frame->DestroyWindow();
            return nullptr;
        }
        ++m_nUntitledCount;
    } else {
        CWaitCursor wait;
        if (!doc->OnOpenDocument(pathName)) {
            frame->DestroyWindow();
            return nullptr;
        }
        doc->SetPathName(pathName);
    }
    InitialUpdateFrame(frame, doc, makeVisible);
    return doc;
}
