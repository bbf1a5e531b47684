// The string array sorter and the field-value pair sorts: code-unit order,
// both directions, empty containers.
#include <Win/Win.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::u16string> Contents(const CStringArray& array) {
    std::vector<std::u16string> out;
    for (int i = 0; i < array.GetSize(); ++i)
        out.emplace_back(array[i].GetString());
    return out;
}

using Texts = std::vector<std::u16string>;

TEST(StringArraySorter, SortsByCodeUnitInEitherDirection) {
    CStringArray array;
    for (const auto* text : {u"b", u"a", u"C"})
        array.Add(text);
    CStringArraySorter::SortStringArray(array, 0);
    EXPECT_EQ(Contents(array), (Texts{u"C", u"a", u"b"})) << "upper case comes first";
    CStringArraySorter::SortStringArray(array, 1);
    EXPECT_EQ(Contents(array), (Texts{u"b", u"a", u"C"}));
    CStringArraySorter::SortStringArray(array, -5);
    EXPECT_EQ(Contents(array), (Texts{u"b", u"a", u"C"})) << "any nonzero order is descending";
}

TEST(StringArraySorter, MovesLongAndEmptyStringsWhole) {
    CStringArray array;
    const std::u16string longText(300, u'm');
    for (const auto& text :
         {std::u16string(u"zeta"), std::u16string(), longText, std::u16string(u"\u00e9t\u00e9"),
          std::u16string(u"alpha"), std::u16string(u"alphabet")})
        array.Add(CString(text));
    const CString* data = array.GetData();
    LPCWSTR longStorage = data[2].GetString();
    CStringArraySorter::SortStringArray(array, 0);
    EXPECT_EQ(Contents(array),
              (Texts{u"", u"alpha", u"alphabet", longText, u"zeta", u"\u00e9t\u00e9"}));
    EXPECT_EQ(array[3].GetString(), longStorage) << "the text was not copied";
    array.SetAt(0, u"later"); // the moved strings are still sound objects
    array.RemoveAll();
}

TEST(StringArraySorter, EmptyAndSingleArraysAndTheComparisons) {
    CStringArray array;
    CStringArraySorter::SortStringArray(array, 0);
    CStringArraySorter::SortStringArray(array, 1);
    EXPECT_EQ(array.GetSize(), 0);
    array.Add(u"one");
    CStringArraySorter::SortStringArray(array, 1);
    EXPECT_EQ(Contents(array), (Texts{u"one"}));

    const CString a(u"abc"), b(u"abd"), prefix(u"ab");
    EXPECT_LT(CStringArraySorter::CompareAscending(&a, &b), 0);
    EXPECT_GT(CStringArraySorter::CompareDescending(&a, &b), 0);
    EXPECT_GT(CStringArraySorter::CompareAscending(&a, &prefix), 0);
    EXPECT_EQ(CStringArraySorter::CompareAscending(&a, &a), 0);
    EXPECT_EQ(CStringArraySorter::CompareDescending(&a, &a), 0);
    CStringArraySorter copy;
    copy = CStringArraySorter();
}

std::vector<FieldValuePair> Settings() {
    return {FieldValuePair(u"width", u"80"), FieldValuePair(u"Height", u"24"),
            FieldValuePair(u"font", u""), FieldValuePair(u"colour", u"Green"),
            FieldValuePair(u"bell", u"green")};
}

Texts Fields(const std::vector<FieldValuePair>& pairs) {
    Texts out;
    for (const FieldValuePair& pair : pairs)
        out.emplace_back(pair.m_field.GetString());
    return out;
}

Texts Values(const std::vector<FieldValuePair>& pairs) {
    Texts out;
    for (const FieldValuePair& pair : pairs)
        out.emplace_back(pair.m_value.GetString());
    return out;
}

TEST(FieldValuePairs, SortByFieldOrValueInEitherDirection) {
    auto pairs = Settings();
    SortFieldValuePairList(pairs, 1, 1);
    EXPECT_EQ(Fields(pairs), (Texts{u"Height", u"bell", u"colour", u"font", u"width"}));
    EXPECT_EQ(Values(pairs), (Texts{u"24", u"green", u"Green", u"", u"80"})) << "pairs stay whole";
    SortFieldValuePairList(pairs, 0, 1);
    EXPECT_EQ(Fields(pairs), (Texts{u"width", u"font", u"colour", u"bell", u"Height"}));
    SortFieldValuePairList(pairs, 1, 0);
    EXPECT_EQ(Values(pairs), (Texts{u"", u"24", u"80", u"Green", u"green"}))
        << "an empty value first";
    EXPECT_EQ(Fields(pairs).front(), u"font");
    SortFieldValuePairList(pairs, 0, 0);
    EXPECT_EQ(Values(pairs), (Texts{u"green", u"Green", u"80", u"24", u""}));
    EXPECT_EQ(Fields(pairs), (Texts{u"bell", u"colour", u"width", u"Height", u"font"}));

    std::vector<FieldValuePair> none;
    SortFieldValuePairList(none, 1, 1);
    SortFieldValuePairList(none, 0, 0);
    EXPECT_TRUE(none.empty());
}

TEST(FieldValuePairs, FunctorsCompareByCodeUnit) {
    const FieldValuePair a(u"ab", u"Z"), b(u"abc", u"a");
    EXPECT_TRUE(SortAscendingUsingField()(a, b));
    EXPECT_FALSE(SortAscendingUsingField()(b, a));
    EXPECT_FALSE(SortAscendingUsingField()(a, a));
    EXPECT_TRUE(SortDescendingUsingField()(b, a));
    EXPECT_FALSE(SortDescendingUsingField()(a, a));
    EXPECT_TRUE(SortAscendingUsingValue()(a, b)) << "Z (0x5A) before a (0x61)";
    EXPECT_TRUE(SortDescendingUsingValue()(b, a));
    EXPECT_FALSE(SortDescendingUsingValue()(a, b));
}

TEST(FieldValuePairs, ConstructionCopyAndSelfAssignment) {
    FieldValuePair empty;
    EXPECT_TRUE(empty.m_field.IsEmpty());
    EXPECT_TRUE(empty.m_value.IsEmpty());
    FieldValuePair pair(u"name", u"value");
    FieldValuePair copy(pair);
    pair.m_value = u"changed";
    EXPECT_EQ(copy.m_value, CString(u"value"));
    FieldValuePair& same = copy;
    copy = same;
    EXPECT_EQ(copy.m_field, CString(u"name"));
    EXPECT_EQ(copy.m_value, CString(u"value"));
    empty = pair;
    EXPECT_EQ(empty.m_value, CString(u"changed"));
}

} // namespace
