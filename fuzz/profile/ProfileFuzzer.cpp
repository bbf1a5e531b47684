// Takes arbitrary bytes as a profile file: lists its sections and keys, reads
// every value as a string, an integer and binary data, then writes into it.
// Reads give values; a write changes what it names and nothing else. Any
// other outcome traps.
#include <ScratchProfile.h>
#include <afxwin.h>
#include <tchar.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <map>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

using Key = std::pair<std::u16string, std::u16string>;

void Check(bool condition) {
    if (!condition)
        __builtin_trap();
}

const std::string& FuzzFile() {
    static const std::string file = fuzz::MakeScratchProfile("profile-fuzz");
    return file;
}

std::vector<WCHAR>& Buffer() {
    static std::vector<WCHAR> buffer(1 << 16);
    return buffer;
}

std::u16string Get(LPCWSTR section, LPCWSTR key, LPCWSTR name, DWORD size = 1 << 16) {
    auto& buffer = Buffer();
    const DWORD n =
        GetPrivateProfileStringW(section, key, u"\x01missing", buffer.data(), size, name);
    Check(n < size);
    return std::u16string(buffer.data(), n);
}

std::vector<std::u16string> List(LPCWSTR section, LPCWSTR name) {
    const std::u16string list = Get(section, nullptr, name);
    std::vector<std::u16string> names;
    for (std::size_t start = 0; start < list.size();) {
        const std::size_t end = list.find(u'\0', start);
        names.push_back(list.substr(start, end - start));
        start = end == std::u16string::npos ? list.size() : end + 1;
    }
    return names;
}

// Names compare as the profile compares them: without their outer blanks,
// with A-Z folded.
bool Same(std::u16string_view a, std::u16string_view b) {
    auto trim = [](std::u16string_view text) {
        while (!text.empty() && (text.front() == u' ' || text.front() == u'\t'))
            text.remove_prefix(1);
        while (!text.empty() && (text.back() == u' ' || text.back() == u'\t'))
            text.remove_suffix(1);
        return text;
    };
    a = trim(a);
    b = trim(b);
    auto fold = [](char16_t c) { return c >= u'A' && c <= u'Z' ? c + 32 : c; };
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (fold(a[i]) != fold(b[i]))
            return false;
    return true;
}

// The values of the first sections and keys, as the profile reads them now.
std::map<Key, std::u16string> Snapshot(LPCWSTR name) {
    std::map<Key, std::u16string> values;
    std::vector<std::u16string> sections = List(nullptr, name);
    if (sections.size() > 3)
        sections.resize(3);
    for (const auto& section : sections) {
        std::vector<std::u16string> keys = List(section.c_str(), name);
        if (keys.size() > 3)
            keys.resize(3);
        for (const auto& key : keys)
            values[{section, key}] = Get(section.c_str(), key.c_str(), name);
    }
    return values;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string& path = FuzzFile();
    {
        const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        Check(fd >= 0);
        Check(::write(fd, data, size) == static_cast<ssize_t>(size));
        ::close(fd);
    }
    const CString name = platform::FromUtf8(path);
    CWinApp app(u"fuzz");
    app.m_pszProfileName = _tcsdup(name);

    // Every way of reading the first value: cut to a small buffer, as an
    // integer, through the framework, as binary data.
    const auto before = Snapshot(name);
    int probed = 0;
    for (const auto& [where, value] : before) {
        if (probed++ == 1)
            break;
        const std::u16string cut = Get(where.first.c_str(), where.second.c_str(), name, 5);
        Check(cut == value.substr(0, 4));
        (void)app.GetProfileInt(where.first.c_str(), where.second.c_str(), 7);
        Check(app.GetProfileString(where.first.c_str(), where.second.c_str()).GetLength() <= 4095);
        LPBYTE bytes = nullptr;
        UINT count = 0;
        if (app.GetProfileBinary(where.first.c_str(), where.second.c_str(), &bytes, &count))
            delete[] bytes;
        else
            Check(!bytes && count == 0);
    }

    // A new or replaced value reads back; deleting a key, then a whole
    // section, removes just that; no other value changes.
    const std::u16string section = before.empty() ? u"Fuzz" : before.begin()->first.first;
    const std::u16string key = u"fuzzkey";
    const std::u16string value =
        u"value " + std::u16string(1, static_cast<char16_t>(u'a' + size % 26));
    Check(WritePrivateProfileStringW(section.c_str(), key.c_str(), value.c_str(), name));
    Check(Get(section.c_str(), key.c_str(), name) == value);
    Key first{section, key}, last{section, key};
    if (!before.empty()) {
        first = before.begin()->first;
        Check(WritePrivateProfileStringW(first.first.c_str(), first.second.c_str(), nullptr, name));
        Check(Get(first.first.c_str(), first.second.c_str(), name) == u"\x01missing");
        last = before.rbegin()->first;
        Check(WritePrivateProfileStringW(last.first.c_str(), nullptr, nullptr, name));
        Check(Get(last.first.c_str(), last.second.c_str(), name) == u"\x01missing");
    }
    for (const auto& [where, old] : before)
        if (!Same(where.first, last.first) &&
            !(Same(where.first, first.first) && Same(where.second, first.second)) &&
            !(Same(where.first, section) && Same(where.second, key)))
            Check(Get(where.first.c_str(), where.second.c_str(), name) == old);

    // Binary data of the input round-trips.
    const UINT count = static_cast<UINT>(size < 200 ? size : 200);
    std::vector<BYTE> bytes(data, data + count);
    Check(app.WriteProfileBinary(u"FuzzBinary", u"data", bytes.data(), count));
    LPBYTE back = nullptr;
    UINT backCount = 0;
    const BOOL found = app.GetProfileBinary(u"FuzzBinary", u"data", &back, &backCount);
    Check(found == (count > 0));
    Check(backCount == count && std::vector<BYTE>(back, back + backCount) == bytes);
    delete[] back;
    return 0;
}
