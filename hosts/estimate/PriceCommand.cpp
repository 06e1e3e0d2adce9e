#include <memory>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include "BillReader.h"
#include "Commands.h"
#include "Files.h"
#include "Formula.h"
#include "Progress.h"
#include "Report.h"
#include "Utf8.h"

namespace Estimate {
namespace {

struct PriceOptions {
    std::string bill;
    std::string variables;
    std::string output;
    std::string area;
    bool json = false;
    bool csv = false;
    bool mark = false;
    bool features = false;
};

class PriceCommand {
public:
    PriceCommand(const PriceOptions& options, const Streams& streams)
        : m_options(options), m_streams(streams) {}

    int Run() {
        if (!ReadTables())
            return CannotRun;
        m_report.features = m_options.features;
        Summarize(m_report);
        if (!Write())
            return CannotRun;
        return m_bad ? SomeBad : AllDone;
    }

private:
    bool Refuse(const std::string& reason) {
        m_streams.err << "estimate: " << reason << '\n';
        return false;
    }

    InputFile Open(const std::string& path) {
        InputFile file = OpenInput(path, m_streams.in);
        if (file.stream == nullptr)
            Refuse("the file can't be read: " + path);
        return file;
    }

    void Print(const Problems& problems) {
        for (const Problem& problem : problems.found)
            m_streams.err << ProblemText(problems.file, problem) << '\n';
        m_bad = m_bad || problems.badRows > 0;
    }

    bool ReadTables() {
        Variables variables;
        if (!m_options.variables.empty()) {
            const InputFile file = Open(m_options.variables);
            if (file.stream == nullptr)
                return false;
            Problems& problems = m_report.problems.emplace_back(Problems{file.name, {}, 0});
            const std::string refusal = ReadVariables(*file.stream, variables, problems);
            Print(problems);
            if (!refusal.empty())
                return Refuse(file.name + ": " + refusal);
        }
        return ReadArea(variables) && ReadItems(variables);
    }

    bool ReadArea(const Variables& variables) {
        if (m_options.area.empty())
            return true;
        const FormulaResult area = Evaluate(FromUtf8(m_options.area), variables);
        if (!area.valid)
            return Refuse("--area: " + area.remarks.back().reason);
        m_report.area = area.value;
        return area.value > 0 || Refuse("--area: the area is not above 0");
    }

    bool ReadItems(const Variables& variables) {
        const InputFile file = Open(m_options.bill);
        if (file.stream == nullptr)
            return false;
        Problems& problems = m_report.problems.emplace_back(Problems{file.name, {}, 0});
        std::string refusal;
        {
            Progress progress(m_streams.err, m_streams.errIsTerminal, file.size);
            refusal = ReadBill(*file.stream, variables, m_report.bill, problems,
                               [&](std::uint64_t bytes) { progress.Show(bytes); });
        }
        Print(problems);
        return refusal.empty() || Refuse(file.name + ": " + refusal);
    }

    void WriteReport(std::ostream& out) const {
        if (m_options.json)
            return WriteJson(out, m_report);
        if (!m_options.csv)
            return WriteText(out, m_report);
        out << (m_options.mark ? "\xEF\xBB\xBF" : "");
        WriteCsv(out, m_report);
    }

    bool Write() {
        if (m_options.output.empty() || m_options.output == "-") {
            WriteReport(m_streams.out);
            return true;
        }
        const std::string failure =
            WriteOutput(m_options.output, [this](std::ostream& out) { WriteReport(out); });
        return failure.empty() || Refuse(failure);
    }

    const PriceOptions& m_options;
    const Streams& m_streams;
    Report m_report;
    bool m_bad = false;
};

}  // namespace

void AddPrice(CLI::App& app, const Streams& streams, int& status) {
    auto options = std::make_shared<PriceOptions>();
    CLI::App* command = app.add_subcommand("price", "Price a bill of quantities");
    command->add_option("bill", options->bill, "The bill: CSV in UTF-8 or GBK; \"-\" is standard input")
        ->required();
    command->add_option("--vars", options->variables,
                        "The variables of the formulas: CSV with name and value");
    auto* json = command->add_flag("--json", options->json, "Write JSON instead of text");
    auto* csv = command->add_flag("--csv", options->csv, "Write CSV instead of text")->excludes(json);
    command->add_flag("--bom", options->mark, "Begin the CSV with a byte-order mark, for spreadsheets")
        ->needs(csv);
    command->add_flag("--features", options->features, "Show the features of bill items in the text");
    command->add_option("--area", options->area,
                        "The floor area in m2, a number or formula, for costs per m2");
    command->add_option("-o,--output", options->output, "Write to this file instead of standard output");
    command->callback([options, &streams, &status] { status = PriceCommand(*options, streams).Run(); });
}

}  // namespace Estimate
