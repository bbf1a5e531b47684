#include "PdfText.h"

#include <cstdio>
#include <regex>
#include <sstream>

namespace testing_support {
namespace {

std::string Quoted(const std::filesystem::path& path) {
    std::string quoted = "'";
    for (char c : path.string())
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

std::string Run(const std::string& command, int* status = nullptr) {
    std::string output;
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe)
        return output;
    char buffer[4096];
    while (size_t n = fread(buffer, 1, sizeof buffer, pipe))
        output.append(buffer, n);
    int result = pclose(pipe);
    if (status)
        *status = result;
    return output;
}

} // namespace

int PdfPageCount(const std::filesystem::path& pdf) {
    int status = 0;
    std::string info = Run("pdfinfo " + Quoted(pdf) + " 2>/dev/null", &status);
    std::smatch match;
    if (status != 0 || !std::regex_search(info, match, std::regex("Pages:\\s+(\\d+)")))
        return -1;
    return std::stoi(match[1]);
}

std::vector<std::string> PdfPageLines(const std::filesystem::path& pdf, int page) {
    std::string text = Run("pdftotext -layout -f " + std::to_string(page) + " -l " +
                           std::to_string(page) + " " + Quoted(pdf) + " - 2>/dev/null");
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        if (!line.empty() && line.back() == '\f')
            line.pop_back();
        if (line.find_first_not_of(" \f") != std::string::npos)
            lines.push_back(line);
    }
    return lines;
}

bool PageHas(const std::vector<std::string>& lines, const std::string& text) {
    for (const std::string& line : lines)
        if (line.find(text) != std::string::npos)
            return true;
    return false;
}

std::vector<PdfWord> PdfPageWords(const std::filesystem::path& pdf, int page) {
    std::string html = Run("pdftotext -bbox -f " + std::to_string(page) + " -l " +
                           std::to_string(page) + " " + Quoted(pdf) + " - 2>/dev/null");
    static const std::regex word("<word xMin=\"(-?[0-9.]+)\" yMin=\"(-?[0-9.]+)\" "
                                 "xMax=\"(-?[0-9.]+)\" yMax=\"(-?[0-9.]+)\">([^<]*)</word>");
    std::vector<PdfWord> words;
    for (auto it = std::sregex_iterator(html.begin(), html.end(), word);
         it != std::sregex_iterator(); ++it) {
        const std::smatch& m = *it;
        words.push_back(
            PdfWord{m[5], std::stod(m[1]), std::stod(m[2]), std::stod(m[3]), std::stod(m[4])});
    }
    return words;
}

const PdfWord* FindWord(const std::vector<PdfWord>& words, const std::string& text) {
    for (const PdfWord& w : words)
        if (w.text == text)
            return &w;
    return nullptr;
}

std::filesystem::path RenderPdfPage(const std::filesystem::path& pdf, int page, int dpi,
                                    const std::filesystem::path& pngWithoutExtension) {
    int status = 0;
    Run("pdftoppm -png -singlefile -r " + std::to_string(dpi) + " -f " + std::to_string(page) +
            " -l " + std::to_string(page) + " " + Quoted(pdf) + " " + Quoted(pngWithoutExtension) +
            " 2>/dev/null",
        &status);
    std::filesystem::path png = pngWithoutExtension;
    png += ".png";
    return status == 0 && std::filesystem::exists(png) ? png : std::filesystem::path();
}

} // namespace testing_support
