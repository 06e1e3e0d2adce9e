// The overview of a project: the fields that describe it, by groups.
#include <array>
#include <list>
#include <memory>
#include <optional>

#include "CommandLine.h"
#include "Commands.h"
#include "Files.h"
#include "InputText.h"
#include "Refusal.h"
#include "TextWidth.h"
#include "Utf8.h"

namespace Estimate {
namespace {

struct OverviewOptions {
    std::string project;
    bool add = false;
};

using Field = QS_ProjectOverView::stuColInfo;

/// Fields of a project, which are the caller's; those of the product are the library's.
class OwnFields {
public:
    OwnFields() = default;
    OwnFields(const OwnFields&) = delete;
    OwnFields& operator=(const OwnFields&) = delete;
    ~OwnFields() {
        for (const Field* field : fields)
            delete field;
    }

    std::list<Field*> fields;
};

struct Group {
    int number;
    const char* name;
};

constexpr std::array Groups = {Group{1, "工程信息"}, Group{2, "工程特征内容"}, Group{3, "电子招投标信息"},
                               Group{0, "其他信息"}};

/// What a reader of the page wants to know of a field, behind its name.
std::string Remarks(const Field& field) {
    std::string text = ToUtf8(field.strType);
    const auto add = [&](bool isTrue, const char* remark) {
        if (isTrue)
            text += (text.empty() ? "" : ", ") + std::string(remark);
    };
    add(field.nMantissa > 0, (std::to_string(field.nMantissa) + " 位小数").c_str());
    add(field.bPrint, "打印");
    add(field.bUserDef, "自定义");
    add(!field.bShow, "隐藏");
    return text;
}

void WriteGroup(std::ostream& out, const Group& group, const std::list<Field*>& fields) {
    bool isFirst = true;
    for (const Field* field : fields) {
        if (field->nBelongType != group.number)
            continue;
        if (isFirst)
            out << group.name << '\n';
        isFirst = false;
        out << "  " << Padded(ToUtf8(field->strCode), 12) << ' ' << Padded(ToUtf8(field->strName), 24) << ' '
            << Remarks(*field) << '\n';
    }
}

int Fail(const Streams& streams, const Message& reason) {
    Refuse(streams, reason);
    return CannotRun;
}

int WritePage(const Streams& streams, const std::list<Field*>& fields, const Message& source) {
    for (const Group& group : Groups)
        WriteGroup(streams.out, group, fields);
    if (!fields.empty())
        return AllDone;
    Refuse(streams, Say<Text::NoOverview>(source));
    return SomeBad;
}

int ShowOffer(const Streams& streams) {
    std::list<Field*> fields;
    IQsUtils1::GetProjOverViewInfo(fields);
    return WritePage(streams, fields, Say<Text::TheInstallation>());
}

int AddOffer(const Streams& streams, const CString& path, const std::string& name) {
    OwnFields present;
    IQsUtils1::GetProjOverViewInfo(path, present.fields);
    if (!present.fields.empty())
        return Fail(streams, Say<Text::HasOverview>(name));
    std::list<Field*> offered;
    IQsUtils1::GetProjOverViewInfo(offered);
    if (offered.empty())
        return Fail(streams, Say<Text::NoOverview>(Text::TheInstallation));
    if (!IQsUtils1::CreateProjOverViewInfo(path, offered))
        return CannotRun;
    // The library doesn't tell whether the file could be written, and an overview without fields hides one
    // behind it.
    OwnFields written;
    IQsUtils1::GetProjOverViewInfo(path, written.fields);
    if (written.fields.empty())
        return Fail(streams, Say<Text::OverviewNotAdded>(name));
    return AllDone;
}

int Overview(const OverviewOptions& options, const Streams& streams) {
    if (options.project.empty())
        return ShowOffer(streams);
    InputFile file = OpenOrRefuse(options.project, streams);
    const std::optional<std::wstring> path = LibraryPath(options.project);
    if (file.stream == nullptr)
        return CannotRun;
    if (!path || options.project == "-" || !IsMarkup(*file.stream))
        return Fail(streams, Say<Text::NoProjectXml>(options.project));
    // A file that is open isn't replaced on every system.
    file.stream.reset();
    if (options.add)
        return AddOffer(streams, *path, options.project);
    OwnFields own;
    IQsUtils1::GetProjOverViewInfo(*path, own.fields);
    return WritePage(streams, own.fields, Message::Same(options.project));
}

}  // namespace

void AddOverview(CLI::App& app, const Streams& streams, int& status) {
    auto options = std::make_shared<OverviewOptions>();
    const Words words(streams.language);
    CLI::App* command = app.add_subcommand("overview", words(Text::HelpOverview));
    auto* project = command->add_option("project", options->project, words(Text::HelpOverviewProject))
                        ->type_name(FileType);
    command->add_flag("--add", options->add, words(Text::HelpOverviewAdd))->needs(project);
    command->callback([options, &streams, &status] { status = Overview(*options, streams); });
}

}  // namespace Estimate
