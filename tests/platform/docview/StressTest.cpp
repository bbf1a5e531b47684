// A long run of random user actions over the notes host: menu commands, keys,
// clicks, closes, MDI moves and resizes, the menu bar under the mouse, Alt
// and the keys, with the save prompts answered. Every modal loop must end by
// the user's hand, and at the end no window, document or GDI object may be
// left over. The run is seeded, so a failure repeats;
// WIN_STRESS_SEED and WIN_STRESS_ACTIONS change the seed and the length.
#include "NotesHost.h"

#include "support/StressRun.h"

#include <platform/Automation.h>
#include <platform/GdiObjects.h>
#include <platform/MessagePump.h>

#include <string>
#include <vector>

namespace notes {
namespace {

namespace automation = platform::automation;
using testing_support::CountWindows;

class StressTest : public NotesHostTest {
protected:
    testing_support::StressRandom random{1789};
    int menusOpened = 0;

    int Below(int n) { return random.Below(n); }

    std::vector<CMDIChildWnd*> Children() const {
        std::vector<CMDIChildWnd*> children;
        for (HWND h = GetWindow(main->m_hWndMDIClient, GW_CHILD); h; h = GetWindow(h, GW_HWNDNEXT))
            if (auto* child = dynamic_cast<CMDIChildWnd*>(CWnd::FromHandlePermanent(h)))
                children.push_back(child);
        return children;
    }

    static bool Modified(CFrameWnd* frame) {
        CDocument* doc = frame ? frame->GetActiveDocument() : nullptr;
        return doc && doc->IsModified();
    }

    // A modified document asks before it closes: the user says no or cancel.
    void AnswerSavePrompt(CFrameWnd* closing) {
        if (Modified(closing))
            automation::AnswerMessageBox(Below(2) ? IDNO : IDCANCEL);
    }

    // A click somewhere in one of the host's windows.
    void QueueClick() {
        std::vector<HWND> targets{main->m_hWnd, main->m_hWndMDIClient};
        for (CMDIChildWnd* child : Children()) {
            targets.push_back(child->m_hWnd);
            if (CView* view = child->GetActiveView())
                targets.push_back(view->m_hWnd);
        }
        HWND target = targets[static_cast<std::size_t>(Below(static_cast<int>(targets.size())))];
        RECT client{};
        GetClientRect(target, &client);
        automation::ClickAt(target, POINT{Below(client.right + 1), Below(client.bottom + 1)});
    }

    void QueueMenuCommand() {
        static const UINT commands[] = {ID_FILE_NEW,       ID_FILE_CLOSE,     ID_EDIT_STAMP,
                                        ID_EDIT_UNHANDLED, ID_ROUTE_DISABLED, ID_WINDOW_CASCADE};
        const UINT command = commands[Below(6)];
        automation::PickMenuItem(command);
        if (command == ID_FILE_CLOSE)
            AnswerSavePrompt(Active());
    }

    void QueueKey() {
        switch (Below(7)) {
        case 0:
            automation::Key('N', false, true);
            break;
        case 1:
            automation::Key('W', false, true);
            AnswerSavePrompt(Active());
            break;
        case 2:
            automation::Key('T', false, true);
            break;
        case 3:
            automation::Key('T', true, true);
            break;
        case 4:
            automation::Key('D', false, true);
            break;
        case 5:
            automation::Key(static_cast<UINT>('A' + Below(26)));
            break;
        default:
            automation::Key(Below(2) ? VK_TAB : VK_ESCAPE);
            break;
        }
    }

    // The close box of a document frame.
    void QueueClose() {
        std::vector<CMDIChildWnd*> children = Children();
        if (children.empty())
            return QueueMenuCommand();
        CMDIChildWnd* child =
            children[static_cast<std::size_t>(Below(static_cast<int>(children.size())))];
        HWND hwnd = child->m_hWnd;
        automation::Do([hwnd] { PostMessage(hwnd, WM_CLOSE, 0, 0); });
        AnswerSavePrompt(child);
    }

