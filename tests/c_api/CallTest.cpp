// What a call of the C interface makes of arguments and of exceptions.
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/RuntimeException.hpp>

#include "QsUtils/c_api/Calls.h"

namespace {

using QsCApi::Call;
using QsCApi::TextOf;

template <typename Exception>
QsStatus StatusOf(const Exception& exception) {
    return Call([&] { throw exception; });
}

TEST(CApiCall, AnExceptionBecomesAStatus) {
    EXPECT_EQ(StatusOf(CAtlException(CAtlException::InvalidArgument)), QS_INVALID_ARGUMENT);
    EXPECT_EQ(StatusOf(CAtlException(5)), QS_FAILED);
    EXPECT_EQ(StatusOf(std::bad_alloc()), QS_OUT_OF_MEMORY);
    EXPECT_EQ(StatusOf(std::bad_array_new_length()), QS_OUT_OF_MEMORY);
    EXPECT_EQ(StatusOf(std::length_error("long")), QS_OUT_OF_MEMORY);
    EXPECT_EQ(StatusOf(std::out_of_range("range")), QS_FAILED);
    EXPECT_EQ(StatusOf(xercesc::OutOfMemoryException()), QS_OUT_OF_MEMORY);
    EXPECT_EQ(StatusOf(5), QS_FAILED) << "whatever it is";
}

TEST(CApiCall, ALengthThatNoMemoryHoldsIsAStatus) {
    EXPECT_EQ(Call([] {
                  std::vector<char> bytes;
                  bytes.reserve(bytes.max_size() + 1);
              }),
              QS_OUT_OF_MEMORY);
    EXPECT_EQ(Call([] { CString().Preallocate(-1); }), QS_INVALID_ARGUMENT);
}

TEST(CApiCall, ResultsAreEmptyUnlessTheWorkIsDone) {
    int number = 7;
    const char* text = "old";
    EXPECT_EQ(Call(
                  [&] {
                      EXPECT_EQ(number, 0) << "before the work";
                      EXPECT_EQ(text, nullptr);
                      number = 5;
                      text = "new";
                      throw std::bad_alloc();
                  },
                  &number, &text),
              QS_OUT_OF_MEMORY);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(Call([&] { number = 5; }, &number), QS_OK);
    EXPECT_EQ(number, 5);
    EXPECT_EQ(Call(
                  [&] {
                      number = 6;
                      return QsStatus{QS_NOT_FOUND};
                  },
                  &number),
              QS_NOT_FOUND);
    EXPECT_EQ(number, 6) << "the work's own answer";
}

TEST(CApiCall, WithoutAPlaceForAResultNothingIsDone) {
    int number = 7;
    int* const nowhere = nullptr;
    bool isDone = false;
    EXPECT_EQ(Call([&] { isDone = true; }, &number, nowhere), QS_INVALID_ARGUMENT);
    EXPECT_EQ(number, 0);
    EXPECT_FALSE(isDone);
}

TEST(CApiCall, TextsOfCallers) {
    EXPECT_EQ(TextOf(u"ab", -1), u"ab");
    EXPECT_EQ(TextOf(u"ab", 1), u"a");
    EXPECT_EQ(TextOf(u"ab", 0), u"");
    EXPECT_EQ(TextOf(u"a\0b", 3).View(), std::u16string_view(u"a\0b", 3));
    EXPECT_EQ(TextOf(nullptr, 0), u"");
    EXPECT_EQ(TextOf(nullptr, -1), u"");
    EXPECT_THROW(TextOf(nullptr, 1), CAtlException);
    EXPECT_THROW(TextOf(u"ab", -2), CAtlException);
    EXPECT_THROW(TextOf(nullptr, -2), CAtlException);
    EXPECT_THROW(TextOf(u"ab", INT32_MIN), CAtlException);
}

TEST(CApiCall, BytesOfCallers) {
    EXPECT_EQ(QsCApi::SizeOf("ab", -1), 2u);
    EXPECT_EQ(QsCApi::SizeOf("ab", 1), 1u);
    EXPECT_EQ(QsCApi::SizeOf(nullptr, -1), 0u);
    EXPECT_EQ(QsCApi::SizeOf(nullptr, 0), 0u);
    EXPECT_THROW(QsCApi::SizeOf(nullptr, 1), CAtlException);
    EXPECT_THROW(QsCApi::SizeOf("ab", -2), CAtlException);
}

TEST(CApiCall, CountsThatCDoesntHold) {
    EXPECT_EQ(QsCApi::CountOf(INT32_MAX), INT32_MAX);
    EXPECT_THROW(QsCApi::CountOf(std::size_t{INT32_MAX} + 1), CAtlException);
}

}  // namespace
