// Dockable bars in a frame: dock bars along the edges, docking in rows,
// floating in a small captioned frame, switching between the two and back
// to where the bar was, hiding and showing, the bar's child window, its
// context menu and its commands, its sizes in an archive.
#include "BarFrame.h"

#include "support/ArchiveImage.h"

#include "support/TempDir.h"

#include <SECControlBar.h>
#include <platform/WindowPictures.h>

#include <cairo.h>

#include <string>

namespace controlbars {
namespace {

namespace automation = platform::automation;

constexpr UINT ID_BAR_COMMAND = 33002;
constexpr UINT ID_UNHANDLED = 33003;

// A host's bar with a context menu of its own: one command it handles, one
// the frame handles and one nobody handles.
class CToolsBar : public SECControlBar {
public:
    std::vector<UINT> handled;

    void ShowContextMenuItems(bool show) { m_items = show; }

protected:
    void BuildContextMenu(CMenu& menu) override {
        if (!m_items)
            return;
        menu.AppendMenu(MF_STRING, ID_BAR_COMMAND, u"&Refresh");
        menu.AppendMenu(MF_SEPARATOR);
        menu.AppendMenu(MF_STRING, ID_FRAME_COMMAND, u"Frame's own\tCtrl+F");
        menu.AppendMenu(MF_STRING, ID_UNHANDLED, u"Nobody's");
    }
    void OnBarCommand() { handled.push_back(ID_BAR_COMMAND); }

    bool m_items = true;

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CToolsBar, SECControlBar)
ON_COMMAND(ID_BAR_COMMAND, OnBarCommand)
END_MESSAGE_MAP()

// The id of the dock bar holding bar, or 0.
int DockedIn(const CControlBar& bar) {
    return bar.m_pDockBar ? ::GetDlgCtrlID(::GetParent(bar.m_hWnd)) : 0;
}

class DockingTest : public BarFrameTest {
protected:
    void SetUp() override {
        BarFrameTest::SetUp();
        ASSERT_TRUE(status.Create(frame));
        frame->EnableDocking(CBRS_ALIGN_ANY);
        ASSERT_TRUE(bar.Create(u"Tools", frame));
        bar.EnableDocking(CBRS_ALIGN_ANY);
    }
    // Runs the simulated user's actions and the messages they bring.
    void RunUser() {
        do
            platform::PumpMessages();
        while (automation::RunNext());
        platform::PumpMessages();
    }
    // The small frame the bar floats in, or null.
    HWND FloatingFrame() {
        if (!bar.IsFloating())
            return nullptr;
        return ::GetParent(::GetParent(bar.m_hWnd));
    }
    int StatusTop() { return InFrame(status).top; }

