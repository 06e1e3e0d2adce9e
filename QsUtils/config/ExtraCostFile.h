// The file beside a cost library that lists its over-height options and its extra costs.
#pragma once

#include <list>
#include <map>
#include <optional>

#include "QsUtils/config/ExtraCostType.h"
#include "QsUtils/text/CString.h"

namespace QsConfig {

struct ExtraCosts {
    std::list<CString> overHeight;     ///< the names of the options, in the order of the file
    std::map<CString, CString> types;  ///< the coefficient texts by the names of the types
};

/// The path of the file that goes with a library file: ".ec" in the place of everything from the last point
/// on. Empty for a path without a point.
CString ExtraCostPath(const CString& libraryPath);

/// Reads a file. Nothing when it can't be read or parsed. Any thread may call it.
std::optional<ExtraCosts> ReadExtraCosts(const CString& path);

/// What a coefficient text stands for, in exact spelling.
eExtraCost_CoefficientType CoefficientTypeOf(const CString& text);

}  // namespace QsConfig
