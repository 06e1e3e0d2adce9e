// Commands about the cost libraries of an installation. Each is named after the operation; the arguments are
// those of the operation without its outputs, and a key is three of them.
#include <algorithm>
#include <iterator>

#include "tests/installation/ProbeCommands.h"

namespace {

using DirectoryManager::ILibraryDirectory;
using LibraryManager::ILibraryManager;

ILibraryDirectory& Directories() {
    return *DirectoryManager::GetLibraryDirectoryManager();
}

ILibraryManager& Manager() {
    return *LibraryManager::GetLibraryManager();
}

struct LibraryCommand {
    const char16_t* name;
    void (*run)(Arguments& arguments);
};

template <CString (ILibraryDirectory::*operation)(const LibraryKey&)>
void OfKey(Arguments& arguments) {
    LibraryKey key;
    key.Family = arguments.Next();
    key.Section = arguments.Next();
    key.Item = arguments.Next();
    Answer((Directories().*operation)(key));
}

template <CString (ILibraryDirectory::*operation)(const CString&)>
void OfName(Arguments& arguments) {
    Answer((Directories().*operation)(arguments.Next()));
}

template <CString (ILibraryManager::*operation)(const CString&)>
void TextOf1(Arguments& arguments) {
    Answer((Manager().*operation)(arguments.Next()));
}

template <CString (ILibraryManager::*operation)(const CString&, const CString&)>
void TextOf2(Arguments& arguments) {
    const CString first = arguments.Next();
    Answer((Manager().*operation)(first, arguments.Next()));
}

template <CString (ILibraryManager::*operation)(const CString&, const CString&, const CString&)>
void TextOf3(Arguments& arguments) {
    const CString first = arguments.Next();
    const CString second = arguments.Next();
    Answer((Manager().*operation)(first, second, arguments.Next()));
}

/// The output begins with an element, so that one sees whether it is replaced.
template <typename List>
void AnswerList(List list) {
    std::vector<CString> texts = {u"before"};
    list(texts);
    Answer(texts);
}

CString RuleText(const BillLibraryRule& rule) {
    CString text;
    text.Format(u"%d,%d,%d,%d", rule.nCount1, rule.nCount2, rule.bFlag1 ? 1 : 0, rule.bFlag2 ? 1 : 0);
    return text;
}

void Series(Arguments&) {
    CString text;
    text.Format(u"%d", Manager().GetLibrarySeries());
    Answer(text);
}

void Families(Arguments&) {
    AnswerList([](std::vector<CString>& out) { Manager().GetLibraryFamilies(out); });
}

void Sections(Arguments& arguments) {
    AnswerList([&](std::vector<CString>& out) { Manager().GetFamilySections(out, arguments.Next()); });
}

void Items(Arguments& arguments) {
    const CString family = arguments.Next();
    AnswerList([&](std::vector<CString>& out) { Manager().GetSectionItems(out, family, arguments.Next()); });
}

void BillFiles(Arguments& arguments) {
    const CString family = arguments.Next();
    AnswerList(
        [&](std::vector<CString>& out) { Manager().GetBillLibraryFiles(out, family, arguments.Next()); });
}

void QuotaNames(Arguments& arguments) {
    const CString family = arguments.Next();
    const CString section = arguments.Next();
    AnswerList([&](std::vector<CString>& out) {
        Manager().GetQuotaLibraryNames(out, family, section, arguments.Next());
    });
}

void FindSub(Arguments& arguments) {
    const CString family = arguments.Next();
    const CString section = arguments.Next();
    const CString item = arguments.Next();
    Answer(Manager().FindSubLibraryFile(family, section, item, arguments.Next()));
}

void Rule(Arguments& arguments) {
    const CString family = arguments.Next();
    const CString section = arguments.Next();
    BillLibraryRule rule{-1, -2, true, true};
    const bool found = Manager().GetBillLibraryRule(family, section, arguments.Next(), rule);
    Answer((found ? u"yes " : u"no ") + RuleText(rule));
}

void AddPaths(const std::map<CString, CString>& paths, std::vector<CString>& texts) {
    for (const auto& [name, path] : paths)
        texts.push_back(name + u"=" + path);
}

void BillLibraries(Arguments& arguments) {
    std::map<CString, BillLibraryRule> rules;
    std::map<CString, CString> paths = {{u"before", u"kept"}};
    Manager().GetBillLibraries(arguments.Next(), rules, paths);
    std::vector<CString> texts;
    AddPaths(paths, texts);
    for (const auto& [name, rule] : rules)
        texts.push_back(name + u":" + RuleText(rule));
    Answer(texts);
}

void QuotaLibraries(Arguments& arguments) {
    std::map<CString, CString> paths = {{u"before", u"kept"}};
    Manager().GetQuotaLibraries(arguments.Next(), paths);
    std::vector<CString> texts;
    AddPaths(paths, texts);
    Answer(texts);
}

void QuotaEntries(Arguments& arguments) {
    std::vector<LibraryEntryInfo> entries = {{u"before", u"", u""}};
    const bool answer = Manager().GetQuotaLibraryEntries(arguments.Next(), u"not read", entries);
    std::vector<CString> texts = {answer ? u"yes" : u"no"};
    for (const LibraryEntryInfo& entry : entries)
        texts.push_back(entry.Name + u"," + entry.LibraryFile + u"," + entry.FirstItemTag);
    Answer(texts);
}

void Provider(Arguments& arguments) {
    const CString family = arguments.Next();
    const CString section = arguments.Next();
    Answer(Manager().GetLibraryProviderName(family, section, arguments.Next() == u"keep"));
}

constexpr LibraryCommand LibraryCommands[] = {
    {u"GetLibraryRootDirectory", [](Arguments&) { Answer(Directories().GetLibraryRootDirectory()); }},
    {u"GetGroupPriceRootDirectory", [](Arguments&) { Answer(Directories().GetGroupPriceRootDirectory()); }},
    {u"GetLibraryDirectoryVisitor",
     [](Arguments&) { Answer(Directories().GetLibraryDirectoryVisitor() != nullptr); }},
    {u"GetGroupPriceDirectory", OfName<&ILibraryDirectory::GetGroupPriceDirectory>},
    {u"GetEnterpriseBillDirectory", OfName<&ILibraryDirectory::GetEnterpriseBillDirectory>},
    {u"GetLibraryTag", OfName<&ILibraryDirectory::GetLibraryTag>},
    {u"GetFamilyDirectory", OfKey<&ILibraryDirectory::GetFamilyDirectory>},
    {u"GetQuotaLibraryDirectory", OfKey<&ILibraryDirectory::GetQuotaLibraryDirectory>},
    {u"GetBillLibraryRootDirectory", OfKey<&ILibraryDirectory::GetBillLibraryRootDirectory>},
    {u"GetBillLibraryDirectory", OfKey<&ILibraryDirectory::GetBillLibraryDirectory>},
    {u"GetDrtFileDirectory", OfKey<&ILibraryDirectory::GetDrtFileDirectory>},
    {u"GetConfigFileDirectory", OfKey<&ILibraryDirectory::GetConfigFileDirectory>},
    {u"GetSubLibraryRootDirectory", OfKey<&ILibraryDirectory::GetSubLibraryRootDirectory>},
    {u"GetSubLibraryDirectory", OfKey<&ILibraryDirectory::GetSubLibraryDirectory>},
    {u"GetFeeTemplateLibraryDirectory", OfKey<&ILibraryDirectory::GetFeeTemplateLibraryDirectory>},
    {u"GetReportTemplateLibraryDirectory", OfKey<&ILibraryDirectory::GetReportTemplateLibraryDirectory>},
    {u"GetPathKind10Directory", OfKey<&ILibraryDirectory::GetPathKind10Directory>},
    {u"GetLibrarySeries", Series},
    {u"GetLibraryFamilies", Families},
    {u"GetFamilyDisplayName", TextOf1<&ILibraryManager::GetFamilyDisplayName>},
    {u"GetFamilySections", Sections},
    {u"GetSectionItems", Items},
    {u"GetBillLibraryFiles", BillFiles},
    {u"GetQuotaLibraryNames", QuotaNames},
    {u"GetEnterpriseBillLibraryFile", TextOf2<&ILibraryManager::GetEnterpriseBillLibraryFile>},
    {u"FindBillLibraryFile", TextOf3<&ILibraryManager::FindBillLibraryFile>},
    {u"FindDrtFile", TextOf3<&ILibraryManager::FindDrtFile>},
    {u"FindConfigFile", TextOf3<&ILibraryManager::FindConfigFile>},
    {u"FindQuotaLibraryFile", TextOf3<&ILibraryManager::FindQuotaLibraryFile>},
    {u"FindSubLibraryFile", FindSub},
    {u"GetBillLibraryRule", Rule},
    {u"GetBillLibraries", BillLibraries},
    {u"GetQuotaLibraries", QuotaLibraries},
    {u"GetLibraryProviderName", Provider},
    {u"GetQuotaLibraryName", TextOf3<&ILibraryManager::GetQuotaLibraryName>},
    {u"GetEnterpriseBillLibraryText", TextOf2<&ILibraryManager::GetEnterpriseBillLibraryText>},
    {u"FindLibrarySection", TextOf2<&ILibraryManager::FindLibrarySection>},
    {u"GetQuotaLibraryEntries", QuotaEntries},
};

}  // namespace

bool DoLibraries(const CString& command, Arguments& arguments) {
    const auto found = std::find_if(std::begin(LibraryCommands), std::end(LibraryCommands),
                                    [&](const LibraryCommand& each) { return command == each.name; });
    if (found == std::end(LibraryCommands))
        return false;
    found->run(arguments);
    return true;
}
