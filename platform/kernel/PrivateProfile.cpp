// The profile API on INI files: GetPrivateProfileStringW, GetPrivateProfileIntW
// and WritePrivateProfileStringW. A file name without a directory is looked up
// in the configuration home ($XDG_CONFIG_HOME, else $HOME/.config), which
// stands where the original's Windows directory does.
//
// Readers need no lock: a writer replaces the file in one rename, so a reader
// sees the old or the new file whole. Writers lock the file around the whole
// read-modify-write, so concurrent writers of different keys lose nothing.
// The parsed document of recently used files is kept and reused while the
// file's bytes are unchanged (comparing bytes, not times, which the file
// system keeps too coarsely to notice two quick writes).
#include "winbase.h"

#include "atlstr.h"
#include "kernel/DurableFile.h"
#include "kernel/IniDocument.h"
#include "platform/CodePage.h"

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace {

using platform::ini::IniDocument;

// Larger files are refused rather than read into memory.
constexpr std::size_t kMaxFileSize = 64u << 20;
constexpr std::size_t kCachedFiles = 4;

DWORD Win32Error(int error) {
    switch (error) {
    case ENOENT:
        return ERROR_FILE_NOT_FOUND;
    case ENOTDIR:
        return ERROR_PATH_NOT_FOUND;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
        return ERROR_ACCESS_DENIED;
    case ENOSPC:
    case EDQUOT:
        return ERROR_DISK_FULL;
    case EFBIG:
        return ERROR_FILE_TOO_LARGE;
    case ENAMETOOLONG:
        return ERROR_FILENAME_EXCED_RANGE;
    default:
        return ERROR_WRITE_FAULT;
    }
}

std::string ConfigHome() {
    // Relative values are invalid in these variables and are ignored.
    const char* config = std::getenv("XDG_CONFIG_HOME");
    if (config && config[0] == '/')
        return config;
    const char* home = std::getenv("HOME");
    if (home && *home)
        return std::string(home) + "/.config";
    if (const passwd* pw = ::getpwuid(::getuid()); pw && pw->pw_dir)
        return std::string(pw->pw_dir) + "/.config";
    return "/.config";
}

// The file's path; empty for a name that cannot be a file (empty, or a directory's).
std::string ResolvePath(LPCWSTR fileName) {
    const std::string name = platform::ToUtf8(fileName ? fileName : u"win.ini");
    if (name.empty() || name.back() == '/')
        return {};
    if (name.front() == '/')
        return name;
    return ConfigHome() + "/" + name;
}

struct CachedFile {
    std::string path;
    std::string bytes;
    std::shared_ptr<IniDocument> doc;
};

std::mutex g_cacheMutex;
std::vector<CachedFile> g_cache; // most recently used last

// The document of path's bytes, from the cache when they are the same. The
// entry leaves the cache when take is set; otherwise a new document is cached
// with bytes, which are moved there.
std::shared_ptr<IniDocument> DocumentOf(const std::string& path, std::string& bytes, bool take) {
    std::lock_guard<std::mutex> lock(g_cacheMutex);
    for (auto it = g_cache.begin(); it != g_cache.end(); ++it) {
        if (it->path != path)
            continue;
        if (it->bytes == bytes) {
            CachedFile entry = std::move(*it);
            g_cache.erase(it);
            auto doc = entry.doc;
            if (!take)
                g_cache.push_back(std::move(entry));
            return doc;
        }
        g_cache.erase(it);
        break;
    }
    auto doc = std::make_shared<IniDocument>(IniDocument::Parse(bytes));
    if (!take) {
        if (g_cache.size() == kCachedFiles)
            g_cache.erase(g_cache.begin());
        g_cache.push_back({path, std::move(bytes), doc});
    }
    return doc;
}

void Remember(const std::string& path, std::string bytes, std::shared_ptr<IniDocument> doc) {
    std::lock_guard<std::mutex> lock(g_cacheMutex);
    std::erase_if(g_cache, [&](const CachedFile& entry) { return entry.path == path; });
    if (g_cache.size() == kCachedFiles)
        g_cache.erase(g_cache.begin());
    g_cache.push_back({path, std::move(bytes), std::move(doc)});
}

// The document to read; an empty one when the file is missing or unreadable.
std::shared_ptr<const IniDocument> LoadForReading(LPCWSTR fileName) {
    const std::string path = ResolvePath(fileName);
    std::string bytes;
    int error = ENOENT;
    if (path.empty() || !platform::ReadWholeFile(path, bytes, kMaxFileSize, error)) {
        SetLastError(Win32Error(error));
        return std::make_shared<const IniDocument>();
    }
    return DocumentOf(path, bytes, false);
}

bool HasLineBreak(std::u16string_view text) {
    return text.find_first_of(u"\r\n") != std::u16string_view::npos;
}

// Names and values that would not read back as written: line breaks anywhere,
// ']' in a section name, '=' in a key or a key that would read as a section.
bool CanWrite(std::u16string_view section, std::u16string_view key, std::u16string_view value) {
    return !HasLineBreak(section) && section.find(u']') == std::u16string_view::npos &&
           !HasLineBreak(key) && key.find(u'=') == std::u16string_view::npos &&
           !platform::ini::Trim(key).starts_with(u'[') && !HasLineBreak(value);
}

// Copies text and a terminator into buffer, cut to fit; returns the length copied.
DWORD CopyString(std::u16string_view text, LPWSTR buffer, DWORD size) {
    const std::size_t n = std::min<std::size_t>(text.size(), size - 1);
    text.copy(buffer, n);
    buffer[n] = u'\0';
    return static_cast<DWORD>(n);
}

// Copies names as a list of terminated strings ending with an empty one. When
// they do not fit, the last one that does is cut and the list still ends with
// two terminators; the result is then size - 2.
DWORD CopyList(const std::vector<std::u16string>& names, LPWSTR buffer, DWORD size) {
    std::u16string list;
    for (const auto& name : names)
        list.append(name).append(1, u'\0');
    if (list.size() + 1 <= size) {
        list.copy(buffer, list.size());
        buffer[list.size()] = u'\0';
        return static_cast<DWORD>(list.size());
    }
    if (size < 2) {
        buffer[0] = u'\0';
        return 0;
    }
    list.copy(buffer, size - 2);
    buffer[size - 2] = u'\0';
    buffer[size - 1] = u'\0';
    return size - 2;
}

UINT ParseProfileInt(std::u16string_view text) {
    std::size_t i = 0;
    bool negative = false;
    if (i < text.size() && (text[i] == u'-' || text[i] == u'+'))
        negative = text[i++] == u'-';
    uint32_t value = 0; // wraps modulo 2^32, as the original does
    if (i + 1 < text.size() && text[i] == u'0' && (text[i + 1] == u'x' || text[i + 1] == u'X')) {
        for (i += 2; i < text.size(); ++i) {
            const char16_t ch = text[i];
            uint32_t digit;
            if (ch >= u'0' && ch <= u'9')
                digit = ch - u'0';
            else if (ch >= u'a' && ch <= u'f')
                digit = ch - u'a' + 10;
            else if (ch >= u'A' && ch <= u'F')
                digit = ch - u'A' + 10;
            else
                break;
            value = value * 16 + digit;
        }
    } else {
        for (; i < text.size() && text[i] >= u'0' && text[i] <= u'9'; ++i)
            value = value * 10 + static_cast<uint32_t>(text[i] - u'0');
    }
    return negative ? 0u - value : value;
}

} // namespace

