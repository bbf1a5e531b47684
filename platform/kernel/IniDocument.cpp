#include "kernel/IniDocument.h"

#include <algorithm>
#include <unordered_set>

namespace platform::ini {

namespace {

bool IsBlank(char16_t ch) {
    return ch == u' ' || ch == u'\t';
}

char16_t Fold(char16_t ch) {
    return ch >= u'A' && ch <= u'Z' ? static_cast<char16_t>(ch - u'A' + u'a') : ch;
}

std::u16string_view Unquote(std::u16string_view value) {
    if (value.size() >= 2 && (value.front() == u'"' || value.front() == u'\'') &&
        value.back() == value.front())
        return value.substr(1, value.size() - 2);
    return value;
}

// Adds name to names unless a name equal to it is there already.
void AddOnce(std::vector<std::u16string>& names, std::unordered_set<std::u16string>& seen,
             const std::u16string& name) {
    std::u16string folded(name);
    std::transform(folded.begin(), folded.end(), folded.begin(), Fold);
    if (seen.insert(std::move(folded)).second)
        names.push_back(name);
}

} // namespace

bool NamesEqual(std::u16string_view a, std::u16string_view b) {
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (Fold(a[i]) != Fold(b[i]))
            return false;
    return true;
}

std::uint32_t NameHash(std::u16string_view name) {
    std::uint32_t hash = 2166136261u; // FNV-1a over the folded code units
    for (char16_t ch : name)
        hash = (hash ^ Fold(ch)) * 16777619u;
    return hash;
}

bool IniDocument::Line::Is(std::u16string_view other, std::uint32_t otherHash) const {
    return hash == otherHash && NamesEqual(name, other);
}

std::u16string_view Trim(std::u16string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

IniDocument::Line IniDocument::Classify(std::u16string text) {
    Line line;
    const std::u16string_view trimmed = Trim(text);
    if (trimmed.empty()) {
        line.kind = Kind::Blank;
    } else if (trimmed.front() == u'[') {
        line.kind = Kind::Header;
        std::u16string_view name = trimmed.substr(1);
        name = name.substr(0, name.find(u']'));
        line.name = Trim(name);
    } else if (const auto eq = trimmed.find(u'='); eq != std::u16string_view::npos) {
        line.kind = Kind::Entry;
        line.name = Trim(trimmed.substr(0, eq));
        line.value = Unquote(Trim(trimmed.substr(eq + 1)));
    } else {
        line.kind = Kind::Bare;
        line.name = trimmed;
    }
    line.hash = NameHash(line.name);
    line.text = std::move(text);
    return line;
}

IniDocument::Line IniDocument::MakeEntry(std::u16string_view key, std::u16string_view value) {
    std::u16string text;
    text.reserve(key.size() + 1 + value.size());
    text.append(key).append(1, u'=').append(value);
    return Classify(std::move(text));
}

IniDocument IniDocument::Parse(std::string_view bytes) {
    IniDocument doc;
    doc.m_encoding = DetectEncoding(bytes);
    const std::u16string text = Decode(bytes, doc.m_encoding);
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = start;
        while (end < text.size() && text[end] != u'\r' && text[end] != u'\n')
            ++end;
        doc.m_lines.push_back(Classify(text.substr(start, end - start)));
        if (end < text.size() && text[end] == u'\r' && end + 1 < text.size() &&
            text[end + 1] == u'\n')
            ++end;
        start = end + 1;
    }
    return doc;
}

// The lines as UTF-8 after prefix, each ending with CR LF, copied code unit by
// code unit; false when a line is not plain ASCII and so needs the encoder.
bool IniDocument::SerializeAscii(std::string_view prefix, std::size_t size,
                                 std::string& bytes) const {
    bytes.assign(prefix.size() + size, '\0');
    char* out = bytes.data();
    out = std::copy(prefix.begin(), prefix.end(), out);
    char16_t all = 0;
    for (const Line& line : m_lines) {
        const char16_t* in = line.text.data();
        const std::size_t n = line.text.size();
        for (std::size_t i = 0; i < n; ++i) {
            all |= in[i];
            out[i] = static_cast<char>(in[i]);
        }
        out += n;
        *out++ = '\r';
        *out++ = '\n';
    }
    return all < 0x80;
}

std::string IniDocument::Serialize() {
    std::size_t size = 0;
    for (const Line& line : m_lines)
        size += line.text.size() + 2;
    // Plain ASCII in a UTF-8 file, the usual profile, goes straight to bytes.
    if (std::string bytes;
        (m_encoding == Encoding::Utf8 && SerializeAscii({}, size, bytes)) ||
        (m_encoding == Encoding::Utf8Bom && SerializeAscii("\xEF\xBB\xBF", size, bytes)))
        return bytes;
    std::u16string text;
    text.reserve(size);
    for (const Line& line : m_lines)
        text.append(line.text).append(u"\r\n");
    return Encode(text, m_encoding);
}

std::size_t IniDocument::SectionEnd(std::size_t header) const {
    std::size_t i = header + 1;
    while (i < m_lines.size() && m_lines[i].kind != Kind::Header)
        ++i;
    return i;
}

std::optional<std::u16string> IniDocument::Find(std::u16string_view section,
                                                std::u16string_view key) const {
    section = Trim(section);
    key = Trim(key);
    const std::uint32_t sectionHash = NameHash(section), keyHash = NameHash(key);
    bool inSection = false;
    for (const Line& line : m_lines) {
        if (line.kind == Kind::Header)
            inSection = line.Is(section, sectionHash);
        else if (inSection && (line.kind == Kind::Entry || line.kind == Kind::Bare) &&
                 line.Is(key, keyHash))
            return line.value;
    }
    return std::nullopt;
}

std::vector<std::u16string> IniDocument::SectionNames() const {
    std::vector<std::u16string> names;
    std::unordered_set<std::u16string> seen;
    for (const Line& line : m_lines)
        if (line.kind == Kind::Header)
            AddOnce(names, seen, line.name);
    return names;
}

std::vector<std::u16string> IniDocument::KeyNames(std::u16string_view section) const {
    section = Trim(section);
    const std::uint32_t sectionHash = NameHash(section);
    std::vector<std::u16string> names;
    std::unordered_set<std::u16string> seen;
    bool inSection = false;
    for (const Line& line : m_lines) {
        if (line.kind == Kind::Header)
            inSection = line.Is(section, sectionHash);
        else if (inSection && line.kind == Kind::Entry)
            AddOnce(names, seen, line.name);
    }
    return names;
}

bool IniDocument::Set(std::u16string_view section, std::u16string_view key,
                      std::u16string_view value) {
    section = Trim(section);
    key = Trim(key);
    const std::uint32_t sectionHash = NameHash(section), keyHash = NameHash(key);
    std::size_t firstHeader = m_lines.size();
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        if (m_lines[i].kind != Kind::Header || !m_lines[i].Is(section, sectionHash))
            continue;
        if (firstHeader == m_lines.size())
            firstHeader = i;
        const std::size_t end = SectionEnd(i);
        for (std::size_t k = i + 1; k < end; ++k) {
            Line& line = m_lines[k];
            if ((line.kind != Kind::Entry && line.kind != Kind::Bare) || !line.Is(key, keyHash))
                continue;
            Line replacement = MakeEntry(line.name, value);
            if (replacement.text == line.text)
                return false;
            line = std::move(replacement);
            return true;
        }
        i = end - 1;
    }
    if (firstHeader == m_lines.size()) {
        std::u16string header;
        header.append(1, u'[').append(section).append(1, u']');
        m_lines.push_back(Classify(std::move(header)));
        m_lines.push_back(MakeEntry(key, value));
        return true;
    }
    // After the section's last non-blank line, so blank lines stay before the next one.
    std::size_t at = SectionEnd(firstHeader);
    while (at > firstHeader + 1 && m_lines[at - 1].kind == Kind::Blank)
        --at;
    m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(at), MakeEntry(key, value));
    return true;
}

bool IniDocument::RemoveKey(std::u16string_view section, std::u16string_view key) {
    section = Trim(section);
    key = Trim(key);
    const std::uint32_t sectionHash = NameHash(section), keyHash = NameHash(key);
    bool inSection = false;
    const std::size_t before = m_lines.size();
    std::erase_if(m_lines, [&](const Line& line) {
        if (line.kind == Kind::Header)
            inSection = line.Is(section, sectionHash);
        return inSection && (line.kind == Kind::Entry || line.kind == Kind::Bare) &&
               line.Is(key, keyHash);
    });
    return m_lines.size() != before;
}

bool IniDocument::RemoveSection(std::u16string_view section) {
    section = Trim(section);
    const std::uint32_t sectionHash = NameHash(section);
    bool inSection = false;
    const std::size_t before = m_lines.size();
    std::erase_if(m_lines, [&](const Line& line) {
        if (line.kind == Kind::Header)
            inSection = line.Is(section, sectionHash);
        return inSection;
    });
    return m_lines.size() != before;
}

} // namespace platform::ini
