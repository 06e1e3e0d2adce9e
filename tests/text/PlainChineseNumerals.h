// The rules of both kinds of Chinese numerals, one after the other as they are told, for comparison.
#pragma once

#include <climits>
#include <cmath>
#include <string>
#include <vector>

inline std::u16string PlainCapitalNumber(const std::u16string& text) {
    static const std::vector<std::u16string> digits = {u"零", u"壹", u"贰", u"叁", u"肆",
                                                       u"伍", u"陆", u"柒", u"捌", u"玖"};
    static const std::vector<std::u16string> units = {u"",   u"拾", u"佰", u"仟", u"万", u"拾", u"佰", u"仟",
                                                      u"亿", u"拾", u"佰", u"仟", u"万", u"拾", u"佰", u"仟",
                                                      u"亿", u"拾", u"佰", u"仟", u"万", u"拾", u"佰", u"仟"};
    if (text.size() > 24)
        return u"数值过大!";
    std::u16string result;
    bool zeroPending = false;
    bool groupHasDigit = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t p = text.size() - 1 - i;
        if (text[i] == u' ')
            continue;
        if (text[i] < u'0' || text[i] > u'9')
            return u"输入含非数字字符!";
        const std::size_t digit = text[i] - u'0';
        if (digit != 0) {
            if (zeroPending)
                result += u"零";
            result += digits[digit] + units[p];
            groupHasDigit = true;
        } else {
            if (p % 8 == 0)
                result += units[p];
            if (p % 8 == 4 && groupHasDigit)
                result += units[p];
        }
        if (p % 8 == 0)
            groupHasDigit = false;
        if (digit == 0 && p % 4 != 0)
            zeroPending = true;
        else
            zeroPending = false;
    }
    return result.empty() ? u"零" : result;
}

/// A conversion that the type can't hold gives the smallest value, as the processor does.
inline long long PlainTruncated(double value, double limit, long long smallest) {
    return value >= -limit && value < limit ? static_cast<long long>(value) : smallest;
}

inline std::u16string PlainAmount(double value) {
    static const std::u16string digits = u"零壹贰叁肆伍陆柒捌玖";
    std::u16string sign;
    double amount = value;
    if (value < 0) {
        sign = u"负";
        amount = std::fabs(value);
    }
    amount += 0.005;
    double ip = 0;
    const double f = std::modf(amount, &ip);
    const long long jiao = PlainTruncated(f * 10, 2147483648.0, INT_MIN);
    const long long fen = PlainTruncated(f * 100, 2147483648.0, INT_MIN) - 10 * jiao;

    const auto isDigit = [](long long digit) { return digit >= 0 && digit <= 9; };
    std::u16string fraction;
    if (jiao == 0 && fen == 0) {
        fraction = u"整";
    } else {
        if (isDigit(jiao)) {
            fraction += digits[static_cast<std::size_t>(jiao)];
            if (jiao != 0)
                fraction += u"角";
        }
        if (ip == 0 && jiao == 0)
            fraction.clear();
        if (fen != 0 && isDigit(fen)) {
            fraction += digits[static_cast<std::size_t>(fen)];
            fraction += u"分";
        }
    }
    const std::string narrow = std::to_string(PlainTruncated(ip, 9223372036854775808.0, LLONG_MIN));
    return sign + PlainCapitalNumber({narrow.begin(), narrow.end()}) + u"元" + fraction;
}

inline std::u16string PlainNumeral(int value) {
    static const std::u16string digits = u"零一二三四五六七八九";
    static const std::vector<std::u16string> units = {u"", u"十", u"百", u"千"};
    static const std::vector<std::u16string> groups = {u"", u"万", u"亿", u"万", u"亿", u"万", u"亿"};
    if (value < 0)
        return u"负数";
    std::vector<std::size_t> places;
    for (int rest = value; rest > 0; rest /= 10)
        places.push_back(static_cast<std::size_t>(rest % 10));
    std::u16string result;
    bool zeroPending = false;
    for (std::size_t p = places.size(); p-- > 0;) {
        if (places[p] == 0) {
            zeroPending = true;
        } else {
            if (zeroPending) {
                result += u"零";
                zeroPending = false;
            }
            result += digits[places[p]] + units[p % 4];
        }
        if (p % 4 == 0) {
            result += groups[p / 4];
            zeroPending = false;
        }
    }
    if (result.empty())
        result = u"零";
    if (result.substr(0, 2) == u"一十")
        for (std::size_t at = 0; (at = result.find(u"一十", at)) != result.npos; ++at)
            result.erase(at, 1);
    return result;
}
