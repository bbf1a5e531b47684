// CDocManager: the application's document templates.
#include <afxwin.h>

#include "FrameworkStrings.h"

CDocManager::~CDocManager() {
    while (!m_templateList.IsEmpty())
        delete static_cast<CDocTemplate*>(m_templateList.RemoveHead());
}

void CDocManager::AddDocTemplate(CDocTemplate* docTemplate) {
    if (!docTemplate)
        return;
    docTemplate->LoadTemplate();
    m_templateList.AddTail(docTemplate);
}

CDocTemplate* CDocManager::GetNextDocTemplate(POSITION& pos) const {
    return static_cast<CDocTemplate*>(m_templateList.GetNext(pos));
}

CDocument* CDocManager::OpenDocumentFile(LPCTSTR pathName) {
    CDocTemplate* best = nullptr;
    CDocTemplate::Confidence bestMatch = CDocTemplate::noAttempt;
    CDocument* open = nullptr;
    for (POSITION pos = GetFirstDocTemplatePosition(); pos;) {
        CDocTemplate* docTemplate = GetNextDocTemplate(pos);
        CDocument* match = nullptr;
        const CDocTemplate::Confidence confidence = docTemplate->MatchDocType(pathName, match);
        if (confidence > bestMatch) {
            bestMatch = confidence;
            best = docTemplate;
            open = match;
        }
        if (confidence == CDocTemplate::yesAlreadyOpen)
            break;
    }
    if (open) {
        // Brought forward rather than opened twice.
        POSITION pos = open->GetFirstViewPosition();
        CFrameWnd* frame = pos ? open->GetNextView(pos)->GetParentFrame() : nullptr;
        if (frame)
            frame->ActivateFrame();
        return open;
    }
    if (!best) {
        AfxMessageBox(platform::afx::FrameworkString(AFX_IDP_FAILED_TO_OPEN_DOC));
        return nullptr;
    }
    return best->OpenDocumentFile(pathName);
}

BOOL CDocManager::SaveAllModified() {
    for (POSITION pos = GetFirstDocTemplatePosition(); pos;)
        if (!GetNextDocTemplate(pos)->SaveAllModified())
            return FALSE;
    return TRUE;
}

void CDocManager::CloseAllDocuments(BOOL endSession) {
    for (POSITION pos = GetFirstDocTemplatePosition(); pos;)
        GetNextDocTemplate(pos)->CloseAllDocuments(endSession);
}

int CDocManager::GetOpenDocumentCount() const {
    int count = 0;
    for (POSITION pos = GetFirstDocTemplatePosition(); pos;) {
        CDocTemplate* docTemplate = GetNextDocTemplate(pos);
        for (POSITION doc = docTemplate->GetFirstDocPosition(); doc; docTemplate->GetNextDoc(doc))
            ++count;
    }
    return count;
}
