// Code page conversions through ICU. The ANSI code page is windows-1252 unless
// the host picks another; unmappable characters become '?', as on the original.
#include "winbase.h"

#include "platform/CodePage.h"

#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>
#include <unicode/ustring.h>

#include <cstring>
#include <memory>
#include <mutex>
#include <string>

namespace {

thread_local DWORD t_lastError = 0;
UINT g_acp = 1252;

struct ConverterCloser {
    void operator()(UConverter* c) const { ucnv_close(c); }
};
using ConverterPtr = std::unique_ptr<UConverter, ConverterCloser>;

std::string IcuName(UINT codePage) {
    if (codePage == CP_UTF8)
        return "UTF-8";
    return "windows-" + std::to_string(codePage);
}

// One converter per thread for the current code page; opened on first use.
UConverter* Converter(UINT codePage) {
    if (codePage == CP_ACP)
        codePage = g_acp;
    thread_local UINT cachedPage = 0;
    thread_local ConverterPtr cached;
    if (!cached || cachedPage != codePage) {
        UErrorCode status = U_ZERO_ERROR;
        ConverterPtr conv(ucnv_open(IcuName(codePage).c_str(), &status));
        if (U_FAILURE(status) || !conv)
            return nullptr;
        if (codePage != CP_UTF8) {
            status = U_ZERO_ERROR;
            ucnv_setSubstChars(conv.get(), "?", 1, &status);
        }
        cached = std::move(conv);
        cachedPage = codePage;
    }
    ucnv_reset(cached.get());
    return cached.get();
}

// UTF-8 goes straight through ICU's string conversion, into the caller's
// buffer: no converter object and no copy. Unpaired surrogates become U+FFFD
// unless the caller asked for strict conversion. A length of -1 converts up to
// the terminator and counts it, which ICU does in the same pass.
// Plain ASCII, the common case of short fields, needs no converter: the bytes
// are the code units. Returns -1 for anything else (a character above 0x7F,
// no room), which the full conversion then handles and reports.
int AsciiToUtf8(LPCWSTR src, int srcLen, LPSTR dst, int dstLen) {
    const bool terminated = srcLen < 0;
    int i = 0;
    for (; terminated || i < srcLen; ++i) {
        const char16_t ch = src[i];
        if (terminated && ch == 0)
            break;
        if (ch >= 0x80 || i >= dstLen)
            return -1;
        dst[i] = static_cast<char>(ch);
    }
    if (!terminated)
        return i;
    if (i >= dstLen)
        return -1;
    dst[i] = '\0';
    return i + 1;
}

int WideToUtf8(DWORD flags, LPCWSTR src, int srcLen, LPSTR dst, int dstLen) {
    if (dstLen > 0) {
        const int ascii = AsciiToUtf8(src, srcLen, dst, dstLen);
        if (ascii >= 0)
            return ascii;
    }
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    const UChar32 substitute = (flags & WC_ERR_INVALID_CHARS) ? U_SENTINEL : 0xFFFD;
    const bool terminated = srcLen < 0;
    u_strToUTF8WithSub(dstLen > 0 ? dst : nullptr, dstLen, &length,
                       reinterpret_cast<const UChar*>(src), terminated ? -1 : srcLen, substitute,
                       nullptr, &status);
    if (terminated) {
        ++length;
        if (status == U_STRING_NOT_TERMINATED_WARNING)
            status = U_BUFFER_OVERFLOW_ERROR; // no room for the terminator
    }
    if (status == U_BUFFER_OVERFLOW_ERROR) {
        if (dstLen == 0)
            return length;
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    if (U_FAILURE(status)) {
        SetLastError(ERROR_NO_UNICODE_TRANSLATION);
        return 0;
    }
    return length;
}

} // namespace

DWORD GetLastError() {
    return t_lastError;
}

void SetLastError(DWORD error) {
    t_lastError = error;
}

UINT GetACP() {
    return g_acp;
}

namespace platform {
void SetAnsiCodePage(UINT codePage) {
    g_acp = codePage == CP_ACP ? 1252 : codePage;
}
} // namespace platform

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR src, int srcLen, LPWSTR dst,
                        int dstLen) {
    if (!src || srcLen == 0 || dstLen < 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if (srcLen < 0)
        srcLen = static_cast<int>(std::strlen(src)) + 1;
    UConverter* conv = Converter(codePage);
    if (!conv) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    UErrorCode status = U_ZERO_ERROR;
    if (flags & MB_ERR_INVALID_CHARS)
        ucnv_setToUCallBack(conv, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    else
        ucnv_setToUCallBack(conv, UCNV_TO_U_CALLBACK_SUBSTITUTE, nullptr, nullptr, nullptr,
                            &status);
    status = U_ZERO_ERROR;
    std::u16string out(static_cast<std::size_t>(srcLen) * 2 + 1, u'\0');
    int32_t n = ucnv_toUChars(conv, reinterpret_cast<UChar*>(out.data()),
                              static_cast<int32_t>(out.size()), src, srcLen, &status);
    if (U_FAILURE(status)) {
        SetLastError(ERROR_NO_UNICODE_TRANSLATION);
        return 0;
    }
    if (dstLen == 0)
        return n;
    if (n > dstLen) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::memcpy(dst, out.data(), static_cast<std::size_t>(n) * sizeof(WCHAR));
    return n;
}

int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR src, int srcLen, LPSTR dst, int dstLen,
                        LPCSTR defaultChar, LPBOOL usedDefaultChar) {
    if (!src || srcLen == 0 || dstLen < 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    bool utf8 = codePage == CP_UTF8;
    if (utf8 && (flags & ~static_cast<DWORD>(WC_ERR_INVALID_CHARS))) {
        SetLastError(ERROR_INVALID_FLAGS);
        return 0;
    }
    if (utf8 && (defaultChar || usedDefaultChar)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if (utf8)
        return WideToUtf8(flags, src, srcLen, dst, dstLen);
    if (srcLen < 0)
        srcLen = static_cast<int>(std::char_traits<char16_t>::length(src)) + 1;
    UConverter* conv = Converter(codePage);
    if (!conv) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    UErrorCode status = U_ZERO_ERROR;
    bool strict = utf8 && (flags & WC_ERR_INVALID_CHARS);
    ucnv_setFromUCallBack(conv,
                          strict ? UCNV_FROM_U_CALLBACK_STOP : UCNV_FROM_U_CALLBACK_SUBSTITUTE,
                          nullptr, nullptr, nullptr, &status);
    if (!utf8) {
        status = U_ZERO_ERROR;
        char subst = defaultChar && *defaultChar ? *defaultChar : '?';
        ucnv_setSubstChars(conv, &subst, 1, &status);
    }
    status = U_ZERO_ERROR;
    std::string out(static_cast<std::size_t>(srcLen) * 4 + 1, '\0');
    int32_t n = ucnv_fromUChars(conv, out.data(), static_cast<int32_t>(out.size()),
                                reinterpret_cast<const UChar*>(src), srcLen, &status);
    if (U_FAILURE(status)) {
        SetLastError(ERROR_NO_UNICODE_TRANSLATION);
        return 0;
    }
    if (usedDefaultChar) {
        // A substitution shows as the default byte where the source had another character.
        *usedDefaultChar = FALSE;
        if (!utf8) {
            char subst = defaultChar && *defaultChar ? *defaultChar : '?';
            for (int i = 0; i < n && i < srcLen; ++i)
                if (out[static_cast<std::size_t>(i)] == subst &&
                    src[i] != static_cast<unsigned char>(subst))
                    *usedDefaultChar = TRUE;
        }
    }
    if (dstLen == 0)
        return n;
    if (n > dstLen) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::memcpy(dst, out.data(), static_cast<std::size_t>(n));
    return n;
}
