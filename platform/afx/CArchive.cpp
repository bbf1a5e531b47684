#include "afx.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <string>
#include <vector>

CArchive::CArchive(CFile* file, UINT mode, int bufSize, void* /*buf*/)
    : m_pFile(file), m_nMode(mode) {
    if (file)
        m_strFileName = file->GetFilePath();
    m_buffer.resize(static_cast<std::size_t>(std::max(bufSize, 512)));
}

CArchive::~CArchive() {
    if (m_closed || !m_pFile)
        return;
    if (IsStoring() && !(m_nMode & bNoFlushOnDelete)) {
        try {
            Flush();
        } catch (CException* e) {
            e->Delete();
        }
    }
}

void CArchive::CheckLoading() const {
    if (IsStoring())
        AfxThrowArchiveException(CArchiveException::writeOnly, m_strFileName);
}

void CArchive::CheckStoring() const {
    if (IsLoading())
        AfxThrowArchiveException(CArchiveException::readOnly, m_strFileName);
}

void CArchive::FillBuffer() {
    // Keep what is left and append from the file.
    if (m_cur > 0) {
        std::memmove(m_buffer.data(), m_buffer.data() + m_cur, m_max - m_cur);
        m_max -= m_cur;
        m_cur = 0;
    }
    if (m_pFile && m_max < m_buffer.size())
        m_max += m_pFile->Read(m_buffer.data() + m_max, static_cast<UINT>(m_buffer.size() - m_max));
}

UINT CArchive::Read(void* buffer, UINT count) {
    CheckLoading();
    auto* out = static_cast<BYTE*>(buffer);
    UINT done = 0;
    while (done < count) {
        if (m_cur == m_max) {
            FillBuffer();
            if (m_cur == m_max)
                break;
        }
        const std::size_t n = std::min<std::size_t>(count - done, m_max - m_cur);
        std::memcpy(out + done, m_buffer.data() + m_cur, n);
        m_cur += n;
        done += static_cast<UINT>(n);
    }
    return done;
}

void CArchive::ReadExact(void* buffer, UINT count) {
    if (Read(buffer, count) != count)
        AfxThrowArchiveException(CArchiveException::endOfFile);
}

CArchive& CArchive::operator>>(bool& value) {
    BYTE b = 0;
    ReadExact(&b, 1);
    value = b != 0;
    return *this;
}

void CArchive::Write(const void* buffer, UINT count) {
    CheckStoring();
    const auto* in = static_cast<const BYTE*>(buffer);
    while (count > 0) {
        if (m_max == m_buffer.size())
            Flush();
        const std::size_t n = std::min<std::size_t>(count, m_buffer.size() - m_max);
        std::memcpy(m_buffer.data() + m_max, in, n);
        m_max += n;
        in += n;
        count -= static_cast<UINT>(n);
    }
}

void CArchive::Flush() {
    if (IsLoading() || m_max == 0)
        return;
    const std::size_t n = m_max;
    m_max = 0;
    if (m_pFile)
        m_pFile->Write(m_buffer.data(), static_cast<UINT>(n));
}

void CArchive::Close() {
    if (m_closed)
        return;
    Flush();
    m_closed = true;
}

void CArchive::Abort() {
    m_max = m_cur = 0;
    m_closed = true;
}

ULONGLONG CArchive::GetRemaining() const {
    ULONGLONG rest = m_max - m_cur;
    if (m_pFile) {
        const ULONGLONG length = m_pFile->GetLength();
        const ULONGLONG position = m_pFile->GetPosition();
        if (length > position)
            rest += length - position;
    }
    return rest;
}

void AfxWriteStringLength(CArchive& ar, ULONGLONG length, BOOL unicode) {
    if (unicode) {
        ar << static_cast<BYTE>(0xFF);
        ar << static_cast<WORD>(0xFFFE);
    }
    if (length < 0xFF) {
        ar << static_cast<BYTE>(length);
        return;
    }
    ar << static_cast<BYTE>(0xFF);
    if (length < 0xFFFE) {
        ar << static_cast<WORD>(length);
        return;
    }
    ar << static_cast<WORD>(0xFFFF);
    if (length < 0xFFFFFFFFull) {
        ar << static_cast<UINT>(length);
        return;
    }
    ar << static_cast<UINT>(0xFFFFFFFFu);
    ar << length;
}

