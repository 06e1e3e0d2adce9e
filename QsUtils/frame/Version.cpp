#include "QsUtils/frame/Version.h"

const char* QsUtilsVersion() {
    return QSUTILS_VERSION;
}
