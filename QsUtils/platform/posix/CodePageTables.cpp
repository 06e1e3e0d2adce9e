#include "QsUtils/platform/posix/CodePageTables.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>

#include "QsUtils/platform/CodePage.h"
#include "QsUtils/platform/posix/IcuPin.h"

namespace QsPlatform {

// All zero at first, so that the quarter of a megabyte takes no room in the file and no time at load.
constinit CodePageTables codePageTables{};
constinit std::atomic<bool> codePageFilled{false};

namespace {

constexpr char16_t Missing = u'?';
constexpr unsigned FirstTrail = 0x40;
constexpr unsigned NoTrail = 0x7F;
constexpr unsigned LastTrail = 0xFE;

constinit std::mutex fillingTables;

struct ConverterCloser {
    void operator()(UConverter* converter) const noexcept { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, ConverterCloser>;

/// Writes "?" for every unit that the page lacks. ICU's own substitution would leave some of them out, such
/// as the soft hyphen's relatives, and the units could not be told apart any more.
void WriteMissing(const void*, UConverterFromUnicodeArgs* target, const UChar*, std::int32_t, UChar32,
                  UConverterCallbackReason reason, UErrorCode* error) {
    if (reason > UCNV_IRREGULAR)
        return;
    *error = U_ZERO_ERROR;
    ucnv_cbFromUWriteBytes(target, "?", 1, 0, error);
}

/// The converter that holds Microsoft's own table, best fit included.
Converter OpenConverter() {
    UErrorCode error = U_ZERO_ERROR;
    Converter converter(ucnv_open("windows-936-2000", &error));
    if (converter == nullptr || U_FAILURE(error))
        return nullptr;
    ucnv_setFallback(converter.get(), true);
    ucnv_setFromUCallBack(converter.get(), &WriteMissing, nullptr, nullptr, nullptr, &error);
    return U_SUCCESS(error) ? std::move(converter) : nullptr;
}

void FillAscii() {
    codePageTables.encoded.fill(Missing);
    codePageTables.singles.fill(Missing);
    for (auto& row : codePageTables.pairs)
        row.fill(Missing);
    for (char16_t unit = 0; unit < 0x80; ++unit)
        codePageTables.encoded[unit] = codePageTables.singles[unit] = unit;
}

/// Encodes the units from `first` to `last` in one call and takes the answers apart again.
void FillEncoded(UConverter* converter, unsigned first, unsigned last) {
    std::u16string units;
    for (unsigned unit = first; unit <= last; ++unit)
        units += static_cast<char16_t>(unit);
    std::string bytes(2 * units.size(), '\0');
    UErrorCode error = U_ZERO_ERROR;
    const std::int32_t size =
        ucnv_fromUChars(converter, bytes.data(), static_cast<std::int32_t>(bytes.size()), units.data(),
                        static_cast<std::int32_t>(units.size()), &error);
    if (U_FAILURE(error))
        return;
    bytes.resize(static_cast<std::size_t>(size));
    const auto byteAt = [&bytes](std::size_t at) {
        return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0U;
    };
    std::size_t at = 0;
    for (const char16_t unit : units) {
        const unsigned byte = byteAt(at++);
        const unsigned trail = IsLeadByte(static_cast<unsigned char>(byte)) ? byteAt(at++) : 0U;
        // ICU falls back to controls for the half-width arrows; Windows never makes a control of a sign.
        codePageTables.encoded[unit] =
            byte < u' ' ? std::uint16_t{Missing} : static_cast<std::uint16_t>(byte | trail << 8);
    }
}

char16_t Decode(UConverter* converter, std::string_view bytes) {
    std::array<UChar, 4> units{};
    UErrorCode error = U_ZERO_ERROR;
    const std::int32_t length =
        ucnv_toUChars(converter, units.data(), static_cast<std::int32_t>(units.size()), bytes.data(),
                      static_cast<std::int32_t>(bytes.size()), &error);
    return U_SUCCESS(error) && length == 1 && units[0] != 0xFFFD ? units[0] : Missing;
}

void FillDecoded(UConverter* converter) {
    for (unsigned byte = 0x80; byte <= 0xFF; ++byte) {
        const char single = static_cast<char>(byte);
        if (!IsLeadByte(static_cast<unsigned char>(byte))) {
            codePageTables.singles[byte] = Decode(converter, {&single, 1});
            continue;
        }
        for (unsigned trail = FirstTrail; trail <= LastTrail; ++trail) {
            const char pair[] = {single, static_cast<char>(trail)};
            if (trail != NoTrail)
                codePageTables.pairs[byte - 0x81][trail] = Decode(converter, {pair, 2});
        }
    }
}

void Fill() {
    FillAscii();
    PinIcu();
    const Converter converter = OpenConverter();
    if (converter == nullptr)
        return;
    FillDecoded(converter.get());
    // Surrogates stay "?" each.
    FillEncoded(converter.get(), 0x80, 0xD7FF);
    FillEncoded(converter.get(), 0xE000, 0xFFFF);
}

}  // namespace

const CodePageTables& FillCodePage() {
    const std::lock_guard lock(fillingTables);
    if (!codePageFilled.load(std::memory_order_relaxed)) {
        Fill();
        codePageFilled.store(true, std::memory_order_release);
    }
    return codePageTables;
}

}  // namespace QsPlatform
