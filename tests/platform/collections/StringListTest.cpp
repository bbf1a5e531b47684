#include <afx.h>

#include "Throws.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using V = std::vector<std::u16string>;

V Forward(const CStringList& l) {
    V out;
    for (POSITION pos = l.GetHeadPosition(); pos;)
        out.push_back(l.GetNext(pos).Str());
    return out;
}

V Backward(const CStringList& l) {
    V out;
    for (POSITION pos = l.GetTailPosition(); pos;)
        out.insert(out.begin(), l.GetPrev(pos).Str());
    return out;
}

// Both directions agree, and the count matches the links.
void ExpectList(const CStringList& l, const V& expected) {
    EXPECT_EQ(Forward(l), expected);
    EXPECT_EQ(Backward(l), expected);
    EXPECT_EQ(l.GetCount(), static_cast<int>(expected.size()));
    EXPECT_EQ(l.IsEmpty(), expected.empty());
}

TEST(StringList, AddsAtBothEndsAndInsertsAroundAPosition) {
    CStringList l;
    ExpectList(l, {});
    POSITION b = l.AddTail(u"b");
    l.AddHead(u"a");
    POSITION d = l.AddTail(u"d");
    l.InsertAfter(b, u"c");
    l.InsertBefore(l.GetHeadPosition(), u"_");
    l.InsertAfter(d, u"e");
    ExpectList(l, {u"_", u"a", u"b", u"c", u"d", u"e"});
    EXPECT_EQ(l.GetHead(), CString(u"_"));
    EXPECT_EQ(l.GetTail(), CString(u"e"));
    EXPECT_EQ(l.GetSize(), 6);
    // A null position inserts at the matching end.
    l.InsertBefore(nullptr, u"0");
    l.InsertAfter(nullptr, u"9");
    EXPECT_EQ(l.GetHead(), CString(u"0"));
    EXPECT_EQ(l.GetTail(), CString(u"9"));
}

TEST(StringList, RemovesAnywhereAndKeepsLinksConsistent) {
    CStringList l;
    for (auto* s : {u"a", u"b", u"c", u"d", u"e"})
        l.AddTail(s);
    l.RemoveAt(l.FindIndex(2));
    ExpectList(l, {u"a", u"b", u"d", u"e"});
    EXPECT_EQ(l.RemoveHead(), CString(u"a"));
    EXPECT_EQ(l.RemoveTail(), CString(u"e"));
    ExpectList(l, {u"b", u"d"});
    l.RemoveAt(l.GetTailPosition());
    l.RemoveAt(l.GetHeadPosition());
    ExpectList(l, {});
    l.AddTail(u"again");
    ExpectList(l, {u"again"});
    l.RemoveAll();
    ExpectList(l, {});
}

TEST(StringList, FindsByValueAndIndex) {
    CStringList l;
    for (auto* s : {u"x", u"y", u"x", u"X"})
        l.AddTail(s);
    POSITION first = l.Find(u"x");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first, l.GetHeadPosition());
    POSITION second = l.Find(u"x", first);
    EXPECT_EQ(second, l.FindIndex(2));
    EXPECT_EQ(l.Find(u"x", second), nullptr); // case-sensitive: "X" is not it
    EXPECT_EQ(l.Find(u"z"), nullptr);
    EXPECT_EQ(l.FindIndex(3), l.GetTailPosition());
    EXPECT_EQ(l.FindIndex(4), nullptr);
    EXPECT_EQ(l.FindIndex(-1), nullptr);
    l.SetAt(second, u"changed");
    l.GetAt(first) += u"!";
    ExpectList(l, {u"x!", u"y", u"changed", u"X"});
}

TEST(StringList, EmptyListAndNullPositionThrowInvalidArgument) {
    CStringList l;
    EXPECT_TRUE(ThrowsFramework<CInvalidArgException>([&] { l.RemoveHead(); }));
    EXPECT_TRUE(ThrowsFramework<CInvalidArgException>([&] { l.RemoveTail(); }));
    EXPECT_TRUE(ThrowsFramework<CInvalidArgException>([&] { (void)l.GetHead(); }));
    POSITION none = nullptr;
    EXPECT_TRUE(ThrowsFramework<CInvalidArgException>([&] { (void)l.GetNext(none); }));
    EXPECT_TRUE(ThrowsFramework<CInvalidArgException>([&] { l.RemoveAt(nullptr); }));
    EXPECT_TRUE(ThrowsFramework<CInvalidArgException>([&] { l.SetAt(nullptr, u"x"); }));
    ExpectList(l, {});
}

} // namespace
