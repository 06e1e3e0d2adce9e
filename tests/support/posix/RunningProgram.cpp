#include "tests/support/RunningProgram.h"

#include <csignal>
#include <stdexcept>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/posix/ProgramStart.h"

namespace {

void CloseOnce(std::intptr_t& file) {
    if (file >= 0)
        close(static_cast<int>(file));
    file = -1;
}

[[noreturn]] void BecomeConnected(const ProgramCall& call, ProgramArguments& arguments, int in, int out) {
    if (dup2(in, STDIN_FILENO) >= 0 && dup2(out, STDOUT_FILENO) >= 0)
        BecomeProgram(call, arguments);
    _exit(NotStarted);
}

}  // namespace

RunningProgram::RunningProgram(const ProgramCall& call) {
    ProgramArguments arguments(call);
    int in[2];
    int out[2];
    if (pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    m_process = fork();
    if (m_process == 0)
        BecomeConnected(call, arguments, in[0], out[1]);
    close(in[0]);
    close(out[1]);
    m_in = in[1];
    m_out = out[0];
    if (m_process < 0)
        throw std::runtime_error("can't start " + call.program.string());
}

RunningProgram::~RunningProgram() {
    Wait();
    CloseOnce(m_out);
}

std::string RunningProgram::ReadLine() {
    std::string line;
    for (char byte = '\0'; read(static_cast<int>(m_out), &byte, 1) == 1 && byte != '\n';)
        line += byte;
    return line;
}

void RunningProgram::Write(const std::string& bytes) {
    static_cast<void>(write(static_cast<int>(m_in), bytes.data(), bytes.size()));
}

void RunningProgram::CloseInput() {
    CloseOnce(m_in);
}

void RunningProgram::Kill() {
    kill(static_cast<pid_t>(m_process), SIGKILL);
}

long RunningProgram::Id() const {
    return static_cast<long>(m_process);
}

int RunningProgram::Wait() {
    CloseInput();
    int status = 0;
    if (m_process > 0 && waitpid(static_cast<pid_t>(m_process), &status, 0) == m_process && WIFEXITED(status))
        m_status = WEXITSTATUS(status);
    m_process = -1;
    return m_status;
}
