// Reads arbitrary bytes as a resource script whose includes and icons do not
// exist, then puts what it declares into a module's table. Only the reader's
// own error may come out.
#include <platform/ResourceScript.h>

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const platform::ResourceFileReader reader =
        [&text](const std::string& path) -> std::optional<std::string> {
        if (path == "fuzz.rc")
            return text;
        return std::nullopt;
    };
    static int marker;
    const HINSTANCE module = reinterpret_cast<HINSTANCE>(&marker);
    try {
        const platform::ResourceScript script = platform::ReadResourceScript("fuzz.rc", reader);
        platform::AddResourceScript(platform::Resources(module), script);
        platform::ReleaseResources(module);
    } catch (const platform::ResourceScriptError& e) {
        // A malformed script names where it went wrong.
        if (e.File().empty())
            __builtin_trap();
    }
    return 0;
}
