// An INI file as lines of text, read and edited by the rules of the original
// profile API. Written by hand because general INI libraries treat ';', '#'
// and '\' specially, decode escapes or compare names case-sensitively.
//
// Every line is kept as it was; an edit replaces, inserts or removes whole
// lines, so comments, blank lines and unknown lines survive a rewrite. Names
// of sections and keys compare with A-Z folded only and keep the case of their
// first write. A line whose first non-blank character is '[' starts a section
// (the name runs to the first ']'); a line with '=' is an entry; any other
// non-blank line is a key without a value. Lines before the first section
// belong to none.
#pragma once

#include "kernel/IniEncoding.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform::ini {

class IniDocument {
public:
    IniDocument() = default;
    // Any bytes give a document: the encoding is detected, then CR LF, LF
    // and CR alone all end a line.
    static IniDocument Parse(std::string_view bytes);
    // Every line ends with CR LF; the encoding is the file's own (see Encode).
    std::string Serialize();

    // The value of key in section, trimmed and with matching quotes removed;
    // empty for a key without a value; nullopt when there is none.
    std::optional<std::u16string> Find(std::u16string_view section, std::u16string_view key) const;
    // Names of the sections, and of a section's entries, each once and in
    // file order.
    std::vector<std::u16string> SectionNames() const;
    std::vector<std::u16string> KeyNames(std::u16string_view section) const;

    // Each returns whether the document changed. Set replaces the first line of
    // key, or appends one after the section's last line, or appends the
    // section at the end.
    bool Set(std::u16string_view section, std::u16string_view key, std::u16string_view value);
    bool RemoveKey(std::u16string_view section, std::u16string_view key);
    bool RemoveSection(std::u16string_view section);

    Encoding GetEncoding() const { return m_encoding; }

private:
    enum class Kind { Blank, Header, Entry, Bare };
    struct Line {
        std::u16string text;
        Kind kind = Kind::Blank;
        std::u16string name;  // trimmed section or key name
        std::u16string value; // trimmed and unquoted (entries only)
        // A hash of the name with A-Z folded: a scan for a name compares it
        // first and so reads the text of only the lines that match.
        std::uint32_t hash = 0;
        bool Is(std::u16string_view other, std::uint32_t otherHash) const;
    };
    static Line Classify(std::u16string text);
    static Line MakeEntry(std::u16string_view key, std::u16string_view value);
    bool SerializeAscii(std::string_view prefix, std::size_t size, std::string& bytes) const;
    // Index of the first line after the header at header that is not in its section.
    std::size_t SectionEnd(std::size_t header) const;

    std::vector<Line> m_lines;
    Encoding m_encoding = Encoding::Utf8;
};

// A-Z folding comparison of names, as the original runtime does in the "C" locale.
bool NamesEqual(std::u16string_view a, std::u16string_view b);
// A hash equal for names that NamesEqual finds equal.
std::uint32_t NameHash(std::u16string_view name);
// Leading and trailing spaces and tabs removed.
std::u16string_view Trim(std::u16string_view text);

} // namespace platform::ini
