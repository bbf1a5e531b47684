// The print host: an MDI application whose documents show lists of
// deliveries (500 rows of 6 columns, two of the columns moved by the user).
// The simulated user opens two documents, prints the active one's list
// through the library's list printing (the print dialog answered with the
// PDF printer and a file), previews it two pages at a time, then maximises a
// document, closes it and sees the next one maximised. The main window's
// placement is kept in the profile; a second run of the host (a new process
// sharing the profile) puts the window back where the user left it and opens
// its first document maximised, as the last one was.
//
//   print_host OUT            the first run; starts the second itself
//   print_host OUT --again    the second run
#include <Win/Win.h>
#include <tchar.h>

#include <platform/Automation.h>
#include <platform/CodePage.h>
#include <platform/PrintPreview.h>
#include <platform/Printers.h>
#include <platform/WindowPictures.h>

#include "resource.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

namespace automation = platform::automation;

constexpr int kRows = 500;
constexpr int kColumns = 6;
// The order the user dragged the headings into: the date before the site,
// the price before the quantity.
int kUserOrder[kColumns] = {0, 2, 1, 4, 3, 5};
constexpr const WCHAR* kPlacementSection = u"Print Host";
constexpr const WCHAR* kPlacementEntry = u"MainWindow";

std::string g_out;

std::string Utf8(const CString& text) {
    return platform::ToUtf8(std::u16string(text.GetString(), text.GetLength()));
}

void Save(const std::string& name) {
    const std::string path = g_out + "/" + name;
    if (platform::SaveDesktopAsPng(path))
        std::printf("wrote %s\n", path.c_str());
    else
        std::fprintf(stderr, "could not write %s\n", path.c_str());
}

