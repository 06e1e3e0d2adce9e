#include <memory>
#include <utility>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include "Commands.h"
#include "Decimal.h"
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
            streams.err << "estimate: no " << (options.plain ? "whole " : "") << "number: " << text << '\n';
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
        streams.err << "estimate: there is no factor from " << unit << " to " << other << '\n';
        return SomeBad;
    }
    streams.out << "1 " << unit << " = " << FactorText(factor) << ' ' << other << '\n';
    return AllDone;
}

}  // namespace

void AddCapital(CLI::App& app, const Streams& streams, int& status) {
    auto options = std::make_shared<CapitalOptions>();
    CLI::App* command = app.add_subcommand("capital", "Write amounts of money in capital numerals");
    command->add_option("amount", options->amounts,
                        "Amounts in yuan; lines of standard input when there are none");
    command->add_flag("--plain", options->plain, "Write whole numbers in ordinary numerals");
    command->callback([options, &streams, &status] { status = Capital(*options, streams); });
}

void AddSort(CLI::App& app, const Streams& streams, int& status) {
    auto options = std::make_shared<SortOptions>();
    CLI::App* command = app.add_subcommand("sort", "Put item codes in order");
    command->add_option("code", options->codes, "Codes; lines of standard input when there are none");
    command->add_option("-k,--kind", options->kind, "The order: bill, quota or item")
        ->check(CLI::IsMember({"bill", "quota", "item"}))
        ->capture_default_str();
    command->callback([options, &streams, &status] { status = SortCodes(*options, streams); });
}

void AddUnit(CLI::App& app, const Streams& streams, int& status) {
    auto options = std::make_shared<UnitOptions>();
    CLI::App* command = app.add_subcommand("unit", "Show a unit's decimals and indicator unit, or a factor");
    command->add_option("unit", options->unit, "A unit such as t, m2 or 100m2")->required();
    command->add_option("other", options->other, "A second unit: how many of it make one of the first");
    command->callback([options, &streams, &status] { status = Unit(*options, streams); });
}

}  // namespace Estimate