    // A press somewhere on the menu bar (a press past the items opens
    // nothing) or Alt tapped alone (the bar selected, nothing open), a few
    // keys through what opens, and the menu dismissed.
    void QueueMenuBar() {
        const HWND frame = main->m_hWnd;
        const int x = Below(300);
        const bool alt = Below(3) == 0;
        automation::Do([frame, x, alt] {
            if (alt) {
                PostMessage(frame, WM_SYSKEYDOWN, VK_MENU, 1 << 29);
                PostMessage(frame, WM_SYSKEYUP, VK_MENU, static_cast<LPARAM>(0xC0000001u));
                return;
            }
            POINT origin{0, 0};
            ClientToScreen(frame, &origin);
            PostMessage(frame, WM_NCLBUTTONDOWN, HTMENU,
                        MAKELPARAM(origin.x + x, origin.y - GetSystemMetrics(SM_CYMENU) / 2));
        });
        // From the selected bar, Down opens the first drop-down.
        if (alt)
            automation::Key(VK_DOWN);
        automation::Do([this] {
            automation::PopupMenuView view;
            menusOpened += automation::ReadPopupMenu(&view) ? 1 : 0;
        });
        static const UINT keys[] = {VK_DOWN, VK_UP, VK_RIGHT, VK_LEFT, VK_ESCAPE};
        for (int n = Below(5); n > 0; --n)
            automation::Key(keys[Below(5)]);
        automation::DismissPopupMenu();
    }

    void QueueWindowMove() {
        HWND client = main->m_hWndMDIClient;
        std::vector<CMDIChildWnd*> children = Children();
        HWND child =
            children.empty()
                ? nullptr
                : children[static_cast<std::size_t>(Below(static_cast<int>(children.size())))]
                      ->m_hWnd;
        const int choice = Below(4);
        const int width = 300 + Below(600);
        const int height = 200 + Below(400);
        CMainFrame* frame = main;
        automation::Do([=] {
            if (choice == 0 && child)
                SendMessage(client, WM_MDIMAXIMIZE, reinterpret_cast<WPARAM>(child), 0);
            else if (choice == 1 && child)
                SendMessage(client, WM_MDIRESTORE, reinterpret_cast<WPARAM>(child), 0);
            else if (choice == 2)
                SendMessage(client, WM_MDINEXT, 0, 0);
            else
                frame->MoveWindow(20, 20, width, height);
        });
    }
};

TEST_F(StressTest, RandomActionsLeaveNothingBehindAndNoModalLoopWaiting) {
    const platform::GdiCounts gdiAtStart = platform::LiveGdiObjects();
    const int windowsAtStart = CountWindows(GetDesktopWindow());
    const unsigned long actions = testing_support::StressActions(10000);
    int mostDocuments = 0;

    for (unsigned long i = 0; i < actions; ++i) {
        // Keep the number of documents bounded: past eight, close one.
        const int choice = g_liveDocuments > 8 ? 4 : Below(11);
        if (choice < 3)
            QueueMenuCommand();
        else if (choice < 5)
            QueueKey();
        else if (choice < 8)
            QueueClick();
        else if (choice < 9)
            QueueClose();
        else if (choice < 10)
            QueueWindowMove();
        else
            QueueMenuBar();
        Run();
        ASSERT_TRUE(testing_support::ActionSettled(i)) << "seed " << random.Seed();
        ASSERT_TRUE(IsWindow(main->m_hWnd)) << "action " << i;
        mostDocuments = std::max(mostDocuments, g_liveDocuments);
    }
    // The run did what it was meant to: documents came and went, and the
    // menu bar opened.
    EXPECT_GE(mostDocuments, 3);
    EXPECT_GE(menusOpened, static_cast<int>(actions / 100));

    app->CloseAllDocuments(TRUE);
    platform::PumpMessages();
    EXPECT_EQ(g_liveDocuments, 0);
    EXPECT_EQ(g_liveViews, 0);
    EXPECT_EQ(CountWindows(GetDesktopWindow()), windowsAtStart);
    EXPECT_EQ(platform::LiveGdiObjects(), gdiAtStart)
        << platform::ToString(platform::LiveGdiObjects());
}

} // namespace
} // namespace notes
