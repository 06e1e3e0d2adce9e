// One XML file of a catalogue, read with an eye on whoever wrote it by hand.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <pugixml.hpp>

#include "companion/Disk.h"
#include "companion/Faults.h"

namespace Companion {

class XmlFile {
public:
    /// Null when the file can't be read, isn't well-formed UTF-8 and XML, or has another root element.
    static std::unique_ptr<XmlFile> Read(const Disk& disk, const std::wstring& path, const char* root,
                                         Faults& faults);
    XmlFile(const XmlFile&) = delete;
    XmlFile& operator=(const XmlFile&) = delete;

    const std::wstring& Path() const noexcept { return m_path; }
    pugi::xml_node Root() const { return m_document.document_element(); }
    std::size_t LineOf(pugi::xml_node node) const;
    std::size_t LineOf(pugi::xml_attribute attribute) const;

    void Report(std::size_t line, std::string text) const { m_faults.Add(m_path, line, std::move(text)); }
    /// The child elements of these names, in their order. Others are reported, and so is text.
    std::vector<pugi::xml_node> Elements(pugi::xml_node parent,
                                         std::initializer_list<const char*> names) const;

private:
    XmlFile(const std::wstring& path, std::string bytes, Faults& faults);
    bool Parse(const char* root);
    std::size_t LineAt(std::size_t offset) const;

    std::wstring m_path;
    std::string m_bytes;                  // the document's names and values lie in here
    std::vector<std::size_t> m_lineEnds;  // places behind the line breaks
    pugi::xml_document m_document;
    Faults& m_faults;
};

/// The attributes of one element. Unknown ones, repeated ones and those whose text can't be used are reported
/// and left out.
class Attributes {
public:
    Attributes(const XmlFile& file, pugi::xml_node node, std::initializer_list<const char*> names);

    std::size_t Line() const { return m_file.LineOf(m_node); }
    std::size_t LineOf(const char* name) const;
    /// None where the attribute is missing.
    std::optional<std::wstring> Text(const char* name) const;
    /// Not empty; otherwise none, and that is reported.
    std::optional<std::wstring> RequiredText(const char* name) const;
    /// The name of an entry of a folder; otherwise none, and that is reported unless the attribute is missing
    /// and needn't be there.
    std::optional<std::wstring> EntryName(const char* name, bool isRequired = true) const;
    /// From `least` to `most` in decimal digits; otherwise none, and that is reported unless it is missing.
    std::optional<std::int32_t> Number(const char* name, std::int32_t least, std::int32_t most) const;
    /// "true", "false", "1" or "0"; otherwise none, and that is reported unless it is missing.
    std::optional<bool> Flag(const char* name) const;

private:
    struct Attribute {
        const char* name;
        pugi::xml_attribute attribute;
        std::optional<std::wstring> text;
    };

    const Attribute* Find(const char* name) const;
    void Take(pugi::xml_attribute attribute);

    const XmlFile& m_file;
    pugi::xml_node m_node;
    std::vector<Attribute> m_attributes;
};

}  // namespace Companion
