#include "HelpText.h"

#include <sstream>

#include "TestSupport.h"

namespace {

std::vector<std::string> SplitAt(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, separator);)
        parts.push_back(part);
    return parts;
}

void ReadEntry(const std::string& section, const std::string& line, CommandHelp& help) {
    const std::string name = line.substr(2, line.find(' ', 2) - 2);
    if (section == "Commands:")
        help.commands.push_back(name);
    if (section == "Options:")
        for (const std::string& option : SplitAt(name, ','))
            help.options.insert(option);
    const std::size_t open = line.find('{');
    if (open != std::string::npos)
        for (const std::string& word : SplitAt(line.substr(open + 1, line.find('}') - open - 1), ','))
            help.words.insert(word);
}

CommandHelp HelpOf(const std::string& path) {
    CommandHelp help{path, {}, {}, {}};
    std::vector<std::string> arguments = SplitAt(path, ' ');
    arguments.push_back("--help");
    std::string section;
    for (const std::string& line : SplitAt(RunEstimate(arguments).out, '\n')) {
        if (!line.starts_with(" "))
            section = line;
        else if (line.size() > 2 && line[2] != ' ')
            ReadEntry(section, line, help);
    }
    for (const std::string& option : CommonOptions())
        help.options.erase(option);
    return help;
}

void AddHelp(const std::string& path, std::vector<CommandHelp>& all) {
    const std::vector<std::string> commands = all.emplace_back(HelpOf(path)).commands;
    for (const std::string& command : commands)
        AddHelp(path.empty() ? command : path + " " + command, all);
}

}  // namespace

std::vector<CommandHelp> AllHelp() {
    std::vector<CommandHelp> all;
    AddHelp({}, all);
    return all;
}

const std::set<std::string>& CommonOptions() {
    static const std::set<std::string> options = {"-h", "--help", "--help-all"};
    return options;
}
