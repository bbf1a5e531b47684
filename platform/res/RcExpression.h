// Integer expressions: the C operators of #if lines, and the arithmetic and
// style expressions of resource statements (with NOT, which clears bits).
#pragma once

#include "RcLexer.h"

#include <cstdint>

namespace platform::rc {

class ExpressionParser {
public:
    // preprocessor: an #if line, where defined(X) works and unknown names are 0.
    ExpressionParser(Lexer& lexer, const MacroTable& macros, bool preprocessor)
        : m_lexer(lexer), m_macros(macros), m_preprocessor(preprocessor) {}

    // A full C conditional expression.
    std::int64_t Condition();
    // A value of a statement: | & ^ + - * / % ~ and parentheses, 32 bits.
    std::uint32_t Value();
    // A style: base with each term or'ed in, or cleared for NOT term.
    std::uint32_t Style(std::uint32_t base);
    // Whether the next token can start a value.
    bool AtValue();

private:
    std::int64_t Ternary();
    std::int64_t Binary(int level);
    std::int64_t Unary();
    std::int64_t Primary();

    Lexer& m_lexer;
    const MacroTable& m_macros;
    bool m_preprocessor;
    int m_depth = 0;
};

} // namespace platform::rc
