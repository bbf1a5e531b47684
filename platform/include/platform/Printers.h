// The printers a program can print to: the PDF printer, which writes each
// document to a PDF file, and the system's print queues (CUPS), each by its
// name. A printer DC (CreateDC with the printer's name) writes PDF pages;
// for a print queue the finished document is sent to the queue.
#pragma once

#include <string>
#include <vector>

namespace platform {

// The name of the PDF printer.
inline constexpr char16_t kPdfPrinter[] = u"PDF";

struct PrinterInfo {
    std::u16string name;
    // What the print dialog shows about the printer: where its pages go.
    std::u16string where;
    // The PDF printer: pages go to a file the user names.
    bool toFile = false;
};

// The PDF printer first, then the print queues of the system, by name. The
// queues are asked for afresh at each call; without a print service there
// are none.
std::vector<PrinterInfo> Printers();
// The printer for printing without a dialog and for a print dialog that is
// given none: the PDF printer, unless the host chose another.
std::u16string DefaultPrinter();
// Chooses the default printer; false (and nothing changes) for a name that is
// not among Printers().
bool SetDefaultPrinter(const std::u16string& name);

} // namespace platform
