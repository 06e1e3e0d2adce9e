#include "companion/XmlFile.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "companion/Text.h"

namespace Companion {

namespace {

std::vector<std::size_t> LineEnds(const std::string& bytes) {
    std::vector<std::size_t> ends;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const bool isPair = bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n';
        if (bytes[i] == '\n' || (bytes[i] == '\r' && !isPair))
            ends.push_back(i + 1);
    }
    return ends;
}

bool Is(const char* left, const char* right) {
    return std::strcmp(left, right) == 0;
}

std::string ListOf(std::initializer_list<const char*> names) {
    std::string list;
    for (const char* name : names)
        list += (list.empty() ? "<" : ", <") + std::string(name) + ">";
    return list.empty() ? "nothing" : list;
}

std::string Element(pugi::xml_node node) {
    return "<" + std::string(node.name()) + ">";
}

}  // namespace

XmlFile::XmlFile(const std::wstring& path, std::string bytes, Faults& faults)
    : m_path(path), m_bytes(std::move(bytes)), m_lineEnds(LineEnds(m_bytes)), m_faults(faults) {}

std::unique_ptr<XmlFile> XmlFile::Read(const Disk& disk, const std::wstring& path, const char* root,
                                       Faults& faults) {
    std::optional<std::string> bytes = disk.Read(path);
    if (!bytes) {
        faults.Add(path, 0, "the file can't be read");
        return nullptr;
    }
    std::unique_ptr<XmlFile> file(new XmlFile(path, std::move(*bytes), faults));
    return file->Parse(root) ? std::move(file) : nullptr;
}

bool XmlFile::Parse(const char* root) {
    const std::size_t malformed = FindMalformed(m_bytes);
    if (malformed != std::string::npos) {
        Report(LineAt(malformed), "the file isn't UTF-8");
        return false;
    }
    // Names and values stay where they stood, so that their lines can be told.
    const pugi::xml_parse_result result = m_document.load_buffer_inplace(
        m_bytes.data(), m_bytes.size(), pugi::parse_default, pugi::encoding_utf8);
    if (!result) {
        Report(LineAt(static_cast<std::size_t>(std::max<std::ptrdiff_t>(result.offset, 0))),
               "no well-formed XML: " + std::string(result.description()));
        return false;
    }
    if (!Is(Root().name(), root)) {
        Report(LineOf(Root()), "the root is " + Element(Root()) + " where <" + root + "> is asked for");
        return false;
    }
    for (pugi::xml_node next = Root().next_sibling(); next; next = next.next_sibling()) {
        if (next.type() == pugi::node_element)
            Report(LineOf(next), Element(next) + " stands behind the root's end");
    }
    return true;
}

std::size_t XmlFile::LineAt(std::size_t offset) const {
    const auto behind = std::upper_bound(m_lineEnds.begin(), m_lineEnds.end(), offset);
    return static_cast<std::size_t>(behind - m_lineEnds.begin()) + 1;
}

std::size_t XmlFile::LineOf(pugi::xml_node node) const {
    return LineAt(static_cast<std::size_t>(std::max<std::ptrdiff_t>(node.offset_debug(), 0)));
}

std::size_t XmlFile::LineOf(pugi::xml_attribute attribute) const {
    return LineAt(static_cast<std::size_t>(attribute.name() - m_bytes.data()));
}

std::vector<pugi::xml_node> XmlFile::Elements(pugi::xml_node parent,
                                              std::initializer_list<const char*> names) const {
    std::vector<pugi::xml_node> elements;
    for (const pugi::xml_node child : parent.children()) {
        const bool isElement = child.type() == pugi::node_element;
        if (isElement &&
            std::any_of(names.begin(), names.end(), [&](const char* name) { return Is(name, child.name()); }))
            elements.push_back(child);
        else if (isElement)
            Report(LineOf(child), "unknown element " + Element(child) + " in " + Element(parent) +
                                      ", which takes " + ListOf(names));
        else
            Report(LineOf(child), "text in " + Element(parent) + ", which takes " + ListOf(names));
    }
    return elements;
}

