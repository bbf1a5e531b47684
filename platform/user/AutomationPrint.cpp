// The simulated user in the print dialog and on the print preview's tool bar.
#include "AutomationQueue.h"
#include "printdialog/PrintDialog.h"

#include <platform/Automation.h>

#include <dlgs.h>

namespace platform::automation {

namespace {

namespace printdialog = platform::user::printdialog;

std::u16string Number(int value) {
    std::u16string text;
    for (char ch : std::to_string(value))
        text += static_cast<char16_t>(ch);
    return text;
}

std::u16string TextOf(HWND hwnd) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLength(hwnd)), u'\0');
    if (!text.empty())
        GetWindowText(hwnd, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

// The active window when it is a print dialog; else null, recorded.
HWND PrintDialogOrNote(const std::string& what) {
    HWND dialog = GetActiveWindow();
    if (printdialog::StateOf(dialog))
        return dialog;
    detail::Note(what + ": " + detail::Describe(dialog) + " is no print dialog");
    return nullptr;
}

// The steps that replace a field's text by typing: the field takes the
// keyboard with its text selected, then each key.
void AddTyping(std::vector<std::function<void()>>& steps, HWND field, const std::u16string& text) {
    steps.push_back([field] {
        SetFocus(field);
        SendMessage(field, EM_SETSEL, 0, -1);
    });
    for (char16_t ch : text)
        steps.push_back([ch] { detail::TypeChar(ch); });
    // Nothing to type: the selected text is deleted.
    if (text.empty())
        steps.push_back([] { detail::TypeChar(u'\b'); });
}

// Types text into a field of the active print dialog, when it can be typed in.
void FillField(int id, const std::u16string& text, const std::string& what) {
    detail::Queue([id, text, what] {
        HWND dialog = PrintDialogOrNote(what);
        if (!dialog)
            return;
        HWND field = GetDlgItem(dialog, id);
        if (!field || !IsWindowEnabled(field)) {
            detail::Note(what + ": the field cannot be typed in");
            return;
        }
        detail::Note(what + " '" + detail::Narrow(text) + "'");
        std::vector<std::function<void()>> steps;
        AddTyping(steps, field, text);
        detail::QueueFirst(std::move(steps));
    });
}

} // namespace

void ChoosePrinter(const std::u16string& name) {
    detail::Queue([name] {
        if (PrintDialogOrNote("choose printer"))
            detail::Note("choose printer '" + detail::Narrow(name) + "'");
    });
    PickComboItem(cmb4, name);
}

void SetPrintRangeAll() {
    Click(rad1);
}

void SetPrintRange(int from, int to) {
    Click(rad3);
    FillField(edt1, Number(from), "first page");
    FillField(edt2, Number(to), "last page");
}

void SetPrintCopies(int copies) {
    FillField(edt3, Number(copies), "copies");
}

void SetPrintFile(const std::u16string& path) {
    FillField(edt4, path, "print file");
}

bool ReadPrintDialog(PrintDialogView* view) {
    HWND dialog = GetActiveWindow();
    const printdialog::DialogState* state = printdialog::StateOf(dialog);
    if (!view || !state)
        return false;
    *view = PrintDialogView{};
    view->title = TextOf(dialog);
    for (const PrinterInfo& printer : state->printers)
        view->printers.push_back(printer.name);
    view->printer = TextOf(GetDlgItem(dialog, cmb4));
    view->where = TextOf(GetDlgItem(dialog, stc5));
    HWND file = GetDlgItem(dialog, edt4);
    view->file = TextOf(file);
    view->fileEnabled = IsWindowEnabled(file);
    view->allPages = SendMessage(GetDlgItem(dialog, rad1), BM_GETCHECK, 0, 0) == BST_CHECKED;
    view->pagesEnabled = IsWindowEnabled(GetDlgItem(dialog, rad3));
    view->from = TextOf(GetDlgItem(dialog, edt1));
    view->to = TextOf(GetDlgItem(dialog, edt2));
    HWND copies = GetDlgItem(dialog, edt3);
    view->copies = TextOf(copies);
    view->copiesEnabled = IsWindowEnabled(copies);
    view->collate = SendMessage(GetDlgItem(dialog, chx2), BM_GETCHECK, 0, 0) == BST_CHECKED;
    return true;
}

void ClickPreviewButton(UINT command) {
    detail::Queue([command] {
        detail::Note("preview button " + std::to_string(command));
        detail::ClickControl(command);
    });
}

} // namespace platform::automation
