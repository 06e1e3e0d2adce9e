#include <climits>

#include <gtest/gtest.h>

#include "QsUtils/text/CStringArray.h"

namespace {

TEST(Array, GrowsAndEmpties) {
    CStringArray array;
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(array.GetSize(), 0);
    EXPECT_EQ(array.Add(u"a"), 0);
    EXPECT_EQ(array.Add(L"b"), 1);
    EXPECT_EQ(array.GetCount(), 2);
    EXPECT_EQ(array.GetAt(1), u"b");
    array[1] = u"c";
    const CStringArray& constant = array;
    EXPECT_EQ(constant[1], u"c");
    CString all;
    for (const CString& text : array)
        all += text;
    EXPECT_EQ(all, u"ac");
    for (CString& text : array)
        text += u"!";
    EXPECT_EQ(array[0], u"a!");
    array.RemoveAll();
    EXPECT_TRUE(array.IsEmpty());
}

TEST(Array, AddsAnElementOfItsOwn) {
    CStringArray array;
    array.Add(u"a text longer than seven units");
    for (int i = 0; i < 100; ++i)
        array.Add(array[0]);
    EXPECT_EQ(array[100], u"a text longer than seven units");
}

TEST(Array, RaisesAnExceptionOutsideOfItsRange) {
    CUIntArray array;
    array.Add(7u);
    EXPECT_EQ(array[0], 7u);
    for (const int index : {-1, 1, INT_MIN, INT_MAX}) {
        EXPECT_THROW((void)array[index], CAtlException);
        EXPECT_THROW((void)array.GetAt(index), CAtlException);
        EXPECT_THROW((void)std::as_const(array)[index], CAtlException);
    }
}

}  // namespace
