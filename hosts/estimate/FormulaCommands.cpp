#include <list>
#include <map>
#include <memory>
#include <optional>

#include "CommandLine.h"
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
        const Message reason = split ? variables
                                           .Add(FromUtf8(std::string_view(binding).substr(0, equals)),
                                                FromUtf8(std::string_view(binding).substr(equals + 1)))
                                           .reason
                                     : Say<Text::BindingForm>();
        if (!reason.empty())
            return Refuse(streams, Say<Text::BindingReason>(binding, reason));
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
    const Message refusal = ReadVariables(*file.stream, variables, problems);
    for (const Problem& problem : problems.found)
        streams.err << ProblemText(problems.file, problem, streams.language) << '\n';
    return refusal.empty() || Refuse(streams, Say<Text::FileReason>(file.name, refusal));
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
        Refuse(streams, Say<Text::AmountNoNumber>(options.amount));
        return CannotRun;
    }
    int status = AllDone;
    for (const std::string& formula : ArgumentsOrLines(options.formulas, streams.in)) {
        const FormulaResult result =
            Evaluate(FromUtf8(formula), variables, options.amount.empty() ? nullptr : &amount);
        for (const FormulaRemark& remark : result.remarks)
            streams.err << formula << ": " << SeverityPrefix(remark.severity).In(streams.language)
                        << remark.reason.In(streams.language) << '\n';
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
    const Words words(streams.language);
    CLI::App* command = app.add_subcommand("eval", words(Text::HelpEval));
    command->add_option("formula", options->formulas, words(Text::HelpFormulas));
    command->add_option("--var", options->bindings, words(Text::HelpEvalVar))->allow_extra_args(false);
    command->add_option("--vars", options->variables, words(Text::HelpEvalVars))->type_name(FileType);
    command->add_option("-q,--amount", options->amount, words(Text::HelpEvalAmount));
    command->add_option("-d,--decimals", options->decimals, words(Text::HelpEvalDecimals))
        ->check(Between(0, MaxDecimals, streams.language));
    command->callback([options, &streams, &status] { status = Eval(*options, streams); });
}

void AddVars(CLI::App& app, const Streams& streams, int& status) {
    auto options = std::make_shared<VarsOptions>();
    const Words words(streams.language);
    CLI::App* command = app.add_subcommand("vars", words(Text::HelpVars));
    command->add_option("formula", options->formulas, words(Text::HelpFormulas));
    command->add_flag("-u,--unique", options->unique, words(Text::HelpVarsUnique));
    auto* positions = command->add_flag("-p,--positions", options->positions, words(Text::HelpVarsPositions));
    command->add_option("-q,--amount", options->amount, words(Text::HelpVarsAmount))->excludes(positions);
    command->callback([options, &streams, &status] { status = Vars(*options, streams); });
}

}  // namespace Estimate
