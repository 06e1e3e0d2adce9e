// The grammar of formulas written down as plainly as it can be: every step works on copies of the text and
// recurses. The analyser must agree with it in everything.
#pragma once

#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "QsUtils/frame/IQsUtils1.h"

namespace PlainAnalyser {

struct Node {
    std::u16string text;
    double value = 0.0;
    bool negative = false;
    int bracket = 0;
    int type = 0;
    std::unique_ptr<Node> left, right;
};

using Text = std::u16string;
using Tree = std::unique_ptr<Node>;

inline Text Lower(Text text) {
    for (char16_t& unit : text)
        if (unit >= u'A' && unit <= u'Z')
            unit = static_cast<char16_t>(unit - u'A' + u'a');
    return text;
}

inline void RemoveAt(Text& text, char16_t what) {
    Text kept;
    for (const char16_t unit : text)
        if (unit != what)
            kept += unit;
    text = kept;
}

struct Depths {
    int round = 0, square = 0, curly = 0;

    /// True when `unit` is a bracket.
    bool Count(char16_t unit) {
        switch (unit) {
            case u'(':
                ++round;
                return true;
            case u')':
                --round;
                return true;
            case u'[':
                ++square;
                return true;
            case u']':
                --square;
                return true;
            case u'{':
                ++curly;
                return true;
            case u'}':
                --curly;
                return true;
            default:
                return false;
        }
    }
    bool NoneAbove() const { return round <= 0 && square <= 0 && curly <= 0; }
};

inline Tree ParseExpression(const Text& text, int& error);

inline bool TakeSign(Text& text) {
    bool negative = false;
    if (!text.empty() && (text[0] == u'+' || text[0] == u'-')) {
        negative = text[0] == u'-';
        text.erase(0, 1);
    }
    return negative;
}

inline Tree ParseBracket(Text text, int& error) {
    if (text.empty())
        return nullptr;
    const bool negative = TakeSign(text);
    if (text.empty()) {
        error = 5;
        return nullptr;
    }
    const char16_t first = text.front();
    const char16_t last = text.back();
    int kind = 0;
    if (first == u'(' && last == u')')
        kind = 1;
    else if (first == u'[' && last == u']')
        kind = 2;
    else if (first == u'{' && last == u'}')
        kind = 3;
    if (kind == 0)
        return nullptr;
    Tree node = std::make_unique<Node>();
    node->type = 3;
    node->bracket = kind;
    node->negative = negative;
    node->left = ParseExpression(text.substr(1, text.size() - 2), error);
    return error != 0 ? nullptr : std::move(node);
}

inline Tree ParseFunction(Text text, int& error) {
    if (text.empty())
        return nullptr;
    const bool negative = TakeSign(text);
    if (text.empty()) {
        error = 5;
        return nullptr;
    }
    text = Lower(text);
    for (const char16_t* name : {u"fabs", u"sin", u"cos", u"tan", u"ln", u"sqrt", u"exp"}) {
        const Text head = name;
        if (text.compare(0, head.size(), head) != 0)
            continue;
        Tree node = std::make_unique<Node>();
        node->type = 2;
        node->text = head;
        node->negative = negative;
        text.erase(0, head.size());
        node->left = ParseExpression(text, error);
        return error != 0 ? nullptr : std::move(node);
    }
    return nullptr;
}

inline Tree ParsePrimary(const Text& text, int& error) {
    error = 0;
    Tree node = ParseBracket(text, error);
    if (error != 0 || node)
        return node;
    node = ParseFunction(text, error);
    if (error != 0 || node)
        return node;
    node = std::make_unique<Node>();
    node->text = text;
    node->negative = TakeSign(node->text);
    return node;
}

inline Tree SplitAt(const Text& text, std::size_t at, const Text& symbol, int& error) {
    Tree node = std::make_unique<Node>();
    node->type = 1;
    node->text = symbol;
    node->left = ParseExpression(text.substr(0, at), error);
    if (error != 0)
        return nullptr;
    node->right = ParseExpression(text.substr(at + 1), error);
    if (error != 0)
        return nullptr;
    return node;
}

inline Tree ParseExpression(const Text& text, int& error) {
    error = 0;
    if (text.empty())
        return nullptr;
    Depths depths;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (depths.Count(text[i]) || !depths.NoneAbove() || i == 0)
            continue;
        if (text[i] != u'+' && text[i] != u'-')
            continue;
        if (i + 1 == text.size()) {
            error = 5;
            return nullptr;
        }
        return SplitAt(text, i, Text(1, text[i]), error);
    }
    for (std::size_t i = text.size(); i-- > 0;) {
        if (depths.Count(text[i]) || !depths.NoneAbove())
            continue;
        if (text[i] != u'*' && text[i] != u'/' && text[i] != u'^')
            continue;
        if (i == 0 || i + 1 == text.size()) {
            error = 5;
            return nullptr;
        }
        return SplitAt(text, i, text[i] == u'/' ? u"/" : u"*", error);
    }
    return ParsePrimary(text, error);
}

