// What the system's call for a new process wants to know.
#pragma once

#include <string>

#include "tests/support/ChildProcess.h"

std::wstring CommandLine(const ProgramCall& call);

/// This process's variables with some set anew, as the system wants them: one behind the other.
std::wstring EnvironmentBlock(const ProgramCall& call);
