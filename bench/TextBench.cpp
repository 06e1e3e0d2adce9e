// Numbers, numerals and code page conversion, beside what the system and other libraries offer.
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <fmt/compile.h>
#include <fmt/format.h>
#include <iconv.h>
#include <unicode/rbnf.h>

#include "QsUtils/QsUtils.h"

namespace {

// Quantities and amounts of a bill.
const double Amounts[] = {12.5,      3.375,   0.24,     1286.4,     45.24,    100,      0.65,  15489.37,
                          284.0625,  7.15,    96.4,     1234567.89, 54.2,     0.008,    18.2,  330,
                          2147.4836, 16.0949, 9999.995, 1.895,      78452.31, 360.0001, 0.005, 62.7};
constexpr std::size_t Count = std::size(Amounts);

const char* const DecimalTexts[] = {"12.5", "3.375",    "0.24",     "1286.4", "45.24", "100",
                                    "0.65", "15489.37", "284.0625", "7.15",   "96.4",  "1234567.89",
                                    "54.2", "0.008",    "18.2",     "330"};
const char* const WholeTexts[] = {"12",      "3", "0",  "1286", "45", "100", "65",  "15489",
                                  "2840625", "7", "96", "1",    "54", "8",   "-18", "330"};

int Decimals(std::size_t i) {
    return static_cast<int>(i % 5);
}

template <std::size_t N>
std::vector<CString> Texts(const char* const (&narrow)[N]) {
    std::vector<CString> texts;
    for (const char* text : narrow)
        texts.emplace_back(text);
    return texts;
}

/// Counts single operations, so that the times of one run compare.
template <typename Each>
void RunAll(benchmark::State& state, std::size_t count, Each each) {
    for (auto _ : state)
        for (std::size_t i = 0; i < count; ++i)
            each(i);
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(count));
}

// --- Doubles to text

void DoubleOurs(benchmark::State& state) {
    RunAll(state, Count, [](std::size_t i) {
        benchmark::DoNotOptimize(IQsUtils::DoubleToCString(Amounts[i], Decimals(i), false));
    });
}
BENCHMARK(DoubleOurs)->Name("Text/DoubleToCString/ours");

void DoubleSnprintf(benchmark::State& state) {
    RunAll(state, Count, [](std::size_t i) {
        char text[400];
        benchmark::DoNotOptimize(std::snprintf(text, sizeof text, "%.*f", Decimals(i), Amounts[i]));
        benchmark::DoNotOptimize(text);
    });
}
BENCHMARK(DoubleSnprintf)->Name("Text/DoubleToCString/snprintf");

void DoubleFmt(benchmark::State& state) {
    RunAll(state, Count, [](std::size_t i) {
        char text[400];
        benchmark::DoNotOptimize(fmt::format_to(text, FMT_COMPILE("{:.{}f}"), Amounts[i], Decimals(i)));
        benchmark::DoNotOptimize(text);
    });
}
BENCHMARK(DoubleFmt)->Name("Text/DoubleToCString/fmt");

void DoubleToChars(benchmark::State& state) {
    RunAll(state, Count, [](std::size_t i) {
        char text[400];
        benchmark::DoNotOptimize(
            std::to_chars(text, text + sizeof text, Amounts[i], std::chars_format::fixed, Decimals(i)));
        benchmark::DoNotOptimize(text);
    });
}
BENCHMARK(DoubleToChars)->Name("Text/DoubleToCString/to_chars");

// --- Text to numbers

void ParseDoubleOurs(benchmark::State& state) {
    const std::vector<CString> texts = Texts(DecimalTexts);
    RunAll(state, texts.size(), [&](std::size_t i) {
        double value = 0;
        benchmark::DoNotOptimize(IQsUtils::ParseToDouble(texts[i], value));
        benchmark::DoNotOptimize(value);
    });
}
BENCHMARK(ParseDoubleOurs)->Name("Text/ParseToDouble/ours");

void ParseDoubleStrtod(benchmark::State& state) {
    RunAll(state, std::size(DecimalTexts),
           [](std::size_t i) { benchmark::DoNotOptimize(std::strtod(DecimalTexts[i], nullptr)); });
}
BENCHMARK(ParseDoubleStrtod)->Name("Text/ParseToDouble/strtod");

void ParseDoubleFromChars(benchmark::State& state) {
    RunAll(state, std::size(DecimalTexts), [](std::size_t i) {
        double value = 0;
        const std::string_view text = DecimalTexts[i];
        benchmark::DoNotOptimize(std::from_chars(text.data(), text.data() + text.size(), value));
        benchmark::DoNotOptimize(value);
    });
}
BENCHMARK(ParseDoubleFromChars)->Name("Text/ParseToDouble/from_chars");

void ParseIntegerOurs(benchmark::State& state) {
    const std::vector<CString> texts = Texts(WholeTexts);
    RunAll(state, texts.size(), [&](std::size_t i) {
        int value = 0;
        benchmark::DoNotOptimize(IQsUtils::ParseToInteger(texts[i], value));
        benchmark::DoNotOptimize(value);
    });
}
BENCHMARK(ParseIntegerOurs)->Name("Text/ParseToInteger/ours");

