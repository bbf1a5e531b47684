#include "ExportFixture.h"

#include "Win/framework/CSchemaManager.h"
#include "support/ArchiveImage.h"

#include <Utils.h>

#include <cstdlib>
#include <vector>

namespace {

using testing_support::Bytes;

Bytes Store(CExportFormat& format, int schema) {
    CSchemaManager::Instance().SetCurrentSchema(schema);
    return testing_support::StoreToBytes([&](CArchive& ar) {
        CSchemaManager::Instance().Serialize(ar);
        format.Serialize(ar);
    });
}

// Loads the schema header and a format from bytes, as a host does.
void Load(Bytes bytes, CExportFormat& format, int current = 0x500) {
    CSchemaManager::Instance().SetCurrentSchema(current);
    CMemFile file(bytes.data(), static_cast<UINT>(bytes.size()));
    CArchive ar(&file, CArchive::load);
    CSchemaManager::Instance().Serialize(ar);
    format.Serialize(ar);
}

// Schema header, the three strings "," "\"" "a.csv", then the given ints.
Bytes Image(int schema, std::initializer_list<int> ints) {
    Bytes b = {0xBA, 0xAB, 0xAD, 0xDE};
    for (int i = 0; i < 4; ++i)
        b.push_back(static_cast<BYTE>(static_cast<unsigned>(schema) >> (8 * i)));
    const Bytes strings = {0xFF, 0xFE, 0xFF, 0x01, 0x2C, 0x00, 0xFF, 0xFE, 0xFF,
                           0x01, 0x22, 0x00, 0xFF, 0xFE, 0xFF, 0x05, 0x61, 0x00,
                           0x2E, 0x00, 0x63, 0x00, 0x73, 0x00, 0x76, 0x00};
    b.insert(b.end(), strings.begin(), strings.end());
    for (int v : ints)
        for (int i = 0; i < 4; ++i)
            b.push_back(static_cast<BYTE>(static_cast<unsigned>(v) >> (8 * i)));
    return b;
}

// A format whose flags all hold 9, to see which ones a load replaces.
CExportFormat Marked() {
    CExportFormat f;
    f.SetTitles(9);
    f.m_append = f.m_dateInFileName = f.m_titlesShown = 9;
    return f;
}

} // namespace

using ExportFormat = ExportTest;

TEST_F(ExportFormat, Defaults) {
    CExportFormat f;
    EXPECT_EQ(f.GetTitles(), 1);
    EXPECT_EQ(f.m_append, 0);
    EXPECT_EQ(f.m_dateInFileName, 0);
    EXPECT_EQ(f.m_titlesShown, 0);
    EXPECT_EQ(f.m_csv, 0);
    EXPECT_EQ(f.GetDelimiter(), Utils::GetDefaultFieldDelimiter());
    EXPECT_EQ(f.GetQuote(), Utils::GetDefaultTextQualifier());
    EXPECT_EQ(f.GetFilename(), Utils::GetDefaultExportDir() + u"export.txt");
}

TEST_F(ExportFormat, CsvModeFollowsTheFileNameOnlyOneWay) {
    CExportFormat f;
    f.SetFilename(u"/data/DATA.CSV");
    EXPECT_EQ(f.m_csv, 1);
    f.SetFilename(u"/data/next.txt");
    EXPECT_EQ(f.m_csv, 1);

    CExportFormat g;
    g.SetFilename(u"/data/a.csv.bak");
    EXPECT_EQ(g.m_csv, 0);
    g.SetFilename(u"csv");
    EXPECT_EQ(g.m_csv, 0);

    CExportFormat copy(f);
    EXPECT_EQ(copy.m_csv, 1);
    g = f;
    EXPECT_EQ(g.m_csv, 1);
    EXPECT_EQ(g.GetFilename(), CString(u"/data/next.txt"));
}

TEST_F(ExportFormat, FormatDataPlacesDelimiterAndQualifier) {
    CExportFormat f;
    f.SetDelimiter(u";");
    f.SetQuote(u"");
    EXPECT_EQ(f.FormatData(u"text", true), CString(u"text"));
    f.SetQuote(u"\"");
    EXPECT_EQ(f.FormatData(u"", false), CString(u";\"\""));
    // Nothing inside the data is escaped.
    EXPECT_EQ(f.FormatData(u"say \"hi\";\n", false), CString(u";\"say \"hi\";\n\""));
    f.SetDelimiter(u"::");
    f.SetQuote(u"'");
    EXPECT_EQ(f.FormatData(u"x", false), CString(u"::'x'"));
}

