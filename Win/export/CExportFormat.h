// The settings of one delimited text export and the rule that turns one
// cell's text into the characters written to the file.
#pragma once

#include <afx.h>

class CExportFormat {
public:
    CExportFormat();
    CExportFormat(const CExportFormat& other);
    CExportFormat& operator=(const CExportFormat& other);
    ~CExportFormat();

    CString GetDelimiter() const { return m_delimiter; }
    CString GetQuote() const { return m_quote; }
    CString GetFilename() const { return m_filename; }
    int GetTitles() const { return m_titles; }

    void SetDelimiter(const CString& delimiter) { m_delimiter = delimiter; }
    void SetQuote(const CString& quote) { m_quote = quote; }
    void SetTitles(int titles) { m_titles = titles; }
    // A name ending in ".csv" (any case) switches on comma-separated mode for
    // good; other names leave the mode as it is.
    void SetFilename(const CString& filename);

    // The field as it goes into the file: qualifier, data, qualifier, with the
    // delimiter in front unless it is the first field of its line.
    CString FormatData(CString data, bool first) const;

    // Which fields a loaded archive holds follows from the archive's schema
    // (CSchemaManager); storing always writes them all.
    void Serialize(CArchive& ar);

    // String resources holding the host's display names for the tab
    // delimiter, the space delimiter and "no qualifier".
    static constexpr UINT IDS_DELIMITER_TAB = 692;
    static constexpr UINT IDS_DELIMITER_SPACE = 693;
    static constexpr UINT IDS_QUALIFIER_NONE = 694;

    BOOL m_append;
    BOOL m_dateInFileName;
    BOOL m_titlesShown;

private:
    CString m_delimiter;
    CString m_quote;
    CString m_filename;
    int m_titles;

public:
    // Comma-separated mode: FormatData then uses "," and a double quote for
    // fields holding a comma. Never archived.
    BOOL m_csv;
};
