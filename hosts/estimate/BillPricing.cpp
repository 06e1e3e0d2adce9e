#include "BillPricing.h"

#include "BillBuilder.h"
#include "BillReader.h"
#include "ExtraCostTable.h"
#include "Files.h"
#include "Formula.h"
#include "InputText.h"
#include "Progress.h"
#include "ProjectDocument.h"
#include "Refusal.h"
#include "Report.h"
#include "Utf8.h"

namespace Estimate {
namespace {

class BillPricing {
public:
    BillPricing(const PriceOptions& options, const Streams& streams)
        : m_options(options), m_streams(streams) {}

    int Run() {
        if (!ReadTables())
            return CannotRun;
        m_report.features = m_options.features;
        if (m_charges)
            m_report.extraCosts = ChargeExtraCosts(m_report.bill, *m_charges, m_rates);
        Summarize(m_report);
        if (!Write())
            return CannotRun;
        return m_bad ? SomeBad : AllDone;
    }

private:
    void Print(const Problems& problems) {
        for (const Problem& problem : problems.found)
            m_streams.err << ProblemText(problems.file, problem, m_streams.language) << '\n';
        m_bad = m_bad || problems.badRows > 0;
    }

    Problems& NewProblems(const Message& file) {
        return m_report.problems.emplace_back(Problems{file, {}, 0});
    }

    bool ReadTables() { return ReadVariableTable() && FindCharges() && ReadRateTable() && ReadProject(); }

    /// `read` takes the stream and notes problems; what it gives says why the table can't be read at all.
    template <typename Read>
    bool ReadOneTable(const std::string& path, const Read& read) {
        if (path.empty())
            return true;
        const InputFile file = OpenOrRefuse(path, m_streams);
        if (file.stream == nullptr)
            return false;
        Problems& problems = NewProblems(file.name);
        const Message refusal = read(*file.stream, problems);
        Print(problems);
        return refusal.empty() || Refuse(m_streams, Say<Text::FileReason>(file.name, refusal));
    }

    bool ReadVariableTable() {
        return ReadOneTable(m_options.variables, [&](std::istream& in, Problems& problems) {
            return ReadVariables(in, m_variables, problems);
        });
    }

    bool FindCharges() {
        if (!m_options.library)
            return true;
        m_charges = ChargesOf(*m_options.library, m_options.family);
        // A total without them would be taken for one with them.
        return m_charges || Refuse(m_streams, Say<Text::NoExtraCosts>(*m_options.library, m_options.family));
    }

    bool ReadRateTable() {
        return ReadOneTable(m_options.rates, [&](std::istream& in, Problems& problems) {
            return ReadExtraCostRates(in, *m_charges, m_rates, problems);
        });
    }

    bool ReadProject() {
        InputFile file = OpenOrRefuse(m_options.bill, m_streams);
        if (file.stream == nullptr)
            return false;
        const bool isDocument = IsMarkup(*file.stream);
        if (isDocument && m_options.bill == "-")
            return Refuse(m_streams, Say<Text::XmlFromFile>());
        Problems& problems = NewProblems(file.name);
        Message refusal;
        {
            Progress progress(m_streams.err, m_streams.errIsTerminal, file.size,
                              WordingOf(Text::ActivityPricing).In(m_streams.language));
            const auto show = [&](std::uint64_t bytes) { progress.Show(bytes); };
            refusal = isDocument ? ReadDocument(file, problems, show) : ReadTable(file, problems, show);
        }
        Print(problems);
        return refusal.empty() || Refuse(m_streams, refusal);
    }

    /// What the command line says about the project goes before what the project says itself.
    Message ReadOptions() {
        m_report.name = m_options.name;
        const Message reason = m_options.area.empty() ? Message() : SetArea(m_options.area);
        return reason.empty() ? reason : Say<Text::OptionReason>("--area", reason);
    }

    Message SetArea(const std::string& text) {
        const FormulaResult area = Evaluate(FromUtf8(text), m_variables);
        if (!area.valid)
            return area.remarks.back().reason;
        if (!(area.value > 0))
            return Say<Text::AreaNotPositive>();
        m_report.area = area.value;
        return {};
    }

    Message ReadTable(const InputFile& file, Problems& problems, const ByteProgress& progress) {
        if (Message refusal = ReadOptions(); !refusal.empty())
            return refusal;
        const Message refusal = ReadBill(*file.stream, m_variables, m_report.bill, problems, progress);
        return refusal.empty() ? refusal : Say<Text::FileReason>(file.name, refusal);
    }

    Message ReadDocument(InputFile& file, Problems& problems, const ByteProgress& progress) {
        // Parsing takes a moment, and tells nothing while it lasts.
        progress(0);
        file.stream.reset();
        const ProjectDocument document(m_options.bill);
        if (document.root == nullptr)
            return Say<Text::FileReason>(file.name, document.refusal);
        ReadOwnVariables(*document.root, problems);
        if (Message refusal = ReadOptions(); !refusal.empty())
            return refusal;
        ReadHead(*document.root, problems);
        const Columns columns(BillColumn::Specs);
        BillBuilder builder(columns, m_variables, m_report.bill, problems);
        const auto take = [&](const BillRow& row) { builder.Take(row); };
        VisitBill(*document.root, take, file.size, progress);
        builder.Finish();
        return {};
    }

    void ReadOwnVariables(const XMLNode& root, Problems& problems) {
        const Columns columns(VariableColumn::Specs);
        Variables variables;
        VisitVariables(root, [&](const VariableRow& row) { AddVariable(row, columns, variables, problems); });
        m_variables.AddMissing(variables);
    }

    void ReadHead(const XMLNode& root, Problems& problems) {
        if (m_report.name.empty())
            m_report.name = AttributeText(root, ProjectName::Name);
        const std::string area = AttributeText(root, ProjectName::Area);
        if (area.empty() || m_report.area > 0)
            return;
        if (Message reason = SetArea(area); !reason.empty()) {
            problems.found.push_back({Severity::Error, {}, 0, Text::ColumnArea, std::move(reason)});
            m_bad = true;
        }
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
        const Message failure =
            WriteOutput(m_options.output, [this](std::ostream& out) { WriteReport(out); });
        return failure.empty() || Refuse(m_streams, failure);
    }

    const PriceOptions& m_options;
    const Streams& m_streams;
    Variables m_variables;
    std::optional<LibraryCharges> m_charges;
    std::vector<ExtraCostRate> m_rates;
    Report m_report;
    bool m_bad = false;
};

}  // namespace

int PriceBill(const PriceOptions& options, const Streams& streams) {
    return BillPricing(options, streams).Run();
}

}  // namespace Estimate
