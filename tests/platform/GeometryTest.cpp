// Points and rectangles, with the layout of the system's own.
#include <type_traits>

#include <gtest/gtest.h>

#include "QsUtils/platform/Geometry.h"

namespace {

static_assert(sizeof(POINT) == 8 && sizeof(RECT) == 16 && sizeof(CRect) == sizeof(RECT));
static_assert(std::is_standard_layout_v<CRect> && std::is_trivially_copyable_v<CRect>);

TEST(Geometry, ARectangleKnowsItsSize) {
    EXPECT_EQ(CRect().Width(), 0);
    EXPECT_EQ(CRect().Height(), 0);
    const CRect rect(10, 20, 110, 50);
    EXPECT_EQ(rect.Width(), 100);
    EXPECT_EQ(rect.Height(), 30);
    EXPECT_EQ(CRect(5, 5, 0, 0).Width(), -5);
    const RECT plain = rect;
    EXPECT_EQ(CRect(plain), rect);
    EXPECT_FALSE(CRect(plain) == CRect());
}

}  // namespace
