#include <memory>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include "BillReader.h"
#include "Commands.h"
#include "Files.h"
#include "InputText.h"
#include "Progress.h"
#include "Project.h"
#include "ProjectDocument.h"
#include "Refusal.h"
#include "Variables.h"
#include "XmlText.h"

namespace Estimate {
namespace {

struct ConvertOptions {
    std::string input;
    std::string variables;
    std::string output;
    std::string variableOutput;
    std::string name;
    std::string area;
    bool mark = false;
};

bool EndsWith(std::string path, std::string_view ending) {
    for (char& byte : path)
        byte = byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
    return path.ends_with(ending);
}

class ConvertCommand {
public:
    ConvertCommand(const ConvertOptions& options, const Streams& streams)
        : m_options(options),
          m_streams(streams),
          m_target(EndsWith(options.output, ".xml") ? ProjectForm::Document : ProjectForm::Table) {}

    int Run() {
        return CheckOptions() && ReadInput() && ReadVariableTable() && Write() ? AllDone : CannotRun;
    }

private:
    bool CheckOptions() {
        if (m_target == ProjectForm::Table && !EndsWith(m_options.output, ".csv"))
            return Refuse(m_streams, "the output ends with .xml or .csv: " + m_options.output);
        if (m_options.output == m_options.variableOutput)
            return Refuse(m_streams, "--output and --vars-out are the same file");
        if (const std::string reason = WhyNoXml(m_options.name); !reason.empty())
            return Refuse(m_streams, "--name: " + reason);
        if (const std::string reason = WhyNoXml(m_options.area); !reason.empty())
            return Refuse(m_streams, "--area: " + reason);
        m_project.name = m_options.name;
        m_project.area = m_options.area;
        return true;
    }

    /// A project with a row missing would be priced to another total, so that all is converted or nothing.
    bool Accept(const Problems& problems, const std::string& refusal) {
        for (const Problem& problem : problems.found)
            m_streams.err << ProblemText(problems.file, problem) << '\n';
        if (!refusal.empty())
            return Refuse(m_streams, problems.file + ": " + refusal);
        return problems.found.empty() || Refuse(m_streams, "nothing is written");
    }

    bool ReadInput() {
        InputFile file = OpenOrRefuse(m_options.input, m_streams);
        if (file.stream == nullptr)
            return false;
        const bool isDocument = IsMarkup(*file.stream);
        if (isDocument && m_options.input == "-")
            return Refuse(m_streams, "a project in XML is read from a file");
        Problems problems{file.name, {}, 0};
        std::string refusal;
        {
            Progress progress(m_streams.err, m_streams.errIsTerminal, file.size, "converting");
            const auto show = [&](std::uint64_t bytes) { progress.Show(bytes); };
            refusal = isDocument ? ReadDocument(file, problems, show) : ReadBillTable(file, problems, show);
        }
        return Accept(problems, refusal);
    }

    std::string ReadBillTable(const InputFile& file, Problems& problems, const ByteProgress& progress) {
        Columns columns(BillColumn::Specs);
        const auto take = [&](const BillRow& row) { m_collector.Take(row, columns, problems); };
        return ReadBillRows(*file.stream, columns, take, progress);
    }

    std::string ReadDocument(InputFile& file, Problems& problems, const ByteProgress& progress) {
        progress(0);
        file.stream.reset();  // so that the output may take its place
        const ProjectDocument document(m_options.input);
        if (document.root == nullptr)
            return document.refusal;
        ReadHead(*document.root, problems);
        const Columns columns(BillColumn::Specs);
        const auto take = [&](const BillRow& row) { m_collector.Take(row, columns, problems); };
        VisitBill(*document.root, take, file.size, progress);
        return {};
    }

    void ReadHead(const XMLNode& root, Problems& problems) {
        if (m_project.name.empty())
            m_project.name = AttributeText(root, ProjectName::Name);
        if (m_project.area.empty())
            m_project.area = AttributeText(root, ProjectName::Area);
        const Columns columns(VariableColumn::Specs);
        VisitVariables(root, [&](const VariableRow& row) { m_collector.Take(row, columns, problems); });
    }

    bool ReadVariableTable() {
        if (m_options.variables.empty())
            return true;
        const InputFile file = OpenOrRefuse(m_options.variables, m_streams);
        if (file.stream == nullptr)
            return false;
        m_collector.BeginReplacing();
        Problems problems{file.name, {}, 0};
        Columns columns(VariableColumn::Specs);
        const auto take = [&](const VariableRow& row) { m_collector.Take(row, columns, problems); };
        const std::string refusal = ReadVariableRows(*file.stream, columns, take);
        return Accept(problems, refusal);
    }

    using TableWriter = void (*)(std::ostream&, const Project&);

    bool WriteTable(const std::string& path, TableWriter write) {
        const std::string failure = WriteOutput(path, [&](std::ostream& out) {
            out << (m_options.mark ? "\xEF\xBB\xBF" : "");
            write(out, m_project);
        });
        return failure.empty() || Refuse(m_streams, failure);
    }

    bool Write() {
        if (!m_options.variableOutput.empty() && !WriteTable(m_options.variableOutput, WriteVariableTable))
            return false;
        if (m_target == ProjectForm::Document) {
            const std::string failure = WriteDocument(m_options.output, m_project);
            return failure.empty() || Refuse(m_streams, failure);
        }
        if (!m_project.variables.empty() && m_options.variableOutput.empty())
            m_streams.err << "estimate: warning: the variables are left out; --vars-out writes them\n";
        return WriteTable(m_options.output, WriteBillTable);
    }

    const ConvertOptions& m_options;
    const Streams& m_streams;
    ProjectForm m_target;
    Project m_project;
    ProjectCollector m_collector{m_project, m_target};
};

}  // namespace

void AddConvert(CLI::App& app, const Streams& streams, int& status) {
    auto options = std::make_shared<ConvertOptions>();
    CLI::App* command =
        app.add_subcommand("convert", "Convert a project between CSV and XML, without pricing it");
    command
        ->add_option("input", options->input,
                     "A bill in CSV or a project in XML; CSV may come from standard input, \"-\"")
        ->required();
    command->add_option("--vars", options->variables,
                        "Variables: CSV with name and value; they replace those of the project");
    command
        ->add_option("-o,--output", options->output,
                     "The file to write: a project with its variables when it ends with .xml, the bill when "
                     "with .csv")
        ->required();
    command->add_option("--vars-out", options->variableOutput, "Write the variables to this file as CSV");
    command->add_option("--name", options->name, "The project's name, for XML");
    command->add_option("--area", options->area, "The floor area in m2, a number or formula, for XML");
    command->add_flag("--bom", options->mark, "Begin CSV with a byte-order mark, for spreadsheets");
    command->callback([options, &streams, &status] { status = ConvertCommand(*options, streams).Run(); });
}

}  // namespace Estimate
