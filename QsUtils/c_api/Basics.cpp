#include "QsUtils/c_api/Basics.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "QsUtils/c_api/Bytes.h"
#include "QsUtils/c_api/Calls.h"

using QsCApi::Call;
using QsCApi::Checked;
using QsCApi::CountOf;
using QsCApi::Require;

namespace {

/// Copies units and a NUL to a buffer with room for `capacity`.
template <typename Unit>
QsStatus CopyTo(std::basic_string_view<Unit> units, Unit* buffer, std::int32_t capacity,
                std::int32_t* length) {
    Require(capacity >= 0 && (buffer != nullptr || capacity == 0));
    *length = CountOf(units.size());
    if (*length >= capacity)
        return QS_BUFFER_TOO_SMALL;
    *std::copy(units.begin(), units.end(), buffer) = Unit();
    return QS_OK;
}

}  // namespace

const char* QsStatusText(QsStatus status) {
    static constexpr const char* Texts[] = {"QS_OK",        "QS_INVALID_ARGUMENT", "QS_OUT_OF_MEMORY",
                                            "QS_NOT_FOUND", "QS_BUFFER_TOO_SMALL", "QS_FAILED"};
    if (status < 0 || static_cast<std::size_t>(status) >= std::size(Texts))
        return "unknown status";
    return Texts[status];
}

QsStatus QsString_Create(const QsChar* text, std::int32_t length, QsString** result) {
    return Call([&] { QsCApi::Give(result, QsCApi::TextOf(text, length)); }, result);
}

QsStatus QsString_Units(const QsString* text, const QsChar** units, std::int32_t* length) {
    return Call([&] { QsCApi::Lend(Checked(text).text, units, length); }, units, length);
}

QsStatus QsString_Copy(const QsString* text, QsChar* buffer, std::int32_t capacity, std::int32_t* length) {
    return Call([&] { return CopyTo(Checked(text).text.View(), buffer, capacity, length); }, length);
}

void QsString_Free(QsString* text) {
    delete text;
}

QsStatus QsBytes_Data(const QsBytes* bytes, const char** data, std::int32_t* length) {
    return Call(
        [&] {
            *length = CountOf(Checked(bytes).bytes.size());
            *data = bytes->bytes.c_str();
        },
        data, length);
}

QsStatus QsBytes_Copy(const QsBytes* bytes, char* buffer, std::int32_t capacity, std::int32_t* length) {
    return Call([&] { return CopyTo(std::string_view(Checked(bytes).bytes), buffer, capacity, length); },
                length);
}

void QsBytes_Free(QsBytes* bytes) {
    delete bytes;
}
