#include <memory>

#include "BillReader.h"
#include "CommandLine.h"
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
            return Refuse(m_streams, Say<Text::OutputEnding>(m_options.output));
        if (m_options.output == m_options.variableOutput)
            return Refuse(m_streams, Say<Text::SameOutput>());
        if (const Message reason = WhyNoXml(m_options.name); !reason.empty())
            return Refuse(m_streams, Say<Text::OptionReason>("--name", reason));
        if (const Message reason = WhyNoXml(m_options.area); !reason.empty())
            return Refuse(m_streams, Say<Text::OptionReason>("--area", reason));
        m_project.name = m_options.name;
        m_project.area = m_options.area;
        return true;
    }

    /// A project with a row missing would be priced to another total, so that all is converted or nothing.
    bool Accept(const Problems& problems, const Message& refusal) {
        for (const Problem& problem : problems.found)
            m_streams.err << ProblemText(problems.file, problem, m_streams.language) << '\n';
        if (!refusal.empty())
            return Refuse(m_streams, Say<Text::FileReason>(problems.file, refusal));
        return problems.found.empty() || Refuse(m_streams, Say<Text::NothingWritten>());
    }

    bool ReadInput() {
        InputFile file = OpenOrRefuse(m_options.input, m_streams);
        if (file.stream == nullptr)
            return false;
        const bool isDocument = IsMarkup(*file.stream);
        if (isDocument && m_options.input == "-")
            return Refuse(m_streams, Say<Text::XmlFromFile>());
        Problems problems{file.name, {}, 0};
        Message refusal;
        {
            Progress progress(m_streams.err, m_streams.errIsTerminal, file.size,
                              WordingOf(Text::ActivityConverting).In(m_streams.language));
            const auto show = [&](std::uint64_t bytes) { progress.Show(bytes); };
            refusal = isDocument ? ReadDocument(file, problems, show) : ReadBillTable(file, problems, show);
        }
        return Accept(problems, refusal);
    }

    Message ReadBillTable(const InputFile& file, Problems& problems, const ByteProgress& progress) {
        Columns columns(BillColumn::Specs);
        const auto take = [&](const BillRow& row) { m_collector.Take(row, columns, problems); };
        return ReadBillRows(*file.stream, columns, take, progress);
    }

    Message ReadDocument(InputFile& file, Problems& problems, const ByteProgress& progress) {
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
        const Message refusal = ReadVariableRows(*file.stream, columns, take);
        return Accept(problems, refusal);
    }

    using TableWriter = void (*)(std::ostream&, const Project&);

    bool WriteTable(const std::string& path, TableWriter write) {
        const Message failure = WriteOutput(path, [&](std::ostream& out) {
            out << (m_options.mark ? "\xEF\xBB\xBF" : "");
            write(out, m_project);
        });
        return failure.empty() || Refuse(m_streams, failure);
    }

    bool Write() {
        if (!m_options.variableOutput.empty() && !WriteTable(m_options.variableOutput, WriteVariableTable))
            return false;
        if (m_target == ProjectForm::Document) {
            const Message failure = WriteDocument(m_options.output, m_project);
            return failure.empty() || Refuse(m_streams, failure);
        }
        if (!m_project.variables.empty() && m_options.variableOutput.empty())
            Warn(m_streams, Say<Text::VariablesLeftOut>());
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
    const Words words(streams.language);
    CLI::App* command = app.add_subcommand("convert", words(Text::HelpConvert));
    command->add_option("input", options->input, words(Text::HelpConvertInput))
        ->type_name(FileType)
        ->required();
    command->add_option("--vars", options->variables, words(Text::HelpConvertVars))->type_name(FileType);
    command->add_option("-o,--output", options->output, words(Text::HelpConvertOutput))
        ->type_name(FileType)
        ->required();
    command->add_option("--vars-out", options->variableOutput, words(Text::HelpConvertVarsOut))
        ->type_name(FileType);
    command->add_option("--name", options->name, words(Text::HelpConvertName));
    command->add_option("--area", options->area, words(Text::HelpConvertArea));
    command->add_flag("--bom", options->mark, words(Text::HelpConvertBom));
    command->callback([options, &streams, &status] { status = ConvertCommand(*options, streams).Run(); });
}

}  // namespace Estimate
