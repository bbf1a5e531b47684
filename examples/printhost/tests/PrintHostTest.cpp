#include "PrintHostTest.h"

#include "resource.h"
#include "support/TempDir.h"

#include <platform/Automation.h>
#include <platform/MessagePump.h>

namespace automation = platform::automation;

void PrintHostTest::SetUp() {
    automation::Reset();
    dir = testing_support::TestOutputDir("printhost");
    ASSERT_TRUE(host.Start((dir / "print-host.ini").string()));
}

void PrintHostTest::TearDown() {
    if (host.app && host.app->m_pMainWnd) {
        host.app->CloseAllDocuments(TRUE);
        host.app->m_pMainWnd->DestroyWindow();
    }
    platform::PumpMessages();
    // The main window's end posted WM_QUIT; the next test starts without it.
    MSG msg;
    while (PeekMessage(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) && msg.message == WM_QUIT) {
    }
    host.app.reset();
    automation::Reset();
}

int PrintHostTest::OpenDeliveries() {
    CDocTemplate* deliveries = WinUtils::FindDocTemplate(IDR_DELIVERIES);
    int count = 0;
    for (POSITION pos = deliveries ? deliveries->GetFirstDocPosition() : nullptr; pos;
         deliveries->GetNextDoc(pos))
        ++count;
    return count;
}

void TypeOver(UINT id, const std::u16string& text) {
    automation::Click(id);
    automation::Key(VK_END);
    automation::Key(VK_HOME, true);
    automation::Type(text);
}

HWND WizardPageItem(UINT id) {
    auto page =
        reinterpret_cast<HWND>(SendMessage(GetActiveWindow(), PSM_GETCURRENTPAGEHWND, 0, 0));
    return page ? GetDlgItem(page, static_cast<int>(id)) : nullptr;
}

int WizardPageIndex() {
    auto* sheet = dynamic_cast<CPropertySheet*>(CWnd::FromHandlePermanent(GetActiveWindow()));
    return sheet ? sheet->GetActiveIndex() : -1;
}

std::u16string TextOf(HWND hwnd) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLength(hwnd)), u'\0');
    GetWindowText(hwnd, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}
