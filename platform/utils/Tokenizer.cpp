#include "Tokenizer.h"

#include <climits>

namespace {

bool IsWhiteSpace(WCHAR c) {
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

} // namespace

Tokenizer::Tokenizer(TokenizerStream& stream, bool skipWhiteSpace, WCHAR escape)
    : m_stream(stream), m_skipWhiteSpace(skipWhiteSpace), m_escape(escape) {}

bool Tokenizer::Peek(WCHAR& next) {
    if (!m_hasNext && !m_end) {
        // The stream knows its end only after a read ran past it, so the
        // flag is asked after every read; once at the end, it stays there.
        const WCHAR c = m_stream.GetNextChar();
        if (m_stream.IsEof()) {
            m_end = true;
        } else {
            m_next = c;
            m_hasNext = true;
        }
    }
    next = m_next;
    return m_hasNext;
}

void Tokenizer::Consume() {
    m_hasNext = false;
    ++m_consumed;
}

void Tokenizer::SkipWhiteSpace() {
    WCHAR c;
    while (Peek(c) && IsWhiteSpace(c))
        Consume();
}

void Tokenizer::Fail(const std::string& what) const {
    throw TokenizerException(what, m_consumed);
}

CString Tokenizer::ReadUntil(const CString& delimiters) {
    CString text;
    WCHAR c;
    while (Peek(c)) {
        if (c == m_escape && m_escape != 0) {
            Consume();
            if (!Peek(c))
                Fail("a character after the escape character");
        } else if (delimiters.Find(c) >= 0) {
            return text;
        }
        text.AppendChar(c);
        Consume();
    }
    if (!delimiters.IsEmpty())
        Fail("a delimiter before the end of the input");
    return text;
}

void Tokenizer::Match(WCHAR expected) {
    if (m_skipWhiteSpace)
        SkipWhiteSpace();
    WCHAR c;
    if (!Peek(c) || c != expected)
        Fail(std::string("the character U+") + std::to_string(static_cast<unsigned>(expected)));
    Consume();
}

int Tokenizer::ReadInt() {
    if (m_skipWhiteSpace)
        SkipWhiteSpace();
    WCHAR c;
    bool negative = false;
    if (Peek(c) && (c == u'+' || c == u'-')) {
        negative = c == u'-';
        Consume();
    }
    // The magnitude may reach 2^31, the size of INT_MIN; anything larger
    // fails at once, so a long run of digits never overflows.
    constexpr long long kLimit = static_cast<long long>(INT_MAX) + 1;
    long long magnitude = 0;
    bool digits = false;
    while (Peek(c) && c >= u'0' && c <= u'9') {
        magnitude = magnitude * 10 + (c - u'0');
        if (magnitude > (negative ? kLimit : INT_MAX))
            Fail("an integer that fits 32 bits");
        digits = true;
        Consume();
    }
    if (!digits)
        Fail("a decimal integer");
    return static_cast<int>(negative ? -magnitude : magnitude);
}

bool Tokenizer::Eof() {
    WCHAR c;
    return !Peek(c);
}
