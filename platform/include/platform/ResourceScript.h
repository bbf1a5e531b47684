// Reading a host's resource script (.rc): its string table, dialog templates
// and their initialisation data, menus, accelerator tables and icons, with the #include and #define lines of
// its resource.h, into a module's resource table.
#pragma once

#include "ResourceModule.h"
#include "ResourceTemplates.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace platform {

// What a script declares, in the order it declares it.
struct ResourceScript {
    std::vector<std::pair<UINT, std::u16string>> strings;
    std::vector<std::pair<ResourceName, DialogTemplate>> dialogs;
    std::vector<std::pair<ResourceName, std::vector<DialogInitEntry>>> dialogInits;
    std::vector<std::pair<ResourceName, MenuTemplate>> menus;
    std::vector<std::pair<ResourceName, std::vector<AcceleratorTemplate>>> accelerators;
    std::vector<std::pair<ResourceName, IconTemplate>> icons;
};

// A malformed script: what() reads "file(line): message".
class ResourceScriptError : public std::runtime_error {
public:
    ResourceScriptError(std::string file, int line, const std::string& message);
    const std::string& File() const { return m_file; }
    int Line() const { return m_line; }

private:
    std::string m_file;
    int m_line;
};

// The bytes of a file the script names (the script itself, its includes and
// icons), or nothing when there is no such file. Paths are '/'-separated and
// relative to the directory of the file that names them, joined to it.
using ResourceFileReader = std::function<std::optional<std::string>(const std::string& path)>;

// Files on disk; a name that does not match in case finds the file when only
// one spelling exists, as the original's file system would.
ResourceFileReader DiskFileReader();

// Reads the script and everything it includes. Throws ResourceScriptError.
ResourceScript ReadResourceScript(const std::string& path, const ResourceFileReader& reader);

// Puts the script's resources into a module's table, replacing any of the
// same kind and name.
void AddResourceScript(ResourceModule& module, const ResourceScript& script);

// Reads a script from disk into the table of module. On failure returns FALSE
// with "file(line): message" in *error and leaves the table as it was.
BOOL LoadResourceScript(HINSTANCE module, const std::string& path, std::string* error);

// A file compiled into a binary by win_add_resource_script().
struct EmbeddedResourceFile {
    const char* path;
    const unsigned char* data;
    std::size_t size;
};

// Reads a script compiled into a binary (its files were checked when the
// binary was built) into the table of module; reports a failure on stderr.
BOOL RegisterEmbeddedResourceScript(HINSTANCE module, const char* script,
                                    const EmbeddedResourceFile* files, std::size_t count);

} // namespace platform
