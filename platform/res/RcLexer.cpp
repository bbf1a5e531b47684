// Splits the preprocessed lines into tokens: names, numbers with their
// suffixes, string literals with their escapes in the line's code page, and
// operators. Defined names are replaced by their bodies here.
#include "RcLexer.h"

#include "winbase.h"

#include <vector>

namespace platform::rc {

namespace {

// Per name used in the script, so a few names cannot balloon into gigabytes.
constexpr std::size_t kMaxExpandedTokens = 65536;
constexpr int kMaxExpansionDepth = 64;

bool IsIdentStart(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}
bool IsIdentChar(char c) {
    return IsIdentStart(c) || (c >= '0' && c <= '9');
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
int HexValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}
char Upper(char c) {
    return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
}

// Bytes of the script's code page to UTF-16.
void AppendDecoded(std::u16string& out, const std::string& bytes, UINT codePage) {
    if (bytes.empty())
        return;
    const int n =
        MultiByteToWideChar(codePage, 0, bytes.data(), static_cast<int>(bytes.size()), nullptr, 0);
    if (n <= 0)
        return;
    const std::size_t at = out.size();
    out.resize(at + static_cast<std::size_t>(n));
    MultiByteToWideChar(codePage, 0, bytes.data(), static_cast<int>(bytes.size()), &out[at], n);
}

} // namespace

bool Token::IsKeyword(const char* word) const {
    if (kind != TokenKind::Name || this->word)
        return false;
    std::size_t i = 0;
    for (; word[i]; ++i)
        if (i >= text.size() || Upper(text[i]) != word[i])
            return false;
    return i == text.size();
}

Lexer::Lexer(LineSource& source, const SourceFiles& files, const MacroTable& macros, bool expand)
    : m_source(source), m_files(files), m_macros(macros), m_expand(expand) {}

const Token& Lexer::Peek() {
    while (m_pending.empty()) {
        Token t;
        LexRaw(t);
        if (t.kind == TokenKind::Name && !t.word && m_expand) {
            std::set<std::string> expanding;
            m_expanded = 0;
            m_topName = t.text;
            Push(std::move(t), expanding, 0);
        } else {
            m_pending.push_back(std::move(t));
        }
    }
    return m_pending.front();
}

Token Lexer::Next() {
    Peek();
    Token t = std::move(m_pending.front());
    m_pending.pop_front();
    return t;
}

void Lexer::Push(Token token, std::set<std::string>& expanding, int depth) {
    if (token.kind != TokenKind::Name || token.word) {
        m_pending.push_back(std::move(token));
        return;
    }
    auto it = m_macros.find(token.text);
    if (it != m_macros.end() && !expanding.count(token.text)) {
        if (it->second.functionLike)
            Fail(token.pos,
                 "macro '" + token.text + "' takes arguments, which scripts cannot pass");
        if (depth >= kMaxExpansionDepth)
            Fail(token.pos, "macro '" + token.text + "' nests too deeply");
        SingleLine body(SourceLine{token.pos, m_line.codePage, it->second.body});
        Lexer inner(body, m_files, m_macros, false);
        std::vector<Token> tokens;
        for (Token t = inner.Next(); t.kind != TokenKind::End; t = inner.Next()) {
            if (++m_expanded > kMaxExpandedTokens)
                Fail(token.pos, "macro '" + m_topName + "' expands to too much text");
            t.pos = token.pos;
            tokens.push_back(std::move(t));
        }
        expanding.insert(token.text);
        for (Token& t : tokens)
            Push(std::move(t), expanding, depth + 1);
        expanding.erase(token.text);
        return;
    }
    if (it == m_macros.end()) {
        if (auto value = BuiltinSymbol(token.text)) {
            token.kind = TokenKind::Number;
            token.number = *value;
        }
    }
    m_pending.push_back(std::move(token));
}

bool Lexer::LexRaw(Token& t) {
    for (;;) {
        if (!m_haveLine) {
            if (m_done || !m_source.NextLine(m_line)) {
                m_done = true;
                t.kind = TokenKind::End;
                t.pos = m_source.EndPos();
                return false;
            }
            m_haveLine = true;
            m_col = 0;
        }
        while (m_col < m_line.text.size()) {
            const char c = m_line.text[m_col];
            if (c == ' ' || c == '\t' || c == '\r' || c == '\f' || c == '\v')
                ++m_col;
            else
                break;
        }
        if (m_col >= m_line.text.size()) {
            m_haveLine = false;
            continue;
        }
        break;
    }
    t.pos = m_line.pos;
    const char c = Cur();
    const int afterDefined = m_afterDefined;
    m_afterDefined = 0;
    if (IsIdentStart(c)) {
        const std::size_t start = m_col;
        while (IsIdentChar(Cur()))
            ++m_col;
        t.text = m_line.text.substr(start, m_col - start);
        if ((t.text == "L" || t.text == "l") && Cur() == '"') {
            ++m_col;
            LexString(t, true);
            return true;
        }
        // An unquoted file name: a name running on with a dot or a path separator.
        auto runsOn = [&] {
            const char n = Cur();
            return n == '.' || n == '\\' || (n == '/' && (IsIdentChar(At(1)) || At(1) == '.'));
        };
        if (runsOn()) {
            while (m_col < m_line.text.size()) {
                const char n = Cur();
                if (n == ' ' || n == '\t' || n == ',' || n == '"' || n == '\r')
                    break;
                ++m_col;
            }
            t.text = m_line.text.substr(start, m_col - start);
            t.word = true;
        }
        t.kind = TokenKind::Name;
        if (t.text == "defined")
            m_afterDefined = 1;
        else if (afterDefined)
            t.word = true; // kept from expansion
        return true;
    }
    if (IsDigit(c)) {
        LexNumber(t);
        return true;
    }
    if (c == '"') {
        ++m_col;
        LexString(t, false);
        return true;
    }
    if (c == '\'') {
        // A character constant of a header: its code.
        ++m_col;
        std::uint32_t value = 0;
        if (Cur() == '\\') {
            ++m_col;
            const char e = Cur();
            value = e == 'n'   ? 10
                    : e == 't' ? 9
                    : e == 'r' ? 13
                    : e == '0' ? 0
                               : static_cast<unsigned char>(e);
        } else {
            value = static_cast<unsigned char>(Cur());
        }
        ++m_col;
        if (Cur() != '\'')
            Fail(t.pos, "unterminated character constant");
        ++m_col;
        t.kind = TokenKind::Number;
        t.number = value;
        t.text = "'";
        return true;
    }
    static const char* const kTwo[] = {"&&", "||", "==", "!=", "<=", ">=", "<<", ">>"};
    for (const char* op : kTwo) {
        if (c == op[0] && At(1) == op[1]) {
            t.kind = TokenKind::Punct;
            t.text = op;
            m_col += 2;
            return true;
        }
    }
    static const std::string kOne = "|&+-*/%^~!(),{}<>?:=";
    if (kOne.find(c) != std::string::npos) {
        t.kind = TokenKind::Punct;
        t.text = std::string(1, c);
        ++m_col;
        if (afterDefined == 1 && c == '(')
            m_afterDefined = 2;
        return true;
    }
    const auto byte = static_cast<unsigned char>(c);
    char shown[16];
    if (byte >= 0x20 && byte < 0x7F)
        snprintf(shown, sizeof shown, "'%c'", c);
    else
        snprintf(shown, sizeof shown, "0x%02X", byte);
    Fail(t.pos, std::string("unexpected character ") + shown);
}

void Lexer::LexNumber(Token& t) {
    const std::size_t start = m_col;
    std::uint64_t value = 0;
    bool digits = false;
    bool overflow = false;
    if (Cur() == '0' && (At(1) == 'x' || At(1) == 'X')) {
        m_col += 2;
        for (int h; (h = HexValue(Cur())) >= 0; ++m_col) {
            value = value * 16 + static_cast<unsigned>(h);
            overflow |= value > 0xFFFFFFFFu;
            digits = true;
        }
    } else {
        for (; IsDigit(Cur()); ++m_col) {
            value = value * 10 + static_cast<unsigned>(Cur() - '0');
            overflow |= value > 0xFFFFFFFFu;
            digits = true;
        }
    }
    int suffix = 0;
    while ((Cur() == 'L' || Cur() == 'l' || Cur() == 'U' || Cur() == 'u') && suffix < 3) {
        ++m_col;
        ++suffix;
    }
    bool bad = !digits;
    while (IsIdentChar(Cur())) {
        ++m_col;
        bad = true;
    }
    t.text = m_line.text.substr(start, m_col - start);
    if (bad)
        Fail(t.pos, "bad number '" + t.text + "'");
    if (overflow)
        Fail(t.pos, "number '" + t.text + "' does not fit in 32 bits");
    t.kind = TokenKind::Number;
    t.number = static_cast<std::uint32_t>(value);
}

void Lexer::LexString(Token& t, bool wide) {
    // Raw bytes are decoded by the line's code page; escapes give code units
    // (wide strings) or bytes (narrow strings, decoded with the rest).
    std::string bytes;
    std::string raw;
    std::u16string out;
    auto flush = [&] {
        AppendDecoded(out, bytes, m_line.codePage);
        bytes.clear();
    };
    auto unit = [&](unsigned value) {
        if (wide) {
            flush();
            out += static_cast<char16_t>(value & 0xFFFF);
        } else {
            bytes += static_cast<char>(value & 0xFF);
        }
    };
    for (;;) {
        if (m_col >= m_line.text.size())
            Fail(t.pos, "unterminated string");
        const char c = m_line.text[m_col++];
        if (c == '"') {
            if (Cur() == '"') {
                ++m_col;
                raw += '"';
                bytes += '"';
                continue;
            }
            break;
        }
        raw += c;
        if (c != '\\') {
            bytes += c;
            continue;
        }
        if (m_col >= m_line.text.size())
            Fail(t.pos, "unterminated string");
        const char e = m_line.text[m_col++];
        raw += e;
        switch (e) {
        case 'n':
            unit('\n');
            break;
        case 't':
            unit('\t');
            break;
        case 'r':
            unit('\r');
            break;
        case 'a':
            unit('\a');
            break;
        case 'b':
            unit('\b');
            break;
        case 'f':
            unit('\f');
            break;
        case 'v':
            unit('\v');
            break;
        case '\\':
            unit('\\');
            break;
        case '"':
            unit('"');
            break;
        case '\'':
            unit('\'');
            break;
        case 'x':
        case 'X': {
            unsigned value = 0;
            int n = 0;
            for (int h; n < (wide ? 4 : 2) && (h = HexValue(Cur())) >= 0; ++n, ++m_col) {
                raw += Cur();
                value = value * 16 + static_cast<unsigned>(h);
            }
            if (n == 0)
                Fail(t.pos, "\\x without hexadecimal digits in a string");
            unit(value);
            break;
        }
        default:
            if (e >= '0' && e <= '7') {
                unsigned value = static_cast<unsigned>(e - '0');
                for (int n = 1; n < 3 && Cur() >= '0' && Cur() <= '7'; ++n, ++m_col) {
                    raw += Cur();
                    value = value * 8 + static_cast<unsigned>(Cur() - '0');
                }
                unit(value);
            } else {
                // Not an escape: both characters stay.
                bytes += '\\';
                bytes += e;
            }
        }
    }
    flush();
    t.kind = TokenKind::String;
    t.string = std::move(out);
    t.text = std::move(raw);
}

} // namespace platform::rc