inline Tree Analyse(std::u16string_view formula, int& error) {
    Text text(formula);
    RemoveAt(text, u' ');
    for (char16_t& unit : text) {
        if (unit == u'×')
            unit = u'*';
        else if (unit == u'÷')
            unit = u'/';
    }
    Depths depths;
    for (const char16_t unit : text)
        depths.Count(unit);
    error = depths.round != 0 ? 2 : depths.square != 0 ? 3 : depths.curly != 0 ? 4 : 0;
    return error != 0 ? nullptr : ParseExpression(text, error);
}

inline std::int32_t Truncated(double value) {
    return value > -2147483649.0 && value < 2147483648.0 ? static_cast<std::int32_t>(value) : INT32_MIN;
}

/// The number that a text begins with, as the public interface gives it.
inline double Number(const Text& text) {
    return IQsUtils1::GetFormatedRateOfTransPrice(CString(text));
}

inline double Operand(const Text& text) {
    for (const auto& [sign, divisor] : {std::pair{u'%', 100.0}, std::pair{u'‰', 1000.0}})
        if (const std::size_t at = text.find(sign); at != Text::npos)
            return Number(text.substr(0, at)) / divisor;
    return Number(text);
}

inline double Calculate(Node* node) {
    const double a = node->left ? Calculate(node->left.get()) : 0.0;
    const double b = node->right ? Calculate(node->right.get()) : 0.0;
    const Text text = Lower(node->text);
    double& value = node->value;
    if (node->type == 0) {
        value = Operand(node->text);
    } else if (node->type == 1) {
        if (text == u"+")
            value = b + a;
        else if (text == u"-")
            value = a - b;
        else if (text == u"*")
            value = b * a;
        else if (text == u"/")
            value = std::fabs(b) <= 1e-7 ? 0.0 : a / b;
        else if (text == u"^")
            value = Truncated(a) ^ Truncated(b);
    } else if (node->type == 2) {
        if (text == u"sin")
            value = std::sin(a);
        else if (text == u"cos")
            value = std::cos(a);
        else if (text == u"tan")
            value = std::tan(a);
        else if (text == u"ln")
            value = std::log(a);
        else if (text == u"sqrt")
            value = std::sqrt(a);
        else if (text == u"exp")
            value = std::exp(a);
        else if (text == u"fabs")
            value = std::fabs(a);
    } else if (node->type == 3) {
        value = a;
    }
    if (node->negative)
        value *= -1.0;
    return value;
}

inline Text ToText(const Node* node) {
    if (node == nullptr)
        return {};
    Text middle;
    if (node->bracket != 0) {
        const auto kind = static_cast<std::size_t>(node->bracket - 1);
        middle = Text(1, u"([{"[kind]) + node->text + Text(1, u")]}"[kind]);
    }
    return ToText(node->left.get()) + middle + ToText(node->right.get());
}

}  // namespace PlainAnalyser
