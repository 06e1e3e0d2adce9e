#include "QsUtils/text/CAtlException.h"

// Both are out of line so that the type information has one home, and a host catches what the module threw.
CAtlException::~CAtlException() = default;

const char* CAtlException::what() const noexcept {
    return m_hr == InvalidArgument ? "invalid argument" : "framework exception";
}
