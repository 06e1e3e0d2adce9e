// A piece of a test in a process of its own.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

/// What `work` gives in a forked process, which may lower its limits and give up rights; -1 when it dies.
template <typename Work>
int InChild(Work work) {
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(work());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
