#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include "Commands.h"
#include "Files.h"

namespace Estimate {
namespace {

constexpr const char* Footer =
    "Exit status: 0 when all was priced or answered, 1 when some rows or arguments were bad and are reported "
    "on\n"
    "standard error, 2 when the program could not run.\n"
    "An argument that begins with \"-\" and is no option stands behind \"--\": estimate eval -- '-(1+2)'";

}  // namespace

int Run(const std::vector<std::string>& arguments, const Streams& streams) {
    CLI::App app("Prices a bill of quantities, and tries the operations that it takes one by one.",
                 "estimate");
    app.require_subcommand(1);
    app.footer(Footer);
    // A path may begin with a slash; an option begins with a dash on every system.
    app.allow_windows_style_options(false);
    app.set_help_all_flag("--help-all", "Print the help of all commands and exit");
    // The callbacks of the commands come later, so that the library begins with this folder.
    app.add_option_function<std::string>(
           "--installation",
           [](const std::string& folder) {
               if (!UseInstallation(folder))
                   throw CLI::ValidationError("--installation", "no folder of an installation: " + folder);
           },
           "Take the files of this installation, instead of those beside the program")
        ->type_name("DIR");
    int status = AllDone;
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
    try {
        // The parser takes its arguments from the back.
        std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
        app.parse(std::move(reversed));
    } catch (const CLI::ParseError& error) {
        return app.exit(error, streams.out, streams.err) == 0 ? AllDone : CannotRun;
    }
    streams.out.flush();
    if (!streams.out) {
        streams.err << "estimate: standard output can't be written\n";
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
