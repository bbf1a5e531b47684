// The frame host: a main frame with a menu, a list of tasks, a colour status
// bar and a docking toolbox. The simulated user opens the toolbox's context
// menu, floats the toolbox, docks it again through the same menu, hides it
// and shows it again from the View menu, and leaves through File > Exit; the
// host also docks the toolbox at each edge. Each state is saved as a picture.
//
//   frame_host OUT
#include <Win/Win.h>
#include <tchar.h>

#include <platform/Automation.h>
#include <platform/CodePage.h>
#include <platform/MessagePump.h>
#include <platform/WindowPictures.h>

#include "resource.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>

namespace {

namespace automation = platform::automation;

const char16_t* const kTools[] = {u"Pointer", u"Text", u"Line",   u"Rectangle",
                                  u"Ellipse", u"Fill", u"Eraser", u"Measure"};

struct Task {
    const char16_t* name;
    const char16_t* owner;
    const char16_t* due;
};

const Task kTasks[] = {
    {u"Survey the east wall", u"Ana", u"3/14/2024"}, {u"Order anchor plates", u"Ben", u"3/18/2024"},
    {u"Check the cable runs", u"Ana", u"3/21/2024"}, {u"Paint the stairwell", u"Carl", u"4/2/2024"},
    {u"Fit the fire doors", u"Dana", u"4/9/2024"},   {u"Hand over the keys", u"Ben", u"4/30/2024"},
};

// A menu text as a person reads it: without the '&' marks.
std::string Plain(const std::u16string& text) {
    std::string out;
    for (char16_t ch : text)
        if (ch != u'&')
            out += ch < 0x80 ? static_cast<char>(ch) : '?';
    return out;
}

// The toolbox: a list of drawing tools in a bar that docks and floats. Its
// context menu holds its own command, then the bar's.
class CToolboxBar : public CDockingControlBar {
public:
    BOOL CreateToolbox(CFrameWnd* frame, CFont* font) {
        if (!Create(u"Toolbox", frame, WS_CHILD | WS_VISIBLE | CBRS_LEFT))
            return FALSE;
        m_szVert = CSize(150, 300);
        m_szHorz = CSize(300, 110);
        m_szFloat = CSize(170, 210);
        if (!m_tools.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_NOCOLUMNHEADER |
                                LVS_SINGLESEL | LVS_SHOWSELALWAYS,
                            CRect(0, 0, 10, 10), this, IDC_TOOLS))
            return FALSE;
        m_tools.SetFont(font);
        m_tools.InsertColumn(0, u"Tool", LVCFMT_LEFT, 140);
        int row = 0;
        for (const char16_t* tool : kTools)
            m_tools.InsertItem(row++, tool);
        return TRUE;
    }

    CListCtrl m_tools;

protected:
    void BuildContextMenu(CMenu& menu) override {
        menu.AppendMenu(MF_STRING, ID_TOOLBOX_SORT, u"&Sort Tools");
        GetContextMenu(menu);
    }
    // The tools in reverse order, to show the command reached the bar.
    void OnSortTools() {
        m_tools.DeleteAllItems();
        int row = 0;
        for (auto it = std::rbegin(kTools); it != std::rend(kTools); ++it)
            m_tools.InsertItem(row++, *it);
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CToolboxBar, CDockingControlBar)
ON_COMMAND(ID_TOOLBOX_SORT, OnSortTools)
END_MESSAGE_MAP()

class CMainFrame : public CFrameWnd {
public:
    // The font of the lists, the one the host's windows use.
    CFont m_font;
    CColorStatusBar m_status;
    CToolboxBar m_toolbox;
    CListCtrl m_tasks;

