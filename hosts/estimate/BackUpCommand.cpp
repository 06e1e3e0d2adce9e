// The backup of a project's working copy, one event at a time.
#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "CommandLine.h"
#include "Commands.h"
#include "Files.h"
#include "Refusal.h"
#include "Utf8.h"

namespace Estimate {
namespace {

namespace fs = std::filesystem;

/// The path of the project file in full, as the library takes it; none for a name that its form can't say.
std::optional<CString> ProjectPath(const std::string& argument) {
    std::error_code error;
    const fs::path full =
        fs::absolute(std::u8string(argument.begin(), argument.end()), error).lexically_normal();
    const std::u8string name = full.u8string();
    if (error || !LibraryPath(std::string(name.begin(), name.end())))
        return std::nullopt;
    return FromNativePath(full);
}

/// It stands beside the project file.
fs::path DataBaseOf(const CString& project) {
    const int point = project.ReverseFind(u'.');
    return ToNativePath((point < 0 ? project : project.Left(point)) + u".mdb");
}

bool IsFile(const fs::path& path) {
    std::error_code ignored;
    return fs::is_regular_file(path, ignored);
}

/// False also when one of them can't be read.
bool HaveSameBytes(const fs::path& a, const fs::path& b) {
    std::ifstream one(a, std::ios::binary);
    std::ifstream other(b, std::ios::binary);
    std::vector<char> bytes(std::size_t{1} << 16);
    std::vector<char> otherBytes(bytes.size());
    while (one && other) {
        one.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        other.read(otherBytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (one.gcount() != other.gcount() ||
            !std::equal(bytes.begin(), bytes.begin() + one.gcount(), otherBytes.begin()))
            return false;
    }
    return one.eof() && other.eof() && !one.bad() && !other.bad();
}

std::string TextOf(const fs::path& path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

std::string NativeText(const CString& path) {
    return TextOf(ToNativePath(path));
}

/// Tells which of the projects that share a backup is open: each event is a run of the program of its own.
fs::path NoteOf(const CString& project) {
    CString folder;
    IQsUtils::GetCurBackUpPath(folder, project);
    return ToNativePath(folder) / "estimate-project.txt";
}

using Event = int (*)(const CString& project, const Streams& streams);

int Open(const CString& project, const Streams& streams) {
    if (!IsFile(DataBaseOf(project))) {
        Refuse(streams, Say<Text::NoDatabase>(NativeText(project)));
        return CannotRun;
    }
    CString working;
    IQsUtils::GetCurBackUpDataBasePath(working, project);
    std::error_code ignored;
    fs::remove(NoteOf(project), ignored);
    IQsUtils::InitBackUpInfo(project);
    // The library tells nothing of a failure, and then leaves the working copy of a former run, which may be
    // that of another project: a save would put it over this one's database.
    if (!HaveSameBytes(DataBaseOf(project), ToNativePath(working))) {
        Refuse(streams, Say<Text::NoWorkingCopy>(NativeText(working)));
        return CannotRun;
    }
    const Message failure = WriteOutput(
        TextOf(NoteOf(project)), [&project](std::ostream& note) { note << NativeText(project) << '\n'; });
    if (!failure.empty()) {
        Refuse(streams, failure);
        return CannotRun;
    }
    streams.out << NativeText(working) << '\n';
    return AllDone;
}

/// The other events need a project that is open, and not another one of its name.
bool IsOpen(const CString& project, const Streams& streams) {
    std::ifstream note(NoteOf(project), std::ios::binary);
    std::string opened;
    std::getline(note, opened, '\0');
    return opened == NativeText(project) + '\n' ||
           Refuse(streams, Say<Text::ProjectNotOpen>(NativeText(project)));
}

int Save(const CString& project, const Streams& streams) {
    if (!IsOpen(project, streams))
        return CannotRun;
    IQsUtils::OnBackUpSaveFile(project);
    return AllDone;
}

int Discard(const CString& project, const Streams& streams) {
    if (!IsOpen(project, streams))
        return CannotRun;
    IQsUtils::OnNotSaveGraphicFile(project);
    return AllDone;
}

int Changed(const CString& project, const Streams& streams) {
    if (!IsOpen(project, streams))
        return CannotRun;
    IQsUtils::UpdateGraphicFileVer(project);
    return AllDone;
}

void AddEvent(CLI::App& backUp, const char* name, Text help, Event event, const Streams& streams,
              int& status) {
    auto project = std::make_shared<std::string>();
    const Words words(streams.language);
    CLI::App* command = backUp.add_subcommand(name, words(help));
    command->add_option("project", *project, words(Text::HelpBackUpProject))->type_name(FileType)->required();
    command->callback([project, event, &streams, &status] {
        const std::optional<CString> path = ProjectPath(*project);
        if (path) {
            status = event(*path, streams);
        } else {
            Refuse(streams, Say<Text::ProjectNoName>(*project));
            status = CannotRun;
        }
    });
}

}  // namespace

void AddBackUp(CLI::App& app, const Streams& streams, int& status) {
    CLI::App* command = app.add_subcommand("backup", Words(streams.language)(Text::HelpBackUp));
    command->require_subcommand(1);
    AddEvent(*command, "open", Text::HelpBackUpOpen, Open, streams, status);
    AddEvent(*command, "save", Text::HelpBackUpSave, Save, streams, status);
    AddEvent(*command, "discard", Text::HelpBackUpDiscard, Discard, streams, status);
    AddEvent(*command, "changed", Text::HelpBackUpChanged, Changed, streams, status);
}

}  // namespace Estimate
