// Document templates: what makes a document with its frame and view, from
// the classes and the resources of one identifier. Included from afxwin.h.
#pragma once

#include "afxdoc.h"

class CDocTemplate : public CCmdTarget {
    DECLARE_DYNAMIC(CDocTemplate)

public:
    // The '\n'-separated parts of the template's string resource.
    enum DocStringIndex {
        windowTitle,
        docName,
        fileNewName,
        filterName,
        filterExt,
        regFileTypeId,
        regFileTypeName
    };
    // How well a file suits a template.
    enum Confidence {
        noAttempt,
        maybeAttemptForeign,
        maybeAttemptNative,
        yesAttemptForeign,
        yesAttemptNative,
        yesAlreadyOpen
    };

    ~CDocTemplate() override;

    // Loads the template's strings (string resource m_nIDResource); called
    // when the template is added to the application.
    virtual void LoadTemplate();
    virtual POSITION GetFirstDocPosition() const = 0;
    virtual CDocument* GetNextDoc(POSITION& pos) const = 0;
    // Makes this the document's template.
    virtual void AddDocument(CDocument* doc);
    virtual void RemoveDocument(CDocument* doc);
    // Part index of the template's strings; FALSE (and empty) when there is none.
    virtual BOOL GetDocString(CString& string, DocStringIndex index) const;
    // yesAlreadyOpen (with the document) for an open path, yesAttemptNative
    // for the template's extension, maybeAttemptForeign otherwise.
    virtual Confidence MatchDocType(LPCTSTR pathName, CDocument*& match);
    // A new document of the document class, added to the template.
    virtual CDocument* CreateNewDocument();
    // A new frame with its view for doc; null when the frame cannot be made.
    virtual CFrameWnd* CreateNewFrame(CDocument* doc, CFrameWnd* other);
    virtual void InitialUpdateFrame(CFrameWnd* frame, CDocument* doc, BOOL makeVisible = TRUE);
    // SaveModified for each document; FALSE as soon as one is cancelled.
    virtual BOOL SaveAllModified();
    virtual void CloseAllDocuments(BOOL endSession);
    // A new document (pathName null) or one read from a file, in a new frame;
    // null when it could not be made or read.
    virtual CDocument* OpenDocumentFile(LPCTSTR pathName, BOOL makeVisible = TRUE) = 0;
    // "<document name><number>", or "Untitled" when the template names none.
    virtual void SetDefaultTitle(CDocument* doc) = 0;

protected:
    CDocTemplate(UINT idResource, CRuntimeClass* docClass, CRuntimeClass* frameClass,
                 CRuntimeClass* viewClass);

    UINT m_nIDResource;
    CRuntimeClass* m_pDocClass;
    CRuntimeClass* m_pFrameClass;
    CRuntimeClass* m_pViewClass;
    CString m_strDocStrings;
};

// A template for any number of documents, each in its own MDI document frame,
// sharing one menu and accelerator table.
class CMultiDocTemplate : public CDocTemplate {
    DECLARE_DYNAMIC(CMultiDocTemplate)

public:
    CMultiDocTemplate(UINT idResource, CRuntimeClass* docClass, CRuntimeClass* frameClass,
                      CRuntimeClass* viewClass);
    ~CMultiDocTemplate() override;

    // The strings, then the menu and accelerators of m_nIDResource.
    void LoadTemplate() override;
    void AddDocument(CDocument* doc) override;
    void RemoveDocument(CDocument* doc) override;
    POSITION GetFirstDocPosition() const override { return m_docList.GetHeadPosition(); }
    CDocument* GetNextDoc(POSITION& pos) const override;
    CDocument* OpenDocumentFile(LPCTSTR pathName, BOOL makeVisible = TRUE) override;
    void SetDefaultTitle(CDocument* doc) override;

    HMENU m_hMenuShared = nullptr;
    HACCEL m_hAccelTable = nullptr;

protected:
    CPtrList m_docList;
    UINT m_nUntitledCount = 0;
};

// The application's templates, in the order they were added; it owns them.
class CDocManager : public CObject {
public:
    CDocManager() = default;
    ~CDocManager() override;

    virtual void AddDocTemplate(CDocTemplate* docTemplate);
    POSITION GetFirstDocTemplatePosition() const { return m_templateList.GetHeadPosition(); }
    CDocTemplate* GetNextDocTemplate(POSITION& pos) const;
    // The open document of that path, brought forward, or the document read
    // by the template that suits the file best.
    virtual CDocument* OpenDocumentFile(LPCTSTR pathName);
    virtual BOOL SaveAllModified();
    virtual void CloseAllDocuments(BOOL endSession);
    int GetOpenDocumentCount() const;

protected:
    CPtrList m_templateList;
};
