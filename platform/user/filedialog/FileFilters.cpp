// The filter string's choices and the patterns' matching.
#include "FileFilters.h"

namespace platform::user::filedialog {

namespace {

char16_t Fold(char16_t ch) {
    return ch >= u'A' && ch <= u'Z' ? static_cast<char16_t>(ch - u'A' + u'a') : ch;
}

std::u16string Trim(std::u16string_view text) {
    std::size_t begin = text.find_first_not_of(u" \t");
    if (begin == std::u16string_view::npos)
        return {};
    std::size_t end = text.find_last_not_of(u" \t");
    return std::u16string(text.substr(begin, end - begin + 1));
}

std::vector<std::u16string> SplitPatterns(std::u16string_view text) {
    std::vector<std::u16string> patterns;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t end = text.find(u';', start);
        if (end == std::u16string_view::npos)
            end = text.size();
        std::u16string pattern = Trim(text.substr(start, end - start));
        if (!pattern.empty())
            patterns.push_back(std::move(pattern));
        start = end + 1;
    }
    return patterns;
}

// Glob matching by backtracking over the last '*'.
bool Glob(std::u16string_view name, std::u16string_view pattern) {
    std::size_t n = 0, p = 0, starP = std::u16string_view::npos, starN = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == u'*') {
            starP = p++;
            starN = n;
        } else if (p < pattern.size() &&
                   (pattern[p] == u'?' || Fold(pattern[p]) == Fold(name[n]))) {
            ++p;
            ++n;
        } else if (starP != std::u16string_view::npos) {
            p = starP + 1;
            n = ++starN;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == u'*')
        ++p;
    return p == pattern.size();
}

} // namespace

std::vector<FileFilter> ParseFilters(LPCWSTR filter) {
    std::vector<FileFilter> filters;
    for (const WCHAR* at = filter; at && *at;) {
        std::u16string_view description(at);
        at += description.size() + 1;
        if (!*at)
            break;
        std::u16string_view patterns(at);
        at += patterns.size() + 1;
        FileFilter entry{std::u16string(description), SplitPatterns(patterns)};
        if (!entry.patterns.empty())
            filters.push_back(std::move(entry));
    }
    if (filters.empty())
        filters.push_back(FileFilter{u"All files (*.*)", {u"*"}});
    return filters;
}

bool MatchesPattern(std::u16string_view name, std::u16string_view pattern) {
    if (pattern == u"*.*")
        return true;
    return Glob(name, pattern);
}

bool MatchesAny(std::u16string_view name, const std::vector<std::u16string>& patterns) {
    for (const std::u16string& pattern : patterns)
        if (MatchesPattern(name, pattern))
            return true;
    return false;
}

std::u16string FilterExtension(const FileFilter& filter) {
    const std::u16string& first = filter.patterns.front();
    if (first.size() < 3 || first.compare(0, 2, u"*.") != 0)
        return {};
    std::u16string extension = first.substr(2);
    if (extension.find_first_of(u"*?.") != std::u16string::npos)
        return {};
    return extension;
}

} // namespace platform::user::filedialog
