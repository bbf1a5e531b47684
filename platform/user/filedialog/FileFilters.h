// The file dialog's "Files of type" choices, read from the filter string of
// OPENFILENAME: pairs of NUL-ended strings (a description, then patterns
// separated by ';') ending with an empty string.
#pragma once

#include <windef.h>

#include <string>
#include <vector>

namespace platform::user::filedialog {

struct FileFilter {
    std::u16string description;
    std::vector<std::u16string> patterns; // trimmed, never empty
};

// The filters; "All files" (*) when the string is null or holds none. A
// description without its pattern string is dropped.
std::vector<FileFilter> ParseFilters(LPCWSTR filter);

// True when name matches pattern: '*' any run, '?' one character, letters
// A to Z matched without regard to case (as the original's file system
// does); "*.*" matches every name, with or without a dot.
bool MatchesPattern(std::u16string_view name, std::u16string_view pattern);
bool MatchesAny(std::u16string_view name, const std::vector<std::u16string>& patterns);

// The extension a filter gives a typed name without one: that of its first
// pattern when it is "*.ext" with no wild card in ext; empty otherwise.
std::u16string FilterExtension(const FileFilter& filter);

} // namespace platform::user::filedialog
