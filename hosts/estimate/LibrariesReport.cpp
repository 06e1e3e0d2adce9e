#include <nlohmann/json.hpp>

#include "Libraries.h"

namespace Estimate {
namespace {

using Json = nlohmann::ordered_json;

/// Lines of a tree, each entry behind a branch.
class Branches {
public:
    explicit Branches(std::ostream& out) : m_out(out) {}

    void Line(const std::string& text, bool isLast) {
        m_out << m_prefix << (isLast ? "└─ " : "├─ ") << text << '\n';
    }
    /// Entries below the one of the last line.
    template <typename Write>
    void Below(bool isLast, Write write) {
        const std::size_t length = m_prefix.size();
        m_prefix += isLast ? "   " : "│  ";
        write();
        m_prefix.resize(length);
    }

private:
    std::ostream& m_out;
    std::string m_prefix;
};

std::string InBrackets(const std::string& text) {
    return text.empty() ? text : " [" + text + "]";
}

std::string RuleText(const BillLibraryRule& rule, const Words& words) {
    return std::to_string(rule.nCount1) + "+" + std::to_string(rule.nCount2) +
           (rule.bFlag1 ? words(Text::TreeFlag1) : "") + (rule.bFlag2 ? words(Text::TreeFlag2) : "");
}

/// The path from the folder on when it lies in it.
std::string BelowFolder(const std::string& path, const std::string& folder) {
    return !folder.empty() && path.starts_with(folder) ? path.substr(folder.size()) : path;
}

std::string Remarks(const LibraryFile& file, const Words& words) {
    return (file.isOffered || !file.exists ? "" : words(Text::TreeNotOffered)) +
           (file.exists ? "" : words(Text::TreeMissing));
}

template <typename Entries, typename Line>
void WriteGroup(Branches& branches, const Message& heading, const Entries& entries, bool isLast,
                Language language, Line line) {
    branches.Line((entries.empty() ? Say<Text::TreeNone>(heading) : heading).In(language), isLast);
    branches.Below(isLast, [&] {
        for (std::size_t i = 0; i < entries.size(); ++i)
            branches.Line(line(entries[i]), i + 1 == entries.size());
    });
}

void WriteSection(Branches& branches, const LibrarySection& section, const std::string& root,
                  Language language) {
    const Words words(language);
    const auto line = [&](const LibraryFile& file, const std::string& name, const std::string& inBrackets) {
        return Say<Text::TreeFile>(name, InBrackets(inBrackets), BelowFolder(file.path, root),
                                   Remarks(file, words))
            .In(language);
    };
    WriteGroup(branches, Message::Of(Text::TreeItems), section.items, false, language,
               [](const LibraryItem& item) { return item.name + InBrackets(item.tag); });
    WriteGroup(branches, Message::Of(Text::TreeBills), section.bills, false, language,
               [&](const LibraryFile& bill) {
                   return line(bill, bill.name, bill.rule ? RuleText(*bill.rule, words) : "");
               });
    WriteGroup(branches, Message::Of(Text::TreeQuotas), section.quotas, true, language,
               [&](const LibraryFile& quota) { return line(quota, quota.title, quota.tag); });
}

Json FileJson(const LibraryFile& file) {
    return {{"name", file.name}, {"path", file.path}, {"exists", file.exists}, {"offered", file.isOffered}};
}

Json SectionJson(const LibrarySection& section) {
    Json items = Json::array();
    for (const LibraryItem& item : section.items)
        items.push_back({{"name", item.name}, {"tag", item.tag}});
    Json bills = Json::array();
    for (const LibraryFile& bill : section.bills) {
        bills.push_back(FileJson(bill));
        if (bill.rule)
            bills.back()["rule"] = {{"count1", bill.rule->nCount1},
                                    {"count2", bill.rule->nCount2},
                                    {"flag1", bill.rule->bFlag1},
                                    {"flag2", bill.rule->bFlag2}};
    }
    Json quotas = Json::array();
    for (const LibraryFile& quota : section.quotas) {
        quotas.push_back(FileJson(quota));
        quotas.back()["title"] = quota.title;
        quotas.back()["tag"] = quota.tag;
    }
    return {{"name", section.name},
            {"provider", section.provider},
            {"items", std::move(items)},
            {"billLibraries", std::move(bills)},
            {"quotaLibraries", std::move(quotas)}};
}

}  // namespace

void WriteText(std::ostream& out, const LibraryTree& tree, Language language) {
    out << tree.root << '\n';
    Branches branches(out);
    for (const LibraryFamily& family : tree.families) {
        const bool isLastFamily = &family == &tree.families.back();
        branches.Line(family.name + (family.displayName.empty() || family.displayName == family.name
                                         ? ""
                                         : " (" + family.displayName + ")"),
                      isLastFamily);
        branches.Below(isLastFamily, [&] {
            for (const LibrarySection& section : family.sections) {
                const bool isLast = &section == &family.sections.back();
                branches.Line(section.name + (section.provider.empty() ? "" : " (" + section.provider + ")"),
                              isLast);
                branches.Below(isLast, [&] { WriteSection(branches, section, tree.root, language); });
            }
        });
    }
}

void WriteJson(std::ostream& out, const LibraryTree& tree) {
    Json families = Json::array();
    for (const LibraryFamily& family : tree.families) {
        Json sections = Json::array();
        for (const LibrarySection& section : family.sections)
            sections.push_back(SectionJson(section));
        families.push_back(
            {{"name", family.name}, {"displayName", family.displayName}, {"sections", std::move(sections)}});
    }
    const Json json = {{"series", tree.series}, {"root", tree.root}, {"families", std::move(families)}};
    out << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

}  // namespace Estimate
