/** @file
    Which version of the module a process has loaded. Compiles as C, too. */
#pragma once

#include "QsUtils/platform/Api.h"

#if defined(__cplusplus)
extern "C" {
#endif

/** The version of the module that answers, such as "1.2.3": ASCII, static, never null. It may differ from
   that of the headers that a host was built with. Any thread. */
QSUTILS_API const char* QsUtilsVersion(void);

#if defined(__cplusplus)
}
#endif