void ParseIntegerStrtol(benchmark::State& state) {
    RunAll(state, std::size(WholeTexts),
           [](std::size_t i) { benchmark::DoNotOptimize(std::strtol(WholeTexts[i], nullptr, 10)); });
}
BENCHMARK(ParseIntegerStrtol)->Name("Text/ParseToInteger/strtol");

// --- Chinese numerals

void AmountOurs(benchmark::State& state) {
    RunAll(state, Count, [](std::size_t i) { benchmark::DoNotOptimize(IQsUtils::NumToRMBStr(Amounts[i])); });
}
BENCHMARK(AmountOurs)->Name("Text/NumToRMBStr/ours");

/// ICU's speller for Chinese, and a text that it writes to again and again.
struct Speller {
    UErrorCode error = U_ZERO_ERROR;
    icu::RuleBasedNumberFormat format{icu::URBNF_SPELLOUT, icu::Locale("zh"), error};
    icu::UnicodeString text;
};

void AmountIcu(benchmark::State& state) {
    Speller speller;
    RunAll(state, Count, [&](std::size_t i) {
        benchmark::DoNotOptimize(speller.format.format(Amounts[i], speller.text.remove()).getBuffer());
    });
}
BENCHMARK(AmountIcu)->Name("Text/NumToRMBStr/icu");

int Whole(std::size_t i) {
    return static_cast<int>(Amounts[i] * 97);
}

void NumeralOurs(benchmark::State& state) {
    RunAll(state, Count,
           [](std::size_t i) { benchmark::DoNotOptimize(IQsUtils::TransIntToUpper(Whole(i))); });
}
BENCHMARK(NumeralOurs)->Name("Text/TransIntToUpper/ours");

void NumeralIcu(benchmark::State& state) {
    Speller speller;
    RunAll(state, Count, [&](std::size_t i) {
        benchmark::DoNotOptimize(speller.format.format(Whole(i), speller.text.remove()).getBuffer());
    });
}
BENCHMARK(NumeralIcu)->Name("Text/TransIntToUpper/icu");

// --- Code page

// Names of twenty characters, hanzi and ASCII mixed as in a bill.
const std::wstring WideNames[] = {
    L"现浇C30混凝土矩形柱KZ1-6x600",       L"M7.5水泥砂浆砌筑实心砖墙240mm厚",
    L"钢筋HRB400Φ12~Φ16制作安装t",         L"20mm厚1:2.5水泥砂浆楼地面找平层",
    L"SBS改性沥青防水卷材3mm+4mm双层",     L"塑钢推拉窗TC1518含5+9A+5玻璃",
    L"挖一般土方(三类土)深度2m以内外运5t", L"C15商品混凝土基础垫层100mm厚内外",
};
constexpr std::size_t NameCount = std::size(WideNames);

std::vector<std::string> NarrowNames() {
    std::vector<std::string> names;
    for (const std::wstring& name : WideNames)
        names.push_back(IQsUtils::UnicodeToAnsi(name));
    return names;
}

void EncodeOurs(benchmark::State& state) {
    RunAll(state, NameCount,
           [](std::size_t i) { benchmark::DoNotOptimize(IQsUtils::UnicodeToAnsi(WideNames[i])); });
}
BENCHMARK(EncodeOurs)->Name("CodePage/UnicodeToAnsi/ours");

/// A converter that is opened once, and gives its result as ours does.
struct Converter {
    Converter(const char* to, const char* from) : handle(iconv_open(to, from)) {}
    ~Converter() { iconv_close(handle); }
    template <typename To, typename From>
    To Run(const From& text) {
        typename To::value_type out[256];
        char* from = reinterpret_cast<char*>(const_cast<typename From::value_type*>(text.data()));
        std::size_t size = text.size() * sizeof(typename From::value_type);
        char* to = reinterpret_cast<char*>(out);
        std::size_t room = sizeof out;
        iconv(handle, &from, &size, &to, &room);
        return To(out, std::size(out) - room / sizeof *out);
    }
    iconv_t handle;
};

void EncodeIconv(benchmark::State& state) {
    Converter converter("GBK", "WCHAR_T");
    RunAll(state, NameCount,
           [&](std::size_t i) { benchmark::DoNotOptimize(converter.Run<std::string>(WideNames[i])); });
}
BENCHMARK(EncodeIconv)->Name("CodePage/UnicodeToAnsi/iconv");

void DecodeOurs(benchmark::State& state) {
    const std::vector<std::string> narrow = NarrowNames();
    RunAll(state, NameCount,
           [&](std::size_t i) { benchmark::DoNotOptimize(IQsUtils::AnsiToUnicode(narrow[i])); });
}
BENCHMARK(DecodeOurs)->Name("CodePage/AnsiToUnicode/ours");

void DecodeIconv(benchmark::State& state) {
    Converter converter("WCHAR_T", "GBK");
    const std::vector<std::string> narrow = NarrowNames();
    RunAll(state, NameCount,
           [&](std::size_t i) { benchmark::DoNotOptimize(converter.Run<std::wstring>(narrow[i])); });
}
BENCHMARK(DecodeIconv)->Name("CodePage/AnsiToUnicode/iconv");

}  // namespace
