// What the functions of the C interface are made of: arguments that are checked, results, and a status in
// place of exceptions.
#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

#include "QsUtils/c_api/Basics.h"
#include "QsUtils/text/CAtlException.h"
#include "QsUtils/text/CString.h"

struct QsString {
    CString text;
};

namespace QsCApi {

/// The status of the exception at hand; only to be called in a handler.
QsStatus StatusOfException() noexcept;

/// Runs `work`, which gives nothing or a status. The places of results must not be null; they hold null or 0
/// before `work` and when it raises, so it hands nothing out before it can't raise any more.
template <typename Work, typename... Results>
QsStatus Call(const Work& work, Results*... results) noexcept {
    bool haveAllPlaces = true;
    ((results != nullptr ? void(*results = Results{}) : void(haveAllPlaces = false)), ...);
    if (!haveAllPlaces)
        return QS_INVALID_ARGUMENT;
    try {
        if constexpr (std::is_same_v<decltype(work()), QsStatus>) {
            return work();
        } else {
            work();
            return QS_OK;
        }
    } catch (...) {
        ((*results = Results{}), ...);
        return StatusOfException();
    }
}

/// For what can't fail by itself: the exception of an invalid argument.
inline void Require(bool isGood) {
    if (!isGood)
        throw CAtlException(CAtlException::InvalidArgument);
}

/// What a handle stands for.
template <typename Handle>
Handle& Checked(Handle* handle) {
    Require(handle != nullptr);
    return *handle;
}

/// The element of that index.
template <typename Container>
auto& At(Container& container, std::int32_t index) {
    Require(index >= 0 && static_cast<std::size_t>(index) < container.size());
    return container[static_cast<std::size_t>(index)];
}

/// A count or a length, which C has as an int.
std::int32_t CountOf(std::size_t count);

/// A text of a caller's, as the rules of the interface say.
CString TextOf(const QsChar* text, std::int32_t length);

/// Such a text, for functions that pass several on.
struct Argument {
    const QsChar* units;
    std::int32_t length;
};

inline CString TextOf(Argument text) {
    return TextOf(text.units, text.length);
}

/// The number of bytes of a caller's, likewise.
std::size_t SizeOf(const char* bytes, std::int32_t length);

/// Hands a text out.
inline void Give(QsString** result, CString text) {
    *result = new QsString{std::move(text)};
}

/// Lends the units of a text.
inline void Lend(const CString& text, const QsChar** units, std::int32_t* length) {
    *length = CountOf(text.View().size());
    *units = text.View().data();
}

}  // namespace QsCApi
