#include "ListPrintHost.h"

#include "support/TempDir.h"

#include <platform/Automation.h>
#include <platform/Clock.h>
#include <platform/GdiObjects.h>
#include <platform/MessagePump.h>
#include <tchar.h>

namespace listprint_host {

CListApp::CListApp(const std::filesystem::path& profile) : CWinApp(u"List Print Host") {
    m_pszProfileName = _wcsdup(profile.u16string().c_str());
}

int CListFrame::OnCreate(LPCREATESTRUCT cs) {
    if (CMDIChildWnd::OnCreate(cs) == -1)
        return -1;
    CRect client;
    GetClientRect(&client);
    return m_list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, client, this, 1) ? 0 : -1;
}

void CListFrame::OnSize(UINT type, int cx, int cy) {
    CMDIChildWnd::OnSize(type, cx, cy);
    if (m_list.m_hWnd)
        m_list.MoveWindow(0, 0, cx, cy);
}

IMPLEMENT_DYNCREATE(CWatchedPrintFrame, CPrintFrame)

IMPLEMENT_DYNCREATE(CIdleView, CView)

void CIdleView::OnDraw(CDC* dc) {
    if (CDocument* doc = GetDocument())
        dc->TextOut(4, 4, doc->GetTitle());
}

void ListPrintHostTest::SetUp() {
    platform::automation::Reset();
    dir = testing_support::TestOutputDir("listprint");
    pdf = dir / "printout.pdf";
    platform::SetPrinterOutput(pdf.string());
    platform::PinLocalClock(2024, 3, 5, 14, 7, 9);
    app = std::make_unique<CListApp>(dir / "host.ini");
    main = new CMDIFrameWnd;
    ASSERT_TRUE(main->LoadFrame(IDR_MAINFRAME));
    app->m_pMainWnd = main;
    main->MoveWindow(0, 0, 900, 700);
    main->ShowWindow(SW_SHOWNORMAL);
    printTemplate = AddTemplate(IDR_LISTPRINT, RUNTIME_CLASS(CListPrintDoc),
                                RUNTIME_CLASS(CListPrintFrame), RUNTIME_CLASS(CListPrintView));
    listFrame = new CListFrame;
    ASSERT_TRUE(listFrame->Create(nullptr, u"Deliveries",
                                  WS_CHILD | WS_VISIBLE | WS_OVERLAPPEDWINDOW,
                                  CRect(10, 10, 500, 400), main));
    listFrame->m_list.SetFocus();
    Pump();
}

void ListPrintHostTest::TearDown() {
    if (app && app->m_pMainWnd) {
        app->CloseAllDocuments(TRUE);
        app->m_pMainWnd->DestroyWindow();
    }
    platform::PumpMessages();
    MSG msg;
    while (PeekMessage(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) && msg.message == WM_QUIT) {
    }
    app.reset();
    platform::UnpinClock();
    platform::automation::Reset();
}

void ListPrintHostTest::FillList(int rows, int cols) {
    CListCtrl& list = listFrame->m_list;
    for (int c = 0; c < cols; ++c) {
        CString title;
        title.Format(u"Title %d", c);
        list.InsertColumn(c, title, LVCFMT_LEFT, 80);
    }
    for (int r = 0; r < rows; ++r) {
        CString text;
        text.Format(u"R%d C0", r);
        list.InsertItem(r, text);
        for (int c = 1; c < cols; ++c) {
            text.Format(u"R%d C%d", r, c);
            list.SetItemText(r, c, text);
        }
    }
}

CMultiDocTemplate* ListPrintHostTest::AddTemplate(UINT id, CRuntimeClass* doc, CRuntimeClass* frame,
                                                  CRuntimeClass* view) {
    auto* tmpl = new CMultiDocTemplate(id, doc, frame, view);
    app->AddDocTemplate(tmpl);
    return tmpl;
}

CFrameWnd* ListPrintHostTest::Open(CDocument* doc, CDocTemplate* tmpl) {
    if (!tmpl)
        tmpl = printTemplate;
    tmpl->AddDocument(doc);
    CFrameWnd* frame = tmpl->CreateNewFrame(doc, nullptr);
    if (!frame) {
        tmpl->RemoveDocument(doc);
        delete doc;
        return nullptr;
    }
    tmpl->InitialUpdateFrame(frame, doc, TRUE);
    return frame;
}

void ListPrintHostTest::Pump() {
    platform::PumpMessages();
}

CView* ListPrintHostTest::ViewOf(CDocument* doc) {
    POSITION pos = doc ? doc->GetFirstViewPosition() : nullptr;
    return pos ? doc->GetNextView(pos) : nullptr;
}

int ListPrintHostTest::OpenPrintDocuments() const {
    int count = 0;
    for (POSITION pos = printTemplate->GetFirstDocPosition(); pos; printTemplate->GetNextDoc(pos))
        ++count;
    return count;
}

} // namespace listprint_host
