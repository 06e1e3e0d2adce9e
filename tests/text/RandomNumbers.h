// Random numbers and number texts of every kind that the library meets, for the differential tests.
#pragma once

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

/// One generator a test, with a fixed seed.
class RandomNumbers {
public:
    explicit RandomNumbers(std::uint64_t seed) : m_random(seed) {}

    std::uint64_t Bits() { return m_random(); }
    /// 0 to `count` - 1.
    std::size_t Below(std::size_t count) { return m_random() % count; }
    bool OneIn(std::size_t count) { return Below(count) == 0; }

    /// Amounts with few decimals, ties, values beside ties, and now and then any double at all.
    double Double() {
        const double sign = OneIn(3) ? -1 : 1;
        switch (Below(8)) {
            case 0:
            case 1:
                return sign * static_cast<double>(Bits() >> (20 + Below(44))) / std::pow(10.0, Below(8));
            case 2:
                return sign * (static_cast<double>(Below(1'000'000)) + 0.5) / std::pow(2.0, Below(12));
            case 3:
                return sign * (static_cast<double>(Below(1'000'000'000)) + 0.5) / std::pow(10.0, Below(8));
            case 4:
                return std::nextafter((static_cast<double>(Below(100'000)) + 0.5) / 1000.0, sign * 1e300);
            case 5:
                return sign *
                       std::ldexp(static_cast<double>(Bits() >> 11), static_cast<int>(Below(160)) - 130);
            case 6:
                return sign * static_cast<double>(Below(1000));
            default:
                return std::bit_cast<double>(Bits());
        }
    }

    /// Something like a number, often with a fault in it.
    std::u16string Text() {
        std::u16string text;
        if (OneIn(4))
            Add(text, u" \t\u3000\u00A0\u0085", Below(3));
        Add(text, u"+-", OneIn(3) ? 1 : 0);
        Digits(text);
        if (OneIn(2)) {
            text += u'.';
            Digits(text);
        }
        if (OneIn(3)) {
            Add(text, u"eEdD", 1);
            Add(text, u"+-", OneIn(2) ? 1 : 0);
            Add(text, u"0123456789", OneIn(4) ? Below(6) : Below(3));
        }
        if (OneIn(4))
            Add(text, u" .,+-eEx%１1\u3000m", Below(4));
        return text;
    }

private:
    void Add(std::u16string& text, std::u16string_view set, std::size_t count) {
        for (; count > 0; --count)
            text += set[Below(set.size())];
    }
    void Digits(std::u16string& text) {
        if (OneIn(5))
            text.append(Below(12), u'0');
        Add(text, u"0123456789", OneIn(20) ? Below(60) : OneIn(4) ? Below(22) : Below(8));
        if (OneIn(8))
            text.append(Below(12), u'0');
    }

    std::mt19937_64 m_random;
};
