// The analyser against the plain transcription of its rules.
#include <bit>
#include <cmath>
#include <cstdlib>
#include <memory>

#include "QsUtils/expression/CExpressionAnalyse.h"

#include "fuzz/FuzzText.h"
#include "tests/expression/PlainAnalyser.h"

using ExpressionAnalyse::IExpressionNode;

namespace {

void Require(bool holds) {
    if (!holds)
        std::abort();
}

void RequireSame(IExpressionNode* node, const PlainAnalyser::Node* plain) {
    Require((node == nullptr) == (plain == nullptr));
    if (node == nullptr)
        return;
    Require(node->GetNodeText().View() == plain->text && node->IsNodeType(plain->type) &&
            node->IsBracketType(plain->bracket) && node->IsNegative() == plain->negative);
    RequireSame(node->GetLeftNode(), plain->left.get());
    RequireSame(node->GetRightNode(), plain->right.get());
}

void RequireSameValue(double a, double b) {
    Require(std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ||
            (std::isnan(a) && std::isnan(b)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t MostUnits = 600;  // the plain rules recurse
    const std::u16string formula = TextFromBytes(data, std::min(size, MostUnits),
                                                 u"12.+-*/^()[]{} x%\u2030\u00d7\u00f7sincotaqrexplfbSN");
    ExpressionAnalyse::CExpressionAnalyse analyser;
    std::int32_t error = -1;
    int plainError = -1;
    const std::unique_ptr<IExpressionNode> root(analyser.AnalyseExpression(CString(formula), &error));
    const PlainAnalyser::Tree plain = PlainAnalyser::Analyse(formula, plainError);
    Require(error == plainError);
    if (root == nullptr)
        return 0;
    const double value = PlainAnalyser::Calculate(plain.get());
    RequireSameValue(root->CalcValue(), value);
    RequireSame(root.get(), plain.get());
    RequireSameValue(root->CalcValue(), value);
    root->SetRightNode(root->GetRightNode());
    RequireSameValue(root->CalcValue(), value);
    Require(root->ToString().View() == PlainAnalyser::ToText(plain.get()));
    return 0;
}
