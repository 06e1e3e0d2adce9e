// The texts of a document in UTF-8, with the escapes that the DOM serializer writes.
#pragma once

#include <string>
#include <string_view>

#include <xercesc/framework/XMLFormatter.hpp>

namespace QsXml {

/// Writes texts of either unit to a target; a wide character beyond Unicode becomes U+FFFD. Raises what the
/// target raises, and `xercesc::DOMLSException` for a unit that no document of XML 1.0 may hold, before
/// anything of that text is written.
class Utf8Output {
public:
    explicit Utf8Output(xercesc::XMLFormatTarget& target) noexcept : m_target(target) {}
    Utf8Output(const Utf8Output&) = delete;
    Utf8Output& operator=(const Utf8Output&) = delete;

    /// ASCII that needs no escape.
    void Plain(std::string_view ascii);
    /// A name, which has been checked before.
    template <typename Unit>
    void Name(std::basic_string_view<Unit> name);
    template <typename Unit>
    void AttributeValue(std::basic_string_view<Unit> value);
    template <typename Unit>
    void CharacterData(std::basic_string_view<Unit> text);
    /// Hands on what is still here.
    void Flush();

private:
    template <typename Unit, typename Escape>
    void Write(std::basic_string_view<Unit> text, Escape escape);
    void MakeRoom(std::size_t bytes) {
        if (bytes > sizeof(m_buffer) - m_used)
            Flush();
    }

    xercesc::XMLFormatTarget& m_target;
    std::size_t m_used = 0;
    char m_buffer[std::size_t{8} * 1024];
};

}  // namespace QsXml
