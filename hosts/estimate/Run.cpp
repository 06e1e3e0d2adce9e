#include <QsUtils/QsUtils.h>

#include "CommandLine.h"
#include "Commands.h"
#include "Files.h"
#include "Refusal.h"

namespace Estimate {
namespace {

/// The library that is loaded need not be the one that the program was built with.
std::string VersionText() {
    return std::string("estimate ") + ESTIMATE_VERSION + "\nQsUtils " + QsUtilsVersion();
}

void AddProgramOptions(CLI::App& app, const Streams& streams) {
    const Words words(streams.language);
    app.set_version_flag("--version", VersionText, words(Text::HelpVersion));
    // The callbacks of the commands come later, so that the library begins with this folder.
    app.add_option_function<std::string>(
           "--installation",
           [&streams](const std::string& folder) {
               if (!UseInstallation(folder))
                   throw CLI::ValidationError("--installation",
                                              Say<Text::NoInstallationFolder>(folder).In(streams.language));
           },
           words(Text::HelpInstallation))
        ->type_name("DIR");
}

void AddCommands(CLI::App& app, const Streams& streams, int& status) {
    AddPrice(app, streams, status);
    AddConvert(app, streams, status);
    AddEval(app, streams, status);
    AddVars(app, streams, status);
    AddCapital(app, streams, status);
    AddSort(app, streams, status);
    AddUnit(app, streams, status);
    AddLibraries(app, streams, status);
    AddOverview(app, streams, status);
    AddExtraCosts(app, streams, status);
    AddMarks(app, streams, status);
    AddHistory(app, streams, status);
    AddBackUp(app, streams, status);
}

/// Answers --help and --version, and tells what is wrong with all else.
int Answer(const CLI::App& app, const CLI::ParseError& error, const Streams& streams) {
    if (error.get_exit_code() == 0) {
        app.exit(error, streams.out, streams.err);
        return AllDone;
    }
    Refuse(streams, UsageFault(app, error));
    Refuse(streams, Say<Text::UsageHint>(CommandPath(app)));
    return CannotRun;
}

}  // namespace

int Run(const std::vector<std::string>& arguments, const Streams& streams) {
    CLI::App app(Words(streams.language)(Text::HelpProgram), "estimate");
    app.require_subcommand(1);
    // A path may begin with a slash; an option begins with a dash on every system.
    app.allow_windows_style_options(false);
    int status = AllDone;
    AddProgramOptions(app, streams);
    AddCommands(app, streams, status);
    SpeakLanguage(app, streams.language);
    try {
        // The parser takes its arguments from the back.
        std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
        app.parse(std::move(reversed));
    } catch (const CLI::ParseError& error) {
        status = Answer(app, error, streams);
    }
    streams.out.flush();
    if (!streams.out) {
        Refuse(streams, Say<Text::StandardOutputFailed>());
        return CannotRun;
    }
    return status;
}

std::vector<std::string> ArgumentsOrLines(const std::vector<std::string>& arguments, std::istream& in) {
    if (!arguments.empty())
        return arguments;
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        std::erase(line, '\r');
        lines.push_back(line);
    }
    return lines;
}

}  // namespace Estimate
