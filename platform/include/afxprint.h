// What the framework knows about one print job or preview while it runs.
// Included from afxwin.h.
#pragma once

#include "afx.h"
#include "afxdlgs.h"
#include "atltypes.h"

// Page numbers are 1-based. A job prints pages GetFromPage() to GetToPage();
// the maximum page stays 0xFFFF ("unknown") until the view sets it, and the
// page loop then runs while m_bContinuePrinting stays TRUE.
struct CPrintInfo {
    // A print dialog for the job (m_pPD), pages 1 to 0xFFFF.
    CPrintInfo();
    // Deletes the job's printer DC and its dialog.
    ~CPrintInfo();
    CPrintInfo(const CPrintInfo&) = delete;
    CPrintInfo& operator=(const CPrintInfo&) = delete;

    void SetMinPage(UINT page) { m_pPD->m_pd.nMinPage = static_cast<WORD>(page); }
    void SetMaxPage(UINT page) { m_pPD->m_pd.nMaxPage = static_cast<WORD>(page); }
    UINT GetMinPage() const { return m_pPD->m_pd.nMinPage; }
    UINT GetMaxPage() const { return m_pPD->m_pd.nMaxPage; }
    // The range the user chose in the print dialog, or every page.
    UINT GetFromPage() const { return m_pPD->m_pd.nFromPage; }
    UINT GetToPage() const { return m_pPD->m_pd.nToPage; }
    UINT GetOffsetPage() const { return 0; }

    CPrintDialog* m_pPD = nullptr; // the job's dialog; owned
    BOOL m_bDirect = FALSE;        // no dialog: the default printer
    BOOL m_bPreview = FALSE;       // drawing onto a preview page, not paper
    BOOL m_bContinuePrinting = TRUE;
    UINT m_nCurPage = 1;
    UINT m_nNumPreviewPages = 0; // 1 or 2 while previewing; 0 lets the preview choose
    CString m_strPageDesc;       // "Page %u\nPages %u-%u\n"
    LPVOID m_lpUserData = nullptr;
    CRect m_rectDraw; // the printable area of the current page, logical units
};
