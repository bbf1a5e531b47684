// An export host: registers its string table, then writes a small table with
// titles through CExportFile, first replacing the file and then appending to
// it under a dated header: comma-separated (".csv", qualifiers where a field
// holds a comma), comma-separated with every field qualified, and tab-separated.
#include <Win/Win.h>

#include "platform/ResourceModule.h"

#include <cstdio>
#include <string>

namespace {

// The host's display names for the tab and space delimiters and for "no
// qualifier", as its export dialog offers them.
void RegisterStrings() {
    platform::ResourceModule& strings = platform::Resources(AfxGetResourceHandle());
    strings.SetString(CExportFormat::IDS_DELIMITER_TAB, u"<Tab>");
    strings.SetString(CExportFormat::IDS_DELIMITER_SPACE, u"<Space>");
    strings.SetString(CExportFormat::IDS_QUALIFIER_NONE, u"<None>");
}

struct Row {
    const char16_t* name;
    const char16_t* city;
    int quantity;
    const char16_t* note;
};

const char16_t* const kTitles[] = {u"Name", u"City", u"Quantity", u"Note"};
const Row kRows[] = {
    {u"Ada", u"London", 12, u"first order"},
    {u"Jos\u00e9", u"S\u00e3o Paulo", -3, u"returned, refunded"},
    {u"Zo\u00eb", u"Z\u00fcrich", 250, u"says \"urgent\""},
    {u"Li Wei", u"\u5317\u4eac", 7, u""},
};

// Writes the table; false (with the reason printed) when the file cannot be opened.
bool Export(const CExportFormat& format, bool append) {
    CExportFile file(format, append);
    if (!file.Open(false)) {
        std::fprintf(stderr, "export failed: %s\n",
                     platform::ToUtf8(file.GetError().Str()).c_str());
        return false;
    }
    if (format.GetTitles()) {
        for (const char16_t* title : kTitles)
            file.WriteField(CString(title));
        file.WriteNewline();
    }
    for (const Row& row : kRows) {
        file.WriteField(CString(row.name));
        file.WriteField(CString(row.city));
        file.WriteField(row.quantity);
        file.WriteField(CString(row.note));
        file.WriteNewline();
    }
    file.Close();
    return true;
}

} // namespace

int main(int argc, char** argv) {
    const std::string out = argc > 1 ? argv[1] : ".";
    RegisterStrings();

    CExportFormat comma;
    comma.SetFilename(platform::FromUtf8(out + "/export-comma.csv"));
    // The default delimiter and qualifier on a plain name: every field quoted.
    CExportFormat quoted;
    quoted.SetFilename(platform::FromUtf8(out + "/export-quoted.txt"));
    CExportFormat tab;
    tab.SetFilename(platform::FromUtf8(out + "/export-tab.txt"));
    tab.SetDelimiter(u"<Tab>");
    tab.SetQuote(u"<None>");

    bool ok = true;
    for (const CExportFormat* format : {&comma, &quoted, &tab}) {
        ok = Export(*format, false) && ok; // replace
        ok = Export(*format, true) && ok;  // append under a dated header
        std::printf("wrote %s\n", platform::ToUtf8(format->GetFilename().Str()).c_str());
    }
    return ok ? 0 : 1;
}
