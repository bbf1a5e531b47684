// The modal message loop and DialogBoxIndirectParam.
#include "ModalLoop.h"

#include "DialogManager.h"
#include "WindowManager.h"

#include <platform/Automation.h>
#include <platform/MessagePump.h>

namespace platform::user {

bool RunModal(const ModalLoop& loop) {
    bool idleSeen = false;
    int cancels = 0;
    while (loop.keepGoing()) {
        MSG msg;
        if (!PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE)) {
            if (!idleSeen) {
                idleSeen = true;
                if (loop.firstIdle)
                    loop.firstIdle();
                continue;
            }
            if (platform::RunIdle())
                continue;
            // Nobody is left to act: cancel as the user would, once through
            // the window's own Escape handling, then for good.
            if (cancels++ == 0 && IsWindow(loop.window)) {
                platform::automation::NoteCancelled(loop.window);
                PostMessage(loop.window, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED),
                            reinterpret_cast<LPARAM>(GetDlgItem(loop.window, IDCANCEL)));
                continue;
            }
            loop.forceCancel();
            break;
        }
        if (msg.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(msg.wParam));
            return false;
        }
        if (!loop.preTranslate || !loop.preTranslate(msg)) {
            TranslateMessage(&msg);
            DispatchMessage(&msg);
        }
        SettlePaint(msg);
    }
    return true;
}

void SettlePaint(const MSG& msg) {
    RECT update;
    if (msg.message == WM_PAINT && IsWindow(msg.hwnd) && GetUpdateRect(msg.hwnd, &update, FALSE))
        ValidateRect(msg.hwnd, nullptr);
}

} // namespace platform::user

INT_PTR DialogBoxIndirectParam(HINSTANCE instance, LPCDLGTEMPLATE tmpl, HWND owner, DLGPROC proc,
                               LPARAM init) {
    bool enableOwner = owner && IsWindowEnabled(owner);
    if (enableOwner)
        EnableWindow(owner, FALSE);
    HWND dialog = CreateDialogIndirectParam(instance, tmpl, owner, proc, init);
    if (!dialog) {
        if (enableOwner)
            EnableWindow(owner, TRUE);
        return -1;
    }
    auto info = [dialog] { return platform::user::FindDialogInfo(dialog); };
    platform::user::ModalLoop loop;
    loop.window = dialog;
    loop.keepGoing = [&] { return IsWindow(dialog) && info() && !info()->ended; };
    loop.preTranslate = [dialog](MSG& msg) { return IsDialogMessage(dialog, &msg) != FALSE; };
    loop.firstIdle = [dialog] {
        if (!IsWindowVisible(dialog))
            ShowWindow(dialog, SW_SHOWNORMAL);
    };
    loop.forceCancel = [dialog] { EndDialog(dialog, IDCANCEL); };
    platform::user::RunModal(loop);
    INT_PTR result = info() ? info()->result : IDCANCEL;
    if (enableOwner)
        EnableWindow(owner, TRUE);
    if (owner && GetActiveWindow() == dialog)
        SetActiveWindow(owner);
    DestroyWindow(dialog);
    return result;
}
