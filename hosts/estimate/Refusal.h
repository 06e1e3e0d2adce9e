// How a command says that it can't run.
#pragma once

#include <string>

#include "Commands.h"
#include "Files.h"

namespace Estimate {

/// Tells the reason on standard error; always false.
bool Refuse(const Streams& streams, const std::string& reason);

/// Opens a file, or tells that it can't be read; the result then has no stream.
InputFile OpenOrRefuse(const std::string& path, const Streams& streams);

}  // namespace Estimate
