// The platform's print dialog, inside the platform: the state of one run and
// what the simulated user reads of it.
#pragma once

#include <platform/Printers.h>
#include <windows.h>

#include <string>
#include <vector>

namespace platform::user::printdialog {

// One run of the dialog over the caller's PRINTDLG.
struct DialogState {
    PRINTDLGW* pd = nullptr;
    std::vector<PrinterInfo> printers;
    // The printer the dialog starts on, and the PDF printer's file.
    std::size_t initialPrinter = 0;
    std::u16string initialFile;
    // What the user chose, once OK was accepted.
    std::size_t printer = 0;
    std::u16string file;
    bool pages = false;
    int from = 0;
    int to = 0;
    int copies = 1;
    bool collate = false;
    // Set while the dialog writes its own fields, so that their change
    // notifications are not taken for typing.
    bool writing = false;
};

// The dialog procedure; WM_INITDIALOG's lParam is the DialogState.
INT_PTR PrintDialogProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

// The state of a print dialog window, or null for any other window.
const DialogState* StateOf(HWND hwnd);

} // namespace platform::user::printdialog
