#include "CListPrintDoc.h"

#include "Win/utils/CResourceString.h"

IMPLEMENT_DYNCREATE(CListPrintDoc, CDocument)

BEGIN_MESSAGE_MAP(CListPrintDoc, CDocument)
END_MESSAGE_MAP()

CListPrintDoc::CListPrintDoc() = default;

CListPrintDoc::CListPrintDoc(CListCtrl* pListCtrl, UINT nCommandId)
    : m_pListCtrl(pListCtrl), m_nCommandId(nCommandId) {
    SetTitle(CResourceString(IDS_LIST_PRINT_TITLE));
}

CListPrintDoc::CListPrintDoc(CListCtrl* pListCtrl, CString strSystemName, UINT nCommandId,
                             int bIncludeDate, COleDateTime dtFrom, COleDateTime dtTo)
    : m_pListCtrl(pListCtrl), m_nCommandId(nCommandId), m_strSystemName(strSystemName),
      m_bIncludeDate(bIncludeDate), m_dtFrom(dtFrom), m_dtTo(dtTo) {
    SetTitle(CResourceString(IDS_LIST_PRINT_TITLE));
}

CListPrintDoc::~CListPrintDoc() = default;

void CListPrintDoc::Serialize(CArchive& ar) {
    if (ar.IsStoring()) {
        // Nothing to store.
    } else {
        // Nothing to read.
    }
}

BOOL CListPrintDoc::OnNewDocument() {
    return CDocument::OnNewDocument() ? TRUE : FALSE;
}
