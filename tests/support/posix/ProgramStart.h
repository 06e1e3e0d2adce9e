// How a child becomes another program, whatever its ends are tied to.
#pragma once

#include <cstdlib>
#include <string>
#include <vector>

#include <unistd.h>

#include "tests/support/ChildProcess.h"

/// What a shell returns for a program that can't be started, too.
inline constexpr int NotStarted = 127;

/// The program and its arguments as the system takes them.
class ProgramArguments {
public:
    explicit ProgramArguments(const ProgramCall& call) : m_texts{call.program.string()} {
        m_texts.insert(m_texts.end(), call.arguments.begin(), call.arguments.end());
        for (std::string& text : m_texts)
            m_pointers.push_back(text.data());
        m_pointers.push_back(nullptr);
    }
    ProgramArguments(const ProgramArguments&) = delete;
    ProgramArguments& operator=(const ProgramArguments&) = delete;

    char** Get() { return m_pointers.data(); }

private:
    std::vector<std::string> m_texts;
    std::vector<char*> m_pointers;
};

[[noreturn]] inline void BecomeProgram(const ProgramCall& call, ProgramArguments& arguments) {
    for (const auto& [name, value] : call.environment)
        setenv(name.c_str(), value.c_str(), 1);
    execvp(arguments.Get()[0], arguments.Get());
    _exit(NotStarted);
}
