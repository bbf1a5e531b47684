#include "PrintBenchHost.h"

#include "resource.h"

#include <platform/Clock.h>
#include <platform/CodePage.h>
#include <platform/GdiObjects.h>
#include <platform/MessagePump.h>
#include <tchar.h>

#include <Utils.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

class PrintBenchHost::App : public CWinApp {
public:
    explicit App(const std::string& profile) : CWinApp(u"List Print Benchmark") {
        free(const_cast<WCHAR*>(m_pszProfileName));
        m_pszProfileName = _wcsdup(platform::FromUtf8(profile).GetString());
    }
};

namespace {

const COleDateTime kFrom(2024, 1, 1, 0, 0, 0);
const COleDateTime kTo(2024, 6, 30, 0, 0, 0);

// A view that only carries the host's list control.
class CListFrame : public CMDIChildWnd {
public:
    CListCtrl m_list;

protected:
    int OnCreate(LPCREATESTRUCT cs) override {
        if (CMDIChildWnd::OnCreate(cs) == -1)
            return -1;
        CRect client;
        GetClientRect(&client);
        return m_list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, client, this, 1) ? 0 : -1;
    }
};

[[noreturn]] void Fail(const char* what) {
    std::fprintf(stderr, "list print benchmark: %s\n", what);
    std::exit(1);
}

} // namespace

CString PrintBenchHost::TitleText(int col) {
    static const char16_t* const titles[] = {u"Item",  u"Site",  u"Received", u"Quantity",
                                             u"Price", u"Batch", u"Carrier",  u"Status"};
    if (col < 8)
        return titles[col];
    CString title;
    title.Format(u"Column %d", col + 1);
    return title;
}

CString PrintBenchHost::CellText(int row, int col) {
    static const char16_t* const items[] = {u"Copper wire", u"Bolts M6", u"Anchor plates",
                                            u"Cable ties",  u"Washers",  u"Steel beams"};
    static const char16_t* const sites[] = {u"North Plant", u"Harbour", u"East Yard", u"Depot 4"};
    static const char16_t* const carriers[] = {u"Rail", u"Road", u"Sea", u"Air"};
    static const char16_t* const states[] = {u"received", u"checked", u"stored", u"returned"};
    CString text;
    switch (col % 8) {
    case 0:
        text.Format(u"%s %d", items[row % 6], row + 1);
        break;
    case 1:
        text = sites[(row / 3) % 4];
        break;
    case 2:
        text.Format(u"2024-%02d-%02d", 1 + row % 12, 1 + row % 28);
        break;
    case 3:
        text.Format(u"%d", (row * 37) % 5000);
        break;
    case 4:
        text.Format(u"%d.%02d", (row * 13) % 500, row % 100);
        break;
    case 5:
        text.Format(u"B-%05d", row * 7 % 100000);
        break;
    case 6:
        text = carriers[row % 4];
        break;
    default:
        text = states[(row / 5) % 4];
        break;
    }
    return text;
}

PrintBenchHost::PrintBenchHost(int rows, int cols, const std::string& pdf) {
    platform::SetPrinterOutput(pdf);
    platform::PinLocalClock(2024, 7, 1, 9, 30, 0);
    const auto dir = std::filesystem::path(pdf).parent_path();
    m_app = new App((dir / "bench.ini").string());
    m_main = new CMDIFrameWnd;
    if (!m_main->LoadFrame(IDR_MAINFRAME))
        Fail("the main frame cannot be made");
    m_app->m_pMainWnd = m_main;
    m_main->MoveWindow(0, 0, 860, 700);
    m_main->ShowWindow(SW_SHOWNORMAL);
    m_template =
        new CMultiDocTemplate(IDR_LISTPRINT, RUNTIME_CLASS(CListPrintDoc),
                              RUNTIME_CLASS(CListPrintFrame), RUNTIME_CLASS(CListPrintView));
    m_app->AddDocTemplate(m_template);
    auto* frame = new CListFrame;
    if (!frame->Create(nullptr, u"Deliveries", WS_CHILD | WS_VISIBLE | WS_OVERLAPPEDWINDOW,
                       CRect(0, 0, 600, 400), m_main))
        Fail("the list's frame cannot be made");
    m_listFrame = frame;
    m_list = &frame->m_list;
    for (int c = 0; c < cols; ++c)
        m_list->InsertColumn(c, TitleText(c), LVCFMT_LEFT, 90);
    for (int r = 0; r < rows; ++r) {
        m_list->InsertItem(r, CellText(r, 0));
        for (int c = 1; c < cols; ++c)
            m_list->SetItemText(r, c, CellText(r, c));
    }
    platform::PumpMessages();
}

PrintBenchHost::~PrintBenchHost() {
    m_app->CloseAllDocuments(TRUE);
    m_main->DestroyWindow();
    platform::PumpMessages();
    MSG msg;
    while (PeekMessage(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) && msg.message == WM_QUIT) {
    }
    delete m_app;
    platform::UnpinClock();
}

void PrintBenchHost::Print() {
    auto* doc = new CListPrintDoc(m_list, u"North Plant", ID_FILE_PRINT_DIRECT, TRUE, kFrom, kTo);
    m_template->AddDocument(doc);
    CFrameWnd* frame = m_template->CreateNewFrame(doc, nullptr);
    if (!frame)
        Fail("the print frame cannot be made");
    m_template->InitialUpdateFrame(frame, doc, TRUE);
    if (CView* view = frame->GetActiveView()) {
        CRect client;
        view->GetClientRect(&client);
        m_viewWidth = client.Width();
    }
    platform::PumpMessages();
    if (m_template->GetFirstDocPosition())
        Fail("the print frame did not close after the job");
}

CString PrintBenchHost::HeaderText() {
    CListPrintDoc doc(m_list, u"North Plant", ID_FILE_PRINT_DIRECT, TRUE, kFrom, kTo);
    return CListPrintView::HeaderText(doc, Utils::GetCurrentDateAndTime());
}
