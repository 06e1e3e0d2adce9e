#include <sys/wait.h>
#include <unistd.h>

#include "tests/backup/faults/Operations.h"

namespace {

bool HasEnded(pid_t child) {
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

bool CarryApart(Operation operation, const CString& project, const FaultPoints::Plan& plan) {
    const pid_t child = ::fork();
    if (child == 0) {
        FaultPoints::Arm(plan);
        Carry(operation, project);
        ::_exit(0);
    }
    return HasEnded(child);
}
