// A list's column layout kept in the application's profile file: what is
// written, when a saved layout is used and when the built-in one replaces
// it, and the message a malformed built-in layout gives.
#include "support/MessageBoxLook.h"
#include "support/TempDir.h"

#include <Win/Win.h>
#include <platform/Automation.h>
#include <platform/MessagePump.h>
#include <tchar.h>

#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

namespace automation = platform::automation;
using testing_support::LookAndConfirm;
using testing_support::MessageBoxLook;

constexpr UINT kListId = 400;
const char16_t kSection[] = u"FileList";
const char16_t kBuiltIn[] = u"Name;120;Size;60;Date;80;";
const char16_t kMessage[] = u"The list's built-in column layout is not valid.";

using Columns = std::vector<std::pair<std::u16string, int>>;

class ProfileApp : public CWinApp {
public:
    explicit ProfileApp(const std::filesystem::path& profile) : CWinApp(u"ListColumns") {
        free(const_cast<WCHAR*>(m_pszProfileName));
        m_pszProfileName = _wcsdup(profile.u16string().c_str());
    }
};

class ListColumnsTest : public ::testing::Test {
protected:
    void SetUp() override {
        automation::Reset();
        profile = testing_support::TestOutputDir("list-columns") / "host.ini";
        app = std::make_unique<ProfileApp>(profile);
        ASSERT_TRUE(parent.CreateEx(0, nullptr, u"files", WS_OVERLAPPED | WS_VISIBLE,
                                    CRect(0, 0, 500, 300), nullptr, 0));
        NewList();
    }
    void TearDown() override {
        // Every message the test expected was answered, and no other shown.
        EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
        EXPECT_EQ(automation::Pending(), 0u);
        automation::Reset();
        list.reset();
        parent.DestroyWindow();
        platform::PumpMessages();
        app.reset();
    }
    // A fresh empty list, as a host makes one in a new window.
    void NewList() {
        if (list)
            list->DestroyWindow();
        list = std::make_unique<CListCtrl>();
        ASSERT_TRUE(list->Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(10, 10, 490, 290),
                                 &parent, kListId));
        ::SetActiveWindow(parent.m_hWnd);
    }
    void Insert(const Columns& columns) {
        for (std::size_t i = 0; i < columns.size(); ++i)
            list->InsertColumn(static_cast<int>(i), columns[i].first.c_str(), LVCFMT_LEFT,
                               columns[i].second);
    }
    Columns Shown() const {
        Columns out;
        for (int i = 0;; ++i) {
            WCHAR text[256] = {};
            LVCOLUMN column{};
            column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;
            column.pszText = text;
            column.cchTextMax = 256;
            if (!list->GetColumn(i, &column))
                return out;
            EXPECT_EQ(column.fmt, LVCFMT_LEFT);
            EXPECT_EQ(column.iSubItem, i);
            out.emplace_back(text, column.cx);
        }
    }
    std::u16string Stored() const {
        WCHAR value[4096] = {};
        GetPrivateProfileStringW(kSection, u"ListColumns", u"<none>", value, 4096,
                                 profile.u16string().c_str());
        return value;
    }
    void Store(const std::u16string& value) {
        ASSERT_TRUE(WritePrivateProfileStringW(kSection, u"ListColumns", value.c_str(),
                                               profile.u16string().c_str()));
    }
    void Restore(const CString& builtIn = kBuiltIn) {
        WinUtils::RestoreListColumns(*list, kSection, builtIn);
    }

    std::filesystem::path profile;
    std::unique_ptr<ProfileApp> app;
    CWnd parent;
    std::unique_ptr<CListCtrl> list;
};

const Columns kBuiltInColumns = {{u"Name", 120}, {u"Size", 60}, {u"Date", 80}};

