// Writes one delimited text file from a CExportFormat: opens it (replacing it,
// or appending under a dated header line), writes fields and line ends, and
// closes it.
#pragma once

#include "Win/export/CExportFormat.h"

#include <afx.h>

#include <cstddef>
#include <memory>
#include <string>

class CExportFile {
public:
    // Either flag, when true, appends as the format's m_append does.
    CExportFile(const CExportFormat& format, bool forceAppend1 = false, bool forceAppend2 = false);
    ~CExportFile();
    CExportFile(const CExportFile&) = delete;
    CExportFile& operator=(const CExportFile&) = delete;

    // False, with GetError() describing why, when the file cannot be opened.
    bool Open(bool binary);
    // UTF-8 field with delimiter and qualifier; a field that cannot be
    // converted is skipped.
    void WriteField(const CString& text);
    // The same for length units of text, which need not be terminated: a
    // writer reading cells into a buffer of its own needs no CString per cell.
    void WriteField(const WCHAR* text, int length);
    void WriteField(int value);
    void WriteNewline();
    // The text and a line feed, as they stand.
    void WriteLine(const CString& text);
    void WriteStream(const CString& text);
    // Write and close failures throw CFileException*.
    void Close();
    CString GetError() const { return m_error; }

private:
    // Writes a field that is not plain ASCII: formatted, then converted to UTF-8.
    void WriteConverted(const CString& text);
    // Gives the fields gathered so far to the file.
    void FlushPending();

    CExportFormat m_format;
    CString m_error;
    CStdioFile m_file;
    bool m_atLineStart;
    bool m_forceAppend1;
    bool m_forceAppend2;
    // Plain ASCII fields and line feeds gather in a block before they go to
    // the file, which spares a call into it for every field.
    static constexpr std::size_t kPendingBlock = 8192;
    std::unique_ptr<char[]> m_pending;
    std::size_t m_pendingUsed = 0;
    // Reused by every field that needs a conversion.
    CString m_field;
    std::string m_bytes;
};
