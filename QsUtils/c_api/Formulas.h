/// @file
/// Quantity formulas: their variables, their trees, their values.
#pragma once

#include "QsUtils/c_api/Lists.h"

#if defined(__cplusplus)
extern "C" {
#endif

// --- Variables in the text of a formula, as `IQsUtils` describes them

/// Whether the text of a formula holds a variable.
QSUTILS_API QsStatus QsIsVariable(const QsChar* text, int32_t length, int32_t* holdsVariable);
/// Appends the variables to `variables`; with `unique` not those that it holds. `found` tells of any in the
/// text.
QSUTILS_API QsStatus QsFindVariable(const QsChar* text, int32_t length, int32_t unique, QsTextList* variables,
                                    int32_t* found);
/// Adds the variables to `variables`, each under the index of its last unit.
QSUTILS_API QsStatus QsFindVariablePlaces(const QsChar* text, int32_t length, QsIndexMap* variables,
                                          int32_t* found);
/// Whether the project amount, "Q" or "[Q]", is among them.
QSUTILS_API QsStatus QsIsIncludeQ(const QsChar* text, int32_t length, int32_t* isIncluded);
/// The text with the amount in place of the project amount.
QSUTILS_API QsStatus QsReplaceQWithProjectAmount(const QsChar* text, int32_t length, const QsChar* amount,
                                                 int32_t amountLength, QsString** result);
/// The text with the value in place of a variable.
QSUTILS_API QsStatus QsReplaceVarString(const QsChar* text, int32_t length, const QsChar* variable,
                                        int32_t variableLength, const QsChar* value, int32_t valueLength,
                                        QsString** result);

/// Trees, as `IExpressionNode` describes them. The root is the caller's; a node that is got from another
/// one is borrowed from it.
typedef struct QsExpressionNode QsExpressionNode;

enum { QS_NODE_OPERAND = 0, QS_NODE_OPERATOR = 1, QS_NODE_FUNCTION = 2, QS_NODE_BRACKET = 3 };
enum { QS_BRACKET_NONE = 0, QS_BRACKET_ROUND = 1, QS_BRACKET_SQUARE = 2, QS_BRACKET_CURLY = 3 };

/// Parses a formula. `error` is 0; 2, 3, 4 when the numbers of "(", "[", "{" and their closings differ; 5
/// when an operand is missing. The root is null for an error and for an empty text, with QS_OK.
QSUTILS_API QsStatus QsAnalyseExpression(const QsChar* text, int32_t length, QsExpressionNode** root,
                                         int32_t* error);
/// The texts of the bracket groups; empty for a null root.
QSUTILS_API QsStatus QsExpressionToString(QsExpressionNode* root, QsString** result);
/// Frees a node and all below it.
QSUTILS_API void QsExpressionNode_Free(QsExpressionNode* node);

/// The left child, borrowed; null, with QS_OK, when there is none.
QSUTILS_API QsStatus QsExpressionNode_GetLeftNode(QsExpressionNode* node, QsExpressionNode** child);
/// The right child, likewise.
QSUTILS_API QsStatus QsExpressionNode_GetRightNode(QsExpressionNode* node, QsExpressionNode** child);
/// Gives the node another left child, or none for null. The new one is the node's from then on, the old one
/// the caller's.
QSUTILS_API QsStatus QsExpressionNode_SetLeftNode(QsExpressionNode* node, QsExpressionNode* child);
/// The same for the right child.
QSUTILS_API QsStatus QsExpressionNode_SetRightNode(QsExpressionNode* node, QsExpressionNode* child);
/// Calculates the subtree afresh.
QSUTILS_API QsStatus QsExpressionNode_CalcValue(QsExpressionNode* node, double* value);
/// The texts of the bracket groups in the subtree.
QSUTILS_API QsStatus QsExpressionNode_ToString(QsExpressionNode* node, QsString** result);
/// The operator, the function's name or the operand, without its sign.
QSUTILS_API QsStatus QsExpressionNode_GetNodeText(QsExpressionNode* node, QsString** text);
/// Sets the text of any node.
QSUTILS_API QsStatus QsExpressionNode_SetNodeText(QsExpressionNode* node, const QsChar* text, int32_t length);
/// Sets the text of a node without children, for instance to bind a variable; else does nothing.
QSUTILS_API QsStatus QsExpressionNode_SetLeafText(QsExpressionNode* node, const QsChar* text, int32_t length);
/// Whether the node has no child.
QSUTILS_API QsStatus QsExpressionNode_IsLeaf(QsExpressionNode* node, int32_t* isLeaf);
/// Whether the brackets of the node are of a kind, a QS_BRACKET_...
QSUTILS_API QsStatus QsExpressionNode_IsBracketType(QsExpressionNode* node, int32_t kind, int32_t* isOfKind);
/// Sets the kind of its brackets; any number may be set.
QSUTILS_API QsStatus QsExpressionNode_SetBracketType(QsExpressionNode* node, int32_t kind);
/// Whether the node is of a type, a QS_NODE_...
QSUTILS_API QsStatus QsExpressionNode_IsNodeType(QsExpressionNode* node, int32_t type, int32_t* isOfType);
/// Sets its type; any number may be set.
QSUTILS_API QsStatus QsExpressionNode_SetNodeType(QsExpressionNode* node, int32_t type);
/// Whether a minus stands in front of the node.
QSUTILS_API QsStatus QsExpressionNode_IsNegative(QsExpressionNode* node, int32_t* isNegative);
/// Puts a minus in front of the node, or takes it away.
QSUTILS_API QsStatus QsExpressionNode_SetNegative(QsExpressionNode* node, int32_t isNegative);
/// Whether the text is made of digits and points alone, and isn't empty.
QSUTILS_API QsStatus QsExpressionNode_IsNumber(QsExpressionNode* node, int32_t* isNumber);

#if defined(__cplusplus)
}
#endif
