#include "companion/EnterpriseBillReader.h"

#include "companion/FirstLines.h"
#include "companion/Text.h"
#include "companion/XmlFile.h"

namespace Companion {

namespace {

/// The text of an element without white space around it; empty when it can't be used, which is reported.
std::wstring TextOf(const XmlFile& file, pugi::xml_node element) {
    std::string bytes;
    for (const pugi::xml_node child : element.children()) {
        if (child.type() == pugi::node_element)
            file.Report(file.LineOf(child), "unknown element <" + std::string(child.name()) + "> in <" +
                                                element.name() + ">, which takes text");
        else
            bytes += child.value();
    }
    const std::optional<std::wstring> text = FromUtf8(bytes);
    if (text && !HasControls(*text, true))
        return std::wstring(Trimmed(*text));
    file.Report(file.LineOf(element), "a character that can't be used in the text of <Bill>");
    return {};
}

void ReadBill(const XmlFile& file, pugi::xml_node element, FirstLines& names, Family& family) {
    const Attributes attributes(file, element, {"Name", "File"});
    std::wstring text = TextOf(file, element);
    const auto name = attributes.RequiredText("Name");
    const auto fileName = attributes.EntryName("File", false);
    if (!name || !names.IsNew(file, attributes, "Name", *name))
        return;
    if (!fileName && text.empty()) {
        file.Report(attributes.Line(), "<Bill> has neither a File nor a text");
        return;
    }
    EnterpriseBill& bill = family.bills[*name];
    bill.line = attributes.Line();
    bill.file.FileName = fileName.value_or(std::wstring());
    bill.record = {*name, std::move(text)};
}

}  // namespace

bool ReadEnterpriseBills(const Disk& disk, Family& family, Faults& faults) {
    const std::unique_ptr<XmlFile> file = XmlFile::Read(disk, family.billsFile, "EnterpriseBills", faults);
    if (file == nullptr)
        return false;
    FirstLines names;
    const Attributes attributes(*file, file->Root(), {});
    for (const pugi::xml_node element : file->Elements(file->Root(), {"Bill"}))
        ReadBill(*file, element, names, family);
    return true;
}

}  // namespace Companion
