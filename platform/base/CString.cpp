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

CString::CString(LPCWSTR text) : CString(View(text)) {}

CString::CString(LPCWSTR text, int length) {
    if (text && length > 0)
        m_p = new std::u16string(text, static_cast<std::size_t>(length));
}

CString::CString(LPCSTR text) {
    if (!text || !*text)
        return;
    int len = static_cast<int>(std::char_traits<char>::length(text));
    std::u16string& str = Text();
    str.resize(static_cast<std::size_t>(len));
    int n = MultiByteToWideChar(CP_ACP, 0, text, len, str.data(), len);
    str.resize(n > 0 ? static_cast<std::size_t>(n) : 0);
}

CString::CString(WCHAR ch, int repeat)
    : m_p(repeat > 0 ? new std::u16string(static_cast<std::size_t>(repeat), ch) : nullptr) {}

CString& CString::operator=(const CString& other) {
    if (other.IsEmpty())
        Empty();
    else if (this != &other)
        Text() = *other.m_p;
    return *this;
}

CString& CString::operator=(LPCWSTR text) {
    // text may point into this string's own storage: assign copes with that.
    std::u16string_view view = View(text);
    if (view.empty())
        Empty();
    else
        Text().assign(view.data(), view.size());
    return *this;
}

LPWSTR CString::GetBuffer(int minLength) {
    std::u16string& str = Text();
    if (minLength > GetLength())
        str.resize(static_cast<std::size_t>(minLength));
    return str.data();
}

LPWSTR CString::GetBufferSetLength(int length) {
    std::u16string& str = Text();
    str.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return str.data();
}

void CString::ReleaseBuffer(int newLength) {
    if (!m_p)
        return;
    if (newLength < 0)
        newLength = static_cast<int>(std::char_traits<char16_t>::length(m_p->c_str()));
    m_p->resize(Clamp(newLength, m_p->size()));
}

CString& CString::operator+=(const CString& other) {
    if (!other.IsEmpty())
        Text() += other.Str();
    return *this;
}

CString& CString::operator+=(LPCWSTR text) {
    std::u16string_view view = View(text);
    if (!view.empty())
        Text().append(view.data(), view.size());
    return *this;
}

CString& CString::operator+=(WCHAR ch) {
    Text().push_back(ch);
    return *this;
}

CString CString::Left(int count) const {
    return CString(std::u16string_view(Str()).substr(0, Clamp(count, Str().size())));
}

CString CString::Right(int count) const {
    std::size_t n = Clamp(count, Str().size());
    return CString(std::u16string_view(Str()).substr(Str().size() - n));
}

CString CString::Mid(int first) const {
    return CString(std::u16string_view(Str()).substr(Clamp(first, Str().size())));
}

CString CString::Mid(int first, int count) const {
    std::size_t start = Clamp(first, Str().size());
    return CString(std::u16string_view(Str()).substr(start, Clamp(count, Str().size() - start)));
}

int CString::Find(WCHAR ch, int start) const {
    if (start < 0 || static_cast<std::size_t>(start) >= Str().size())
        return -1;
    auto pos = Str().find(ch, static_cast<std::size_t>(start));
    return pos == std::u16string::npos ? -1 : static_cast<int>(pos);
}

int CString::Find(LPCWSTR sub, int start) const {
    if (!sub || start < 0 || static_cast<std::size_t>(start) > Str().size())
        return -1;
    auto pos = Str().find(View(sub), static_cast<std::size_t>(start));
    return pos == std::u16string::npos ? -1 : static_cast<int>(pos);
}

int CString::ReverseFind(WCHAR ch) const {
    auto pos = Str().rfind(ch);
    return pos == std::u16string::npos ? -1 : static_cast<int>(pos);
}

int CString::Replace(WCHAR oldCh, WCHAR newCh) {
    int count = 0;
    if (!m_p)
        return 0;
    for (auto& c : *m_p)
        if (c == oldCh) {
            c = newCh;
            ++count;
        }
    return count;
}

CString& CString::MakeLower() {
    if (m_p)
        for (auto& c : *m_p)
            c = FoldLower(c);
    return *this;
}

CString& CString::MakeUpper() {
    if (m_p)
        for (auto& c : *m_p)
            c = (c >= u'a' && c <= u'z') ? static_cast<WCHAR>(c - 32) : c;
    return *this;
}

CString& CString::MakeReverse() {
    if (m_p)
        std::reverse(m_p->begin(), m_p->end());
    return *this;
}

namespace {

// White space as the runtime's iswspace has it in the "C" locale: tab, line
// feed, vertical tab, form feed, carriage return and space.
bool IsSpace(WCHAR ch) {
    return ch == u' ' || (ch >= u'\t' && ch <= u'\r');
}

} // namespace

CString& CString::TrimLeft() {
    if (m_p) {
        auto first = std::find_if_not(m_p->begin(), m_p->end(), IsSpace);
        m_p->erase(m_p->begin(), first);
    }
    return *this;
}

CString& CString::TrimRight() {
    if (m_p) {
        auto last = std::find_if_not(m_p->rbegin(), m_p->rend(), IsSpace);
        m_p->erase(last.base(), m_p->end());
    }
    return *this;
}

CString& CString::Trim() {
    return TrimRight().TrimLeft();
}

namespace {

// wcscmp over UTF-16: both strings end at their first zero.
template <typename Fold> int CompareUnits(LPCWSTR a, LPCWSTR b, Fold fold) {
    if (!b)
        b = u"";
    for (;; ++a, ++b) {
        WCHAR x = fold(*a), y = fold(*b);
        if (x != y)
            return x < y ? -1 : 1;
        if (!x)
            return 0;
    }
}

} // namespace

int CString::Compare(LPCWSTR other) const {
    return CompareUnits(GetString(), other, [](WCHAR c) { return c; });
}

int CString::CompareNoCase(LPCWSTR other) const {
    return CompareUnits(GetString(), other, FoldLower);
}

void CString::Format(LPCWSTR format, ...) {
    std::u16string out;
    va_list args;
    va_start(args, format);
    FormatInto(out, format, args);
    va_end(args);
    Text().swap(out);
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
