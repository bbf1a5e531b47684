// What the framework knows about one print job or preview while it runs.
// Included from afxwin.h.
#pragma once

#include "afx.h"
#include "atltypes.h"

class CPrintDialog;

// Page numbers are 1-based. A job prints pages GetFromPage() to GetToPage();
// the maximum page stays 0xFFFF ("unknown") until the view sets it, and the
// page loop then runs while m_bContinuePrinting stays TRUE.
struct CPrintInfo {
    CPrintInfo() = default;
    CPrintInfo(const CPrintInfo&) = delete;
    CPrintInfo& operator=(const CPrintInfo&) = delete;

    void SetMinPage(UINT page) { m_nMinPage = page; }
    void SetMaxPage(UINT page) { m_nMaxPage = page; }
    UINT GetMinPage() const { return m_nMinPage; }
    UINT GetMaxPage() const { return m_nMaxPage; }
    // The range the user chose in the print dialog, or every page.
    UINT GetFromPage() const { return m_nFromPage; }
    UINT GetToPage() const { return m_nToPage; }
    UINT GetOffsetPage() const { return 0; }

    CPrintDialog* m_pPD = nullptr; // the job's dialog, when there is one
    BOOL m_bDirect = FALSE;        // no dialog: the default printer
    BOOL m_bPreview = FALSE;       // drawing onto a preview page, not paper
    BOOL m_bContinuePrinting = TRUE;
    UINT m_nCurPage = 1;
    UINT m_nNumPreviewPages = 0; // 1 or 2 while previewing
    CString m_strPageDesc;       // "Page %u\nPages %u-%u\n"
    LPVOID m_lpUserData = nullptr;
    CRect m_rectDraw; // the printable area of the current page, logical units

    UINT m_nMinPage = 1;
    UINT m_nMaxPage = 0xFFFF;
    UINT m_nFromPage = 1;
    UINT m_nToPage = 0xFFFF;
};
