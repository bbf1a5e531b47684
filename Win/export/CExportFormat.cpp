#include "Win/export/CExportFormat.h"

#include "Win/framework/CSchemaManager.h"
#include "Win/utils/CResourceString.h"

#include <Utils.h>

namespace {
// Schemas from which an archive holds each optional field.
constexpr int kSchemaAppend = 0x109;
constexpr int kSchemaDateInFileName = 0x200;
constexpr int kSchemaTitlesShown = 0x210;
// Below this schema the flags were stored as 0 or 1 only.
constexpr int kSchemaRawFlags = 0x406;

const CString kComma(u","), kDoubleQuote(u"\""), kTab(u"\t"), kSpace(u" "), kNone;
} // namespace

CExportFormat::CExportFormat()
    : m_titlesShown(0), m_delimiter(Utils::GetDefaultFieldDelimiter()),
      m_quote(Utils::GetDefaultTextQualifier()), m_titles(1), m_csv(0) {
    // Assigned directly, not through SetFilename: a new format is never in
    // comma-separated mode.
    m_filename = Utils::GetDefaultExportDir() + u"export.txt";
    m_append = 0;
    m_dateInFileName = 0;
}

CExportFormat::CExportFormat(const CExportFormat& other) = default;
CExportFormat& CExportFormat::operator=(const CExportFormat& other) = default;
CExportFormat::~CExportFormat() = default;

void CExportFormat::SetFilename(const CString& filename) {
    m_filename = filename;
    if (m_filename.Right(4).CompareNoCase(u".csv") == 0)
        m_csv = 1;
}

const CExportFormat::Resolved& CExportFormat::ResolveAgain() const {
    const unsigned generation = platform::ResourceGeneration();
    const CResourceString tab(IDS_DELIMITER_TAB), space(IDS_DELIMITER_SPACE),
        none(IDS_QUALIFIER_NONE);
    const CString& delimiter = m_csv == 1 ? kComma : m_delimiter;
    m_resolved.delimiter = delimiter == tab ? kTab : delimiter;
    if (m_resolved.delimiter == space)
        m_resolved.delimiter = kSpace;
    m_resolved.quote = m_quote == none ? kNone : m_quote;
    m_resolved.quoteWithComma = kDoubleQuote == none ? kNone : kDoubleQuote;
    m_resolved.csv = m_csv;
    m_resolved.generation = generation;
    return m_resolved;
}

void CExportFormat::AppendFormatted(const CString& data, bool first, CString& out) const {
    const CString* delimiter = nullptr;
    const CString* quote = nullptr;
    Separators(data, delimiter, quote);
    if (!first)
        out.Append(delimiter->GetString(), delimiter->GetLength());
    out.Append(quote->GetString(), quote->GetLength());
    out.Append(data.GetString(), data.GetLength());
    out.Append(quote->GetString(), quote->GetLength());
}

CString CExportFormat::FormatData(CString data, bool first) const {
    CString result;
    AppendFormatted(data, first, result);
    return result;
}

namespace {
// Older schemas kept the flags as 0 or 1.
int ReadFlag(CArchive& ar, int schema) {
    int value = 0;
    ar >> value;
    return schema < kSchemaRawFlags ? (value != 0 ? 1 : 0) : value;
}
} // namespace

void CExportFormat::Serialize(CArchive& ar) {
    if (ar.IsStoring()) {
        ar << m_delimiter << m_quote << m_filename;
        ar << m_titles << m_append << m_dateInFileName << m_titlesShown;
        return;
    }
    const int schema = CSchemaManager::Instance().GetArchiveSchema();
    m_resolved.generation = 0;
    ar >> m_delimiter >> m_quote >> m_filename;
    m_titles = ReadFlag(ar, schema);
    if (schema >= kSchemaAppend)
        m_append = ReadFlag(ar, schema);
    if (schema >= kSchemaDateInFileName)
        m_dateInFileName = ReadFlag(ar, schema);
    if (schema >= kSchemaTitlesShown)
        m_titlesShown = ReadFlag(ar, schema);
}
