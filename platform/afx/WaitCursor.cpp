// The framework's wait cursor: a nesting count, kept by the application
// object or, without one, by the framework itself, so that nested waits keep
// the wait cursor until the outermost ends.
#include <afxwin.h>

namespace {

// 1 begins a level, -1 ends one, 0 shows the wait cursor again.
void AdjustWaitCursor(int code, int& count, HCURSOR& restore) {
    count += code;
    if (count > 0) {
        HCURSOR previous = ::SetCursor(::LoadCursor(nullptr, IDC_WAIT));
        if (code > 0 && count == 1)
            restore = previous;
        return;
    }
    // Unbalanced ends never take the count below zero.
    count = 0;
    ::SetCursor(restore);
}

void DoWaitCursor(int code) {
    if (CWinApp* app = AfxGetApp()) {
        app->DoWaitCursor(code);
        return;
    }
    static int count = 0;
    static HCURSOR restore = ::LoadCursor(nullptr, IDC_ARROW);
    AdjustWaitCursor(code, count, restore);
}

} // namespace

void CWinApp::DoWaitCursor(int nCode) {
    AdjustWaitCursor(nCode, m_nWaitCursorCount, m_hcurWaitCursorRestore);
}

void CCmdTarget::BeginWaitCursor() {
    ::DoWaitCursor(1);
}

void CCmdTarget::EndWaitCursor() {
    ::DoWaitCursor(-1);
}

void CCmdTarget::RestoreWaitCursor() {
    ::DoWaitCursor(0);
}

CWaitCursor::CWaitCursor() {
    ::DoWaitCursor(1);
}

CWaitCursor::~CWaitCursor() {
    ::DoWaitCursor(-1);
}

void CWaitCursor::Restore() {
    ::DoWaitCursor(0);
}
