// The property sheet's state, shared by its creation, its layout, its
// window procedure and its page changes. Internal to the platform.
#pragma once

#include <platform/ResourceTemplates.h>
#include <windows.h>

#include <commctrl.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

// A page handle: the caller's structure copied with the bytes it carries
// past the structure.
struct _PSP {
    std::vector<std::max_align_t> storage;
    PROPSHEETPAGEW* Page() { return reinterpret_cast<PROPSHEETPAGEW*>(storage.data()); }
};

namespace platform::user::propsheet {

struct Page {
    HPROPSHEETPAGE handle = nullptr;
    // The page's template made into a child of the sheet.
    platform::DialogTemplate child;
    std::u16string title;
    HWND hwnd = nullptr;
    bool changed = false;
};

struct Sheet {
    DWORD flags = 0;
    HWND hwnd = nullptr;
    HWND tab = nullptr;
    HINSTANCE instance = nullptr;
    std::u16string caption;
    std::vector<Page> pages;
    int active = -1;
    int startPage = 0;
    // The pages' area in the sheet's client coordinates.
    RECT pageRect{};
    DWORD wizardButtons = PSWIZB_BACK | PSWIZB_NEXT;
    bool ended = false;
    INT_PTR result = 0;
    PFNPROPSHEETCALLBACK callback = nullptr;

    bool IsWizard() const { return (flags & (PSH_WIZARD | PSH_WIZARD97)) != 0; }
    int PageCount() const { return static_cast<int>(pages.size()); }
};

// Pages (PropSheetPages.cpp).

// Finds the page's template and title; false when the template is missing.
bool ResolvePage(Page& page);
// Creates the page's window, hidden, over the page area; false when its
// callback or its dialog refused.
bool EnsurePageWindow(Sheet& sheet, int index);
// Sends a notification to a page that has a window; 0 for one that has none.
LRESULT NotifyPage(Sheet& sheet, int index, UINT code, LPARAM lParam = 0);
// The page a PSN_WIZNEXT, PSN_WIZBACK or PSN_SETACTIVE answer names: its
// template, as a resource number or as the pointer of an in-memory one.
int FindPageByResId(const Sheet& sheet, LRESULT id);
int FindPageByHandle(const Sheet& sheet, HPROPSHEETPAGE handle);
int FindPageByWindow(const Sheet& sheet, HWND hwnd);
// Adds a page at the end, with its tab; false when its template is missing
// (the handle is destroyed then).
bool AddPage(Sheet& sheet, HPROPSHEETPAGE handle);
void RemovePage(Sheet& sheet, int index);

// Layout (PropSheetLayout.cpp).

// The sheet's controls, sized to the largest page, and the sheet centred
// over its owner.
void CreateSheetControls(Sheet& sheet);
// Shows, hides and enables the wizard's buttons for flags and moves the
// default push button: Finish when it is shown, else Next.
void SetWizardButtons(Sheet& sheet, DWORD flags);

// Page changes (PropSheetNavigation.cpp).

// Activates page index: PSN_SETACTIVE may skip on in direction (-1 or +1)
// or name another page. False when no page took the activation.
bool SetCurSel(Sheet& sheet, int index, int direction);
// PSN_KILLACTIVE to the current page: whether it may be left.
bool CanLeavePage(Sheet& sheet);
// A change the user asked for (tab click, Ctrl+Tab, PSM_SETCURSEL).
bool ChangePage(Sheet& sheet, int index);
// What the sheet's buttons do.
void WizardBack(Sheet& sheet);
void WizardNext(Sheet& sheet);
void WizardFinish(Sheet& sheet);
bool Apply(Sheet& sheet, bool ok);
void Cancel(Sheet& sheet);
void EndSheet(Sheet& sheet, INT_PTR result);

// The window (PropSheetWindow.cpp).

INT_PTR SheetProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
Sheet* SheetOf(HWND hwnd);
// What WM_INITDIALOG is given: the sheet, which the window adopts.
struct InitParams {
    Sheet* sheet = nullptr;
    bool adopted = false;
};

// The text of the tab of page index (its title as the sheet shows it).
std::u16string TabText(const Sheet& sheet, int index);

} // namespace platform::user::propsheet
