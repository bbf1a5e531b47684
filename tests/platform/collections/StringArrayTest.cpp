#include <afx.h>

#include "Throws.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace {

std::vector<std::u16string> Contents(const CStringArray& a) {
    std::vector<std::u16string> out;
    for (int i = 0; i < a.GetSize(); ++i)
        out.push_back(a[i].Str());
    return out;
}

CStringArray* Make(std::initializer_list<const char16_t*> items, CStringArray& a) {
    for (auto* s : items)
        a.Add(s);
    return &a;
}

int Ascending(const void* a, const void* b) {
    return static_cast<const CString*>(a)->Compare(*static_cast<const CString*>(b));
}

int Descending(const void* a, const void* b) {
    return -Ascending(a, b);
}

using V = std::vector<std::u16string>;

TEST(StringArray, AddGrowsAndIndexesFromZero) {
    CStringArray a;
    EXPECT_TRUE(a.IsEmpty());
    EXPECT_EQ(a.GetUpperBound(), -1);
    EXPECT_EQ(a.GetData(), nullptr);
    EXPECT_EQ(a.Add(u"zero"), 0);
    EXPECT_EQ(a.Add(CString(u"one")), 1);
    EXPECT_EQ(a.GetSize(), 2);
    EXPECT_EQ(a.GetCount(), 2);
    EXPECT_EQ(a.GetUpperBound(), 1);
    a[1] = u"ONE";
    a.ElementAt(0) += u"!";
    a.SetAt(1, a.GetAt(1) + u"?");
    const CStringArray& c = a;
    EXPECT_EQ(c[0], CString(u"zero!"));
    EXPECT_EQ(c.GetAt(1), CString(u"ONE?"));
    EXPECT_EQ(&a.GetData()[1], &a.ElementAt(1));
}

TEST(StringArray, OutOfRangeThrowsInvalidArgument) {
    CStringArray a;
    a.Add(u"x");
    const CStringArray& c = a;
    EXPECT_TRUE(ThrowsFramework<CInvalidArgException>([&] { (void)c.GetAt(1); }));
    EXPECT_TRUE(ThrowsFramework<CInvalidArgException>([&] { (void)a[-1]; }));
    EXPECT_TRUE(ThrowsFramework<CInvalidArgException>([&] { a.SetAt(1, u"y"); }));
    EXPECT_TRUE(ThrowsFramework<CInvalidArgException>([&] { a.RemoveAt(0, 2); }));
    EXPECT_TRUE(ThrowsFramework<CInvalidArgException>([&] { a.RemoveAt(1); }));
    EXPECT_TRUE(ThrowsFramework<CInvalidArgException>([&] { a.InsertAt(-1, CString(u"y")); }));
    EXPECT_TRUE(ThrowsFramework<CInvalidArgException>([&] { a.SetSize(-1); }));
    EXPECT_EQ(Contents(a), V{u"x"});
}

TEST(StringArray, SetSizeInsertRemove) {
    CStringArray a;
    a.SetSize(3, 16);
    EXPECT_EQ(Contents(a), (V{u"", u"", u""}));
    a[2] = u"c";
    a.SetSize(2);
    EXPECT_EQ(a.GetSize(), 2);
    a.RemoveAll();
    Make({u"a", u"b", u"c", u"d"}, a);
    a.InsertAt(1, CString(u"x"), 2);
    EXPECT_EQ(Contents(a), (V{u"a", u"x", u"x", u"b", u"c", u"d"}));
    a.RemoveAt(1, 2);
    a.RemoveAt(3);
    EXPECT_EQ(Contents(a), (V{u"a", u"b", u"c"}));
    // Inserting past the end fills the gap with empty strings.
    a.InsertAt(5, CString(u"f"));
    EXPECT_EQ(Contents(a), (V{u"a", u"b", u"c", u"", u"", u"f"}));
    a.FreeExtra();
    EXPECT_EQ(a.GetSize(), 6);
}

TEST(StringArray, InsertingItsOwnElementIsSafe) {
    CStringArray a;
    for (int i = 0; i < 4; ++i)
        a.Add(CString(u"long enough to live on the heap ") + CString(static_cast<WCHAR>(u'0' + i)));
    a.FreeExtra();
    // The insertion reallocates; the value must be read before that.
    a.InsertAt(0, a[3], 3);
    EXPECT_EQ(a[0], a[6]);
    EXPECT_EQ(a[2], a[6]);
}

TEST(StringArray, AppendCopyAndInsertArray) {
    CStringArray a, b;
    Make({u"a", u"b"}, a);
    Make({u"1", u"2"}, b);
    EXPECT_EQ(a.Append(b), 2);
    EXPECT_EQ(a.Append(a), 4);
    EXPECT_EQ(Contents(a), (V{u"a", u"b", u"1", u"2", u"a", u"b", u"1", u"2"}));
    b.InsertAt(1, b);
    EXPECT_EQ(Contents(b), (V{u"1", u"1", u"2", u"2"}));
    b.Copy(a);
    EXPECT_EQ(Contents(b), Contents(a));
    b.Copy(b);
    EXPECT_EQ(b.GetSize(), 8);
}

// GetData() hands the elements to the C library's qsort, which moves them
// bytewise. Strings of every length (short ones included, which a string with
// in-object storage would keep inside the element) must survive that, under
// the sanitizers too.
TEST(StringArray, QsortOverGetDataMovesStringsIntact) {
    std::mt19937 rng(12345);
    std::uniform_int_distribution<int> len(0, 40), unit(0x20, 0x2FF);
    CStringArray a;
    std::vector<std::u16string> expected;
    for (int i = 0; i < 5000; ++i) {
        std::u16string s(static_cast<std::size_t>(len(rng)), u' ');
        for (auto& c : s)
            c = static_cast<char16_t>(unit(rng));
        a.Add(CString(std::u16string_view(s)));
        expected.push_back(s);
    }
    std::qsort(a.GetData(), static_cast<std::size_t>(a.GetSize()), sizeof(CString), Ascending);
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(Contents(a), expected);
    for (int i = 0; i < a.GetSize(); ++i)
        ASSERT_EQ(a[i].GetLength(), static_cast<int>(expected[static_cast<std::size_t>(i)].size()));

    std::qsort(a.GetData(), static_cast<std::size_t>(a.GetSize()), sizeof(CString), Descending);
    std::reverse(expected.begin(), expected.end());
    EXPECT_EQ(Contents(a), expected);

    // The array still owns working strings: grow, change and drop them.
    a[0] += u"tail";
    a.InsertAt(0, CString(u"head"));
    a.RemoveAt(1, 100);
    EXPECT_EQ(a.GetSize(), 4901);
}

TEST(StringArray, QsortOrdersByCodeUnit) {
    CStringArray a;
    Make({u"b", u"a", u"C"}, a);
    std::qsort(a.GetData(), 3, sizeof(CString), Ascending);
    EXPECT_EQ(Contents(a), (V{u"C", u"a", u"b"}));
    std::qsort(a.GetData(), 3, sizeof(CString), Descending);
    EXPECT_EQ(Contents(a), (V{u"b", u"a", u"C"}));
}

} // namespace
