// Files, comments and directives of a resource script.
#include "RcSource.h"

#include "RcExpression.h"
#include "RcLexer.h"
#include "winbase.h"

#include <algorithm>
#include <filesystem>

namespace platform::rc {

namespace {

constexpr std::size_t kMaxIncludeDepth = 32;
// Everything read, includes counted each time: a script that includes a file
// over and over cannot make the reader hold unbounded text.
constexpr std::size_t kMaxBytesRead = 64u << 20;

std::string Lower(std::string s) {
    for (char& c : s)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return s;
}

std::string Trim(const std::string& s) {
    const auto b = s.find_first_not_of(" \t\r\f\v");
    if (b == std::string::npos)
        return {};
    const auto e = s.find_last_not_of(" \t\r\f\v");
    return s.substr(b, e - b + 1);
}

// The system headers a script includes for the constants the reader already
// knows; missing beside the script, they are not an error.
bool IsSystemHeader(const std::string& name) {
    static const char* const kKnown[] = {
        "windows.h",   "winres.h",    "winresrc.h",  "afxres.h", "afxres.rc", "winuser.h",
        "winuser.rh",  "commctrl.h",  "richedit.h",  "dlgs.h",   "winver.h",  "verrsrc.h",
        "ntverp.h",    "common.ver",  "prsht.h",     "dde.h",    "winnt.h",   "windef.h",
        "afxprint.rc", "afxolecl.rc", "afxolesv.rc", "afxdb.rc", "afxctl.rc", "afxribbon.rc",
        "sdkddkver.h", "winnt.rh",    "commctrl.rh", "dde.rh",   "afxres.rh"};
    const std::string base = Lower(std::filesystem::path(name).filename().string());
    return std::find(std::begin(kKnown), std::end(kKnown), base) != std::end(kKnown);
}

bool IsHeaderFile(const std::string& path) {
    const std::string ext = Lower(std::filesystem::path(path).extension().string());
    return ext == ".h" || ext == ".hh" || ext == ".hpp" || ext == ".hxx" || ext == ".c" ||
           ext == ".cpp";
}

void AppendUtf8(std::string& out, std::uint32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (cp >> 18));
        out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

} // namespace

void SourceFiles::Fail(SourcePos pos, const std::string& message) const {
    const std::string file =
        pos.file >= 0 && static_cast<std::size_t>(pos.file) < m_names.size() ? Name(pos.file) : "";
    throw ResourceScriptError(file, pos.line, message);
}

std::string DecodeBom(const std::string& bytes, UINT& codePage) {
    auto u = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    if (bytes.size() >= 3 && u(0) == 0xEF && u(1) == 0xBB && u(2) == 0xBF) {
        codePage = CP_UTF8;
        return bytes.substr(3);
    }
    if (bytes.size() >= 2 && ((u(0) == 0xFF && u(1) == 0xFE) || (u(0) == 0xFE && u(1) == 0xFF))) {
        const bool little = u(0) == 0xFF;
        std::string out;
        out.reserve(bytes.size());
        for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
            std::uint32_t unit = little ? (u(i) | (u(i + 1) << 8)) : ((u(i) << 8) | u(i + 1));
            if (unit >= 0xD800 && unit < 0xDC00 && i + 3 < bytes.size()) {
                const std::uint32_t low =
                    little ? (u(i + 2) | (u(i + 3) << 8)) : ((u(i + 2) << 8) | u(i + 3));
                if (low >= 0xDC00 && low < 0xE000) {
                    unit = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
                    i += 2;
                }
            }
            if (unit >= 0xD800 && unit < 0xE000)
                unit = 0xFFFD;
            AppendUtf8(out, unit);
        }
        codePage = CP_UTF8;
        return out;
    }
    return bytes;
}

std::vector<std::string> SplitLines(const std::string& text, const SourceFiles& files, int file) {
    std::vector<std::string> lines(1);
    bool inComment = false;
    int commentLine = 0;
    bool inString = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const char n = i + 1 < text.size() ? text[i + 1] : '\0';
        if (c == '\n') {
            lines.emplace_back();
            inString = false;
            continue;
        }
        std::string& line = lines.back();
        if (inComment) {
            if (c == '*' && n == '/') {
                inComment = false;
                ++i;
            }
            continue;
        }
        if (inString) {
            line += c;
            if (c == '\\' && n != '\n' && n != '\0') {
                line += n;
                ++i;
            } else if (c == '"') {
                inString = false;
            }
            continue;
        }
        if (c == '/' && n == '/') {
            while (i + 1 < text.size() && text[i + 1] != '\n')
                ++i;
            continue;
        }
        if (c == '/' && n == '*') {
            inComment = true;
            commentLine = static_cast<int>(lines.size());
            line += ' ';
            ++i;
            continue;
        }
        if (c == '"')
            inString = true;
        line += c;
    }
    if (inComment)
        files.Fail({file, commentLine}, "comment not closed before the end of the file");
    // A directive continues on the next line after a backslash; the joined
    // lines stay as empty lines so the numbering holds.
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string t = Trim(lines[i]);
        if (t.empty() || t[0] != '#')
            continue;
        while (!lines[i].empty() && Trim(lines[i]).back() == '\\' && i + 1 < lines.size()) {
            std::string& l = lines[i];
            l.erase(l.find_last_of('\\'));
            std::size_t j = i + 1;
            while (j < lines.size() && lines[j].empty())
                ++j;
            if (j >= lines.size())
                break;
            l += ' ' + lines[j];
            lines[j].clear();
            if (Trim(l).back() != '\\')
                break;
        }
    }
    return lines;
}

