// The docking control bar: its context menu items after the caller's, the
// three commands (dock, float, hide), other commands left to the window's
// own handling, the whole round through a right click, and the bar as a
// serializable class created from an archive.
#include "support/ArchiveImage.h"

#include <Win/controls/CDockingControlBar.h>
#include <platform/Automation.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <vector>

namespace {

namespace automation = platform::automation;

constexpr UINT ID_HOST_REFRESH = 34001;
constexpr UINT ID_HOST_DISABLED = 34002;
constexpr UINT ID_FRAME_ONLY = 34003;

// A host's frame that handles one command of its own.
class CHostFrame : public CFrameWnd {
public:
    int frameCommands = 0;

protected:
    void OnFrameOnly() { ++frameCommands; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CHostFrame, CFrameWnd)
ON_COMMAND(ID_FRAME_ONLY, OnFrameOnly)
END_MESSAGE_MAP()

// A host's bar: its own item first in the menu, then the bar's; a command
// of its own and one its update handler disables.
class CHostBar : public CDockingControlBar {
public:
    using CDockingControlBar::GetContextMenu;
    using CDockingControlBar::HandleCommand;
    using CDockingControlBar::OnCommand;

    int refreshes = 0;
    int disabledRuns = 0;

protected:
    void BuildContextMenu(CMenu& menu) override {
        menu.AppendMenu(MF_STRING, ID_HOST_REFRESH, u"&Refresh");
        GetContextMenu(menu);
    }
    void OnRefresh() { ++refreshes; }
    void OnDisabled() { ++disabledRuns; }
    void OnUpdateDisabled(CCmdUI* ui) { ui->Enable(FALSE); }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CHostBar, CDockingControlBar)
ON_COMMAND(ID_HOST_REFRESH, OnRefresh)
ON_COMMAND(ID_HOST_DISABLED, OnDisabled)
ON_UPDATE_COMMAND_UI(ID_HOST_DISABLED, OnUpdateDisabled)
END_MESSAGE_MAP()

struct Item {
    UINT id;
    CString text;
    UINT state;
    bool operator==(const Item&) const = default;
};

std::vector<Item> Items(CMenu& menu) {
    std::vector<Item> items;
    for (UINT i = 0; i < menu.GetMenuItemCount(); ++i) {
        Item item{menu.GetMenuItemID(static_cast<int>(i)), CString(), 0};
        menu.GetMenuString(i, item.text, MF_BYPOSITION);
        item.state = menu.GetMenuState(i, MF_BYPOSITION);
        items.push_back(item);
    }
    return items;
}

class DockingControlBarTest : public ::testing::Test {
protected:
    void SetUp() override {
        automation::Reset();
        frame = new CHostFrame;
        ASSERT_TRUE(frame->Create(nullptr, u"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                  CRect(100, 100, 700, 500)));
        frameWindow = frame->m_hWnd;
        ASSERT_TRUE(pane.Create(u"STATIC", u"", WS_CHILD | WS_VISIBLE, CRect(0, 0, 0, 0), frame,
                                AFX_IDW_PANE_FIRST));
        frame->EnableDocking(CBRS_ALIGN_ANY);
        ASSERT_TRUE(bar.Create(u"Output", frame));
        bar.EnableDocking(CBRS_ALIGN_ANY);
        frame->DockControlBar(&bar, AFX_IDW_DOCKBAR_BOTTOM);
    }
    void TearDown() override {
        ::DestroyWindow(frameWindow);
        platform::PumpMessages();
        automation::Reset();
    }
    void RunUser() {
        do
            platform::PumpMessages();
        while (automation::RunNext());
        platform::PumpMessages();
    }
    CRect PaneRect() {
        CRect rect;
        pane.GetWindowRect(&rect);
        frame->ScreenToClient(&rect);
        return rect;
    }
    UINT DockedIn() { return static_cast<UINT>(::GetDlgCtrlID(::GetParent(bar.m_hWnd))); }

    CHostFrame* frame = nullptr;
    HWND frameWindow = nullptr;
    CWnd pane;
    CHostBar bar;
};

TEST_F(DockingControlBarTest, TheMenuOffersToFloatADockedBarAfterTheCallersItems) {
    CMenu menu;
    ASSERT_TRUE(menu.CreatePopupMenu());
    menu.AppendMenu(MF_STRING, 100, u"Caller's first");
    menu.AppendMenu(MF_SEPARATOR);
    bar.GetContextMenu(menu);
    const std::vector<Item> items = Items(menu);
    ASSERT_EQ(items.size(), 4u);
    EXPECT_EQ(items[0].id, 100u);
    EXPECT_EQ(items[2], (Item{ID_DOCKINGBAR_FLOAT, u"&Float", MF_STRING}));
    EXPECT_EQ(items[3], (Item{ID_DOCKINGBAR_HIDE, u"&Hide", MF_STRING}));
}

TEST_F(DockingControlBarTest, TheMenuOffersToDockAFloatingBar) {
    frame->FloatControlBar(&bar, CPoint(300, 200));
    ASSERT_TRUE(bar.IsFloating());
    CMenu menu;
    ASSERT_TRUE(menu.CreatePopupMenu());
    bar.GetContextMenu(menu);
    const std::vector<Item> items = Items(menu);
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0], (Item{ID_DOCKINGBAR_DOCK, u"&Dock", MF_STRING}));
    EXPECT_EQ(items[1], (Item{ID_DOCKINGBAR_HIDE, u"&Hide", MF_STRING}));
    // The same menu again gets the same items once more, at its end.
    bar.GetContextMenu(menu);
    EXPECT_EQ(menu.GetMenuItemCount(), 4u);
    EXPECT_EQ(menu.GetMenuItemID(2), ID_DOCKINGBAR_DOCK);
}

TEST_F(DockingControlBarTest, TheCommandsFloatDockAndHideTheBar) {
    const CRect docked = PaneRect();
    EXPECT_TRUE(bar.HandleCommand(ID_DOCKINGBAR_FLOAT));
    ASSERT_TRUE(bar.IsFloating());
    EXPECT_GT(PaneRect().Height(), docked.Height());
    EXPECT_TRUE(bar.HandleCommand(ID_DOCKINGBAR_DOCK));
    EXPECT_FALSE(bar.IsFloating());
    EXPECT_EQ(DockedIn(), static_cast<UINT>(AFX_IDW_DOCKBAR_BOTTOM));
    EXPECT_EQ(PaneRect(), docked);
    // Hidden, its row gives the room back; the frame can show it again.
    EXPECT_TRUE(bar.HandleCommand(ID_DOCKINGBAR_HIDE));
    EXPECT_FALSE(bar.IsVisible());
    EXPECT_GT(PaneRect().Height(), docked.Height());
    frame->ShowControlBar(&bar, TRUE, FALSE);
    EXPECT_EQ(PaneRect(), docked);
    // Any other id is not the bar's: nothing happens.
    EXPECT_FALSE(bar.HandleCommand(ID_HOST_REFRESH));
    EXPECT_FALSE(bar.HandleCommand(0));
    EXPECT_FALSE(bar.HandleCommand(32789));
    EXPECT_FALSE(bar.HandleCommand(32793));
    EXPECT_EQ(bar.refreshes, 0);
    EXPECT_TRUE(bar.IsVisible());
    EXPECT_FALSE(bar.IsFloating());
}

TEST_F(DockingControlBarTest, HidingAFloatingBarHidesItsFrame) {
    bar.HandleCommand(ID_DOCKINGBAR_FLOAT);
    HWND small = ::GetParent(::GetParent(bar.m_hWnd));
    ASSERT_TRUE(::IsWindowVisible(small));
    EXPECT_TRUE(bar.HandleCommand(ID_DOCKINGBAR_HIDE));
    EXPECT_FALSE(::IsWindowVisible(small));
    EXPECT_TRUE(bar.IsFloating());
}

TEST_F(DockingControlBarTest, ABarWithoutDockingTakesTheCommandsWithoutHarm) {
    CHostBar plain;
    ASSERT_TRUE(plain.Create(u"Plain", frame));
    ASSERT_EQ(plain.m_pDockContext, nullptr);
    EXPECT_TRUE(plain.HandleCommand(ID_DOCKINGBAR_FLOAT));
    EXPECT_TRUE(plain.HandleCommand(ID_DOCKINGBAR_DOCK));
    EXPECT_FALSE(plain.IsFloating());
    EXPECT_TRUE(plain.HandleCommand(ID_DOCKINGBAR_HIDE));
    EXPECT_FALSE(plain.IsVisible());
    // Without a window there is nothing to hide.
    CHostBar unmade;
    EXPECT_TRUE(unmade.HandleCommand(ID_DOCKINGBAR_HIDE));
}

TEST_F(DockingControlBarTest, OtherCommandsGetTheWindowsOwnHandlingAndItsResult) {
    // The bar's three: handled, whatever the notification code.
    EXPECT_TRUE(bar.OnCommand(MAKEWPARAM(ID_DOCKINGBAR_HIDE, 1), 0));
    EXPECT_FALSE(bar.IsVisible());
    // A command with a handler in the host's map runs it.
    EXPECT_TRUE(bar.OnCommand(MAKEWPARAM(ID_HOST_REFRESH, 0), 0));
    EXPECT_EQ(bar.refreshes, 1);
    // A command its update handler disables is dropped, and counts as taken.
    EXPECT_TRUE(bar.OnCommand(MAKEWPARAM(ID_HOST_DISABLED, 0), 0));
    EXPECT_EQ(bar.disabledRuns, 0);
    // A command nobody in the bar handles is not taken, and does not go on
    // to the frame the way the toolkit bar sends it.
    EXPECT_FALSE(bar.OnCommand(MAKEWPARAM(ID_FRAME_ONLY, 0), 0));
    EXPECT_EQ(frame->frameCommands, 0);
    SECControlBar toolkit;
    ASSERT_TRUE(toolkit.Create(u"Toolkit", frame));
    toolkit.SendMessage(WM_COMMAND, MAKEWPARAM(ID_FRAME_ONLY, 0), 0);
    EXPECT_EQ(frame->frameCommands, 1);
    bar.SendMessage(WM_COMMAND, MAKEWPARAM(ID_FRAME_ONLY, 0), 0);
    EXPECT_EQ(frame->frameCommands, 1);
}

TEST_F(DockingControlBarTest, TheUserFloatsDocksAndHidesTheBarThroughItsMenu) {
    automation::PopupMenuView docked, floating;
    automation::RightClickAt(bar.m_hWnd, POINT{60, 40});
    automation::Do([&] { automation::ReadPopupMenu(&docked); });
    automation::PickPopupMenuItem(ID_DOCKINGBAR_FLOAT);
    RunUser();
    ASSERT_EQ(docked.items.size(), 3u);
    EXPECT_EQ(docked.items[0].command, ID_HOST_REFRESH);
    EXPECT_EQ(docked.items[1].command, ID_DOCKINGBAR_FLOAT);
    EXPECT_EQ(docked.items[1].text, u"&Float");
    EXPECT_EQ(docked.items[2].command, ID_DOCKINGBAR_HIDE);
    ASSERT_TRUE(bar.IsFloating());

    automation::RightClickAt(bar.m_hWnd, POINT{30, 30});
    automation::Do([&] { automation::ReadPopupMenu(&floating); });
    automation::PickPopupMenuItem(ID_DOCKINGBAR_DOCK);
    RunUser();
    ASSERT_EQ(floating.items.size(), 3u);
    EXPECT_EQ(floating.items[1].command, ID_DOCKINGBAR_DOCK);
    EXPECT_EQ(floating.items[1].text, u"&Dock");
    EXPECT_FALSE(bar.IsFloating());
    EXPECT_EQ(DockedIn(), static_cast<UINT>(AFX_IDW_DOCKBAR_BOTTOM));

    automation::RightClickAt(bar.m_hWnd, POINT{60, 40});
    automation::PickPopupMenuItem(ID_HOST_REFRESH);
    automation::RightClickAt(bar.m_hWnd, POINT{60, 40});
    automation::PickPopupMenuItem(ID_DOCKINGBAR_HIDE);
    RunUser();
    EXPECT_EQ(bar.refreshes, 1);
    EXPECT_FALSE(bar.IsVisible());
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
}

TEST_F(DockingControlBarTest, TheClassIsCreatedByNameAndReadFromAnArchive) {
    CRuntimeClass* runtimeClass = RUNTIME_CLASS(CDockingControlBar);
    EXPECT_STREQ(runtimeClass->m_lpszClassName, "CDockingControlBar");
    EXPECT_EQ(runtimeClass->m_wSchema, 1u);
    EXPECT_TRUE(runtimeClass->IsDerivedFrom(RUNTIME_CLASS(SECControlBar)));
    EXPECT_TRUE(runtimeClass->IsDerivedFrom(RUNTIME_CLASS(CControlBar)));
    EXPECT_EQ(CRuntimeClass::FromName("CDockingControlBar"), runtimeClass);
    std::unique_ptr<CObject> made(CRuntimeClass::CreateObject(u"CDockingControlBar"));
    ASSERT_NE(made, nullptr);
    EXPECT_TRUE(made->IsKindOf(runtimeClass));
    EXPECT_EQ(made->GetRuntimeClass(), runtimeClass);

    bar.m_szHorz = CSize(300, 80);
    bar.m_szFloat = CSize(260, 140);
    const testing_support::Bytes bytes =
        testing_support::StoreToBytes([&](CArchive& ar) { ar << &bar; });
    const char name[] = "CDockingControlBar";
    ASSERT_GT(bytes.size(), 6 + std::strlen(name));
    EXPECT_EQ((testing_support::Bytes(bytes.begin(), bytes.begin() + 6)),
              (testing_support::Bytes{0xFF, 0xFF, 0x01, 0x00, 18, 0x00}));
    EXPECT_EQ(std::string(bytes.begin() + 6, bytes.begin() + 24), name);
    {
        testing_support::Bytes copy = bytes;
        CMemFile file(copy.data(), static_cast<UINT>(copy.size()));
        CArchive ar(&file, CArchive::load);
        CDockingControlBar* loaded = nullptr;
        ar >> loaded;
        std::unique_ptr<CDockingControlBar> own(loaded);
        ASSERT_NE(loaded, nullptr);
        EXPECT_EQ(loaded->m_szHorz, CSize(300, 80));
        EXPECT_EQ(loaded->m_szFloat, CSize(260, 140));
        EXPECT_EQ(loaded->m_hWnd, nullptr);
    }
    // Another version of the class is refused.
    testing_support::Bytes newer = bytes;
    newer[2] = 0x02;
    int cause = 0;
    try {
        CMemFile file(newer.data(), static_cast<UINT>(newer.size()));
        CArchive ar(&file, CArchive::load);
        CDockingControlBar* loaded = nullptr;
        ar >> loaded;
        delete loaded;
    } catch (CArchiveException* e) {
        cause = e->m_cause;
        e->Delete();
    }
    EXPECT_EQ(cause, CArchiveException::badSchema);
}

} // namespace
