#include "tests/support/ChildProcess.h"

#include <array>

#include <windows.h>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/win32/ProgramStart.h"

namespace {

/// A file that the program writes into.
class Capture {
public:
    explicit Capture(const std::filesystem::path& path) {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        m_file = ::CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                               &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    }
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;
    ~Capture() { ::CloseHandle(m_file); }

    HANDLE Handle() const { return m_file; }
    std::string Contents() const {
        std::string text;
        std::array<char, 4096> part{};
        DWORD count = 0;
        ::SetFilePointer(m_file, 0, nullptr, FILE_BEGIN);
        while (::ReadFile(m_file, part.data(), part.size(), &count, nullptr) != 0 && count > 0)
            text.append(part.data(), count);
        return text;
    }

private:
    HANDLE m_file;
};

}  // namespace

ProgramResult RunProgram(const ProgramCall& call) {
    const TemporaryFolder folder;
    const Capture in(folder.File("in"));
    const Capture out(folder.File("out"));
    const Capture err(folder.File("err"));
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = in.Handle();
    start.hStdOutput = out.Handle();
    start.hStdError = err.Handle();
    PROCESS_INFORMATION process{};
    std::wstring line = CommandLine(call);
    std::wstring environment = EnvironmentBlock(call);
    ProgramResult result;
    if (::CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_UNICODE_ENVIRONMENT,
                         environment.data(), call.folder.empty() ? nullptr : call.folder.c_str(), &start,
                         &process) == 0)
        return result;
    result.isStarted = true;
    ::WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = 0;
    // What a crash leaves as status has its highest bit set.
    if (::GetExitCodeProcess(process.hProcess, &status) != 0 && status < 0x80000000)
        result.status = static_cast<int>(status);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
    result.out = out.Contents();
    result.err = err.Contents();
    return result;
}
