// Every function of the C interface with arguments that it can't take.
#include <cstdint>
#include <string>
#include <tuple>
#include <type_traits>

#include <QsUtils/c_api.h>
#include <gtest/gtest.h>

#include "tests/c_api/CFunctions.h"

namespace {

/// Whether an argument is a place for a result: of a number, or of a handle or a pointer.
template <typename T>
inline constexpr bool isResult = false;
template <typename T>
inline constexpr bool isResult<T*> =
    !std::is_const_v<T> && (std::is_pointer_v<T> || (std::is_arithmetic_v<T> && !std::is_same_v<T, QsChar> &&
                                                     !std::is_same_v<T, char>));

template <typename T>
inline constexpr bool isText = std::is_same_v<T, const QsChar*> || std::is_same_v<T, const char*>;

/// Whether an argument is a handle, which is an object of an unknown class.
template <typename T, typename = void>
inline constexpr bool isComplete = false;
template <typename T>
inline constexpr bool isComplete<T, std::void_t<decltype(sizeof(T))>> = true;
template <typename T>
inline constexpr bool isHandle = false;
template <typename T>
inline constexpr bool isHandle<T*> = !std::is_void_v<T> && !std::is_function_v<T> && !isComplete<T>;

// Null is a good argument of theirs.
bool TakesNull(const std::string& name) {
    return name == "QsRemoveXmlAccessTool" || name == "QsExpressionToString";
}

/// A result that holds something else than nothing.
template <typename T>
T Garbage() {
    if constexpr (std::is_pointer_v<T>)
        return reinterpret_cast<T>(std::uintptr_t{0x10});
    else
        return T{1};
}

/// An argument without any sense, but for the places of results, which are good.
template <typename T>
struct Argument {
    T Value() const { return std::is_same_v<T, std::int32_t> ? static_cast<T>(-2) : T{}; }
    bool IsEmpty() const { return true; }
};
template <typename T>
struct Argument<T*> {
    using Stored = std::conditional_t<isResult<T*>, T, char>;
    Stored stored = Garbage<Stored>();

