#include "Throws.h"

#include <afx.h>

#include <gtest/gtest.h>

namespace {

TEST(PtrArrayTest, KeepsPointersInOrderAndChecksIndices) {
    int a = 1, b = 2, c = 3;
    CPtrArray array;
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(array.Add(&a), 0);
    EXPECT_EQ(array.Add(&c), 1);
    array.InsertAt(1, &b);
    ASSERT_EQ(array.GetSize(), 3);
    EXPECT_EQ(array[0], &a);
    EXPECT_EQ(array.GetAt(1), &b);
    EXPECT_EQ(array.GetAt(array.GetUpperBound()), &c);
    array.RemoveAt(0);
    EXPECT_EQ(array.GetAt(0), &b);
    EXPECT_EQ(a, 1); // the array owns nothing

    EXPECT_TRUE(ThrowsFramework<CInvalidArgException>([&] { array.GetAt(2); }));
    EXPECT_TRUE(ThrowsFramework<CInvalidArgException>([&] { array.GetAt(-1); }));
    EXPECT_TRUE(ThrowsFramework<CInvalidArgException>([&] { array.RemoveAt(1, 2); }));
    array.InsertAt(4, &a);
    EXPECT_EQ(array.GetSize(), 5);
    EXPECT_EQ(array.GetAt(2), nullptr);
    EXPECT_EQ(array.GetAt(4), &a);
    array.RemoveAll();
    EXPECT_EQ(array.GetSize(), 0);
}

} // namespace
