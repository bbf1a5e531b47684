// CDocument's files: reading and writing through Serialize, the save prompt
// and Save As.
#include <afxwin.h>

#include "FrameworkStrings.h"

namespace {

// The name the save prompt shows: the file's name, else the title.
CString PromptName(const CString& pathName, const CString& title) {
    if (!pathName.IsEmpty()) {
        const int slash = pathName.ReverseFind(u'/');
        return slash < 0 ? pathName : pathName.Mid(slash + 1);
    }
    return title.IsEmpty() ? platform::afx::FrameworkString(AFX_IDS_UNTITLED) : title;
}

// Asks for a file name with the template's filter; FALSE when cancelled.
bool PromptFileName(CString& name, CDocTemplate* docTemplate) {
    CString filterName, extension, filter;
    if (docTemplate && docTemplate->GetDocString(filterName, CDocTemplate::filterName) &&
        docTemplate->GetDocString(extension, CDocTemplate::filterExt) && !filterName.IsEmpty() &&
        !extension.IsEmpty()) {
        filter = filterName + u"|*" + extension + u"|";
    }
    filter += u"All Files (*.*)|*.*||";
    const CString defaultExtension = extension.IsEmpty() ? CString() : extension.Mid(1);
    CFileDialog dialog(FALSE, defaultExtension.IsEmpty() ? nullptr : defaultExtension.GetString(),
                       name.IsEmpty() ? nullptr : name.GetString(),
                       OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, filter);
    if (dialog.DoModal() != IDOK)
        return false;
    name = dialog.GetPathName();
    return true;
}

} // namespace

BOOL CDocument::SaveModified() {
    if (!IsModified())
        return TRUE;
    CString prompt;
    AfxFormatString1(prompt, AFX_IDP_ASK_TO_SAVE, PromptName(m_strPathName, m_strTitle));
    switch (AfxMessageBox(prompt, MB_YESNOCANCEL, AFX_IDP_ASK_TO_SAVE)) {
    case IDYES:
        return DoFileSave();
    case IDNO:
        return TRUE;
    default:
        // Cancel, or a box that could not be shown.
        return FALSE;
    }
}

BOOL CDocument::DoFileSave() {
    return DoSave(m_strPathName.IsEmpty() ? nullptr : m_strPathName.GetString());
}

BOOL CDocument::DoSave(LPCTSTR pathName, BOOL replace) {
    CString name = pathName;
    if (name.IsEmpty()) {
        name = m_strPathName;
        if (replace && name.IsEmpty()) {
            // The title with the template's extension, as a first suggestion.
            name = m_strTitle;
            CString extension;
            if (m_pDocTemplate &&
                m_pDocTemplate->GetDocString(extension, CDocTemplate::filterExt) &&
                !extension.IsEmpty() && name.Find(u'.') < 0)
                name += extension;
        }
        if (!PromptFileName(name, m_pDocTemplate))
            return FALSE;
    }
    CWaitCursor wait;
    if (!OnSaveDocument(name))
        return FALSE;
    if (replace)
        SetPathName(name);
    return TRUE;
}

BOOL CDocument::OnOpenDocument(LPCTSTR pathName) {
    CFile file;
    CFileException error;
    if (!file.Open(pathName, CFile::modeRead | CFile::shareDenyWrite, &error)) {
        ReportSaveLoadException(pathName, &error, FALSE, AFX_IDP_FAILED_TO_OPEN_DOC);
        return FALSE;
    }
    DeleteContents();
    SetModifiedFlag(TRUE);
    try {
        CArchive ar(&file, CArchive::load | CArchive::bNoFlushOnDelete);
        Serialize(ar);
        ar.Close();
    } catch (CException* e) {
        file.Abort();
        DeleteContents();
        ReportSaveLoadException(pathName, e, FALSE, AFX_IDP_FAILED_TO_OPEN_DOC);
        e->Delete();
        return FALSE;
    }
    SetModifiedFlag(FALSE);
    return TRUE;
}

BOOL CDocument::OnSaveDocument(LPCTSTR pathName) {
    CFile file;
    CFileException error;
    if (!file.Open(pathName, CFile::modeCreate | CFile::modeReadWrite | CFile::shareExclusive,
                   &error)) {
        ReportSaveLoadException(pathName, &error, TRUE, AFX_IDP_FAILED_TO_SAVE_DOC);
        return FALSE;
    }
    try {
        CArchive ar(&file, CArchive::store | CArchive::bNoFlushOnDelete);
        Serialize(ar);
        ar.Close();
        file.Close();
    } catch (CException* e) {
        file.Abort();
        ReportSaveLoadException(pathName, e, TRUE, AFX_IDP_FAILED_TO_SAVE_DOC);
        e->Delete();
        return FALSE;
    }
    SetModifiedFlag(FALSE);
    return TRUE;
}

void CDocument::ReportSaveLoadException(LPCTSTR, CException* e, BOOL, UINT defaultPromptId) {
    // The user was told already.
    if (dynamic_cast<CUserException*>(e))
        return;
    if (dynamic_cast<CFileException*>(e) || dynamic_cast<CArchiveException*>(e)) {
        e->ReportError(MB_ICONEXCLAMATION, defaultPromptId);
        return;
    }
    AfxMessageBox(platform::afx::FrameworkString(defaultPromptId), MB_ICONEXCLAMATION);
}
