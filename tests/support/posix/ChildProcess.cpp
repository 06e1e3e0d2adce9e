#include "tests/support/ChildProcess.h"

#include <array>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/posix/ProgramStart.h"

namespace {

/// A file without a name, for what a program writes.
class Capture {
public:
    Capture() : m_file(memfd_create("capture", MFD_CLOEXEC)) {}
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;
    ~Capture() { close(m_file); }

    int Descriptor() const { return m_file; }
    std::string Contents() const {
        std::string text;
        std::array<char, 4096> part{};
        lseek(m_file, 0, SEEK_SET);
        for (ssize_t count = read(m_file, part.data(), part.size()); count > 0;
             count = read(m_file, part.data(), part.size()))
            text.append(part.data(), static_cast<std::size_t>(count));
        return text;
    }

private:
    int m_file;
};

[[noreturn]] void BecomeCaptured(const ProgramCall& call, ProgramArguments& arguments, int out, int err) {
    const int nothing = open("/dev/null", O_RDONLY);
    if (dup2(nothing, STDIN_FILENO) >= 0 && dup2(out, STDOUT_FILENO) >= 0 && dup2(err, STDERR_FILENO) >= 0 &&
        (call.folder.empty() || chdir(call.folder.c_str()) == 0))
        BecomeProgram(call, arguments);
    _exit(NotStarted);
}

}  // namespace

ProgramResult RunProgram(const ProgramCall& call) {
    const Capture out;
    const Capture err;
    ProgramArguments arguments(call);
    const pid_t child = fork();
    if (child == 0)
        BecomeCaptured(call, arguments, out.Descriptor(), err.Descriptor());
    int status = 0;
    ProgramResult result;
    if (child < 0 || waitpid(child, &status, 0) != child)
        return result;
    const bool ended = WIFEXITED(status);
    result.isStarted = !ended || WEXITSTATUS(status) != NotStarted;
    if (ended && result.isStarted)
        result.status = WEXITSTATUS(status);
    result.out = out.Contents();
    result.err = err.Contents();
    return result;
}
