// Reading a folder for the file dialog.
#include "FolderListing.h"

#include "FileFilters.h"

#include <platform/CodePage.h>

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace platform::user::filedialog {

namespace {

char16_t Fold(char16_t ch) {
    return ch >= u'A' && ch <= u'Z' ? static_cast<char16_t>(ch - u'A' + u'a') : ch;
}

bool IsDigit(char16_t ch) {
    return ch >= u'0' && ch <= u'9';
}

std::u16string Ascii(const std::string& text) {
    return std::u16string(text.begin(), text.end());
}

std::time_t ToTimeT(std::filesystem::file_time_type time) {
    auto system = std::chrono::file_clock::to_sys(time);
    return std::chrono::system_clock::to_time_t(system);
}

// One directory entry, or false when it vanished or cannot be examined.
bool ReadEntry(const std::filesystem::directory_entry& entry, FolderEntry* out) {
    std::error_code ec;
    std::filesystem::file_status status = entry.status(ec);
    if (ec)
        return false;
    out->name = TextOf(entry.path().filename());
    out->folder = std::filesystem::is_directory(status);
    if (!out->folder) {
        out->size = entry.file_size(ec);
        if (ec)
            out->size = 0;
    }
    std::filesystem::file_time_type time = entry.last_write_time(ec);
    out->modified = ec ? 0 : ToTimeT(time);
    return true;
}

} // namespace

std::filesystem::path PathOf(std::u16string_view text) {
    return std::filesystem::path(platform::ToUtf8(text));
}

std::u16string TextOf(const std::filesystem::path& path) {
    return platform::FromUtf8(path.string()).Str();
}

int CompareNames(std::u16string_view a, std::u16string_view b) {
    std::size_t i = 0, j = 0;
    while (i < a.size() && j < b.size()) {
        if (IsDigit(a[i]) && IsDigit(b[j])) {
            // Compare the runs' values: skip leading zeros, then the longer
            // run is larger, then digit by digit.
            std::size_t si = i, sj = j;
            while (si < a.size() && a[si] == u'0')
                ++si;
            while (sj < b.size() && b[sj] == u'0')
                ++sj;
            std::size_t ei = si, ej = sj;
            while (ei < a.size() && IsDigit(a[ei]))
                ++ei;
            while (ej < b.size() && IsDigit(b[ej]))
                ++ej;
            if (ei - si != ej - sj)
                return ei - si < ej - sj ? -1 : 1;
            int digits = a.substr(si, ei - si).compare(b.substr(sj, ej - sj));
            if (digits != 0)
                return digits;
            i = ei;
            j = ej;
            continue;
        }
        char16_t x = Fold(a[i]), y = Fold(b[j]);
        if (x != y)
            return x < y ? -1 : 1;
        ++i;
        ++j;
    }
    if (i < a.size() || j < b.size())
        return i < a.size() ? 1 : -1;
    int exact = a.compare(b);
    return exact < 0 ? -1 : exact > 0 ? 1 : 0;
}

std::vector<FolderEntry> ListFolder(const std::filesystem::path& folder,
                                    const std::vector<std::u16string>& patterns) {
    std::vector<FolderEntry> entries;
    std::error_code ec;
    std::filesystem::directory_iterator it(folder, ec);
    for (; !ec && it != std::filesystem::directory_iterator(); it.increment(ec)) {
        FolderEntry entry;
        if (!ReadEntry(*it, &entry) || entry.name.empty() || entry.name[0] == u'.')
            continue;
        if (entry.folder || MatchesAny(entry.name, patterns))
            entries.push_back(std::move(entry));
    }
    std::sort(entries.begin(), entries.end(), [](const FolderEntry& x, const FolderEntry& y) {
        if (x.folder != y.folder)
            return x.folder;
        return CompareNames(x.name, y.name) < 0;
    });
    return entries;
}

std::u16string SizeText(std::uintmax_t bytes) {
    std::string digits = std::to_string((bytes + 1023) / 1024);
    std::string grouped;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0)
            grouped += ',';
        grouped += digits[i];
    }
    return Ascii(grouped + " KB");
}

std::u16string DateText(std::time_t when) {
    std::tm local{};
    if (!localtime_r(&when, &local))
        return {};
    int hour = local.tm_hour % 12 == 0 ? 12 : local.tm_hour % 12;
    char text[48];
    std::snprintf(text, sizeof text, "%d/%d/%d %d:%02d %s", local.tm_mon + 1, local.tm_mday,
                  local.tm_year + 1900, hour, local.tm_min, local.tm_hour < 12 ? "AM" : "PM");
    return Ascii(text);
}

} // namespace platform::user::filedialog
