// The list of what a program has open, shared with all others of the user.
#pragma once

#include <string>

namespace OpenBudget {

/// The bytes that such an object has.
inline constexpr std::size_t ListBytes = 256;

/// Holds a shared object and takes it away again.
class SharedList {
public:
    /// Makes the object `name` with the text at its beginning. If there is one already it is refused, or with
    /// `replace` replaced, which is what to do when the program that made it was killed. The text has less
    /// than `ListBytes` / 2 units.
    SharedList(const std::string& name, const std::u16string& text, bool replace);
    SharedList(const SharedList&) = delete;
    SharedList& operator=(const SharedList&) = delete;
    ~SharedList();

    /// Why there is no object; empty when there is one.
    const std::string& Failure() const { return m_failure; }

private:
    std::string m_name;
    std::string m_failure;
    void* m_handle = nullptr;
};

}  // namespace OpenBudget
