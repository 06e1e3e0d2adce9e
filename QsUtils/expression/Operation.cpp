#include "QsUtils/expression/Operation.h"

#include <algorithm>

#include "QsUtils/text/Numbers.h"

namespace ExpressionAnalyse {

namespace {

struct NamedOperation {
    std::u16string_view name;
    Operation operation;
};

constexpr NamedOperation NamedOperations[] = {
    {u"+", Operation::Add},    {u"-", Operation::Subtract},    {u"*", Operation::Multiply},
    {u"/", Operation::Divide}, {u"^", Operation::ExclusiveOr}, {u"fabs", Operation::Fabs},
    {u"sin", Operation::Sin},  {u"cos", Operation::Cos},       {u"tan", Operation::Tan},
    {u"ln", Operation::Ln},    {u"sqrt", Operation::Sqrt},     {u"exp", Operation::Exp},
};

constexpr std::size_t LongestName = 4;

}  // namespace

Operation OperationOf(std::u16string_view text) noexcept {
    if (text.empty() || text.size() > LongestName)
        return Operation::Other;
    char16_t lower[LongestName];
    std::transform(text.begin(), text.end(), lower, [](char16_t unit) {
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
    });
    for (const NamedOperation& named : NamedOperations)
        if (named.name == std::u16string_view(lower, text.size()))
            return named.operation;
    return Operation::Other;
}

double FunctionValue(Operation operation, double a, double unchanged) noexcept {
    switch (operation) {
        case Operation::Fabs:
            return std::fabs(a);
        case Operation::Sin:
            return std::sin(a);
        case Operation::Cos:
            return std::cos(a);
        case Operation::Tan:
            return std::tan(a);
        case Operation::Ln:
            return std::log(a);
        case Operation::Sqrt:
            return std::sqrt(a);
        case Operation::Exp:
            return std::exp(a);
        default:
            return unchanged;
    }
}

double OperandValue(std::u16string_view text) noexcept {
    std::size_t perMille = text.size();
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'%')
            return QsText::ReadDouble(text.substr(0, i)) / 100.0;
        if (text[i] == u'‰' && perMille == text.size())
            perMille = i;
    }
    return perMille == text.size() ? QsText::ReadDouble(text)
                                   : QsText::ReadDouble(text.substr(0, perMille)) / 1000.0;
}

}  // namespace ExpressionAnalyse
