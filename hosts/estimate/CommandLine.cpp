#include "CommandLine.h"

#include <algorithm>
#include <charconv>
#include <memory>
#include <string_view>
#include <utility>

#include "TextWidth.h"

namespace Estimate {
namespace {

std::string InBraces(const std::vector<std::string>& words) {
    return "{" + CLI::detail::join(words, ",") + "}";
}

/// Lines the help up for terminals that show Chinese characters two cells wide, and speaks of types and
/// conditions in the language of the labels.
class HelpFormatter final : public CLI::Formatter {
public:
    std::string make_option(const CLI::Option* option, bool isPositional) const override {
        return Line(make_option_name(option, isPositional) + make_option_opts(option),
                    make_option_desc(option));
    }
    std::string make_subcommand(const CLI::App* command) const override {
        return Line(command->get_name(), command->get_description());
    }

private:
    static constexpr std::size_t Indent = 2;

    std::string Line(const std::string& name, const std::string& description) const {
        const std::size_t width = get_column_width();
        const std::string head = std::string(Indent, ' ') + name;
        if (DisplayWidth(head) < width)
            return Padded(head, width) + description + '\n';
        return head + '\n' + std::string(width, ' ') + description + '\n';
    }
};

std::shared_ptr<HelpFormatter> FormatterOf(const Words& words) {
    auto formatter = std::make_shared<HelpFormatter>();
    formatter->label("Usage", words(Text::HelpUsage));
    formatter->label("OPTIONS", words(Text::HelpOptionsBadge));
    formatter->label("SUBCOMMAND", words(Text::HelpCommand));
    formatter->label("SUBCOMMANDS", words(Text::HelpCommand));
    formatter->label("Positionals", words(Text::HelpArguments));
    formatter->label("REQUIRED", words(Text::HelpRequired));
    formatter->label("Needs", words(Text::HelpNeeds));
    formatter->label("Excludes", words(Text::HelpExcludes));
    return formatter;
}

/// The parser calls types by names of its own; behind them stands what a check asks for.
void TranslateType(CLI::Option& option, const Words& words) {
    static constexpr std::pair<std::string_view, Text> names[] = {{"TEXT", Text::HelpText},
                                                                  {FileType, Text::HelpFile},
                                                                  {"DIR", Text::HelpFolder},
                                                                  {"INT", Text::HelpNumber},
                                                                  {"UINT", Text::HelpNumber}};
    const std::string type = option.get_type_name();
    for (const auto& [name, text] : names)
        if (type.substr(0, type.find(':')) == name)
            option.type_name(words(text));
}

/// The commands on the way to the one that was asked for, the program first.
std::vector<const CLI::App*> Chain(const CLI::App& app) {
    std::vector<const CLI::App*> chain = {&app};
    while (!chain.back()->get_subcommands().empty())
        chain.push_back(chain.back()->get_subcommands().front());
    return chain;
}

std::vector<const CLI::Option*> Options(const CLI::App& app) {
    std::vector<const CLI::Option*> options;
    for (const CLI::App* const command : Chain(app))
        for (const CLI::Option* const option : command->get_options())
            options.push_back(option);
    return options;
}

/// The first option that was given and of whose `others` one is as `isGiven` says.
template <typename Others>
Message Conflict(const CLI::App& app, Others others, bool isGiven,
                 Message (*tell)(const std::string&, const std::string&)) {
    for (const CLI::Option* const option : Options(app))
        for (const CLI::Option* const other : (option->*others)())
            if (option->count() > 0 && (other->count() > 0) == isGiven)
                return tell(option->get_name(), other->get_name());
    return {};
}

/// The option of which the parser tells: the longest whose name stands in the text.
const CLI::Option* Named(const CLI::App& app, const std::string& text) {
    const CLI::Option* named = nullptr;
    for (const CLI::Option* const option : Options(app))
        if (text.find(option->get_name()) != std::string::npos &&
            (named == nullptr || option->get_name().size() > named->get_name().size()))
            named = option;
    return named;
}

Message WhatIsMissing(const CLI::App& app) {
    const CLI::App& command = *Chain(app).back();
    if (command.get_require_subcommand_min() > 0 && command.remaining_size() > 0)
        return Say<Text::UsageUnknownCommand>(command.remaining().front());
    for (const CLI::Option* const option : Options(app))
        if (option->get_required() && option->count() == 0)
            return Say<Text::UsageMissing>(option->get_name());
    return Say<Text::UsageNoCommand>();
}

Message MismatchOf(const CLI::App& app, const std::string& text) {
    const CLI::Option* const option = Named(app, text);
    if (option == nullptr)
        return {};
    return option->count() > 1 ? Say<Text::UsageTwice>(option->get_name())
                               : Say<Text::UsageNoValue>(option->get_name());
}

/// Told from the state of the command line, since the parser has its own reasons in one language only.
Message FaultOf(const CLI::App& app, const CLI::ParseError& error) {
    if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr)
        return WhatIsMissing(app);
    if (dynamic_cast<const CLI::RequiresError*>(&error) != nullptr)
        return Conflict(app, &CLI::Option::get_needs, false, [](const auto& option, const auto& other) {
            return Say<Text::UsageNeeds>(option, other);
        });
    if (dynamic_cast<const CLI::ExcludesError*>(&error) != nullptr)
        return Conflict(app, &CLI::Option::get_excludes, true, [](const auto& option, const auto& other) {
            return Say<Text::UsageExcludes>(option, other);
        });
    if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr)
        return Say<Text::UsageUnexpected>(CLI::detail::join(app.remaining(true), " "));
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr)
        return MismatchOf(app, error.what());
    if (const auto* const option = Named(app, error.what());
        option != nullptr && dynamic_cast<const CLI::ConversionError*>(&error) != nullptr)
        return Say<Text::UsageFlagValue>(option->get_name());
    // The checks of values are this program's own, in the user's language.
    if (dynamic_cast<const CLI::ValidationError*>(&error) != nullptr)
        return Message::Same(error.what());
    return {};
}

}  // namespace

