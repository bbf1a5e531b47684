// The platform's file dialog, inside the platform: the state of one run and
// what the simulated user reads of it.
#pragma once

#include "FileFilters.h"
#include "FolderListing.h"

#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

namespace platform::user::filedialog {

// One run of the dialog over the caller's OPENFILENAME.
struct DialogState {
    OPENFILENAMEW* ofn = nullptr;
    bool save = false;
    std::u16string title;
    std::vector<FileFilter> filters;
    std::size_t filter = 0;
    // Patterns typed into the name field ("*.log") replace the filter's
    // until another filter is picked.
    std::vector<std::u16string> typedPatterns;
    std::filesystem::path folder;
    // The folder and its ancestors as the "Look in" box lists them, root
    // first.
    std::vector<std::filesystem::path> lookIn;
    std::vector<FolderEntry> entries;
    // The chosen file's full path once the user chose one.
    std::u16string chosen;
};

// The dialog procedure; WM_INITDIALOG's lParam is the DialogState.
INT_PTR FileDialogProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

// The state of a file dialog window, or null for any other window.
const DialogState* StateOf(HWND hwnd);

// The folder a run starts in: the initial name's directory, else the
// initial directory, else the process's current directory, each used only
// when it is an existing folder.
std::filesystem::path InitialFolder(const OPENFILENAMEW& ofn);

// What the OK button does with the name field's text; false keeps the
// dialog open (a folder was entered, a check failed).
bool AcceptTypedName(HWND hwnd, DialogState& state, std::u16string text);

// Shows folder's entries and updates the "Look in" box and the Up button.
void ShowFolder(HWND hwnd, DialogState& state, const std::filesystem::path& folder);

} // namespace platform::user::filedialog
