#include "tests/support/RunningProgram.h"

#include <stdexcept>

#include <windows.h>

#include "tests/support/win32/ProgramStart.h"

namespace {

HANDLE AsHandle(std::intptr_t number) {
    return reinterpret_cast<HANDLE>(number);
}

void CloseOnce(std::intptr_t& handle) {
    if (handle != -1)
        ::CloseHandle(AsHandle(handle));
    handle = -1;
}

/// One end for the program, the other for this process alone.
struct Pipe {
    explicit Pipe(bool programReads) {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        HANDLE read = nullptr;
        HANDLE write = nullptr;
        if (::CreatePipe(&read, &write, &inherited, 0) == 0)
            throw std::runtime_error("no pipe");
        theirs = programReads ? read : write;
        ours = programReads ? write : read;
        ::SetHandleInformation(ours, HANDLE_FLAG_INHERIT, 0);
    }
    HANDLE theirs = nullptr;
    HANDLE ours = nullptr;
};

}  // namespace

RunningProgram::RunningProgram(const ProgramCall& call) {
    const Pipe in(true);
    const Pipe out(false);
    m_in = reinterpret_cast<std::intptr_t>(in.ours);
    m_out = reinterpret_cast<std::intptr_t>(out.ours);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = in.theirs;
    start.hStdOutput = out.theirs;
    start.hStdError = ::GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION process{};
    std::wstring line = CommandLine(call);
    std::wstring environment = EnvironmentBlock(call);
    const bool isStarted =
        ::CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_UNICODE_ENVIRONMENT,
                         environment.data(), nullptr, &start, &process) != 0;
    ::CloseHandle(in.theirs);
    ::CloseHandle(out.theirs);
    if (!isStarted) {
        CloseOnce(m_in);
        CloseOnce(m_out);
        throw std::runtime_error("can't start " + call.program.string());
    }
    ::CloseHandle(process.hThread);
    m_process = reinterpret_cast<std::intptr_t>(process.hProcess);
}

RunningProgram::~RunningProgram() {
    Wait();
    CloseOnce(m_out);
}

std::string RunningProgram::ReadLine() {
    std::string line;
    DWORD count = 0;
    for (char each = '\0'; ::ReadFile(AsHandle(m_out), &each, 1, &count, nullptr) != 0 && count == 1;) {
        if (each == '\n')
            break;
        if (each != '\r')
            line += each;
    }
    return line;
}

void RunningProgram::Write(const std::string& bytes) {
    DWORD count = 0;
    ::WriteFile(AsHandle(m_in), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr);
}

void RunningProgram::CloseInput() {
    CloseOnce(m_in);
}

void RunningProgram::Kill() {
    ::TerminateProcess(AsHandle(m_process), 0xC0000001);
}

long RunningProgram::Id() const {
    return static_cast<long>(::GetProcessId(AsHandle(m_process)));
}

int RunningProgram::Wait() {
    CloseInput();
    if (m_process == -1)
        return m_status;
    ::WaitForSingleObject(AsHandle(m_process), INFINITE);
    DWORD status = 0;
    if (::GetExitCodeProcess(AsHandle(m_process), &status) != 0 && status < 0x80000000)
        m_status = static_cast<int>(status);
    CloseOnce(m_process);
    return m_status;
}
