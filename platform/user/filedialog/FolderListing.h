// What the file dialog lists of a folder: its sub-folders, then the files
// that match the chosen patterns, each in the order a person expects.
#pragma once

#include <windef.h>

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

namespace platform::user::filedialog {

struct FolderEntry {
    std::u16string name;
    bool folder = false;
    std::uintmax_t size = 0;
    std::time_t modified = 0;
};

// The folder's entries: folders first, then the files matching patterns,
// each group sorted by CompareNames. Names beginning with '.' are hidden,
// as POSIX desktops hide them. A folder that cannot be read lists nothing;
// an entry whose details cannot be read is left out.
std::vector<FolderEntry> ListFolder(const std::filesystem::path& folder,
                                    const std::vector<std::u16string>& patterns);

// Negative, zero or positive as a sorts before, with or after b: runs of
// digits compare by their value ("file2" before "file10"), letters A to Z
// without regard to case, then the names as they are.
int CompareNames(std::u16string_view a, std::u16string_view b);

// "0 KB" for an empty file, else whole kilobytes rounded up with thousands
// separators ("1,235 KB").
std::u16string SizeText(std::uintmax_t bytes);
// The local time as M/D/YYYY h:mm AM.
std::u16string DateText(std::time_t when);

// Conversions between the dialog's UTF-16 text and file system paths.
std::filesystem::path PathOf(std::u16string_view text);
std::u16string TextOf(const std::filesystem::path& path);

} // namespace platform::user::filedialog
