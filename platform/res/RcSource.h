// The resource script's preprocessor: files, comments, #include, #define and
// the conditional directives. It hands out the script's remaining lines one
// at a time, so a #define takes effect where it stands.
#pragma once

#include "platform/ResourceScript.h"

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <vector>

namespace platform::rc {

// Where a token or line comes from; file indexes SourceFiles.
struct SourcePos {
    int file = 0;
    int line = 0;
};

// The names of the files read so far, so errors can name them.
class SourceFiles {
public:
    int Add(const std::string& name) {
        m_names.push_back(name);
        return static_cast<int>(m_names.size()) - 1;
    }
    const std::string& Name(int index) const { return m_names.at(static_cast<std::size_t>(index)); }
    [[noreturn]] void Fail(SourcePos pos, const std::string& message) const;

private:
    std::deque<std::string> m_names;
};

// A #define: object-like macros are expanded; function-like ones are only
// known to be defined.
struct Macro {
    std::string body;
    bool functionLike = false;
};
using MacroTable = std::map<std::string, Macro>;

struct SourceLine {
    SourcePos pos;
    UINT codePage = 1252;
    std::string text;
};

class LineSource {
public:
    virtual ~LineSource() = default;
    virtual bool NextLine(SourceLine& line) = 0;
    // Where the text ends, for errors about what is missing there.
    virtual SourcePos EndPos() const = 0;
};

class Preprocessor : public LineSource {
public:
    Preprocessor(const ResourceFileReader& reader, SourceFiles& files, MacroTable& macros);
    // Opens the script; throws when it cannot be read.
    void Start(const std::string& path);
    bool NextLine(SourceLine& line) override;
    SourcePos EndPos() const override { return m_end; }
    const std::string& FileNameOf(SourcePos pos) const { return m_files.Name(pos.file); }
    // Reads a file named by the script (an icon), relative to the file of pos.
    std::string ReadRelative(SourcePos pos, const std::string& name) const;

private:
    struct Condition {
        bool active; // this branch is taken
        bool taken;  // some branch of this #if was taken
        bool sawElse;
        int line;
    };
    struct Frame {
        int file;
        std::string path;
        std::vector<std::string> lines;
        std::size_t next = 0;
        UINT codePage;
        bool directivesOnly; // a C header: only its directives count
        std::vector<Condition> conditions;
    };

    void Open(const std::string& path, SourcePos from, UINT codePage);
    bool Active(const Frame& f) const;
    void Directive(Frame& f, SourcePos pos, const std::string& text);
    void Include(SourcePos pos, const std::string& rest);
    void Define(SourcePos pos, const std::string& rest);
    bool Evaluate(SourcePos pos, const std::string& expr, UINT codePage);
    std::string Resolve(const std::string& from, const std::string& name) const;

    const ResourceFileReader& m_reader;
    SourceFiles& m_files;
    MacroTable& m_macros;
    std::vector<Frame> m_stack;
    std::size_t m_bytesRead = 0;
    SourcePos m_end;
};

// Splits a file's text into lines with comments blanked out and directive
// continuation lines joined, keeping the line count. Throws on an unterminated
// block comment.
std::vector<std::string> SplitLines(const std::string& text, const SourceFiles& files, int file);

// The text of a file in UTF-8 when it starts with a UTF-16 or UTF-8 byte order
// mark (codePage becomes 65001); otherwise the bytes unchanged.
std::string DecodeBom(const std::string& bytes, UINT& codePage);

} // namespace platform::rc
