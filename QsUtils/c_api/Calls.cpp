#include "QsUtils/c_api/Calls.h"

#include <cstring>
#include <limits>
#include <new>
#include <stdexcept>
#include <string>

#include <xercesc/util/OutOfMemoryException.hpp>

namespace QsCApi {

QsStatus StatusOfException() noexcept {
    try {
        throw;
    } catch (const CAtlException& exception) {
        return exception.m_hr == CAtlException::InvalidArgument ? QS_INVALID_ARGUMENT : QS_FAILED;
    } catch (const std::bad_alloc&) {
        return QS_OUT_OF_MEMORY;
    } catch (const std::length_error&) {  // more than any memory could hold
        return QS_OUT_OF_MEMORY;
    } catch (const xercesc::OutOfMemoryException&) {
        return QS_OUT_OF_MEMORY;
    } catch (...) {
        return QS_FAILED;
    }
}

std::int32_t CountOf(std::size_t count) {
    Require(count <= std::numeric_limits<std::int32_t>::max());
    return static_cast<std::int32_t>(count);
}

CString TextOf(const QsChar* text, std::int32_t length) {
    Require(length >= -1 && (text != nullptr || length <= 0));
    if (text == nullptr)
        return CString();
    return CString(text, length >= 0 ? length : CountOf(std::char_traits<QsChar>::length(text)));
}

std::size_t SizeOf(const char* bytes, std::int32_t length) {
    Require(length >= -1 && (bytes != nullptr || length <= 0));
    if (bytes == nullptr)
        return 0;
    return length >= 0 ? static_cast<std::size_t>(length) : std::strlen(bytes);
}

}  // namespace QsCApi
