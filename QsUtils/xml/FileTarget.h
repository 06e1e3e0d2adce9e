// A file that is written by the rules of the XML platform: replaced whole, failures as its exceptions.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include <xercesc/framework/XMLFormatter.hpp>

#include "QsUtils/platform/FileReplacement.h"

namespace QsXml {

/// The new version of a file. Unless it is committed, the old one stays and nothing is left behind.
class FileTarget final : public xercesc::XMLFormatTarget {
public:
    /// Raises `xercesc::IOException` when the file can't be written.
    explicit FileTarget(const std::wstring& path);

    /// All of these raise `xercesc::XMLPlatformUtilsException` when the bytes don't reach the disk.
    void Append(std::string_view bytes);
    void writeChars(const XMLByte* bytes, XMLSize_t count, xercesc::XMLFormatter*) override;
    /// Puts the file in place, all or nothing.
    void Commit();

private:
    void Send(const char* bytes, std::size_t count);

    QsPlatform::FileReplacement m_file;
    std::size_t m_used = 0;
    std::array<char, std::size_t{32} * 1024> m_buffer;
};

}  // namespace QsXml
