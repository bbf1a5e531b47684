// The document of list printing: a host's list control to print, the
// command that starts the print or the preview, and the texts of the header
// line printed above the list on every page.
#pragma once

#include <afxcmn.h>
#include <afxdisp.h>
#include <afxwin.h>

class CListPrintDoc : public CDocument {
    DECLARE_DYNCREATE(CListPrintDoc)

public:
    // Pages without a header line (the system name is empty); both dates 0.
    CListPrintDoc(CListCtrl* pListCtrl, UINT nCommandId);
    // The header line names strSystemName and, when bIncludeDate is
    // non-zero, the dates from dtFrom to dtTo.
    CListPrintDoc(CListCtrl* pListCtrl, CString strSystemName, UINT nCommandId, int bIncludeDate,
                  COleDateTime dtFrom, COleDateTime dtTo);
    ~CListPrintDoc() override;

    CListCtrl* GetListCtrl() const { return m_pListCtrl; }
    UINT GetCommandId() const { return m_nCommandId; }
    CString GetSystemName() { return m_strSystemName; }
    int GetIncludeDate() const { return m_bIncludeDate; }
    const COleDateTime& GetFromDate() const { return m_dtFrom; }
    const COleDateTime& GetToDate() const { return m_dtTo; }

    // Nothing is stored or read: the document lives only while it prints.
    void Serialize(CArchive& ar) override;
    BOOL OnNewDocument() override;

    // The host's string that titles the document.
    static constexpr UINT IDS_LIST_PRINT_TITLE = 569;

protected:
    // For creation by the framework: no list, command 0, no title.
    CListPrintDoc();

    DECLARE_MESSAGE_MAP()

private:
    CListCtrl* m_pListCtrl = nullptr; // the host's; not owned
    UINT m_nCommandId = 0;
    CString m_strSystemName;
    int m_bIncludeDate = 0;
    COleDateTime m_dtFrom;
    COleDateTime m_dtTo;
};