CLI::Validator OneOf(const std::vector<std::string>& words, Language language) {
    const std::string all = InBraces(words);
    return CLI::Validator(
        [words, all, language](const std::string& word) {
            const bool isOne = std::find(words.begin(), words.end(), word) != words.end();
            return isOne ? std::string() : Say<Text::NotOneOf>(word, all).In(language);
        },
        all);
}

CLI::Validator Between(int least, int most, Language language) {
    return CLI::Validator(
        [least, most, language](const std::string& text) {
            int number = 0;
            const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
            const bool isWhole = error == std::errc() && end == text.data() + text.size();
            return isWhole && number >= least && number <= most
                       ? std::string()
                       : Say<Text::NotBetween>(text, least, most).In(language);
        },
        std::to_string(least) + "-" + std::to_string(most));
}

void SpeakLanguage(CLI::App& app, Language language) {
    const Words words(language);
    app.set_help_flag("-h,--help", words(Text::HelpHelp));
    app.set_help_all_flag("--help-all", words(Text::HelpHelpAll));
    app.footer(words(Text::HelpFooter));
    app.formatter(FormatterOf(words));
    for (CLI::Option* const option : app.get_options()) {
        option->group(words(Text::HelpOptions));
        TranslateType(*option, words);
    }
    for (CLI::App* const command : app.get_subcommands({})) {
        command->group(words(Text::HelpCommands));
        SpeakLanguage(*command, language);
    }
}

Message UsageFault(const CLI::App& app, const CLI::ParseError& error) {
    const Message fault = FaultOf(app, error);
    return fault.empty() ? Say<Text::UsageWrong>(std::string_view(error.what())) : fault;
}

std::string CommandPath(const CLI::App& app) {
    std::string path;
    for (const CLI::App* const command : Chain(app))
        path += (path.empty() ? "" : " ") + command->get_name();
    return path;
}

}  // namespace Estimate
