// A document: the data that views show, with its title, path and modified
// flag, and the framework's save prompt. Included from afxwin.h.
#pragma once

#include "afxframe.h"

class CDocument : public CCmdTarget {
    DECLARE_DYNAMIC(CDocument)

public:
    CDocument();
    // Leaves every template's list of documents.
    ~CDocument() override;

    const CString& GetTitle() const { return m_strTitle; }
    // Also updates the captions of the document's frames.
    virtual void SetTitle(LPCTSTR title);
    const CString& GetPathName() const { return m_strPathName; }
    // The title becomes the file's name.
    virtual void SetPathName(LPCTSTR pathName, BOOL addToMRU = TRUE);
    CDocTemplate* GetDocTemplate() const { return m_pDocTemplate; }
    virtual BOOL IsModified() { return m_bModified; }
    virtual void SetModifiedFlag(BOOL modified = TRUE) { m_bModified = modified; }

    void AddView(CView* view);
    void RemoveView(CView* view);
    virtual POSITION GetFirstViewPosition() const { return m_viewList.GetHeadPosition(); }
    virtual CView* GetNextView(POSITION& pos) const;
    // OnUpdate for every view but sender.
    void UpdateAllViews(CView* sender, LPARAM hint = 0, CObject* hintObject = nullptr);
    // Numbers the frames (":1", ":2") when there are several, and updates
    // their captions.
    void UpdateFrameCounts();

    virtual void DeleteContents();
    // Empties the document: no contents, no path, not modified.
    virtual BOOL OnNewDocument();
    // Reads (writes) the document through Serialize; a failure is reported
    // in a message box and gives FALSE.
    virtual BOOL OnOpenDocument(LPCTSTR pathName);
    virtual BOOL OnSaveDocument(LPCTSTR pathName);
    // Destroys every frame of the document, then the document itself (when
    // it deletes itself).
    virtual void OnCloseDocument();
    // When the document is modified, asks "Save changes to <name>?" with Yes,
    // No and Cancel: Yes saves (FALSE when saving failed), Cancel gives FALSE.
    virtual BOOL SaveModified();
    // The last frame of a document may close only once it is saved or given up.
    virtual BOOL CanCloseFrame(CFrameWnd* frame);
    virtual void PreCloseFrame(CFrameWnd* frame);
    // Saves to pathName, or asks for a name first (Save As) when it is null
    // or empty; replace makes that name the document's.
    virtual BOOL DoSave(LPCTSTR pathName, BOOL replace = TRUE);
    virtual BOOL DoFileSave();
    virtual void ReportSaveLoadException(LPCTSTR pathName, CException* e, BOOL saving,
                                         UINT defaultPromptId);
    virtual HMENU GetDefaultMenu() { return nullptr; }
    virtual HACCEL GetDefaultAccelerator() { return nullptr; }
    // A view that goes leaves a document without views to close itself.
    virtual void OnChangedViewList();

    // Commands go to the document's own map, then its template.
    BOOL OnCmdMsg(UINT id, int code, void* extra, void* handlerInfo) override;

    // The document deletes itself when its last view goes.
    BOOL m_bAutoDelete = TRUE;
    // Opened without showing: no save prompt asks for it.
    BOOL m_bEmbedded = FALSE;

protected:
    void OnFileClose();
    void OnFileSave();
    void OnFileSaveAs();

    CString m_strTitle;
    CString m_strPathName;
    CDocTemplate* m_pDocTemplate = nullptr;
    CPtrList m_viewList;
    BOOL m_bModified = FALSE;

    friend class CDocTemplate;
    friend class CView;

    DECLARE_MESSAGE_MAP()
};
