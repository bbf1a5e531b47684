#include "StringTokenizerStream.h"

StringTokenizerStream::StringTokenizerStream(const CString& text)
    : m_strText(text), m_nPos(0), m_bEof(false) {}

StringTokenizerStream::~StringTokenizerStream() = default;

WCHAR StringTokenizerStream::GetNextChar() {
    if (m_nPos < m_strText.GetLength())
        return m_strText[m_nPos++];
    m_bEof = true;
    return 0;
}

bool StringTokenizerStream::IsEof() {
    return m_bEof;
}
