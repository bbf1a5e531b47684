// A dockable bar whose context menu offers to dock a floating bar or float a
// docked one, and to hide it. The menu texts are the host's strings.
#pragma once

#include <SECControlBar.h>

// The context menu's commands and the host's strings that name them.
constexpr UINT ID_DOCKINGBAR_DOCK = 32790;  // shown while the bar floats
constexpr UINT ID_DOCKINGBAR_FLOAT = 32791; // shown while the bar is docked
constexpr UINT ID_DOCKINGBAR_HIDE = 32792;  // always shown
constexpr UINT IDS_DOCKINGBAR_DOCK = 689;
constexpr UINT IDS_DOCKINGBAR_FLOAT = 690;
constexpr UINT IDS_DOCKINGBAR_HIDE = 691;

class CDockingControlBar : public SECControlBar {
    DECLARE_SERIAL(CDockingControlBar)

public:
    CDockingControlBar();
    ~CDockingControlBar() override;

protected:
    // Appends the bar's items after whatever menu holds: dock (floating) or
    // float (docked), then hide. Derived classes call it while they build
    // the bar's context menu.
    void GetContextMenu(CMenu& menu);
    // Runs one of the three commands: true for one of them, false (and
    // nothing done) for any other id.
    bool HandleCommand(UINT nID);
    // The three commands, else the window's own command handling (the
    // toolkit bar's passing on to the frame is left out).
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

    DECLARE_MESSAGE_MAP()
};
