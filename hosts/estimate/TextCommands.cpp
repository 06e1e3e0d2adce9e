#include <memory>
#include <utility>

#include "CommandLine.h"
#include "Commands.h"
#include "Decimal.h"
#include "Refusal.h"
#include "Units.h"
#include "Utf8.h"

namespace Estimate {
namespace {

struct CapitalOptions {
    std::vector<std::string> amounts;
    bool plain = false;
};

int Capital(const CapitalOptions& options, const Streams& streams) {
    int status = AllDone;
    for (const std::string& text : ArgumentsOrLines(options.amounts, streams.in)) {
        int whole = 0;
        const CString amount = FromUtf8(text);
        const std::optional<double> value = ParseNumber(amount);
        if (options.plain ? !IQsUtils::ParseToInteger(amount, whole) : !value) {
            Refuse(streams, options.plain ? Say<Text::NoWholeNumber>(text) : Say<Text::NoNumber>(text));
            status = SomeBad;
            continue;
        }
        streams.out << ToUtf8(options.plain ? IQsUtils::TransIntToUpper(whole)
                                            : IQsUtils::NumToRMBStr(*value))
                    << '\n';
    }
    return status;
}

struct SortOptions {
    std::vector<std::string> codes;
    std::string kind = "quota";
};

int SortCodes(const SortOptions& options, const Streams& streams) {
    std::vector<std::pair<CString, void*>> codes;
    for (const std::string& code : ArgumentsOrLines(options.codes, streams.in))
        codes.emplace_back(FromUtf8(code), nullptr);
    if (options.kind == "bill")
        IQsUtils::SortQdItemCodes(codes);
    else if (options.kind == "quota")
        IQsUtils::SortDeItemCodes(codes);
    else
        IQsUtils::SortItemCodes(codes);
    for (const auto& code : codes)
        streams.out << ToUtf8(code.first) << '\n';
    return AllDone;
}

struct UnitOptions {
    std::string unit;
    std::string other;
};

std::string FactorText(double factor) {
    return ToUtf8(IQsUtils::DoubleToCString(factor, MaxDecimals, true));
}

int Unit(const UnitOptions& options, const Streams& streams) {
    const std::string unit = NormalizeUnit(options.unit);
    if (options.other.empty()) {
        const IndicatorUnit indicator = IndicatorUnitOf(unit);
        streams.out << "decimals   " << UnitDecimals(unit) << "\nindicator  1 " << unit << " = "
                    << FactorText(indicator.factor) << ' ' << indicator.unit << '\n';
        return AllDone;
    }
    const std::string other = NormalizeUnit(options.other);
    double factor = 1.0;
    if (!IQsUtils1::GetIndicatorsFactor(FromUtf8(unit), FromUtf8(other), factor)) {
        Refuse(streams, Say<Text::NoFactor>(unit, other));
        return SomeBad;
    }
    streams.out << "1 " << unit << " = " << FactorText(factor) << ' ' << other << '\n';
    return AllDone;
}

}  // namespace

void AddCapital(CLI::App& app, const Streams& streams, int& status) {
    auto options = std::make_shared<CapitalOptions>();
    const Words words(streams.language);
    CLI::App* command = app.add_subcommand("capital", words(Text::HelpCapital));
    command->add_option("amount", options->amounts, words(Text::HelpCapitalAmount));
    command->add_flag("--plain", options->plain, words(Text::HelpCapitalPlain));
    command->callback([options, &streams, &status] { status = Capital(*options, streams); });
}

void AddSort(CLI::App& app, const Streams& streams, int& status) {
    auto options = std::make_shared<SortOptions>();
    const Words words(streams.language);
    CLI::App* command = app.add_subcommand("sort", words(Text::HelpSort));
    command->add_option("code", options->codes, words(Text::HelpSortCode));
    command->add_option("-k,--kind", options->kind, words(Text::HelpSortKind))
        ->check(OneOf({"bill", "quota", "item"}, streams.language))
        ->capture_default_str();
    command->callback([options, &streams, &status] { status = SortCodes(*options, streams); });
}

void AddUnit(CLI::App& app, const Streams& streams, int& status) {
    auto options = std::make_shared<UnitOptions>();
    const Words words(streams.language);
    CLI::App* command = app.add_subcommand("unit", words(Text::HelpUnit));
    command->add_option("unit", options->unit, words(Text::HelpUnitUnit))->required();
    command->add_option("other", options->other, words(Text::HelpUnitOther));
    command->callback([options, &streams, &status] { status = Unit(*options, streams); });
}

}  // namespace Estimate
