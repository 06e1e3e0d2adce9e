// The node behind `IExpressionNode`.
#pragma once

#include <cstdint>
#include <new>
#include <string>
#include <string_view>

#include "QsUtils/expression/ExpressionAnalyse.h"
#include "QsUtils/expression/NodeArena.h"
#include "QsUtils/expression/Operation.h"

namespace ExpressionAnalyse {

class CExpressionNode;

/// A pointer from a node to a child, which may be one of ours or a host's own. Which of them is noted when
/// the pointer is set, since a host may have deleted its own node by the time the pointer is looked at.
class ChildLink {
public:
    ChildLink() noexcept = default;
    explicit ChildLink(IExpressionNode* node) noexcept;
    explicit ChildLink(CExpressionNode* node) noexcept;

    IExpressionNode* Get() const noexcept { return reinterpret_cast<IExpressionNode*>(m_address & ~HostBit); }
    /// The child if it is one of ours, deleted or not; else null.
    CExpressionNode* Own() const noexcept;
    /// The child in a tree as it was parsed, where all are ours.
    CExpressionNode* Parsed() const noexcept;
    /// The child, unless it is one of ours and has been deleted.
    IExpressionNode* Living() const noexcept;

private:
    static constexpr std::uintptr_t HostBit = 1;  // free, since a node is aligned like a pointer

    std::uintptr_t m_address = 0;
};

/// A node in an arena. It is never destroyed by a destructor: deletion marks it and gives its place back when
/// no node points to it any more, so that a pointer to a deleted node that is left in a tree can be told.
///
/// The root of a parse begins folded: it knows the formula's text and its value. The other nodes are made
/// when somebody asks for them, or for anything of the root but its value.
class CExpressionNode final : public IExpressionNode {
public:
    /// The folded root of a formula.
    CExpressionNode(std::uint32_t slot, double value) noexcept
        : m_dValue(value), m_slot(slot), m_isFolded(true) {}
    /// A node without children and with a text that outlives it.
    CExpressionNode(std::uint32_t slot, std::int32_t type, std::u16string_view text, bool negative) noexcept
        : m_text(text.data()),
          m_length(static_cast<std::uint32_t>(text.size())),
          m_slot(slot),
          m_nNodeType(type),
          m_bNegative(negative) {}
    ~CExpressionNode() override = default;
    void operator delete(CExpressionNode* node, std::destroying_delete_t) noexcept { node->DeleteTree(); }

    IExpressionNode* GetLeftNode() override { return Unfolded().m_pLeft.Living(); }
    void SetLeftNode(IExpressionNode* node) override { SetChild(Unfolded().m_pLeft, node); }
    IExpressionNode* GetRightNode() override { return Unfolded().m_pRight.Living(); }
    void SetRightNode(IExpressionNode* node) override { SetChild(Unfolded().m_pRight, node); }
    double CalcValue() override;
    CString ToString() override;
    CString GetNodeText() override { return CString(Unfolded().Text()); }
    void SetNodeText(const CString& text) override;
    void SetLeafText(const CString& text) override;
    bool IsLeaf() override { return GetLeftNode() == nullptr && GetRightNode() == nullptr; }
    bool IsBracketType(std::int32_t type) override { return Unfolded().m_nBracketType == type; }
    void SetBracketType(std::int32_t type) override { Unfolded().m_nBracketType = type; }
    bool IsNegative() override { return Unfolded().m_bNegative; }
    void SetNegative(bool negative) override;
    bool IsNodeType(std::int32_t type) override { return Unfolded().m_nNodeType == type; }
    void SetNodeType(std::int32_t type) override;
    bool IsNumber() override;

    // --- For what makes trees

    void AttachLeft(CExpressionNode* node) noexcept { Attach(m_pLeft, node); }
    void AttachRight(CExpressionNode* node) noexcept { Attach(m_pRight, node); }
    void SetParsedOperation(Operation operation) noexcept { m_operation = operation; }
    void SetParsedBracket(std::int32_t type) noexcept { m_nBracketType = type; }
    /// Makes the nodes below a folded root. Raises `std::bad_alloc`, the root being folded still.
    CExpressionNode& Unfolded() {
        if (m_isFolded)
            Unfold();
        return *this;
    }

