// How a command says that it can't run.
#pragma once

#include <string>

#include "Commands.h"
#include "Files.h"
#include "Message.h"

namespace Estimate {

/// Tells the reason on standard error; always false.
bool Refuse(const Streams& streams, const Message& reason);

/// Tells on standard error, behind the program's name, what a user should know of.
void Warn(const Streams& streams, const Message& warning);

/// Opens a file, or tells that it can't be read; the result then has no stream.
InputFile OpenOrRefuse(const std::string& path, const Streams& streams);

}  // namespace Estimate
