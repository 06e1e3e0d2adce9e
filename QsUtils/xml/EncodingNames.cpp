#include "QsUtils/xml/EncodingNames.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <string>

#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/TransService.hpp>

#include "QsUtils/xml/XmlText.h"

namespace QsXml {

namespace {

bool IsKnown(std::string_view name) {
    const std::u16string text(name.begin(), name.end());
    constexpr XMLSize_t blockSize = 64;
    xercesc::XMLTransService::Codes failure{};
    const std::unique_ptr<xercesc::XMLTranscoder> transcoder(
        xercesc::XMLPlatformUtils::fgTransService->makeNewTranscoderFor(
            Xml(text), failure, blockSize, xercesc::XMLPlatformUtils::fgMemoryManager));
    return transcoder != nullptr;
}

/// Names have no case; `upper` is in capitals.
bool IsSameName(std::string_view name, std::string_view upper) noexcept {
    const auto toUpper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
    return std::equal(name.begin(), name.end(), upper.begin(), upper.end(),
                      [&](char a, char b) { return toUpper(a) == b; });
}

}  // namespace

std::string_view DeclaredEncoding(std::string_view bytes) noexcept {
    constexpr std::string_view start = "<?xml";
    constexpr std::string_view keyword = "encoding";
    constexpr std::string_view blanks = " \t\r\n";
    if (!bytes.starts_with(start))
        return {};
    const std::string_view declaration = bytes.substr(0, bytes.find('>'));
    std::size_t at = declaration.find(keyword);
    if (at == std::string_view::npos)
        return {};
    at = declaration.find_first_not_of(blanks, at + keyword.size());
    if (at == std::string_view::npos || declaration[at] != '=')
        return {};
    at = declaration.find_first_not_of(blanks, at + 1);
    if (at == std::string_view::npos || (declaration[at] != '"' && declaration[at] != '\''))
        return {};
    const std::size_t end = declaration.find(declaration[at], at + 1);
    return end == std::string_view::npos ? std::string_view() : declaration.substr(at + 1, end - at - 1);
}

std::string_view ParserEncoding(std::string_view name) {
    constexpr std::string_view namesOfGbk[] = {"GB2312", "CP936", "MS936", "WINDOWS-936", "X-GBK"};
    const bool isGbk = std::any_of(std::begin(namesOfGbk), std::end(namesOfGbk),
                                   [&](std::string_view one) { return IsSameName(name, one); });
    if (!isGbk && (!IsSameName(name, "GB18030") || IsKnown("GB18030")))
        return {};
    // The Windows registry of character sets may have the page under its older name alone.
    return IsKnown("GBK") ? "GBK" : "GB2312";
}

}  // namespace QsXml
