#include "SharedList.h"

#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace OpenBudget {
namespace {

/// A reader that comes in between meets an object without a text, never half of one.
bool Fill(int object, const std::u16string& text) {
    std::array<char, ListBytes> bytes{};
    std::memcpy(bytes.data(), text.data(), text.size() * sizeof(char16_t));
    return pwrite(object, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size());
}

}  // namespace

SharedList::SharedList(const std::string& name, const std::u16string& text, bool replace)
    : m_name("/" + name) {
    if (replace)
        shm_unlink(m_name.c_str());
    const int object = shm_open(m_name.c_str(), O_RDWR | O_CREAT | O_EXCL, 0600);
    if (object < 0) {
        m_failure = errno == EEXIST ? "it is held already" : std::strerror(errno);
        m_name.clear();
        return;
    }
    if (!Fill(object, text))
        m_failure = std::strerror(errno);
    close(object);
}

SharedList::~SharedList() {
    if (!m_name.empty())
        shm_unlink(m_name.c_str());
}

}  // namespace OpenBudget