TEST_F(ListColumnsTest, SavingWritesEachHeadingAndWidthToTheProfileFile) {
    Insert({{u"Name", 120}, {u"Size", 60}});
    WinUtils::SaveListColumns(*list, kSection);
    std::ifstream in(profile, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_EQ(bytes, "[FileList]\r\nListColumns=Name;120;Size;60;\r\n");
}

TEST_F(ListColumnsTest, ASingleColumnIsNeverSaved) {
    Insert({{u"Only", 200}});
    WinUtils::SaveListColumns(*list, kSection);
    EXPECT_EQ(Stored(), u"<none>");
    NewList();
    WinUtils::SaveListColumns(*list, kSection); // no columns at all
    EXPECT_EQ(Stored(), u"<none>");
    Restore();
    EXPECT_EQ(Shown(), kBuiltInColumns);

    // A layout saved earlier stays.
    Store(u"Name;150;Size;70;Date;90;");
    NewList();
    Insert({{u"Only", 200}});
    WinUtils::SaveListColumns(*list, kSection);
    EXPECT_EQ(Stored(), u"Name;150;Size;70;Date;90;");
}

TEST_F(ListColumnsTest, AWidenedColumnComesBackAfterARestart) {
    Restore();
    EXPECT_EQ(Shown(), kBuiltInColumns);
    automation::DragHeaderDivider(kListId, 1, 45);
    platform::PumpMessages();
    while (automation::RunNext())
        platform::PumpMessages();
    WinUtils::SaveListColumns(*list, kSection);
    EXPECT_EQ(Stored(), u"Name;120;Size;105;Date;80;");

    // A new application object and a new list, as the next run of the host.
    app.reset();
    app = std::make_unique<ProfileApp>(profile);
    NewList();
    Restore();
    EXPECT_EQ(Shown(), (Columns{{u"Name", 120}, {u"Size", 105}, {u"Date", 80}}));
}

TEST_F(ListColumnsTest, OtherHeadingsInTheBuiltInLayoutReplaceTheSavedOne) {
    struct Case {
        const char16_t* builtIn;
        Columns columns;
    };
    const Case cases[] = {
        {u"Name;120;Bytes;60;Date;80;", {{u"Name", 120}, {u"Bytes", 60}, {u"Date", 80}}},
        {u"Name;120;Size;60;Date;80;Owner;50;",
         {{u"Name", 120}, {u"Size", 60}, {u"Date", 80}, {u"Owner", 50}}},
        {u"Name;120;Size;60;", {{u"Name", 120}, {u"Size", 60}}},
        {u"Size;60;Name;120;Date;80;", {{u"Size", 60}, {u"Name", 120}, {u"Date", 80}}},
        {u"name;120;Size;60;Date;80;", {{u"name", 120}, {u"Size", 60}, {u"Date", 80}}},
        {u"", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(platform::ToUtf8(c.builtIn));
        Store(u"Name;150;Size;70;Date;90;");
        NewList();
        Restore(c.builtIn);
        EXPECT_EQ(Shown(), c.columns);
    }
}

TEST_F(ListColumnsTest, TheSameHeadingsWithOtherWidthsAreUsedAsStored) {
    Store(u"Name;1;Size; 2 ;Date;0;");
    Restore();
    EXPECT_EQ(Shown(), (Columns{{u"Name", 1}, {u"Size", 2}, {u"Date", 0}}));
}

TEST_F(ListColumnsTest, AMalformedSavedLayoutIsIgnoredQuietly) {
    for (const char16_t* stored :
         {u"Name;150;Size;70;Date;90", u"Name;150;Size;x;Date;90;", u"Name;150;Size;70;Date;90;;",
          u"Name;150;Size;70;Date", u"Name;150;Size;99999999999;Date;90;"}) {
        SCOPED_TRACE(platform::ToUtf8(stored));
        Store(stored);
        NewList();
        Restore();
        EXPECT_EQ(Shown(), kBuiltInColumns);
    }
}

TEST_F(ListColumnsTest, LongHeadingsAreSavedCutTo63Characters) {
    const std::u16string heading(70, u'h');
    Insert({{heading, 100}, {u"Size", 60}});
    WinUtils::SaveListColumns(*list, kSection);
    EXPECT_EQ(Stored(), std::u16string(63, u'h') + u";100;Size;60;");

    // The full heading no longer matches: the built-in layout is used.
    const std::u16string full = heading + u";90;Size;50;";
    NewList();
    Restore(full.c_str());
    EXPECT_EQ(Shown(), (Columns{{heading, 90}, {u"Size", 50}}));
    // Against the cut heading, the saved widths are.
    const std::u16string cut = std::u16string(63, u'h') + u";90;Size;50;";
    NewList();
    Restore(cut.c_str());
    EXPECT_EQ(Shown(), (Columns{{std::u16string(63, u'h'), 100}, {u"Size", 60}}));
}

TEST_F(ListColumnsTest, AnEmptyBuiltInLayoutInsertsNothingAndSaysNothing) {
    Restore(CString());
    EXPECT_TRUE(Shown().empty());
}

TEST_F(ListColumnsTest, AMalformedBuiltInLayoutKeepsTheColumnsBeforeTheFault) {
    struct Case {
        const char16_t* builtIn;
        Columns columns;
    };
    const Case cases[] = {
        {u"Name;120;Size;x;Date;80;", {{u"Name", 120}}},
        {u"Name;120;Size;60", {{u"Name", 120}}}, // a column is inserted at its final ";"
        {u"Name;120;Size;60;Date", {{u"Name", 120}, {u"Size", 60}}},
        {u"Broken", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(platform::ToUtf8(c.builtIn));
        NewList();
        MessageBoxLook look;
        LookAndConfirm(look);
        Restore(c.builtIn);
        EXPECT_EQ(look.text, kMessage);
        EXPECT_TRUE(look.stopIcon);
        EXPECT_EQ(Shown(), c.columns);
    }
    // Stored exactly as the malformed built-in layout: the same message.
    Store(u"Name;120;Size;x;");
    NewList();
    MessageBoxLook look;
    LookAndConfirm(look);
    Restore(u"Name;120;Size;x;");
    EXPECT_EQ(look.text, kMessage);
    EXPECT_EQ(Shown(), (Columns{{u"Name", 120}}));
}

TEST_F(ListColumnsTest, ExtremeWidthsGoToTheList) {
    list->InsertItem(0, u"row");
    Restore(u"Wide;2147483647;Wider;2147483647;None;0;Negative;-5;");
    platform::PumpMessages(); // the list and its header paint the huge columns
    const Columns shown = Shown();
    ASSERT_EQ(shown.size(), 4u);
    EXPECT_EQ(shown[0], (std::pair<std::u16string, int>{u"Wide", INT_MAX}));
    EXPECT_EQ(shown[1].second, INT_MAX);
    EXPECT_EQ(shown[2].second, 0);
    EXPECT_EQ(shown[3].second, 0); // the list takes no negative width
}

TEST_F(ListColumnsTest, WithoutAnApplicationTheBuiltInLayoutIsUsedAndNothingSaved) {
    Store(u"Name;150;Size;70;Date;90;");
    app.reset();
    ASSERT_EQ(AfxGetApp(), nullptr);
    Restore();
    EXPECT_EQ(Shown(), kBuiltInColumns);
    WinUtils::SaveListColumns(*list, kSection);
    EXPECT_EQ(Stored(), u"Name;150;Size;70;Date;90;");
}

} // namespace
