#include "Win/export/CExportFile.h"

#include "Win/utils/WinUtils.h"

#include <Utils.h>

#include <cstring>
#include <string>

CExportFile::CExportFile(const CExportFormat& format, bool forceAppend1, bool forceAppend2)
    : m_format(format), m_atLineStart(true), m_forceAppend1(forceAppend1),
      m_forceAppend2(forceAppend2) {}

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

void CExportFile::WriteField(const CString& text) {
    const CString field = m_format.FormatData(text, m_atLineStart);
    // Converted as a terminated string, so a field holding U+0000 ends there.
    // Three bytes per UTF-16 unit always suffice; short fields need no heap.
    const std::size_t capacity = static_cast<std::size_t>(field.GetLength()) * 3 + 1;
    char local[1024];
    std::string heap;
    char* bytes = local;
    if (capacity > sizeof local) {
        try {
            heap.resize(capacity);
        } catch (const std::bad_alloc&) {
            return;
        }
        bytes = heap.data();
    }
    const int converted = WideCharToMultiByte(CP_UTF8, 0, field, -1, bytes,
                                              static_cast<int>(capacity), nullptr, nullptr);
    if (converted <= 0)
        return;
    m_file.Write(bytes, static_cast<UINT>(converted - 1)); // without the terminator
    m_atLineStart = false;
}

void CExportFile::WriteField(int value) {
    CString text;
    text.Format(u"%d", value);
    WriteField(text);
}

void CExportFile::WriteNewline() {
    m_file.WriteString(u"\n");
    m_atLineStart = true;
}

void CExportFile::WriteLine(const CString& text) {
    m_file.WriteString(text + u"\n");
}

void CExportFile::WriteStream(const CString& text) {
    m_file.WriteString(text);
}

void CExportFile::Close() {
    m_file.Close();
}
