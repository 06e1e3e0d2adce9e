// Programs that run beside a test.
#pragma once

#include <cstdint>
#include <string>

#include "tests/support/ChildProcess.h"

/// A program of its own, started at once. Its standard input stays open until it is closed; what it writes to
/// standard error goes where this process's own does. The folder of the call isn't used.
class RunningProgram {
public:
    /// Raises `std::runtime_error` when the system doesn't take it for a program.
    explicit RunningProgram(const ProgramCall& call);
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;
    /// Closes its input and waits for its end.
    ~RunningProgram();

    /// The next line that it writes, without its end; waits for it. Empty when it writes no more.
    std::string ReadLine();
    void Write(const std::string& bytes);
    void CloseInput();
    /// Ends it without a word.
    void Kill();
    /// Its process number.
    long Id() const;
    /// Waits for its end; what it returned, or -1 when it was ended.
    int Wait();

private:
    std::intptr_t m_process = -1;
    std::intptr_t m_in = -1;
    std::intptr_t m_out = -1;
    int m_status = -1;
};