Preprocessor::Preprocessor(const ResourceFileReader& reader, SourceFiles& files, MacroTable& macros)
    : m_reader(reader), m_files(files), m_macros(macros) {
    m_macros["RC_INVOKED"] = Macro{"1", false};
    m_macros["_WIN32"] = Macro{"1", false};
}

void Preprocessor::Start(const std::string& path) {
    Open(path, SourcePos{-1, 0}, 1252);
}

std::string Preprocessor::Resolve(const std::string& from, const std::string& name) const {
    std::string n = name;
    std::replace(n.begin(), n.end(), '\\', '/');
    std::filesystem::path p(n);
    if (p.is_absolute())
        return p.lexically_normal().generic_string();
    return (std::filesystem::path(from).parent_path() / p).lexically_normal().generic_string();
}

void Preprocessor::Open(const std::string& path, SourcePos from, UINT codePage) {
    if (m_stack.size() >= kMaxIncludeDepth)
        m_files.Fail(from, "includes nest more than " + std::to_string(kMaxIncludeDepth) + " deep");
    for (const Frame& f : m_stack)
        if (f.path == path)
            m_files.Fail(from, "'" + path + "' includes itself");
    std::optional<std::string> bytes = m_reader(path);
    if (!bytes) {
        if (from.file < 0)
            throw ResourceScriptError(path, 0, "cannot open the script");
        m_files.Fail(from, "cannot open include file '" + path + "'");
    }
    m_bytesRead += bytes->size();
    if (m_bytesRead > kMaxBytesRead)
        m_files.Fail(from, "the script and its includes are larger than 64 MB");
    Frame f;
    f.file = m_files.Add(path);
    f.path = path;
    f.codePage = codePage;
    const std::string text = DecodeBom(*bytes, f.codePage);
    f.lines = SplitLines(text, m_files, f.file);
    f.directivesOnly = IsHeaderFile(path);
    m_stack.push_back(std::move(f));
}

bool Preprocessor::Active(const Frame& f) const {
    return std::all_of(f.conditions.begin(), f.conditions.end(),
                       [](const Condition& c) { return c.active; });
}

bool Preprocessor::NextLine(SourceLine& out) {
    while (!m_stack.empty()) {
        Frame& f = m_stack.back();
        if (f.next >= f.lines.size()) {
            if (!f.conditions.empty())
                m_files.Fail({f.file, f.conditions.back().line}, "#if without #endif");
            m_end = {f.file, static_cast<int>(f.lines.size())};
            m_stack.pop_back();
            continue;
        }
        const std::size_t index = f.next++;
        const SourcePos pos{f.file, static_cast<int>(index) + 1};
        const std::string trimmed = Trim(f.lines[index]);
        m_end = pos;
        if (!trimmed.empty() && trimmed[0] == '#') {
            Directive(f, pos, trimmed.substr(1));
            continue;
        }
        if (f.directivesOnly || trimmed.empty() || !Active(f))
            continue;
        out.pos = pos;
        out.codePage = f.codePage;
        out.text = std::move(f.lines[index]);
        return true;
    }
    return false;
}

