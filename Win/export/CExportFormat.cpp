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

CString CExportFormat::FormatData(CString data, bool first) const {
    // The delimiter and qualifier in use; the members themselves never change.
    const CString* delimiter = &m_delimiter;
    const CString* quote = &m_quote;
    if (m_csv == 1) {
        delimiter = &kComma;
        quote = data.Find(u',') >= 0 ? &kDoubleQuote : &kNone;
    }
    if (*delimiter == CResourceString(IDS_DELIMITER_TAB))
        delimiter = &kTab;
    if (*delimiter == CResourceString(IDS_DELIMITER_SPACE))
        delimiter = &kSpace;
    if (*quote == CResourceString(IDS_QUALIFIER_NONE))
        quote = &kNone;

    CString result;
    result.Preallocate((first ? 0 : delimiter->GetLength()) + 2 * quote->GetLength() +
                       data.GetLength());
    if (!first)
        result.Append(delimiter->GetString(), delimiter->GetLength());
    result.Append(quote->GetString(), quote->GetLength());
    result.Append(data.GetString(), data.GetLength());
    result.Append(quote->GetString(), quote->GetLength());
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
    ar >> m_delimiter >> m_quote >> m_filename;
    m_titles = ReadFlag(ar, schema);
    if (schema >= kSchemaAppend)
        m_append = ReadFlag(ar, schema);
    if (schema >= kSchemaDateInFileName)
        m_dateInFileName = ReadFlag(ar, schema);
    if (schema >= kSchemaTitlesShown)
        m_titlesShown = ReadFlag(ar, schema);
}
