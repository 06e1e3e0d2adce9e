// What a text costs: how often the memory is asked.
#include <atomic>
#include <cstdlib>
#include <new>
#include <utility>

#include <gtest/gtest.h>

#include "QsUtils/text/CString.h"
#include "QsUtils/text/NumberText.h"

namespace {

std::atomic<long> allocations = 0;

}  // namespace

// Not to be inlined: the compiler would then see memory of "new" given to "free" and call it a mistake.
[[gnu::noinline]] void* operator new(std::size_t size) {
    allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* const memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace {

template <typename Call>
long AllocationsOf(Call call) {
    const long before = allocations.load();
    call();
    return allocations.load() - before;
}

TEST(CStringAllocation, SevenUnitsNeedNone) {
    EXPECT_EQ(AllocationsOf([] {
                  CString text = u"1234567";
                  CString wide = L"砖墙砖墙砖墙砖";
                  const CString copy = text;
                  text = u"abc" + text.Left(4);
                  wide += u"";
                  text.Trim().MakeUpper();
                  text.Insert(0, text.Mid(7));
                  text.Replace(u'A', u'B');
                  text = QsText::DoubleToCString(1234.56, 2, false);
                  EXPECT_EQ(text, u"1234.56");
                  EXPECT_TRUE(copy == L"1234567");
              }),
              0);
}

TEST(CStringAllocation, EightUnitsNeedOne) {
    EXPECT_EQ(AllocationsOf([] { const CString text = u"12345678"; }), 1);
}

TEST(CStringAllocation, MovingNeedsNone) {
    CString text(u'x', 1000);
    CString other(u'y', 1000);
    EXPECT_EQ(AllocationsOf([&] {
                  CString moved(std::move(text));
                  text = std::move(moved);
                  swap(text, other);
                  std::swap(text, other);
              }),
              0);
    EXPECT_EQ(text.GetLength(), 1000);
}

TEST(CStringAllocation, JoiningNeedsOneForTheResult) {
    const CString text(u'x', 50);
    EXPECT_EQ(AllocationsOf([&] { const CString joined = text + text; }), 1);
    EXPECT_EQ(AllocationsOf([&] { const CString joined = text + u"y"; }), 1);
    EXPECT_EQ(AllocationsOf([&] { const CString joined = u"y" + text; }), 1);
}

}  // namespace