Attributes::Attributes(const XmlFile& file, pugi::xml_node node, std::initializer_list<const char*> names)
    : m_file(file), m_node(node) {
    for (const char* name : names)
        m_attributes.push_back({name, {}, {}});
    for (const pugi::xml_attribute attribute : node.attributes())
        Take(attribute);
}

void Attributes::Take(pugi::xml_attribute attribute) {
    const auto report = [&](const std::string& what) {
        m_file.Report(m_file.LineOf(attribute), what + " \"" + attribute.name() + "\" at " + Element(m_node));
    };
    const auto known = std::find_if(m_attributes.begin(), m_attributes.end(),
                                    [&](const Attribute& each) { return Is(each.name, attribute.name()); });
    if (known == m_attributes.end())
        return report("unknown attribute");
    if (known->attribute)
        return report("a second attribute");
    known->attribute = attribute;
    known->text = FromUtf8(attribute.value());
    if (!known->text || HasControls(*known->text, false)) {
        known->text.reset();
        report("a character that can't be used in the attribute");
    }
}

const Attributes::Attribute* Attributes::Find(const char* name) const {
    const auto found = std::find_if(m_attributes.begin(), m_attributes.end(),
                                    [&](const Attribute& each) { return Is(each.name, name); });
    return &*found;
}

std::size_t Attributes::LineOf(const char* name) const {
    const pugi::xml_attribute attribute = Find(name)->attribute;
    return attribute ? m_file.LineOf(attribute) : Line();
}

std::optional<std::wstring> Attributes::Text(const char* name) const {
    return Find(name)->text;
}

std::optional<std::wstring> Attributes::RequiredText(const char* name) const {
    const Attribute* const attribute = Find(name);
    if (attribute->text && !attribute->text->empty())
        return attribute->text;
    // An attribute whose characters can't be used has been reported already.
    if (!attribute->attribute)
        m_file.Report(Line(), Element(m_node) + " has no " + name);
    else if (attribute->text)
        m_file.Report(LineOf(name), "the " + std::string(name) + " of " + Element(m_node) + " is empty");
    return std::nullopt;
}

std::optional<std::wstring> Attributes::EntryName(const char* name, bool isRequired) const {
    if (!isRequired && !Find(name)->attribute)
        return std::nullopt;
    std::optional<std::wstring> text = RequiredText(name);
    if (!text || IsEntryName(*text))
        return text;
    m_file.Report(LineOf(name), "the " + std::string(name) + " of " + Element(m_node) +
                                    " can't name one file or folder: \"" + ToUtf8(*text) + "\"");
    return std::nullopt;
}

std::optional<std::int32_t> Attributes::Number(const char* name, std::int32_t least,
                                               std::int32_t most) const {
    const std::optional<std::wstring>& text = Find(name)->text;
    if (!text)
        return std::nullopt;
    const std::string digits = ToUtf8(*text);
    const char* const end = digits.data() + digits.size();
    std::int32_t number = 0;
    const auto [behind, error] = std::from_chars(digits.data(), end, number);
    if (error == std::errc() && behind == end && number >= least && number <= most)
        return number;
    m_file.Report(LineOf(name), "the " + std::string(name) + " of " + Element(m_node) +
                                    " is no whole number from " + std::to_string(least) + " to " +
                                    std::to_string(most) + ": \"" + digits + "\"");
    return std::nullopt;
}

std::optional<bool> Attributes::Flag(const char* name) const {
    const std::optional<std::wstring>& text = Find(name)->text;
    if (!text)
        return std::nullopt;
    if (*text == L"true" || *text == L"1")
        return true;
    if (*text == L"false" || *text == L"0")
        return false;
    m_file.Report(LineOf(name), "the " + std::string(name) + " of " + Element(m_node) +
                                    " is neither \"true\" nor \"false\": \"" + ToUtf8(*text) + "\"");
    return std::nullopt;
}

}  // namespace Companion
