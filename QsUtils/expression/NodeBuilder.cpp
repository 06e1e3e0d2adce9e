#include "QsUtils/expression/NodeBuilder.h"

namespace ExpressionAnalyse {

namespace {

std::u16string_view SymbolOf(Operation operation) {
    switch (operation) {
        case Operation::Add:
            return u"+";
        case Operation::Subtract:
            return u"-";
        case Operation::Divide:
            return u"/";
        default:
            return u"*";
    }
}

}  // namespace

CExpressionNode* NodeBuilder::Add(Place place, std::int32_t type, std::u16string_view text, bool negative) {
    std::uint32_t slot = 0;
    CExpressionNode* const memory = place.side == Side::Root    ? m_arena.RootPlace()
                                    : type == eNodeType_Operand ? m_arena.NextOperand(slot)
                                                                : m_arena.NextBranch(slot);
    auto* const node = new (static_cast<void*>(memory)) CExpressionNode(slot, type, text, negative);
    if (place.side == Side::Left)
        place.node->AttachLeft(node);
    else if (place.side == Side::Right)
        place.node->AttachRight(node);
    return node;
}

NodeBuilder::Place NodeBuilder::AddOperator(Place place, Operation operation, bool) {
    CExpressionNode* const node = Add(place, eNodeType_Operator, SymbolOf(operation), false);
    node->SetParsedOperation(operation);
    return {node};
}

NodeBuilder::Place NodeBuilder::AddFunction(Place place, const FunctionName& function, bool negative, bool) {
    CExpressionNode* const node = Add(place, eNodeType_Function, function.name, negative);
    node->SetParsedOperation(function.operation);
    return {node};
}

NodeBuilder::Place NodeBuilder::AddBracket(Place place, std::int32_t bracket, bool negative, bool) {
    CExpressionNode* const node = Add(place, eNodeType_Bracket, u"", negative);
    node->SetParsedBracket(bracket);
    return {node};
}

void NodeBuilder::AddOperand(Place place, std::u16string_view text, bool negative) {
    const std::u16string_view kept(m_arena.Text() + (text.data() - m_parsedUnits), text.size());
    Add(place, eNodeType_Operand, kept, negative);
}

/// Parses the formula again, this time for its nodes. Its text has been through a parse, so that it is taken
/// as it is and has the same parts.
void CExpressionNode::Unfold() {
    NodeArena& arena = *Arena();
    const std::uint32_t holders = m_holders;
    const double value = m_dValue;
    const bool isCalculated = m_isCalculated;
    FormulaText text({arena.Text(), arena.TextLength()});
    arena.AddBlocks();
    try {
        NodeBuilder builder(arena, text.Units());
        SplitParser<NodeBuilder>(text, builder).Parse({});
    } catch (...) {
        arena.DropBlocks();
        new (static_cast<void*>(this)) CExpressionNode(0, value);
        m_holders = holders;
        m_isCalculated = isCalculated;
        throw;
    }
    m_holders = holders;
    arena.Seal();
    if (isCalculated)
        CalcAllParsed();  // so that each node has the value of the last calculation
}

}  // namespace ExpressionAnalyse
