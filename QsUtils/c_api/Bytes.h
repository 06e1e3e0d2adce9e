// Bytes that the C interface hands out.
#pragma once

#include <string>

#include "QsUtils/c_api/Basics.h"

struct QsBytes {
    std::string bytes;
};
