#include "Session.h"

#include <csignal>

#include <QsUtils/QsUtils.h>
#include <poll.h>
#include <unistd.h>

namespace OpenBudget {
namespace {

constexpr int EndSignals[] = {SIGINT, SIGTERM, SIGHUP};

void Ignore(int) {}

}  // namespace

// Blocked but for the wait, so that none of them comes in between and is missed.
Session::Session() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int each : EndSignals) {
        sigaddset(&signals, each);
        struct sigaction action {};
        action.sa_handler = Ignore;
        sigaction(each, &action, nullptr);
    }
    sigprocmask(SIG_BLOCK, &signals, nullptr);
}

std::vector<std::u16string> Session::Arguments(int argc, char** argv) {
    std::vector<std::u16string> arguments;
    for (int i = 1; i < argc; ++i)
        arguments.push_back(std::filesystem::path(argv[i]).u16string());
    return arguments;
}

void Session::WaitForEnd() {
    sigset_t none;
    sigemptyset(&none);
    for (char byte = '\0'; byte != '\n';) {
        pollfd input{STDIN_FILENO, POLLIN, 0};
        if (ppoll(&input, 1, nullptr, &none) <= 0 || read(STDIN_FILENO, &byte, 1) <= 0)
            return;
    }
}

}  // namespace OpenBudget