void Preprocessor::Directive(Frame& f, SourcePos pos, const std::string& text) {
    std::size_t i = text.find_first_not_of(" \t");
    if (i == std::string::npos)
        return; // a lone '#'
    std::size_t e = i;
    while (e < text.size() && (std::isalnum(static_cast<unsigned char>(text[e])) || text[e] == '_'))
        ++e;
    const std::string name = text.substr(i, e - i);
    const std::string rest = Trim(text.substr(e));
    const bool active = Active(f);

    if (name == "if" || name == "ifdef" || name == "ifndef") {
        bool value = false;
        if (active) {
            if (name == "if") {
                value = Evaluate(pos, rest, f.codePage);
            } else {
                std::size_t n = 0;
                while (n < rest.size() &&
                       (std::isalnum(static_cast<unsigned char>(rest[n])) || rest[n] == '_'))
                    ++n;
                if (n == 0)
                    m_files.Fail(pos, "#" + name + " without a name");
                const std::string macro = rest.substr(0, n);
                const bool defined = m_macros.count(macro) || BuiltinSymbol(macro);
                value = name == "ifdef" ? defined : !defined;
            }
        }
        // In a skipped region the whole group counts as taken, so no branch runs.
        f.conditions.push_back({active && value, !active || value, false, pos.line});
        return;
    }
    if (name == "elif" || name == "else" || name == "endif") {
        if (f.conditions.empty())
            m_files.Fail(pos, "#" + name + " without #if");
        Condition c = f.conditions.back();
        f.conditions.pop_back();
        if (name == "endif")
            return;
        if (c.sawElse)
            m_files.Fail(pos, "#" + name + " after #else");
        if (name == "else") {
            c.sawElse = true;
            c.active = !c.taken;
            c.taken = true;
        } else {
            c.active = false;
            if (!c.taken && Active(f) && Evaluate(pos, rest, f.codePage))
                c.active = c.taken = true;
        }
        f.conditions.push_back(c);
        return;
    }
    if (!active)
        return;
    if (name == "include") {
        Include(pos, rest);
    } else if (name == "define") {
        Define(pos, rest);
    } else if (name == "undef") {
        m_macros.erase(Trim(rest));
    } else if (name == "pragma") {
        // code_page(n) sets how the rest of this file's strings are read;
        // other pragmas mean nothing to the reader.
        const std::string p = Lower(rest);
        if (p.rfind("code_page", 0) == 0) {
            const auto open = p.find('('), close = p.find(')');
            if (open == std::string::npos || close == std::string::npos || close < open)
                m_files.Fail(pos, "#pragma code_page needs (number)");
            const std::string arg = Trim(p.substr(open + 1, close - open - 1));
            if (arg == "default") {
                f.codePage = 1252;
                return;
            }
            UINT page = 0;
            for (char c : arg) {
                if (!std::isdigit(static_cast<unsigned char>(c)) || page > 100000)
                    m_files.Fail(pos, "bad code page '" + arg + "'");
                page = page * 10 + static_cast<UINT>(c - '0');
            }
            WCHAR probe[2];
            if (arg.empty() || MultiByteToWideChar(page, 0, "a", 1, probe, 2) != 1)
                m_files.Fail(pos, "unsupported code page '" + arg + "'");
            f.codePage = page;
        }
    } else if (name == "error") {
        m_files.Fail(pos, "#error " + rest);
    } else if (name == "line" || name == "warning" || name == "ident") {
        // Nothing for the reader to do.
    } else {
        m_files.Fail(pos, "unknown directive #" + name);
    }
}

void Preprocessor::Include(SourcePos pos, const std::string& rest) {
    if (rest.size() >= 2 && rest.front() == '<') {
        if (rest.find('>') == std::string::npos)
            m_files.Fail(pos, "#include <name> without '>'");
        return; // a system header: its names are built in
    }
    if (rest.size() < 2 || rest.front() != '"' || rest.find('"', 1) == std::string::npos)
        m_files.Fail(pos, "#include needs \"file\" or <file>");
    std::string name = rest.substr(1, rest.find('"', 1) - 1);
    // Written by the original's editor with doubled backslashes.
    for (std::size_t k; (k = name.find("\\\\")) != std::string::npos;)
        name.erase(k, 1);
    if (name.empty())
        m_files.Fail(pos, "#include of an empty name");
    const std::string path = Resolve(m_files.Name(pos.file), name);
    if (IsSystemHeader(name) && !m_reader(path))
        return;
    Open(path, pos, m_stack.back().codePage);
}

void Preprocessor::Define(SourcePos pos, const std::string& rest) {
    std::size_t n = 0;
    while (n < rest.size() && (std::isalnum(static_cast<unsigned char>(rest[n])) || rest[n] == '_'))
        ++n;
    if (n == 0 || std::isdigit(static_cast<unsigned char>(rest[0])))
        m_files.Fail(pos, "#define needs a name");
    Macro m;
    const std::string name = rest.substr(0, n);
    if (n < rest.size() && rest[n] == '(') {
        m.functionLike = true;
        const auto close = rest.find(')', n);
        if (close == std::string::npos)
            m_files.Fail(pos, "#define " + name + "( without ')'");
        m.body = Trim(rest.substr(close + 1));
    } else {
        m.body = Trim(rest.substr(n));
    }
    m_macros[name] = std::move(m);
}

bool Preprocessor::Evaluate(SourcePos pos, const std::string& expr, UINT codePage) {
    if (Trim(expr).empty())
        m_files.Fail(pos, "#if without an expression");
    SingleLine line(SourceLine{pos, codePage, expr});
    Lexer lexer(line, m_files, m_macros, true);
    ExpressionParser parser(lexer, m_macros, true);
    const std::int64_t value = parser.Condition();
    if (lexer.Peek().kind != TokenKind::End)
        m_files.Fail(pos, "unexpected '" + lexer.Peek().text + "' in #if");
    return value != 0;
}

std::string Preprocessor::ReadRelative(SourcePos pos, const std::string& name) const {
    std::string n = name;
    for (std::size_t k; (k = n.find("\\\\")) != std::string::npos;)
        n.erase(k, 1);
    const std::string path = Resolve(m_files.Name(pos.file), n);
    std::optional<std::string> bytes = m_reader(path);
    if (!bytes)
        m_files.Fail(pos, "cannot open file '" + path + "'");
    return std::move(*bytes);
}

} // namespace platform::rc
