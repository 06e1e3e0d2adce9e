// What a host may do with the nodes of a formula.
#include <cmath>
#include <memory>
#include <random>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/expression/CExpressionAnalyse.h"

namespace {

using namespace ExpressionAnalyse;

std::unique_ptr<IExpressionNode> ParsedNode(const CString& formula) {
    CExpressionAnalyse analyser;
    std::int32_t error = -1;
    std::unique_ptr<IExpressionNode> root(analyser.AnalyseExpression(formula, &error));
    EXPECT_EQ(error, 0);
    return root;
}

/// A host's own node: a constant that tells when it dies.
class Constant : public IExpressionNode {
public:
    Constant(double value, int* deaths) : m_value(value), m_deaths(deaths) {}
    ~Constant() override { ++*m_deaths; }
    IExpressionNode* GetLeftNode() override { return nullptr; }
    void SetLeftNode(IExpressionNode*) override {}
    IExpressionNode* GetRightNode() override { return nullptr; }
    void SetRightNode(IExpressionNode*) override {}
    double CalcValue() override {
        if (std::isnan(m_value))
            throw std::runtime_error("no value");
        return m_value;
    }
    CString ToString() override { return u"<const>"; }
    CString GetNodeText() override { return u""; }
    void SetNodeText(const CString&) override {}
    void SetLeafText(const CString&) override {}
    bool IsLeaf() override { return true; }
    bool IsBracketType(std::int32_t) override { return false; }
    void SetBracketType(std::int32_t) override {}
    bool IsNegative() override { return false; }
    void SetNegative(bool) override {}
    bool IsNodeType(std::int32_t) override { return false; }
    void SetNodeType(std::int32_t) override {}
    bool IsNumber() override { return true; }

private:
    double m_value;
    int* m_deaths;
};

TEST(ExpressionNode, ShapeOfAParsedTree) {
    const auto root = ParsedNode(u"-(Ab+2)*sin[x]");
    EXPECT_TRUE(root->IsNodeType(eNodeType_Operator));
    EXPECT_EQ(root->GetNodeText(), u"*");
    EXPECT_TRUE(root->IsBracketType(eBracketType_None));
    EXPECT_FALSE(root->IsNegative());
    EXPECT_FALSE(root->IsLeaf());
    EXPECT_FALSE(root->IsNumber());

    IExpressionNode* group = root->GetLeftNode();
    EXPECT_TRUE(group->IsNodeType(eNodeType_Bracket));
    EXPECT_TRUE(group->IsBracketType(eBracketType_Round));
    EXPECT_FALSE(group->IsBracketType(eBracketType_Square));
    EXPECT_EQ(group->GetNodeText(), u"");
    EXPECT_TRUE(group->IsNegative());
    EXPECT_EQ(group->GetRightNode(), nullptr);
    EXPECT_EQ(group->GetLeftNode()->GetNodeText(), u"+");
    EXPECT_EQ(group->GetLeftNode()->GetLeftNode()->GetNodeText(), u"Ab");

    IExpressionNode* function = root->GetRightNode();
    EXPECT_TRUE(function->IsNodeType(eNodeType_Function));
    EXPECT_EQ(function->GetNodeText(), u"sin");
    EXPECT_EQ(function->GetRightNode(), nullptr);
    EXPECT_TRUE(function->GetLeftNode()->IsBracketType(eBracketType_Square));
}

TEST(ExpressionNode, OperandsInsideFunctionsLoseTheirCase) {
    const auto root = ParsedNode(u"SQRT(AREA+Q)+AREA");
    IExpressionNode* inner = root->GetLeftNode()->GetLeftNode()->GetLeftNode();
    EXPECT_EQ(inner->GetLeftNode()->GetNodeText(), u"area");
    EXPECT_EQ(inner->GetRightNode()->GetNodeText(), u"q");
    EXPECT_EQ(root->GetRightNode()->GetNodeText(), u"AREA");
}

TEST(ExpressionNode, IsNumberAsksForDigitsAndPoints) {
    const std::pair<const char16_t*, bool> cases[] = {{u"12", true},   {u"1.2.3", true}, {u".", true},
                                                      {u"12%", false}, {u"x", false},    {u"1e5", false}};
    for (const auto& [text, expected] : cases) {
        const auto root = ParsedNode(text);
        EXPECT_EQ(root->IsNumber(), expected);
        root->SetNodeText(u"");
        EXPECT_FALSE(root->IsNumber());
    }
}

TEST(ExpressionNode, VariablesAreBoundAndReboundThroughTheirLeaves) {
    const auto root = ParsedNode(u"abc+1");
    EXPECT_EQ(root->CalcValue(), 1.0);
    IExpressionNode* leaf = root->GetLeftNode();
    leaf->SetLeafText(u"2");
    EXPECT_EQ(root->CalcValue(), 3.0);
    leaf->SetLeafText(u"200 % and something longer than the room that the first text had");
    EXPECT_EQ(root->CalcValue(), 3.0);
    leaf->SetLeafText(u"1000‰");
    EXPECT_EQ(root->CalcValue(), 2.0);
    leaf->SetNegative(true);
    EXPECT_EQ(root->CalcValue(), 0.0);
    root->SetNegative(true);
    EXPECT_TRUE(std::signbit(root->CalcValue()));
    EXPECT_EQ(root->GetRightNode()->GetNodeText(), u"1");
}

TEST(ExpressionNode, SetLeafTextLeavesNodesWithChildrenAlone) {
    const auto root = ParsedNode(u"(1+2)");
    root->SetLeafText(u"7");
    EXPECT_EQ(root->GetNodeText(), u"");
    root->GetLeftNode()->SetLeafText(u"7");
    EXPECT_EQ(root->GetLeftNode()->GetNodeText(), u"+");
    // A leaf of any type takes it, and a function alone is a leaf.
    const auto function = ParsedNode(u"sin");
    function->SetLeafText(u"COS");
    EXPECT_EQ(function->GetNodeText(), u"COS");
    EXPECT_EQ(function->CalcValue(), 1.0);
    function->SetLeafText(u"+");
    EXPECT_EQ(function->CalcValue(), 1.0);
    EXPECT_EQ(function->CalcValue(), 1.0);
}

TEST(ExpressionNode, TextsAndTypesSetByHand) {
    const auto root = ParsedNode(u"6+3");
    root->SetNodeText(u"^");
    EXPECT_EQ(root->CalcValue(), 5.0);
    root->SetNodeText(u"nothing");
    EXPECT_EQ(root->CalcValue(), 5.0);  // the value stays as it was
    root->SetNegative(true);
    EXPECT_EQ(root->CalcValue(), -5.0);
    EXPECT_EQ(root->CalcValue(), 5.0);  // and is negated again each time
    root->SetNegative(false);
    root->SetNodeType(eNodeType_Function);
    root->SetNodeText(u"SQRT");
    EXPECT_EQ(root->CalcValue(), std::sqrt(6.0));
    root->SetNodeType(eNodeType_Bracket);
    EXPECT_EQ(root->CalcValue(), 6.0);
    root->SetNodeType(eNodeType_Operand);
    root->SetNodeText(u"12.5%");
    EXPECT_EQ(root->CalcValue(), 0.125);
    root->SetNodeType(-77);
    EXPECT_TRUE(root->IsNodeType(-77));
    EXPECT_EQ(root->CalcValue(), 0.125);
    EXPECT_EQ(root->GetLeftNode()->GetNodeText(), u"6");
}

TEST(ExpressionNode, ValuesAreThoseOfTheLastCalculation) {
    const auto unseen = ParsedNode(u"6+3");
    unseen->SetNodeText(u"odd");
    EXPECT_EQ(unseen->CalcValue(), 0.0);
    const auto seen = ParsedNode(u"6+(3+3)");
    EXPECT_EQ(seen->CalcValue(), 12.0);
    IExpressionNode* group = seen->GetRightNode();
    group->SetNodeType(eNodeType_Operator);
    EXPECT_EQ(seen->CalcValue(), 12.0);
    // An operand's text counts from the next calculation on.
    IExpressionNode* operand = seen->GetLeftNode();
    operand->SetLeafText(u"100");
    operand->SetNodeType(eNodeType_Function);
    EXPECT_EQ(seen->CalcValue(), 12.0);
    operand->SetNodeType(eNodeType_Operand);
    EXPECT_EQ(seen->CalcValue(), 106.0);
}

TEST(ExpressionNode, SeveralOperandsAreReboundBetweenCalculations) {
    const auto root = ParsedNode(u"x+y*z+w");
    IExpressionNode* x = root->GetLeftNode();
    IExpressionNode* y = root->GetRightNode()->GetLeftNode()->GetLeftNode();
    x->SetLeafText(u"1");
    y->SetLeafText(u"5");
    root->GetRightNode()->GetLeftNode()->GetRightNode()->SetLeafText(u"3");
    EXPECT_EQ(root->CalcValue(), 16.0);
    x->SetLeafText(u"2");
    x->SetNegative(true);
    EXPECT_EQ(root->CalcValue(), 13.0);
    y->SetLeafText(u"1");
    x->SetLeafText(u"3");
    EXPECT_EQ(root->CalcValue(), 0.0);
    const auto alone = ParsedNode(u"x");
    alone->SetLeafText(u"8");
    EXPECT_EQ(alone->CalcValue(), 8.0);
    alone->SetLeafText(u"9");
    EXPECT_EQ(alone->CalcValue(), 9.0);
}

TEST(ExpressionNode, ExclusiveOrTruncatesToInts) {
    const auto value = [](const CString& left, const CString& right) {
        const auto root = ParsedNode(u"1+1");
        root->GetLeftNode()->SetLeafText(left);
        root->GetRightNode()->SetLeafText(right);
        root->SetNodeText(u"^");
        return root->CalcValue();
    };
    EXPECT_EQ(value(u"6.9", u"3.2"), 5.0);
    EXPECT_EQ(value(u"-1.9", u"0"), -1.0);
    EXPECT_EQ(value(u"1e300", u"0"), -2147483648.0);
    EXPECT_EQ(value(u"-2147483648.9", u"0"), -2147483648.0);
    EXPECT_EQ(value(u"2147483647.9", u"0"), 2147483647.0);
    EXPECT_EQ(value(u"2147483648", u"1"), -2147483647.0);
}

TEST(ExpressionNode, ToStringPrintsGroupsBehindTheirContent) {
    EXPECT_EQ(ParsedNode(u"(1+2)*3")->ToString(), u"()");
    EXPECT_EQ(ParsedNode(u"[(1)]+{2}")->ToString(), u"()[]{}");
    EXPECT_EQ(ParsedNode(u"1+2")->ToString(), u"");
    const auto root = ParsedNode(u"(1)+2");
    root->GetLeftNode()->SetNodeText(u"a");
    root->GetLeftNode()->GetLeftNode()->SetBracketType(eBracketType_Curly);
    root->SetBracketType(eBracketType_Square);
    EXPECT_EQ(root->ToString(), u"{1}(a)[+]");
    root->SetBracketType(9);
    EXPECT_TRUE(root->IsBracketType(9));
    EXPECT_EQ(root->ToString(), u"{1}(a)+");
    CExpressionAnalyse analyser;
    EXPECT_EQ(analyser.ExpressionToString(root.get()), root->ToString());
    EXPECT_EQ(analyser.ExpressionToString(nullptr), u"");
}

TEST(ExpressionNode, ChildrenOfOperandsAreCalculatedToo) {
    const auto root = ParsedNode(u"5");
    const auto child = ParsedNode(u"6+3");
    EXPECT_EQ(child->CalcValue(), 9.0);
    child->SetNodeText(u"odd");
    child->SetNegative(true);
    root->SetLeftNode(child.get());
    EXPECT_EQ(root->CalcValue(), 5.0);
    EXPECT_EQ(root->CalcValue(), 5.0);
    root->SetLeftNode(nullptr);
    EXPECT_EQ(child->CalcValue(), -9.0);  // negated with each calculation, three by now
}

TEST(ExpressionNode, ChildrenSetToNullCountAsZero) {
    const auto root = ParsedNode(u"5-3");
    const std::unique_ptr<IExpressionNode> left(root->GetLeftNode());
    root->SetLeftNode(nullptr);
    EXPECT_EQ(root->CalcValue(), -3.0);
    EXPECT_EQ(left->CalcValue(), 5.0);
    const std::unique_ptr<IExpressionNode> right(root->GetRightNode());
    root->SetRightNode(nullptr);
    EXPECT_TRUE(root->IsLeaf());
    EXPECT_EQ(root->CalcValue(), 0.0);
}

TEST(ExpressionNode, APartOutlivesItsTree) {
    std::unique_ptr<IExpressionNode> part;
    {
        const auto root = ParsedNode(u"1+(2+x)*4");
        part.reset(root->GetRightNode()->GetLeftNode());
        root->GetRightNode()->SetLeftNode(nullptr);
        EXPECT_EQ(root->CalcValue(), 1.0);
    }
    EXPECT_EQ(part->CalcValue(), 2.0);
    part->GetLeftNode()->GetRightNode()->SetLeafText(u"5");
    EXPECT_EQ(part->CalcValue(), 7.0);
}

TEST(ExpressionNode, TreesAreJoinedByHand) {
    auto left = ParsedNode(u"1+2");
    auto right = ParsedNode(u"(4)");
    const auto root = ParsedNode(u"x*y");
    delete root->GetLeftNode();
    root->SetLeftNode(left.release());
    IExpressionNode* old = root->GetRightNode();
    root->SetRightNode(right.release());
    delete old;
    EXPECT_EQ(root->CalcValue(), 12.0);
    EXPECT_EQ(root->ToString(), u"()");
}

TEST(ExpressionNode, ADeletedChildCountsAsNone) {
    const auto root = ParsedNode(u"1+(2+3)");
    delete root->GetRightNode();
    EXPECT_EQ(root->GetRightNode(), nullptr);
    EXPECT_EQ(root->CalcValue(), 1.0);
    EXPECT_EQ(root->ToString(), u"");
    delete root->GetLeftNode();
    EXPECT_TRUE(root->IsLeaf());
    root->SetLeftNode(nullptr);
    root->SetRightNode(ParsedNode(u"9").release());
    EXPECT_EQ(root->CalcValue(), 9.0);
}

TEST(ExpressionNode, ANodeHeldTwiceIsDeletedOnce) {
    {
        const auto root = ParsedNode(u"2*3");
        delete root->GetRightNode();
        root->SetRightNode(root->GetLeftNode());
        EXPECT_EQ(root->CalcValue(), 4.0);
    }
    const auto other = ParsedNode(u"1+1");
    {
        const auto root = ParsedNode(u"(7)+2");
        delete other->GetLeftNode();
        other->SetLeftNode(root->GetLeftNode());
        EXPECT_EQ(root->CalcValue(), 9.0);
    }
    EXPECT_EQ(other->CalcValue(), 8.0);  // still held here
}

TEST(ExpressionNode, ARootMayBecomeAChildAndBeDeletedByEither) {
    auto child = ParsedNode(u"2*3");
    const auto root = ParsedNode(u"x+1");
    delete root->GetLeftNode();
    root->SetLeftNode(child.get());
    EXPECT_EQ(root->CalcValue(), 7.0);
    child.reset();
    EXPECT_EQ(root->CalcValue(), 1.0);
}

TEST(ExpressionNode, CirclesEndAndGoAway) {
    auto root = ParsedNode(u"1+(2)");
    delete root->GetRightNode()->GetLeftNode();
    root->GetRightNode()->SetLeftNode(root.get());
    EXPECT_EQ(root->CalcValue(), 1.0);
    EXPECT_EQ(root->ToString(), u"()");
    root.reset();

    auto top = ParsedNode(u"3+((4))");
    IExpressionNode* outer = top->GetRightNode();
    delete outer->GetLeftNode()->GetLeftNode();
    outer->GetLeftNode()->SetLeftNode(outer);
    EXPECT_EQ(top->CalcValue(), 3.0);
    top.reset();

    auto self = ParsedNode(u"(5)");
    delete self->GetLeftNode();
    self->SetLeftNode(self.get());
    EXPECT_EQ(self->CalcValue(), 0.0);
    EXPECT_EQ(self->ToString(), u"()");
}

TEST(ExpressionNode, ACircleThatIsHeldFromOutsideStays) {
    const auto other = ParsedNode(u"1+x");
    {
        auto top = ParsedNode(u"3+((4)+6)");
        IExpressionNode* outer = top->GetRightNode();
        IExpressionNode* inner = outer->GetLeftNode()->GetLeftNode();
        delete inner->GetLeftNode();
        inner->SetLeftNode(outer);
        delete other->GetRightNode();
        other->SetRightNode(outer);
        top.reset();
    }
    EXPECT_EQ(other->CalcValue(), 7.0);
}

TEST(ExpressionNode, HostNodesTakePart) {
    int deaths = 0;
    {
        const auto root = ParsedNode(u"x*(y)");
        delete root->GetLeftNode();
        root->SetLeftNode(new Constant(6.0, &deaths));
        root->GetRightNode()->SetNegative(true);
        delete root->GetRightNode()->GetLeftNode();
        root->GetRightNode()->SetLeftNode(new Constant(2.0, &deaths));
        EXPECT_EQ(root->CalcValue(), -12.0);
        EXPECT_EQ(root->ToString(), u"<const><const>()");
        // A host may have deleted its node by the time it takes the pointer back.
        delete root->GetLeftNode();
        root->SetLeftNode(nullptr);
        EXPECT_EQ(deaths, 1);
        EXPECT_EQ(root->CalcValue(), 0.0);
    }
    EXPECT_EQ(deaths, 2);
}

TEST(ExpressionNode, WhatAHostNodeRaisesLeavesTheTreeUsable) {
    int deaths = 0;
    const auto root = ParsedNode(u"(1+(x))");
    IExpressionNode* inner = root->GetLeftNode()->GetRightNode();
    delete inner->GetLeftNode();
    inner->SetLeftNode(new Constant(std::nan(""), &deaths));
    EXPECT_THROW(root->CalcValue(), std::runtime_error);
    delete inner->GetLeftNode();
    inner->SetLeftNode(ParsedNode(u"41").release());
    EXPECT_EQ(root->CalcValue(), 42.0);
}

/// Random re-hanging, as a host's editor of formulas might do it; the sanitizers watch.
TEST(ExpressionNode, RandomSurgery) {
    std::mt19937 random(11);
    for (int round = 0; round < 3000; ++round) {
        std::vector<IExpressionNode*> roots;
        std::vector<IExpressionNode*> nodes;
        for (const char16_t* formula : {u"1+(2*3)-sin(x)", u"[a+b]*{c}/4", u"7", u"((1+1)+1)+1"}) {
            roots.push_back(ParsedNode(formula).release());
            std::vector<IExpressionNode*> pending{roots.back()};
            while (!pending.empty()) {
                IExpressionNode* node = pending.back();
                pending.pop_back();
                if (node == nullptr)
                    continue;
                nodes.push_back(node);
                pending.push_back(node->GetLeftNode());
                pending.push_back(node->GetRightNode());
            }
        }
        const auto any = [&] { return nodes[random() % nodes.size()]; };
        for (int step = 0; step < 6; ++step) {
            IExpressionNode* node = any();
            switch (random() % 6) {
                case 0:
                    node->SetLeftNode(any());
                    break;
                case 1:
                    node->SetRightNode(any());
                    break;
                case 2:
                    node->SetNodeText(u"a text that is too long to be kept in place");
                    break;
                case 3:
                    node->SetNodeType(static_cast<std::int32_t>(random() % 5));
                    break;
                case 4:
                    node->SetBracketType(static_cast<std::int32_t>(random() % 5));
                    break;
                default:
                    node->SetNegative(true);
                    break;
            }
        }
        for (IExpressionNode* root : roots) {
            root->CalcValue();
            root->ToString();
        }
        // What was cut off belongs to the host: held once more under roots of its own, it goes with them.
        for (IExpressionNode* node : nodes) {
            IExpressionNode* holder = ParsedNode(u"(0)").release();
            delete holder->GetLeftNode();
            holder->SetLeftNode(node);
            roots.push_back(holder);
        }
        for (IExpressionNode* root : roots)
            delete root;
    }
}

}  // namespace
