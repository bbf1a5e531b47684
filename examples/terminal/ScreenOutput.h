// What the host makes of a screen: a PNG of the view, a printed PDF page and
// the selected text as UTF-8.
#pragma once

#include "TerminalLayout.h"

#include <string>

namespace screen_output {

// Repaints the whole view into a memory bitmap (selection included) and saves it.
bool WritePng(ScreenBuffer& screen, TerminalLayout& layout, const std::string& path);

// Prints the visible cells on one page of the PDF printer, black on white in
// the given face, the columns spread over the page width less an inch.
bool PrintPdf(ScreenBuffer& screen, EmulatorLayout& layout, const CString& face,
              const std::string& path);

// The selected text with its CR LF line breaks, as UTF-8.
bool WriteSelectedText(const ScreenBuffer& screen, const std::string& path);

} // namespace screen_output
