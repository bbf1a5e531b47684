// Precedence climbing over the C binary operators; statements use the same
// evaluator with 32-bit wrapping, as the resource compiler's values are.
#include "RcExpression.h"

#include <cstring>

namespace platform::rc {

namespace {

constexpr int kMaxNesting = 200;

// Binary operators by precedence level, loosest first.
const char* const kLevels[][5] = {
    {"||", nullptr},
    {"&&", nullptr},
    {"|", nullptr},
    {"^", nullptr},
    {"&", nullptr},
    {"==", "!=", nullptr},
    {"<", ">", "<=", ">=", nullptr},
    {"<<", ">>", nullptr},
    {"+", "-", nullptr},
    {"*", "/", "%", nullptr},
};
constexpr int kLevelCount = static_cast<int>(sizeof kLevels / sizeof kLevels[0]);
constexpr int kOrLevel = 2;
constexpr int kXorLevel = 3;

std::int64_t Wrap32(std::int64_t v) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(v));
}

} // namespace

std::int64_t ExpressionParser::Condition() {
    return Ternary();
}

std::uint32_t ExpressionParser::Value() {
    return static_cast<std::uint32_t>(Binary(kOrLevel));
}

std::uint32_t ExpressionParser::Style(std::uint32_t base) {
    std::uint32_t value = base;
    for (;;) {
        if (m_lexer.Peek().IsKeyword("NOT")) {
            m_lexer.Next();
            value &= ~static_cast<std::uint32_t>(Binary(kXorLevel));
        } else {
            value |= static_cast<std::uint32_t>(Binary(kXorLevel));
        }
        if (!m_lexer.Peek().Is("|"))
            return value;
        m_lexer.Next();
    }
}

bool ExpressionParser::AtValue() {
    const Token& t = m_lexer.Peek();
    return t.kind == TokenKind::Number || t.Is("(") || t.Is("-") || t.Is("~") || t.Is("+") ||
           t.Is("!") || t.IsKeyword("NOT") || (t.kind == TokenKind::Name && !t.word);
}

std::int64_t ExpressionParser::Ternary() {
    const std::int64_t cond = Binary(0);
    if (!m_lexer.Peek().Is("?"))
        return cond;
    const SourcePos pos = m_lexer.Next().pos;
    if (++m_depth > kMaxNesting)
        m_lexer.Fail(pos, "expression nests too deeply");
    const std::int64_t a = Ternary();
    if (!m_lexer.Peek().Is(":"))
        m_lexer.Fail(pos, "'?' without ':'");
    m_lexer.Next();
    const std::int64_t b = Ternary();
    --m_depth;
    return cond ? a : b;
}

std::int64_t ExpressionParser::Binary(int level) {
    if (level >= kLevelCount)
        return Unary();
    // Statements only know the arithmetic and bit operators.
    if (!m_preprocessor && level < kOrLevel)
        return Binary(kOrLevel);
    std::int64_t left = Binary(level + 1);
    for (;;) {
        const Token& t = m_lexer.Peek();
        const char* op = nullptr;
        if (t.kind == TokenKind::Punct)
            for (const char* const* o = kLevels[level]; *o; ++o)
                if (t.text == *o)
                    op = *o;
        if (!op)
            return left;
        if (!m_preprocessor && level >= 5 && level <= 7)
            return left;
        const SourcePos pos = m_lexer.Next().pos;
        const std::int64_t right = Binary(level + 1);
        const std::string o = op;
        if (o == "||")
            left = left || right;
        else if (o == "&&")
            left = left && right;
        else if (o == "|")
            left = left | right;
        else if (o == "^")
            left = left ^ right;
        else if (o == "&")
            left = left & right;
        else if (o == "==")
            left = left == right;
        else if (o == "!=")
            left = left != right;
        else if (o == "<")
            left = left < right;
        else if (o == ">")
            left = left > right;
        else if (o == "<=")
            left = left <= right;
        else if (o == ">=")
            left = left >= right;
        else if (o == "<<")
            left = right < 0 || right > 62
                       ? 0
                       : static_cast<std::int64_t>(static_cast<std::uint64_t>(left) << right);
        else if (o == ">>")
            left = right < 0 || right > 62 ? 0 : left >> right;
        else if (o == "+")
            left = static_cast<std::int64_t>(static_cast<std::uint64_t>(left) +
                                             static_cast<std::uint64_t>(right));
        else if (o == "-")
            left = static_cast<std::int64_t>(static_cast<std::uint64_t>(left) -
                                             static_cast<std::uint64_t>(right));
        else if (o == "*")
            left = static_cast<std::int64_t>(static_cast<std::uint64_t>(left) *
                                             static_cast<std::uint64_t>(right));
        else {
            if (right == 0)
                m_lexer.Fail(pos, "division by zero");
            if (right == -1)
                left =
                    o == "/" ? static_cast<std::int64_t>(0 - static_cast<std::uint64_t>(left)) : 0;
            else
                left = o == "/" ? left / right : left % right;
        }
        if (!m_preprocessor)
            left = Wrap32(left);
    }
}

std::int64_t ExpressionParser::Unary() {
    const Token& t = m_lexer.Peek();
    if (t.Is("-") || t.Is("+") || t.Is("~") || t.Is("!")) {
        const std::string op = m_lexer.Next().text;
        if (++m_depth > kMaxNesting)
            m_lexer.Fail(t.pos, "expression nests too deeply");
        std::int64_t v = Unary();
        --m_depth;
        if (op == "-")
            v = static_cast<std::int64_t>(0 - static_cast<std::uint64_t>(v));
        else if (op == "~")
            v = ~v;
        else if (op == "!")
            v = !v;
        return m_preprocessor ? v : Wrap32(v);
    }
    return Primary();
}

std::int64_t ExpressionParser::Primary() {
    Token t = m_lexer.Next();
    if (t.kind == TokenKind::Number)
        return m_preprocessor ? static_cast<std::int64_t>(t.number) : Wrap32(t.number);
    if (t.Is("(")) {
        if (++m_depth > kMaxNesting)
            m_lexer.Fail(t.pos, "expression nests too deeply");
        const std::int64_t v = m_preprocessor ? Ternary() : Binary(kOrLevel);
        --m_depth;
        if (!m_lexer.Peek().Is(")"))
            m_lexer.Fail(m_lexer.Pos(), "missing ')'");
        m_lexer.Next();
        return v;
    }
    if (t.kind == TokenKind::Name && m_preprocessor) {
        if (t.text == "defined") {
            const bool paren = m_lexer.Peek().Is("(");
            if (paren)
                m_lexer.Next();
            const Token name = m_lexer.Next();
            if (name.kind != TokenKind::Name && name.kind != TokenKind::Number)
                m_lexer.Fail(t.pos, "defined needs a name");
            if (paren) {
                if (!m_lexer.Peek().Is(")"))
                    m_lexer.Fail(t.pos, "defined( without ')'");
                m_lexer.Next();
            }
            return m_macros.count(name.text) || BuiltinSymbol(name.text) ? 1 : 0;
        }
        return 0; // an undefined name in #if
    }
    if (t.kind == TokenKind::Name)
        m_lexer.Fail(t.pos, "undefined symbol '" + t.text + "'");
    if (t.kind == TokenKind::End)
        m_lexer.Fail(t.pos, "a number is missing at the end");
    if (t.kind == TokenKind::String)
        m_lexer.Fail(t.pos, "a number was expected, not a string");
    m_lexer.Fail(t.pos, "a number was expected, not '" + t.text + "'");
}

} // namespace platform::rc
