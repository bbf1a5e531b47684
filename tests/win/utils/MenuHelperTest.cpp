// Copying a menu into another: a separator only where items are already,
// pop-ups copied to any depth into pop-ups of the destination's own, every
// item's text, state and command kept, and menus that cannot be copied.
#include "resource.h"

#include <Win/Win.h>

#include <gtest/gtest.h>

#include <string>

namespace {

// One line per item, indented by depth: "text [id] flags" or "-" for a
// separator, a pop-up's items below it.
std::string Describe(HMENU menu, int depth = 0) {
    std::string out;
    const int count = GetMenuItemCount(menu);
    for (int pos = 0; pos < count; ++pos) {
        out += std::string(static_cast<std::size_t>(depth) * 2, ' ');
        const UINT state = GetMenuState(menu, static_cast<UINT>(pos), MF_BYPOSITION);
        if (state & MF_SEPARATOR) {
            out += "-\n";
            continue;
        }
        WCHAR text[128] = {0};
        GetMenuString(menu, static_cast<UINT>(pos), text, 128, MF_BYPOSITION);
        for (const WCHAR* c = text; *c; ++c)
            out += *c == u'\t' ? '|' : static_cast<char>(*c);
        if (HMENU sub = GetSubMenu(menu, pos)) {
            out += " >\n" + Describe(sub, depth + 1);
            continue;
        }
        out += " [" + std::to_string(GetMenuItemID(menu, pos)) + "]";
        if (state & MF_CHECKED)
            out += " checked";
        if (state & MF_GRAYED)
            out += " grayed";
        if (state & MF_DISABLED)
            out += " disabled";
        out += "\n";
    }
    return out;
}

const std::string kSource = "&File >\n"
                            "  &New|Ctrl+N [32001]\n"
                            "  &Open...|Ctrl+O [32002]\n"
                            "  Recent &files >\n"
                            "    &1 notes.txt [32003] checked\n"
                            "    &2 plan.txt [32004]\n"
                            "    &Archived >\n"
                            "      2019 &report.txt [32005] grayed\n"
                            "  -\n"
                            "  E&xit [32006]\n"
                            "&View >\n"
                            "  &Grid [32010] checked\n"
                            "  &Ruler [32011] disabled\n";

class AppendMenuHelper : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(source.LoadMenu(IDR_SOURCE));
        ASSERT_EQ(Describe(source), kSource);
    }

    CMenu source;
};

TEST_F(AppendMenuHelper, IntoAnEmptyMenuNoSeparatorComesFirst) {
    CMenu destination;
    ASSERT_TRUE(destination.CreateMenu());
    WinUtils::AppendMenuHelper(&source, destination);
    EXPECT_EQ(Describe(destination), kSource);
}

TEST_F(AppendMenuHelper, AfterExistingItemsOneSeparatorComesFirst) {
    CMenu destination;
    ASSERT_TRUE(destination.CreatePopupMenu());
    destination.AppendMenu(MF_STRING, 7, u"&Own item");
    WinUtils::AppendMenuHelper(&source, destination);
    EXPECT_EQ(Describe(destination), "&Own item [7]\n-\n" + kSource);
    // A second copy goes after another separator.
    WinUtils::AppendMenuHelper(&source, destination);
    EXPECT_EQ(Describe(destination), "&Own item [7]\n-\n" + kSource + "-\n" + kSource);
}

TEST_F(AppendMenuHelper, ThePopupsAreTheDestinationsOwn) {
    CMenu destination;
    ASSERT_TRUE(destination.CreateMenu());
    WinUtils::AppendMenuHelper(&source, destination);
    HMENU copiedFile = GetSubMenu(destination, 0);
    HMENU copiedArchive = GetSubMenu(GetSubMenu(copiedFile, 2), 2);
    EXPECT_NE(copiedFile, GetSubMenu(source, 0));
    EXPECT_TRUE(IsMenu(copiedArchive));
    // Changing the copy leaves the source as it was.
    CheckMenuItem(destination, ID_DOC_ARCHIVED, MF_CHECKED);
    EXPECT_EQ(Describe(source), kSource);
    // The copies go with the destination; the source keeps its own.
    destination.DestroyMenu();
    EXPECT_FALSE(IsMenu(copiedFile));
    EXPECT_FALSE(IsMenu(copiedArchive));
    EXPECT_EQ(Describe(source), kSource);
}

TEST_F(AppendMenuHelper, DeepPopupsAreCopiedToTheBottom) {
    CMenu deep;
    ASSERT_TRUE(deep.CreatePopupMenu());
    HMENU inner = deep.GetSafeHmenu();
    std::string expected;
    for (int level = 0; level < 40; ++level) {
        HMENU outer = CreatePopupMenu();
        AppendMenu(outer, MF_STRING, static_cast<UINT_PTR>(100 + level), u"item");
        AppendMenu(outer, MF_POPUP, reinterpret_cast<UINT_PTR>(inner), u"deeper");
        inner = outer;
    }
    CMenu top;
    top.Attach(inner);
    CMenu destination;
    ASSERT_TRUE(destination.CreateMenu());
    WinUtils::AppendMenuHelper(&top, destination);
    EXPECT_EQ(Describe(destination), Describe(top));
    int depth = 0;
    for (HMENU m = destination.GetSafeHmenu(); GetSubMenu(m, 1); m = GetSubMenu(m, 1))
        ++depth;
    EXPECT_EQ(depth, 40);
    deep.Detach(); // destroyed with top
}

TEST_F(AppendMenuHelper, EmptyAndBadMenusAddNothingOrOnlyTheSeparator) {
    CMenu empty;
    ASSERT_TRUE(empty.CreatePopupMenu());
    CMenu destination;
    ASSERT_TRUE(destination.CreatePopupMenu());
    WinUtils::AppendMenuHelper(&empty, destination);
    EXPECT_EQ(destination.GetMenuItemCount(), 0u);
    destination.AppendMenu(MF_STRING, 1, u"one");
    WinUtils::AppendMenuHelper(&empty, destination);
    EXPECT_EQ(Describe(destination), "one [1]\n-\n");

    // An empty pop-up of the source becomes an empty pop-up of the copy.
    CMenu withEmpty;
    ASSERT_TRUE(withEmpty.CreateMenu());
    withEmpty.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(CreatePopupMenu()), u"&Nothing");
    CMenu copy;
    ASSERT_TRUE(copy.CreateMenu());
    WinUtils::AppendMenuHelper(&withEmpty, copy);
    EXPECT_EQ(Describe(copy), "&Nothing >\n");

    const std::string before = Describe(destination);
    WinUtils::AppendMenuHelper(nullptr, destination);
    CMenu unmade;
    WinUtils::AppendMenuHelper(&unmade, destination);
    WinUtils::AppendMenuHelper(&source, nullptr);
    WinUtils::AppendMenuHelper(&source, reinterpret_cast<HMENU>(std::uintptr_t{0x99}));
    EXPECT_EQ(Describe(destination), before);
}

TEST_F(AppendMenuHelper, AMenuThatHoldsItselfIsCopiedOnce) {
    CMenu loop;
    ASSERT_TRUE(loop.CreatePopupMenu());
    loop.AppendMenu(MF_STRING, 1, u"one");
    loop.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(loop.GetSafeHmenu()), u"again");
    CMenu destination;
    ASSERT_TRUE(destination.CreateMenu());
    WinUtils::AppendMenuHelper(&loop, destination);
    EXPECT_EQ(Describe(destination), "one [1]\nagain >\n");
    loop.RemoveMenu(1, MF_BYPOSITION); // so that destroying it ends
}

} // namespace
