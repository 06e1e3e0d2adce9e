// From a formula to its nodes.
#pragma once

#include <cstdint>
#include <string_view>

#include "QsUtils/expression/CExpressionNode.h"
#include "QsUtils/expression/SplitParser.h"

namespace ExpressionAnalyse {

/// Makes the nodes of a formula in an arena that has room for them. The operands' texts lie in the arena's
/// text, at the places that they have in the text parsed.
class NodeBuilder {
public:
    enum class Side : std::uint8_t { Root, Left, Right };
    /// A node, or a side of one where the next node goes.
    struct Place {
        CExpressionNode* node = nullptr;
        Side side = Side::Root;
    };

    NodeBuilder(NodeArena& arena, const char16_t* parsedUnits) : m_arena(arena), m_parsedUnits(parsedUnits) {}

    Place LeftOf(Place place) const noexcept { return {place.node, Side::Left}; }
    Place RightOf(Place place) const noexcept { return {place.node, Side::Right}; }
    Place AddOperator(Place place, Operation operation, bool rightFirst);
    Place AddFunction(Place place, const FunctionName& function, bool negative, bool isEmpty);
    Place AddBracket(Place place, std::int32_t bracket, bool negative, bool isEmpty);
    void AddOperand(Place place, std::u16string_view text, bool negative);

private:
    CExpressionNode* Add(Place place, std::int32_t type, std::u16string_view text, bool negative);

    NodeArena& m_arena;
    const char16_t* m_parsedUnits;
};

}  // namespace ExpressionAnalyse
