#include "QsUtils/platform/posix/WordWeights.h"

#include <atomic>
#include <mutex>

#include "QsUtils/platform/posix/IcuWordWeights.h"
#include "QsUtils/platform/posix/WordPrimaries.h"

namespace QsPlatform {

namespace {

constexpr std::size_t PageSize = 0x100;

constexpr std::array<std::uint8_t, 0x80> MakeAsciiPrimaries() {
    std::array<std::uint8_t, 0x80> primaries{};
    for (char16_t unit = 0; unit < 0x80; ++unit)
        primaries[unit] = AsciiPrimary(unit);
    return primaries;
}

constexpr std::array<UnitWeight, 0x80> MakeAsciiWeights() {
    std::array<UnitWeight, 0x80> weights{};
    for (char16_t unit = 0; unit < 0x80; ++unit)
        weights[unit] = AsciiWeight(unit);
    return weights;
}

constexpr std::array<UnitWeight, 0x80> AsciiWeights = MakeAsciiWeights();

// All zero at first: only the pages that are asked for take memory.
constinit std::array<std::array<UnitWeight, PageSize>, 0x100> pages{};
constinit std::array<std::atomic<bool>, 0x100> filled{};
constinit std::mutex fillingPages;

void FillPage(std::size_t page) {
    const std::lock_guard lock(fillingPages);
    if (filled[page].load(std::memory_order_relaxed))
        return;
    FillWordWeights(static_cast<char16_t>(page * PageSize), pages[page]);
    filled[page].store(true, std::memory_order_release);
}

}  // namespace

constinit const std::array<std::uint8_t, 0x80> AsciiPrimaries = MakeAsciiPrimaries();

const UnitWeight& WeightOf(char16_t unit) {
    if (unit < 0x80)
        return AsciiWeights[unit];
    const std::size_t page = unit / PageSize;
    if (!filled[page].load(std::memory_order_acquire))
        FillPage(page);
    return pages[page][unit % PageSize];
}

UnitWeight SupplementaryWeight(char32_t character) {
    UnitWeight weight = LetterWeight();
    AddPrimary(weight, Lead::Supplementary);
    for (int shift = 16; shift >= 0; shift -= 8)
        AddPrimary(weight, static_cast<std::uint8_t>(character >> shift & 0xFF));
    return weight;
}

}  // namespace QsPlatform
