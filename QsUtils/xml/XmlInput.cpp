#include "QsUtils/xml/XmlInput.h"

#include <algorithm>
#include <array>

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include "QsUtils/xml/EncodingNames.h"
#include "QsUtils/xml/XmlText.h"

namespace QsXml {

namespace {

/// Has the encoding that a document names overruled where it would be taken too narrowly.
void SetEncoding(xercesc::InputSource& input, std::string_view head) {
    const std::string_view name = ParserEncoding(DeclaredEncoding(head));
    if (!name.empty())
        input.setEncoding(Xml(std::u16string(name.begin(), name.end())));
}

/// The first bytes of a file, which tell its encoding, and the rest as it is read.
class FileBytes final : public xercesc::BinInputStream {
public:
    FileBytes(std::string_view head, QsPlatform::FileStream& file) noexcept : m_head(head), m_file(file) {}

    XMLFilePos curPos() const override { return m_position; }
    XMLSize_t readBytes(XMLByte* bytes, const XMLSize_t most) override {
        std::size_t count = m_head.copy(reinterpret_cast<char*>(bytes), most);
        m_head.remove_prefix(count);
        if (count == 0)
            count = m_file.Read(bytes, most);
        m_position += count;
        return count;
    }
    const XMLCh* getContentType() const override { return nullptr; }

private:
    std::string_view m_head;
    QsPlatform::FileStream& m_file;
    XMLFilePos m_position = 0;
};

class FileSource final : public xercesc::InputSource {
public:
    FileSource(QsPlatform::FileStream& file, const std::u16string& name)
        : InputSource(Xml(name), xercesc::XMLPlatformUtils::fgMemoryManager), m_file(file) {
        m_size = file.Read(m_head.data(), m_head.size());
        SetEncoding(*this, Head());
    }

    xercesc::BinInputStream* makeStream() const override {
        return new (getMemoryManager()) FileBytes(Head(), m_file);
    }

private:
    std::string_view Head() const noexcept { return {m_head.data(), m_size}; }

    QsPlatform::FileStream& m_file;
    std::array<char, 512> m_head{};
    std::size_t m_size = 0;
};

}  // namespace

std::unique_ptr<xercesc::InputSource> BytesInput(std::string_view bytes, const std::u16string& name) {
    auto input = std::make_unique<xercesc::MemBufInputSource>(reinterpret_cast<const XMLByte*>(bytes.data()),
                                                              bytes.size(), Xml(name), false,
                                                              xercesc::XMLPlatformUtils::fgMemoryManager);
    input->setCopyBufToStream(false);
    SetEncoding(*input, bytes);
    return input;
}

std::unique_ptr<xercesc::InputSource> FileInput(QsPlatform::FileStream& file, const std::u16string& name) {
    return std::make_unique<FileSource>(file, name);
}

std::unique_ptr<xercesc::InputSource> EmptyInput() {
    static constexpr XMLByte nothing = 0;
    return std::make_unique<xercesc::MemBufInputSource>(&nothing, 0, Xml(u""), false,
                                                        xercesc::XMLPlatformUtils::fgMemoryManager);
}

}  // namespace QsXml
