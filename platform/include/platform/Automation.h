// The simulated user. A test or a demo queues what the user does; each action
// runs when the program waits for input (a modal loop or GetMessage has
// nothing left to do), one action per wait, and arrives as the messages the
// original sends (mouse button and key messages), so the controls' own logic
// runs. A modal loop that waits with no action left is cancelled as a user
// would cancel it, and the cancel is recorded.
#pragma once

#include "../windef.h"

#include <functional>
#include <string>
#include <vector>

namespace platform::automation {

// A left click in the middle of the control with this id in the active
// window (searched through its descendants). A control that is hidden or
// disabled cannot be clicked: the attempt is recorded and nothing happens.
void Click(UINT id);
// A left click at a point of a window's client area.
void ClickAt(HWND hwnd, POINT client);
// Types text into the focused window, one key press per character.
void Type(const std::u16string& text);
// One key press (down and up), with Shift or Ctrl held if asked.
void Key(UINT vk, bool shift = false, bool control = false);
// Picks an item of the combo box with this id in the active window as a user
// does: a click on the arrow drops the list, then a click on the item (the
// list scrolled to show it) picks it and closes the list. By text, the first
// item whose whole text matches (A to Z folded). A missing combo box or item
// is recorded and nothing happens.
void PickComboItem(UINT id, int index);
void PickComboItem(UINT id, const std::u16string& text);
// Clicks the check box if its state differs from checked.
void SetCheck(UINT id, bool checked);
// Clicks the message box's button that returns result (IDOK, IDYES, ...).
void AnswerMessageBox(int result);
// Picks the item with this command from the active window's menu bar, as a
// user opens its pop-ups and clicks it: the window gets WM_INITMENU and
// WM_INITMENUPOPUP for each pop-up on the way (so it can update the items),
// then WM_COMMAND, unless the item is disabled or missing (recorded, and
// nothing is sent).
void PickMenuItem(UINT command);
// Any other step, run in turn: read what is shown, save a picture.
void Do(std::function<void()> step);

// Runs the next queued action; false when none is left.
bool RunNext();
std::size_t Pending();
// Drops the queued actions and the record.
void Reset();

// What happened, in order: each action run, each click that could not be
// made, and each modal loop cancelled because no action was left.
const std::vector<std::string>& Record();
int CancelsForWantOfActions();
// Notes a modal loop that was cancelled because no action was left.
void NoteCancelled(HWND modal);

} // namespace platform::automation

namespace platform::automation {

// List view actions, each as mouse messages a user's hand would make on the
// list with this id in the active window.
// A click in the middle of a column's heading.
void ClickHeader(UINT listId, int column);
// Presses on the divider at the right of a column's heading, moves dx
// pixels (in two steps) and releases: the column gets wider by dx.
void DragHeaderDivider(UINT listId, int column, int dx);
// Scrolls the item into view and clicks its first column, with Ctrl held
// if asked.
void ClickListItem(UINT listId, int item, bool ctrl = false);
// Scrolls the item into view and double-clicks its first column.
void DoubleClickListItem(UINT listId, int item);

} // namespace platform::automation

// The file dialog (GetOpenFileName, GetSaveFileName, CFileDialog).
namespace platform::automation {

// Types path into the active file dialog's name field (its text selected
// first, so the path replaces it), one key per character, then clicks its
// Open or Save button, so the dialog's own rules apply: the default
// extension, the existence checks, the overwrite question (answered by a
// following AnswerMessageBox). Without an active file dialog the attempt is
// recorded and nothing happens.
void AnswerFileDialog(const std::u16string& path);

// What a file dialog shows.
struct FileDialogView {
    std::u16string title;              // the caption
    std::u16string folder;             // the "Look in" box's text
    std::u16string fileName;           // the name field's text
    std::u16string fileType;           // the chosen "Files of type" description
    std::vector<std::u16string> names; // the list's names, top to bottom
};
// Reads the active window when it is a file dialog; false otherwise.
bool ReadFileDialog(FileDialogView* view);

} // namespace platform::automation

// Tab controls, such as a property sheet's.
namespace platform::automation {

// A click in the middle of tab index of the tab control with this id in the
// active window; id 0 takes the first tab control shown there. A missing
// control or tab is recorded and nothing happens.
void ClickTab(int index, UINT tabId = 0);

} // namespace platform::automation

