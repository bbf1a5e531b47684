// Commands from menus and accelerator keys: where they go (the active view,
// its document, its template, its frame, the application, the main frame, in
// that order), how menus are updated before they open, and how disabled
// commands are dropped.
#include "NotesHost.h"

#include <platform/Automation.h>

namespace notes {
namespace {

namespace automation = platform::automation;

class RoutingTest : public NotesHostTest {
protected:
    // Sends a menu command to the main frame as its menu bar would.
    std::vector<std::string> Route(UINT command) {
        g_handled.clear();
        main->SendMessage(WM_COMMAND, MAKEWPARAM(command, 0), 0);
        return g_handled;
    }
    using Handled = std::vector<std::string>;
};

TEST_F(RoutingTest, EachLevelOfTheActiveDocumentsChainIsReached) {
    OpenNote();
    EXPECT_EQ(Route(ID_ROUTE_VIEW), Handled{"view"});
    EXPECT_EQ(Route(ID_ROUTE_DOC), Handled{"doc"});
    EXPECT_EQ(Route(ID_ROUTE_TEMPLATE), Handled{"template"});
    EXPECT_EQ(Route(ID_ROUTE_CHILD), Handled{"child frame"});
    EXPECT_EQ(Route(ID_ROUTE_APP), Handled{"app"});
    EXPECT_EQ(Route(ID_ROUTE_MAIN), Handled{"main frame"});
}

TEST_F(RoutingTest, TheViewComesFirstAndTheApplicationBeforeTheMainFrameWhileADocumentIsActive) {
    OpenNote();
    EXPECT_EQ(Route(ID_ROUTE_ALL), Handled{"view"});
    // The document frame's chain ends with the application.
    EXPECT_EQ(Route(ID_ROUTE_APP_MAIN), Handled{"app"});
}

TEST_F(RoutingTest, WithoutADocumentTheMainFrameComesBeforeTheApplication) {
    EXPECT_EQ(Route(ID_ROUTE_APP_MAIN), Handled{"main frame"});
    EXPECT_EQ(Route(ID_ROUTE_ALL), Handled{"main frame"});
    EXPECT_EQ(Route(ID_ROUTE_VIEW), Handled{});
}

TEST_F(RoutingTest, CommandsFollowTheActiveDocument) {
    CNoteDoc* a = OpenNote();
    CNoteDoc* b = OpenNote();
    Route(ID_EDIT_STAMP);
    EXPECT_EQ(b->m_text, u"*");
    main->MDIActivate(FrameOf(a));
    Route(ID_EDIT_STAMP);
    Route(ID_EDIT_STAMP);
    EXPECT_EQ(a->m_text, u"**");
    EXPECT_TRUE(a->IsModified());
}

TEST_F(RoutingTest, ACommandItsUpdateHandlerDisablesIsDropped) {
    OpenNote();
    EXPECT_EQ(Route(ID_ROUTE_DISABLED), Handled{});
}

TEST_F(RoutingTest, AcceleratorKeysOfTheActiveDocumentsTemplateSendItsCommands) {
    CNoteDoc* doc = OpenNote();
    automation::Key('T', false, true);
    automation::Key('T', true, true);
    automation::Key('D', false, true);
    Run();
    EXPECT_EQ(g_handled, (Handled{"doc stamp", "view"}));
    EXPECT_EQ(doc->m_text, u"*");
    // The plain letter is no command.
    g_handled.clear();
    automation::Key('T');
    Run();
    EXPECT_EQ(g_handled, Handled{});
}

TEST_F(RoutingTest, TheMainFramesAcceleratorsWorkWithoutADocument) {
    automation::Key('N', false, true);
    Run();
    EXPECT_EQ(g_handled, Handled{"app new"});
    EXPECT_EQ(g_liveDocuments, 1);
    // Now the document's own table is used: Ctrl+W closes it.
    automation::Key('W', false, true);
    Run();
    EXPECT_EQ(g_liveDocuments, 0);
}

TEST_F(RoutingTest, OpeningAMenuDisablesItemsNobodyHandles) {
    OpenNote();
    automation::PickMenuItem(ID_EDIT_UNHANDLED);
    automation::PickMenuItem(ID_ROUTE_DISABLED);
    automation::PickMenuItem(ID_EDIT_STAMP);
    Run();
    HMENU edit = GetSubMenu(GetMenu(main->m_hWnd), 1);
    EXPECT_EQ(GetMenuState(edit, ID_EDIT_UNHANDLED, MF_BYCOMMAND) & MF_GRAYED,
              static_cast<UINT>(MF_GRAYED));
    EXPECT_EQ(GetMenuState(edit, ID_ROUTE_DISABLED, MF_BYCOMMAND) & MF_GRAYED,
              static_cast<UINT>(MF_GRAYED));
    EXPECT_EQ(GetMenuState(edit, ID_EDIT_STAMP, MF_BYCOMMAND) & MF_GRAYED, 0u);
    EXPECT_EQ(g_handled, Handled{"doc stamp"});
    const auto& record = automation::Record();
    ASSERT_EQ(record.size(), 3u);
    EXPECT_EQ(record[0], "menu 32772 '&Unhandled' is disabled");
    EXPECT_EQ(record[1], "menu 32787 '&Disabled' is disabled");
    EXPECT_EQ(record[2], "menu 32771 '&Stamp\tCtrl+T'");
}

TEST_F(RoutingTest, PickingAnItemTheMenuDoesNotHaveIsRecorded) {
    automation::PickMenuItem(ID_EDIT_STAMP);
    Run();
    ASSERT_EQ(automation::Record().size(), 1u);
    EXPECT_EQ(automation::Record()[0], "menu 32771: no such item in 'Notes Host'");
}

TEST_F(RoutingTest, TheWindowMenuActivatesTheDocumentPicked) {
    CNoteDoc* a = OpenNote();
    OpenNote();
    automation::PickMenuItem(AFX_IDM_FIRST_MDICHILD);
    Run();
    EXPECT_EQ(Active(), FrameOf(a));
}

TEST_F(RoutingTest, ExitClosesTheApplication) {
    OpenNote();
    automation::PickMenuItem(ID_APP_EXIT);
    Run();
    EXPECT_EQ(app->m_pMainWnd, nullptr);
    EXPECT_EQ(g_liveDocuments, 0);
}

} // namespace
} // namespace notes