    void SetStatus(const CString& text) { m_status.SetPaneText(0, text); }

protected:
    int OnCreate(LPCREATESTRUCT cs) override {
        if (CFrameWnd::OnCreate(cs) == -1)
            return -1;
        if (!m_tasks.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHOWSELALWAYS,
                            CRect(0, 0, 10, 10), this, AFX_IDW_PANE_FIRST))
            return -1;
        LOGFONT lf{};
        lf.lfHeight = -12;
        const char16_t face[] = u"Segoe UI";
        std::copy(std::begin(face), std::end(face), lf.lfFaceName);
        if (!m_font.CreateFontIndirect(&lf))
            return -1;
        m_tasks.SetFont(&m_font);
        m_tasks.SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT,
                            LVS_EX_FULLROWSELECT);
        m_tasks.InsertColumn(0, u"Task", LVCFMT_LEFT, 220);
        m_tasks.InsertColumn(1, u"Owner", LVCFMT_LEFT, 90);
        m_tasks.InsertColumn(2, u"Due", LVCFMT_LEFT, 100);
        int row = 0;
        for (const Task& task : kTasks) {
            m_tasks.InsertItem(row, task.name);
            m_tasks.SetItemText(row, 1, task.owner);
            m_tasks.SetItemText(row, 2, task.due);
            ++row;
        }
        if (!m_status.Create(this))
            return -1;
        const UINT indicators[] = {ID_SEPARATOR, IDS_INDICATOR_CAPS, IDS_INDICATOR_NUM};
        m_status.SetIndicators(indicators, 3);
        SetStatus(CResourceString(IDS_READY));
        EnableDocking(CBRS_ALIGN_ANY);
        if (!m_toolbox.CreateToolbox(this, &m_font))
            return -1;
        m_toolbox.EnableDocking(CBRS_ALIGN_ANY);
        DockControlBar(&m_toolbox, AFX_IDW_DOCKBAR_LEFT);
        RecalcLayout();
        return 0;
    }

    void OnExit() { PostMessage(WM_CLOSE); }
    void OnViewToolbox() {
        ShowControlBar(&m_toolbox, !m_toolbox.IsVisible(), FALSE);
        SetStatus(m_toolbox.IsVisible() ? u"Toolbox shown" : u"Toolbox hidden");
    }
    void OnUpdateViewToolbox(CCmdUI* ui) { ui->SetCheck(m_toolbox.IsVisible() ? 1 : 0); }
    void OnClearStatusText() { SetStatus(u""); }
    void OnAbout() {
        AfxMessageBox(u"Frame Host: a frame with a colour status bar and a docking toolbox.");
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CMainFrame, CFrameWnd)
ON_COMMAND(ID_APP_EXIT, OnExit)
ON_COMMAND(ID_VIEW_TOOLBOX, OnViewToolbox)
ON_UPDATE_COMMAND_UI(ID_VIEW_TOOLBOX, OnUpdateViewToolbox)
ON_COMMAND(ID_VIEW_STATUS_BAR_TEXT, OnClearStatusText)
ON_COMMAND(ID_APP_ABOUT, OnAbout)
END_MESSAGE_MAP()

class FrameHostApp : public CWinApp {
public:
    FrameHostApp() : CWinApp(u"Frame Host") {}
};

CMainFrame* g_frame = nullptr;
std::string g_out;
int g_failures = 0;

void Check(bool ok, const char* what) {
    std::printf("%s: %s\n", what, ok ? "yes" : "no");
    if (!ok)
        ++g_failures;
}

void Report(bool ok, const std::string& path) {
    if (ok) {
        std::printf("wrote %s\n", path.c_str());
    } else {
        std::fprintf(stderr, "could not write %s\n", path.c_str());
        ++g_failures;
    }
}

void SaveFrame(const char* name) {
    const std::string path = g_out + "/" + name;
    Report(platform::SaveWindowAsPng(g_frame->m_hWnd, path), path);
}

// The part of the screen the frame and the windows above it take, a margin
// round it, so that a floating bar or a menu that stands out shows whole.
void SaveScreen(const char* name, const RECT& extra) {
    CRect area;
    g_frame->GetWindowRect(&area);
    if (extra.right > extra.left) {
        area.left = std::min(area.left, extra.left);
        area.top = std::min(area.top, extra.top);
        area.right = std::max(area.right, extra.right);
        area.bottom = std::max(area.bottom, extra.bottom);
    }
    area.InflateRect(12, 12);
    const std::string path = g_out + "/" + name;
    Report(platform::SaveDesktopAreaAsPng(area, path), path);
}

HWND FloatingFrame() {
    return g_frame->m_toolbox.IsFloating() ? ::GetParent(::GetParent(g_frame->m_toolbox.m_hWnd))
                                           : nullptr;
}

const char* EdgeName(UINT id) {
    switch (id) {
    case AFX_IDW_DOCKBAR_TOP:
        return "top";
    case AFX_IDW_DOCKBAR_BOTTOM:
        return "bottom";
    case AFX_IDW_DOCKBAR_LEFT:
        return "left";
    case AFX_IDW_DOCKBAR_RIGHT:
        return "right";
    default:
        return "nowhere";
    }
}