TEST_F(ExportFormat, DisplayNamesBecomeTabSpaceAndNoQualifier) {
    CExportFormat f;
    f.SetDelimiter(u"<Tab>");
    f.SetQuote(u"'");
    EXPECT_EQ(f.FormatData(u"a b", false), CString(u"\t'a b'"));
    f.SetDelimiter(u"<Space>");
    f.SetQuote(u"<None>");
    EXPECT_EQ(f.FormatData(u"a", false), CString(u" a"));
    // The names compare case-sensitively.
    f.SetDelimiter(u"<tab>");
    EXPECT_EQ(f.FormatData(u"a", false), CString(u"<tab>a"));
}

TEST_F(ExportFormat, CsvModeQuotesOnlyFieldsWithCommas) {
    CExportFormat f;
    f.SetDelimiter(u"<Tab>");
    f.SetQuote(u"'");
    f.SetFilename(u"out.csv");
    EXPECT_EQ(f.FormatData(u"1,5", false), CString(u",\"1,5\""));
    EXPECT_EQ(f.FormatData(u"15", true), CString(u"15"));
    EXPECT_EQ(f.FormatData(u"a\"b\nc", false), CString(u",a\"b\nc"));
    // Only exactly 1 counts as comma-separated mode.
    f.m_csv = 2;
    EXPECT_EQ(f.FormatData(u"1,5", false), CString(u"\t'1,5'"));
    // The forced values are compared with the display names like any other.
    platform::Resources(AfxGetResourceHandle()).SetString(692, u",");
    f.m_csv = 1;
    EXPECT_EQ(f.FormatData(u"x", false), CString(u"\tx"));
}

TEST_F(ExportFormat, StringTableChangesBetweenCallsTakeEffect) {
    CExportFormat f;
    f.SetDelimiter(u"<Tab>");
    f.SetQuote(u"<None>");
    EXPECT_EQ(f.FormatData(u"a", false), CString(u"\ta"));
    auto& strings = platform::Resources(AfxGetResourceHandle());
    strings.SetString(692, u"TAB");
    strings.SetString(694, u"'");
    EXPECT_EQ(f.FormatData(u"a", false), CString(u"<Tab><None>a<None>"));
    f.SetQuote(u"'");
    EXPECT_EQ(f.FormatData(u"a", false), CString(u"<Tab>a"));
    strings.RemoveString(694);
    EXPECT_EQ(f.FormatData(u"a", false), CString(u"<Tab>'a'"));
    // A copy made before a change follows the change too.
    CExportFormat copy(f);
    strings.SetString(692, u"<Tab>");
    EXPECT_EQ(copy.FormatData(u"a", false), CString(u"\t'a'"));

    // Another resource module in front of the table.
    char other = 0;
    const HINSTANCE own = AfxGetResourceHandle();
    AfxSetResourceHandle(reinterpret_cast<HINSTANCE>(&other));
    platform::Resources(reinterpret_cast<HINSTANCE>(&other)).SetString(692, u"\u2192");
    EXPECT_EQ(f.FormatData(u"a", false), CString(u"<Tab>'a'"));
    f.SetDelimiter(u"\u2192");
    EXPECT_EQ(f.FormatData(u"a", false), CString(u"\t'a'"));
    platform::ReleaseResources(reinterpret_cast<HINSTANCE>(&other));
    AfxSetResourceHandle(own);
    EXPECT_EQ(f.FormatData(u"a", false), CString(u"\u2192'a'"));
}

TEST_F(ExportFormat, StoredImageIsByteExact) {
    CExportFormat f;
    f.SetDelimiter(u",");
    f.SetQuote(u"\"");
    f.SetFilename(u"a.csv");
    f.SetTitles(1);
    f.m_append = 0;
    f.m_dateInFileName = 1;
    f.m_titlesShown = 0;
    const Bytes expected = {
        0xBA, 0xAB, 0xAD, 0xDE, 0x10, 0x02, 0x00, 0x00, // magic, schema 0x210
        0xFF, 0xFE, 0xFF, 0x01, 0x2C, 0x00,             // ","
        0xFF, 0xFE, 0xFF, 0x01, 0x22, 0x00,             // "\""
        0xFF, 0xFE, 0xFF, 0x05, 0x61, 0x00, 0x2E, 0x00, 0x63, 0x00, 0x73,
        0x00, 0x76, 0x00, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, // titles 1, append 0
        0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, // date in name 1, titles shown 0
    };
    EXPECT_EQ(Store(f, 0x210), expected);
}