    // --- For walks over trees

    const ChildLink& Left() const noexcept { return m_pLeft; }
    const ChildLink& Right() const noexcept { return m_pRight; }
    bool IsDeleted() const noexcept { return m_isDeleted; }
    /// Sets the value from those of the children and returns it, with the node's sign.
    double CalcFrom(double left, double right) noexcept;
    /// Whether a walk is inside of this node: then it is its own descendant.
    bool IsOnPath() const noexcept { return m_isOnPath; }
    void SetOnPath(bool onPath) noexcept { m_isOnPath = onPath; }
    /// The node's own share of `ToString`.
    void AppendGroupText(std::u16string& text) const;

private:
    friend class TreeDeletion;
    struct OwnText;

    std::u16string_view Text() const noexcept { return {m_text, m_length}; }
    void AssignText(std::u16string_view text);
    void FreeText() noexcept;

    void Unfold();
    bool IsRoot() noexcept { return this == Arena()->RootPlace(); }
    void CalcParsed() noexcept;
    void CalcAllParsed() noexcept;
    void CalcUpFrom(CExpressionNode* node) noexcept;
    void ForgetValue() noexcept;
    static double ParsedValue(const ChildLink& link) noexcept;

    void Attach(ChildLink& child, CExpressionNode* node) noexcept {
        child = ChildLink(node);
        node->m_parent = this;
        ++node->m_holders;
    }
    void SetChild(ChildLink& child, IExpressionNode* node) noexcept;

    void DeleteTree() noexcept;
    bool DeleteWholeParse() noexcept;
    /// One node less has this one as a child.
    void DropHolder() noexcept;
    void ReleasePlaceIfUnheld() noexcept;
    NodeArena* Arena() noexcept { return NodeBlock::OfNodes(this - m_slot)->arena; }

    ChildLink m_pLeft;
    ChildLink m_pRight;
    CExpressionNode* m_parent = nullptr;  // in the tree as it was parsed
    union {
        double m_dValue = 0.0;
        CExpressionNode* m_nextToDelete;  // of a node whose deletion has begun
    };
    const char16_t* m_text = nullptr;  // m_strText: in the arena's text, in constant data, or in an OwnText
    std::uint32_t m_length = 0;
    std::uint32_t m_slot;
    std::uint32_t m_holders = 0;  // how many nodes have this one as a child, counted by side
    std::int32_t m_nNodeType = eNodeType_Operand;
    std::int32_t m_nBracketType = eBracketType_None;
    Operation m_operation = Operation::Unread;
    bool m_bNegative = false;
    bool m_hasOwnText : 1 = false;
    bool m_isOnPath : 1 = false;
    bool m_isFolded : 1 = false;
    bool m_isCalculated : 1 = false;  // of a folded root: somebody has seen the value
    bool m_isValueKnown : 1 = false;  // of an operand: m_dValue is what a calculation would give
    bool m_isDeleted : 1 = false;
    bool m_isTakenApart : 1 = false;  // deleted, and its children dealt with
};

inline ChildLink::ChildLink(CExpressionNode* node) noexcept
    : m_address(reinterpret_cast<std::uintptr_t>(static_cast<IExpressionNode*>(node))) {}

inline CExpressionNode* ChildLink::Parsed() const noexcept {
    return static_cast<CExpressionNode*>(reinterpret_cast<IExpressionNode*>(m_address));
}

inline CExpressionNode* ChildLink::Own() const noexcept {
    return (m_address & HostBit) != 0 ? nullptr : static_cast<CExpressionNode*>(Get());
}

inline IExpressionNode* ChildLink::Living() const noexcept {
    const CExpressionNode* own = Own();
    return own != nullptr && own->IsDeleted() ? nullptr : Get();
}

}  // namespace ExpressionAnalyse
