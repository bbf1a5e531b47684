// The companion library's tokenizer: reads delimited text, single characters
// and decimal integers from a character stream, one character of lookahead,
// and throws TokenizerException when the text is not of the expected form.
#pragma once

#include "afx.h"

#include <stdexcept>
#include <string>

// A source of characters. GetNextChar hands out the next one; once a read
// has run past the last character, IsEof turns true (reading the last real
// character does not yet set it) and what GetNextChar returned then means
// nothing.
class TokenizerStream {
public:
    TokenizerStream() {}
    virtual ~TokenizerStream() {}
    virtual WCHAR GetNextChar() = 0;
    virtual bool IsEof() = 0;
};

// Thrown by value, caught by reference. what() names the expected form;
// Offset() is the number of characters consumed before the failure.
class TokenizerException : public std::runtime_error {
public:
    TokenizerException(const std::string& what, long offset)
        : std::runtime_error(what), m_offset(offset) {}
    long Offset() const { return m_offset; }

private:
    long m_offset;
};

class Tokenizer {
public:
    // skipWhiteSpace: Match and ReadInt first step over white space (space,
    // tab, line feed, vertical tab, form feed, carriage return). ReadUntil
    // never skips, so text keeps its blanks, and neither does Eof: text
    // after the last token, blanks included, is not the end.
    // escape: inside ReadUntil this character takes the one after it
    // literally, so a delimiter can be part of the text; 0 for none.
    Tokenizer(TokenizerStream& stream, bool skipWhiteSpace, WCHAR escape);
    Tokenizer(const Tokenizer&) = delete;
    Tokenizer& operator=(const Tokenizer&) = delete;

    // The text up to the next character that is one of delimiters, which
    // stays unread for Match. Throws when the input ends first (the text
    // read so far is consumed); with no delimiters it reads to the end.
    CString ReadUntil(const CString& delimiters);
    // Consumes expected or throws (another character, or the end).
    void Match(WCHAR expected);
    // A decimal integer: an optional '+' or '-', then one or more digits 0-9,
    // up to the first other character. Throws when there is no digit or the
    // value does not fit an int.
    int ReadInt();
    // True when no character is left. Reads one character ahead.
    bool Eof();

private:
    // The next character without consuming it; false at the end.
    bool Peek(WCHAR& next);
    void Consume();
    void SkipWhiteSpace();
    [[noreturn]] void Fail(const std::string& what) const;

    TokenizerStream& m_stream;
    bool m_skipWhiteSpace;
    WCHAR m_escape;
    WCHAR m_next = 0;
    bool m_hasNext = false;
    bool m_end = false;
    long m_consumed = 0;
};
