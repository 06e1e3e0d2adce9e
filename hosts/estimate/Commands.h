// The commands of the program, behind the command line.
#pragma once

#include <istream>
#include <ostream>
#include <string>
#include <vector>

#include "Language.h"

namespace CLI {
class App;
}

namespace Estimate {

/// The program's result.
enum ExitStatus : int {
    AllDone = 0,    ///< everything was priced or answered
    SomeBad = 1,    ///< some rows or arguments were bad; the others were priced or answered
    CannotRun = 2,  ///< wrong usage, or an input or output that can't be used at all
};

struct Streams {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    bool errIsTerminal = false;  ///< and shows a line that is drawn again and again
    Language language = Language::English;
};

/// Runs the program: `arguments` without the program's name. Returns an `ExitStatus`.
int Run(const std::vector<std::string>& arguments, const Streams& streams);

// Each adds one command to the command line; the command writes its result to `status`, and what it uses
// outlives the parsing.
void AddPrice(CLI::App& app, const Streams& streams, int& status);
void AddConvert(CLI::App& app, const Streams& streams, int& status);
void AddEval(CLI::App& app, const Streams& streams, int& status);
void AddVars(CLI::App& app, const Streams& streams, int& status);
void AddCapital(CLI::App& app, const Streams& streams, int& status);
void AddSort(CLI::App& app, const Streams& streams, int& status);
void AddUnit(CLI::App& app, const Streams& streams, int& status);
void AddLibraries(CLI::App& app, const Streams& streams, int& status);
void AddOverview(CLI::App& app, const Streams& streams, int& status);
void AddExtraCosts(CLI::App& app, const Streams& streams, int& status);
void AddMarks(CLI::App& app, const Streams& streams, int& status);
void AddHistory(CLI::App& app, const Streams& streams, int& status);
void AddBackUp(CLI::App& app, const Streams& streams, int& status);

/// The arguments, or the lines of standard input when there are none; carriage returns fall away.
std::vector<std::string> ArgumentsOrLines(const std::vector<std::string>& arguments, std::istream& in);

}  // namespace Estimate
