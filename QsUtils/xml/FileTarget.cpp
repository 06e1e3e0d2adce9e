#include "QsUtils/xml/FileTarget.h"

#include <cstring>

#include <xercesc/util/IOException.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include "QsUtils/xml/XmlText.h"

namespace QsXml {

FileTarget::FileTarget(const std::wstring& path) : m_file(CString(path)) {
    if (m_file.Failure() != QsPlatform::FileFailure::None)
        throw xercesc::IOException("FileTarget", 0, xercesc::XMLExcepts::File_CouldNotOpenFile,
                                   Xml(QsText::WideToUtf16(path)), nullptr, nullptr, nullptr,
                                   xercesc::XMLPlatformUtils::fgMemoryManager);
}

void FileTarget::Send(const char* bytes, std::size_t count) {
    if (!m_file.Write(bytes, count))
        throw xercesc::XMLPlatformUtilsException("FileTarget", 0,
                                                 xercesc::XMLExcepts::File_CouldNotWriteToFile,
                                                 xercesc::XMLPlatformUtils::fgMemoryManager);
}

void FileTarget::Append(std::string_view bytes) {
    if (bytes.size() > m_buffer.size() - m_used) {
        Send(m_buffer.data(), m_used);
        m_used = 0;
    }
    if (bytes.size() > m_buffer.size()) {
        Send(bytes.data(), bytes.size());
    } else {
        std::memcpy(m_buffer.data() + m_used, bytes.data(), bytes.size());
        m_used += bytes.size();
    }
}

void FileTarget::writeChars(const XMLByte* bytes, XMLSize_t count, xercesc::XMLFormatter*) {
    Append({reinterpret_cast<const char*>(bytes), count});
}

void FileTarget::Commit() {
    Send(m_buffer.data(), m_used);
    m_used = 0;
    if (!m_file.Commit())
        throw xercesc::XMLPlatformUtilsException("FileTarget", 0,
                                                 xercesc::XMLExcepts::File_CouldNotWriteToFile,
                                                 xercesc::XMLPlatformUtils::fgMemoryManager);
}

}  // namespace QsXml
