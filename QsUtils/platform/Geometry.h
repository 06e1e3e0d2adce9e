/// @file
/// Points and rectangles of the screen. On Windows they are the system's own; elsewhere the names and the
/// layout are the same.
#pragma once

#include <cstdint>

#include "QsUtils/platform/Handles.h"

#if !defined(_WIN32)
/// A point of the screen. The unit is the pixel in which the host's toolkit counts: for a host with Qt its
/// device-independent pixel.
struct tagPOINT {
    std::int32_t x;  ///< from the left
    std::int32_t y;  ///< from above
};
using POINT = tagPOINT;  ///< by the system's name

/// A rectangle; `right` and `bottom` aren't in it any more.
struct tagRECT {
    std::int32_t left;    ///< in it
    std::int32_t top;     ///< in it
    std::int32_t right;   ///< behind it
    std::int32_t bottom;  ///< below it
};
using RECT = tagRECT;  ///< by the system's name
#endif

/// A `RECT` that knows its size; empty at first. Nothing checks that its sides are in order: a rectangle
/// whose right side stands left of the left one has a negative width.
class CRect : public RECT {
public:
    /// The integer in which sides are given.
    using Side = decltype(RECT::left);

    constexpr CRect() noexcept : RECT{0, 0, 0, 0} {}
    /// A rectangle of these sides.
    constexpr CRect(Side l, Side t, Side r, Side b) noexcept : RECT{l, t, r, b} {}
    /// The same rectangle.
    constexpr CRect(const RECT& rect) noexcept : RECT(rect) {}

    constexpr int Width() const noexcept { return Less(right, left); }   ///< right less left
    constexpr int Height() const noexcept { return Less(bottom, top); }  ///< bottom less top

    /// Side by side.
    friend constexpr bool operator==(const CRect& a, const CRect& b) noexcept {
        return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
    }

private:
    /// Sides that stand further apart than an int can tell begin anew at its other end.
    static constexpr int Less(Side a, Side b) noexcept {
        return static_cast<int>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
    }
};
