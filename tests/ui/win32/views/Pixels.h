// What a window looks like.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <windows.h>

/// A picture in memory that can be drawn into; its pixels are 0x00RRGGBB, line by line from the top.
class Picture {
public:
    Picture(int width, int height);
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;
    ~Picture();

    HDC Dc() const { return m_dc; }
    std::vector<std::uint32_t> Pixels() const;
    std::uint32_t Pixel(int x, int y) const { return m_bits[y * m_width + x]; }

private:
    int m_width;
    int m_height;
    HDC m_dc;
    HBITMAP m_bitmap;
    HGDIOBJ m_before;
    const std::uint32_t* m_bits = nullptr;
};