DWORD GetPrivateProfileStringW(LPCWSTR appName, LPCWSTR keyName, LPCWSTR defaultString,
                               LPWSTR returnedString, DWORD size, LPCWSTR fileName) {
    if (!returnedString || size == 0)
        return 0;
    const auto doc = LoadForReading(fileName);
    if (!appName)
        return CopyList(doc->SectionNames(), returnedString, size);
    if (!keyName)
        return CopyList(doc->KeyNames(appName), returnedString, size);
    if (const auto value = doc->Find(appName, keyName))
        return CopyString(*value, returnedString, size);
    std::u16string_view fallback(defaultString ? defaultString : u"");
    while (!fallback.empty() && (fallback.back() == u' ' || fallback.back() == u'\t'))
        fallback.remove_suffix(1);
    return CopyString(fallback, returnedString, size);
}

UINT GetPrivateProfileIntW(LPCWSTR appName, LPCWSTR keyName, INT defaultValue, LPCWSTR fileName) {
    const auto fallback = static_cast<UINT>(defaultValue);
    if (!appName || !keyName)
        return fallback;
    const auto value = LoadForReading(fileName)->Find(appName, keyName);
    // A missing or empty value gives the default; text that is not a number gives 0.
    if (!value || value->empty())
        return fallback;
    return ParseProfileInt(*value);
}

BOOL WritePrivateProfileStringW(LPCWSTR appName, LPCWSTR keyName, LPCWSTR string,
                                LPCWSTR fileName) {
    if (!appName) {
        // All null asks to flush cached writes; every write here is on disk already.
        if (!keyName && !string)
            return TRUE;
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    // Deleting needs no check: a name that cannot be stored matches nothing.
    if (keyName && string && !CanWrite(appName, keyName, string)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const std::string path = ResolvePath(fileName);
    if (path.empty()) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    int error = 0;
    const auto slash = path.rfind('/');
    if (slash != std::string::npos && slash > 0 &&
        !platform::CreateDirectories(path.substr(0, slash), error)) {
        SetLastError(Win32Error(error));
        return FALSE;
    }
    platform::FileLock lock(path);
    if (!lock.Held()) {
        SetLastError(Win32Error(lock.Error()));
        return FALSE;
    }
    std::string bytes;
    if (!platform::ReadWholeFile(path, bytes, kMaxFileSize, error) && error != ENOENT) {
        SetLastError(Win32Error(error));
        return FALSE;
    }
    auto doc = DocumentOf(path, bytes, true);
    if (doc.use_count() > 1) // another thread is reading it
        doc = std::make_shared<IniDocument>(*doc);
    bool changed;
    if (!keyName)
        changed = doc->RemoveSection(appName);
    else if (!string)
        changed = doc->RemoveKey(appName, keyName);
    else
        changed = doc->Set(appName, keyName, string);
    if (!changed) {
        Remember(path, std::move(bytes), std::move(doc));
        return TRUE;
    }
    std::string updated = doc->Serialize();
    if (!platform::ReplaceFile(path, updated, error)) {
        SetLastError(Win32Error(error));
        return FALSE;
    }
    Remember(path, std::move(updated), std::move(doc));
    return TRUE;
}