UINT DockedAt() {
    CToolboxBar& bar = g_frame->m_toolbox;
    return bar.m_pDockBar && !bar.IsFloating()
               ? static_cast<UINT>(::GetDlgCtrlID(::GetParent(bar.m_hWnd)))
               : 0;
}

// Right click on the toolbox's title strip while it is docked, on its list
// while it floats (the list passes the click on to the bar).
void RightClickToolbox(bool floating) {
    CToolboxBar& bar = g_frame->m_toolbox;
    automation::RightClickAt(bar.m_hWnd, POINT{60, floating ? 60 : 9});
}

void QueueContextMenu() {
    RightClickToolbox(false);
    automation::Do([] {
        automation::PopupMenuView view;
        if (!automation::ReadPopupMenu(&view)) {
            std::fprintf(stderr, "the toolbox showed no context menu\n");
            ++g_failures;
            return;
        }
        std::string items;
        for (const auto& item : view.items)
            items += (items.empty() ? "" : ", ") + Plain(item.text);
        std::printf("context menu: %s\n", items.c_str());
        SaveScreen("frame-context-menu.png", view.rect);
    });
    automation::PickPopupMenuItem(ID_TOOLBOX_SORT);
    automation::Do([] {
        Check(g_frame->m_toolbox.m_tools.GetItemText(0, 0) == u"Measure",
              "the toolbox's own command sorted its tools");
    });
}

void QueueFloatAndDock() {
    RightClickToolbox(false);
    automation::PickPopupMenuItem(ID_DOCKINGBAR_FLOAT);
    automation::Do([] {
        Check(g_frame->m_toolbox.IsFloating() != FALSE, "floating");
        g_frame->SetStatus(u"Toolbox floating: right-click it to dock it again");
        CRect small;
        ::GetWindowRect(FloatingFrame(), &small);
        SaveScreen("frame-floating.png", small);
    });
    RightClickToolbox(true);
    automation::Do([] {
        automation::PopupMenuView view;
        automation::ReadPopupMenu(&view);
        std::string items;
        for (const auto& item : view.items)
            items += (items.empty() ? "" : ", ") + Plain(item.text);
        std::printf("floating context menu: %s\n", items.c_str());
    });
    automation::PickPopupMenuItem(ID_DOCKINGBAR_DOCK);
    automation::Do([] {
        Check(DockedAt() == AFX_IDW_DOCKBAR_LEFT, "docked again at the left");
        Check(!::IsWindowVisible(FloatingFrame()), "the small frame went");
    });
}

void QueueEdges() {
    for (UINT edge : {AFX_IDW_DOCKBAR_TOP, AFX_IDW_DOCKBAR_RIGHT, AFX_IDW_DOCKBAR_BOTTOM,
                      AFX_IDW_DOCKBAR_LEFT}) {
        automation::Do([edge] {
            g_frame->DockControlBar(&g_frame->m_toolbox, edge);
            CString status;
            status.Format(u"Toolbox docked at the %s",
                          platform::FromUtf8(EdgeName(edge)).GetString());
            g_frame->SetStatus(status);
            std::printf("docked at the %s: %s\n", EdgeName(edge),
                        DockedAt() == edge ? "yes" : "no");
            if (edge != AFX_IDW_DOCKBAR_LEFT)
                SaveFrame((std::string("frame-dock-") + EdgeName(edge) + ".png").c_str());
        });
    }
}

// The toolbox dragged by its title strip to a screen point: the button goes
// down, the pointer moves there (a picture of the frame and around shows
// the outline of where the bar would go) and the button comes up.
// from: where the button goes down, on the toolbox's title strip (docked)
// or on its small frame's caption (floating).
void QueueDrag(bool fromCaption, CPoint to, const char* picture, const RECT& around) {
    auto post = [](UINT message, CPoint screen) {
        ::SetCursorPos(screen.x, screen.y);
        CToolboxBar& bar = g_frame->m_toolbox;
        bar.ScreenToClient(&screen);
        bar.PostMessage(message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON,
                        MAKELPARAM(screen.x, screen.y));
    };
    automation::Do([post, fromCaption] {
        g_frame->SetStatus(u"Dragging the toolbox");
        if (fromCaption) {
            CRect small;
            ::GetWindowRect(FloatingFrame(), &small);
            ::SetCursorPos(small.left + 40, small.top + 8);
            ::PostMessage(FloatingFrame(), WM_NCLBUTTONDOWN, HTCAPTION,
                          MAKELPARAM(small.left + 40, small.top + 8));
            return;
        }
        CPoint title(60, 9);
        g_frame->m_toolbox.ClientToScreen(&title);
        post(WM_LBUTTONDOWN, title);
    });
    automation::Do([post, to] { post(WM_MOUSEMOVE, to); });
    automation::Do([picture, around] { SaveScreen(picture, around); });
    automation::Do([post, to] { post(WM_LBUTTONUP, to); });
}

