// Named shared memory as other programs lay it out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// An object with these bytes, for the life of this one. Raises `std::runtime_error` when it can't be made.
class SharedObject {
public:
    /// `name` is ASCII, without a slash. Objects of no bytes aren't to be had on every system.
    SharedObject(const std::string& name, std::string_view bytes);
    SharedObject(const SharedObject&) = delete;
    SharedObject& operator=(const SharedObject&) = delete;
    ~SharedObject();

    /// Whether there is an object of that name.
    static bool Exists(const std::string& name);
    /// Whether the call by which the library looks for objects reaches those that exist. A system may refuse
    /// it for its file argument.
    static bool AreReached();

private:
    std::string m_name;
    std::intptr_t m_handle = -1;
};

/// How many handles or descriptors this process has open.
std::size_t CountHandles();

/// The bytes of a text in the memory order of Windows.
inline std::string TextBytes(std::u16string_view text) {
    std::string bytes;
    for (const char16_t unit : text) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}
