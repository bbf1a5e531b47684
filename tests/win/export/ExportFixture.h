// Shared set-up for the export tests: the host's display names in the string
// table and a pinned clock.
#pragma once

#include "Win/export/CExportFile.h"
#include "Win/export/CExportFormat.h"

#include <afxwin.h>

#include "platform/Clock.h"
#include "platform/ResourceModule.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

class ExportTest : public ::testing::Test {
protected:
    void SetUp() override {
        auto& strings = platform::Resources(AfxGetResourceHandle());
        strings.SetString(692, u"<Tab>");
        strings.SetString(693, u"<Space>");
        strings.SetString(694, u"<None>");
        platform::PinLocalClock(2024, 3, 5, 14, 30);
    }
    void TearDown() override {
        platform::ReleaseResources(AfxGetResourceHandle());
        platform::UnpinClock();
    }

    static std::string ReadAll(const std::filesystem::path& path) {
        std::ifstream in(path, std::ios::binary);
        return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    }
    static CString Name(const std::filesystem::path& path) {
        return platform::FromUtf8(path.string());
    }
    // A format writing to dir/name with the given delimiter and qualifier.
    static CExportFormat Format(const std::filesystem::path& path, const CString& delimiter,
                                const CString& quote) {
        CExportFormat format;
        format.SetFilename(Name(path));
        format.SetDelimiter(delimiter);
        format.SetQuote(quote);
        return format;
    }
};
