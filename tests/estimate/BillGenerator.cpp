#include "BillGenerator.h"

#include <array>
#include <cstdio>
#include <random>
#include <string>

namespace {

constexpr std::size_t QuotasOfItem = 4;
constexpr std::array Chapters = {"010101", "010401", "010402", "010501", "010505", "010515", "010807",
                                 "010902", "011001", "011102", "011201", "011302", "011406", "011702"};
constexpr std::array Units = {"m3", "m2", "t", "m", "樘"};

std::string Numbered(const char* format, std::size_t a, std::size_t b) {
    std::array<char, 64> text{};
    const int length =
        std::snprintf(text.data(), text.size(), format, static_cast<int>(a), static_cast<int>(b));
    return std::string(text.data(), static_cast<std::size_t>(length));
}

}  // namespace

void GenerateBill(std::ostream& out, std::size_t rows) {
    std::mt19937 random(20131);
    out << "项目编码,项目名称,项目特征,计量单位,工程量表达式,综合单价\n";
    std::size_t items = 0;
    for (std::size_t row = 0; row < rows; ++row) {
        const std::size_t sides = random() % 90 + 10;
        const std::size_t cents = random() % 100;
        if (row % (QuotasOfItem + 1) == 0) {
            // Counting by a step without a common factor passes every number of the six digits once.
            const std::size_t number = items * 700'001 % 1'000'000;
            const char* chapter = Chapters[items % Chapters.size()];
            out << chapter << Numbered("%06d", number, 0) << ",项目" << items << ",\"特征:第" << items
                << "项\"," << Units[items % Units.size()] << ','
                << Numbered("(%d.5+3)*%d*2+-1.8*2.1", sides, cents + 1)
                << Numbered(",%d.%02d\n", sides + 100, cents);
            ++items;
        } else {
            const std::size_t number = random() % 3000;
            out << Numbered("A%d-%d", number % 17 + 1, number) << ",定额" << number << ",,100m2,Q*1.02/100,"
                << Numbered("%d.%02d\n", 1000 + number, number % 100);
        }
    }
}
