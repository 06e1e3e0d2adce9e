#include "tests/support/SharedObject.h"

#include <filesystem>
#include <iterator>
#include <stdexcept>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

SharedObject::SharedObject(const std::string& name, std::string_view bytes)
    : m_name("/" + name), m_handle(shm_open(m_name.c_str(), O_RDWR | O_CREAT | O_EXCL, 0600)) {
    const int file = static_cast<int>(m_handle);
    if (file < 0)
        throw std::runtime_error("can't make " + m_name);
    if (pwrite(file, bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()))
        throw std::runtime_error("can't fill " + m_name);
}

SharedObject::~SharedObject() {
    close(static_cast<int>(m_handle));
    shm_unlink(m_name.c_str());
}

bool SharedObject::Exists(const std::string& name) {
    return std::filesystem::exists(std::filesystem::symlink_status("/dev/shm/" + name));
}

bool SharedObject::AreReached() {
    return true;
}

std::size_t CountHandles() {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}));
}
