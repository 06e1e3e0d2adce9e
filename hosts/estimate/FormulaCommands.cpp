#include <list>
#include <map>
#include <memory>
#include <optional>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include "Commands.h"
#include "Decimal.h"
#include "Formula.h"
#include "Refusal.h"
#include "Utf8.h"

namespace Estimate {
namespace {

struct EvalOptions {
    std::vector<std::string> formulas;
    std::vector<std::string> bindings;
    std::string variables;
    std::string amount;
    int decimals = -1;
};

bool Bind(const std::vector<std::string>& bindings, const Streams& streams, Variables& variables) {
    for (const std::string& binding : bindings) {
        const std::size_t equals = binding.find('=');
        const bool split = equals != std::string::npos;
        const std::string reason = split
                                       ? variables.Add(FromUtf8(std::string_view(binding).substr(0, equals)),
                                                       FromUtf8(std::string_view(binding).substr(equals + 1)))
                                       : "NAME=VALUE is asked for";
        if (!reason.empty())
            return Refuse(streams, "--var " + binding + ": " + reason);
    }
    return true;
}

bool ReadTable(const std::string& path, const Streams& streams, Variables& variables) {
    if (path.empty())
        return true;
    const InputFile file = OpenOrRefuse(path, streams);
    if (file.stream == nullptr)
        return false;
    Problems problems{file.name, {}, 0};
    const std::string refusal = ReadVariables(*file.stream, variables, problems);
    for (const Problem& problem : problems.found)
        streams.err << ProblemText(problems.file, problem) << '\n';
    return refusal.empty() || Refuse(streams, file.name + ": " + refusal);
}

std::string ValueText(double value, int decimals) {
    if (decimals < 0)
        return ToUtf8(IQsUtils::DoubleToCString(value, MaxDecimals, true));
    const std::optional<std::int64_t> units = RoundToDecimals(value, decimals);
    return units ? DecimalText({*units, decimals})
                 : ToUtf8(IQsUtils::DoubleToCString(value, decimals, false));
}

int Eval(const EvalOptions& options, const Streams& streams) {
    Variables variables;
    if (!ReadTable(options.variables, streams, variables) || !Bind(options.bindings, streams, variables))
        return CannotRun;
    const CString amount = FromUtf8(options.amount);
    if (!options.amount.empty() && !ParseNumber(amount)) {
        Refuse(streams, "--amount: no number: " + options.amount);
        return CannotRun;
    }
    int status = AllDone;
    for (const std::string& formula : ArgumentsOrLines(options.formulas, streams.in)) {
        const FormulaResult result =
            Evaluate(FromUtf8(formula), variables, options.amount.empty() ? nullptr : &amount);
        for (const FormulaRemark& remark : result.remarks)
            streams.err << formula << ": " << (remark.severity == Severity::Error ? "error: " : "warning: ")
                        << remark.reason << '\n';
        if (result.valid)
            streams.out << ValueText(result.value, options.decimals) << '\n';
        else
            status = SomeBad;
    }
    return status;
}

struct VarsOptions {
    std::vector<std::string> formulas;
    std::string amount;
    bool unique = false;
    bool positions = false;
};

void ListVariables(const VarsOptions& options, const CString& formula, std::ostream& out) {
    if (options.positions) {
        std::map<int, CString> found;
        IQsUtils::FindVariable(formula, found);
        for (const auto& [last, name] : found)
            out << last + 1 << '\t' << ToUtf8(name) << '\n';
        return;
    }
    std::list<CString> found;
    IQsUtils::FindVariable(formula, found, options.unique);
    for (const CString& name : found)
        out << ToUtf8(name) << '\n';
}

int Vars(const VarsOptions& options, const Streams& streams) {
    for (const std::string& text : ArgumentsOrLines(options.formulas, streams.in)) {
        CString formula = FromUtf8(text);
        if (options.amount.empty()) {
            ListVariables(options, formula, streams.out);
            continue;
        }
        IQsUtils::ReplaceQWithProjectAmount(formula, FromUtf8(options.amount));
        streams.out << ToUtf8(formula) << '\n';
    }
    return AllDone;
}

}  // namespace

void AddEval(CLI::App& app, const Streams& streams, int& status) {
    auto options = std::make_shared<EvalOptions>();
    CLI::App* command = app.add_subcommand("eval", "Calculate formulas, one result a line");
    command->add_option("formula", options->formulas,
                        "Formulas; lines of standard input when there are none");
    command->add_option("--var", options->bindings, "A variable: NAME=VALUE")->allow_extra_args(false);
    command->add_option("--vars", options->variables, "Variables from a CSV file with name and value");
    command->add_option("-q,--amount", options->amount, "The project amount that Q stands for");
    command
        ->add_option("-d,--decimals", options->decimals, "Round to this many decimals, half away from zero")
        ->check(CLI::Range(0, MaxDecimals));
    command->callback([options, &streams, &status] { status = Eval(*options, streams); });
}

void AddVars(CLI::App& app, const Streams& streams, int& status) {
    auto options = std::make_shared<VarsOptions>();
    CLI::App* command = app.add_subcommand("vars", "List the variables that the texts of formulas hold");
    command->add_option("formula", options->formulas,
                        "Formulas; lines of standard input when there are none");
    command->add_flag("-u,--unique", options->unique, "Leave out a variable that is listed already");
    auto* positions =
        command->add_flag("-p,--positions", options->positions, "Show at which character each variable ends");
    command->add_option("-q,--amount", options->amount, "Print the formula with this amount in place of Q")
        ->excludes(positions);
    command->callback([options, &streams, &status] { status = Vars(*options, streams); });
}

}  // namespace Estimate