    T* Value() {
        if constexpr (isResult<T*>)
            return &stored;
        else
            return nullptr;
    }
    bool IsEmpty() const { return !isResult<T*> || stored == Stored{}; }
};

template <typename... Arguments>
void CallWithoutPlaces(const char* name, QsStatus (*function)(Arguments...)) {
    if constexpr (((isResult<Arguments> || isHandle<Arguments>) || ...)) {
        const bool isGood = TakesNull(name) && !(isResult<Arguments> || ...);
        EXPECT_EQ(function(Arguments{}...), isGood ? QS_OK : QS_INVALID_ARGUMENT) << name;
    }
}

template <typename... Arguments>
void CallWithoutPlaces(const char*, void (*function)(Arguments...)) {
    function(Arguments{}...);
}

/// Those whose texts are static take nothing that could be wrong.
template <typename... Arguments>
void CallWithoutPlaces(const char*, const char* (*)(Arguments...)) {}

/// Only where there is a text or a handle to be wrong: any number is good, and some functions wait for a
/// user.
template <typename... Arguments>
void CallWithoutSense(const char* name, QsStatus (*function)(Arguments...)) {
    if constexpr (((isText<Arguments> || isHandle<Arguments>) || ...)) {
        if (TakesNull(name))
            return;
        std::tuple<Argument<Arguments>...> arguments;
        const QsStatus status =
            std::apply([&](auto&... argument) { return function(argument.Value()...); }, arguments);
        EXPECT_EQ(status, QS_INVALID_ARGUMENT) << name;
        const bool areEmpty =
            std::apply([](auto&... argument) { return (argument.IsEmpty() && ...); }, arguments);
        EXPECT_TRUE(areEmpty) << name << " has left a result";
    }
}

template <typename Result, typename... Arguments>
void CallWithoutSense(const char*, Result (*)(Arguments...)) {}

TEST(CApiArguments, WithoutPlacesForResultsAndWithoutHandlesNothingIsDone) {
#define CALL(name) CallWithoutPlaces(#name, name);
    C_FUNCTIONS(CALL)
#undef CALL
}

TEST(CApiArguments, BadLengthsAreToldAndResultsAreEmptied) {
#define CALL(name) CallWithoutSense(#name, name);
    C_FUNCTIONS(CALL)
#undef CALL
}

TEST(CApiArguments, EachPlaceForAResultIsNeeded) {
    QsString* text = reinterpret_cast<QsString*>(0x10);
    std::int32_t number = 7;
    EXPECT_EQ(QsCutFirstSegment(u"a/b", -1, u"/", -1, &text, nullptr), QS_INVALID_ARGUMENT);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(QsCutFirstSegment(u"a/b", -1, u"/", -1, nullptr, &number), QS_INVALID_ARGUMENT);
    EXPECT_EQ(number, 0);
}

TEST(CApiArguments, ANullWithALengthIsNoText) {
    std::int32_t number = 7;
    EXPECT_EQ(QsbIsNum(nullptr, 1, &number), QS_INVALID_ARGUMENT);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(QsbIsNum(nullptr, -1, &number), QS_OK);
    EXPECT_EQ(QsbIsNum(nullptr, 0, &number), QS_OK);
    EXPECT_EQ(QsbIsNum(u"1", INT32_MIN, &number), QS_INVALID_ARGUMENT);
}

TEST(CApiArguments, ALaterTextIsLookedAtAsWell) {
    std::int32_t number = 7;
    EXPECT_EQ(QsCompareQDCode(u"1", -1, nullptr, 1, &number), QS_INVALID_ARGUMENT);
    EXPECT_EQ(QsCompareQDCode(u"1", -1, u"2", -3, &number), QS_INVALID_ARGUMENT);
    EXPECT_EQ(number, 0);
}

TEST(CApiArguments, AListStaysAsItWasWhenACallIsRefused) {
    QsTextList* list = nullptr;
    ASSERT_EQ(QsTextList_Create(&list), QS_OK);
    ASSERT_EQ(QsTextList_Add(list, u"mine", -1), QS_OK);
    EXPECT_EQ(QsTransStrToAry(u"a,b", -1, u",", -5, list), QS_INVALID_ARGUMENT);
    EXPECT_EQ(QsSplit(nullptr, 4, u',', list), QS_INVALID_ARGUMENT);
    EXPECT_EQ(QsTransStrToAry(u"a,b", -1, nullptr, 0, list), QS_OK) << "an empty separator";
    std::int32_t count = 0;
    EXPECT_EQ(QsTextList_Count(list, &count), QS_OK);
    EXPECT_EQ(count, 1);
    QsTextList_Free(list);
}

TEST(CApiArguments, IndexesOutOfAList) {
    QsTextList* list = nullptr;
    ASSERT_EQ(QsTextList_Create(&list), QS_OK);
    ASSERT_EQ(QsTextList_Add(list, u"mine", -1), QS_OK);
    for (const std::int32_t index : {-1, 1, INT32_MAX, INT32_MIN}) {
        const QsChar* units = u"old";
        std::int32_t length = 7;
        EXPECT_EQ(QsTextList_Get(list, index, &units, &length), QS_INVALID_ARGUMENT);
        EXPECT_EQ(units, nullptr);
        EXPECT_EQ(length, 0);
    }
    QsTextList_Free(list);
}

TEST(CApiArguments, Buffers) {
    QsString* text = nullptr;
    ASSERT_EQ(QsString_Create(u"ab", -1, &text), QS_OK);
    QsChar buffer[3] = {u'x', u'x', u'x'};
    std::int32_t length = 0;
    EXPECT_EQ(QsString_Copy(text, nullptr, 0, &length), QS_BUFFER_TOO_SMALL);
    EXPECT_EQ(length, 2);
    EXPECT_EQ(QsString_Copy(text, buffer, 2, &length), QS_BUFFER_TOO_SMALL);
    EXPECT_EQ(length, 2);
    EXPECT_EQ(buffer[0], u'x');
    EXPECT_EQ(QsString_Copy(text, nullptr, 3, &length), QS_INVALID_ARGUMENT);
    EXPECT_EQ(QsString_Copy(text, buffer, -1, &length), QS_INVALID_ARGUMENT);
    EXPECT_EQ(QsString_Copy(text, buffer, 3, nullptr), QS_INVALID_ARGUMENT);
    EXPECT_EQ(QsString_Copy(text, buffer, 3, &length), QS_OK);
    EXPECT_EQ(std::u16string(buffer), u"ab");
    QsString_Free(text);
}

TEST(CApiArguments, EveryStatusHasItsName) {
    EXPECT_STREQ(QsStatusText(QS_OK), "QS_OK");
    EXPECT_STREQ(QsStatusText(QS_INVALID_ARGUMENT), "QS_INVALID_ARGUMENT");
    EXPECT_STREQ(QsStatusText(QS_OUT_OF_MEMORY), "QS_OUT_OF_MEMORY");
    EXPECT_STREQ(QsStatusText(QS_NOT_FOUND), "QS_NOT_FOUND");
    EXPECT_STREQ(QsStatusText(QS_BUFFER_TOO_SMALL), "QS_BUFFER_TOO_SMALL");
    EXPECT_STREQ(QsStatusText(QS_FAILED), "QS_FAILED");
    for (const QsStatus other : {-1, 6, INT32_MAX, INT32_MIN})
        EXPECT_STREQ(QsStatusText(other), "unknown status");
}

}  // namespace
