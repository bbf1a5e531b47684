#include "Win/export/CExportFile.h"

#include "Win/utils/WinUtils.h"

#include <Utils.h>

#include <new>
#include <string>

CExportFile::CExportFile(const CExportFormat& format, bool forceAppend1, bool forceAppend2)
    : m_format(format), m_atLineStart(true), m_forceAppend1(forceAppend1),
      m_forceAppend2(forceAppend2), m_pending(new char[kPendingBlock]) {}

CExportFile::~CExportFile() {
    try {
        Close();
    } catch (CException* e) {
        e->Delete();
    }
}

bool CExportFile::Open(bool binary) {
    CString name = m_format.GetFilename();
    if (m_format.m_dateInFileName) {
        WinUtils::AppendDateToFileName(name);
        m_format.SetFilename(name);
    }
    const bool append = m_format.m_append || m_forceAppend1 || m_forceAppend2;

    UINT flags = CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive |
                 (binary ? CFile::typeBinary : CFile::typeText);
    if (append)
        flags |= CFile::modeNoTruncate;
    CFileException error;
    if (!m_file.Open(name, flags, &error)) {
        WCHAR text[256];
        error.GetErrorMessage(text, 256);
        m_error = text;
        return false;
    }
    if (!append)
        return true;

    m_file.SeekToEnd();
    WriteNewline();
    CString header = CTime::GetCurrentTime().Format(Utils::GetDefaultDateFormatSpecifier());
    // The time of day on a 12-hour clock whose hours run from 0 to 11.
    const CTime now = CTime::GetCurrentTime();
    CString time;
    if (now.GetHour() < 12)
        time.Format(u"  %d:%02d AM  -  Data Export", now.GetHour(), now.GetMinute());
    else
        time.Format(u"  %d:%02d PM  -  Data Export", now.GetHour() - 12, now.GetMinute());
    WriteLine(header + time);
    WriteNewline();
    return true;
}

namespace {
// Copies units as bytes and says whether they were all plain ASCII other than
// U+0000, for which the UTF-8 bytes are the code units themselves.
bool CopyAscii(const WCHAR* from, std::size_t length, char* to) {
    unsigned other = 0;
    for (std::size_t i = 0; i < length; ++i) {
        const unsigned unit = from[i];
        other |= static_cast<unsigned>(unit - 1 >= 0x7F);
        to[i] = static_cast<char>(unit);
    }
    return other == 0;
}
} // namespace

void CExportFile::WriteField(const CString& text) {
    WriteField(text.GetString(), text.GetLength());
}

void CExportFile::WriteField(const WCHAR* text, int length) {
    const std::size_t textLength = length > 0 && text ? static_cast<std::size_t>(length) : 0;
    const CString* delimiter = nullptr;
    const CString* quote = nullptr;
    m_format.Separators(text, textLength, delimiter, quote);
    const std::size_t delimiterLength =
        m_atLineStart ? 0 : static_cast<std::size_t>(delimiter->GetLength());
    const std::size_t quoteLength = static_cast<std::size_t>(quote->GetLength());
    const std::size_t total = delimiterLength + 2 * quoteLength + textLength;
    if (kPendingBlock - m_pendingUsed < total)
        FlushPending();
    if (total <= kPendingBlock - m_pendingUsed && m_file.IsOpen()) {
        char* out = m_pending.get() + m_pendingUsed;
        bool ascii = CopyAscii(delimiter->GetString(), delimiterLength, out);
        out += delimiterLength;
        ascii &= CopyAscii(quote->GetString(), quoteLength, out);
        out += quoteLength;
        ascii &= CopyAscii(text, textLength, out);
        ascii &= CopyAscii(quote->GetString(), quoteLength, out + textLength);
        if (ascii) {
            m_pendingUsed += total;
            m_atLineStart = false;
            return;
        }
    }
    WriteConverted(CString(text, static_cast<int>(textLength)));
}

void CExportFile::WriteConverted(const CString& text) {
    FlushPending();
    m_field.Empty(); // keeps its storage from the previous field
    m_format.AppendFormatted(text, m_atLineStart, m_field);
    // Converted as a terminated string, so a field holding U+0000 ends there.
    // Three bytes per UTF-16 unit always suffice.
    const std::size_t capacity = static_cast<std::size_t>(m_field.GetLength()) * 3 + 1;
    if (m_bytes.size() < capacity) {
        try {
            m_bytes.resize(capacity);
        } catch (const std::bad_alloc&) {
            return;
        }
    }
    const int converted = WideCharToMultiByte(CP_UTF8, 0, m_field, -1, m_bytes.data(),
                                              static_cast<int>(capacity), nullptr, nullptr);
    if (converted <= 0)
        return;
    m_file.Write(m_bytes.data(), static_cast<UINT>(converted - 1)); // without the terminator
    m_atLineStart = false;
}

void CExportFile::FlushPending() {
    if (m_pendingUsed == 0)
        return;
    const UINT size = static_cast<UINT>(m_pendingUsed);
    m_pendingUsed = 0; // dropped even when the write fails, so no later flush repeats it
    m_file.Write(m_pending.get(), size);
}

void CExportFile::WriteField(int value) {
    CString text;
    text.Format(u"%d", value);
    WriteField(text);
}

void CExportFile::WriteNewline() {
    // As WriteString writes it: text mode turns the line feed into CR LF,
    // binary mode writes the unit's two bytes.
    if (kPendingBlock - m_pendingUsed < 2 || !m_file.IsOpen()) {
        FlushPending();
        m_file.WriteString(u"\n");
    } else {
        m_pending[m_pendingUsed++] = '\n';
        if (!m_file.IsTextMode())
            m_pending[m_pendingUsed++] = '\0';
    }
    m_atLineStart = true;
}

void CExportFile::WriteLine(const CString& text) {
    FlushPending();
    m_file.WriteString(text + u"\n");
}

void CExportFile::WriteStream(const CString& text) {
    FlushPending();
    m_file.WriteString(text);
}

void CExportFile::Close() {
    FlushPending();
    m_file.Close();
}
