// Walks over trees of any shape and depth, without recursion.
#pragma once

#include <string>

namespace ExpressionAnalyse {

class CExpressionNode;

/// Calculates a tree, the left child of each node first. Raises `std::bad_alloc`, and what a host's own node
/// raises.
double CalculateTree(CExpressionNode& root);

/// Appends what `ToString` gives for a tree.
void AppendTreeText(CExpressionNode& root, std::u16string& text);

}  // namespace ExpressionAnalyse
