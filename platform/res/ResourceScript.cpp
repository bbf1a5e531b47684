// Reading a script from disk or from the files compiled into a binary, and
// moving what it declares into a module's table.
#include "platform/ResourceScript.h"

#include "RcLexer.h"
#include "RcParser.h"
#include "RcSource.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

namespace platform {

namespace {

std::string Describe(const std::string& file, int line, const std::string& message) {
    if (file.empty())
        return message;
    if (line <= 0)
        return file + ": " + message;
    return file + "(" + std::to_string(line) + "): " + message;
}

bool SameIgnoringCase(const std::string& a, const std::string& b) {
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        char x = a[i], y = b[i];
        if (x >= 'A' && x <= 'Z')
            x = static_cast<char>(x - 'A' + 'a');
        if (y >= 'A' && y <= 'Z')
            y = static_cast<char>(y - 'A' + 'a');
        if (x != y)
            return false;
    }
    return true;
}

// The path on disk whose components match path's without regard to case,
// taking the exact spelling where it exists.
std::optional<std::filesystem::path> FindOnDisk(const std::filesystem::path& path) {
    std::error_code ec;
    if (std::filesystem::is_regular_file(path, ec))
        return path;
    std::filesystem::path found = path.is_absolute() ? path.root_path() : ".";
    for (const auto& part : path.relative_path()) {
        const std::filesystem::path exact = found / part;
        if (std::filesystem::exists(exact, ec)) {
            found = exact;
            continue;
        }
        bool matched = false;
        for (std::filesystem::directory_iterator it(found, ec), end; !ec && it != end;
             it.increment(ec)) {
            if (SameIgnoringCase(it->path().filename().string(), part.string())) {
                found = it->path();
                matched = true;
                break;
            }
        }
        if (!matched)
            return std::nullopt;
    }
    if (!std::filesystem::is_regular_file(found, ec))
        return std::nullopt;
    return found;
}

} // namespace

ResourceScriptError::ResourceScriptError(std::string file, int line, const std::string& message)
    : std::runtime_error(Describe(file, line, message)), m_file(std::move(file)), m_line(line) {}

ResourceFileReader DiskFileReader() {
    return [](const std::string& path) -> std::optional<std::string> {
        const auto found = FindOnDisk(path);
        if (!found)
            return std::nullopt;
        std::ifstream in(*found, std::ios::binary);
        if (!in)
            return std::nullopt;
        return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    };
}

ResourceScript ReadResourceScript(const std::string& path, const ResourceFileReader& reader) {
    rc::SourceFiles files;
    rc::MacroTable macros;
    rc::Preprocessor source(reader, files, macros);
    source.Start(std::filesystem::path(path).lexically_normal().generic_string());
    rc::Lexer lexer(source, files, macros, true);
    ResourceScript script;
    rc::Parser(lexer, source, macros, script).Run();
    return script;
}

void AddResourceScript(ResourceModule& module, const ResourceScript& script) {
    for (const auto& [id, text] : script.strings)
        module.SetString(id, CString(std::u16string_view(text)));
    for (const auto& [name, dialog] : script.dialogs)
        module.SetDialog(name, dialog);
    for (const auto& [name, entries] : script.dialogInits)
        module.SetDialogInit(name, entries);
    for (const auto& [name, menu] : script.menus)
        module.SetMenu(name, menu);
    for (const auto& [name, table] : script.accelerators)
        module.SetAccelerators(name, table);
    for (const auto& [name, icon] : script.icons)
        module.SetIcon(name, icon);
}

BOOL LoadResourceScript(HINSTANCE module, const std::string& path, std::string* error) {
    try {
        const ResourceScript script = ReadResourceScript(path, DiskFileReader());
        AddResourceScript(Resources(module), script);
        return TRUE;
    } catch (const ResourceScriptError& e) {
        if (error)
            *error = e.what();
        return FALSE;
    }
}

BOOL RegisterEmbeddedResourceScript(HINSTANCE module, const char* script,
                                    const EmbeddedResourceFile* files, std::size_t count) {
    std::map<std::string, std::string> table;
    for (std::size_t i = 0; i < count; ++i)
        table[files[i].path] =
            std::string(reinterpret_cast<const char*>(files[i].data), files[i].size);
    const ResourceFileReader reader =
        [&table](const std::string& path) -> std::optional<std::string> {
        auto it = table.find(path);
        if (it == table.end())
            return std::nullopt;
        return it->second;
    };
    try {
        AddResourceScript(Resources(module), ReadResourceScript(script, reader));
        return TRUE;
    } catch (const ResourceScriptError& e) {
        std::fprintf(stderr, "%s\n", e.what());
        return FALSE;
    }
}

} // namespace platform
