// CView's printing: the print command's page loop, the start of print
// preview, and the default steps a derived view overrides.
#include "FrameworkStrings.h"

#include <afxpriv.h>

namespace {

// Shown when a job fails after it started (a page or the end of the
// document could not be written, or the print queue refused the job).
constexpr const WCHAR* kFailedToPrint = u"The document could not be printed.";

} // namespace

BOOL CView::OnPreparePrinting(CPrintInfo*) {
    return TRUE;
}

void CView::OnBeginPrinting(CDC*, CPrintInfo*) {}

void CView::OnPrint(CDC* dc, CPrintInfo*) {
    OnDraw(dc);
}

void CView::OnEndPrinting(CDC*, CPrintInfo*) {}

void CView::OnPrepareDC(CDC*, CPrintInfo* info) {
    // A view that does not know how long its document is prints one page.
    if (info)
        info->m_bContinuePrinting = info->GetMaxPage() != 0xFFFF || info->m_nCurPage == 1;
}

BOOL CView::DoPreparePrinting(CPrintInfo* info) {
    if (!info)
        return FALSE;
    CPrintDialog* dialog = info->m_pPD;
    PRINTDLG& pd = dialog->m_pd;
    if (pd.nMaxPage < pd.nMinPage)
        pd.nMaxPage = pd.nMinPage;
    pd.nFromPage = pd.nMinPage;
    pd.nToPage = pd.nMaxPage;
    if (pd.hDC) {
        ::DeleteDC(pd.hDC);
        pd.hDC = nullptr;
    }
    if (info->m_bDirect || info->m_bPreview) {
        // The default printer, without asking.
        if (!dialog->GetDefaults())
            return FALSE;
    } else {
        dialog->m_pParentWnd = this;
        if (dialog->DoModal() != IDOK)
            return FALSE;
    }
    if (!pd.hDC && !dialog->CreatePrinterDC())
        return FALSE;
    if (!dialog->PrintRange()) {
        pd.nFromPage = pd.nMinPage;
        pd.nToPage = pd.nMaxPage;
    }
    return TRUE;
}

void CView::OnFilePrint() {
    CPrintInfo info;
    const MSG* msg = GetCurrentMessage();
    if (msg && msg->message == WM_COMMAND && LOWORD(msg->wParam) == ID_FILE_PRINT_DIRECT)
        info.m_bDirect = TRUE;
    if (!OnPreparePrinting(&info))
        return;
    // A view that did not ask for a printer prints on the default one.
    if (!info.m_pPD->m_pd.hDC && !info.m_pPD->GetDefaults())
        return;
    if (!info.m_pPD->m_pd.hDC && !info.m_pPD->CreatePrinterDC())
        return;

    // The DC belongs to the print information; this object only lends it.
    CDC dc;
    dc.m_hDC = dc.m_hAttribDC = info.m_pPD->m_pd.hDC;
    dc.m_bPrinting = TRUE;
    CString title = m_pDocument ? m_pDocument->GetTitle() : CString();
    DOCINFO docInfo{};
    docInfo.cbSize = sizeof(docInfo);
    docInfo.lpszDocName = title;

    OnBeginPrinting(&dc, &info);
    // The rest of the application waits while the job runs.
    CWnd* mainWnd = AfxGetMainWnd();
    if (mainWnd)
        mainWnd->EnableWindow(FALSE);

    if (dc.StartDoc(&docInfo) <= 0) {
        if (mainWnd)
            mainWnd->EnableWindow(TRUE);
        OnEndPrinting(&dc, &info);
        dc.m_hDC = dc.m_hAttribDC = nullptr;
        AfxMessageBox(platform::afx::FrameworkString(AFX_IDP_FAILED_TO_START_PRINT));
        return;
    }

    UINT first = std::max(info.GetFromPage(), info.GetMinPage());
    UINT last = std::min(info.GetToPage(), info.GetMaxPage());
    bool failed = false;
    for (info.m_nCurPage = first; info.m_nCurPage <= last; ++info.m_nCurPage) {
        OnPrepareDC(&dc, &info);
        if (!info.m_bContinuePrinting)
            break;
        if (dc.StartPage() <= 0) {
            failed = true;
            break;
        }
        info.m_rectDraw.SetRect(0, 0, dc.GetDeviceCaps(HORZRES), dc.GetDeviceCaps(VERTRES));
        OnPrint(&dc, &info);
        if (dc.EndPage() <= 0) {
            failed = true;
            break;
        }
        if (info.m_nCurPage == 0xFFFF)
            break;
    }
    if (failed)
        dc.AbortDoc();
    else if (dc.EndDoc() <= 0)
        failed = true;

    if (mainWnd)
        mainWnd->EnableWindow(TRUE);
    OnEndPrinting(&dc, &info);
    dc.m_hDC = dc.m_hAttribDC = nullptr;
    if (failed)
        AfxMessageBox(kFailedToPrint);
}

void CView::OnFilePrintPreview() {
    CFrameWnd* frame = GetParentFrame();
    if (!frame || !m_hWnd)
        return;
    // The preview takes this view's place as the frame's pane; the view waits
    // hidden under another id.
    const int id = ::GetDlgCtrlID(m_hWnd);
    ::SetWindowLongPtr(m_hWnd, GWLP_ID, AFX_IDW_PANE_SAVE);
    CRect rect;
    GetWindowRect(&rect);
    frame->ScreenToClient(&rect);
    auto* preview = new CPreviewView;
    CCreateContext context;
    context.m_pCurrentFrame = frame;
    context.m_pLastView = this;
    if (!preview->Create(nullptr, nullptr, AFX_WS_DEFAULT_VIEW & ~WS_VISIBLE, rect, frame,
                         AFX_IDW_PANE_FIRST, &context)) {
        // A view that failed to be created has deleted itself.
        ::SetWindowLongPtr(m_hWnd, GWLP_ID, id);
        return;
    }
    if (!preview->SetPrintView(this)) {
        // The view refused (or there is no printer): the preview ends as it
        // would when closed, through the view's own end of preview.
        preview->OnPreviewClose();
        return;
    }
    ShowWindow(SW_HIDE);
    frame->SetActiveView(preview);
    frame->RecalcLayout();
    preview->ShowWindow(SW_SHOW);
    preview->SetFocus();
    preview->UpdateWindow();
}
