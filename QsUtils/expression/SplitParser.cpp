#include "QsUtils/expression/SplitParser.h"

#include <algorithm>

namespace ExpressionAnalyse {

namespace {

constexpr std::array<FunctionName, 7> FunctionNames = {{{u"fabs", Operation::Fabs},
                                                        {u"sin", Operation::Sin},
                                                        {u"cos", Operation::Cos},
                                                        {u"tan", Operation::Tan},
                                                        {u"ln", Operation::Ln},
                                                        {u"sqrt", Operation::Sqrt},
                                                        {u"exp", Operation::Exp}}};

constexpr char16_t LowerCase(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
}

bool BeginsWith(std::u16string_view text, std::u16string_view lowerName) {
    return text.size() >= lowerName.size() &&
           std::equal(lowerName.begin(), lowerName.end(), text.begin(),
                      [](char16_t a, char16_t b) { return a == LowerCase(b); });
}

}  // namespace

const FunctionName* FunctionAtHead(std::u16string_view text) noexcept {
    const char16_t first = text.empty() ? u'\0' : LowerCase(text.front());
    if (first < u'a' || first > u'z')
        return nullptr;
    for (const FunctionName& function : FunctionNames)
        if (BeginsWith(text, function.name))
            return &function;
    return nullptr;
}

std::int32_t EnclosingBracket(std::u16string_view text) noexcept {
    switch (text.front()) {
        case u'(':
            return text.back() == u')' ? eBracketType_Round : eBracketType_None;
        case u'[':
            return text.back() == u']' ? eBracketType_Square : eBracketType_None;
        case u'{':
            return text.back() == u'}' ? eBracketType_Curly : eBracketType_None;
        default:
            return eBracketType_None;
    }
}

void LowerUnits(char16_t* units, std::size_t count) noexcept {
    std::transform(units, units + count, units, LowerCase);
}

}  // namespace ExpressionAnalyse
