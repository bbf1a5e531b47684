// CString: the string of UTF-16 code units that the class framework and the
// platform's lower floors share.
//
// A CString is a single pointer to heap storage (null while empty), as the
// framework's own string is. Nothing points into the object itself, so a
// CString may be moved bytewise: qsort over CStringArray::GetData() swaps
// elements with memcpy, which a string with in-object small-string storage
// would not survive.
#pragma once

#include "windef.h"

#include <string>
#include <string_view>

class CString {
public:
    CString() = default;
    CString(const CString& other)
        : m_p(other.IsEmpty() ? nullptr : new std::u16string(*other.m_p)) {}
    CString(CString&& other) noexcept : m_p(other.m_p) { other.m_p = nullptr; }
    ~CString() { delete m_p; }
    CString(LPCWSTR text);
    CString(LPCWSTR text, int length);
    // Narrow text is converted through the ANSI code page.
    CString(LPCSTR text);
    explicit CString(WCHAR ch, int repeat = 1);
    explicit CString(std::u16string_view text)
        : m_p(text.empty() ? nullptr : new std::u16string(text)) {}

    CString& operator=(const CString& other);
    CString& operator=(CString&& other) noexcept {
        std::swap(m_p, other.m_p);
        return *this;
    }
    CString& operator=(LPCWSTR text);

    int GetLength() const { return m_p ? static_cast<int>(m_p->size()) : 0; }
    bool IsEmpty() const { return !m_p || m_p->empty(); }
    void Empty() {
        if (m_p)
            m_p->clear();
    }
    WCHAR GetAt(int index) const { return Str().at(static_cast<std::size_t>(index)); }
    void SetAt(int index, WCHAR ch) { Text().at(static_cast<std::size_t>(index)) = ch; }
    WCHAR operator[](int index) const { return GetAt(index); }
    LPCWSTR GetString() const { return m_p ? m_p->c_str() : u""; }
    operator LPCWSTR() const { return GetString(); }
    const std::u16string& Str() const { return m_p ? *m_p : EmptyText(); }

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
        if (length > 0)
            Text().reserve(static_cast<std::size_t>(length));
    }

    CString& operator+=(const CString& other);
    CString& operator+=(LPCWSTR text);
    CString& operator+=(WCHAR ch);
    void Append(LPCWSTR text, int length) {
        if (text && length > 0)
            Text().append(text, static_cast<std::size_t>(length));
    }
    void AppendChar(WCHAR ch) { Text().push_back(ch); }
    // Replaces the text by length characters from text.
    void SetString(LPCWSTR text, int length) {
        if (text && length > 0)
            Text().assign(text, static_cast<std::size_t>(length));
        else
            Empty();
    }

    CString Left(int count) const;
    CString Right(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;

    int Find(WCHAR ch, int start = 0) const;
    int Find(LPCWSTR sub, int start = 0) const;
    int ReverseFind(WCHAR ch) const;
    int Replace(WCHAR oldCh, WCHAR newCh);

    // Case changes fold A to Z only, as the runtime does in the "C" locale;
    // every other character stays as it is.
    CString& MakeLower();
    CString& MakeUpper();
    // Reverses the order of the code units.
    CString& MakeReverse();
    // Remove white space (tab, line feed, vertical tab, form feed, carriage
    // return and space) from the start, the end or both.
    CString& TrimLeft();
    CString& TrimRight();
    CString& Trim();

    // Ordinal comparisons by UTF-16 code unit up to the first zero, as wcscmp:
    // negative, zero or positive. Ignoring case folds A to Z to lower case
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

    friend bool operator==(const CString& a, const CString& b) { return a.Str() == b.Str(); }
    friend bool operator==(const CString& a, LPCWSTR b) { return a.Compare(b) == 0; }
    friend bool operator<(const CString& a, const CString& b) { return a.Str() < b.Str(); }
    friend bool operator>(const CString& a, const CString& b) { return b.Str() < a.Str(); }
    friend bool operator<=(const CString& a, const CString& b) { return !(b.Str() < a.Str()); }
    friend bool operator>=(const CString& a, const CString& b) { return !(a.Str() < b.Str()); }

private:
    static const std::u16string& EmptyText() {
        static const std::u16string empty;
        return empty;
    }
    // The storage, created on first write.
    std::u16string& Text() {
        if (!m_p)
            m_p = new std::u16string;
        return *m_p;
    }

    // GetBuffer hands out this storage; ReleaseBuffer fixes the length.
    std::u16string* m_p = nullptr;
};

typedef CString CStringW;
