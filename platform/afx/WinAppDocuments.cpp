// CWinApp's documents: the template list and what closes or saves them all.
#include <afxwin.h>

void CWinApp::AddDocTemplate(CDocTemplate* docTemplate) {
    if (!m_pDocManager)
        m_pDocManager = new CDocManager;
    m_pDocManager->AddDocTemplate(docTemplate);
}

POSITION CWinApp::GetFirstDocTemplatePosition() const {
    return m_pDocManager ? m_pDocManager->GetFirstDocTemplatePosition() : nullptr;
}

CDocTemplate* CWinApp::GetNextDocTemplate(POSITION& pos) const {
    return m_pDocManager->GetNextDocTemplate(pos);
}

CDocument* CWinApp::OpenDocumentFile(LPCTSTR pathName) {
    return m_pDocManager ? m_pDocManager->OpenDocumentFile(pathName) : nullptr;
}

void CWinApp::CloseAllDocuments(BOOL endSession) {
    if (m_pDocManager)
        m_pDocManager->CloseAllDocuments(endSession);
}

BOOL CWinApp::SaveAllModified() {
    return m_pDocManager ? m_pDocManager->SaveAllModified() : TRUE;
}

void CWinApp::HideApplication() {
    if (m_pMainWnd && m_pMainWnd->m_hWnd)
        m_pMainWnd->ShowWindow(SW_HIDE);
}
