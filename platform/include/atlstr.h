// CString: the string of UTF-16 code units that the class framework and the
// platform's lower floors share.
#pragma once

#include "windef.h"

#include <string>
#include <string_view>

class CString {
public:
    CString() = default;
    CString(const CString&) = default;
    CString(CString&&) noexcept = default;
    CString(LPCWSTR text);
    CString(LPCWSTR text, int length);
    // Narrow text is converted through the ANSI code page.
    CString(LPCSTR text);
    explicit CString(WCHAR ch, int repeat = 1);
    explicit CString(std::u16string_view text) : m_str(text) {}

    CString& operator=(const CString&) = default;
    CString& operator=(CString&&) noexcept = default;
    CString& operator=(LPCWSTR text);

    int GetLength() const { return static_cast<int>(m_str.size()); }
    bool IsEmpty() const { return m_str.empty(); }
    void Empty() { m_str.clear(); }
    WCHAR GetAt(int index) const { return m_str.at(static_cast<std::size_t>(index)); }
    void SetAt(int index, WCHAR ch) { m_str.at(static_cast<std::size_t>(index)) = ch; }
    WCHAR operator[](int index) const { return GetAt(index); }
    LPCWSTR GetString() const { return m_str.c_str(); }
    operator LPCWSTR() const { return m_str.c_str(); }
    const std::u16string& Str() const { return m_str; }

    // Direct access to the characters: the buffer holds at least minLength
    // characters plus a terminating zero until ReleaseBuffer.
    LPWSTR GetBuffer(int minLength = 0);
    LPWSTR GetBufferSetLength(int length);
    // Sets the length to newLength, or up to the first zero when it is -1.
    void ReleaseBuffer(int newLength = -1);

    // Loads string resource id through the chain of resource modules; false
    // (and the string unchanged) when no module has it.
    BOOL LoadString(UINT id);

    // Reserves room for length characters.
    void Preallocate(int length) {
        m_str.reserve(length > 0 ? static_cast<std::size_t>(length) : 0);
    }

    CString& operator+=(const CString& other);
    CString& operator+=(LPCWSTR text);
    CString& operator+=(WCHAR ch);
    void Append(LPCWSTR text, int length) { m_str.append(text, static_cast<std::size_t>(length)); }
    void AppendChar(WCHAR ch) { m_str.push_back(ch); }

    CString Left(int count) const;
    CString Right(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;

    int Find(WCHAR ch, int start = 0) const;
    int Find(LPCWSTR sub, int start = 0) const;
    int ReverseFind(WCHAR ch) const;
    int Replace(WCHAR oldCh, WCHAR newCh);

    // Ordinal comparisons: negative, zero or positive. Ignoring case folds A to Z
    // only, as the runtime does in the "C" locale.
    int Compare(LPCWSTR other) const;
    int CompareNoCase(LPCWSTR other) const;

    // printf-style formatting: %s and %c take UTF-16 text and characters, %S
    // and %hs narrow text; the numeric conversions follow the C runtime.
    void Format(LPCWSTR format, ...);

    friend CString operator+(const CString& a, const CString& b);
    friend CString operator+(const CString& a, LPCWSTR b);
    friend CString operator+(LPCWSTR a, const CString& b);
    // Without these, text + ch would compile as pointer arithmetic through the
    // conversion to LPCWSTR.
    friend CString operator+(const CString& a, WCHAR b);
    friend CString operator+(WCHAR a, const CString& b);

    friend bool operator==(const CString& a, const CString& b) { return a.m_str == b.m_str; }
    friend bool operator==(const CString& a, LPCWSTR b) { return a.Compare(b) == 0; }
    friend bool operator<(const CString& a, const CString& b) { return a.m_str < b.m_str; }
    friend bool operator>(const CString& a, const CString& b) { return b.m_str < a.m_str; }
    friend bool operator<=(const CString& a, const CString& b) { return !(b.m_str < a.m_str); }
    friend bool operator>=(const CString& a, const CString& b) { return !(a.m_str < b.m_str); }

private:
    std::u16string m_str;
    // GetBuffer hands out m_str's storage; ReleaseBuffer fixes the length.
};

typedef CString CStringW;
