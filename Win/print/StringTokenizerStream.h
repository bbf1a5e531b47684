// The tokenizer's character stream over a string: hands out its characters
// in turn and reports the end once a read has run past the last one.
#pragma once

#include <Tokenizer.h>
#include <afx.h>

class StringTokenizerStream : public TokenizerStream {
public:
    explicit StringTokenizerStream(const CString& text);
    ~StringTokenizerStream() override;

    // The next character, or 0 (and the end flag) when none is left.
    WCHAR GetNextChar() override;
    bool IsEof() override;

private:
    CString m_strText;
    int m_nPos;
    bool m_bEof;
};
