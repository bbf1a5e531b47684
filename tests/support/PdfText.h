// Reading a written PDF back with poppler's tools: its page count, and the
// text of each page as lines.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace testing_support {

// The page count pdfinfo reports; -1 when it cannot read the file.
int PdfPageCount(const std::filesystem::path& pdf);
// The text of one page (1-based) in reading order, one entry per line, with
// the columns' gaps kept as spaces (pdftotext -layout).
std::vector<std::string> PdfPageLines(const std::filesystem::path& pdf, int page);
// Whether any line of the page holds text.
bool PageHas(const std::vector<std::string>& lines, const std::string& text);
// A word on a page and its box, in points from the page's top-left corner.
struct PdfWord {
    std::string text;
    double xMin = 0;
    double yMin = 0;
    double xMax = 0;
    double yMax = 0;
};
// The words of one page (pdftotext -bbox).
std::vector<PdfWord> PdfPageWords(const std::filesystem::path& pdf, int page);
// The first word with exactly this text; null when there is none.
const PdfWord* FindWord(const std::vector<PdfWord>& words, const std::string& text);

// Renders one page to a PNG at the resolution given; the PNG's path, or an
// empty path when pdftoppm failed.
std::filesystem::path RenderPdfPage(const std::filesystem::path& pdf, int page, int dpi,
                                    const std::filesystem::path& pngWithoutExtension);

} // namespace testing_support