    CStatusBar status;
    CToolsBar bar;
};

TEST_F(DockingTest, EmptyDockBarsTakeNoRoom) {
    for (UINT id : {AFX_IDW_DOCKBAR_TOP, AFX_IDW_DOCKBAR_BOTTOM, AFX_IDW_DOCKBAR_LEFT,
                    AFX_IDW_DOCKBAR_RIGHT}) {
        CControlBar* dock = frame->GetControlBar(id);
        ASSERT_NE(dock, nullptr) << id;
        EXPECT_TRUE(dock->IsDockBar());
    }
    EXPECT_EQ(frame->GetControlBar(AFX_IDW_DOCKBAR_FLOAT), nullptr);
    // The bar is not docked yet: it lies where it was made, along the top.
    frame->RecalcLayout();
    EXPECT_FALSE(bar.IsFloating());
    EXPECT_EQ(bar.m_pDockBar, nullptr);
    EXPECT_EQ(InFrame(pane), CRect(0, bar.m_szHorz.cy, Client().right, StatusTop()));
    // Enabling again makes no second set.
    const std::size_t bars = frame->m_listControlBars.size();
    frame->EnableDocking(CBRS_ALIGN_ANY);
    EXPECT_EQ(frame->m_listControlBars.size(), bars);
}

TEST_F(DockingTest, ADockedBarTakesItsRoomFromEachEdge) {
    const CRect client = Client();
    const int bottom = StatusTop();
    const CSize horz = bar.m_szHorz;
    const CSize vert = bar.m_szVert;
    struct Case {
        UINT id;
        DWORD align;
        CRect where;
        CRect rest;
    } cases[] = {
        {AFX_IDW_DOCKBAR_TOP, CBRS_ALIGN_TOP, CRect(0, 0, client.right, horz.cy),
         CRect(0, horz.cy, client.right, bottom)},
        {AFX_IDW_DOCKBAR_BOTTOM, CBRS_ALIGN_BOTTOM,
         CRect(0, bottom - horz.cy, client.right, bottom),
         CRect(0, 0, client.right, bottom - horz.cy)},
        {AFX_IDW_DOCKBAR_LEFT, CBRS_ALIGN_LEFT, CRect(0, 0, vert.cx, bottom),
         CRect(vert.cx, 0, client.right, bottom)},
        {AFX_IDW_DOCKBAR_RIGHT, CBRS_ALIGN_RIGHT,
         CRect(client.right - vert.cx, 0, client.right, bottom),
         CRect(0, 0, client.right - vert.cx, bottom)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.id);
        frame->DockControlBar(&bar, c.id);
        EXPECT_FALSE(bar.IsFloating());
        ASSERT_NE(bar.m_pDockBar, nullptr);
        EXPECT_EQ(DockedIn(bar), static_cast<int>(c.id));
        EXPECT_EQ(bar.GetBarStyle() & CBRS_ALIGN_ANY, c.align);
        EXPECT_EQ(InFrame(bar), c.where);
        EXPECT_EQ(InFrame(pane), c.rest);
        EXPECT_EQ(bar.m_pDockContext->m_uMRUDockID, c.id);
    }
}

TEST_F(DockingTest, BarsStackInRowsOrShareOne) {
    CToolsBar second;
    ASSERT_TRUE(second.Create(u"Output", frame));
    second.EnableDocking(CBRS_ALIGN_ANY);
    second.m_szHorz = CSize(150, 60);
    frame->DockControlBar(&bar, AFX_IDW_DOCKBAR_TOP);
    frame->DockControlBar(&second, AFX_IDW_DOCKBAR_TOP);
    // Each in a row of its own, the second below the first.
    EXPECT_EQ(InFrame(second), CRect(0, bar.m_szHorz.cy, Client().right, bar.m_szHorz.cy + 60));
    EXPECT_EQ(InFrame(pane).top, bar.m_szHorz.cy + 60);

    // Docked at a point of the first row, it shares that row: the first
    // keeps its width and the last reaches the row's end.
    CRect firstRow;
    bar.GetWindowRect(&firstRow);
    const CRect point(firstRow.left + 300, firstRow.top + 5, firstRow.left + 301, firstRow.top + 6);
    frame->DockControlBar(&second, AFX_IDW_DOCKBAR_TOP, &point);
    EXPECT_EQ(InFrame(bar), CRect(0, 0, bar.m_szHorz.cx, bar.m_szHorz.cy));
    EXPECT_EQ(InFrame(second), CRect(bar.m_szHorz.cx, 0, Client().right, bar.m_szHorz.cy));
    EXPECT_EQ(InFrame(pane).top, bar.m_szHorz.cy);
    // A point before the first bar puts it first.
    const CRect before(firstRow.left, firstRow.top + 5, firstRow.left + 1, firstRow.top + 6);
    frame->DockControlBar(&second, AFX_IDW_DOCKBAR_TOP, &before);
    EXPECT_EQ(InFrame(second), CRect(0, 0, 150, bar.m_szHorz.cy));
    EXPECT_EQ(InFrame(bar).left, 150);
}

TEST_F(DockingTest, AFloatingBarLiesInASmallCaptionedFrameOfItsOwn) {
    frame->DockControlBar(&bar, AFX_IDW_DOCKBAR_LEFT);
    frame->SetActiveWindow();
    frame->FloatControlBar(&bar, CPoint(300, 250));
    ASSERT_TRUE(bar.IsFloating());
    EXPECT_TRUE(bar.GetBarStyle() & CBRS_FLOATING);
    HWND small = FloatingFrame();
    ASSERT_TRUE(::IsWindow(small));
    EXPECT_TRUE(::IsWindowVisible(small));
    EXPECT_EQ(::GetWindow(small, GW_OWNER), frameHwnd());
    EXPECT_EQ(::GetWindowLongPtr(small, GWL_STYLE) & WS_CAPTION, WS_CAPTION);
    std::u16string title(16, u'\0');
    title.resize(static_cast<std::size_t>(::GetWindowText(small, title.data(), 16)));
    EXPECT_EQ(title, u"Tools");
    CRect outer, client;
    ::GetWindowRect(small, &outer);
    ::GetClientRect(small, &client);
    EXPECT_EQ(outer.TopLeft(), CPoint(300, 250));
    EXPECT_EQ(client.Size(), bar.m_szFloat);
    CRect inBar;
    bar.GetClientRect(&inBar);
    EXPECT_EQ(inBar.Size(), bar.m_szFloat);
    // The frame keeps the activation and its pane gets the room back.
    EXPECT_EQ(::GetActiveWindow(), frameHwnd());
    EXPECT_EQ(InFrame(pane), CRect(0, 0, Client().right, StatusTop()));
    // Floated again elsewhere, it moves its frame.
    frame->FloatControlBar(&bar, CPoint(50, 60));
    EXPECT_EQ(FloatingFrame(), small);
    ::GetWindowRect(small, &outer);
    EXPECT_EQ(outer.TopLeft(), CPoint(50, 60));
    // Floating in a tall shape, its frame takes the floating size all the same.
    frame->FloatControlBar(&bar, CPoint(50, 60), CBRS_ALIGN_LEFT);
    ::GetClientRect(small, &client);
    EXPECT_EQ(client.Size(), bar.m_szFloat);
}

// The colour of a window's top-left pixel in a picture of it: its outline,
// which shows whether the caption looks active.
COLORREF Outline(HWND hwnd, const std::filesystem::path& path) {
    if (!platform::SaveWindowAsPng(hwnd, path.string()))
        return CLR_INVALID;
    cairo_surface_t* image = cairo_image_surface_create_from_png(path.c_str());
    COLORREF colour = CLR_INVALID;
    if (cairo_surface_status(image) == CAIRO_STATUS_SUCCESS) {
        cairo_surface_flush(image);
        const uint32_t p = *reinterpret_cast<const uint32_t*>(cairo_image_surface_get_data(image));
        colour = RGB((p >> 16) & 0xFF, (p >> 8) & 0xFF, p & 0xFF);
    }
    cairo_surface_destroy(image);
    return colour;
}

TEST_F(DockingTest, TheFloatingCaptionFollowsItsFramesActivation) {
    const auto dir = testing_support::TestOutputDir("floating-caption");
    frame->SetActiveWindow();
    frame->FloatControlBar(&bar, CPoint(300, 250));
    HWND small = FloatingFrame();
    const COLORREF active = Outline(frameHwnd(), dir / "frame.png");
    EXPECT_EQ(Outline(small, dir / "active.png"), active);
    // Another window takes the activation: both look inactive.
    HWND other = ::CreateWindowEx(0, u"STATIC", u"Other", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                  100, 100, nullptr, nullptr, nullptr, nullptr);
    ASSERT_EQ(::GetActiveWindow(), other);
    const COLORREF inactive = Outline(frameHwnd(), dir / "frame-inactive.png");
    EXPECT_NE(inactive, active);
    EXPECT_EQ(Outline(small, dir / "inactive.png"), inactive);
    ::DestroyWindow(other);
    frame->SetActiveWindow();
    EXPECT_EQ(Outline(small, dir / "active-again.png"), active);
}

TEST_F(DockingTest, ToggleDockingGoesBackToWhereTheBarWas) {
    frame->DockControlBar(&bar, AFX_IDW_DOCKBAR_LEFT);
    const CRect docked = InFrame(bar);
    frame->FloatControlBar(&bar, CPoint(300, 250));
    HWND small = FloatingFrame();

    bar.m_pDockContext->ToggleDocking();
    EXPECT_FALSE(bar.IsFloating());
    EXPECT_EQ(DockedIn(bar), AFX_IDW_DOCKBAR_LEFT);
    EXPECT_EQ(InFrame(bar), docked);
    // The small frame waits, hidden, for the next bar that floats.
    EXPECT_TRUE(::IsWindow(small));
    EXPECT_FALSE(::IsWindowVisible(small));

    bar.m_pDockContext->ToggleDocking();
    ASSERT_TRUE(bar.IsFloating());
    EXPECT_EQ(FloatingFrame(), small);
    CRect outer;
    ::GetWindowRect(small, &outer);
    EXPECT_EQ(outer.TopLeft(), CPoint(300, 250));
    // Where the user left it counts, not where it first floated.
    ::SetWindowPos(small, nullptr, 420, 180, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    bar.m_pDockContext->ToggleDocking();
    bar.m_pDockContext->ToggleDocking();
    ::GetWindowRect(FloatingFrame(), &outer);
    EXPECT_EQ(outer.TopLeft(), CPoint(420, 180));
}

TEST_F(DockingTest, ABarThatNeverFloatedFloatsWhereItLies) {
    frame->DockControlBar(&bar, AFX_IDW_DOCKBAR_RIGHT);
    CRect where;
    bar.GetWindowRect(&where);
    bar.m_pDockContext->ToggleDocking();
    ASSERT_TRUE(bar.IsFloating());
    CRect outer;
    ::GetWindowRect(FloatingFrame(), &outer);
    EXPECT_EQ(outer.TopLeft(), where.TopLeft());
}

TEST_F(DockingTest, ABarThatNeverDockedDocksAtTheFirstEdgeItMay) {
    bar.EnableDocking(CBRS_ALIGN_LEFT | CBRS_ALIGN_RIGHT);
    frame->FloatControlBar(&bar, CPoint(200, 200));
    ASSERT_TRUE(bar.IsFloating());
    bar.m_pDockContext->ToggleDocking();
    EXPECT_FALSE(bar.IsFloating());
    EXPECT_EQ(DockedIn(bar), AFX_IDW_DOCKBAR_LEFT);
}

TEST_F(DockingTest, HiddenBarsGiveTheirRoomBackAndComeBackWhereTheyWere) {
    frame->DockControlBar(&bar, AFX_IDW_DOCKBAR_LEFT);
    const CRect docked = InFrame(bar);
    bar.Hide();
    EXPECT_FALSE(bar.IsVisible());
    EXPECT_EQ(InFrame(pane).left, 0);
    frame->ShowControlBar(&bar, TRUE, FALSE);
    EXPECT_TRUE(bar.IsVisible());
    EXPECT_EQ(InFrame(bar), docked);
    EXPECT_EQ(InFrame(pane).left, docked.right);

    frame->FloatControlBar(&bar, CPoint(300, 250));
    HWND small = FloatingFrame();
    bar.Hide();
    EXPECT_FALSE(::IsWindowVisible(small));
    EXPECT_TRUE(bar.IsFloating());
    frame->ShowControlBar(&bar, TRUE, FALSE);
    EXPECT_TRUE(::IsWindowVisible(small));
    // The small frame's close box hides the bar too; the frame stays.
    ::SendMessage(small, WM_CLOSE, 0, 0);
    EXPECT_TRUE(::IsWindow(small));
    EXPECT_FALSE(::IsWindowVisible(small));
    EXPECT_FALSE(bar.IsVisible());
    // A hidden bar that floats stays hidden, and so does its frame.
    bar.m_pDockContext->ToggleDocking();
    bar.m_pDockContext->ToggleDocking();
    EXPECT_TRUE(bar.IsFloating());
    EXPECT_FALSE(::IsWindowVisible(FloatingFrame()));
}

TEST_F(DockingTest, TheChildWindowFillsTheInsideOfTheBar) {
    CWnd content;
    ASSERT_TRUE(
        content.Create(u"STATIC", u"content", WS_CHILD | WS_VISIBLE, CRect(0, 0, 10, 10), &bar, 1));
    frame->DockControlBar(&bar, AFX_IDW_DOCKBAR_LEFT);
    CRect inside;
    bar.GetInsideRect(inside);
    CRect client;
    bar.GetClientRect(&client);
    // A border all round and the title strip above.
    EXPECT_EQ(inside, CRect(1, 19, client.right - 1, client.bottom - 1));
    CRect placed;
    content.GetWindowRect(&placed);
    bar.ScreenToClient(&placed);
    EXPECT_EQ(placed, inside);
    // Floating, the small frame's caption holds the title: the child takes
    // the whole bar.
    frame->FloatControlBar(&bar, CPoint(300, 250));
    content.GetWindowRect(&placed);
    bar.ScreenToClient(&placed);
    bar.GetClientRect(&client);
    EXPECT_EQ(placed, client);
}

TEST_F(DockingTest, RequestsThatCannotBeMetLeaveTheBarWhereItIs) {
    frame->DockControlBar(nullptr);
    frame->FloatControlBar(nullptr, CPoint(0, 0));
    frame->ShowControlBar(nullptr, TRUE, FALSE);
    // Without docking enabled a bar neither docks nor floats.
    SECControlBar plain;
    ASSERT_TRUE(plain.Create(u"Plain", frame));
    frame->DockControlBar(&plain, AFX_IDW_DOCKBAR_LEFT);
    frame->FloatControlBar(&plain, CPoint(10, 10));
    EXPECT_EQ(plain.GetParent(), frame);
    EXPECT_EQ(plain.m_pDockContext, nullptr);
    // A bar that may dock only at the top stays out of the left dock bar.
    bar.EnableDocking(CBRS_ALIGN_TOP);
    frame->DockControlBar(&bar, AFX_IDW_DOCKBAR_LEFT);
    EXPECT_EQ(bar.m_pDockBar, nullptr);
    // A dock bar is no bar to dock, and an id that names no dock bar docks
    // nothing.
    frame->DockControlBar(frame->GetControlBar(AFX_IDW_DOCKBAR_TOP), AFX_IDW_DOCKBAR_BOTTOM);
    frame->DockControlBar(&bar, 4711);
    EXPECT_EQ(bar.m_pDockBar, nullptr);
    // Docking taken away again leaves no dock context behind to use.
    plain.EnableDocking(0);
    EXPECT_EQ(plain.m_pDockContext, nullptr);
    // A bar without a window cannot dock, float or toggle.
    SECControlBar unmade;
    unmade.EnableDocking(CBRS_ALIGN_ANY);
    frame->DockControlBar(&unmade);
    unmade.m_pDockContext->ToggleDocking();
    EXPECT_EQ(unmade.m_pDockBar, nullptr);
    EXPECT_FALSE(unmade.Create(u"Nowhere", nullptr));
}

TEST_F(DockingTest, AFrameWithoutThatEdgeDocksTheBarAtAnotherItMay) {
    CBarFrame* other = new CBarFrame;
    ASSERT_TRUE(other->Create(nullptr, u"Other", WS_OVERLAPPEDWINDOW, CRect(0, 0, 400, 300)));
    other->EnableDocking(CBRS_ALIGN_TOP | CBRS_ALIGN_RIGHT);
    CToolsBar third;
    ASSERT_TRUE(third.Create(u"Third", other));
    third.EnableDocking(CBRS_ALIGN_ANY);
    other->DockControlBar(&third, AFX_IDW_DOCKBAR_LEFT);
    EXPECT_EQ(third.m_pDockBar, nullptr);
    other->DockControlBar(&third, AFX_IDW_DOCKBAR_RIGHT);
    other->FloatControlBar(&third, CPoint(10, 10));
    // The edge it docked at goes: toggling docks it at the first one left.
    third.m_pDockContext->m_uMRUDockID = AFX_IDW_DOCKBAR_BOTTOM;
    third.m_pDockContext->ToggleDocking();
    ASSERT_NE(third.m_pDockBar, nullptr);
    EXPECT_EQ(DockedIn(third), AFX_IDW_DOCKBAR_TOP);
    other->DestroyWindow();
}

TEST_F(DockingTest, ADoubleClickOnTheTitleStripFloatsTheBar) {
    frame->DockControlBar(&bar, AFX_IDW_DOCKBAR_TOP);
    bar.SendMessage(WM_LBUTTONDBLCLK, 0, MAKELPARAM(30, 120));
    EXPECT_FALSE(bar.IsFloating());
    bar.SendMessage(WM_LBUTTONDBLCLK, 0, MAKELPARAM(30, 8));
    EXPECT_TRUE(bar.IsFloating());
}

TEST_F(DockingTest, ARightClickShowsTheContextMenuAndItsCommandsArrive) {
    frame->DockControlBar(&bar, AFX_IDW_DOCKBAR_LEFT);
    automation::PopupMenuView shown;
    automation::RightClickAt(bar.m_hWnd, POINT{40, 60});
    automation::Do([&] { automation::ReadPopupMenu(&shown); });
    automation::PickPopupMenuItem(ID_BAR_COMMAND);
    RunUser();
    ASSERT_EQ(shown.items.size(), 4u);
    EXPECT_EQ(shown.items[0].text, u"&Refresh");
    EXPECT_EQ(shown.items[0].command, ID_BAR_COMMAND);
    EXPECT_EQ(shown.items[1].command, 0u);
    EXPECT_TRUE(shown.items[1].flags & MF_SEPARATOR);
    // The menu opens at the mouse.
    POINT at{40, 60};
    bar.ClientToScreen(&at);
    EXPECT_EQ(shown.rect.left, at.x);
    EXPECT_EQ(shown.rect.top, at.y);
    EXPECT_EQ(bar.handled, std::vector<UINT>{ID_BAR_COMMAND});
    EXPECT_TRUE(frame->commands.empty());

    // A command the bar has no handler for reaches the frame's.
    automation::RightClickAt(bar.m_hWnd, POINT{40, 60});
    automation::PickPopupMenuItem(ID_FRAME_COMMAND);
    RunUser();
    EXPECT_EQ(frame->commands, std::vector<UINT>{ID_FRAME_COMMAND});
    // One nobody handles goes nowhere, and nothing breaks.
    automation::RightClickAt(bar.m_hWnd, POINT{40, 60});
    automation::PickPopupMenuItem(ID_UNHANDLED);
    RunUser();
    EXPECT_EQ(bar.handled.size(), 1u);
    EXPECT_EQ(frame->commands.size(), 1u);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(DockingTest, ARightClickOnTheBarsChildShowsTheBarsMenu) {
    CWnd content;
    ASSERT_TRUE(
        content.Create(u"STATIC", u"content", WS_CHILD | WS_VISIBLE, CRect(0, 0, 10, 10), &bar, 1));
    frame->FloatControlBar(&bar, CPoint(300, 250));
    bool open = false;
    automation::RightClickAt(content.m_hWnd, POINT{5, 5});
    automation::Do([&] {
        automation::PopupMenuView view;
        open = automation::ReadPopupMenu(&view) && view.items.size() == 4;
    });
    automation::DismissPopupMenu();
    RunUser();
    EXPECT_TRUE(open);
    EXPECT_TRUE(bar.handled.empty());
}

TEST_F(DockingTest, ABarWithAnEmptyMenuShowsNone) {
    bar.ShowContextMenuItems(false);
    frame->DockControlBar(&bar, AFX_IDW_DOCKBAR_TOP);
    bool open = true;
    automation::RightClickAt(bar.m_hWnd, POINT{40, 40});
    automation::Do([&] {
        automation::PopupMenuView view;
        open = automation::ReadPopupMenu(&view);
    });
    RunUser();
    EXPECT_FALSE(open);
    automation::PopupMenuView view;
    EXPECT_FALSE(automation::ReadPopupMenu(&view));
    EXPECT_FALSE(automation::ReadPopupMenu(nullptr));
}

TEST_F(DockingTest, TheBarsSizesGoIntoAnArchiveAndComeBack) {
    bar.m_szHorz = CSize(320, 90);
    bar.m_szVert = CSize(140, 260);
    bar.m_szFloat = CSize(250, 180);
    const testing_support::Bytes bytes =
        testing_support::StoreToBytes([&](CArchive& ar) { bar.Serialize(ar); });
    EXPECT_EQ(bytes.size(), 24u);
    SECControlBar loaded;
    {
        testing_support::Bytes copy = bytes;
        CMemFile file(copy.data(), static_cast<UINT>(copy.size()));
        CArchive ar(&file, CArchive::load);
        loaded.Serialize(ar);
    }
    EXPECT_EQ(loaded.m_szHorz, CSize(320, 90));
    EXPECT_EQ(loaded.m_szVert, CSize(140, 260));
    EXPECT_EQ(loaded.m_szFloat, CSize(250, 180));
    // Negative sizes become nothing, and a short archive is an error.
    testing_support::Bytes negative = bytes;
    negative[0] = 0xFF;
    negative[1] = 0xFF;
    negative[2] = 0xFF;
    negative[3] = 0xFF;
    {
        CMemFile file(negative.data(), static_cast<UINT>(negative.size()));
        CArchive ar(&file, CArchive::load);
        loaded.Serialize(ar);
    }
    EXPECT_EQ(loaded.m_szHorz, CSize(0, 90));
    testing_support::Bytes cut(bytes.begin(), bytes.begin() + 10);
    int cause = 0;
    try {
        CMemFile file(cut.data(), static_cast<UINT>(cut.size()));
        CArchive ar(&file, CArchive::load);
        loaded.Serialize(ar);
    } catch (CArchiveException* e) {
        cause = e->m_cause;
        e->Delete();
    }
    EXPECT_EQ(cause, CArchiveException::endOfFile);
}

TEST_F(DockingTest, ClosingTheFrameTakesTheFloatingFrameWithIt) {
    frame->FloatControlBar(&bar, CPoint(300, 250));
    HWND small = FloatingFrame();
    ASSERT_TRUE(::IsWindow(small));
    frame->DestroyWindow();
    EXPECT_FALSE(::IsWindow(small));
    EXPECT_EQ(bar.m_hWnd, nullptr);
    EXPECT_EQ(status.m_hWnd, nullptr);
}

} // namespace
} // namespace controlbars
