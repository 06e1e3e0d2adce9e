/// @file
/// Quantity formulas: from text to a tree of nodes, and to a value.
#pragma once

#include <cstdint>

#include "QsUtils/platform/Api.h"
#include "QsUtils/text/CString.h"

/// The analyser of formulas, its trees, and the values that tell nodes apart. See docs/expressions.md.
namespace ExpressionAnalyse {

/// What a node stands for; the values of `IExpressionNode::IsNodeType`.
enum eNodeType : std::int32_t {
    eNodeType_Operand = 0,
    eNodeType_Operator = 1,
    eNodeType_Function = 2,
    eNodeType_Bracket = 3
};

/// The brackets of a group; the values of `IExpressionNode::IsBracketType`.
enum eBracketType : std::int32_t {
    eBracketType_None = 0,
    eBracketType_Round = 1,
    eBracketType_Square = 2,
    eBracketType_Curly = 3
};

/// A node of a parsed formula. An operator has two children, a function and a bracket group the left one, an
/// operand none. The root belongs to the caller of `AnalyseExpression`, and deleting a node deletes all below
/// it. A tree is for one thread at a time.
///
/// Trees may be changed at will. A setter of a child only stores the pointer: the old child is the caller's
/// from then on. A child that has been deleted counts as no child, a child that several nodes hold is deleted
/// with the last of them, and a node that was made its own descendant counts as no child there.
class QSUTILS_API IExpressionNode {
public:
    virtual ~IExpressionNode();
    /// The left child, or the only one; null without.
    virtual IExpressionNode* GetLeftNode() = 0;
    /// Sets the left child; null takes it away.
    virtual void SetLeftNode(IExpressionNode* node) = 0;
    /// The right child; null without.
    virtual IExpressionNode* GetRightNode() = 0;
    /// Sets the right child; null takes it away.
    virtual void SetRightNode(IExpressionNode* node) = 0;
    /// Calculates the subtree afresh. An operand is the number that its text begins with, or 0; "%" and "‰"
    /// divide it. A division by at most 1e-7 in magnitude is 0.
    virtual double CalcValue() = 0;
    /// The bracket groups' texts between their brackets, in order; not the formula.
    virtual CString ToString() = 0;
    /// The operator, the function's name or the operand, without its sign.
    virtual CString GetNodeText() = 0;
    /// Sets the text that stands for the node, which is that of `GetNodeText`.
    virtual void SetNodeText(const CString& text) = 0;
    /// Sets the text of a node without children, for instance to bind a variable; else does nothing.
    virtual void SetLeafText(const CString& text) = 0;
    /// Whether the node has no child; its type doesn't matter.
    virtual bool IsLeaf() = 0;
    /// Whether the brackets are of this `eBracketType`.
    virtual bool IsBracketType(std::int32_t type) = 0;
    /// Sets an `eBracketType`.
    virtual void SetBracketType(std::int32_t type) = 0;
    /// Whether a minus stands in front of the node.
    virtual bool IsNegative() = 0;
    /// Puts a minus in front of the node, or takes it away.
    virtual void SetNegative(bool negative) = 0;
    /// Whether the node is of this `eNodeType`.
    virtual bool IsNodeType(std::int32_t type) = 0;
    /// Sets an `eNodeType`.
    virtual void SetNodeType(std::int32_t type) = 0;
    /// Whether the text is made of digits and points alone, and isn't empty: false for a variable.
    virtual bool IsNumber() = 0;
};

/// Parses formulas. It has no state; any thread may call it.
class QSUTILS_API IExpressionAnalyse {
public:
    virtual ~IExpressionAnalyse();
    /// Parses `text`. `*error` is always written: 0; 2, 3, 4 when the numbers of "(", "[", "{" and their
    /// closings differ; 5 when an operand is missing. The root, to be deleted by the caller, or null for an
    /// error and for an empty text. Time and memory grow linearly with the text, whatever it holds, but for
    /// contrived mixtures of brackets that close each other's; no call recurses over it.
    virtual IExpressionNode* AnalyseExpression(const CString& text, std::int32_t* error) = 0;
    /// `ToString` of the root; empty for null.
    virtual CString ExpressionToString(IExpressionNode* root) = 0;
};

/// The analyser of the process, always the same; never deleted by a caller. Any thread may call it.
QSUTILS_API IExpressionAnalyse* GetExpressionAnalyser();

}  // namespace ExpressionAnalyse
