// What the catalogue's reader asks of the disk.
#pragma once

#include <optional>
#include <string>

namespace Companion {

/// Paths are in the library's form.
class Disk {
public:
    /// The bytes of a plain file; none when there is no such file or it can't be read.
    virtual std::optional<std::string> Read(const std::wstring& path) const = 0;
    virtual bool HasFile(const std::wstring& path) const = 0;
    virtual bool HasFolder(const std::wstring& path) const = 0;

protected:
    ~Disk() = default;
};

class SystemDisk final : public Disk {
public:
    std::optional<std::string> Read(const std::wstring& path) const override;
    bool HasFile(const std::wstring& path) const override;
    bool HasFolder(const std::wstring& path) const override;
};

}  // namespace Companion
