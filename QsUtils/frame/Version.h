// Which version of the module a process has loaded.
#pragma once

#include "QsUtils/platform/Api.h"

/// The version of the module that answers, such as "1.2.3": ASCII, static, never null. It may differ from
/// that of the headers that a host was built with. Any thread.
extern "C" QSUTILS_API const char* QsUtilsVersion() noexcept;
