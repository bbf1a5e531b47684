// The settings of one delimited text export and the rule that turns one
// cell's text into the characters written to the file.
#pragma once

#include <afxwin.h>

#include <string>

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

    void SetDelimiter(const CString& delimiter) {
        m_delimiter = delimiter;
        m_resolved.generation = 0;
    }
    void SetQuote(const CString& quote) {
        m_quote = quote;
        m_resolved.generation = 0;
    }
    void SetTitles(int titles) { m_titles = titles; }
    // A name ending in ".csv" (any case) switches on comma-separated mode for
    // good; other names leave the mode as it is.
    void SetFilename(const CString& filename);

    // The field as it goes into the file: qualifier, data, qualifier, with the
    // delimiter in front unless it is the first field of its line.
    CString FormatData(CString data, bool first) const;
    // The same characters appended to out, so a writer can reuse one buffer.
    void AppendFormatted(const CString& data, bool first, CString& out) const;
    // The delimiter and the qualifier that FormatData puts around data.
    void Separators(const CString& data, const CString*& delimiter, const CString*& quote) const {
        Separators(data.GetString(), static_cast<std::size_t>(data.GetLength()), delimiter, quote);
    }
    void Separators(const WCHAR* data, std::size_t length, const CString*& delimiter,
                    const CString*& quote) const {
        const Resolved& resolved = Resolve();
        delimiter = &resolved.delimiter;
        if (m_csv != 1)
            quote = &resolved.quote;
        else if (length && std::char_traits<WCHAR>::find(data, length, u','))
            quote = &resolved.quoteWithComma;
        else
            quote = &resolved.none;
    }

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
    // The settings dialog exchanges the name and the titles flag directly.
    friend class CExportFormatDlg;

    // The delimiter and qualifiers in use after mapping the host's display
    // names for tab, space and no qualifier. The names come from the string
    // table, so they are kept only while the resource tables and the settings
    // they were worked out from stay the same.
    struct Resolved {
        unsigned generation = 0; // 0: not worked out
        BOOL csv = 0;
        CString delimiter;
        CString quote;          // outside comma-separated mode
        CString quoteWithComma; // in comma-separated mode, for a field holding a comma
        CString none;           // in comma-separated mode, for any other field
    };
    const Resolved& Resolve() const {
        if (m_resolved.generation == platform::ResourceGeneration() && m_resolved.csv == m_csv)
            return m_resolved;
        return ResolveAgain();
    }
    const Resolved& ResolveAgain() const;

    mutable Resolved m_resolved;
    CString m_delimiter;
    CString m_quote;
    CString m_filename;
    int m_titles;

public:
    // Comma-separated mode: FormatData then uses "," and a double quote for
    // fields holding a comma. Never archived.
    BOOL m_csv;
};