// A delivery's cells: item, site, date received, quantity, price and note;
// each document has rows of its own.
CString Cell(int document, int row, int column) {
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

class CPrintHostApp : public CWinApp {
public:
    explicit CPrintHostApp(const std::string& profile) : CWinApp(u"Print Host") {
        free(const_cast<WCHAR*>(m_pszProfileName));
        m_pszProfileName = _wcsdup(platform::FromUtf8(profile).GetString());
    }

protected:
    void OnFileNew() {
        POSITION pos = GetFirstDocTemplatePosition();
        if (pos)
            GetNextDocTemplate(pos)->OpenDocumentFile(nullptr);
    }
    void OnAppExit() {
        if (m_pMainWnd)
            m_pMainWnd->SendMessage(WM_CLOSE);
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CPrintHostApp, CWinApp)
ON_COMMAND(ID_FILE_NEW, OnFileNew)
ON_COMMAND(ID_APP_EXIT, OnAppExit)
END_MESSAGE_MAP()

// A list of deliveries: each new document is the next in number.
class CDeliveryDoc : public CDocument {
    DECLARE_DYNCREATE(CDeliveryDoc)

public:
    BOOL OnNewDocument() override {
        static int opened = 0;
        m_number = opened++;
        return CDocument::OnNewDocument();
    }
    int m_number = 0;
};

IMPLEMENT_DYNCREATE(CDeliveryDoc, CDocument)

// The document's deliveries in a report list that fills the view; the
// host's print commands hand the list to the library's list printing.
class CDeliveryView : public CView {
    DECLARE_DYNCREATE(CDeliveryView)

public:
    CListCtrl m_list;

    void OnInitialUpdate() override {
        CView::OnInitialUpdate();
        static const char16_t* const titles[] = {u"Item",     u"Site",  u"Received",
                                                 u"Quantity", u"Price", u"Note"};
        static const int widths[] = {170, 110, 110, 80, 80, 130};
        for (int c = 0; c < kColumns; ++c)
            m_list.InsertColumn(c, titles[c], c == 3 || c == 4 ? LVCFMT_RIGHT : LVCFMT_LEFT,
                                widths[c]);
        const int document = static_cast<CDeliveryDoc*>(GetDocument())->m_number;
        for (int r = 0; r < kRows; ++r) {
            m_list.InsertItem(r, Cell(document, r, 0));
            for (int c = 1; c < kColumns; ++c)
                m_list.SetItemText(r, c, Cell(document, r, c));
        }
        m_list.SetColumnOrderArray(kColumns, kUserOrder);
    }
    void OnDraw(CDC*) override {}

protected:
    int OnCreate(LPCREATESTRUCT cs) override {
        if (CView::OnCreate(cs) == -1)
            return -1;
        CRect client;
        GetClientRect(&client);
        return m_list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHOWSELALWAYS, client, this,
                             1)
                   ? 0
                   : -1;
    }
    void OnSize(UINT type, int cx, int cy) override {
        CView::OnSize(type, cx, cy);
        if (m_list.m_hWnd)
            m_list.MoveWindow(0, 0, cx, cy);
    }
    void OnSetFocus(CWnd*) {
        if (m_list.m_hWnd)
            m_list.SetFocus();
    }
    void OnListPrint() { PrintList(ID_FILE_PRINT); }
    void OnListPreview() { PrintList(ID_FILE_PRINT_PREVIEW); }

    // Opens a printout of the list through the print template: its view
    // prints or previews it, and its frame closes when that is done.
    void PrintList(UINT command) {
        CDocTemplate* printout = WinUtils::FindDocTemplate(IDR_LISTPRINT);
        if (!printout)
            return;
        auto* doc = new CListPrintDoc(&m_list, u"North Plant", command, TRUE,
                                      COleDateTime(2024, 1, 1, 0, 0, 0),
                                      COleDateTime(2024, 6, 30, 0, 0, 0));
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

    DECLARE_MESSAGE_MAP()
};

IMPLEMENT_DYNCREATE(CDeliveryView, CView)

BEGIN_MESSAGE_MAP(CDeliveryView, CView)
ON_WM_SETFOCUS()
ON_COMMAND(ID_LIST_PRINT, OnListPrint)
ON_COMMAND(ID_LIST_PREVIEW, OnListPreview)
END_MESSAGE_MAP()

struct Host {
    std::unique_ptr<CPrintHostApp> app;
    CMDIFrameWnd* main = nullptr;
};

bool Start(Host& host, const std::string& profile) {
    host.app = std::make_unique<CPrintHostApp>(profile);
    host.app->AddDocTemplate(new CMultiDocTemplatePlus(IDR_DELIVERIES, RUNTIME_CLASS(CDeliveryDoc),
                                                       RUNTIME_CLASS(CMDIChildWndPlus),
                                                       RUNTIME_CLASS(CDeliveryView)));
    host.app->AddDocTemplate(new CMultiDocTemplate(IDR_LISTPRINT, RUNTIME_CLASS(CListPrintDoc),
                                                   RUNTIME_CLASS(CListPrintFrame),
                                                   RUNTIME_CLASS(CListPrintView)));
    host.main = new CMDIFrameWnd;
    if (!host.main->LoadFrame(IDR_MAINFRAME)) {
        std::fprintf(stderr, "the main window could not be made\n");
        return false;
    }
    host.app->m_pMainWnd = host.main;
    host.main->MoveWindow(0, 0, 860, 680);
    host.main->ShowWindow(SW_SHOWNORMAL);
    host.main->UpdateWindow();
    return true;
}

int OpenPrintouts() {
    CDocTemplate* printout = WinUtils::FindDocTemplate(IDR_LISTPRINT);
    int count = 0;
    for (POSITION pos = printout ? printout->GetFirstDocPosition() : nullptr; pos;
         printout->GetNextDoc(pos))
        ++count;
    return count;
}

int PdfPages(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    int pages = 0;
    for (std::size_t at = bytes.find("/Type /Page"); at != std::string::npos;
         at = bytes.find("/Type /Page", at + 1))
        if (at + 11 < bytes.size() && bytes[at + 11] != 's')
            ++pages;
    return pages;
}

CString TitleOf(CMDIChildWnd* frame) {
    CDocument* doc = frame ? frame->GetActiveDocument() : nullptr;
    return doc ? doc->GetTitle() : CString(u"(none)");
}

void QueuePrinting(Host& host) {
    const std::string pdf = g_out + "/list-print.pdf";
    std::filesystem::remove(pdf);
    // The print dialog: the PDF printer and the file its pages go to.
    automation::PickMenuItem(ID_LIST_PRINT);
    automation::ChoosePrinter(platform::kPdfPrinter);
    automation::SetPrintFile(platform::FromUtf8(pdf).GetString());
    automation::Click(IDOK);
    automation::Do([&host, pdf] {
        CMDIChildWnd* active = host.main->MDIGetActive();
        auto* view = active ? DYNAMIC_DOWNCAST(CDeliveryView, active->GetActiveView()) : nullptr;
        std::printf("printed the list of %s: %d pages to %s; printout closed: %s; "
                    "focus back on the list: %s\n",
                    Utf8(TitleOf(active)).c_str(), PdfPages(pdf), pdf.c_str(),
                    OpenPrintouts() == 0 ? "yes" : "no",
                    view && ::GetFocus() == view->m_list.m_hWnd ? "yes" : "no");
    });
}

void QueuePreview(Host& host) {
    automation::PickMenuItem(ID_LIST_PREVIEW);
    automation::ClickPreviewButton(AFX_ID_PREVIEW_NUMPAGE);
    automation::Do([&host] {
        CMDIChildWnd* frame = host.main->MDIGetActive();
        for (int page = 0; page < 2; ++page) {
            const std::string path = g_out + "/list-preview-" + std::to_string(page + 1) + ".png";
            if (frame && platform::SavePreviewPage(frame->m_hWnd, page, path))
                std::printf("wrote %s, preview page %d\n", path.c_str(), page + 1);
            else
                std::fprintf(stderr, "preview page %d could not be saved\n", page + 1);
        }
        Save("list-preview-window.png");
    });
    automation::ClickPreviewButton(AFX_ID_PREVIEW_CLOSE);
    automation::Do([] {
        std::printf("preview closed, printout closed: %s\n", OpenPrintouts() == 0 ? "yes" : "no");
    });
}

void QueueMaximised(Host& host) {
    automation::Do([&host] {
        CMDIChildWnd* active = host.main->MDIGetActive();
        host.main->MDIMaximize(active);
        BOOL maximised = FALSE;
        host.main->MDIGetActive(&maximised);
        std::printf("%s maximised: %s\n", Utf8(TitleOf(active)).c_str(), maximised ? "yes" : "no");
        Save("mdi-maximised.png");
    });
    automation::PickMenuItem(ID_CLOSE_WINDOW);
    automation::Do([&host] {
        BOOL maximised = FALSE;
        CMDIChildWnd* next = host.main->MDIGetActive(&maximised);
        std::printf("after closing it, %s shows maximised: %s\n", Utf8(TitleOf(next)).c_str(),
                    maximised ? "yes" : "no");
        Save("mdi-next-maximised.png");
        // Where the user leaves the main window.
        host.main->MoveWindow(70, 50, 900, 700);
        WinUtils::SaveWindowPlacement(kPlacementSection, kPlacementEntry, host.main);
        std::printf("main window left at 70,50 900x700\n");
    });
    automation::PickMenuItem(ID_APP_EXIT);
}

int FirstRun(const char* self) {
    Host host;
    if (!Start(host, g_out + "/print-host.ini"))
        return 1;
    automation::PickMenuItem(ID_FILE_NEW);
    automation::PickMenuItem(ID_FILE_NEW);
    automation::Do([&host] {
        CMDIChildWnd* active = host.main->MDIGetActive();
        std::printf("opened two documents, %s active\n", Utf8(TitleOf(active)).c_str());
        Save("mdi-two-documents.png");
    });
    QueuePrinting(host);
    QueuePreview(host);
    QueueMaximised(host);
    host.app->Run();
    if (automation::CancelsForWantOfActions() != 0) {
        std::fprintf(stderr, "a dialog was left waiting for the user\n");
        return 1;
    }
    std::fflush(stdout);
    const std::string again = std::string("\"") + self + "\" \"" + g_out + "\" --again";
    return std::system(again.c_str()) == 0 ? 0 : 1;
}

int SecondRun() {
    Host host;
    if (!Start(host, g_out + "/print-host.ini"))
        return 1;
    bool ok = false;
    automation::Do([&host, &ok] {
        WinUtils::RestoreWindowPlacement(kPlacementSection, kPlacementEntry, host.main);
        CRect rect;
        host.main->GetWindowRect(&rect);
        ok = rect == CRect(70, 50, 970, 750);
        std::printf("second run: main window at %d,%d %dx%d, %s\n", static_cast<int>(rect.left),
                    static_cast<int>(rect.top), rect.Width(), rect.Height(),
                    ok ? "where the user left it" : "not restored");
    });
    automation::PickMenuItem(ID_FILE_NEW);
    automation::Do([&host, &ok] {
        BOOL maximised = FALSE;
        CMDIChildWnd* active = host.main->MDIGetActive(&maximised);
        std::printf("second run: %s opens maximised, as the last one closed: %s\n",
                    Utf8(TitleOf(active)).c_str(), maximised ? "yes" : "no");
        ok = ok && maximised;
        Save("mdi-restored.png");
    });
    automation::PickMenuItem(ID_APP_EXIT);
    host.app->Run();
    return ok ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    g_out = argc > 1 ? argv[1] : "out";
    const bool again = argc > 2 && std::string(argv[2]) == "--again";
    std::filesystem::create_directories(g_out);
    if (!again)
        std::filesystem::remove(g_out + "/print-host.ini");
    return again ? SecondRun() : FirstRun(argv[0]);
}
