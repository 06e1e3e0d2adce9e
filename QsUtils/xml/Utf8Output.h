// The texts of a document in UTF-8, with the escapes that the DOM serializer writes.
#pragma once

#include <string_view>

#include <xercesc/framework/XMLFormatter.hpp>

namespace QsXml {

/// Writes to a target. Raises what the target raises, and `xercesc::DOMLSException` for a unit that no
/// document of XML 1.0 may hold, before anything of that text is written.
class Utf8Output {
public:
    explicit Utf8Output(xercesc::XMLFormatTarget& target) noexcept : m_target(target) {}

    /// ASCII that needs no escape.
    void Plain(std::string_view ascii) { Send(ascii.data(), ascii.size()); }
    /// A name, which has been checked before.
    void Name(std::u16string_view name);
    void AttributeValue(std::u16string_view value);
    /// A text that has passed `Check`.
    void CharacterData(std::u16string_view text);
    static void Check(std::u16string_view text);

private:
    /// `escape` gives what stands for a unit below U+0080, or an empty text.
    template <typename Escape>
    void Write(std::u16string_view text, Escape escape);

    void Send(const char* bytes, std::size_t count) {
        m_target.writeChars(reinterpret_cast<const XMLByte*>(bytes), count, nullptr);
    }

    xercesc::XMLFormatTarget& m_target;
};

}  // namespace QsXml