TEST_F(ExportFormat, LoadingReadsTheFieldsOfTheArchiveSchema) {
    struct Case {
        int schema;
        int titles, append, dateInName, titlesShown;
        std::size_t left; // bytes the load leaves unread
    };
    // Each stored int is 5; later fields keep the marker 9 when not read.
    const Case cases[] = {
        {264, 1, 9, 9, 9, 12}, {265, 1, 1, 9, 9, 8}, {511, 1, 1, 9, 9, 8},  {512, 1, 1, 1, 9, 4},
        {527, 1, 1, 1, 9, 4},  {528, 1, 1, 1, 1, 0}, {1029, 1, 1, 1, 1, 0}, {1030, 5, 5, 5, 5, 0},
    };
    for (const Case& c : cases) {
        Bytes bytes = Image(c.schema, {5, 5, 5, 5});
        CSchemaManager::Instance().SetCurrentSchema(0x500);
        CMemFile file(bytes.data(), static_cast<UINT>(bytes.size()));
        CArchive ar(&file, CArchive::load);
        CSchemaManager::Instance().Serialize(ar);
        CExportFormat f = Marked();
        f.Serialize(ar);
        EXPECT_EQ(f.GetDelimiter(), CString(u",")) << c.schema;
        EXPECT_EQ(f.GetQuote(), CString(u"\"")) << c.schema;
        EXPECT_EQ(f.GetFilename(), CString(u"a.csv")) << c.schema;
        EXPECT_EQ(f.GetTitles(), c.titles) << c.schema;
        EXPECT_EQ(f.m_append, c.append) << c.schema;
        EXPECT_EQ(f.m_dateInFileName, c.dateInName) << c.schema;
        EXPECT_EQ(f.m_titlesShown, c.titlesShown) << c.schema;
        EXPECT_EQ(f.m_csv, 0) << c.schema; // never archived, even for a .csv name
        EXPECT_EQ(ar.GetRemaining(), c.left) << c.schema;
    }
}

TEST_F(ExportFormat, RoundTripKeepsEverythingButCsvMode) {
    CExportFormat f;
    f.SetDelimiter(u"<Tab>");
    f.SetQuote(u"\u00ab");
    f.SetFilename(u"/home/u/r\u00e9sum\u00e9.csv");
    f.SetTitles(0);
    f.m_append = 1;
    f.m_titlesShown = 1;
    const Bytes bytes = Store(f, 0x600);
    CExportFormat g;
    g.m_csv = 7;
    Load(bytes, g, 0x600);
    EXPECT_EQ(g.GetDelimiter(), f.GetDelimiter());
    EXPECT_EQ(g.GetQuote(), f.GetQuote());
    EXPECT_EQ(g.GetFilename(), f.GetFilename());
    EXPECT_EQ(g.GetTitles(), 0);
    EXPECT_EQ(g.m_append, 1);
    EXPECT_EQ(g.m_dateInFileName, 0);
    EXPECT_EQ(g.m_titlesShown, 1);
    EXPECT_EQ(g.m_csv, 7);
}

TEST_F(ExportFormat, TruncatedArchiveKeepsWhatWasRead) {
    Bytes bytes = Image(528, {0, 1});
    CExportFormat f = Marked();
    try {
        Load(bytes, f);
        FAIL() << "no exception";
    } catch (CArchiveException* e) {
        EXPECT_EQ(e->m_cause, CArchiveException::endOfFile);
        e->Delete();
    }
    EXPECT_EQ(f.GetFilename(), CString(u"a.csv"));
    EXPECT_EQ(f.GetTitles(), 0);
    EXPECT_EQ(f.m_append, 1);
    EXPECT_EQ(f.m_dateInFileName, 9);
}

TEST_F(ExportFormat, NewerOrForeignArchivesAreRefusedBeforeTheFormat) {
    CExportFormat f = Marked();
    Bytes newer = Image(0x700, {5, 5, 5, 5});
    Bytes foreign = newer;
    foreign[0] = 0x00;
    for (Bytes* bytes : {&newer, &foreign}) {
        try {
            Load(*bytes, f, 0x600);
            FAIL() << "no exception";
        } catch (CArchiveException* e) {
            EXPECT_EQ(e->m_cause, CArchiveException::badIndex);
            e->Delete();
        }
    }
    EXPECT_EQ(f.GetTitles(), 9);
}
