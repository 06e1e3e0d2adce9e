// The small files of an installation: the extra costs of libraries, the marks of items, the history of
// inputs.
#include <array>
#include <list>
#include <map>
#include <memory>

#include "CommandLine.h"
#include "Commands.h"
#include "Refusal.h"
#include "TextWidth.h"
#include "Utf8.h"

namespace Estimate {
namespace {

struct ExtraCostOptions {
    std::string library;
    std::string family;
};

/// What an extra cost is charged on.
const char* ChargedOn(eExtraCost_CoefficientType type) {
    switch (type) {
        case eExtraCost_ItemCoefficient:
            return "each item";
        case eExtraCost_ProjectCoefficient:
            return "the project";
        case eExtraCost_CompositeCoefficient:
            return "the whole with all other extra costs";
        case eExtraCost_Unknown:
            break;
    }
    return "unknown";
}

int ListExtraCosts(const ExtraCostOptions& options, const Streams& streams) {
    const CString library = FromUtf8(options.library);
    const CString family = FromUtf8(options.family);
    const std::list<CString>* const heights = IQsUtils1::GetOverHeightList(library, family);
    const std::map<CString, CString>* const types = IQsUtils1::GetExtraCostTypeList(library, family);
    if (heights == nullptr || types == nullptr) {
        Refuse(streams, Say<Text::NoExtraCosts>(options.library, options.family));
        return SomeBad;
    }
    for (const CString& height : *heights)
        streams.out << "over-height  " << ToUtf8(height) << '\n';
    for (const auto& [type, coefficient] : *types)
        streams.out << "extra cost   " << Padded(ToUtf8(type), 24) << ' ' << Padded(ToUtf8(coefficient), 10)
                    << ' ' << ChargedOn(IQsUtils1::GetExtraCostCalType(library, type, family)) << '\n';
    return AllDone;
}

struct MarkOptions {
    std::string group;
    std::string folder;
    bool quota = false;
};

/// What the files call a group, by what the command line calls it.
const std::map<std::string, const char16_t*> MarkGroups = {{"measures", u"MesureItem"},
                                                           {"taxes", u"FeeTax"},
                                                           {"fees", u"FeeSummary"},
                                                           {"other", u"OtherItemSummary"},
                                                           {"provisional", u"OtherItemPJTemPrice"}};

int Marks(const MarkOptions& options, const Streams& streams) {
    std::map<CString, CString> marks;
    IQsUtils1::GetMarkMap(FromUtf8(options.folder), !options.quota, MarkGroups.at(options.group), marks);
    for (const auto& [code, name] : marks)
        streams.out << Padded(ToUtf8(code), 12) << ' ' << ToUtf8(name) << '\n';
    if (!marks.empty())
        return AllDone;
    Refuse(streams, Say<Text::NoMarks>());
    return SomeBad;
}

struct HistoryOptions {
    std::string field;
    std::vector<std::string> values;
};

int History(const HistoryOptions& options, const Streams& streams) {
    const CString field = FromUtf8(options.field);
    for (const std::string& value : options.values)
        IQsUtils1::WriteHistory(field, FromUtf8(value));
    std::list<CString> history;
    IQsUtils1::GetHistory(field, history);
    for (const CString& value : history)
        streams.out << ToUtf8(value) << '\n';
    return AllDone;
}

}  // namespace

void AddExtraCosts(CLI::App& app, const Streams& streams, int& status) {
    auto options = std::make_shared<ExtraCostOptions>();
    const Words words(streams.language);
    CLI::App* command = app.add_subcommand("extra-costs", words(Text::HelpExtraCosts));
    command->add_option("library", options->library, words(Text::HelpExtraCostsLibrary))->required();
    command->add_option("-f,--family", options->family, words(Text::HelpExtraCostsFamily))->required();
    command->callback([options, &streams, &status] { status = ListExtraCosts(*options, streams); });
}

void AddMarks(CLI::App& app, const Streams& streams, int& status) {
    auto options = std::make_shared<MarkOptions>();
    const Words words(streams.language);
    CLI::App* command = app.add_subcommand("marks", words(Text::HelpMarks));
    command->add_option("group", options->group, words(Text::HelpMarksGroup))
        ->required()
        ->check(OneOf({"measures", "taxes", "fees", "other", "provisional"}, streams.language));
    command->add_flag("--quota", options->quota, words(Text::HelpMarksQuota));
    command->add_option("--folder", options->folder, words(Text::HelpMarksFolder));
    command->callback([options, &streams, &status] { status = Marks(*options, streams); });
}

void AddHistory(CLI::App& app, const Streams& streams, int& status) {
    auto options = std::make_shared<HistoryOptions>();
    const Words words(streams.language);
    CLI::App* command = app.add_subcommand("history", words(Text::HelpHistory));
    command->add_option("field", options->field, words(Text::HelpHistoryField))->required();
    command->add_option("value", options->values, words(Text::HelpHistoryValue));
    command->callback([options, &streams, &status] { status = History(*options, streams); });
}

}  // namespace Estimate
