#include "atlstr.h"
#include "platform/CodePage.h"

#include "winbase.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cwchar>
#include <stdexcept>

namespace {

std::size_t Clamp(int value, std::size_t limit) {
    if (value < 0)
        return 0;
    return static_cast<std::size_t>(value) < limit ? static_cast<std::size_t>(value) : limit;
}

WCHAR FoldLower(WCHAR ch) {
    return (ch >= u'A' && ch <= u'Z') ? static_cast<WCHAR>(ch + 32) : ch;
}

std::u16string_view View(LPCWSTR text) {
    return text ? std::u16string_view(text) : std::u16string_view();
}

// Formats one printf conversion of a numeric or pointer argument through the C runtime.
template <typename T> void AppendNumber(std::u16string& out, const std::string& spec, T value) {
    char buf[512];
    int n = std::snprintf(buf, sizeof buf, spec.c_str(), value);
    if (n < 0)
        return;
    if (static_cast<std::size_t>(n) >= sizeof buf) {
        std::string big(static_cast<std::size_t>(n) + 1, '\0');
        std::snprintf(big.data(), big.size(), spec.c_str(), value);
        for (int i = 0; i < n; ++i)
            out.push_back(static_cast<unsigned char>(big[static_cast<std::size_t>(i)]));
        return;
    }
    for (int i = 0; i < n; ++i)
        out.push_back(static_cast<unsigned char>(buf[i]));
}

void AppendPadded(std::u16string& out, std::u16string_view text, bool left, int width,
                  int precision) {
    if (precision >= 0 && static_cast<std::size_t>(precision) < text.size())
        text = text.substr(0, static_cast<std::size_t>(precision));
    std::size_t pad = width > 0 && static_cast<std::size_t>(width) > text.size()
                          ? static_cast<std::size_t>(width) - text.size()
                          : 0;
    if (!left)
        out.append(pad, u' ');
    out.append(text);
    if (left)
        out.append(pad, u' ');
}

void FormatInto(std::u16string& out, LPCWSTR format, va_list args) {
    for (LPCWSTR p = format; p && *p; ++p) {
        if (*p != u'%') {
            out.push_back(*p);
            continue;
        }
        ++p;
        if (*p == u'%') {
            out.push_back(u'%');
            continue;
        }
        std::string spec = "%";
        bool left = false;
        while (*p == u'-' || *p == u'+' || *p == u' ' || *p == u'#' || *p == u'0') {
            left = left || *p == u'-';
            spec.push_back(static_cast<char>(*p++));
        }
        int width = -1;
        if (*p == u'*') {
            width = va_arg(args, int);
            if (width < 0) {
                left = true;
                width = -width;
            }
            spec += std::to_string(width);
            ++p;
        } else {
            while (*p >= u'0' && *p <= u'9') {
                width = (width < 0 ? 0 : width * 10) + (*p - u'0');
                spec.push_back(static_cast<char>(*p++));
            }
        }
        int precision = -1;
        if (*p == u'.') {
            spec.push_back('.');
            ++p;
            precision = 0;
            if (*p == u'*') {
                precision = va_arg(args, int);
                spec += std::to_string(precision);
                ++p;
            } else {
                while (*p >= u'0' && *p <= u'9') {
                    precision = precision * 10 + (*p - u'0');
                    spec.push_back(static_cast<char>(*p++));
                }
            }
        }
        enum { None, Short, Long, LongLong, Size, Narrow } length = None;
        if (*p == u'h') {
            length = Short;
            ++p;
        } else if (*p == u'l') {
            ++p;
            length = Long;
            if (*p == u'l') {
                length = LongLong;
                ++p;
            }
        } else if (*p == u'I' && p[1] == u'6' && p[2] == u'4') {
            length = LongLong;
            p += 3;
        } else if (*p == u'z') {
            length = Size;
            ++p;
        }
        WCHAR conv = *p;
        if (!conv)
            break;
        switch (conv) {
        case u'd':
        case u'i':
        case u'u':
        case u'x':
        case u'X':
        case u'o': {
            // DWORD and LONG are 32 bits, as "long" was on the original platform.
            if (length == LongLong) {
                spec += "ll";
                spec.push_back(static_cast<char>(conv));
                AppendNumber(out, spec, va_arg(args, long long));
            } else if (length == Size) {
                spec += "z";
                spec.push_back(static_cast<char>(conv));
                AppendNumber(out, spec, va_arg(args, std::size_t));
            } else {
                if (length == Short)
                    spec += "h";
                spec.push_back(static_cast<char>(conv));
                AppendNumber(out, spec, va_arg(args, int));
            }
            break;
        }
        case u'f':
        case u'F':
        case u'e':
        case u'E':
        case u'g':
        case u'G':
            spec.push_back(static_cast<char>(conv));
            AppendNumber(out, spec, va_arg(args, double));
            break;
        case u'p':
            spec.push_back('p');
            AppendNumber(out, spec, va_arg(args, void*));
            break;
        case u'c':
        case u'C': {
            int ch = va_arg(args, int);
            WCHAR c = static_cast<WCHAR>(ch);
            AppendPadded(out, std::u16string_view(&c, 1), left, width, -1);
            break;
        }
        case u's':
        case u'S': {
            bool narrow = conv == u'S' || length == Short;
            if (narrow) {
                const char* s = va_arg(args, const char*);
                CString converted(s ? s : "(null)");
                AppendPadded(out, converted.Str(), left, width, precision);
            } else {
                LPCWSTR s = va_arg(args, LPCWSTR);
                AppendPadded(out, s ? View(s) : std::u16string_view(u"(null)"), left, width,
                             precision);
            }
            break;
        }
        default:
            out.push_back(conv);
            break;
        }
    }
}

} // namespace

