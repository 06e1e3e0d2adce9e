#include "Formula.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <string_view>

#include "Utf8.h"

namespace Estimate {
namespace {

using ExpressionAnalyse::IExpressionNode;
using Tree = std::unique_ptr<IExpressionNode>;

constexpr double LeastDivisor = 1e-7;
// A formula full of strange words is explained by its first few.
constexpr std::size_t MostRemarks = 5;

Message ParseFault(std::int32_t code) {
    switch (code) {
        case 2:
            return Say<Text::FormulaRound>();
        case 3:
            return Say<Text::FormulaSquare>();
        case 4:
            return Say<Text::FormulaCurly>();
        default:
            return Say<Text::OperandMissing>();
    }
}

enum class Number { None, Good, Malformed };

/// Digits with at most one point, and perhaps a percent or per-mille sign behind them.
Number ReadNumber(std::u16string_view text) {
    if (!text.empty() && (text.back() == u'%' || text.back() == u'‰'))
        text.remove_suffix(1);
    const auto isDigit = [](char16_t unit) { return unit >= u'0' && unit <= u'9'; };
    const auto digits = std::ranges::count_if(text, isDigit);
    const auto points = std::ranges::count(text, u'.');
    if (text.empty() || static_cast<std::size_t>(digits + points) != text.size())
        return Number::None;
    return digits > 0 && points <= 1 ? Number::Good : Number::Malformed;
}

/// Visits a parsed tree from the root down, on a stack of its own since a formula may nest deeply.
class Binder {
public:
    Binder(const Variables& variables, const CString* amount, FormulaResult& result)
        : m_variables(variables), m_amount(amount), m_result(result) {}

    void Bind(IExpressionNode* root) {
        m_open.push_back(root);
        while (!m_open.empty()) {
            IExpressionNode* node = m_open.back();
            m_open.pop_back();
            if (node->IsLeaf())
                BindLeaf(*node);
            else
                Descend(*node);
        }
    }

    /// Whether a divisor is 0, asked when all is bound.
    bool DividesByZero() {
        return std::ranges::any_of(m_divisors, [](IExpressionNode* divisor) {
            return !(std::fabs(divisor->CalcValue()) > LeastDivisor);
        });
    }

private:
    void Error(Message reason) {
        if (m_result.remarks.size() < MostRemarks)
            m_result.remarks.push_back({Severity::Error, std::move(reason)});
    }

    void Descend(IExpressionNode& node) {
        IExpressionNode* left = node.GetLeftNode();
        IExpressionNode* right = node.GetRightNode();
        if (node.IsNodeType(ExpressionAnalyse::eNodeType_Function) &&
            !left->IsNodeType(ExpressionAnalyse::eNodeType_Bracket)) {
            const std::string name = ToUtf8(node.GetNodeText());
            const std::string rest = left->IsLeaf() ? ToUtf8(left->GetNodeText()) : "…";
            return Error(Say<Text::FunctionName>(name, rest));
        }
        if (right != nullptr && node.GetNodeText() == u"/")
            m_divisors.push_back(right);
        if (right != nullptr)
            m_open.push_back(right);
        if (left != nullptr)
            m_open.push_back(left);
    }

    void BindLeaf(IExpressionNode& leaf) {
        if (leaf.IsNodeType(ExpressionAnalyse::eNodeType_Bracket))
            return Error(Say<Text::BracketsEmpty>());
        const CString text = leaf.GetNodeText();
        if (leaf.IsNodeType(ExpressionAnalyse::eNodeType_Function))
            return Error(Say<Text::FunctionAlone>(ToUtf8(text)));
        if (const Number number = ReadNumber(text.View()); number != Number::None) {
            if (number == Number::Malformed)
                Error(Say<Text::OperandNoNumber>(ToUtf8(text)));
            return;
        }
        if (text.CompareNoCase(u"Q") == 0)
            return BindAmount(leaf);
        if (const CString* value = m_variables.Find(text))
            return leaf.SetLeafText(*value);
        Error(Say<Text::OperandUnknown>(ToUtf8(text)));
    }

    void BindAmount(IExpressionNode& leaf) {
        if (m_amount == nullptr)
            return Error(Say<Text::NoProjectAmount>());
        leaf.SetLeafText(*m_amount);
    }

    const Variables& m_variables;
    const CString* m_amount;
    FormulaResult& m_result;
    std::vector<IExpressionNode*> m_open;
    std::vector<IExpressionNode*> m_divisors;
};

bool HasError(const FormulaResult& result) {
    return std::ranges::any_of(
        result.remarks, [](const FormulaRemark& remark) { return remark.severity == Severity::Error; });
}

FormulaResult Failed(FormulaResult result, Message reason) {
    result.remarks.push_back({Severity::Error, std::move(reason)});
    return result;
}

}  // namespace

FormulaResult Evaluate(const CString& formula, const Variables& variables, const CString* amount) {
    const CString text = PlainFormula(formula);
    FormulaResult result;
    std::int32_t code = 0;
    const Tree tree(ExpressionAnalyse::GetExpressionAnalyser()->AnalyseExpression(text, &code));
    if (code != 0)
        return Failed(std::move(result), ParseFault(code));
    if (tree == nullptr)
        return Failed(std::move(result), Say<Text::FormulaEmpty>());
    result.remarks = RemarksOn(text);
    // The pieces of a product inside brackets would only be reported as strange operands.
    if (HasError(result))
        return result;
    Binder binder(variables, amount, result);
    binder.Bind(tree.get());
    if (HasError(result))
        return result;
    if (binder.DividesByZero())
        return Failed(std::move(result), Say<Text::DivisorZero>());
    result.value = tree->CalcValue();
    result.valid = std::isfinite(result.value);
    return result.valid ? result : Failed(std::move(result), Say<Text::ResultNotFinite>());
}

}  // namespace Estimate
