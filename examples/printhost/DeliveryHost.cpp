// The print host's application, documents and views.
#include "DeliveryHost.h"

#include "PrintWizard.h"
#include "resource.h"

#include <platform/CodePage.h>
#include <tchar.h>

#include <cstdio>
#include <cstdlib>

namespace {

// The order the user dragged the headings into: the date before the site,
// the price before the quantity.
int kUserOrder[kDeliveryColumns] = {0, 2, 1, 4, 3, 5};

} // namespace

CString DeliveryCell(int document, int row, int column) {
    static const char16_t* const items[] = {u"Copper wire",  u"Bolts M6",  u"Anchor plates",
                                            u"Cable ties",   u"Washers",   u"Steel beams",
                                            u"Paint, white", u"Lumber 2x4"};
    static const char16_t* const sites[] = {u"North Plant", u"Harbour", u"East Yard"};
    static const char16_t* const notes[] = {u"", u"checked", u"partly returned", u"", u"urgent"};
    const int n = row + document * 1000;
    CString text;
    switch (column) {
    case 0:
        text.Format(u"%s #%d", items[n % 8], n + 1);
        break;
    case 1:
        text = sites[(n / 7) % 3];
        break;
    case 2:
        text.Format(u"2024-%02d-%02d", 1 + (n / 28) % 6, 1 + n % 28);
        break;
    case 3:
        text.Format(u"%d", (n * 37) % 900 + 1);
        break;
    case 4:
        text.Format(u"%d.%02d", (n * 13) % 250, (n * 7) % 100);
        break;
    default:
        text = notes[n % 5];
        break;
    }
    return text;
}

CPrintHostApp::CPrintHostApp(const std::string& profile) : CWinApp(u"Print Host") {
    free(const_cast<WCHAR*>(m_pszProfileName));
    m_pszProfileName = _wcsdup(platform::FromUtf8(profile).GetString());
}

void CPrintHostApp::OnFileNew() {
    POSITION pos = GetFirstDocTemplatePosition();
    if (pos)
        GetNextDocTemplate(pos)->OpenDocumentFile(nullptr);
}

void CPrintHostApp::OnAppExit() {
    if (m_pMainWnd)
        m_pMainWnd->SendMessage(WM_CLOSE);
}

BEGIN_MESSAGE_MAP(CPrintHostApp, CWinApp)
ON_COMMAND(ID_FILE_NEW, OnFileNew)
ON_COMMAND(ID_APP_EXIT, OnAppExit)
END_MESSAGE_MAP()

IMPLEMENT_DYNCREATE(CDeliveryDoc, CDocument)

BOOL CDeliveryDoc::OnNewDocument() {
    static int opened = 0;
    m_number = opened++;
    return CDocument::OnNewDocument();
}

IMPLEMENT_DYNCREATE(CDeliveryView, CView)

BEGIN_MESSAGE_MAP(CDeliveryView, CView)
ON_WM_SETFOCUS()
ON_COMMAND(ID_LIST_PRINT, OnListPrint)
ON_COMMAND(ID_LIST_PREVIEW, OnListPreview)
ON_COMMAND(ID_LIST_WIZARD, OnListWizard)
END_MESSAGE_MAP()

void CDeliveryView::OnInitialUpdate() {
    CView::OnInitialUpdate();
    static const char16_t* const titles[] = {u"Item",     u"Site",  u"Received",
                                             u"Quantity", u"Price", u"Note"};
    static const int widths[] = {170, 110, 110, 80, 80, 130};
    for (int c = 0; c < kDeliveryColumns; ++c)
        m_list.InsertColumn(c, titles[c], c == 3 || c == 4 ? LVCFMT_RIGHT : LVCFMT_LEFT, widths[c]);
    const int document = static_cast<CDeliveryDoc*>(GetDocument())->m_number;
    for (int r = 0; r < kDeliveryRows; ++r) {
        m_list.InsertItem(r, DeliveryCell(document, r, 0));
        for (int c = 1; c < kDeliveryColumns; ++c)
            m_list.SetItemText(r, c, DeliveryCell(document, r, c));
    }
    m_list.SetColumnOrderArray(kDeliveryColumns, kUserOrder);
}

int CDeliveryView::OnCreate(LPCREATESTRUCT cs) {
    if (CView::OnCreate(cs) == -1)
        return -1;
    CRect client;
    GetClientRect(&client);
    return m_list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHOWSELALWAYS, client, this, 1)
               ? 0
               : -1;
}

void CDeliveryView::OnSize(UINT type, int cx, int cy) {
    CView::OnSize(type, cx, cy);
    if (m_list.m_hWnd)
        m_list.MoveWindow(0, 0, cx, cy);
}

void CDeliveryView::OnSetFocus(CWnd*) {
    if (m_list.m_hWnd)
        m_list.SetFocus();
}

void CDeliveryView::OnListPrint() {
    PrintList(ID_FILE_PRINT);
}

void CDeliveryView::OnListPreview() {
    PrintList(ID_FILE_PRINT_PREVIEW);
}

void CDeliveryView::OnListWizard() {
    auto* app = static_cast<CPrintHostApp*>(AfxGetApp());
    CPrintWizard wizard(app->m_printout);
    if (wizard.DoModal() == ID_WIZFINISH)
        app->m_printout = wizard.m_settings;
}

void CDeliveryView::PrintList(UINT command) {
    CDocTemplate* printout = WinUtils::FindDocTemplate(IDR_LISTPRINT);
    if (!printout)
        return;
    const PrintoutSettings& settings = static_cast<CPrintHostApp*>(AfxGetApp())->m_printout;
    auto* doc = new CListPrintDoc(&m_list, settings.site, command, settings.includeDates,
                                  settings.from, settings.to);
    printout->AddDocument(doc);
    CFrameWnd* frame = printout->CreateNewFrame(doc, nullptr);
    if (!frame) {
        printout->RemoveDocument(doc);
        delete doc;
        std::fprintf(stderr, "the printout's frame could not be made\n");
        return;
    }
    printout->InitialUpdateFrame(frame, doc, TRUE);
}

bool PrintHost::Start(const std::string& profile) {
    app = std::make_unique<CPrintHostApp>(profile);
    app->AddDocTemplate(new CMultiDocTemplatePlus(IDR_DELIVERIES, RUNTIME_CLASS(CDeliveryDoc),
                                                  RUNTIME_CLASS(CMDIChildWndPlus),
                                                  RUNTIME_CLASS(CDeliveryView)));
    app->AddDocTemplate(new CMultiDocTemplate(IDR_LISTPRINT, RUNTIME_CLASS(CListPrintDoc),
                                              RUNTIME_CLASS(CListPrintFrame),
                                              RUNTIME_CLASS(CListPrintView)));
    main = new CMDIFrameWnd;
    if (!main->LoadFrame(IDR_MAINFRAME)) {
        std::fprintf(stderr, "the main window could not be made\n");
        return false;
    }
    app->m_pMainWnd = main;
    main->MoveWindow(0, 0, 860, 680);
    main->ShowWindow(SW_SHOWNORMAL);
    main->UpdateWindow();
    return true;
}

int PrintHost::OpenPrintouts() {
    CDocTemplate* printout = WinUtils::FindDocTemplate(IDR_LISTPRINT);
    int count = 0;
    for (POSITION pos = printout ? printout->GetFirstDocPosition() : nullptr; pos;
         printout->GetNextDoc(pos))
        ++count;
    return count;
}