CString::CString(LPCWSTR text) : m_str(View(text)) {}

CString::CString(LPCWSTR text, int length) {
    if (text && length > 0)
        m_str.assign(text, static_cast<std::size_t>(length));
}

CString::CString(LPCSTR text) {
    if (!text || !*text)
        return;
    int len = static_cast<int>(std::char_traits<char>::length(text));
    m_str.resize(static_cast<std::size_t>(len));
    int n = MultiByteToWideChar(CP_ACP, 0, text, len, m_str.data(), len);
    m_str.resize(n > 0 ? static_cast<std::size_t>(n) : 0);
}

CString::CString(WCHAR ch, int repeat)
    : m_str(repeat > 0 ? static_cast<std::size_t>(repeat) : 0, ch) {}

CString& CString::operator=(LPCWSTR text) {
    m_str = View(text);
    return *this;
}

LPWSTR CString::GetBuffer(int minLength) {
    if (minLength > GetLength())
        m_str.resize(static_cast<std::size_t>(minLength));
    return m_str.data();
}

LPWSTR CString::GetBufferSetLength(int length) {
    m_str.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return m_str.data();
}

void CString::ReleaseBuffer(int newLength) {
    if (newLength < 0)
        newLength = static_cast<int>(std::char_traits<char16_t>::length(m_str.c_str()));
    m_str.resize(Clamp(newLength, m_str.size()));
}

CString& CString::operator+=(const CString& other) {
    m_str += other.m_str;
    return *this;
}

CString& CString::operator+=(LPCWSTR text) {
    m_str += View(text);
    return *this;
}

CString& CString::operator+=(WCHAR ch) {
    m_str.push_back(ch);
    return *this;
}

CString CString::Left(int count) const {
    return CString(std::u16string_view(m_str).substr(0, Clamp(count, m_str.size())));
}

CString CString::Right(int count) const {
    std::size_t n = Clamp(count, m_str.size());
    return CString(std::u16string_view(m_str).substr(m_str.size() - n));
}

CString CString::Mid(int first) const {
    return CString(std::u16string_view(m_str).substr(Clamp(first, m_str.size())));
}

CString CString::Mid(int first, int count) const {
    std::size_t start = Clamp(first, m_str.size());
    return CString(std::u16string_view(m_str).substr(start, Clamp(count, m_str.size() - start)));
}

int CString::Find(WCHAR ch, int start) const {
    if (start < 0 || static_cast<std::size_t>(start) >= m_str.size())
        return -1;
    auto pos = m_str.find(ch, static_cast<std::size_t>(start));
    return pos == std::u16string::npos ? -1 : static_cast<int>(pos);
}

int CString::Find(LPCWSTR sub, int start) const {
    if (!sub || start < 0 || static_cast<std::size_t>(start) > m_str.size())
        return -1;
    auto pos = m_str.find(View(sub), static_cast<std::size_t>(start));
    return pos == std::u16string::npos ? -1 : static_cast<int>(pos);
}

int CString::ReverseFind(WCHAR ch) const {
    auto pos = m_str.rfind(ch);
    return pos == std::u16string::npos ? -1 : static_cast<int>(pos);
}

int CString::Replace(WCHAR oldCh, WCHAR newCh) {
    int count = 0;
    for (auto& c : m_str)
        if (c == oldCh) {
            c = newCh;
            ++count;
        }
    return count;
}

int CString::Compare(LPCWSTR other) const {
    int r = std::u16string_view(m_str).compare(View(other));
    return r < 0 ? -1 : (r > 0 ? 1 : 0);
}

int CString::CompareNoCase(LPCWSTR other) const {
    std::u16string_view b = View(other);
    std::size_t n = std::min(m_str.size(), b.size());
    for (std::size_t i = 0; i < n; ++i) {
        WCHAR x = FoldLower(m_str[i]), y = FoldLower(b[i]);
        if (x != y)
            return x < y ? -1 : 1;
    }
    return m_str.size() == b.size() ? 0 : (m_str.size() < b.size() ? -1 : 1);
}

void CString::Format(LPCWSTR format, ...) {
    std::u16string out;
    va_list args;
    va_start(args, format);
    FormatInto(out, format, args);
    va_end(args);
    m_str.swap(out);
}

CString operator+(const CString& a, const CString& b) {
    CString r(a);
    r += b;
    return r;
}

CString operator+(const CString& a, LPCWSTR b) {
    CString r(a);
    r += b;
    return r;
}

CString operator+(LPCWSTR a, const CString& b) {
    CString r(a);
    r += b;
    return r;
}

CString operator+(const CString& a, WCHAR b) {
    CString r(a);
    r += b;
    return r;
}

CString operator+(WCHAR a, const CString& b) {
    CString r(a);
    r += b;
    return r;
}
