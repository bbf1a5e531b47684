// The printer list: the PDF printer and the system's print queues, and the
// default printer.
#include "PrintQueues.h"

#include <platform/CodePage.h>
#include <platform/Printers.h>

namespace platform {
namespace {

std::u16string& ChosenDefault() {
    static std::u16string name = kPdfPrinter;
    return name;
}

} // namespace

std::vector<PrinterInfo> Printers() {
    std::vector<PrinterInfo> printers;
    printers.push_back(PrinterInfo{kPdfPrinter, u"PDF file", true});
    for (const gdi::PrintQueue& queue : gdi::PrintQueues()) {
        std::u16string name = FromUtf8(queue.name).GetString();
        // A queue cannot hide the PDF printer.
        if (name == kPdfPrinter)
            continue;
        std::u16string where = FromUtf8(queue.info).GetString();
        printers.push_back(PrinterInfo{name, where.empty() ? u"Print queue" : where, false});
    }
    return printers;
}

std::u16string DefaultPrinter() {
    // A queue chosen earlier may have gone since.
    if (ChosenDefault() != kPdfPrinter && !gdi::PrintQueueExists(ToUtf8(ChosenDefault())))
        return kPdfPrinter;
    return ChosenDefault();
}

bool SetDefaultPrinter(const std::u16string& name) {
    for (const PrinterInfo& printer : Printers())
        if (printer.name == name) {
            ChosenDefault() = name;
            return true;
        }
    return false;
}

} // namespace platform