// The colour dialog (ChooseColor, CColorDialog).
namespace platform::automation {

// Picks a colour in the active colour dialog as a user does: a click on the
// first basic colour swatch of that colour, or, when none matches, the red,
// green and blue values typed into their fields; then a click on OK.
// Without an active colour dialog the attempt is recorded and nothing
// happens.
void PickColor(COLORREF colour);
// The colour the active colour dialog shows as chosen; false when the
// active window is no colour dialog.
bool ReadColorDialog(COLORREF* colour);

} // namespace platform::automation

// The print dialog (PrintDlg, CPrintDialog). Each step acts on the active
// print dialog as a user's hand would; without one the attempt is recorded
// and nothing happens. Click(IDOK) prints, Click(IDCANCEL) cancels.
namespace platform::automation {

// Picks the printer by its name in the printer box.
void ChoosePrinter(const std::u16string& name);
// Clicks "All".
void SetPrintRangeAll();
// Clicks "Pages" and types the first and last page into their fields.
void SetPrintRange(int from, int to);
// Types the number of copies.
void SetPrintCopies(int copies);
// Types the PDF printer's file name.
void SetPrintFile(const std::u16string& path);

// What a print dialog shows.
struct PrintDialogView {
    std::u16string title;
    std::vector<std::u16string> printers; // the printer box's list
    std::u16string printer;               // the chosen one
    std::u16string where;                 // where its pages go
    std::u16string file;                  // the file name field
    bool fileEnabled = false;
    bool allPages = false; // "All" is checked
    bool pagesEnabled = false;
    std::u16string from, to; // the page fields
    std::u16string copies;
    bool copiesEnabled = false;
    bool collate = false;
};
// Reads the active window when it is a print dialog; false otherwise.
bool ReadPrintDialog(PrintDialogView* view);

} // namespace platform::automation

// Print preview.
namespace platform::automation {

// Clicks the button of the print preview tool bar in the active window that
// carries command (AFX_ID_PREVIEW_PRINT, _NEXT, _PREV, _NUMPAGE, _ZOOMIN,
// _ZOOMOUT, _CLOSE). A button that is missing or disabled is recorded and
// nothing happens.
void ClickPreviewButton(UINT command);

} // namespace platform::automation

// Shortcut menus (TrackPopupMenu) and the right mouse button.
namespace platform::automation {

// A right click at a point of a window's client area: the press and the
// release, after which the window is asked for its shortcut menu
// (WM_CONTEXTMENU). A window that is hidden or disabled cannot be clicked:
// the attempt is recorded and nothing happens.
void RightClickAt(HWND hwnd, POINT client);
// The mouse wheel turned by notches (positive away from the user) with the
// pointer where it is: WM_MOUSEWHEEL goes to the focus window, which passes
// it up to its parent if it does not scroll.
void TurnWheel(int notches);
// Picks the item with this command in the open menu as a user does: the
// mouse opens the pop-ups on the way, moves onto the item and clicks it. With
// no menu open, or a missing or greyed item, it is recorded and nothing done.
void PickPopupMenuItem(UINT command);
// Closes the open shortcut menu without a pick, as Escape does.
void DismissPopupMenu();

struct PopupMenuItemView {
    std::u16string text; // with its '&' and '\t' as the menu holds it
    UINT command = 0;    // 0 for a separator or an item that opens a pop-up
    UINT flags = 0;      // MF_ bits
};
struct PopupMenuView {
    HWND window = nullptr;
    RECT rect{}; // the menu's window on the screen
    std::vector<PopupMenuItemView> items;
};
// Reads the innermost open menu level; false when no menu is open.
bool ReadPopupMenu(PopupMenuView* view);

} // namespace platform::automation

// Sizing windows by their frame.
namespace platform::automation {

// Presses on the bottom-right corner of the active window's sizing frame,
// moves the mouse by dx, dy (in two steps) and releases it, as a user
// resizes a window: the window's own sizing rules (WM_SIZING, its minimum
// size) apply. A window without a sizing frame is recorded and left alone.
void DragWindowCorner(int dx, int dy);

} // namespace platform::automation
