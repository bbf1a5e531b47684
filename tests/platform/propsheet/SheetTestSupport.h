// What the property sheet tests share: the host's page templates, pages run
// by a script that records each notification and answers as told, and
// reading the sheet's controls.
#pragma once

#include <platform/ResourceChain.h>
#include <windows.h>

#include <commctrl.h>

#include <map>
#include <string>
#include <vector>

namespace sheet_test {

// The host's resource script.
constexpr UINT IDD_GENERAL = 200;
constexpr UINT IDD_ADVANCED = 201;
constexpr UINT IDD_LAYOUT = 202;
constexpr UINT IDD_WELCOME = 210;
constexpr UINT IDD_OPTIONS = 211;
constexpr UINT IDD_SUMMARY = 212;
constexpr UINT IDS_SETUP = 220;
constexpr UINT IDS_OPTIONS_TITLE = 221;
constexpr UINT IDC_NAME = 1001;
constexpr UINT IDC_VERBOSE = 1002;
constexpr UINT IDC_LEVEL = 1003;
constexpr UINT IDC_TARGET = 1005;

const platform::DialogTemplate* Template(UINT id);

// A page that writes "<name> <notification>" to the journal for each
// notification and answers from answers (0 when not given).
struct PageScript {
    std::string name;
    std::vector<std::string>* journal = nullptr;
    std::map<UINT, LRESULT> answers;
    HWND hwnd = nullptr;
};

INT_PTR ScriptedPageProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
// A page on the template in memory; title, when given, replaces its caption.
HPROPSHEETPAGE MakePage(UINT templateId, PageScript* script, LPCWSTR title = nullptr);
// The notification's name: SETACTIVE, KILLACTIVE, APPLY, ...
std::string CodeName(UINT code);

std::u16string TextOf(HWND hwnd);
std::u16string TabText(HWND tab, int index);
// A rectangle of a child in its parent's client coordinates.
RECT RectIn(HWND parent, HWND child);

} // namespace sheet_test