ULONGLONG AfxReadStringLength(CArchive& ar, int& charSize) {
    charSize = 1;
    BYTE b = 0;
    ar >> b;
    if (b < 0xFF)
        return b;
    WORD w = 0;
    ar >> w;
    if (w == 0xFFFE) {
        charSize = 2;
        ar >> b;
        if (b < 0xFF)
            return b;
        ar >> w;
    }
    if (w < 0xFFFF)
        return w;
    UINT d = 0;
    ar >> d;
    if (d < 0xFFFFFFFFu)
        return d;
    ULONGLONG q = 0;
    ar >> q;
    // No string is longer than an int can count.
    if (q > static_cast<ULONGLONG>(INT_MAX))
        AfxThrowArchiveException(CArchiveException::genericException);
    return q;
}

CArchive& operator<<(CArchive& ar, const CString& text) {
    const auto n = static_cast<ULONGLONG>(text.GetLength());
    AfxWriteStringLength(ar, n, TRUE);
    if (n > 0)
        ar.Write(text.GetString(), static_cast<UINT>(n * sizeof(WCHAR)));
    return ar;
}

namespace {

// Long payloads are read in steps of this many bytes, so memory grows only as
// the file delivers data: a corrupt length over a short stream costs at most
// one step beyond what arrived, and no file needs to report its size.
constexpr std::size_t kPayloadStep = 1 << 16;

void ReadOrEndOfFile(CArchive& ar, void* buffer, std::size_t bytes) {
    if (ar.Read(buffer, static_cast<UINT>(bytes)) != bytes)
        AfxThrowArchiveException(CArchiveException::endOfFile);
}

// Reads length units of a string's payload.
template <class Text> Text ReadPayload(CArchive& ar, std::size_t length) {
    const std::size_t bytes = length * sizeof(typename Text::value_type);
    Text text;
    if (bytes <= kPayloadStep) {
        text.resize(length);
        ReadOrEndOfFile(ar, text.data(), bytes);
        return text;
    }
    std::vector<std::vector<BYTE>> steps;
    for (std::size_t left = bytes; left > 0;) {
        const std::size_t n = std::min(left, kPayloadStep);
        steps.emplace_back(n);
        ReadOrEndOfFile(ar, steps.back().data(), n);
        left -= n;
    }
    text.resize(length);
    auto* out = reinterpret_cast<BYTE*>(text.data());
    for (std::vector<BYTE>& step : steps) {
        std::memcpy(out, step.data(), step.size());
        out += step.size();
        std::vector<BYTE>().swap(step);
    }
    return text;
}

// A 32-bit length may claim more characters than a string holds. Such a
// payload is read and dropped, so that a stream ending early reports its end
// like any other truncated string; one that really holds it all cannot be
// loaded into memory.
[[noreturn]] void SkipOversizedPayload(CArchive& ar, ULONGLONG bytes) {
    std::vector<BYTE> scratch(kPayloadStep);
    for (ULONGLONG left = bytes; left > 0;) {
        const auto n = static_cast<std::size_t>(std::min<ULONGLONG>(left, kPayloadStep));
        ReadOrEndOfFile(ar, scratch.data(), n);
        left -= n;
    }
    AfxThrowMemoryException();
}

} // namespace

CArchive& operator>>(CArchive& ar, CString& text) {
    int charSize = 1;
    const ULONGLONG length = AfxReadStringLength(ar, charSize);
    if (length > static_cast<ULONGLONG>(INT_MAX))
        SkipOversizedPayload(ar, length * static_cast<ULONGLONG>(charSize));
    const auto units = static_cast<std::size_t>(length);
    if (charSize == 2) {
        std::u16string wide = ReadPayload<std::u16string>(ar, units);
        const std::size_t nul = wide.find(u'\0');
        if (nul != std::u16string::npos)
            wide.resize(nul);
        text = CString(std::u16string_view(wide));
        return ar;
    }
    std::string narrow = ReadPayload<std::string>(ar, units);
    const std::size_t nul = narrow.find('\0');
    if (nul != std::string::npos)
        narrow.resize(nul);
    text.Empty();
    if (!narrow.empty()) {
        const int n = static_cast<int>(narrow.size());
        std::u16string wide(narrow.size(), u'\0');
        const int got = MultiByteToWideChar(CP_ACP, 0, narrow.data(), n, wide.data(), n);
        wide.resize(static_cast<std::size_t>(std::max(got, 0)));
        text = CString(std::u16string_view(wide));
    }
    return ar;
}
