#include "QsUtils/frame/Version.h"

const char* QsUtilsVersion() noexcept {
    return QSUTILS_VERSION;
}
