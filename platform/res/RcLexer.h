// Tokens of a resource script, with #define names expanded and the names of
// the platform's constants (styles, key codes, dialog ids) known as numbers.
#pragma once

#include "RcSource.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <set>
#include <string>

namespace platform::rc {

enum class TokenKind {
    End,    // end of the script
    Name,   // a keyword, an undefined identifier, or an unquoted file name
    Number, // a number, or a defined name whose value is a number
    String, // one string literal, escapes applied
    Punct,  // an operator or , ( ) { }
};

struct Token {
    TokenKind kind = TokenKind::End;
    std::string text; // the name or operator as written
    std::uint32_t number = 0;
    std::u16string string;
    SourcePos pos;
    bool word = false; // an unquoted file name such as res\app.ico

    bool Is(const char* punct) const { return kind == TokenKind::Punct && text == punct; }
    // Keywords compare without regard to case.
    bool IsKeyword(const char* word) const;
};

// The value of one of the platform's own constant names, if it is one.
std::optional<std::uint32_t> BuiltinSymbol(const std::string& name);

class Lexer {
public:
    // expand: replace defined names by their bodies.
    Lexer(LineSource& source, const SourceFiles& files, const MacroTable& macros, bool expand);

    const Token& Peek();
    Token Next();
    // The position of the next token, or the end of input.
    SourcePos Pos() { return Peek().pos; }
    // The code page of the line the next token is on.
    UINT CodePage() {
        Peek();
        return m_line.codePage;
    }
    [[noreturn]] void Fail(SourcePos pos, const std::string& message) const {
        m_files.Fail(pos, message);
    }

private:
    bool LexRaw(Token& out);
    void Push(Token token, std::set<std::string>& expanding, int depth);
    void LexNumber(Token& t);
    void LexString(Token& t, bool wide);
    char Cur() const { return m_col < m_line.text.size() ? m_line.text[m_col] : '\0'; }
    char At(std::size_t k) const {
        return m_col + k < m_line.text.size() ? m_line.text[m_col + k] : '\0';
    }

    LineSource& m_source;
    const SourceFiles& m_files;
    const MacroTable& m_macros;
    bool m_expand;
    SourceLine m_line;
    std::size_t m_col = 0;
    bool m_haveLine = false;
    bool m_done = false;
    std::deque<Token> m_pending;
    std::size_t m_expanded = 0;
    std::string m_topName;  // the name being expanded, as the script wrote it
    int m_afterDefined = 0; // the operand of defined is not expanded
};

// A source of one line, for #if expressions and #define bodies.
class SingleLine : public LineSource {
public:
    explicit SingleLine(SourceLine line) : m_line(std::move(line)) {}
    bool NextLine(SourceLine& line) override {
        if (m_used)
            return false;
        m_used = true;
        line = m_line;
        return true;
    }
    SourcePos EndPos() const override { return m_line.pos; }

private:
    SourceLine m_line;
    bool m_used = false;
};

} // namespace platform::rc