void QueueDrags() {
    CRect client;
    g_frame->GetClientRect(&client);
    g_frame->ClientToScreen(&client);
    // Over the right edge: a thin outline, and the bar docks there.
    QueueDrag(false, CPoint(client.right - 8, client.top + 120), "frame-drag-to-edge.png", RECT{});
    automation::Do([] {
        Check(DockedAt() == AFX_IDW_DOCKBAR_RIGHT, "dragged to the right edge");
        g_frame->SetStatus(u"Toolbox dragged to the right edge");
        SaveFrame("frame-dragged-to-edge.png");
    });
    // Out of the frame: a thick outline the size of its small frame, and
    // the bar floats there.
    const CPoint out(client.right + 40, client.top + 60);
    QueueDrag(false, out, "frame-drag-out.png",
              RECT{out.x - 60, out.y - 10, out.x + 200, out.y + 250});
    auto small = std::make_shared<HWND>();
    automation::Do([small] {
        Check(g_frame->m_toolbox.IsFloating() != FALSE, "dragged out to float");
        *small = FloatingFrame();
    });
    // By its small frame's caption over the left edge: docked there again.
    QueueDrag(true, CPoint(client.left + 6, client.top + 100), "frame-drag-back.png",
              RECT{out.x - 60, out.y - 10, out.x + 200, out.y + 250});
    automation::Do([small] {
        Check(DockedAt() == AFX_IDW_DOCKBAR_LEFT, "dragged back to the left edge");
        Check(*small && !::IsWindowVisible(*small), "its small frame went");
    });
}

void QueueHideAndShow() {
    RightClickToolbox(false);
    automation::PickPopupMenuItem(ID_DOCKINGBAR_HIDE);
    automation::Do([] {
        Check(!g_frame->m_toolbox.IsVisible(), "hidden");
        SaveFrame("frame-hidden.png");
    });
    automation::PickMenuItem(ID_VIEW_TOOLBOX);
    automation::Do([] {
        Check(g_frame->m_toolbox.IsVisible() && DockedAt() == AFX_IDW_DOCKBAR_LEFT,
              "shown again from the View menu");
    });
    automation::PickMenuItem(ID_VIEW_STATUS_BAR_TEXT);
    automation::Do([] {
        Check(g_frame->m_status.GetPaneText(0).IsEmpty(), "status text cleared");
        SaveFrame("frame-status-cleared.png");
    });
}

} // namespace

int main(int argc, char** argv) {
    g_out = argc > 1 ? argv[1] : "out";
    FrameHostApp app;
    auto* frame = new CMainFrame;
    if (!frame->LoadFrame(IDR_MAINFRAME, WS_OVERLAPPEDWINDOW)) {
        std::fprintf(stderr, "the frame could not be made\n");
        return 1;
    }
    g_frame = frame;
    app.m_pMainWnd = frame;
    // The frame object goes with its window.
    const HWND frameWindow = frame->m_hWnd;
    frame->MoveWindow(40, 40, 760, 520);
    // Where the toolbox floats when it is first floated: over the right
    // part of the frame, as a host would remember it from its last run.
    frame->m_toolbox.m_pDockContext->m_ptMRUFloatPos = CPoint(40 + 540, 40 + 120);
    frame->ShowWindow(SW_SHOWNORMAL);
    frame->UpdateWindow();

    automation::Do([] {
        Check(DockedAt() == AFX_IDW_DOCKBAR_LEFT, "docked at the left");
        SaveFrame("frame-docked.png");
    });
    QueueContextMenu();
    QueueFloatAndDock();
    QueueEdges();
    QueueDrags();
    QueueHideAndShow();
    automation::PickMenuItem(ID_APP_EXIT);
    const int code = app.Run();
    for (const std::string& line : automation::Record())
        std::printf("user: %s\n", line.c_str());
    if (automation::CancelsForWantOfActions() != 0 || ::IsWindow(frameWindow) || g_failures != 0) {
        std::fprintf(stderr, "the frame host did not run as the user acted\n");
        return 1;
    }
    return code;
}
