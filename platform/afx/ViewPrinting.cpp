// CView's printing: the print command's page loop and the default steps a
// derived view overrides.
#include <afxwin.h>

BOOL CView::OnPreparePrinting(CPrintInfo*) {
    return TRUE;
}

void CView::OnBeginPrinting(CDC*, CPrintInfo*) {}

void CView::OnPrint(CDC* dc, CPrintInfo*) {
    OnDraw(dc);
}

void CView::OnEndPrinting(CDC*, CPrintInfo*) {}

void CView::OnEndPrintPreview(CDC* dc, CPrintInfo* info, POINT, CPreviewView*) {
    OnEndPrinting(dc, info);
}

BOOL CView::DoPreparePrinting(CPrintInfo* info) {
    return info != nullptr;
}

void CView::OnFilePrint() {
    CPrintInfo info;
    const MSG* msg = GetCurrentMessage();
    if (msg && msg->message == WM_COMMAND && LOWORD(msg->wParam) == ID_FILE_PRINT_DIRECT)
        info.m_bDirect = TRUE;
    if (!OnPreparePrinting(&info))
        return;

    HDC hdc = ::CreateDC(u"WINSPOOL", u"PDF", nullptr, nullptr);
    if (!hdc)
        return;
    CDC dc;
    dc.Attach(hdc);
    dc.m_bPrinting = TRUE;

    OnBeginPrinting(&dc, &info);
    CWnd* mainWnd = AfxGetMainWnd();
    if (mainWnd)
        mainWnd->EnableWindow(FALSE);

    bool failed = dc.StartDoc(m_pDocument ? m_pDocument->GetTitle().GetString() : u"") <= 0;
    if (!failed) {
        UINT last = info.GetToPage();
        if (last > info.GetMaxPage())
            last = info.GetMaxPage();
        for (info.m_nCurPage = info.GetFromPage(); info.m_nCurPage <= last; ++info.m_nCurPage) {
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
        }
        if (failed)
            dc.AbortDoc();
        else if (dc.EndDoc() <= 0)
            failed = true;
    }
    if (mainWnd)
        mainWnd->EnableWindow(TRUE);
    OnEndPrinting(&dc, &info);
    dc.DeleteDC();
}

void CView::OnFilePrintPreview() {}
